// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/thumb_grid.h"

#include <QFileInfo>

#include "core/page_files.h"
#include "page/still_pictures.h"
#include "page/thumb_layout.h"
#include "platform/picture/file_type.h"
#include "station/callsign.h"
#include "station/date_text.h"
#include "station/picture_date.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStaleDays = 30;  // a site is stale above this
constexpr auto kBlink = std::chrono::milliseconds(150);
constexpr int kBlinks = 20;
constexpr auto kQuiet = std::chrono::milliseconds(150);  // without a new picture before any is sharpened

// Colour of a mode tag; an empty tag has one too, though nothing shows it.
QColor ModeColour(const QString& tag) {
  if (tag.contains("EP"_L1)) return {192, 192, 0};
  if (tag.contains("QK"_L1)) return {0, 192, 192};
  return {255, 120, 120};
}

qint64 WholeDays(const QDateTime& from, const QDateTime& to) {
  return from.secsTo(to) / (24 * 60 * 60);
}

}  // namespace

ThumbGrid::ThumbGrid(Program& program, PictureTool& tool, Background& background, const Clock& clock, QObject* parent)
    : QObject(parent), program_(program), tool_(tool), background_(background), clock_(clock) {
  sharpenTimer_.setSingleShot(true);
  sharpenTimer_.setInterval(kQuiet);
  connect(&sharpenTimer_, &QTimer::timeout, this, &ThumbGrid::SharpenNext);
  Timer2_.setInterval(kBlink);
  connect(&Timer2_, &QTimer::timeout, this, &ThumbGrid::Timer2Tick);
}

void ThumbGrid::MakeGrid(int thumbLayout) {
  const int count = LayoutOf(thumbLayout).count;
  program_.page.ThumbCount = count;
  cells_.resize(count);
  shown_.resize(count);
  blurred_.resize(count);
  // Generations outlive their cells: an answer for a cell that was taken away and made again is an old answer.
  while (generations_.size() < count) generations_.append(0);
  ClearThumbs();
  Q_EMIT GridMade();
}

void ThumbGrid::ClearThumbs() {
  for (int slot = 0; slot < cells_.size(); ++slot) ClearCell(slot);
}

void ThumbGrid::ClearCell(int slot) {
  if (!HasSlot(slot)) return;
  Retire(slot);
  At(slot) = Cell();
  At(slot).img = cell_part::kEmptyImg;
  Changed(slot);
}

void ThumbGrid::SetPictureBox(QSize pixels) {
  const QSize box = pixels.expandedTo(QSize(120, 90));
  if (box == box_) return;
  box_ = box;
  for (int slot = 0; slot < cells_.size(); ++slot) {
    if (!cells_.at(slot).frames.isEmpty() && !cells_.at(slot).animated && !shown_.at(slot).path.isEmpty()) {
      blurred_[slot] = true;
    }
  }
  sharpenTimer_.start();
}

void ThumbGrid::Retire(int slot) {
  ++generations_[slot];
  shown_[slot] = Shown();
  blurred_[slot] = false;
}

void ThumbGrid::SharpenNext() {
  const qsizetype next = blurred_.indexOf(true);
  if (next < 0 || !program_.page.OnDsstvPage()) return;
  const int slot = static_cast<int>(next);
  blurred_[slot] = false;
  const int generation = generations_[slot];
  const int page = program_.page.CurrentPage;
  tool_.View(PicturePath(program_.AppDataDir, page, slot), box_, this, [=, this](const PictureAnswer& answer) {
    if (Current(slot, generation, page) && answer.ok && answer.frames.size() == 1) {
      At(slot).frames = answer.frames;
      Changed(slot);
    }
    SharpenNext();
  });
}

bool ThumbGrid::Current(int slot, int generation, int page) const {
  return HasSlot(slot) && generations_[slot] == generation && program_.page.CurrentPage == page;
}

