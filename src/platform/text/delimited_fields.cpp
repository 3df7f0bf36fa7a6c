// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/delimited_fields.h"

#include "platform/text/text_file.h"

namespace {

// Takes the next field off the line, with the comma behind it. False: that was the last one of the line.
bool TakeField(QStringView& line, QString& field) {
  while (line.startsWith(u' ')) line = line.sliced(1);
  field.clear();
  if (line.startsWith(u'"')) {
    const qsizetype close = line.indexOf(u'"', 1);
    const qsizetype end = close < 0 ? line.size() : close;
    field = line.sliced(1, end - 1).toString();
    line = line.mid(end + 1);
  }
  const qsizetype comma = line.indexOf(u',');
  field += comma < 0 ? line : line.first(comma);
  line = comma < 0 ? QStringView() : line.sliced(comma + 1);
  return comma >= 0;
}

}  // namespace

QStringList SplitFields(const QString& text) {
  QStringList fields;
  QString field;
  const QStringList lines = SplitLines(text);
  for (const QString& line : lines) {
    QStringView rest(line);
    bool more = true;
    while (more) {
      more = TakeField(rest, field);
      fields.append(field);
    }
  }
  return fields;
}
