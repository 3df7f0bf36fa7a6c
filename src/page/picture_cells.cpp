// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/picture_cells.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "page/still_pictures.h"
#include "page/thumb_layout.h"
#include "platform/picture/file_type.h"
#include "platform/whole_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kBlink = std::chrono::milliseconds(150);
constexpr int kBlinks = 20;
constexpr auto kQuiet = std::chrono::milliseconds(150);  // pause after the last new picture before thumbs are sharpened
constexpr int kDeepest = 24;                             // bits a pixel; a deeper file is not repaired

// Whether a cell would show this picture, at once or after a repair.
bool IsShowable(const PictureAnswer& answer) {
  return answer.type == "gif"_L1 || answer.type == "bmp"_L1 || (answer.depth >= 1 && answer.depth <= kDeepest);
}

// Why a picture could not be shown.
CellResult FailureOf(const PictureAnswer& answer) {
  return answer.noSandbox ? CellResult::NoSandbox : CellResult::Unreadable;
}

}  // namespace

PictureCells::PictureCells(PictureTool& tool, QObject* parent) : QObject(parent), tool_(tool) {
  sharpenTimer_.setSingleShot(true);
  sharpenTimer_.setInterval(kQuiet);
  connect(&sharpenTimer_, &QTimer::timeout, this, &PictureCells::SharpenNext);
  Timer2_.setInterval(kBlink);
  connect(&Timer2_, &QTimer::timeout, this, &PictureCells::Timer2Tick);
}

void PictureCells::MakeCells(int count) {
  for (int slot = count; slot < cells_.size(); ++slot) Empty(slot);
  cells_.resize(count);
  standing_.resize(count);
  while (wanted_.size() < static_cast<std::size_t>(count)) wanted_.emplace_back();
}

void PictureCells::EndEdit(int slot) {
  changed_.insert(slot);
  if (--edits_ > 0) return;
  QList<int> changed(changed_.cbegin(), changed_.cend());
  changed_.clear();
  std::sort(changed.begin(), changed.end());
  for (const int each : std::as_const(changed)) Q_EMIT CellChanged(each);
}

void PictureCells::Empty(int slot) {
  wanted_[static_cast<std::size_t>(slot)].Withdraw();
  standing_[slot] = Standing();
  enlarged_.remove(slot);
}

void PictureCells::Clear(int slot) {
  if (!HasSlot(slot)) return;
  const Edit cell(*this, slot);
  Empty(slot);
  cells_[slot] = Cell();
  cell->img = cell_part::kEmptyImg;
}

void PictureCells::WithdrawAll() {
  for (int slot = 0; slot < cells_.size(); ++slot) Empty(slot);
}

void PictureCells::HidePicture(int slot) {
  if (!HasSlot(slot)) return;
  const Edit cell(*this, slot);
  Empty(slot);
  cell->frames.clear();
  cell->animated = false;
  cell->errorBox = false;
}

void PictureCells::SetPictureBox(QSize pixels) {
  const QSize box = pixels.expandedTo(QSize(120, 90));
  if (box == box_) return;
  box_ = box;
  for (int slot = 0; slot < cells_.size(); ++slot) {
    if (!cells_.at(slot).frames.isEmpty() && !cells_.at(slot).animated) enlarged_.insert(slot);
  }
  sharpenTimer_.start();
}

void PictureCells::SharpenNext() {
  while (!enlarged_.isEmpty()) {
    const int slot = *std::min_element(enlarged_.cbegin(), enlarged_.cend());
    enlarged_.remove(slot);
    if (!HasSlot(slot) || standing_.at(slot).sharpPath.isEmpty()) continue;
    const Wanted::Token token = wanted_[static_cast<std::size_t>(slot)].Present();
    PictureOptions options;
    options.priority = PicturePriority::Later;
    options.wanted = [token]() { return token.StillWanted(); };
    const auto viewed = [this, slot, token](const PictureAnswer& answer) {
      // Only the pixels are replaced: the frame follows the thumb, and the thumb on the disk stays.
      if (token.StillWanted() && answer.ok && answer.frames.size() == 1) {
        Edit(*this, slot)->frames = answer.frames;
        KeepWithinBudget();
      }
      SharpenNext();
    };
    tool_.View(standing_.at(slot).sharpPath, box_, this, viewed, options);
    return;
  }
}

