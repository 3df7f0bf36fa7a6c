// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/page_sites.h"

#include <algorithm>
#include <utility>

#include "core/picture_key.h"
#include "poll/new_image_check.h"

using namespace Qt::StringLiterals;

namespace {

// The slot, from 1, that compacting gives to the site at a place, from 0, of the list. From the 27th place on it is one
// further than the place, as in all earlier versions; the site that this would put outside the layout takes slot 27,
// which stays free.
int CompactSlot(int place, int thumbCount) {
  constexpr int kLastLetter = 26;
  const int slot = place < kLastLetter ? place + 1 : place + 2;
  return slot <= thumbCount ? slot : kLastLetter + 1;
}

}  // namespace

PageSites::PageSites(Program& program, ThumbGrid& grid, SlotPictures& files, PollCycle& poll, ucCkNew& check,
                     UserControl1& download, QObject* parent)
    : QObject(parent), program_(program), grid_(grid), files_(files), poll_(poll), check_(check), download_(download) {
  // The slots of another layout are independent.
  connect(&grid_, &ThumbGrid::GridMade, this, &PageSites::ForgetUndo);
}

QString& PageSites::WxSlot(SiteRec& site) const {
  return site.PageSlots[static_cast<std::size_t>(program_.config.ThumbLayout)];
}

void PageSites::EmptySlot(int slot) {
  grid_.ClearCell(slot);
  for (QString& field : program_.page.ThumbFields[static_cast<std::size_t>(slot)]) field.clear();
}

void PageSites::AddSiteToSlot(int site) {
  const PageState& page = program_.page;
  const int slot = page.SelectedSlot;
  if (!grid_.HasSlot(slot)) return;
  ForgetUndo();
  Q_EMIT PlacesTouched();
  const ThumbGrid::Edit cell = grid_.EditCell(slot);
  EmptySlot(slot);
  if (OnWxPage()) {
    AddWxSite(slot, site);
    return;
  }
  SiteTable& sites = program_.sites;
  if (site < 0 || site >= sites.Sites.size()) return;
  TakeDsstvSlot(slot, site);
  const QString url = poll_.FillSlot(slot, site, sites.Sites.at(site).Call).url;
  if (url.contains("cam only"_L1, Qt::CaseInsensitive)) {
    grid_.ShowCamOnly(slot);
  } else if (NewImageCheck::HasMarker(url) && page.Online) {
    grid_.SetConnecting(slot, true);
    check_.DownloadFile(NewImageCheck::MarkerUrl(url, QString()), QString::number(slot));
  }
  sites.AddThumbPos(page.CurrentPage, slot + 1, site);
}

void PageSites::TakeDsstvSlot(int slot, int site) {
  const int page = program_.page.CurrentPage;
  SiteTable& sites = program_.sites;
  const int before = sites.GetSiteSlot(site, page);
  if (before > 0 && before != slot + 1) {
    if (grid_.HasSlot(before - 1)) EmptySlot(before - 1);
    poll_.TakeBackOne();
    sites.RemoveThumbPos(page, before, site);
    files_.Move(page, {{before - 1, slot}});
  } else if (before == 0) {
    // The files of the slot are those of its former site.
    files_.Remove(page, slot);
  }
  for (int other = 0; other < sites.Sites.size(); ++other) {
    if (sites.GetSiteSlot(other, page) != slot + 1) continue;
    sites.SetSiteSlot(other, page, 0);
    sites.RemoveThumbPos(page, slot + 1, other);
  }
  sites.SetSiteSlot(site, page, slot + 1);
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
  download_.DownloadFile(PlainUrl(sites.at(site).Url), PictureKey{program_.page.CurrentPage, slot, site}.Text());
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
    // On a DSSTV page the first site whose call contains that of the slot; on the WX page the first whose title is in
    // the caption.
    const bool found = OnWxPage() ? caption.contains(name) : !call.isEmpty() && name.contains(call);
    if (!found) continue;
    grid_.SetConnecting(slot, true);
    grid_.SetReloadMark(slot);
    page.Field(slot, LastHeight) = u"0"_s;
    files_.ForgetFailure(page.CurrentPage, slot);
    const int keySite = OnWxPage() ? PictureKey::kNoSite : static_cast<int>(site);
    download_.DownloadFile(PlainUrl(sites.at(site).Url), PictureKey{page.CurrentPage, slot, keySite}.Text());
    return;
  }
}