void ThumbGrid::ShowThumb(const QString& path, int slot, int site, const std::function<void()>& shown) {
  if (!HasSlot(slot)) return;
  const QFileInfo file(path);
  const Shown wanted{path, file.lastModified().toMSecsSinceEpoch(), file.size()};
  const Shown& have = shown_[slot];
  if (!shown && have.path == path && have.changed == wanted.changed && have.size == wanted.size) {
    // The very file stands in the cell or is on its way: reading it again would only restart its animation.
    return;
  }
  Retire(slot);
  shown_[slot] = wanted;
  const int generation = generations_[slot];
  const int page = program_.page.CurrentPage;
  const auto loaded = [=, this](const PictureAnswer& answer) {
    if (Current(slot, generation, page)) Loaded(path, slot, site, answer, shown);
  };
  tool_.Load(path, box_, this, loaded);
}

void ThumbGrid::Loaded(const QString& path, int slot, int site, const PictureAnswer& answer,
                       const std::function<void()>& shown) {
  if (IsVideoType(answer.type)) {
    ShowVideo(path, slot, shown);
    return;
  }
  if (answer.ok) {
    Place(slot, answer);
    if (shown) shown();
    return;
  }
  // Only depths of 1 to 24 are worth a repair; what is deeper, or no picture at all, goes to the error box.
  if (answer.depth >= 1 && answer.depth <= 24) {
    Repair(path, slot, site, shown);
    return;
  }
  ShowNotFound(slot, site, true);
  if (shown) shown();
}

void ThumbGrid::ShowVideo(const QString& path, int slot, const std::function<void()>& shown) {
  PictureAnswer film;
  film.ok = true;
  film.frames = {PictureFrame{FilmStrip()}};
  film.size = FilmStrip().size();
  Place(slot, film);
  blurred_[slot] = false;
  // The still takes the video's place on the disk too: a cell's file is always a picture.
  background_.Run<bool>(
      this, [path]() { return WriteStill(FilmStrip(), path); },
      [shown](bool) {
        if (shown) shown();
      });
}

void ThumbGrid::Repair(const QString& path, int slot, int site, const std::function<void()>& shown) {
  const int generation = generations_[slot];
  const int page = program_.page.CurrentPage;
  const auto failed = [=, this]() {
    ShowNotFound(slot, site, true);
    if (shown) shown();
  };
  const auto again = [=, this](const PictureAnswer& answer) {
    if (!Current(slot, generation, page)) return;
    if (!answer.ok) return failed();
    Place(slot, answer);
    if (shown) shown();
  };
  const auto converted = [=, this](const PictureAnswer& answer) {
    if (!Current(slot, generation, page)) return;
    if (!answer.ok) return failed();
    tool_.Load(path, box_, this, again);
  };
  tool_.Convert(path, path, this, converted);
}

void ThumbGrid::Place(int slot, const PictureAnswer& answer) {
  Cell& cell = At(slot);
  cell.errorBox = false;
  cell.frames = answer.frames;
  cell.animated = answer.frames.size() > 1;
  cell.img = ThumbFrame(answer.size);
  // The frame follows the thumb; only its pixels are replaced later.
  blurred_[slot] = !cell.animated && program_.page.OnDsstvPage() && answer.size.width() < box_.width() &&
                   answer.size.height() < box_.height();
  if (blurred_.at(slot)) sharpenTimer_.start();
  const QString& connecting = program_.language[TextLine::kConnectingText];
  if (!connecting.isEmpty() && cell.lblFrom.contains(connecting)) cell.lblFrom.clear();
  Changed(slot);
}

void ThumbGrid::ErrorBox(int slot, const QString& caption, const QString& first, const QString& second) {
  Retire(slot);
  Cell& cell = At(slot);
  cell.frames.clear();
  cell.animated = false;
  cell.picProg = false;
  cell.img = cell_part::kErrorImg;
  cell.errorBox = true;
  cell.lblError = caption;
  cell.lblInfo = first;
  cell.lblInfo2 = second;
}

