// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/feed_parser.h"

#include <algorithm>

#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kModeLength = 3;
constexpr qsizetype kDigitsBeforePoint = 4;  // looked at in a frequency
constexpr qsizetype kDigitsBehindPoint = 3;
// A call stands in the first few characters of a field: what follows a thousand of them is no part of it.
constexpr qsizetype kLongestCallField = 1000;

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

QStringView WithoutReturn(QStringView line) {
  return line.endsWith(u'\r') ? line.chopped(1) : line;
}

// Hands each element from 1 on to the reader.
template <typename Reader>
void ForEachElement(const QString& reply, QStringView separator, FeedLoop loop, const Reader& read) {
  const QStringView all(reply);
  qsizetype start = all.indexOf(separator);
  while (start >= 0) {
    start += separator.size();
    const qsizetype end = all.indexOf(separator, start);
    if (end < 0 && loop == FeedLoop::ToLastButOne) return;
    read(end < 0 ? all.sliced(start) : all.sliced(start, end - start));
    start = end;
  }
}

// The call of a field; empty for one that is not to be reported.
QString ReportedCall(QStringView field, const QStringList& lstBadCalls) {
  QString call = field.left(kLongestCallField).toString();
  call = CleanCall(call);
  return IsBadCall(call, lstBadCalls) ? QString() : call;
}

void Add(FeedRows& result, OnAirRow row) {
  if (result.rows.size() < kMostFeedRows) {
    result.rows.append(std::move(row));
  } else {
    ++result.leftOut;
  }
}

QString CgiMode(QStringView line, qsizetype dash) {
  const QStringView mode = line.mid(dash + 1, kModeLength);
  return mode.contains("JT"_L1) ? u"JT"_s : mode.toString();
}

// MHz with three decimals become the digits of kHz. The walk to the left looks for the character before the number and
// gives up after four digits: with as many straight before the point, as 1296.500 has, the frequency stays empty.
QString CgiFrequency(QStringView line) {
  const qsizetype point = line.indexOf(u'.');
  if (point < 0) {
    if (line.contains("PEANUT"_L1)) return u"PEANUT"_s;
    return line.contains("VRadio"_L1) ? u"VRadio"_s : QString();
  }
  for (qsizetype at = point - 1; at >= std::max<qsizetype>(0, point - kDigitsBeforePoint); --at) {
    if (IsDigit(line[at])) continue;
    QString digits = line.mid(at + 1, point + kDigitsBehindPoint - at).toString();
    digits.remove(u'.').remove(u',');
    return digits.isEmpty() ? u"0"_s : digits;
  }
  return {};
}

}  // namespace

bool HasFailed(const QString& reply) {
  return reply.isEmpty() || reply.contains("Error"_L1);
}

FeedRows ParseCgiReply(const QString& reply, FeedLoop loop, const QStringList& lstBadCalls) {
  FeedRows result;
  ForEachElement(reply, u"\n", loop, [&](QStringView element) {
    QStringView line = WithoutReturn(element);
    line = line.left(line.indexOf(u'_'));
    const qsizetype dash = line.indexOf(u'-');
    if (dash < 0) return;
    const QString call = ReportedCall(line.first(dash), lstBadCalls);
    if (!call.isEmpty()) Add(result, {call, CgiMode(line, dash), CgiFrequency(line), {}});
  });
  return result;
}

FeedRows ParseTextFile(const QString& reply, FeedLoop loop, const QStringList& lstBadCalls) {
  FeedRows result;
  // A file that was stored on another system has line feeds only.
  const QStringView separator = reply.contains("\r\n"_L1) ? u"\r\n" : u"\n";
  ForEachElement(reply, separator, loop, [&](QStringView line) {
    // Four fields are wanted: a line of underscores is not split into millions.
    std::array<QStringView, 4> fields;
    qsizetype start = 0;
    for (QStringView& field : fields) {
      if (start > line.size()) break;
      const qsizetype end = line.indexOf(u'_', start);
      field = end < 0 ? line.sliced(start) : line.sliced(start, end - start);
      start = end < 0 ? line.size() + 1 : end + 1;
    }
    const QString call = ReportedCall(fields[0], lstBadCalls);
    if (call.isEmpty()) return;
    const QString frequency = fields[2].isEmpty() ? u"0"_s : fields[2].toString();
    Add(result, {call, fields[1].toString(), frequency, fields[3].toString()});
  });
  return result;
}
