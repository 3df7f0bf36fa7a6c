// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/msg_box_timed.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr QColor kFailed(255, 100, 100);
constexpr QColor kDone(160, 225, 160);
}  // namespace

void frmMsgBoxTimed::ShowMsg(QWidget* owner, const QString& text, std::chrono::seconds duration) {
  BoxOf(owner).ShowText(text, duration, kFailed);
  QApplication::beep();
}

void frmMsgBoxTimed::ShowDone(QWidget* owner, const QString& text, std::chrono::seconds duration) {
  BoxOf(owner).ShowText(text, duration, kDone);
}

frmMsgBoxTimed& frmMsgBoxTimed::BoxOf(QWidget* owner) {
  frmMsgBoxTimed* shown = nullptr;
  const auto boxes = owner->findChildren<frmMsgBoxTimed*>(QString(), Qt::FindDirectChildrenOnly);
  for (frmMsgBoxTimed* box : boxes) {
    if (!box->ended_) shown = box;
  }
  if (shown == nullptr) shown = new frmMsgBoxTimed(owner);
  return *shown;
}

frmMsgBoxTimed::frmMsgBoxTimed(QWidget* owner) : QFrame(owner), label_(this) {
  setObjectName(u"frmMsgBoxTimed"_s);
  setFrameShape(QFrame::Box);
  setAutoFillBackground(true);
  label_.setObjectName(u"lblMsg"_s);
  label_.setTextFormat(Qt::PlainText);
  label_.setAlignment(Qt::AlignCenter);
  label_.setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(&label_);
  Timer1.setInterval(1s);
  connect(&Timer1, &QTimer::timeout, this, [this]() {
    if (++ticks_ > last_) End();
  });
  owner->installEventFilter(this);
}

void frmMsgBoxTimed::ShowText(const QString& text, std::chrono::seconds duration, const QColor& back) {
  // The background is light, so the letters are dark on a dark desktop too.
  QPalette look = palette();
  look.setColor(QPalette::Window, back);
  look.setColor(QPalette::WindowText, Qt::black);
  setPalette(look);
  label_.setPalette(look);
  label_.setText(QString(text).remove(u'\r'));
  setAccessibleName(text.simplified());
  ticks_ = 0;
  last_ = static_cast<int>(duration.count());
  Timer1.start();
  Place();
  show();
  raise();
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void frmMsgBoxTimed::Place() {
  const QWidget* owner = parentWidget();
  // A longer word wraps before it leaves the window.
  label_.setMaximumWidth(std::max(1, owner->width() - 2 * (frameWidth() + 4)));
  const QSize text = label_.fontMetrics().size(0, label_.text());
  label_.setMinimumWidth(std::min(text.width() + 2, label_.maximumWidth()));
  layout()->activate();
  resize(sizeHint().expandedTo({0, layout()->totalHeightForWidth(sizeHint().width())}));
  const QRect room = owner->rect();
  QRect place(QPoint(), size());
  place.moveCenter(room.center());
  const QString name = owner->objectName();
  if (name == "frmOnAirNow"_L1) place.moveLeft(0);
  // In the main window only its place across is given; a third of the way down leaves the bar free.
  if (name == "Form1"_L1) place.moveTop(room.height() / 3);
  move(std::max(0, place.left()), std::max(0, place.top()));
}

bool frmMsgBoxTimed::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Place();
  return QFrame::eventFilter(watched, event);
}

void frmMsgBoxTimed::mouseReleaseEvent(QMouseEvent* event) {
  QFrame::mouseReleaseEvent(event);
  End();
}

void frmMsgBoxTimed::End() {
  ended_ = true;
  hide();
  deleteLater();
}