void ThumbGrid::ShowNotFound(int slot, int site, bool corrupt) {
  ++program_.page.SitesDone;
  if (!HasSlot(slot)) return;
  const LanguageTexts& texts = program_.language;
  program_.page.Field(slot, Caller) = u"Not found"_s;
  const bool dsstv = program_.page.OnDsstvPage();
  ErrorBox(slot, texts[TextLine::kErrorCaption],
           dsstv ? texts[TextLine::kErrorWord] + u" 1"_s : texts[TextLine::kErrorWord],
           corrupt ? texts[TextLine::kCorruptText] : texts[TextLine::kNoPictureText]);
  if (dsstv) AgeOfNotFound(slot, site);
  Changed(slot);
  Q_EMIT NotFoundShown(slot);
}

void ThumbGrid::AgeOfNotFound(int slot, int site) {
  if (site < 0 || site >= program_.sites.Sites.size()) return;
  const LanguageTexts& texts = program_.language;
  Cell& cell = At(slot);
  QString& lastSeen = program_.sites.Sites[site].LastSeen;
  if (lastSeen.isEmpty()) lastSeen = DateText(clock_.Now());
  program_.page.Field(slot, SentTime) = NormaliseDate(lastSeen);
  const QDateTime sent = ReadDate(program_.page.Field(slot, SentTime));
  if (!sent.isValid()) return;
  const qint64 days = WholeDays(sent, UtcNow());
  const QString call = ShownCall(program_.page.Field(slot, SlotCall), program_.ZeroGlyph);
  if (days > 0) {
    cell.lblCall = call + texts[TextLine::kAgeWord] + QString::number(days) +
                   (days > 1 ? texts[TextLine::kDaysWord] : texts[TextLine::kDayWord]);
    cell.Shape1 = CellColour::Window;
  }
  if (days > kStaleDays) cell.Shape1 = CellColour::Stale;
}

void ThumbGrid::ShowBlockedCall(int slot, int reason) {
  if (!HasSlot(slot) || program_.page.Field(slot, Caller) == "Not found"_L1) return;
  BlankCall(slot, reason);
  Q_EMIT BlockedShown(slot);
}

void ThumbGrid::BlankCall(int slot, int reason) {
  if (!HasSlot(slot)) return;
  const LanguageTexts& texts = program_.language;
  const QString call = ShownCall(program_.page.Field(slot, Caller), program_.ZeroGlyph);
  ErrorBox(slot, texts[TextLine::kBlockedCaption],
           reason == 1 ? texts[TextLine::kBlockedText] : texts[TextLine::kIllegalText], call);
  Changed(slot);
}

void ThumbGrid::ShowCamOnly(int slot) {
  if (!HasSlot(slot)) return;
  Retire(slot);
  Cell& cell = At(slot);
  cell.lblConnect = false;
  cell.fromVisible = true;
  cell.lblFrom = u"Cam only"_s;
  cell.errorBox = false;
  cell.img = cell_part::kCamOnlyImg;
  cell.frames = {PictureFrame{CamOnlyPicture()}};
  cell.animated = false;
  Changed(slot);
}

void ThumbGrid::ColourByAge(int slot, int site) {
  Q_UNUSED(site)
  if (!HasSlot(slot)) return;
  const QDateTime sent = ReadDate(program_.page.Field(slot, SentTime));
  if (!sent.isValid()) return;
  const LanguageTexts& texts = program_.language;
  Cell& cell = At(slot);
  const QString call = ShownCall(cell.siteCall, program_.ZeroGlyph);
  const qint64 days = WholeDays(sent, UtcNow());
  cell.lblCall =
      days > 1 ? call + texts[TextLine::kAgeWord] + QString::number(days) + texts[TextLine::kDaysWord] : call;
  if (days > kStaleDays) {
    cell.Shape1 = CellColour::Stale;
  } else {
    cell.Shape1 = cell.onAirTip == "On air"_L1 ? CellColour::OnAir : CellColour::Window;
  }
  Changed(slot);
}

