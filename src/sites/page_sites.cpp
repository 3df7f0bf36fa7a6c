// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/page_sites.h"

#include "poll/new_image_check.h"

using namespace Qt::StringLiterals;

namespace {

// The slot, from 1, that compacting gives to the site in a 0-based place of the list. From the 27th place on it is one
// further than the place itself, as it has always been; a site that this would put outside the layout takes the slot 27
// that is left free.
int CompactSlot(int place, int thumbCount) {
  constexpr int kLastLetter = 26;
  const int slot = place < kLastLetter ? place + 1 : place + 2;
  return slot <= thumbCount ? slot : kLastLetter + 1;
}

}  // namespace

PageSites::PageSites(Program& program, ThumbGrid& grid, PollCycle& poll, ucCkNew& check, UserControl1& download,
                     QObject* parent)
    : QObject(parent), program_(program), grid_(grid), poll_(poll), check_(check), download_(download) {}

QString& PageSites::WxSlot(SiteRec& site) const {
  return site.PageSlots[static_cast<std::size_t>(program_.config.ThumbLayout)];
}

void PageSites::EmptySlot(int slot) {
  grid_.ClearCell(slot);
  for (QString& field : program_.page.ThumbFields[static_cast<std::size_t>(slot)]) field.clear();
}

void PageSites::AddSiteToSlot(int site) {
  PageState& page = program_.page;
  const int slot = page.SelectedSlot;
  if (!grid_.HasSlot(slot)) return;
  EmptySlot(slot);
  if (OnWxPage()) {
    AddWxSite(slot, site);
    return;
  }
  SiteTable& sites = program_.sites;
  if (site < 0 || site >= sites.Sites.size()) return;
  const int before = sites.GetSiteSlot(site, page.CurrentPage);
  if (before > 0 && before != slot + 1) {
    if (grid_.HasSlot(before - 1)) EmptySlot(before - 1);
    --page.SitesDone;
    sites.RemoveThumbPos(page.CurrentPage, before, site);
  }
  for (int other = 0; other < sites.Sites.size(); ++other) {
    if (sites.GetSiteSlot(other, page.CurrentPage) != slot + 1) continue;
    sites.SetSiteSlot(other, page.CurrentPage, 0);
    sites.RemoveThumbPos(page.CurrentPage, slot + 1, other);
  }
  sites.SetSiteSlot(site, page.CurrentPage, slot + 1);
  const QString url = poll_.FillSlot(slot, site, sites.Sites.at(site).Call);
  if (url.contains("cam only"_L1, Qt::CaseInsensitive)) {
    grid_.ShowCamOnly(slot);
  } else if (NewImageCheck::HasMarker(url) && page.Online) {
    grid_.SetConnecting(slot, true);
    check_.DownloadFile(NewImageCheck::MarkerUrl(url, QString()), QString::number(slot));
  }
  sites.AddThumbPos(page.CurrentPage, slot + 1, site);
}

void PageSites::AddWxSite(int slot, int site) {
  QList<SiteRec>& sites = program_.sites.WxSites;
  if (site < 0 || site >= sites.size()) return;
  const QString place = QString::number(slot + 1);
  for (SiteRec& other : sites) {
    if (WxSlot(other) == place) WxSlot(other) = u"0"_s;
  }
  const int before = static_cast<int>(Val(WxSlot(sites[site]))) - 1;
  if (grid_.HasSlot(before)) EmptySlot(before);
  WxSlot(sites[site]) = place;
  grid_.SetWxSite(slot, sites.at(site).Call);
  if (!program_.page.Online) return;
  grid_.SetConnecting(slot, true);
  download_.DownloadFile(PlainUrl(sites.at(site).Url),
                         u"%1-%2"_s.arg(program_.page.CurrentPage * 100 + slot).arg(site));
}

void PageSites::ReloadSlot() {
  PageState& page = program_.page;
  const int slot = page.SelectedSlot;
  if (!grid_.HasSlot(slot) || !page.Online) return;
  const QList<SiteRec>& sites = OnWxPage() ? program_.sites.WxSites : program_.sites.Sites;
  const QString caption = grid_.Cells().at(slot).lblCall;
  const QString call = QString(page.Field(slot, SlotCall)).replace(u'Ø', u'0');
  for (qsizetype site = 0; site < sites.size(); ++site) {
    const QString& name = sites.at(site).Call;
    if (name.isEmpty()) continue;
    // The first site whose call contains the slot's; on the WX page the first whose title stands in the caption.
    const bool found = OnWxPage() ? caption.contains(name) : !call.isEmpty() && name.contains(call);
    if (!found) continue;
    grid_.SetConnecting(slot, true);
    grid_.SetReloadMark(slot);
    page.Field(slot, LastHeight) = u"0"_s;
    const QString key = QString::number(page.CurrentPage * 100 + slot);
    download_.DownloadFile(PlainUrl(sites.at(site).Url), OnWxPage() ? key : u"%1-%2"_s.arg(key).arg(site));
    return;
  }
}

void PageSites::CompactPage() {
  PageState& page = program_.page;
  if (OnWxPage()) return;
  SiteTable& sites = program_.sites;
  const QStringList calls = page.List1;
  grid_.ClearThumbs();
  int place = 0;
  for (const QString& entry : calls) {
    if (place > page.ThumbCount - 1) break;
    const int site = sites.FindCall(entry.section(u"    "_s, 0, 0));
    if (site >= 0) sites.SetSiteSlot(site, page.CurrentPage, CompactSlot(place, page.ThumbCount));
    ++place;
  }
  RebuildSlots();
  poll_.ReloadPage();
}

void PageSites::RemoveFrom(int slot) {
  PageState& page = program_.page;
  if (!grid_.HasSlot(slot)) return;
  if (OnWxPage()) {
    const QString place = QString::number(slot + 1);
    for (SiteRec& site : program_.sites.WxSites) {
      if (WxSlot(site) == place) WxSlot(site) = u"0"_s;
    }
  } else {
    for (int site = 0; site < program_.sites.Sites.size(); ++site) {
      if (program_.sites.GetSiteSlot(site, page.CurrentPage) == slot + 1) {
        program_.sites.SetSiteSlot(site, page.CurrentPage, 0);
      }
    }
    page.List1.removeIf([slot](const QString& entry) { return Val(entry.section(u"    "_s, 1)) == slot + 1; });
  }
  EmptySlot(slot);
}

void PageSites::RemoveSite() {
  RemoveFrom(program_.page.SelectedSlot);
  RebuildSlots();
}

void PageSites::RemoveAllSites() {
  for (int slot = 0; slot < program_.page.ThumbCount; ++slot) RemoveFrom(slot);
  RebuildSlots();
}

void PageSites::RebuildSlots() {
  program_.sites.StorePageSlots(program_.config.ThumbLayout);
  program_.sites.BuildPageSlots(program_.config.ThumbLayout);
}
