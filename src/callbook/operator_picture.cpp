// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/operator_picture.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype kLongestPictureName = 20;
}  // namespace

QString OperatorPicturePath(const QString& appDataDir, const QString& call) {
  QString name;
  for (const QChar c : call) {
    if (c.isLetterOrNumber() && name.size() < kLongestPictureName) name += c;
  }
  if (name.isEmpty()) return {};
  return ResolvePath(appDataDir, "images/qrzImages/"_L1 + name + ".jpg"_L1);
}

bool WriteOperatorPicture(const QString& path, const QByteArray& bytes) {
  if (!QDir().mkpath(QFileInfo(path).path())) return false;
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}