PictureCells::Standing PictureCells::StandingOf(const CellPicture& picture) {
  const QFileInfo file(picture.path);
  return {picture.path, picture.sharpPath, file.lastModified().toMSecsSinceEpoch(), file.size()};
}

bool PictureCells::Show(int slot, const CellPicture& picture, const Done& done) {
  if (!HasSlot(slot)) return false;
  // Reading the same file again would only restart its animation.
  const Standing standing = StandingOf(picture);
  if (standing_.at(slot) == standing && !picture.anew) return false;
  Empty(slot);
  standing_[slot] = standing;
  const Reading reading{slot, picture, done, wanted_[static_cast<std::size_t>(slot)].Ask()};
  Load(reading, [this, reading](const PictureAnswer& answer) { Loaded(reading, answer); });
  return true;
}

// A file that is kept is viewed, which takes every type at once: the page's way would be to load it, to repair it, and
// to load it again.
void PictureCells::Load(const Reading& reading, const PictureTool::Done& loaded) {
  const QString& path = reading.picture.path;
  if (reading.picture.keepFile) {
    tool_.View(path, box_, this, loaded, OptionsOf(reading));
  } else {
    tool_.Load(path, box_, this, loaded, OptionsOf(reading));
  }
}

PictureOptions PictureCells::OptionsOf(const Reading& reading) {
  PictureOptions options;
  options.host = reading.picture.host;
  options.wanted = [token = reading.token]() { return token.StillWanted(); };
  return options;
}

bool PictureCells::GoesOn(const Reading& reading) const {
  if (reading.token.StillWanted()) return true;
  reading.done(CellResult::Overtaken);
  return false;
}

void PictureCells::Loaded(const Reading& reading, const PictureAnswer& answer) {
  if (!GoesOn(reading)) return;
  if (IsVideoType(answer.type)) {
    ShowVideo(reading);
  } else if (answer.ok && (!reading.picture.keepFile || IsShowable(answer))) {
    const Edit cell(*this, reading.slot);
    Place(reading.slot, answer);
    reading.done(CellResult::Shown);
  } else if (!reading.picture.keepFile && answer.depth >= 1 && answer.depth <= kDeepest) {
    Repair(reading);
  } else {
    // A deeper file, or one that is no picture, is not repaired.
    reading.done(FailureOf(answer));
  }
}

void PictureCells::ShowVideo(const Reading& reading) {
  PictureAnswer film;
  film.ok = true;
  film.frames = {PictureFrame{imgMp4()}};
  film.size = imgMp4().size();
  Place(reading.slot, film);
  enlarged_.remove(reading.slot);
  // Shown over the cell alone: the file stays a film, which the weather page and the history keep under this name.
  reading.done(CellResult::Shown);
}

void PictureCells::Repair(const Reading& reading) {
  // Convert into a hidden file: by the time the repair ends another picture may lie at this path.
  const QString part = PartPath(reading.picture.path);
  const auto repaired = [this, reading, part](const PictureAnswer& converted) {
    if (!converted.ok || !reading.token.StillWanted()) QFile::remove(part);
    if (!GoesOn(reading)) return;
    if (!converted.ok || !PutInPlace(part, reading.picture.path)) return reading.done(FailureOf(converted));
    standing_[reading.slot] = StandingOf(reading.picture);
    const auto loaded = [this, reading](const PictureAnswer& answer) {
      if (!GoesOn(reading)) return;
      const Edit cell(*this, reading.slot);
      if (answer.ok) Place(reading.slot, answer);
      reading.done(answer.ok ? CellResult::Shown : FailureOf(answer));
    };
    tool_.Load(reading.picture.path, box_, this, loaded, OptionsOf(reading));
  };
  tool_.Convert(reading.picture.path, part, this, repaired, OptionsOf(reading));
}

