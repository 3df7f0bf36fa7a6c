// SPDX-License-Identifier: GPL-3.0-or-later
#include "map_painter.h"

#include <QPainter>

#include "map_frame.h"
#include "map_labels.h"

namespace {

class MapPainter {
 public:
  MapPainter(const MapSheet& sheet, const Geodata& data)
      : frame_(sheet), data_(data), atlas_(sheet.fine ? data.fine : data.coarse) {}

  QImage Draw() {
    const MapSheet& sheet = frame_.Sheet();
    QImage picture(sheet.size, QImage::Format_RGB32);
    picture.fill(MapColours::kPaper);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(frame_.Globe());
    painter.fillRect(picture.rect(), QColor(MapColours::kSea));
    Stroke(painter, frame_.Graticule(), MapColours::kSeaGraticule, 1);
    painter.drawImage(0, 0, DrawLand());
    DrawLakes(painter);
    for (const GeoLine& border : atlas_.borders) Stroke(painter, frame_.Line(border), MapColours::kBorder, 1.1);
    for (const GeoLine& coast : atlas_.coasts)
      Stroke(painter, frame_.Line(coast), MapColours::kCoast, sheet.coastWidth);
    painter.setClipping(false);
    if (sheet.map == MapName::World) Stroke(painter, frame_.Globe(), MapColours::kCoast, 1.4);
    DrawLabels(frame_, data_, painter);
    return picture;
  }

 private:
  static void Stroke(QPainter& painter, const QPainterPath& path, QRgb colour, double width) {
    painter.strokePath(path, QPen(QColor(colour), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }

  // The land by itself, so that what lies upon it ends where it ends.
  QImage DrawLand() const {
    const MapSheet& sheet = frame_.Sheet();
    QImage land(sheet.size, QImage::Format_ARGB32_Premultiplied);
    land.fill(Qt::transparent);
    QPainter painter(&land);
    painter.setRenderHint(QPainter::Antialiasing);
    // The outline closes the seams that smooth edges leave between neighbours.
    painter.setPen(QPen(QColor(MapColours::kLand), 0.8));
    painter.setBrush(QColor(MapColours::kLand));
    for (const Area& country : atlas_.countries) painter.drawPath(frame_.Shape(country.rings));
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    Stroke(painter, frame_.Graticule(), MapColours::kLandGraticule, 1);
    if (sheet.stateLines) {
      for (const Course& state : data_.stateLines) {
        Stroke(painter, frame_.Line(state.line), MapColours::kStateLine, 1);
      }
    }
    DrawRivers(painter, data_.rivers, sheet.riverRank);
    DrawRivers(painter, data_.smallRivers, sheet.smallWaterRank);
    return land;
  }

  void DrawRivers(QPainter& painter, const QList<Course>& rivers, int rank) const {
    for (const Course& river : rivers) {
      if (river.rank > rank) continue;
      const double width = river.rank <= rank - 3 || river.rank <= 2 ? 1.3 : 0.9;
      Stroke(painter, frame_.Line(river.line), MapColours::kRiver, width);
    }
  }

  void DrawLakes(QPainter& painter) const {
    const auto draw = [&](const QList<Area>& lakes, int rank) {
      for (const Area& lake : lakes) {
        if (lake.rank <= rank) painter.drawPath(frame_.Shape(lake.rings));
      }
    };
    painter.setPen(QPen(QColor(MapColours::kCoast), 0.7));
    painter.setBrush(QColor(MapColours::kSea));
    draw(data_.lakes, frame_.Sheet().lakeRank);
    draw(data_.smallLakes, frame_.Sheet().smallWaterRank);
  }

  MapFrame frame_;
  const Geodata& data_;
  const Atlas& atlas_;
};

}  // namespace

QImage DrawMap(const MapSheet& sheet, const Geodata& data) {
  return MapPainter(sheet, data).Draw();
}
