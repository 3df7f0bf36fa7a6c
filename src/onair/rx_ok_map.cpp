// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/rx_ok_map.h"

#include <algorithm>

#include "maps/station_marks.h"
#include "station/callsign.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kLineWidth = 2;
constexpr double kToStubWidth = 2;
constexpr double kFromStubWidth = 3;
constexpr double kStubLabelGap = 2;
constexpr double kStubSpot = 16;  // pixels along and across, under the pointer
constexpr double kHalfTurn = 180;
constexpr qsizetype kMostSpoken = 30;  // stations that are not drawn and of which a screen reader is told

// The calls of all sites, to be searched as a list box is: a station has a site when a listed call begins with its own.
class SiteCalls {
 public:
  explicit SiteCalls(const SiteTable& sites) {
    for (const QString& call : sites.lstCalls) calls_.append(call.toUpper());
    std::sort(calls_.begin(), calls_.end());
  }
  bool Has(const QString& call) const {
    const auto found = std::lower_bound(calls_.cbegin(), calls_.cend(), call);
    return found != calls_.cend() && found->startsWith(call);
  }

 private:
  QStringList calls_;
};

// The marks of one drawing.
class RxOkDrawing {
 public:
  RxOkDrawing(const Program& program, const MapSurface& surface)
      : program_(program), surface_(surface), marks_(surface) {
    double lat = program.config.MyLat;
    double lon = program.config.MyLon;
    if (lat != 0 || lon != 0) own_ = marks_.PointOf(lat, lon);
    if (!own_ || !marks_.IsInside(*own_)) return;
    taken_.append(marks_.OwnLabel(*own_, program.language[TextLine::kMeWord]));
  }

  // False for a station that is not on the map in any way.
  bool Draw(qsizetype number, const RxOkStation& station);
  // The point to be kept in view.
  std::optional<QPointF> Keep() const { return own_ && marks_.IsInside(*own_) ? own_ : std::nullopt; }
  MapOverlay Take() { return marks_.Take(); }

 private:
  QString Shown(const RxOkStation& station) const { return ShownCall(station.row.call, program_.ZeroGlyph); }
  QString WayText(const DistAz& way) const {
    return QString::number(way.distance, 'f', 0) + u' ' + DistUnitText(program_.config.DistUnit) + u"   "_s +
           QString::number(way.azimuth, 'f', 0) + u"° "_s;
  }
  QString TipText(const RxOkStation& station, const DistAz& way) const {
    return station.row.text + u"   "_s + WayText(way) + u"\r\n "_s + station.row.date + u" UTC "_s;
  }
  MapOverlay::Label Label(qsizetype number, const RxOkStation& station, const QString& text, const DistAz& way) const;
  void AddAtStub(MapOverlay::Label label, const QPointF& from, const QPointF& end);
  void DrawStubTo(qsizetype number, const MapOverlay::Label& label, const QColor& colour, double azimuth);
  void DrawStubFromMe(qsizetype number, const MapOverlay::Label& label, const QPointF& at, const QColor& colour,
                      double azimuth);

  const Program& program_;
  const MapSurface& surface_;
  StationMarks marks_;
  std::optional<QPointF> own_;
  QList<QRectF> taken_;  // by labels at the place that is given for a stub
};

MapOverlay::Label RxOkDrawing::Label(qsizetype number, const RxOkStation& station, const QString& text,
                                     const DistAz& way) const {
  MapOverlay::Label label;
  label.name = u"lblCall(%1)"_s.arg(number);
  label.id = station.row.call;
  label.text = text;
  label.back = station.lastImage ? kRxLastImage : kRxPreviousImage;
  label.clickable = true;
  label.tip = TipText(station, way);
  return label;
}

