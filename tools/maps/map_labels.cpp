// SPDX-License-Identifier: GPL-3.0-or-later
#include "map_labels.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cmath>

#include "label_board.h"
#include "label_tables.h"
#include "name_finder.h"

using namespace Qt::StringLiterals;

namespace {

QFont FontOf(int pixels, bool italic = false) {
  QFont font;
  font.setFamilies({u"Noto Sans"_s, u"DejaVu Sans"_s});
  font.setPixelSize(pixels);
  font.setItalic(italic);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QFont SpacedFont(int pixels, double spacing, bool italic = false) {
  QFont font = FontOf(pixels, italic);
  font.setLetterSpacing(QFont::AbsoluteSpacing, pixels * spacing);
  return font;
}

// Writes the names of one map.
class MapLabels {
 public:
  MapLabels(const MapFrame& frame, const Geodata& data, QPainter& painter)
      : frame_(frame),
        sheet_(frame.Sheet()),
        data_(data),
        painter_(painter),
        globe_(frame.Globe()),
        board_(sheet_.size) {}

  void Draw() {
    QList<Town> first;
    QList<Town> later;
    for (const Town& town : Towns()) (town.rank <= sheet_.firstTownRank ? first : later).append(town);
    // The dots of the important towns are set before any name, so that no name lies where one of them belongs.
    first.removeIf([this](const Town& town) { return !TakeDot(town); });
    for (const Town& town : first) WriteTown(town);
    WriteCountries();
    for (const SeaName& sea : SeaNames()) {
      if (sea.maps.contains(sheet_.map)) WriteSea(sea);
    }
    for (const Town& town : later) {
      if (TakeDot(town)) WriteTown(town);
    }
  }

 private:
  // The map's towns, the most important first.
  QList<Town> Towns() const {
    QList<Town> towns = sheet_.map == MapName::NNederland ? DutchTowns() : QList<Town>();
    const QList<Town> own = towns;
    const auto isOwn = [&own](const Town& town) {
      return std::any_of(own.begin(), own.end(), [&town](const Town& other) {
        return std::hypot(other.at.lat - town.at.lat, other.at.lon - town.at.lon) < 0.1;
      });
    };
    for (const Town& town : data_.towns) {
      const int rank = town.capital ? town.rank - 1 : town.rank;
      if (rank <= sheet_.townRank && !isOwn(town)) towns.append(town);
    }
    // The data ranks some small towns before large ones next to them.
    const auto order = [](const Town& town) {
      const int large = (town.people > 300'000 ? 1 : 0) + (town.people > 1'000'000 ? 1 : 0);
      return std::tuple(town.rank - large, !town.capital, -town.people);
    };
    std::stable_sort(towns.begin(), towns.end(),
                     [&order](const Town& a, const Town& b) { return order(a) < order(b); });
    return towns;
  }

  bool TooNear(const QPointF& at) const {
    return std::any_of(dots_.begin(), dots_.end(), [&](const QPointF& dot) {
      const QPointF away = dot - at;
      return std::hypot(away.x(), away.y()) < sheet_.townGap;
    });
  }

  bool TakeDot(const Town& town) {
    const QPointF at = frame_.At(town.at);
    const QRectF dot(at.x() - 4, at.y() - 4, 8, 8);
    if (TooNear(at) || !board_.IsFree(dot)) return false;
    board_.Take(dot);
    dots_.append(at);
    return true;
  }

  // Writes a town's dot and name; leaves both out where the name would lie over another.
  void WriteTown(const Town& town) {
    const QPointF at = frame_.At(town.at);
    const bool large = town.rank <= sheet_.largeTownRank;
    const QFont font = FontOf(sheet_.townPixels + (large ? 2 : 0));
    const QFontMetricsF metrics(font);
    const double w = metrics.horizontalAdvance(town.name) + 6;
    const double h = metrics.capHeight() + metrics.descent() + 3;
    const double x = at.x();
    const double y = at.y();
    const double level = y - h / 2 + 1;
    // The places of the name that are tried: right, left, above and below, then the corners.
    const std::array<QPointF, 8> corners{{{x + 4, level},
                                          {x - 4 - w, level},
                                          {x - w / 2, y - 4 - h},
                                          {x - w / 2, y + 4},
                                          {x + 2, y - 4 - h},
                                          {x + 2, y + 4},
                                          {x - 2 - w, y - 4 - h},
                                          {x - 2 - w, y + 4}}};
    for (const QPointF& corner : corners) {
      const QRectF box(corner, QSizeF(w, h));
      if (!board_.IsFree(box) || !globe_.contains(box)) continue;
      board_.Take(box);
      DrawDot(at, town.capital, large);
      Write({box.left() + 3, box.top() + 1.5 + metrics.capHeight()}, town.name, font, MapColours::kTown, 2.6);
      return;
    }
  }

  void DrawDot(const QPointF& at, bool capital, bool large) {
    const double radius = large || capital ? 2.8 : 2.2;
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(QColor(MapColours::kHalo));
    painter_.drawEllipse(at, radius + 1.2, radius + 1.2);
    painter_.setBrush(QColor(MapColours::kTown));
    painter_.drawEllipse(at, radius, radius);
    if (!capital) return;
    painter_.setBrush(QColor(MapColours::kHalo));
    painter_.drawEllipse(at, 1.1, 1.1);
  }

  void WriteCountries() {
    const Atlas& atlas = sheet_.fine ? data_.fine : data_.coarse;
    struct Shape {
      QString name;
      NameFinder finder;
    };
    const QPainterPath waters = LargeLakes();
    QList<Shape> shapes;
    for (const Area& country : atlas.countries) {
      const QString name = CountryLabel(country.name);
      const QPainterPath path = frame_.Shape(country.rings);
      if (name.isEmpty() || !path.intersects(QRectF(QPointF(0, 0), sheet_.size))) continue;
      shapes.append({name.toUpper(), NameFinder(path, waters, sheet_.size)});
    }
    std::stable_sort(shapes.begin(), shapes.end(),
                     [](const Shape& a, const Shape& b) { return a.finder.VisibleArea() > b.finder.VisibleArea(); });
    for (const Shape& shape : shapes) WriteCountry(shape.name, shape.finder);
  }

  // The lakes that a country's name should keep off.
  QPainterPath LargeLakes() const {
    constexpr double large = 3000;  // square pixels
    QPainterPath lakes;
    for (const Area& lake : data_.lakes) {
      if (lake.rank > sheet_.lakeRank) continue;
      const QPainterPath shape = frame_.Shape(lake.rings);
      const QRectF box = shape.boundingRect();
      if (box.width() * box.height() > large) lakes.addPath(shape);
    }
    return lakes;
  }

  // Writes the name in the largest of the map's sizes in which it fits wholly inside the country; in the smallest size
  // it may stand out a little.
  void WriteCountry(const QString& name, const NameFinder& finder) {
    for (const double share : {0.99, 0.62}) {
      for (const int pixels : sheet_.countryPixels) {
        if (share < 0.9 && pixels != sheet_.countryPixels.last()) continue;
        for (const QString& text : {name, BrokenInTwo(name)}) {
          const QFont font = SpacedFont(pixels, pixels > 12 ? 0.3 : 0.16);
          const QSizeF size = SizeOf(text, font);
          const auto middle = finder.Find({size.width() + pixels * 0.8, size.height() + pixels * 0.5}, share, board_);
          if (!middle) continue;
          WriteLines(*middle, text, font, MapColours::kCountryName, MapColours::kLand);
          return;
        }
      }
    }
  }

  void WriteSea(const SeaName& sea) {
    constexpr std::array<int, 3> pixels{12, 15, 19};
    const QFont font = SpacedFont(pixels[static_cast<size_t>(sea.size)], sea.size == 0 ? 0.08 : 0.3, true);
    const QSizeF size = SizeOf(sea.text, font);
    const QPointF middle = frame_.At(sea.at);
    const QRectF box(middle.x() - size.width() / 2, middle.y() - size.height() / 2, size.width(), size.height());
    if (board_.IsFree(box)) WriteLines(middle, sea.text, font, MapColours::kSeaName, MapColours::kSea);
  }

  // The name with a line end at the gap nearest to its middle; the name itself when it has none.
  static QString BrokenInTwo(const QString& name) {
    qsizetype best = -1;
    for (qsizetype i = name.indexOf(u' '); i >= 0; i = name.indexOf(u' ', i + 1)) {
      if (best < 0 || std::abs(2 * i - name.size()) < std::abs(2 * best - name.size())) best = i;
    }
    QString broken = name;
    if (best >= 0) broken[best] = u'\n';
    return broken;
  }

  static QSizeF SizeOf(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    double width = 0;
    const QStringList lines = text.split(u'\n');
    for (const QString& line : lines) width = std::max(width, metrics.horizontalAdvance(line));
    return {width, metrics.capHeight() + static_cast<double>(lines.size() - 1) * LinePitch(font)};
  }

  static double LinePitch(const QFont& font) { return font.pixelSize() * 1.35; }

  void WriteLines(const QPointF& middle, const QString& text, const QFont& font, QRgb colour, QRgb halo) {
    const QFontMetricsF metrics(font);
    const QSizeF size = SizeOf(text, font);
    board_.Take(QRectF(middle.x() - size.width() / 2 - 3, middle.y() - size.height() / 2 - 3, size.width() + 6,
                       size.height() + 6));
    double baseline = middle.y() - size.height() / 2 + metrics.capHeight();
    for (const QString& line : text.split(u'\n')) {
      // The space after the last letter is not seen, so the line moves half of it to the right.
      const double width = metrics.horizontalAdvance(line) - font.letterSpacing();
      Write({middle.x() - width / 2, baseline}, line, font, colour, 2, halo);
      baseline += LinePitch(font);
    }
  }

  void Write(const QPointF& baseline, const QString& text, const QFont& font, QRgb colour, double haloWidth,
             QRgb halo = MapColours::kHalo) {
    const QPointF at(std::round(baseline.x()), std::round(baseline.y()));
    QPainterPath outline;
    outline.addText(at, font, text);
    QColor light(halo);
    light.setAlpha(215);
    painter_.strokePath(outline, QPen(light, haloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setFont(font);
    painter_.setPen(QColor(colour));
    painter_.drawText(at, text);
  }

  const MapFrame& frame_;
  const MapSheet& sheet_;
  const Geodata& data_;
  QPainter& painter_;
  QPainterPath globe_;
  LabelBoard board_;
  QList<QPointF> dots_;
};

}  // namespace

void DrawLabels(const MapFrame& frame, const Geodata& data, QPainter& painter) {
  MapLabels(frame, data, painter).Draw();
}
