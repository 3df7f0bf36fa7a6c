// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/lookup_menus.h"

#include <QUrl>
#include <cmath>

#include "callbook/db_rec.h"
#include "station/callsign.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kMapLimit = 89.0;  // degrees of latitude; no station, but the end of a map

template <typename Lines>
QList<MenuEntry> EntriesOf(const Program& program, const Lines& lines, const QList<int>& notYet) {
  QList<MenuEntry> entries;
  for (const TextLine line : lines) {
    MenuEntry entry;
    entry.text = program.language[line];
    entry.index = static_cast<int>(entries.size());
    entry.enabled = !notYet.contains(entry.index);
    entries.append(entry);
  }
  return entries;
}

// A line of the address as a part of a path.
QByteArray PlaceWord(const QString& line) {
  return QUrl::toPercentEncoding(line.trimmed().replace(u' ', u'+'), "+");
}

}  // namespace

QList<MenuEntry> LookupMapEntries(const Program& program, const QString& call, bool hasPosition,
                                  const LookupNotYet& notYet) {
  QList<MenuEntry> entries = EntriesOf(program, MenuLines::kLookupMaps, notYet.maps);
  for (MenuEntry& entry : entries) {
    entry.text.replace("??"_L1, ShownCall(call, program.ZeroGlyph));
    if (!hasPosition) entry.enabled = false;
  }
  return entries;
}

QList<MenuEntry> LookupPictureEntries(const Program& program, const LookupNotYet& notYet) {
  return EntriesOf(program, MenuLines::kLookupPicture, notYet.picture);
}

QString SatelliteViewUrl(const Hosts& hosts, const TargetLocation& target, const QString& call) {
  const QString lat = CoordinateText(target.TargetLat);
  const QString lon = CoordinateText(target.TargetLon);
  const bool real = IsKnownPosition(target.TargetLat, target.TargetLon) && std::abs(target.TargetLat) != kMapLimit;
  const QString address =
      QString::fromLatin1(PlaceWord(target.Add1) + ',' + PlaceWord(target.Add2) + ',' + PlaceWord(target.Ctry));
  const QString place = real ? lat + u',' + lon : address;
  return hosts.Maps + "/maps/place/"_L1 + place + "/@"_L1 + lat + u',' + lon + ",19z/data=!3m1!1e3*"_L1 + call;
}
