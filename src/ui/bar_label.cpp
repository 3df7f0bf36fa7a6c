// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/bar_label.h"

#include <QPainter>

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
  updateGeometry();
}

void BarLabel::SetLit(bool lit) {
  if (lit_ == lit) return;
  lit_ = lit;
  update();
}

QSize BarLabel::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(text().trimmed()) + metrics.height() + 2, metrics.height() + 8};
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
  painter.drawText(rect(), static_cast<int>(Qt::AlignCenter) | Qt::TextSingleLine, text().trimmed());
}
