// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/cell_painter.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "page/cam_light.h"
#include "page/thumb_layout.h"

namespace {

// Used on a dark palette instead of cream and pink, which would glare there.
constexpr QColor kDarkOnAir(84, 79, 38);
constexpr QColor kDarkStale(116, 45, 49);
constexpr QColor kTagOutline(60, 60, 60);

bool IsDark(const QColor& colour) {
  return qGray(colour.rgb()) < 128;
}

QColor TextOn(const QColor& background, const QPalette& palette) {
  const QColor text = palette.color(QPalette::WindowText);
  if (IsDark(background) != IsDark(text)) return text;
  return IsDark(background) ? QColor(240, 240, 240) : QColor(24, 26, 30);
}

double OnPixel(double place, double ratio) {
  return std::round(place * ratio) / ratio;
}

class CellBrush {
 public:
  CellBrush(QPainter& painter, const Cell& cell, const CellTheme& theme)
      : painter_(painter), cell_(cell), theme_(theme) {}

  QRectF Scaled(const QRectF& units) const {
    const double s = theme_.scale;
    return {units.x() * s, units.y() * s, units.width() * s, units.height() * s};
  }
  QRectF Whole() const { return Scaled(QRectF(QPointF(0, 0), cell_part::kCell)); }

  QColor Back() const { return cell_.flash ? kFlashColour : CellBackground(cell_.Shape1, theme_.palette); }

  void Background() const {
    painter_.fillRect(Whole(), Back());
    // The white edge that lifts a cell off its page; on a dark page a hint of it is enough.
    QColor edge(Qt::white);
    if (IsDark(theme_.palette.color(QPalette::Window))) edge.setAlpha(70);
    const double line = std::max(1.0, theme_.scale * 0.8);
    const QRectF Line1(0, 0, line, Whole().height());
    const QRectF Line2(0, 0, Whole().width(), line);
    painter_.fillRect(Line1, edge);
    painter_.fillRect(Line2, edge);
  }

  void Picture(const QPixmap& picture) const {
    if (cell_.errorBox) {
      ErrorBox();
      return;
    }
    if (picture.isNull()) return;
    const QRectF frame = Scaled(cell_.img);
    if (cell_.animated) painter_.fillRect(frame, Qt::black);
    const double ratio = picture.devicePixelRatio();
    if (picture.size() == PicturePixels(cell_, theme_.scale, ratio)) {
      // Made for this very frame: copied pixel by pixel, as a scaling by half a pixel would blur it and take far
      // longer.
      painter_.drawPixmap(QPointF(OnPixel(frame.x(), ratio), OnPixel(frame.y(), ratio)), picture);
      return;
    }
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
    painter_.drawPixmap(frame, picture, QRectF(picture.rect()));
  }

  void ErrorBox() const {
    const QRectF box = Scaled(cell_.img);
    painter_.fillRect(box, kErrorColour);
    painter_.save();
    painter_.translate(box.topLeft());
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(Qt::white, std::max(1.0, theme_.scale)));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRoundedRect(Scaled(QRectF(10, 7, 100, 38)), 2 * theme_.scale, 2 * theme_.scale);
    painter_.setPen(Qt::white);
    Line(cell_.lblError, QRectF(12, 12, 96, 30), 2.5, true);
    Line(cell_.lblInfo, QRectF(2, 47, 116, 20), 1.5, false);
    Line(cell_.lblInfo2, QRectF(2, 65, 116, 20), 1.5, false);
    painter_.restore();
  }

  void Captions() const {
    const QColor background = Back();
    painter_.setPen(TextOn(background, theme_.palette));
    Line(cell_.lblCall, cell_part::kCall, 1, true);
    if (cell_.picProg) {
      Progress();
    } else if (cell_.lblConnect) {
      Connecting();
    } else if (cell_.fromVisible) {
      painter_.setPen(TextOn(background, theme_.palette));
      FromLine();
    }
    if (!cell_.lblMode.isEmpty()) Badge(cell_part::kMode, cell_.modeColour, cell_.lblMode);
    CamDot();
  }

  // Two panes side by side in the picture's corner, and a frame: told apart from the focus without any colour.
  void CompareMark() const {
    if (cell_.compareMark == 0) return;
    painter_.setRenderHint(QPainter::Antialiasing);
    const double line = std::max(2.0, theme_.scale * 2);
    painter_.setPen(QPen(kCompareColour, line));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(Whole().adjusted(line, line, -line, -line));
    painter_.setPen(QPen(Qt::black, std::max(1.0, theme_.scale * 0.7)));
    painter_.setBrush(kCompareColour);
    painter_.drawRect(Scaled(QRectF(6, 6, 8, 13)));
    painter_.drawRect(Scaled(QRectF(16, 6, 8, 13)));
  }

  void Focus() const {
    if (!theme_.focused && !theme_.hovered) return;
    painter_.setRenderHint(QPainter::Antialiasing);
    QColor ring = theme_.palette.color(QPalette::Highlight);
    if (!theme_.focused) ring.setAlpha(110);
    const double line = std::max(1.5, theme_.scale * 1.3);
    painter_.setPen(QPen(ring, line));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(Whole().adjusted(line / 2, line / 2, -line / 2, -line / 2));
  }