bool RxOkDrawing::Draw(qsizetype number, const RxOkStation& station) {
  const Config& config = program_.config;
  double lat = station.place.lat;
  double lon = station.place.lon;
  if (!station.place.IsKnown() || !own_) return false;
  const std::optional<QPointF> at = marks_.PointOf(lat, lon);
  if (!at) return false;
  const DistAz way = GetDistAz(config.MyLat, config.MyLon, station.place.lat, station.place.lon, config.DistUnit);
  const QColor colour = station.hasSite ? kRxHasSite : kRxNoSite;
  if (marks_.IsOff(*at)) {
    if (marks_.IsOff(*own_)) return false;
    DrawStubTo(number, Label(number, station, u" To "_s + Shown(station) + u"  "_s + WayText(way), way), colour,
               way.azimuth);
    return true;
  }
  MapOverlay::Label label = Label(number, station, Shown(station), way);
  label.place = QRectF(*at, surface_.measure(label.text));
  label.anchor = at;
  marks_.Dot(*at, colour);
  marks_.Label(label);
  if (marks_.IsOff(*own_)) {
    DrawStubFromMe(number, label, *at, colour, way.azimuth);
  } else {
    marks_.Path(config.MyLat, config.MyLon, station.place.lat, station.place.lon, colour, kLineWidth);
  }
  return true;
}

// Adds a label at a stub's end: above it where the stub points upward, below it otherwise. Where another label of a
// stub has that place already, the label is laid out around the end like those of stations on the picture.
void RxOkDrawing::AddAtStub(MapOverlay::Label label, const QPointF& from, const QPointF& end) {
  label.place = end.y() < from.y() ? marks_.PlaceAbove(label.text, end, kStubLabelGap)
                                   : marks_.PlaceBelow(label.text, end, kStubLabelGap);
  label.place = marks_.MovedInside(label.place, 1);
  const auto covers = [&label](const QRectF& other) { return other.intersects(label.place); };
  if (std::any_of(taken_.cbegin(), taken_.cend(), covers)) {
    label.anchor = end;
  } else {
    taken_.append(label.place);
  }
  marks_.Label(label);
}

// A stub from the own position towards a station that is off the picture, with its label at the end. lblFrom has no
// text of its own here: it is a spot on the stub whose tool text says what the label says.
void RxOkDrawing::DrawStubTo(qsizetype number, const MapOverlay::Label& label, const QColor& colour, double azimuth) {
  const QPointF end = marks_.Stub(*own_, azimuth, colour, kToStubWidth);
  const QPointF reach(kStubSpot / 2, kStubSpot / 2);
  const QPointF middle = (*own_ + end) / 2;
  MapOverlay::Label from;
  from.name = u"lblFrom(%1)"_s.arg(number);
  from.text = label.text;
  from.place = QRectF(middle - reach, middle + reach);
  from.dot = true;
  marks_.Label(from);
  AddAtStub(label, *own_, end);
}

// A stub from a station towards the own position, which is off the picture. azimuth: from the own position to the
// station, so that the stub runs in the opposite direction.
void RxOkDrawing::DrawStubFromMe(qsizetype number, const MapOverlay::Label& label, const QPointF& at,
                                 const QColor& colour, double azimuth) {
  MapOverlay::Label from;
  from.name = u"lblFrom(%1)"_s.arg(number);
  from.text = u" From Me "_s;
  from.tip = label.tip;
  AddAtStub(from, at, marks_.Stub(at, azimuth + kHalfTurn, colour, kFromStubWidth));
}

}  // namespace

QList<RxOkStation> RxOkStations(const RxOkList& list, const SiteTable& sites, RxOkLookups& places) {
  const SiteCalls calls(sites);
  QList<RxOkStation> stations;
  for (const RxOkRow& row : list.Rows()) {
    // A site whose stored latitude is 0 has no position of its own.
    const RxOkPlace site{row.lat, row.lon};
    stations.append(
        {row, site.IsKnown() ? site : places.PlaceOf(row.call), list.IsOfLastImage(row), calls.Has(row.call)});
  }
  return stations;
}

MapDrawing BuildRxOkMap(const Program& program, const QList<RxOkStation>& stations, const MapSurface& surface) {
  RxOkDrawing drawing(program, surface);
  QStringList unseen;
  for (qsizetype i = 0; i < stations.size(); ++i) {
    if (!drawing.Draw(i, stations.at(i)) && unseen.size() < kMostSpoken) unseen.append(stations.at(i).row.call);
  }
  MapDrawing result;
  result.info = program.language[TextLine::kRxInfo].trimmed() + u"  ("_s + QString::number(stations.size()) + u')';
  result.spoken = unseen.join(u", "_s);
  result.keep = drawing.Keep();
  result.overlay = drawing.Take();
  return result;
}
