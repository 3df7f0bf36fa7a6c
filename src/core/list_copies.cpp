// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/list_copies.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

#include "core/site_list_file.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

QList<SiteRec> RecordsOf(const QString& folder, SiteList list) {
  SiteTable sites;
  SiteListFile file(sites, folder);
  if (list == SiteList::Dsstv) {
    file.ReadSiteList(1);
  } else {
    file.ReadWxSiteList();
  }
  return list == SiteList::Dsstv ? sites.Sites : sites.WxSites;
}

}  // namespace

std::optional<ListCopy> NewestCopy(const QString& appDataDir, SiteList list) {
  const QString name = list == SiteList::Dsstv ? u"Omni-Perch.lst"_s : u"WXsites.lst"_s;
  const QString backups = ResolvePath(appDataDir, u"Backups"_s);
  QFileInfoList copies{QFileInfo(ResolvePath(backups, name))};
  const QStringList folders = QDir(backups).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  for (const QString& folder : folders) copies.append(QFileInfo(ResolvePath(backups + u'/' + folder, name)));
  copies.removeIf([](const QFileInfo& copy) { return !copy.isFile(); });
  std::sort(copies.begin(), copies.end(),
            [](const QFileInfo& left, const QFileInfo& right) { return left.lastModified() > right.lastModified(); });
  for (const QFileInfo& copy : std::as_const(copies)) {
    const QList<SiteRec> sites = RecordsOf(copy.path(), list);
    if (!sites.isEmpty()) return ListCopy{list, copy.filePath(), copy.lastModified(), sites};
  }
  return std::nullopt;
}
