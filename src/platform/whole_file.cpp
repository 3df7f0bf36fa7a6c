// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <filesystem>

using namespace Qt::StringLiterals;

bool WriteWhole(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  bool whole = file.write(bytes) == bytes.size() && file.flush();
  // A full disk may be reported only when the file is closed.
  file.close();
  whole = whole && file.error() == QFileDevice::NoError;
  if (!whole) file.remove();
  return whole;
}

QString PartPath(const QString& path) {
  const QFileInfo info(path);
  return u"%1/.part-%2-%3"_s.arg(info.path(), QUuid::createUuid().toString(QUuid::WithoutBraces), info.fileName());
}

bool PutInPlace(const QString& part, const QString& path) {
  std::error_code error;
  std::filesystem::rename(QFile::encodeName(part).toStdString(), QFile::encodeName(path).toStdString(), error);
  if (error) QFile::remove(part);
  return !error;
}