void PictureCells::Place(int slot, const PictureAnswer& answer) {
  const Edit cell(*this, slot);
  cell->errorBox = false;
  cell->frames = answer.frames;
  cell->animated = answer.frames.size() > 1;
  cell->img = ThumbFrame(answer.size);
  const bool smaller = answer.size.width() < box_.width() && answer.size.height() < box_.height();
  const Standing& standing = standing_.at(slot);
  const bool hasSharper = !standing.sharpPath.isEmpty() && standing.sharpPath != standing.path;
  if (!cell->animated && smaller && hasSharper) {
    enlarged_.insert(slot);
    sharpenTimer_.start();
  }
  KeepWithinBudget();
}

void PictureCells::KeepWithinBudget() {
  QList<qint64> bytes;
  qint64 all = 0;
  for (const Cell& cell : std::as_const(cells_)) {
    bytes.append(FrameBytes(cell.frames));
    all += bytes.last();
  }
  while (all > budget_) {
    // Halve the largest animation; stills have no frame to give up.
    int largest = -1;
    for (int slot = 0; slot < cells_.size(); ++slot) {
      const bool larger = largest < 0 || bytes.at(slot) > bytes.at(largest);
      if (cells_.at(slot).frames.size() > 1 && larger) largest = slot;
    }
    if (largest < 0) return;
    const Edit cell(*this, largest);
    cell->frames = HalveFrames(cell->frames);
    cell->animated = cell->frames.size() > 1;
    all -= bytes.at(largest);
    bytes[largest] = FrameBytes(cell->frames);
    all += bytes.at(largest);
  }
}

void PictureCells::ShowStill(int slot, const QImage& still, const QRectF& frame) {
  if (!HasSlot(slot)) return;
  const Edit cell(*this, slot);
  Empty(slot);
  cell->errorBox = false;
  cell->img = frame;
  cell->frames = {PictureFrame{still}};
  cell->animated = false;
}

void PictureCells::ShowFilm(int slot) {
  ShowStill(slot, imgMp4(), ThumbFrame(imgMp4().size()));
}

void PictureCells::ShowBox(int slot, const BoxLines& box) {
  if (!HasSlot(slot)) return;
  const Edit cell(*this, slot);
  Empty(slot);
  cell->frames.clear();
  cell->animated = false;
  cell->picProg = false;
  cell->img = cell_part::kErrorImg;
  cell->errorBox = true;
  cell->box = box;
}

QList<int> PictureCells::Marked() const {
  QList<int> found;
  for (int slot = 0; slot < cells_.size(); ++slot) {
    if (cells_.at(slot).compareMark != 0) found.append(slot);
  }
  std::sort(found.begin(), found.end(),
            [this](int one, int other) { return cells_.at(one).compareMark < cells_.at(other).compareMark; });
  return found;
}

void PictureCells::ToggleMark(int slot) {
  if (!HasSlot(slot)) return;
  const QList<int> marked = Marked();
  const Edit cell(*this, slot);
  if (cell->compareMark != 0) {
    cell->compareMark = 0;
    return;
  }
  cell->compareMark = marked.isEmpty() ? 1 : cells_.at(marked.last()).compareMark + 1;
  if (marked.size() > 1) Edit(*this, marked.first())->compareMark = 0;
}

void PictureCells::Flash(int slot) {
  if (!HasSlot(slot)) return;
  if (HasSlot(flashSlot_) && flashSlot_ != slot) Edit(*this, flashSlot_)->flash = false;
  flashSlot_ = slot;
  flashTicks_ = 0;
  Timer2_.start();
}

void PictureCells::Timer2Tick() {
  const bool over = ++flashTicks_ >= kBlinks || !HasSlot(flashSlot_);
  if (over) Timer2_.stop();
  if (!HasSlot(flashSlot_)) return;
  const Edit cell(*this, flashSlot_);
  cell->flash = !over && !cell->flash;
}