void PageSites::CompactPage() {
  PageState& page = program_.page;
  if (OnWxPage()) return;
  SiteTable& sites = program_.sites;
  const Places before = PlacesNow(PlacesChange::Kind::Compacted, {});
  const QStringList calls = page.List1;
  grid_.ClearThumbs();
  QList<QPair<int, int>> moves;
  int place = 0;
  for (const QString& entry : calls) {
    if (place > page.ThumbCount - 1) break;
    const int site = sites.FindCall(entry.section(u"    "_s, 0, 0));
    const int from = sites.GetSiteSlot(site, page.CurrentPage);
    const int to = CompactSlot(place, page.ThumbCount);
    if (from > 0 && from != to) moves.append({from - 1, to - 1});
    if (site >= 0) sites.SetSiteSlot(site, page.CurrentPage, to);
    ++place;
  }
  files_.Move(page.CurrentPage, moves);
  RebuildSlots();
  if (!moves.isEmpty()) Remember(before);
  poll_.ReloadPage();
  if (!page.Online) poll_.ShowStoredPage();
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

QString PageSites::NameAt(int slot) const {
  if (OnWxPage()) return grid_.HasSlot(slot) ? grid_.Cells().at(slot).lblCall : QString();
  return grid_.HasSlot(slot) ? grid_.Cells().at(slot).lblDisk : QString();
}

void PageSites::RemoveSite() {
  const int slot = program_.page.SelectedSlot;
  if (!grid_.HasSlot(slot)) return;
  const Places before = PlacesNow(PlacesChange::Kind::SiteRemoved, NameAt(slot));
  RemoveFrom(slot);
  RebuildSlots();
  Remember(before);
}

void PageSites::RemoveAllSites() {
  const Places before = PlacesNow(PlacesChange::Kind::AllRemoved, {});
  for (int slot = 0; slot < program_.page.ThumbCount; ++slot) RemoveFrom(slot);
  RebuildSlots();
  Remember(before);
}

PageSites::Places PageSites::PlacesNow(PlacesChange::Kind kind, const QString& call) const {
  Places places{{kind, call}, program_.page.CurrentPage, {}};
  const SiteTable& sites = program_.sites;
  if (OnWxPage()) {
    const auto layout = static_cast<std::size_t>(program_.config.ThumbLayout);
    for (const SiteRec& site : sites.WxSites) {
      if (const int slot = static_cast<int>(Val(site.PageSlots[layout])); slot > 0)
        places.slots.append({site.Url, slot});
    }
    return places;
  }
  for (int site = 0; site < sites.Sites.size(); ++site) {
    const int slot = sites.GetSiteSlot(site, places.page);
    if (slot > 0) places.slots.append({sites.Sites.at(site).Call, slot});
  }
  return places;
}

void PageSites::Remember(const Places& before) {
  const bool changed = before.page != program_.page.CurrentPage || PlacesNow({}, {}).slots != before.slots;
  if (!changed) return;
  undo_ = before;
  Q_EMIT PlacesTouched();
  Q_EMIT UndoableChanged();
}

std::optional<PlacesChange> PageSites::Undoable() const {
  return undo_ ? std::optional(undo_->change) : std::nullopt;
}

void PageSites::ForgetUndo() {
  if (!std::exchange(undo_, std::nullopt)) return;
  Q_EMIT UndoableChanged();
}

void PageSites::Undo() {
  if (!undo_) return;
  const Places places = *std::exchange(undo_, std::nullopt);
  if (places.page < PageState::WxPage) {
    UndoDsstv(places);
  } else {
    UndoWx(places);
  }
  Q_EMIT UndoableChanged();
  if (places.page != program_.page.CurrentPage) return;
  if (places.change.kind == PlacesChange::Kind::Compacted) {
    grid_.ClearThumbs();
    program_.page.EraseThumbFields();
  }
  poll_.PlacesChanged();
}

void PageSites::UndoDsstv(const Places& places) {
  SiteTable& sites = program_.sites;
  QList<QPair<int, int>> moves;
  QList<QPair<int, int>> back;  // site and slot, for the sites that are still in the table
  for (const auto& [call, slot] : places.slots) {
    const int site = sites.FindCall(call);
    if (site < 0) continue;
    const int now = sites.GetSiteSlot(site, places.page);
    if (now > 0 && now != slot) moves.append({now - 1, slot - 1});
    back.append({site, slot});
  }
  for (int site = 0; site < sites.Sites.size(); ++site) sites.SetSiteSlot(site, places.page, 0);
  for (const auto& [site, slot] : std::as_const(back)) sites.SetSiteSlot(site, places.page, slot);
  files_.Move(places.page, moves);
  RebuildSlots();
}

void PageSites::UndoWx(const Places& places) {
  for (SiteRec& site : program_.sites.WxSites) {
    const auto same = [&site](const QPair<QString, int>& place) { return place.first == site.Url; };
    const auto found = std::find_if(places.slots.cbegin(), places.slots.cend(), same);
    if (found != places.slots.cend()) WxSlot(site) = QString::number(found->second);
  }
}

void PageSites::RebuildSlots() {
  program_.sites.StorePageSlots(program_.config.ThumbLayout);
  program_.sites.BuildPageSlots(program_.config.ThumbLayout);
}
