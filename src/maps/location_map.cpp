// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/location_map.h"

#include <QLocale>

#include "maps/station_marks.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kHighestOwnLat = 89;
constexpr double kTargetMark = 25;  // radius in pixels
constexpr double kCallBox = 4;      // how far a call's frame reaches beyond its label, at most
constexpr QColor kBlue(0, 0, 255);
constexpr QColor kTargetRed(208, 0, 0);

// Distance and direction from the own position to the target; none where one of the two is unknown.
std::optional<DistAz> WayTo(const Config& config, const MapTarget& target) {
  if (!IsKnownPosition(config.MyLat, config.MyLon) || !IsKnownPosition(target.lat, target.lon)) return std::nullopt;
  return GetDistAz(config.MyLat, config.MyLon, target.lat, target.lon, config.DistUnit);
}

QString AzimuthText(const DistAz& way) {
  return u"  Az "_s + QString::number(way.azimuth, 'f', 0) + u"° "_s;
}

// The text behind the target's call: distance and direction, or why there are none.
QString DistanceText(const Program& program, const MapTarget& target, const std::optional<DistAz>& way) {
  const LanguageTexts& language = program.language;
  if (!IsKnownPosition(target.lat, target.lon)) {
    return u"  "_s + QString(language[TextLine::kNoLocation]).replace("??"_L1, target.call).trimmed() + u' ';
  }
  if (!way) return u"  "_s + language[TextLine::kSetLocation].trimmed() + u' ';
  QLocale locale;
  locale.setNumberOptions(locale.numberOptions() & ~QLocale::OmitGroupSeparator);
  const TextLine unit = program.config.DistUnit == kUnitMiles ? TextLine::kMilesWord : TextLine::kKilometersWord;
  return u"  Dx "_s + locale.toString(way->distance, 'f', 0) + u' ' + language[unit].trimmed() + AzimuthText(*way);
}

// Draws a line from the own position towards a target that is off the picture, with the target's label at the line's
// end. A label that would leave the picture is moved back onto it.
void DrawStub(StationMarks& marks, const QPointF& own, double azimuth, const QString& text) {
  const QPointF end = marks.Stub(own, azimuth, kBlue, 2);
  const QRectF place = marks.MovedInside(marks.PlaceAbove(text, end, 2), kCallBox + 1);
  marks.CallLabel(u"lblCall(0)"_s, text, place, kBlue, 2);
}

void DrawTarget(StationMarks& marks, const QPointF& at, const QString& text) {
  marks.Ring(at, 4, kTargetRed, 3);
  marks.Ring(at, kTargetMark, kTargetRed, 3);
  marks.CallLabel(u"lblCall(0)"_s, text, marks.PlaceAbove(text, at, kTargetMark), kTargetRed, 3);
}

}  // namespace

MapDrawing BuildLocationMap(Program& program, MapTarget& target, const MapSurface& surface) {
  Config& config = program.config;
  // The conic maps have no place for the poles. The limited latitude stays in the configuration for the rest of the
  // run.
  if (config.MyLat > kHighestOwnLat) config.MyLat = kHighestOwnLat;
  if (config.MyLat < -kHighestOwnLat) config.MyLat = -kHighestOwnLat;

  StationMarks marks(surface);
  std::optional<QPointF> own;
  // PointOf() moves a longitude below -170 past 180 on the World map, so give it copies: such a longitude must not be
  // saved with the configuration.
  double myLat = config.MyLat;
  double myLon = config.MyLon;
  if (myLat != 0 || myLon != 0) own = marks.PointOf(myLat, myLon);
  const std::optional<DistAz> way = WayTo(config, target);
  const std::optional<QPointF> at = marks.PointOf(target.lat, target.lon);

  const QString distance = DistanceText(program, target, way);
  MapDrawing result;
  result.info = (target.call + distance).trimmed();
  if (!at) return result;
  const bool ownShows = own && marks.IsInside(*own);
  if (marks.IsOff(*at) && ownShows) {
    DrawStub(marks, *own, way ? way->azimuth : 0, u" To "_s + target.call + distance);
    result.keep = own;
  } else {
    DrawTarget(marks, *at, target.call + u"\r\n"_s + distance);
    result.keep = at;
    // Neither the target nor the own position is on the picture: an arrow at the edge shows where the target lies.
    if (marks.IsOff(*at)) {
      const QString direction = way ? AzimuthText(*way) : QString(u' ');
      marks.EdgeArrow(*at, u"lblCall(0)"_s, u' ' + target.call + direction, kTargetRed);
    }
  }
  if (own) {
    marks.Dot(*own, kBlue);
    marks.OwnLabel(*own, program.language[TextLine::kMeWord]);
  }
  result.overlay = marks.Take();
  return result;
}
