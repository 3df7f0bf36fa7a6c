// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/new_image_check.h"

#include <QDir>
#include <QFileInfo>
#include <limits>

#include "core/page_files.h"
#include "core/picture_key.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QLatin1StringView kImageName("image1");
}

bool NewImageCheck::HasMarker(const QString& url) {
  return url.endsWith(kImageName, Qt::CaseInsensitive);
}

NewImageCheck::NewImageCheck(Program& program, HeightTable& heights, ThumbGrid& grid, ucCkNew& check,
                             UserControl1& download, QObject* parent)
    : QObject(parent), program_(program), heights_(heights), grid_(grid), check_(check), download_(download) {
  connect(&check_, &ucCkNew::PictureReady, this, &NewImageCheck::PictureReady);
  connect(&check_, &ucCkNew::NoImage, this, &NewImageCheck::NoImage);
}

QString NewImageCheck::MarkerUrl(const QString& url, const QString& unique) {
  const QString marker = url.chopped(kImageName.size()) + u"checknew.jpg"_s;
  return unique.isEmpty() ? marker : marker + u"?d="_s + unique;
}

int NewImageCheck::StoredHeight(int slot) const {
  const PageState& page = program_.page;
  // A picture whose file is missing has to be fetched, whatever height was recorded for it.
  if (!QFileInfo::exists(PicturePath(program_.AppDataDir, page.CurrentPage, slot))) return 0;
  return heights_.Height(page.CurrentPage, slot);
}

int NewImageCheck::SlotOf(const QString& key) const {
  const int slot = static_cast<int>(Val(key));
  return grid_.HasSlot(slot) ? slot : -1;
}

bool NewImageCheck::IsVacant(int slot) const {
  return program_.page.OnDsstvPage() && program_.page.Field(slot, SlotSite).isEmpty();
}

void NewImageCheck::PictureReady(const QString& key, QSize marker) {
  const int slot = SlotOf(key);
  if (slot < 0) return;
  if (IsVacant(slot)) {
    Q_EMIT Checked(slot, CheckOutcome::NoSite);
    return;
  }
  // A height that does not fit 16 bits counts as none.
  const int height = marker.height() > std::numeric_limits<qint16>::max() ? 0 : marker.height();
  const ThumbGrid::Edit cell = grid_.EditCell(slot);
  grid_.SetOnAir(slot, marker.width() == 1);
  cell->lblConnect = false;
  cell->fromVisible = true;
  const CheckOutcome outcome = Judge(slot, height);
  // Record the height in every case, before the picture has arrived: a failed download is not repeated by itself.
  PageState& page = program_.page;
  page.Field(slot, LastHeight) = QString::number(height);
  heights_.SetHeight(page.CurrentPage, slot, height);
  Q_EMIT Checked(slot, outcome);
}

CheckOutcome NewImageCheck::Judge(int slot, int height) {
  const PageState& page = program_.page;
  const int old = static_cast<int>(Val(page.Field(slot, LastHeight)));
  const bool reload = grid_.Cells().at(slot).reloadMark;
  if (!reload && StoredHeight(slot) == height) return CheckOutcome::Unchanged;
  if (old == 0 || old != height) return Fetch(slot);
  // Page 20 is left out; its cells are coloured by the next walk or new picture.
  if (page.CurrentPage < PageState::WxPage - 1) grid_.ColourByAge(slot);
  return CheckOutcome::Unchanged;
}

void NewImageCheck::NoImage(const QString& key) {
  const int slot = SlotOf(key);
  if (slot < 0) return;
  if (IsVacant(slot)) {
    Q_EMIT Checked(slot, CheckOutcome::NoSite);
    return;
  }
  const ThumbGrid::Edit cell = grid_.EditCell(slot);
  grid_.ForgetOnAir(slot);
  program_.page.Field(slot, LastHeight) = u"0"_s;
  cell->lblConnect = false;
  if (Fetch(slot) == CheckOutcome::NoSite) Q_EMIT Checked(slot, CheckOutcome::NoSite);
}

// Removes the pictures that earlier versions stored under their name at the station ("image1.*"); nothing reads them.
void NewImageCheck::RemoveFormerPictures() const {
  QDir pictures(program_.AppDataDir + u"/images/dsstv"_s);
  const QStringList former = pictures.entryList({kImageName + u".*"_s}, QDir::Files);
  for (const QString& name : former) pictures.remove(name);
}

CheckOutcome NewImageCheck::Fetch(int slot) {
  const PageState& page = program_.page;
  // A WX marker belongs to no DSSTV site: on the WX page SlotSite may be left over, or empty, which reads as site 0.
  // The WX walk itself asks for the WX picture at the same time.
  const int site = static_cast<int>(Val(page.Field(slot, SlotSite)));
  if (site < 0 || site >= program_.sites.Sites.size()) return CheckOutcome::NoSite;
  RemoveFormerPictures();
  const ThumbGrid::Edit cell = grid_.EditCell(slot);
  grid_.SetProgress(slot, 0);
  cell->fromVisible = true;
  download_.DownloadFile(PlainUrl(program_.sites.Sites.at(site).Url), PictureKey{page.CurrentPage, slot, site}.Text());
  return CheckOutcome::Fetching;
}
