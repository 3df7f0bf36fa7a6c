// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/paths.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

// The name in folder that differs from name in letter case at most; name itself where there is none.
QString StoredSpelling(const QString& folder, const QString& name) {
  QString found;
  QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  while (entries.hasNext()) {
    entries.next();
    const QString entry = entries.fileName();
    // Of several such names take the smallest, so that each run takes the same one.
    if (entry.compare(name, Qt::CaseInsensitive) == 0 && (found.isEmpty() || entry < found)) found = entry;
  }
  return found.isEmpty() ? name : found;
}

}  // namespace

QString DefaultAppDataDir() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Omni-Perch"_s;
}

QString ResolvePath(const QString& folder, const QString& relative) {
  QString path = folder;
  const QStringList parts = relative.split(u'/', Qt::SkipEmptyParts);
  for (const QString& part : parts) {
    const QString exact = path + u'/' + part;
    path = QFileInfo::exists(exact) ? exact : path + u'/' + StoredSpelling(path, part);
  }
  return path;
}
