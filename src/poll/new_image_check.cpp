// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/new_image_check.h"

#include <QFileInfo>
#include <limits>

#include "core/page_files.h"

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
  // Without its file a picture has to be fetched whatever was seen of it.
  if (!QFileInfo::exists(PicturePath(program_.AppDataDir, page.CurrentPage, slot))) return 0;
  return heights_.Height(page.CurrentPage, slot);
}

void NewImageCheck::PictureReady(const QString& key, QSize marker) {
  PageState& page = program_.page;
  const int slot = static_cast<int>(Val(key));
  if (slot < 0 || slot > page.ThumbCount - 1) return;
  const bool onAir = marker.width() == 1;
  // A height that does not fit 16 bits is no height.
  const int height = marker.height() > std::numeric_limits<qint16>::max() ? 0 : marker.height();
  grid_.SetOnAir(slot, onAir);

  const int site = static_cast<int>(Val(page.Field(slot, SlotSite)));
  const int old = static_cast<int>(Val(page.Field(slot, LastHeight)));
  grid_.SetConnecting(slot, false);
  grid_.SetFromVisible(slot);

  const bool reload = grid_.Cells().at(slot).reloadMark;
  if (!reload && StoredHeight(slot) == height) {
    ++page.SitesDone;
  } else if (old != 0 && old == height) {
    ++page.SitesDone;
    // Page 20 is left out: its cells are coloured when a walk or a new picture does it.
    if (page.CurrentPage < PageState::WxPage - 1) grid_.ColourByAge(slot, site);
  } else {
    Fetch(slot);
  }
  // Recorded as seen in every case, before the picture has arrived: a failed download is not asked for again by itself.
  page.Field(slot, LastHeight) = QString::number(height);
  heights_.SetHeight(page.CurrentPage, slot, height);
  Q_EMIT Checked();
}

void NewImageCheck::NoImage(const QString& key) {
  PageState& page = program_.page;
  const int slot = static_cast<int>(Val(key));
  if (slot < 0 || slot > page.ThumbCount - 1) return;
  grid_.ForgetOnAir(slot);
  page.Field(slot, LastHeight) = u"0"_s;
  grid_.SetConnecting(slot, false);
  Fetch(slot);
}

void NewImageCheck::Fetch(int slot) {
  const PageState& page = program_.page;
  // On the WX page the slot's site is whatever stands in its field, the first DSSTV site where nothing does: a WX
  // marker has no site of its own, and its picture is asked for by the WX walk at the same time.
  const int site = static_cast<int>(Val(page.Field(slot, SlotSite)));
  if (site < 0 || site >= program_.sites.Sites.size()) return;
  grid_.SetProgress(slot, 0);
  grid_.SetFromVisible(slot);
  download_.DownloadFile(PlainUrl(program_.sites.Sites.at(site).Url),
                         u"%1-%2"_s.arg(page.CurrentPage * 100 + slot).arg(site));
}
