// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/lookup_widgets.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/plain_tip.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kFocusRing = 2;
constexpr int kLeastLetters = 8;
constexpr int kSignSide = 16;
constexpr int kSmallest = 85;  // percent of the usual letter size, below which letters are hard to read

// Replaces control characters, which a callbook page may contain, by blanks.
QString OneLine(QString text) {
  for (QChar& c : text) {
    if (c.category() == QChar::Other_Control) c = u' ';
  }
  return text.trimmed();
}

}  // namespace

FieldLabel::FieldLabel(const QString& name, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setReadOnly(true);
  setFrame(false);
  setFocusPolicy(Qt::NoFocus);
  // No background: the field is to be seen as a text on the window, not as a box to be filled in.
  QPalette onWindow;
  onWindow.setColor(QPalette::Base, Qt::transparent);
  setPalette(onWindow);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void FieldLabel::SetField(const QString& text, const QString& role) {
  const QString line = OneLine(text);
  // Setting the same text again would have screen readers announce it again.
  if (role != accessibleName()) setAccessibleName(role);
  if (line == this->text()) return;
  setText(line);
  setCursorPosition(0);
  setFocusPolicy(line.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
  ShowTip();
}

QString FieldLabel::ShownText() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, width() - 2 * kFocusRing);
}

void FieldLabel::ShowTip() {
  setToolTip(ShownText() == text() ? QString() : PlainTip(text()));
}

QSize FieldLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kLeastLetters, fontMetrics().height()};
}

QSize FieldLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 2 * kFocusRing, fontMetrics().height()};
}

void FieldLabel::paintEvent(QPaintEvent* event) {
  if (hasFocus()) QLineEdit::paintEvent(event);
  QPainter painter(this);
  if (hasFocus()) {
    // A read-only line has no caret that shows where the focus is.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    return;
  }
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect room = rect().adjusted(kFocusRing, 0, -kFocusRing, 0);
  painter.drawText(room, static_cast<int>(Qt::AlignVCenter) | static_cast<int>(Qt::AlignLeft) | Qt::TextSingleLine,
                   ShownText());
}

void FieldLabel::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  ShowTip();
}

void FieldLabel::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::FontChange) ShowTip();
}

void FieldLabel::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // Keep the selection while the field's own menu is open.
  if (event->reason() != Qt::PopupFocusReason) setCursorPosition(0);
}

namespace {

// The desktop's colour for links, or that of the text where it cannot be read on the background (some dark desktops
// leave it dark blue).
QColor LinkColour(const QPalette& palette) {
  constexpr int kReadable = 90;  // of 255, between grey values
  const QColor link = palette.color(QPalette::Active, QPalette::Link);
  const QColor back = palette.color(QPalette::Active, QPalette::Window);
  const bool readable = std::abs(qGray(link.rgb()) - qGray(back.rgb())) >= kReadable;
  return readable ? link : palette.color(QPalette::Active, QPalette::WindowText);
}

}  // namespace

StatusLink::StatusLink(const QString& name, QWidget* parent) : QToolButton(parent) {
  setObjectName(name);
  setAutoRaise(true);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
  hide();
}

void StatusLink::SetStatus(const QString& text, const QString& action) {
  setText(text);
  isLink_ = !text.isEmpty() && !action.isEmpty();
  setEnabled(isLink_);
  setFocusPolicy(isLink_ ? Qt::StrongFocus : Qt::NoFocus);
  setCursor(isLink_ ? Qt::PointingHandCursor : Qt::ArrowCursor);
  setAccessibleName(text);
  setAccessibleDescription(isLink_ ? action : QString());
  // The tip repeats the text, because the text may be cut.
  setToolTip(PlainTip(isLink_ ? text + u'\n' + action : text));
  // Hide it without a text: a screen reader would announce a button without a name.
  setVisible(!text.isEmpty());
  updateGeometry();
  update();
}

QSize StatusLink::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 2 * kFocusRing, fontMetrics().height() + 2 * kFocusRing};
}

QSize StatusLink::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kLeastLetters, sizeHint().height()};
}

int StatusLink::Room() const {
  return width() - 2 * kFocusRing;
}

QFont StatusLink::ShownFont() const {
  QFont smaller = font();
  for (int percent = 95; percent >= kSmallest && QFontMetrics(smaller).horizontalAdvance(text()) > Room();
       percent -= 5) {
    // Take the size from QFontInfo: a font that was set in pixels has no point size of its own.
    smaller.setPointSizeF(QFontInfo(font()).pointSizeF() * percent / 100);
  }
  return smaller;
}

QString StatusLink::ShownText() const {
  return QFontMetrics(ShownFont()).elidedText(text(), Qt::ElideRight, Room());
}

void StatusLink::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event)
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (hasFocus()) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
  }
  QFont shown = ShownFont();
  shown.setUnderline(isLink_);
  painter.setFont(shown);
  // The active colour even if disabled: a state that cannot be clicked is still a text to be read.
  painter.setPen(isLink_ ? LinkColour(palette()) : palette().color(QPalette::Active, QPalette::WindowText));
  const QRect room = rect().adjusted(kFocusRing, 0, -kFocusRing, 0);
  painter.drawText(room, static_cast<int>(Qt::AlignVCenter) | static_cast<int>(Qt::AlignLeft) | Qt::TextSingleLine,
                   ShownText());
}

PictureButton::PictureButton(const QString& name, QWidget* parent) : QAbstractButton(parent) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  hide();
}

void PictureButton::SetPicture(const QImage& picture, QSize size) {
  picture_ = picture;
  setVisible(!picture_.isNull());
  setFixedSize(picture_.isNull() ? QSize(0, 0) : size + QSize(2 * kFocusRing, 2 * kFocusRing));
  update();
}

void PictureButton::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event)
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(rect()).adjusted(kFocusRing, kFocusRing, -kFocusRing, -kFocusRing), picture_);
  if (!hasFocus() && !underMouse()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), kFocusRing));
  painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

void PictureButton::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  Q_EMIT MenuWanted(byKeyboard ? mapToGlobal(rect().center()) : event->globalPos(), byKeyboard);
  event->accept();
}

QIcon KeySign(const QPalette& palette, double pixelRatio) {
  QIcon icon;
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
    const auto group = mode == QIcon::Normal ? QPalette::Active : QPalette::Disabled;
    QPixmap sign((QSizeF(kSignSide, kSignSide) * pixelRatio).toSize());
    sign.setDevicePixelRatio(pixelRatio);
    sign.fill(Qt::transparent);
    QPainter painter(&sign);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(group, QPalette::ButtonText), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawEllipse(QPointF(5, 8), 3, 3);
    painter.drawPolyline(QPolygonF({{8, 8}, {14, 8}, {14, 11}}));
    painter.drawLine(QPointF(11, 8), QPointF(11, 10.5));
    painter.end();
    icon.addPixmap(sign, mode);
  }
  return icon;
}
