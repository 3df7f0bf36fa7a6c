// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/print_preview.h"

#include <QPainter>

#include "display/print_size.h"

namespace {

constexpr double kMmPerCm = 10;
constexpr double kAround = 10;  // pixels around the sheet
constexpr QColor kTooLarge(200, 0, 0);

QRectF Scaled(const QRectF& rect, double scale) {
  return {rect.topLeft() * scale, rect.size() * scale};
}

}  // namespace

PrintPreview::PrintPreview(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(sizeHint() / 2);
}

void PrintPreview::SetPicture(const QImage& picture) {
  picture_ = picture;
  update();
}

void PrintPreview::SetPage(const QPageLayout& page, const QSizeF& cm) {
  page_ = page;
  cm_ = cm;
  update();
}

QSize PrintPreview::sizeHint() const {
  return {480, 360};
}

void PrintPreview::paintEvent(QPaintEvent* /*event*/) {
  const QRectF sheet = page_.fullRect(QPageLayout::Millimeter);
  if (sheet.isEmpty()) return;
  const double scale = std::min((width() - 2 * kAround) / sheet.width(), (height() - 2 * kAround) / sheet.height());
  QPainter painter(this);
  painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
  painter.translate((width() - sheet.width() * scale) / 2, (height() - sheet.height() * scale) / 2);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(Qt::white);
  painter.drawRect(Scaled(sheet, scale));
  const QRectF room = page_.paintRect(QPageLayout::Millimeter);
  painter.setPen(QPen(Qt::lightGray, 1, Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(Scaled(room, scale));
  if (picture_.isNull()) return;
  const QRectF place = PlaceInMiddle(cm_ * kMmPerCm, room.size()).translated(room.topLeft());
  painter.save();
  painter.setClipRect(Scaled(room, scale));
  painter.drawImage(Scaled(place, scale), picture_);
  painter.restore();
  if (FitsOn(cm_, room.size() / kMmPerCm)) return;
  // How far the picture reaches beyond what can be printed.
  painter.setPen(QPen(kTooLarge, 1, Qt::DotLine));
  painter.drawRect(Scaled(place, scale));
}
