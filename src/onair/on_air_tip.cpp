// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_tip.h"

#include <QCursor>
#include <QPainter>

#include "ui/window_place.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QColor kBack(241, 231, 182);
constexpr Qt::WindowFlags kTipWindow = Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus;
constexpr QPoint kBesidePointer(16, 16);

}  // namespace

frmTipOnAir::frmTipOnAir(QWidget* window) : QLabel(window, kTipWindow), window_(window) {
  setObjectName(u"frmTipOnAir"_s);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setTextFormat(Qt::PlainText);
  setMargin(4);
  setFrameShape(QFrame::Box);
  setAutoFillBackground(true);
  // The given background is light, so the letters are dark on a dark desktop too.
  QPalette look = palette();
  look.setColor(QPalette::Window, kBack);
  look.setColor(QPalette::WindowText, Qt::black);
  setPalette(look);
  Timer2.setInterval(300ms);
  connect(&Timer2, &QTimer::timeout, this, &frmTipOnAir::Timer2Tick);
}

void frmTipOnAir::ShowTip(const QString& text, const QRect& row, bool byPointer) {
  setText(QString(text).remove(u'\r'));
  setAccessibleName(text.simplified());
  adjustSize();
  move(PlaceBeside(size(), row));
  show();
  raise();
  if (byPointer) {
    Timer2.start();
  } else {
    Timer2.stop();
  }
}

void frmTipOnAir::Timer2Tick() {
  if (!window_->frameGeometry().contains(QCursor::pos())) hide();
}

void frmTipOnAir::hideEvent(QHideEvent* event) {
  QLabel::hideEvent(event);
  Timer2.stop();
}

OperatorPictureTip::OperatorPictureTip(PictureTool& tool, QWidget* window) : QLabel(window, kTipWindow), tool_(tool) {
  setObjectName(u"picBig"_s);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFrameShape(QFrame::Box);
}

void OperatorPictureTip::ShowPicture(const QString& path, const QPoint& beside) {
  const Wanted::Token token = wanted_.Ask();
  PictureOptions options;
  options.wanted = [token]() { return token.StillWanted(); };
  const double ratio = devicePixelRatioF();
  tool_.View(
      path, MonitorAt(beside).size() / 2 * ratio, this,
      [this, token, beside, ratio](const PictureAnswer& answer) {
        if (!token.StillWanted() || !answer.ok || answer.frames.isEmpty()) return;
        QPixmap picture = QPixmap::fromImage(answer.frames.first().image);
        picture.setDevicePixelRatio(ratio);
        setPixmap(picture);
        adjustSize();
        QRect place(beside + kBesidePointer, size());
        const QRect monitor = MonitorAt(beside);
        // On the pointer's other side where the monitor ends: under the pointer the tip would take it off its row.
        if (place.right() > monitor.right()) place.moveRight(beside.x() - kBesidePointer.x());
        move(KeptOnMonitor(place, beside).topLeft());
        show();
      },
      options);
}

void OperatorPictureTip::Withdraw() {
  wanted_.Withdraw();
  hide();
}
