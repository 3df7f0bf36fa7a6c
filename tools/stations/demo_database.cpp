// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo_database.h"

#include <QString>
#include <algorithm>
#include <array>
#include <vector>

#include "operators.h"

namespace {

QByteArray Record(const Operator& person) {
  const auto field = [](const QString& text, qsizetype width) {
    return text.toLatin1().leftJustified(width, ' ', true);
  };
  const bool isPlaced = person.filed == Filed::Whole;
  const auto degrees = [&](double value) { return field(QString::number(isPlaced ? value : 0), 15); };
  return field(person.call.toString(), 6) + field(person.name.toString(), 25) + field(person.street.toString(), 30) +
         field(person.town.toString(), 30) + field(person.country.toString(), 30) + degrees(person.lat) +
         degrees(person.lon) + field(person.licence.toString(), 12) +
         field(person.born > 0 ? QString::number(person.born) : QString(), 4);
}

// Who receives at a site. A site of the list need not be a person's.
Operator OperatorOf(const DemoSite& site, std::size_t index) {
  static constexpr std::array<QStringView, 9> kNames{u"Agnes", u"Björn", u"Celia",   u"Donald", u"Elena",
                                                     u"Félix", u"Greta", u"Hugo R.", u"Irma"};
  static constexpr std::array<QStringView, 7> kTowns{u"Aldermere", u"Bellhaven",       u"Castlebrook",   u"Dunwater",
                                                     u"Eastholm",  u"Fairlight Cross", u"Greenford Hill"};
  return {site.call,       kNames.at(index % kNames.size()),
          u"Antenna Lane", kTowns.at(index % kTowns.size()),
          site.region,     site.lat,
          site.lon};
}

}  // namespace

QByteArray DemoDatabase(const std::vector<DemoSite>& sites) {
  std::vector<QByteArray> records;
  for (const Operator& person : Operators()) {
    if (person.filed != Filed::Not) records.push_back(Record(person));
  }
  for (std::size_t i = 0; i < sites.size(); ++i) {
    if (!sites[i].region.isEmpty()) records.push_back(Record(OperatorOf(sites[i], i)));
  }
  std::sort(records.begin(), records.end());
  QByteArray file;
  for (const QByteArray& record : records) file += record;
  return file;
}
