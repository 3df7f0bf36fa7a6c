// SPDX-License-Identifier: GPL-3.0-or-later
#include "station/date_text.h"

#include <QRegularExpression>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct DateFields {
  int year = 0;
  int month = 0;
  int day = 0;
};

// The order of the fields is known only from the first field and the separator: the program's own form is month first,
// points and dashes come from day-first locales, and a year in front has four digits.
QDate DateOf(const QString& first, QChar separator, const QString& second, const QString& third) {
  const int a = first.toInt();
  const int b = second.toInt();
  const int c = third.toInt();
  const int year = c < 100 ? c + 2000 : c;
  const DateFields monthFirst{year, a, b};
  const DateFields dayFirst{year, b, a};
  std::array<DateFields, 2> orders = {monthFirst, dayFirst};
  if (first.size() > 2) {
    orders = {DateFields{a, b, c}, DateFields{a, c, b}};
  } else if (separator != u'/') {
    orders = {dayFirst, monthFirst};
  }
  for (const DateFields& fields : orders) {
    if (fields.year >= 1900 && QDate::isValid(fields.year, fields.month, fields.day)) {
      return {fields.year, fields.month, fields.day};
    }
  }
  return {};
}

QTime TimeOf(const QRegularExpressionMatch& match) {
  if (!match.hasCaptured(u"hour")) {
    return {0, 0};
  }
  int hour = match.captured(u"hour").toInt();
  const QString half = match.captured(u"half").toUpper();
  if (half == "A"_L1 && hour == 12) {
    hour = 0;
  } else if (half == "P"_L1 && hour < 12) {
    hour += 12;
  }
  return {hour, match.captured(u"minute").toInt(), match.captured(u"second").toInt()};
}

}  // namespace

QDateTime ReadDate(const QString& text) {
  static const QRegularExpression shape(
      u"^\\s*(?<a>[0-9]{1,4})\\s*(?<sep>[./-])\\s*(?<b>[0-9]{1,2})\\s*\\k<sep>\\s*(?<c>[0-9]{1,4})\\.?"
      "(?:[\\sT,]+(?<hour>[0-9]{1,2})[:.](?<minute>[0-9]{2})(?:[:.](?<second>[0-9]{2}))?"
      "\\s*(?:(?<half>[AaPp])\\.?\\s*[Mm]\\.?)?Z?)?\\s*$"_s,
      QRegularExpression::UseUnicodePropertiesOption);
  const QRegularExpressionMatch match = shape.match(text);
  if (!match.hasMatch()) {
    return {};
  }
  const QDate date =
      DateOf(match.captured(u"a"), match.captured(u"sep").at(0), match.captured(u"b"), match.captured(u"c"));
  const QTime time = TimeOf(match);
  return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

QString DateText(const QDateTime& when) {
  return when.isValid() ? when.toString(u"M/d/yyyy hh:mm") : QString();
}

QString ShownDate(QDate date, const QLocale& locale) {
  // A year of two digits could be taken for a day.
  QString format = locale.dateFormat(QLocale::ShortFormat);
  if (!format.contains("yyyy"_L1)) format.replace("yy"_L1, "yyyy"_L1);
  return locale.toString(date, format);
}
