// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/file_type.h"

#include <QFile>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kSniffedBytes = 300;

struct TypeWord {
  const char* word;
  const char* type;
};

// The first row wins whose word is found at any place of the bytes: a JPEG with "gif" in a comment is a GIF here.
// Stations name their files wrongly in many ways, and every other module relies on this one answer.
constexpr std::array<TypeWord, 12> kTypeWords{{{"gif", "gif"},
                                               {"jfif", "jpg"},
                                               {"jfxx", "jpg"},
                                               {"exif", "jpg"},
                                               {"jp2", "jp2"},
                                               {"png", "png"},
                                               {"bm", "bmp"},
                                               {"mp4", "mp4"},
                                               {"mpeg", "mpg"},
                                               {"avi", "avi"},
                                               {"404", "404"},
                                               {"locked", "locked"}}};

}  // namespace

QString FileTypeOf(const QByteArray& first300) {
  const QByteArray head = first300.left(kSniffedBytes).toLower();
  for (const TypeWord& row : kTypeWords) {
    if (head.contains(row.word)) return QString::fromLatin1(row.type);
  }
  return {};
}

QString GetFileType(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return FileTypeOf(file.read(kSniffedBytes));
}

bool IsVideoType(const QString& type) {
  return type == "avi"_L1 || type == "mp4"_L1 || type == "mpg"_L1;
}