void ThumbGrid::Flash(int slot) {
  if (!HasSlot(slot)) return;
  if (HasSlot(flashSlot_) && flashSlot_ != slot) {
    At(flashSlot_).flash = false;
    Changed(flashSlot_);
  }
  flashSlot_ = slot;
  flashTicks_ = 0;
  Timer2_.start();
}

void ThumbGrid::Timer2Tick() {
  const bool over = ++flashTicks_ >= kBlinks || !HasSlot(flashSlot_);
  if (over) Timer2_.stop();
  if (!HasSlot(flashSlot_)) return;
  At(flashSlot_).flash = !over && !At(flashSlot_).flash;
  Changed(flashSlot_);
}

void ThumbGrid::SetOnAir(int slot, bool onAir) {
  if (!HasSlot(slot)) return;
  Cell& cell = At(slot);
  cell.onAirTip = onAir ? u"On air"_s : u"Off air"_s;
  if (cell.Shape1 != CellColour::Stale) cell.Shape1 = onAir ? CellColour::OnAir : CellColour::Window;
  Changed(slot);
}

void ThumbGrid::SetConnecting(int slot, bool visible) {
  if (!HasSlot(slot)) return;
  At(slot).lblConnect = visible;
  Changed(slot);
}

void ThumbGrid::SetProgress(int slot, int percent) {
  if (!HasSlot(slot)) return;
  At(slot).picProg = true;
  At(slot).progress = percent;
  Changed(slot);
}

void ThumbGrid::HideProgress(int slot) {
  if (!HasSlot(slot)) return;
  At(slot).picProg = false;
  Changed(slot);
}

void ThumbGrid::SetFromVisible(int slot) {
  if (!HasSlot(slot)) return;
  At(slot).fromVisible = true;
  Changed(slot);
}

void ThumbGrid::SetSite(int slot, const QString& call) {
  if (!HasSlot(slot)) return;
  At(slot).siteCall = call;
  if (At(slot).lblCall.isEmpty()) At(slot).lblCall = ShownCall(call, program_.ZeroGlyph);
  Changed(slot);
}

void ThumbGrid::SetWxSite(int slot, const QString& title) {
  if (!HasSlot(slot)) return;
  At(slot).lblCall = title;
  At(slot).lblFrom = program_.language[TextLine::kConnectingText];
  Changed(slot);
}

void ThumbGrid::ClearFrom(int slot) {
  if (!HasSlot(slot)) return;
  At(slot).lblFrom.clear();
  Changed(slot);
}

void ThumbGrid::ForgetOnAir(int slot) {
  if (!HasSlot(slot)) return;
  At(slot).lblCall = ShownCall(At(slot).siteCall, program_.ZeroGlyph);
  At(slot).onAirTip.clear();
  Changed(slot);
}

void ThumbGrid::ShowCaption(int slot, const QString& modeTag, const std::optional<QString>& fromCall) {
  if (!HasSlot(slot)) return;
  Cell& cell = At(slot);
  cell.lblMode = modeTag;
  cell.modeColour = ModeColour(modeTag);
  if (fromCall) cell.lblFrom = program_.language[TextLine::kFromWord] + *fromCall;
  Changed(slot);
}

void ThumbGrid::SetReloadMark(int slot) {
  if (HasSlot(slot)) At(slot).reloadMark = true;
}

void ThumbGrid::ShowCamLight(int slot, CamLight light) {
  if (!HasSlot(slot)) return;
  At(slot).imgCam = light;
  Changed(slot);
}

void ThumbGrid::HidePictures() {
  for (int slot = 0; slot < cells_.size(); ++slot) {
    Retire(slot);
    At(slot).frames.clear();
    At(slot).errorBox = false;
    Changed(slot);
  }
}

QDateTime ThumbGrid::UtcNow() const {
  // The clock's fields moved by whole hours, as the dates of pictures are fields without a zone.
  const QDateTime now = clock_.Now();
  return QDateTime(now.date(), now.time(), Qt::UTC).addSecs(program_.UtcOffsetHours * 3600LL);
}
