// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/operator_picture_window.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include "ui/window_place.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kBorder = 20;  // in each direction, both sides together; 300 twips
}  // namespace

Form13::Form13(PictureTool& tool, QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      tool_(tool),
      Image1(new QLabel(this)) {
  setObjectName(u"Form13"_s);
  Image1->setObjectName(u"Image1"_s);
  Image1->setAlignment(Qt::AlignCenter);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(Image1);
}

void Form13::ShowPicture(const QString& path, const QString& title, const QPoint& over) {
  const QSize box = MonitorAt(over).size() - FrameOf(this) - QSize(kBorder, kBorder);
  tool_.View(path, box, this, [this, title, over, asked = ++asked_](const PictureAnswer& answer) {
    if (asked != asked_ || !answer.ok || answer.frames.isEmpty()) return;
    Place(answer.frames.first().image, title, over);
  });
}

void Form13::Dismiss() {
  ++asked_;
  close();
}

void Form13::Place(const QImage& picture, const QString& title, const QPoint& over) {
  setWindowTitle(u"Omni-Perch  "_s + title);
  setAccessibleName(windowTitle());
  Image1->setPixmap(QPixmap::fromImage(picture));
  Image1->setAccessibleName(title);
  const QSize size = picture.size() + QSize(kBorder, kBorder);
  setFixedSize(size);
  QRect frame(QPoint(0, 0), size + FrameOf(this));
  frame.moveCenter(over);
  move(KeptOnMonitor(frame, over).topLeft());
  show();
  raise();
  activateWindow();
}

void Form13::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      close();
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void Form13::mouseReleaseEvent(QMouseEvent* event) {
  QWidget::mouseReleaseEvent(event);
  close();
}
