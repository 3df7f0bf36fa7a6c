// SPDX-License-Identifier: GPL-3.0-or-later
#include "cams/cam_list.h"

#include <QSet>

#include "page/cam_light.h"
#include "platform/text/numbers.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

QString PagesText(const SiteTable& sites, int site) {
  QStringList pages;
  for (int page = 1; page <= kDsstvPages; ++page) {
    if (sites.GetSiteSlot(site, page) > 0) pages.append(QString::number(page));
  }
  return pages.isEmpty() ? QString() : u'p' + pages.join(u',');
}

QList<CamCell> WxCells(const Program& program) {
  QList<CamCell> cells;
  const int layout = program.config.ThumbLayout;
  const QList<SiteRec>& sites = program.sites.WxSites;
  for (int site = 0; site < sites.size(); ++site) {
    const SiteRec& record = sites.at(site);
    if (record.Call.isEmpty()) continue;
    CamCell cell;
    cell.site = site;
    cell.call = cell.lblGrid = record.Call;
    cell.isOnPage = layout >= 1 && layout <= kLayouts && Val(record.PageSlots[static_cast<std::size_t>(layout)]) > 0;
    cells.append(cell);
  }
  return cells;
}

}  // namespace

QList<CamCell> SiteIndexCells(const Program& program) {
  if (!program.page.OnDsstvPage()) return WxCells(program);
  QList<CamCell> cells;
  const SiteTable& sites = program.sites;
  for (int site = 0; site < sites.Sites.size(); ++site) {
    const SiteRec& record = sites.Sites.at(site);
    if (record.Call.isEmpty()) continue;
    CamCell cell;
    cell.site = site;
    cell.call = record.Call;
    cell.lblGrid = ShownCall(record.Call, program.ZeroGlyph);
    cell.lblPage = PagesText(sites, site);
    if (!record.CamUrl.isEmpty()) cell.imgGrid = LightOfMark(sites.CamMark(record.Call));
    cell.isOnPage = sites.GetSiteSlot(site, program.page.CurrentPage) > 0;
    cells.append(cell);
  }
  return cells;
}

QList<CamCell> CamStatusCells(const Program& program) {
  if (!program.page.OnDsstvPage()) return {};
  QSet<QString> onPage;
  for (const QString& entry : program.page.List1) onPage.insert(entry.section(u"    "_s, 0, 0));
  QList<CamCell> cells;
  for (const QString& item : program.sites.lstCams) {
    CamCell cell;
    cell.call = item.chopped(std::min<qsizetype>(2, item.size()));
    cell.lblGrid = ShownCall(cell.call, program.ZeroGlyph);
    cell.site = program.sites.FindCall(cell.call);
    cell.imgGrid = LightOfMark(item.back());
    cell.isOnPage = onPage.contains(cell.call);
    cells.append(cell);
  }
  return cells;
}

int CamRows(qsizetype cells) {
  return static_cast<int>((cells + kCamColumns - 1) / kCamColumns);
}
