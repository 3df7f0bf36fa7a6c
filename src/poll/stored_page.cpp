// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/stored_page.h"

#include <QFile>
#include <algorithm>

#include "core/page_files.h"
#include "core/picture_key.h"
#include "page/cam_light.h"

using namespace Qt::StringLiterals;

namespace {

// Keeps List1 sorted, as users read it, and each slot in it once.
void AddToList1(QStringList& list, const QString& entry) {
  if (!list.contains(entry)) list.insert(std::lower_bound(list.begin(), list.end(), entry), entry);
}

}  // namespace

std::optional<SlotPlace> PlaceAt(const SiteTable& sites, int page, int slot) {
  const QString entry = sites.FindThumbPos(page, slot + 1);
  const int site = SiteOfThumbPos(entry);
  if (site < 0 || site >= sites.Sites.size()) return std::nullopt;
  return SlotPlace{site, entry.section(u'-', 3)};
}

StoredPage::StoredPage(Program& program, ThumbGrid& grid, PictureIntake& intake)
    : program_(program), grid_(grid), intake_(intake) {}

void StoredPage::ShowThumbs() {
  const PageState& page = program_.page;
  for (int slot = 0; slot < page.ThumbCount; ++slot) {
    const std::optional<SlotPlace> place = PlaceAt(program_.sites, page.CurrentPage, slot);
    if (!place) continue;
    const QString thumb = ThumbPath(program_.AppDataDir, page.CurrentPage, slot);
    if (!QFile::exists(PicturePath(program_.AppDataDir, page.CurrentPage, slot))) QFile::remove(thumb);
    if (QFile::exists(thumb)) intake_.ShowStored(page.CurrentPage, slot, place->site);
  }
}

FilledSlot StoredPage::FillSlot(int slot, int site, const QString& call) {
  PageState& page = program_.page;
  const ThumbGrid::Edit cell = grid_.EditCell(slot);
  FilledSlot filled;
  filled.url = PlainUrl(program_.sites.Sites.at(site).Url);
  grid_.SetSite(slot, call);
  page.Field(slot, SlotCall) = call;
  page.Field(slot, SlotSite) = QString::number(site);
  AddToList1(page.List1, call + u"    "_s + QString::number(slot + 1));
  if (QFile::exists(PicturePath(program_.AppDataDir, page.CurrentPage, slot))) {
    const StoredCaption caption = intake_.ReadCaptionFromFile(page.CurrentPage, slot, site);
    grid_.ColourByAge(slot);
    filled.errorPage = caption == StoredCaption::ErrorPage;
    // For what ShowThumbs could not show: the error box of a picture that failed, and a thumb that is missing.
    if (caption == StoredCaption::Read) intake_.ShowStored(page.CurrentPage, slot, site);
  }
  const SiteRec& record = program_.sites.Sites.at(site);
  if (!record.CamUrl.isEmpty() && program_.config.CamMode < 2)
    grid_.ShowCamLight(slot, LightOfSite(program_, record.Call));
  return filled;
}

void StoredPage::Show() {
  PageState& page = program_.page;
  if (!page.OnDsstvPage()) return ShowWx();
  page.List1.clear();
  ShowThumbs();
  for (int slot = 0; slot < page.ThumbCount; ++slot) {
    const std::optional<SlotPlace> place = PlaceAt(program_.sites, page.CurrentPage, slot);
    if (!place) continue;
    const QString url = FillSlot(slot, place->site, place->call).url;
    if (url.contains("cam only"_L1, Qt::CaseInsensitive)) grid_.ShowCamOnly(slot);
  }
}

void StoredPage::ShowWx() {
  const int layout = program_.config.ThumbLayout;
  if (layout < 1 || layout > kLayouts) return;
  for (const SiteRec& site : std::as_const(program_.sites.WxSites)) {
    const int slot = static_cast<int>(Val(site.PageSlots[static_cast<std::size_t>(layout)])) - 1;
    if (!grid_.HasSlot(slot)) continue;
    const ThumbGrid::Edit cell = grid_.EditCell(slot);
    grid_.SetWxSite(slot, site.Call);
    grid_.ClearFrom(slot);
    const QString picture = WxPath(program_.AppDataDir, slot);
    if (QFile::exists(picture)) {
      grid_.ShowThumb(picture, slot, PictureKey::kNoSite, false, [](CellResult) {});
    }
  }
}
