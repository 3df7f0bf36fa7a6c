// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/thumb_grid.h"

#include <QUrl>

#include "core/page_files.h"
#include "page/cell_signs.h"
#include "page/still_pictures.h"
#include "page/thumb_layout.h"
#include "station/callsign.h"
#include "station/date_text.h"
#include "station/picture_date.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStaleDays = 30;  // a site is stale above this

qint64 WholeDays(const QDateTime& from, const QDateTime& to) {
  return from.secsTo(to) / (24 * 60 * 60);
}

}  // namespace

ThumbGrid::ThumbGrid(Program& program, PictureTool& tool, const Clock& clock, QObject* parent)
    : QObject(parent), program_(program), clock_(clock), cells_(tool) {
  connect(&cells_, &PictureCells::CellChanged, this, &ThumbGrid::CellChanged);
}

void ThumbGrid::MakeGrid(int thumbLayout) {
  const int count = LayoutOf(thumbLayout).count;
  program_.page.ThumbCount = count;
  cells_.MakeCells(count);
  ClearThumbs();
  Q_EMIT GridMade();
}

void ThumbGrid::ClearThumbs() {
  for (int slot = 0; slot < Cells().size(); ++slot) ClearCell(slot);
}

void ThumbGrid::ShowThumb(const QString& path, int slot, int site, bool anew, const Done& done) {
  const QString sharp =
      program_.page.OnDsstvPage() ? PicturePath(program_.AppDataDir, program_.page.CurrentPage, slot) : QString();
  const QList<SiteRec>& sites = program_.sites.Sites;
  const bool known = site >= 0 && site < sites.size();
  const QString host = known ? QUrl(PlainUrl(sites.at(site).Url)).host() : QString();
  cells_.Show(slot, {path, sharp, host, anew}, [this, slot, site, done](CellResult result) {
    if (result == CellResult::Overtaken) return done(result);
    const Edit cell(cells_, slot);
    if (result == CellResult::NoSandbox) {
      ShowNoSandbox(slot, site);
    } else if (result != CellResult::Shown) {
      ShowNotFound(slot, site, true);
    }
    const QString& connecting = program_.language[TextLine::kConnectingText];
    if (!connecting.isEmpty() && cell->lblFrom.contains(connecting)) cell->lblFrom.clear();
    done(result);
  });
}

void ThumbGrid::ShowNoSandbox(int slot, int site) {
  if (!HasSlot(slot)) return;
  const Edit cell(cells_, slot);
  ShowNotFound(slot, site, true);
  cell->box.noSandbox = true;
}

void ThumbGrid::ShowNotFound(int slot, int site, bool corrupt) {
  if (!HasSlot(slot)) return;
  const bool dsstv = program_.page.OnDsstvPage();
  program_.page.Field(slot, Caller) = u"Not found"_s;
  const Edit cell(cells_, slot);
  cells_.ShowBox(slot, NotFoundBox({TextLine::kErrorWord, dsstv ? u" 1"_s : QString()}, corrupt));
  if (dsstv) AgeOfNotFound(slot, site);
}

void ThumbGrid::EndWaiting() {
  cells_.WithdrawAll();
  for (int slot = 0; slot < Cells().size(); ++slot) {
    if (!Cells().at(slot).lblConnect && !Cells().at(slot).picProg) continue;
    const Edit cell(cells_, slot);
    cell->lblConnect = cell->picProg = false;
    cell->fromVisible = true;
  }
}

QString ThumbGrid::Aged(const QString& call, qint64 days, qint64 from) const {
  if (days < from) return call;
  const LanguageTexts& texts = program_.language;
  return call + texts[TextLine::kAgeWord] + QString::number(days) +
         (days > 1 ? texts[TextLine::kDaysWord] : texts[TextLine::kDayWord]);
}

void ThumbGrid::AgeOfNotFound(int slot, int site) {
  if (site < 0 || site >= program_.sites.Sites.size()) return;
  QString& lastSeen = program_.sites.Sites[site].LastSeen;
  if (lastSeen.isEmpty()) lastSeen = DateText(clock_.Now());
  program_.page.Field(slot, SentTime) = NormaliseDate(lastSeen);
  const QDateTime sent = ReadDate(program_.page.Field(slot, SentTime));
  if (!sent.isValid()) return;
  const Edit cell(cells_, slot);
  const qint64 days = WholeDays(sent, UtcNow());
  if (days > 0) {
    cell->lblCall = Aged(ShownCall(program_.page.Field(slot, SlotCall), program_.ZeroGlyph), days, 1);
    cell->Shape1 = CellColour::Window;
  }
  if (days > kStaleDays) cell->Shape1 = CellColour::Stale;
}

bool ThumbGrid::ShowBlockedCall(int slot, int reason) {
  if (!HasSlot(slot) || program_.page.Field(slot, Caller) == "Not found"_L1) return false;
  const QString call = ShownCall(program_.page.Field(slot, Caller), program_.ZeroGlyph);
  cells_.ShowBox(slot, BlockedBox(reason, call));
  return true;
}

