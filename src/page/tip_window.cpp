// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/tip_window.h"

#include <QHBoxLayout>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {
constexpr QSize kPicture(120, 90);
constexpr int kGap = 4;
}  // namespace

TipWindow::TipWindow(QWidget* parent) : QFrame(parent), lblToolTip_(this), imgQrzPic_(this) {
  setObjectName(u"picToolTip"_s);
  lblToolTip_.setObjectName(u"lblToolTip"_s);
  imgQrzPic_.setObjectName(u"imgQrzPic"_s);
  setPalette(QToolTip::palette());
  setForegroundRole(QPalette::ToolTipText);
  setBackgroundRole(QPalette::ToolTipBase);
  setAutoFillBackground(true);
  setFrameShape(QFrame::Box);
  // Mouse events pass through the tip, so that it never takes a click from a cell.
  setAttribute(Qt::WA_TransparentForMouseEvents);
  lblToolTip_.setTextFormat(Qt::PlainText);
  lblToolTip_.setForegroundRole(QPalette::ToolTipText);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(6, 6, 6, 6);
  row->addWidget(&imgQrzPic_);
  row->addWidget(&lblToolTip_);
  imgQrzPic_.hide();
  hide();
}

void TipWindow::ShowTip(const QString& text, const QRect& cell, double fontPixels) {
  imgQrzPic_.hide();
  cell_ = cell;
  QFont font = parentWidget()->font();
  font.setPixelSize(std::max(11, static_cast<int>(fontPixels)));
  lblToolTip_.setFont(font);
  QString shown = text;
  lblToolTip_.setText(shown.remove(u'\r'));
  FitText();
  Place();
  show();
  raise();
}

// A line that is wider than the window goes on below itself.
void TipWindow::FitText() {
  lblToolTip_.setWordWrap(false);
  lblToolTip_.setMinimumSize(0, 0);
  lblToolTip_.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  const QMargins frame = layout()->contentsMargins();
  const int room = parentWidget()->width() - frame.left() - frame.right() - 2 * frameWidth();
  if (lblToolTip_.sizeHint().width() <= room) return;
  lblToolTip_.setWordWrap(true);
  lblToolTip_.setFixedSize(room, lblToolTip_.heightForWidth(room));
}

void TipWindow::ShowPicture(const QImage& picture) {
  if (!isVisible() || picture.isNull()) return;
  QPixmap pixmap = QPixmap::fromImage(picture);
  pixmap.setDevicePixelRatio(devicePixelRatioF());
  imgQrzPic_.setPixmap(pixmap);
  imgQrzPic_.show();
  Place();
}

QSize TipWindow::PictureBox() const {
  return kPicture * devicePixelRatioF();
}

void TipWindow::Place() {
  layout()->activate();
  const QRect room = parentWidget()->rect();
  const QSize size = sizeHint().boundedTo(room.size());
  // Below the cell, or above it if there is no space below; always inside the window.
  int top = cell_.bottom() + kGap;
  if (top + size.height() > room.bottom()) top = cell_.top() - kGap - size.height();
  const int left = cell_.center().x() - size.width() / 2;
  setGeometry(QRect(QPoint(std::clamp(left, 0, std::max(0, room.width() - size.width())),
                           std::clamp(top, 0, std::max(0, room.height() - size.height()))),
                    size));
}
