// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/location_map.h"

#include <QLocale>
#include <cmath>

#include "maps/map_geometry.h"
#include "maps/map_projection.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kHighestOwnLat = 89;
constexpr double kStub = 100;  // pixels from own position towards a target off the picture
constexpr double kTargetMark = 25;
constexpr QColor kBlue(0, 0, 255);
constexpr QColor kTargetRed(208, 0, 0);

std::optional<QPointF> PixelOf(MapName map, double& lat, double& lon) {
  if (map == MapName::None || std::isnan(lat) || std::isnan(lon)) return std::nullopt;
  int x = 0;
  int y = 0;
  LatLonToPixel(map, lat, lon, x, y);
  return QPointF(x, y);
}

// A point on the very edge is not off.
bool IsOff(const QPointF& point, const QSize& picture) {
  return point.x() < 0 || point.y() < 0 || point.x() > picture.width() || point.y() > picture.height();
}

bool IsInside(const QPointF& point, const QSize& picture) {
  return point.x() > 0 && point.y() > 0 && point.x() < picture.width() && point.y() < picture.height();
}

// Draws one map. The order of its calls is the order in which things lie upon each other.
class Sketch {
 public:
  Sketch(Program& program, const MapTarget& target, const LabelMeasure& measure)
      : program_(program), target_(target), measure_(measure) {
    const Config& config = program_.config;
    if (IsKnownPosition(config.MyLat, config.MyLon) && IsKnownPosition(target.lat, target.lon)) {
      way_ = GetDistAz(config.MyLat, config.MyLon, target.lat, target.lon, config.DistUnit);
    }
  }

  // Behind the call: distance and direction, or why there are none.
  QString DistanceText() const {
    const LanguageTexts& language = program_.language;
    if (!IsKnownPosition(target_.lat, target_.lon)) {
      return u"  "_s + QString(language[TextLine::kNoLocation]).replace("??"_L1, target_.call).trimmed() + u' ';
    }
    if (!way_) return u"  "_s + language[TextLine::kSetLocation].trimmed() + u' ';
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() & ~QLocale::OmitGroupSeparator);
    const TextLine unit = program_.config.DistUnit == kUnitMiles ? TextLine::kMilesWord : TextLine::kKilometersWord;
    return u"  Dx "_s + locale.toString(way_->distance, 'f', 0) + u' ' + language[unit].trimmed() + u"  Az "_s +
           QString::number(way_->azimuth, 'f', 0) + u"° "_s;
  }

  // From own position 100 pixels towards a target that is off the picture, the label at the end.
  void Stub(const QPointF& own) {
    const double angle = ((way_ ? way_->azimuth : 0) - 90) / 180 * PI2;
    const QPointF end = own + QPointF(std::cos(angle), std::sin(angle)) * kStub;
    overlay_.lines.append({own, end, kBlue, 2});
    const QString text = u" To "_s + target_.call + DistanceText();
    CallLabel(text, end.x(), end.y() - 2, kBlue, 2);
  }

  void Target(const QPointF& target) {
    overlay_.circles.append({target, 4, kTargetRed, 3, false});
    overlay_.circles.append({target, kTargetMark, kTargetRed, 3, false});
    CallLabel(target_.call + u"\r\n"_s + DistanceText(), target.x(), target.y() - kTargetMark, kTargetRed, 3);
  }

  void Own(const QPointF& own) {
    overlay_.circles.append({own, 2.5, kBlue, 4, true});  // half a pixel under the ring, so that no seam shows
    overlay_.circles.append({own, 4, kBlue, 4, false});
    MapOverlay::Label me;
    me.name = u"lblMe"_s;
    me.text = program_.language[TextLine::kMeWord];
    me.place = PlaceAbove(me.text, own.x(), own.y() - 6);
    me.box = me.place.adjusted(-1, -1, 3, 3);
    me.boxColour = kBlue;
    overlay_.labels.append(me);
  }

  MapOverlay Take() { return std::move(overlay_); }

 private:
  // Centred on x, the lower edge at bottom.
  QRectF PlaceAbove(const QString& text, double x, double bottom) const {
    const QSizeF size = measure_(text);
    return {QPointF(x - size.width() / 2, bottom - size.height()), size};
  }

  void CallLabel(const QString& text, double x, double bottom, const QColor& colour, double width) {
    MapOverlay::Label label;
    label.name = u"lblCall(0)"_s;
    label.text = text;
    label.place = PlaceAbove(text, x, bottom);
    label.box = label.place.adjusted(-2, -2, 4, 4);
    label.boxColour = colour;
    label.boxWidth = width;
    label.clickable = true;
    overlay_.labels.append(label);
  }

  Program& program_;
  const MapTarget& target_;
  const LabelMeasure& measure_;
  std::optional<DistAz> way_;  // none where one of the two positions is unknown
  MapOverlay overlay_;
};

}  // namespace

QString MapTitle(const QStringList& lstMap, int index) {
  return lstMap.value(index).chopped(std::min<qsizetype>(4, lstMap.value(index).size()));
}

QStringList MapListNames(const QStringList& lstMap) {
  QStringList names = lstMap;
  for (QString& name : names) {
    name.remove(" Map.jpg"_L1, Qt::CaseInsensitive).remove(" Map.gif"_L1, Qt::CaseInsensitive);
  }
  return names;
}

int BestMapIndex(const QStringList& lstMap, double lat, double lon) {
  const QLatin1String name = FindMapName(lat, lon);
  int index = 0;
  while (index < lstMap.size() && !lstMap.at(index).contains(name, Qt::CaseInsensitive)) ++index;
  return index;
}

LocationMap BuildLocationMap(Program& program, MapTarget& target, const QSize& picture, const LabelMeasure& measure) {
  Config& config = program.config;
  // The conic maps have no place for the poles; the value stays changed for the rest of the run.
  if (config.MyLat > kHighestOwnLat) config.MyLat = kHighestOwnLat;
  if (config.MyLat < -kHighestOwnLat) config.MyLat = -kHighestOwnLat;

  const MapName map = MapOfName(MapTitle(program.lstMap, config.MapIndex));
  std::optional<QPointF> own;
  if (config.MyLat != 0 || config.MyLon != 0) own = PixelOf(map, config.MyLat, config.MyLon);
  const std::optional<QPointF> aim = PixelOf(map, target.lat, target.lon);

  Sketch sketch(program, target, measure);
  LocationMap result;
  result.info = (target.call + sketch.DistanceText()).trimmed();
  if (!aim) return result;
  if (own && IsOff(*aim, picture) && IsInside(*own, picture)) {
    sketch.Stub(*own);
    result.keep = own;
  } else {
    sketch.Target(*aim);
    result.keep = aim;
  }
  if (own) sketch.Own(*own);
  result.overlay = sketch.Take();
  return result;
}
