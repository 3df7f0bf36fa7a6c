// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/propagation_file.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <unordered_map>

#include "platform/text/ansi_text.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

// Of a stranger's text, so that 100,000 rows stay below 25 MB.
constexpr qsizetype kLongestText = 24;
constexpr qsizetype kLongestMode = 8;
constexpr qsizetype kLongestField = 64;  // a call, a frequency or a file name in more bytes is none
// The texts that are kept once for all rows that hold them; beyond that a flood of different ones is not remembered.
constexpr std::size_t kMostShared = 20'000;

// Seeded, so that nobody can send texts that all fall together. The toolkit's own hash of bytes takes longer than all
// the rest of a line.
struct SeededHash {
  quint64 seed = QRandomGenerator::global()->generate64();

  std::size_t operator()(std::string_view bytes) const {
    quint64 hash = seed;
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x9e3779b97f4a7c15ULL;
    return static_cast<std::size_t>(hash ^ (hash >> 32));
  }
};

// Texts that come again and again are cut and cleaned once, and kept once.
class SharedTexts {
 public:
  // bytes: of the file, which outlives this.
  template <typename Make>
  const QString& Get(QByteArrayView bytes, Make make) {
    const std::string_view key(bytes.data(), static_cast<std::size_t>(bytes.size()));
    auto known = texts_.find(key);
    if (known == texts_.end()) {
      QString text = make(bytes);
      text.squeeze();
      if (texts_.size() >= kMostShared) return unshared_ = text;
      known = texts_.emplace(key, text).first;
    }
    return known->second;
  }

 private:
  std::unordered_map<std::string_view, QString, SeededHash> texts_;
  QString unshared_;
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

// Where the last ".txt", in any letter case, begins; -1: there is none.
qsizetype LastEnding(QByteArrayView name) {
  const auto isLetter = [&name](qsizetype at, char letter) { return (name[at] | 0x20) == letter; };
  for (qsizetype at = name.size() - 4; at >= 0; --at) {
    if (name[at] == '.' && isLetter(at + 1, 't') && isLetter(at + 2, 'x') && isLetter(at + 3, 't')) return at;
  }
  return -1;
}

// The fourteen digits in front of ".txt".
qint64 DateOf(QByteArrayView name) {
  constexpr qsizetype kDigits = 14;
  const qsizetype end = name.size() > kLongestField ? -1 : LastEnding(name);
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

// Of digits, as nearly all of them are, without the slow way to any number.
double KiloHertz(QByteArrayView field) {
  constexpr qsizetype kFewDigits = 9;
  if (!field.isEmpty() && field.size() <= kFewDigits) {
    const int number = Number(field);
    if (number >= 0) return number;
  }
  bool isNumber = false;
  const double kHz = field.size() > kLongestField ? -1 : field.toByteArray().toDouble(&isNumber);
  return isNumber && qIsFinite(kHz) && kHz >= 0 ? kHz : -1;
}

// Where the line that begins at from ends; -1: with the text. A line feed that belongs to no line end is part of it.
qsizetype EndOfLine(QByteArrayView text, qsizetype from, bool endsInTwo) {
  qsizetype next = from;
  while (const void* found = std::memchr(text.data() + next, '\n', static_cast<std::size_t>(text.size() - next))) {
    const qsizetype feed = static_cast<const char*>(found) - text.data();
    if (!endsInTwo) return feed;
    if (feed > from && text[feed - 1] == '\r') return feed - 1;
    next = feed + 1;
  }
  return -1;
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
    row.kHz = KiloHertz(fields[3]);
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
  const bool endsInTwo = file.contains("\r\n");
  Reader reader(most);
  const QByteArrayView text(file);
  // The first element is a heading, and the last two are not read: a line is taken when two more have begun behind it.
  std::array<QByteArrayView, 2> held;
  qsizetype number = 0;
  for (qsizetype from = 0; from <= text.size(); ++number) {
    const qsizetype end = EndOfLine(text, from, endsInTwo);
    const QByteArrayView line = end < 0 ? text.sliced(from) : text.sliced(from, end - from);
    if (number >= 3) reader.TakeLine(held[0]);
    held[0] = held[1];
    held[1] = line;
    if (end < 0) break;
    from = end + (endsInTwo ? 2 : 1);
  }
  return reader.Take();
}

QString ReportDateText(qint64 date) {
  if (date == kNoDate) return {};
  return QDateTime::fromSecsSinceEpoch(date, Qt::UTC).toString(u"yyyy/MM/dd hh:mm:ss"_s);
}
