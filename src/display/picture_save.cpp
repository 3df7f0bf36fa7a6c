// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/picture_save.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <functional>

#include "platform/picture/picture_protocol.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestName = 120;
constexpr qsizetype kLongestBytes = 200;  // a file system takes 255, and number and extension follow
const QString& Prefix() {
  static const QString prefix = u"Omni-Perch_"_s;
  return prefix;
}

enum class Written { Yes, Exists, No };

// Puts a picture into an open, empty file; false where not all of it could be written.
using Fill = std::function<bool(QFile&)>;

Fill FillWith(const QByteArray& bytes) {
  return [&bytes](QFile& file) { return file.write(bytes) == bytes.size(); };
}

// Some file systems cannot copy between each other.
Fill FillFrom(const OpenFile& source) {
  return [&source](QFile& file) {
    off_t at = 0;
    ssize_t copied = 1;
    while (copied > 0) {
      copied = copy_file_range(source.Handle(), &at, file.handle(), nullptr, PictureLimits::kFileBytes, 0);
    }
    if (at > 0) return copied == 0;
    const QByteArray bytes = source.Bytes();
    return file.write(bytes) == bytes.size();
  };
}

// Makes a file that did not exist; what could not be written whole is removed.
Written WriteNew(const QString& path, const Fill& fill) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
    return QFileInfo::exists(path) || QFileInfo(path).isSymLink() ? Written::Exists : Written::No;
  }
  bool whole = fill(file) && file.flush();
  // A full disk may be reported only when the file is closed.
  file.close();
  whole = whole && file.error() == QFileDevice::NoError;
  if (!whole) file.remove();
  return whole ? Written::Yes : Written::No;
}

SavedCopy SaveBeside(const QString& folder, const QString& name, const QString& extension, const Fill& fill) {
  for (int number = 1;; ++number) {
    const QString mark = number == 1 ? QString() : u" (%1)"_s.arg(number);
    const QString path = folder + u'/' + name + mark + u'.' + extension;
    const Written written = WriteNew(path, fill);
    if (written != Written::Exists) return {path, written == Written::Yes};
  }
}

// Characters that a file system, another system's file system or a reader of the name would take for something else.
bool IsHarmful(QChar c) {
  static const QString kReserved = u"/\\:*?\"<>|"_s;
  return kReserved.contains(c) || c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
         c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph;
}

}  // namespace

QString HarmlessName(const QString& text) {
  QString name;
  for (const QChar c : text.left(kLongestName)) {
    if (c == u'/' || c == u'\\') {
      name += u'_';
    } else if (!IsHarmful(c)) {
      name += c;
    }
  }
  while (!name.isEmpty() && (name.front() == u'.' || name.front().isSpace())) name.remove(0, 1);
  while (!name.isEmpty() && (name.back() == u'.' || name.back().isSpace())) name.chop(1);
  while (name.toUtf8().size() > kLongestBytes) name.chop(1);
  if (!name.isEmpty() && name.back().isHighSurrogate()) name.chop(1);
  return name.isEmpty() ? u"Omni-Perch"_s : name;
}

QString SuggestedName(const SourceFile& file) {
  return HarmlessName((file.Call() + u' ' + MakeFileStamp(file.SentTime())).trimmed());
}

SavedCopy SaveNumbered(const QString& folder, const QString& extension, const QByteArray& bytes) {
  const QStringList present =
      QDir(folder).entryList({Prefix() + u'*'}, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  QSet<QString> taken;
  for (const QString& name : present) taken.insert(name.sliced(Prefix().size()).section(u'.', 0, 0));
  for (int number = 1;; ++number) {
    if (taken.contains(QString::number(number))) continue;
    const QString path = u"%1/%2%3.%4"_s.arg(folder, Prefix()).arg(number).arg(extension);
    const Written written = WriteNew(path, FillWith(bytes));
    if (written != Written::Exists) return {path, written == Written::Yes};
  }
}

SavedCopy SaveBesides(const QString& folder, const QString& name, const QString& extension, const QByteArray& bytes) {
  return SaveBeside(folder, name, extension, FillWith(bytes));
}

SavedCopy SaveBesides(const QString& folder, const QString& name, const QString& extension, const OpenFile& file) {
  return SaveBeside(folder, name, extension, FillFrom(file));
}

SavedCopy SaveOver(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  // commit() alone takes a disk that fills up with the last bytes for a success.
  const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
  return {path, written && file.commit()};
}
