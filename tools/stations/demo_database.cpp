// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo_database.h"

#include <QString>
#include <algorithm>
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

}  // namespace

QByteArray DemoDatabase() {
  std::vector<QByteArray> records;
  for (const Operator& person : Operators()) {
    if (person.filed != Filed::Not) records.push_back(Record(person));
  }
  std::sort(records.begin(), records.end());
  QByteArray file;
  for (const QByteArray& record : records) file += record;
  return file;
}
