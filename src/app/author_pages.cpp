// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/author_pages.h"

#include <algorithm>

#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kTimeBehind = 12;  // characters from the start of "BR" to the time
constexpr qsizetype kTimeLength = 8;
constexpr auto kVersionMark = "Omni-Perch ver"_L1;
constexpr qsizetype kVersionBehind = 15;  // characters from the start of the mark to the version
constexpr qsizetype kVersionLength = 4;
constexpr qsizetype kMostBadCalls = 10'000;  // each sender's call is compared with all of them

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

// What a list of calls does not hold: control characters but line ends and tabs, and anything beyond Latin-1.
bool IsNoText(QChar c) {
  return c.category() == QChar::Other_Control ? c != u'\r' && c != u'\n' && c != u'\t' : c.unicode() > 0xFF;
}

}  // namespace

std::optional<QTime> UtcTimeIn(const QByteArray& page) {
  const QString text = DecodeText(page);
  const qsizetype found = text.indexOf("BR"_L1);
  if (found < 0) return std::nullopt;
  const QString digits = text.mid(found + kTimeBehind, kTimeLength);
  const QTime time = QTime::fromString(digits, u"HH:mm:ss"_s);
  return digits.size() == kTimeLength && time.isValid() ? std::optional(time) : std::nullopt;
}

QDateTime NearestMoment(const QDateTime& now, QTime timeOfDay) {
  QDateTime nearest(now.date(), timeOfDay, Qt::UTC);
  for (const int days : {-1, 1}) {
    const QDateTime other = QDateTime(now.date(), timeOfDay, Qt::UTC).addDays(days);
    if (qAbs(now.secsTo(other)) < qAbs(now.secsTo(nearest))) nearest = other;
  }
  return nearest;
}

QString NewerVersionIn(const QByteArray& page, const QString& ownVersion) {
  const QString text = DecodeText(page);
  const qsizetype found = text.indexOf(kVersionMark);
  if (found < 0) return {};
  const QString version = text.mid(found + kVersionBehind, kVersionLength);
  const bool hasShape = version.size() == kVersionLength && IsDigit(version.at(0)) && version.at(1) == u'.' &&
                        IsDigit(version.at(2)) && IsDigit(version.at(3));
  // As texts: 10.0 is lower than 6.50, which is wanted.
  return hasShape && version > ownVersion ? version : QString();
}

std::optional<QStringList> BadCallsIn(const QByteArray& page) {
  const QString text = DecodeText(page);
  const bool isPage = text.trimmed().startsWith(u'<');
  if (isPage || std::any_of(text.cbegin(), text.cend(), IsNoText)) return std::nullopt;
  if (text.count("\r\n"_L1) >= kMostBadCalls) return std::nullopt;
  const QStringList lines = text.split("\r\n"_L1);
  // Wanted: a reply of one line without a line break empties the list.
  return lines.size() > 1 ? lines : QStringList();
}
