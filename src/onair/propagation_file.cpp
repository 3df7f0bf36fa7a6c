// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/propagation_file.h"

#include <QDateTime>
#include <QHash>
#include <algorithm>
#include <array>

#include "platform/text/ansi_text.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

// Of a stranger's text, so that 100,000 rows stay below 25 MB.
constexpr qsizetype kLongestText = 24;
constexpr qsizetype kLongestMode = 8;
constexpr qsizetype kLongestField = 64;  // a call, a frequency or a file name in more bytes is none
// The texts that are kept once for all rows that hold them; beyond that a flood of different ones is not remembered.
constexpr qsizetype kMostShared = 20'000;

// Texts that come again and again are cut and cleaned once, and kept once.
class SharedTexts {
 public:
  template <typename Make>
  QString Get(QByteArrayView bytes, Make make) {
    const QByteArray key = QByteArray::fromRawData(bytes.data(), bytes.size());
    const auto known = texts_.constFind(key);
    if (known != texts_.cend()) return *known;
    QString text = make(bytes);
    text.squeeze();
    if (texts_.size() < kMostShared) texts_.insert(bytes.toByteArray(), text);
    return text;
  }

 private:
  QHash<QByteArray, QString> texts_;
};

QString CleanField(QByteArrayView bytes) {
  if (bytes.size() > kLongestField) return {};
  QString call = AnsiText(bytes);
  return CleanCall(call);
}

int Number(QByteArrayView digits) {
  int value = 0;
  for (const char digit : digits) {
    if (digit < '0' || digit > '9') return -1;
    value = value * 10 + (digit - '0');
  }
  return value;
}

// The fourteen digits in front of ".txt".
qint64 DateOf(QByteArrayView name) {
  constexpr qsizetype kDigits = 14;
  const qsizetype end = name.size() > kLongestField ? -1 : name.toByteArray().toLower().lastIndexOf(".txt");
  if (end < kDigits) return kNoDate;
  const QByteArrayView digits = name.sliced(end - kDigits, kDigits);
  const auto part = [&digits](qsizetype from, qsizetype length) { return Number(digits.sliced(from, length)); };
  const int year = part(0, 4);
  const QDate day(year, part(4, 2), part(6, 2));
  const QTime time(part(8, 2), part(10, 2), part(12, 2));
  // Year 0 is no year, and what lies before 1970 no report.
  if (year < 1970 || !day.isValid() || !time.isValid()) return kNoDate;
  constexpr qint64 kDayOf1970 = 2440588;
  return (day.toJulianDay() - kDayOf1970) * 86'400 + time.msecsSinceStartOfDay() / 1000;
}

class Reader {
 public:
  explicit Reader(qsizetype most) : most_(static_cast<std::size_t>(most)) {}

  void TakeLine(QByteArrayView line) {
    // A missing field is empty.
    std::array<QByteArrayView, 6> fields;
    qsizetype from = 0;
    for (QByteArrayView& field : fields) {
      const qsizetype end = line.indexOf('_', from);
      field = end < 0 ? line.sliced(from) : line.sliced(from, end - from);
      if (end < 0) break;
      from = end + 1;
    }
    PropagationRow row;
    row.from = calls_.Get(fields[0], CleanField);
    if (row.from.isEmpty()) return;
    row.to = calls_.Get(fields[1], CleanField);
    if (row.to.isEmpty()) return;
    row.mode = modes_.Get(fields[2].first(std::min(fields[2].size(), kLongestField)),
                          [](QByteArrayView bytes) { return AnsiText(bytes).trimmed().left(kLongestMode); });
    bool isNumber = false;
    const double kHz = fields[3].size() > kLongestField ? -1 : fields[3].toByteArray().toDouble(&isNumber);
    row.kHz = isNumber && qIsFinite(kHz) && kHz >= 0 ? kHz : -1;
    row.text = texts_.Get(fields[4].first(std::min(fields[4].size(), kLongestText)), AnsiText);
    row.date = DateOf(fields[5]);
    reports_.newest = std::max(reports_.newest, row.date);
    reports_.rows.push_back(std::move(row));
    // In steps, so that a million rows neither pile up nor are sorted one by one.
    if (reports_.rows.size() >= 2 * most_ + 1000) DropOldest();
  }

  PropagationReports Take() {
    DropOldest();
    reports_.rows.shrink_to_fit();
    return std::move(reports_);
  }

 private:
  // Keeps the newest, and the order of the file.
  void DropOldest() {
    std::vector<PropagationRow>& rows = reports_.rows;
    if (rows.size() <= most_) return;
    std::vector<qint64> dates;
    dates.reserve(rows.size());
    for (const PropagationRow& row : rows) dates.push_back(row.date);
    const auto first = dates.begin() + static_cast<qptrdiff>(rows.size() - most_);
    std::nth_element(dates.begin(), first, dates.end());
    const qint64 oldestKept = *first;
    // Of the rows with that very date only as many as there is room for.
    auto room = static_cast<qsizetype>(std::count(first, dates.end(), oldestKept));
    reports_.leftOut += static_cast<qsizetype>(rows.size() - most_);
    std::erase_if(rows, [oldestKept, &room](const PropagationRow& row) {
      return row.date < oldestKept || (row.date == oldestKept && room-- <= 0);
    });
  }

  std::size_t most_;
  SharedTexts calls_;
  SharedTexts modes_;
  SharedTexts texts_;
  PropagationReports reports_;
};

}  // namespace

PropagationReports ReadPropagationFile(const QByteArray& file, qsizetype most) {
  // A server that has changed the line ends has not changed the reports.
  const QByteArrayView lineEnd = file.contains("\r\n") ? QByteArrayView("\r\n") : QByteArrayView("\n");
  Reader reader(most);
  const QByteArrayView text(file);
  // The first element is a heading, and the last two are not read: a line is taken when two more have begun behind it.
  std::array<QByteArrayView, 2> held;
  qsizetype number = 0;
  for (qsizetype from = 0; from <= text.size(); ++number) {
    const qsizetype end = text.indexOf(lineEnd, from);
    const QByteArrayView line = end < 0 ? text.sliced(from) : text.sliced(from, end - from);
    if (number >= 3) reader.TakeLine(held[0]);
    held[0] = held[1];
    held[1] = line;
    if (end < 0) break;
    from = end + lineEnd.size();
  }
  return reader.Take();
}

QString ReportDateText(qint64 date) {
  if (date == kNoDate) return {};
  return QDateTime::fromSecsSinceEpoch(date, Qt::UTC).toString(u"yyyy/MM/dd hh:mm:ss"_s);
}
