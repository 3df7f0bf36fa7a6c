// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/propagation_map.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

#include "maps/station_marks.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QColor kBlue(0, 0, 255);
constexpr QColor kPathRed(176, 32, 32);
constexpr double kPathWidth = 2;
constexpr double kFocusedWidth = 5;
constexpr double kRimWidth = 9;        // of the white below it, which parts it from a crowd of others
constexpr qsizetype kMostSpoken = 30;  // paths that a screen reader is told of beside the map

// The label of a call, to be laid out beside its dot. It takes a dark text on the light ground of the desktop's tips.
MapOverlay::Label CallLabel(qsizetype number, const QString& call, QChar zeroGlyph, const QPointF& at,
                            const LabelMeasure& measure) {
  MapOverlay::Label label;
  label.name = u"lblCall(%1)"_s.arg(number);
  label.id = call;
  label.text = u' ' + ShownCall(call, zeroGlyph) + u' ';
  const QSizeF text = measure(label.text);
  label.place = QRectF(at, QSizeF(text.width() + std::ceil(text.height() * kMapCloseSign), text.height()));
  label.anchor = at;
  label.clickable = true;
  label.closable = true;
  return label;
}

// For lupdate, which wants a class.
struct PropagationMap {
  Q_DECLARE_TR_FUNCTIONS(PropagationMap)
};

QString InfoText(const Program& program, const PropagationPaths& paths, const PropagationLook& look) {
  QString text = QString(program.language[TextLine::kPathCount]).replace("xxx"_L1, QString::number(paths.pathCount));
  if (look.outdated) {
    text = text.trimmed() + u'\n' + PropagationMap::tr("The newest report is older than this period");
  }
  if (look.leftOut > 0) {
    text = text.trimmed() + u'\n' +
           PropagationMap::tr("%n older report(s) were left out.", nullptr, static_cast<int>(look.leftOut));
  }
  return text.trimmed();
}

}  // namespace

MapDrawing BuildPropagationMap(const Program& program, const PropagationPaths& paths, const PropagationLook& look,
                               const MapSurface& surface) {
  MapDrawing result;
  result.info = InfoText(program, paths, look);
  StationMarks marks(surface);
  std::vector<bool> seen;
  for (std::size_t i = 0; i < paths.spots.size(); ++i) {
    StationSpot spot = paths.spots[i];
    const std::optional<QPointF> at = marks.PointOf(spot.lat, spot.lon);
    seen.push_back(at && marks.IsInside(*at));
    if (!seen.back()) continue;
    const auto number = static_cast<qsizetype>(i);
    const QString& call = paths.calls.at(number);
    marks.Dot(*at, kBlue);
    if (!look.imgX.contains(call)) marks.Label(CallLabel(number, call, program.ZeroGlyph, *at, surface.measure));
  }
  QStringList unseen;
  const auto draw = [&](const PropagationPath& path, const QColor& colour, double width) {
    const StationSpot& from = paths.spots[static_cast<std::size_t>(path.from)];
    const StationSpot& to = paths.spots[static_cast<std::size_t>(path.to)];
    marks.Path(from.lat, from.lon, to.lat, to.lon, colour, width);
  };
  for (const PropagationPath& path : paths.paths) {
    draw(path, kPathRed, kPathWidth);
    const bool whole = seen[static_cast<std::size_t>(path.from)] && seen[static_cast<std::size_t>(path.to)];
    if (!whole && unseen.size() < kMostSpoken)
      unseen.append(paths.calls.at(path.from) + u" - "_s + paths.calls.at(path.to));
  }
  const PropagationPath chosen{paths.calls.indexOf(look.focused), paths.calls.indexOf(look.partner)};
  const auto isChosen = [&chosen](const PropagationPath& path) {
    return path == chosen || path == PropagationPath{chosen.to, chosen.from};
  };
  if (std::any_of(paths.paths.begin(), paths.paths.end(), isChosen)) {
    draw(chosen, Qt::white, kRimWidth);
    draw(chosen, kPathRed, kFocusedWidth);
  }
  result.spoken = unseen.join(u", "_s);
  result.overlay = marks.Take();
  return result;
}

QString NextPartner(const PropagationPaths& paths, const QString& station, const QString& present, int step) {
  const qsizetype number = paths.calls.indexOf(station);
  QStringList partners;
  for (const PropagationPath& path : paths.paths) {
    if (path.from == number && path.to != number) partners.append(paths.calls.at(path.to));
    if (path.to == number && path.from != number) partners.append(paths.calls.at(path.from));
  }
  partners.removeDuplicates();
  std::sort(partners.begin(), partners.end());
  if (partners.isEmpty()) return {};
  const qsizetype at = partners.indexOf(present);
  if (at < 0) return step > 0 ? partners.first() : partners.last();
  return partners.at((at + step + partners.size()) % partners.size());
}