 private:
  // Draws one line of text in a font `factor` times that of the caption, made smaller where the text would be cut.
  void Line(const QString& text, const QRectF& units, double factor, bool bold) const {
    if (text.isEmpty()) return;
    const QRectF place = Scaled(units);
    QFont font = theme_.font;
    font.setBold(bold);
    double pixels = std::min(theme_.fontPixels * factor, place.height());
    const double least = std::max(6.0, theme_.fontPixels * 0.72);
    font.setPixelSize(static_cast<int>(std::lround(pixels)));
    double width = QFontMetricsF(font).horizontalAdvance(text);
    while (pixels > least && width > place.width()) {
      pixels -= 1;
      font.setPixelSize(static_cast<int>(std::lround(pixels)));
      width = QFontMetricsF(font).horizontalAdvance(text);
    }
    painter_.setFont(font);
    // A text that fits is not shaped once more to find out that nothing of it goes.
    const QString shown =
        width > place.width() ? QFontMetricsF(font).elidedText(text, Qt::ElideRight, place.width()) : text;
    painter_.drawText(place, static_cast<int>(Qt::AlignCenter) | Qt::TextSingleLine, shown);
  }

  // Draws lblFrom centred in its given frame, or beside the mode tag where the text would run into the tag.
  void FromLine() const {
    QFont font = theme_.font;
    font.setPixelSize(static_cast<int>(std::lround(theme_.fontPixels)));
    const double half = QFontMetricsF(font).horizontalAdvance(cell_.lblFrom) / 2 / theme_.scale;
    QRectF place = cell_part::kFrom;
    if (!cell_.lblMode.isEmpty() && place.center().x() + half > cell_part::kMode.left() - 1) {
      place.setLeft(cell_.imgCam == CamLight::Hidden ? 3 : cell_part::kCam.right());
      place.setRight(cell_part::kMode.left() - 1);
    }
    Line(cell_.lblFrom, place, 1, false);
  }

  void Badge(const QRectF& units, const QColor& colour, const QString& text) const {
    painter_.setRenderHint(QPainter::Antialiasing);
    // Without an outline the pink of some modes vanishes on the pink of a stale cell.
    const double line = std::max(1.0, theme_.scale * 0.8);
    painter_.setPen(QPen(kTagOutline, line));
    painter_.setBrush(colour);
    const QRectF tag = Scaled(units).adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter_.drawRoundedRect(tag, 2 * theme_.scale, 2 * theme_.scale);
    painter_.setPen(QColor(20, 20, 20));
    Line(text, units.adjusted(1, 0, -1, 0), 0.9, true);
  }

  void Connecting() const {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(kConnectColour);
    painter_.drawRoundedRect(Scaled(cell_part::kConnect), 3 * theme_.scale, 3 * theme_.scale);
    painter_.setPen(QColor(16, 28, 60));
    Line(theme_.connectingText, cell_part::kConnect.adjusted(2, 0, -2, 0), 0.9, false);
  }

  void Progress() const {
    painter_.setRenderHint(QPainter::Antialiasing);
    const QRectF track = Scaled(cell_part::kProgress);
    const double radius = track.height() / 2;
    QPainterPath clip;
    clip.addRoundedRect(track, radius, radius);
    painter_.save();
    painter_.setClipPath(clip, Qt::IntersectClip);
    painter_.fillRect(track, QColor(128, 140, 160, 110));
    QRectF bar = track;
    bar.setWidth(track.width() * std::clamp(cell_.progress, 0, 100) / 100.0);
    painter_.fillRect(bar, QColor(56, 132, 255));
    painter_.restore();
  }

  void CamDot() const {
    PaintCamLight(painter_, Scaled(cell_part::kCam.adjusted(2.5, 2.5, -2.5, -2.5)), cell_.imgCam, kTagOutline);
  }

  QPainter& painter_;
  const Cell& cell_;
  const CellTheme& theme_;
};

}  // namespace

QColor CellBackground(CellColour colour, const QPalette& palette) {
  const QColor window = palette.color(QPalette::Window);
  switch (colour) {
    case CellColour::OnAir:
      return IsDark(window) ? kDarkOnAir : kOnAirColour;
    case CellColour::Stale:
      return IsDark(window) ? kDarkStale : kStaleColour;
    case CellColour::Window:
      break;
  }
  return window;
}

QSize PicturePixels(const Cell& cell, double scale, double ratio) {
  const auto pixels = [scale, ratio](double units) { return static_cast<int>(std::lround(units * scale * ratio)); };
  return {pixels(cell.img.width()), pixels(cell.img.height())};
}

void PaintCell(QPainter& painter, const Cell& cell, const CellTheme& theme, const QPixmap& picture) {
  const CellBrush brush(painter, cell, theme);
  brush.Background();
  brush.Picture(picture);
  brush.Captions();
  brush.CompareMark();
  brush.Focus();
}
