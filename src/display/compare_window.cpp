// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/compare_window.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "ui/window_place.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kOfMonitor = 0.9;
constexpr int kGap = 2;  // pixels between the pictures
constexpr int kCaptionMargin = 6;

}  // namespace

CompareWindow::CompareWindow(const Dependencies& services, QWidget* opener)
    : BaseWindow(opener), program_(services.program), left_(services, zoom_, this), right_(services, zoom_, this) {
  setObjectName(u"CompareWindow"_s);
  left_.canvas->setObjectName(u"left"_s);
  right_.canvas->setObjectName(u"right"_s);
  Connect(left_);
  Connect(right_);
}

void CompareWindow::Connect(Side& side) {
  side.caption->setObjectName(side.canvas->objectName() + u"Caption"_s);
  side.caption->setTextFormat(Qt::PlainText);
  side.caption->setMargin(kCaptionMargin);
  side.canvas->setAccessibleName(tr("Picture"));  // until one is shown
  connect(&side.picture, &ViewerPicture::Shown, this, [this, &side]() { TakePicture(side); });
  connect(&side.picture, &ViewerPicture::Sharpened, this,
          [&side]() { side.canvas->SetPicture(side.picture.Frames(), side.picture.Scales(), true); });
  connect(&side.picture, &ViewerPicture::Failed, this, [this, &side]() { TakeFailure(side); });
  connect(&side.picture, &ViewerPicture::IsFilm, this, [this, &side]() { TakeFailure(side); });
}

void CompareWindow::Open(const PictureList& pair) {
  if (pair.pictures.size() < 2) return;
  left_.source = pair.pictures.at(0);
  right_.source = pair.pictures.at(1);
  show();
  raise();
  activateWindow();
  left_.canvas->setFocus();
  for (Side* side : {&left_, &right_}) {
    side->failed = false;
    side->canvas->Clear();
    side->picture.Load(side->source, (QSizeF(side->canvas->size()) * devicePixelRatioF()).toSize());
  }
  ShowTexts();
}

void CompareWindow::TakePicture(Side& side) {
  const QSize larger = left_.picture.Size().expandedTo(right_.picture.Size());
  const bool first = !left_.canvas->HasPicture() && !right_.canvas->HasPicture();
  side.canvas->SetPicture(side.picture.Frames(), side.picture.Scales(), false);
  // The second picture comes into the zoom that the user may have chosen for the first by then.
  const QSizeF natural = QSizeF(first ? side.picture.Size() : larger) / devicePixelRatioF();
  first ? zoom_.SetPicture(natural) : zoom_.SetNatural(natural);
  ShowTexts();
}

void CompareWindow::TakeFailure(Side& side) {
  side.failed = true;
  ShowTexts();
}

void CompareWindow::ShowTexts() {
  setWindowTitle(u"Omni-Perch  "_s + tr("Comparison"));
  setAccessibleName(windowTitle());
  for (Side* side : {&left_, &right_}) {
    const bool there = side->canvas->HasPicture();
    const QString details = DetailsOf(program_, side->source, there ? side->picture.Size() : QSize()).join(u"   "_s);
    side->caption->setText(details);
    side->caption->setAccessibleName(details);
    side->canvas->setAccessibleName(details.isEmpty() ? tr("Picture") : details);
    side->canvas->SetNote(side->failed ? tr("This picture cannot be shown.") : QString());
    side->canvas->setAccessibleDescription(side->failed ? tr("This picture cannot be shown.") : QString());
  }
}

void CompareWindow::PlaceWindow() {
  const QRect monitor = MonitorAt(QCursor::pos());
  const QSize frame = FrameOf(this);
  const QSize whole = (QSizeF(monitor.size()) * kOfMonitor).toSize();
  QRect place(QPoint(0, 0), whole);
  place.moveCenter(monitor.center());
  resize(whole - frame);
  move(place.topLeft());
}

void CompareWindow::resizeEvent(QResizeEvent* event) {
  BaseWindow::resizeEvent(event);
  // Both canvases have the same size, because they share a zoom.
  const int width = (this->width() - kGap) / 2;
  const int caption = left_.caption->sizeHint().height();
  left_.canvas->setGeometry(0, 0, width, height() - caption);
  right_.canvas->setGeometry(width + kGap, 0, width, height() - caption);
  left_.caption->setGeometry(0, height() - caption, width, caption);
  right_.caption->setGeometry(width + kGap, height() - caption, width, caption);
}

void CompareWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    close();
  } else if (!left_.canvas->ZoomByKey(event)) {
    BaseWindow::keyPressEvent(event);
  }
}

void CompareWindow::closeEvent(QCloseEvent* event) {
  left_.picture.GiveUp();
  right_.picture.GiveUp();
  BaseWindow::closeEvent(event);
}