void ThumbGrid::ShowCamOnly(int slot) {
  if (!HasSlot(slot)) return;
  const Edit cell(cells_, slot);
  cell->lblConnect = false;
  cell->fromVisible = true;
  cell->fromSender = true;
  cell->lblFrom = u"Cam only"_s;
  cells_.ShowStill(slot, imgCamOnly(), cell_part::kCamOnlyImg);
}

void ThumbGrid::ColourByAge(int slot) {
  if (!HasSlot(slot)) return;
  const QDateTime sent = ReadDate(program_.page.Field(slot, SentTime));
  if (!sent.isValid()) return;
  const Edit cell(cells_, slot);
  const qint64 days = WholeDays(sent, UtcNow());
  cell->lblCall = Aged(ShownCall(cell->lblDisk, program_.ZeroGlyph), days, 2);
  if (days > kStaleDays) {
    cell->Shape1 = CellColour::Stale;
  } else {
    cell->Shape1 = cell->onAirTip == "On air"_L1 ? CellColour::OnAir : CellColour::Window;
  }
}

void ThumbGrid::TakeLanguage() {
  if (!program_.page.OnDsstvPage()) return;
  for (int slot = 0; slot < Cells().size(); ++slot) {
    if (Cells().at(slot).lblDisk.isEmpty()) continue;
    if (program_.page.Field(slot, Caller) == "Not found"_L1) {
      AgeOfNotFound(slot, static_cast<int>(Val(program_.page.Field(slot, SlotSite))));
    } else {
      ColourByAge(slot);
    }
  }
}

void ThumbGrid::SetOnAir(int slot, bool onAir) {
  if (!HasSlot(slot)) return;
  const Edit cell(cells_, slot);
  cell->onAirTip = onAir ? u"On air"_s : u"Off air"_s;
  if (cell->Shape1 != CellColour::Stale) cell->Shape1 = onAir ? CellColour::OnAir : CellColour::Window;
}

void ThumbGrid::SetConnecting(int slot, bool visible) {
  if (HasSlot(slot)) Edit(cells_, slot)->lblConnect = visible;
}

void ThumbGrid::SetProgress(int slot, int percent) {
  if (!HasSlot(slot)) return;
  const Edit cell(cells_, slot);
  cell->picProg = true;
  cell->progress = percent;
}

void ThumbGrid::HideProgress(int slot) {
  if (HasSlot(slot)) Edit(cells_, slot)->picProg = false;
}

void ThumbGrid::SetFromVisible(int slot) {
  if (HasSlot(slot)) Edit(cells_, slot)->fromVisible = true;
}

void ThumbGrid::SetSite(int slot, const QString& call) {
  if (!HasSlot(slot)) return;
  const Edit cell(cells_, slot);
  cell->lblDisk = call;
  if (cell->lblCall.isEmpty()) cell->lblCall = ShownCall(call, program_.ZeroGlyph);
}

void ThumbGrid::SetWxSite(int slot, const QString& title) {
  if (!HasSlot(slot)) return;
  const Edit cell(cells_, slot);
  cell->lblCall = title;
  cell->fromSender = true;
  cell->lblFrom = program_.language[TextLine::kConnectingText];
}

void ThumbGrid::ClearFrom(int slot) {
  if (HasSlot(slot)) Edit(cells_, slot)->lblFrom.clear();
}

void ThumbGrid::ForgetOnAir(int slot) {
  if (!HasSlot(slot)) return;
  const Edit cell(cells_, slot);
  cell->lblCall = ShownCall(cell->lblDisk, program_.ZeroGlyph);
  cell->onAirTip.clear();
}

void ThumbGrid::ShowCaption(int slot, const QString& modeTag, const std::optional<QString>& fromCall) {
  if (!HasSlot(slot)) return;
  const Edit cell(cells_, slot);
  cell->lblMode = modeTag;
  cell->modeColour = ModeColour(modeTag);
  if (!fromCall) return;
  cell->lblFrom = program_.language[TextLine::kFromWord] + *fromCall;
  cell->fromSender = !fromCall->isEmpty();
}

void ThumbGrid::SetReloadMark(int slot) {
  if (HasSlot(slot)) Edit(cells_, slot)->reloadMark = true;
}

void ThumbGrid::ShowCamLight(int slot, CamLight light) {
  if (HasSlot(slot)) Edit(cells_, slot)->imgCam = light;
}

void ThumbGrid::HidePictures() {
  for (int slot = 0; slot < Cells().size(); ++slot) cells_.HidePicture(slot);
}

QDateTime ThumbGrid::UtcNow() const {
  // Shift the local time's fields by whole hours: dates of pictures are fields without a time zone too.
  const QDateTime now = clock_.Now();
  return QDateTime(now.date(), now.time(), Qt::UTC).addSecs(program_.UtcOffsetHours * 3600LL);
}
