// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/numbers.h"

#include <QLocale>
#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

bool IsDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

struct LeadingNumber {
  double value = 0;
  qsizetype end = 0;  // behind its last character; 0: there is none
};

LeadingNumber ReadLeadingNumber(const QString& text) {
  qsizetype start = 0;
  while (start < text.size() && (text.at(start) == u' ' || text.at(start) == u'\t')) {
    ++start;
  }
  qsizetype end = start;
  if (end < text.size() && (text.at(end) == u'-' || text.at(end) == u'+')) {
    ++end;
  }
  bool pointSeen = false;
  bool digitSeen = false;
  for (; end < text.size() && (IsDigit(text.at(end)) || (text.at(end) == u'.' && !pointSeen)); ++end) {
    pointSeen = pointSeen || text.at(end) == u'.';
    digitSeen = digitSeen || text.at(end) != u'.';
  }
  if (!digitSeen) {
    return {};
  }
  const double value = QStringView(text).sliced(start, end - start).toDouble();
  return {std::isfinite(value) ? value : 0, end};
}

}  // namespace

double Val(const QString& text) {
  return ReadLeadingNumber(text).value;
}

bool HasLeadingNumber(const QString& text) {
  return ReadLeadingNumber(text).end > 0;
}

bool IsPlainNumber(const QString& text) {
  const qsizetype end = ReadLeadingNumber(text).end;
  return end > 0 && QStringView(text).sliced(end).trimmed().isEmpty();
}

int WholeNumber(double value) {
  constexpr double lowest = std::numeric_limits<int>::min();
  constexpr double highest = std::numeric_limits<int>::max();
  return static_cast<int>(std::lround(std::clamp(value, lowest, highest)));
}

QString NumberText(double value) {
  if (value == 0 || !std::isfinite(value)) {
    return u"0"_s;
  }
  return QString::number(value, 'f', QLocale::FloatingPointShortest);
}
