// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/operator_picture_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "ui/window_place.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kBorder = 20;  // pixels (300 twips) in each direction, both sides together
}  // namespace

Form13::Form13(PictureTool& tool, QWidget* owner) : BaseWindow(owner), tool_(tool), Image1(new QLabel(this)) {
  setObjectName(u"Form13"_s);
  Image1->setObjectName(u"Image1"_s);
  Image1->setAlignment(Qt::AlignCenter);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(Image1);
}

QString Form13::PictureName(const QString& call) {
  return tr("Picture of %1").arg(call);
}

void Form13::ShowPicture(const QString& path, const QString& call, const QPoint& over) {
  const QSize box = MonitorAt(over).size() - FrameOf(this) - QSize(kBorder, kBorder);
  tool_.View(path, box, this, [this, call, over, token = wanted_.Ask()](const PictureAnswer& answer) {
    if (!token.StillWanted() || !answer.ok || answer.frames.isEmpty()) return;
    call_ = call;
    over_ = over;
    Image1->setPixmap(QPixmap::fromImage(answer.frames.first().image));
    setFixedSize(answer.frames.first().image.size() + QSize(kBorder, kBorder));
    if (isVisible()) {
      ShowTexts();
      PlaceWindow();
    }
    show();
    raise();
    activateWindow();
  });
}

void Form13::ShowTexts() {
  const QString name = PictureName(call_);
  setWindowTitle(u"Omni-Perch  "_s + name);
  setAccessibleName(windowTitle());
  Image1->setAccessibleName(name);
}

void Form13::PlaceWindow() {
  QRect frame(QPoint(0, 0), size() + FrameOf(this));
  frame.moveCenter(over_);
  move(KeptOnMonitor(frame, over_).topLeft());
}

// A picture that is still being decoded must not open the window again.
void Form13::closeEvent(QCloseEvent* event) {
  wanted_.Withdraw();
  BaseWindow::closeEvent(event);
}

void Form13::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      close();
      break;
    default:
      BaseWindow::keyPressEvent(event);
  }
}

void Form13::mouseReleaseEvent(QMouseEvent* event) {
  BaseWindow::mouseReleaseEvent(event);
  close();
}
