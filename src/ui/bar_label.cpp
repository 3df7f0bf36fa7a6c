// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/bar_label.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <utility>

namespace {
constexpr int kLeastLetters = 6;  // letters of an elided caption before its dots
constexpr int kElidedMargin = 3;  // pixels at each side of an elided caption
}  // namespace

BarLabel::BarLabel(const QString& name, QWidget* parent) : QToolButton(parent) {
  setObjectName(name);
  setAutoRaise(true);
  setFocusPolicy(Qt::StrongFocus);
  setToolButtonStyle(Qt::ToolButtonTextOnly);
  setCursor(Qt::PointingHandCursor);
}

void BarLabel::SetCaption(const QString& caption) {
  if (text() == caption) return;
  setText(caption);
  setAccessibleName(caption.simplified());
  TakeTip();
  updateGeometry();
}

void BarLabel::SetBriefCaption(const QString& caption) {
  if (brief_ == caption) return;
  brief_ = caption;
  TakeTip();
  updateGeometry();
}

void BarLabel::SetNote(const QString& note) {
  if (note_ == note) return;
  note_ = note;
  setAccessibleDescription(note);
  TakeTip();
}

void BarLabel::SetLit(bool lit) {
  if (lit_ == lit) return;
  lit_ = lit;
  update();
}

void BarLabel::SetMoved(bool moved) {
  if (moved_ == moved) return;
  moved_ = moved;
  QToolButton::setVisible(wanted_ && !moved_);
}

void BarLabel::setVisible(bool visible) {
  const bool changed = std::exchange(wanted_, visible) != visible;
  QToolButton::setVisible(wanted_ && !moved_);
  // While the label is off the bar, the toolkit sees no change and asks for no new layout.
  if (changed && moved_ && parentWidget() != nullptr) {
    QCoreApplication::postEvent(parentWidget(), new QEvent(QEvent::LayoutRequest));
  }
}

int BarLabel::WidthOf(const QString& caption) const {
  const QFontMetrics metrics(font());
  return metrics.horizontalAdvance(caption.trimmed()) + metrics.height() + 2;
}

int BarLabel::LeastWidth() const {
  const QString caption = text().trimmed();
  return std::min(BriefWidth(), WidthOf(caption.left(kLeastLetters).trimmed() + QChar(0x2026)));
}

QString BarLabel::ShownCaption() const {
  const QFontMetrics metrics(font());
  if (width() >= WholeWidth()) return text().trimmed();
  const QString caption = (brief_.isEmpty() ? text() : brief_).trimmed();
  // Not through elidedText, which may find a text that just fits a fraction of a pixel too wide.
  if (width() >= BriefWidth()) return caption;
  return metrics.elidedText(caption, Qt::ElideRight, width() - 2 * kElidedMargin);
}

void BarLabel::TakeTip() {
  QStringList lines{ShownCaption() == text().trimmed() ? QString() : text().simplified(), note_};
  lines.removeAll(QString());
  setToolTip(lines.join(u'\n'));
}

QSize BarLabel::sizeHint() const {
  return {WholeWidth(), QFontMetrics(font()).height() + 8};
}

void BarLabel::resizeEvent(QResizeEvent* event) {
  QToolButton::resizeEvent(event);
  TakeTip();
}

void BarLabel::keyPressEvent(QKeyEvent* event) {
  // Return presses the label, as Space does; only some desktops' styles do that by themselves.
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QToolButton::keyPressEvent(event);
  } else if (!event->isAutoRepeat()) {
    click();
  }
}

void BarLabel::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event)
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF pill = QRectF(rect()).adjusted(1, 2, -1, -2);
  const QColor accent = palette().color(QPalette::Highlight);
  QColor back = Qt::transparent;
  if (lit_) {
    back = accent;
  } else if (isEnabled() && (underMouse() || isDown())) {
    back = palette().color(QPalette::WindowText);
    back.setAlpha(isDown() ? 50 : 26);
  }
  painter.setBrush(back);
  painter.setPen(hasFocus() ? QPen(lit_ ? palette().color(QPalette::WindowText) : accent, 1.5) : QPen(Qt::NoPen));
  painter.drawRoundedRect(pill, 4, 4);
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Normal : QPalette::Disabled;
  painter.setPen(lit_ ? QColor(Qt::white) : palette().color(group, QPalette::WindowText));
  painter.drawText(rect(), static_cast<int>(Qt::AlignCenter) | Qt::TextSingleLine, ShownCaption());
}
