// SPDX-License-Identifier: GPL-3.0-or-later
#include "propagation_page.h"

#include <algorithm>
#include <array>

#include "operators.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMany = 5000;
constexpr qint64 kHalfDay = 12 * 60;  // minutes
constexpr int kReports = 5;           // of a receiver in a half-day

struct Report {
  QDateTime date;
  QString line;  // all but the date
};

// Before now, at the same minutes of every half-day.
QDateTime LastTime(qint64 minuteOfHalfDay, const QDateTime& now) {
  const qint64 second = minuteOfHalfDay * 60 + minuteOfHalfDay * 7 % 60;
  return now.addSecs(-((now.toSecsSinceEpoch() - second) % (kHalfDay * 60)));
}

Report MakeReport(const QStringList& receivers, qint64 number, const QDateTime& now) {
  const std::vector<Operator>& people = Operators();
  const auto person = static_cast<std::size_t>(number * 29 + number / receivers.size() * 7) % people.size();
  const Tuned& tuned = kTuned.at(static_cast<std::size_t>(number * 5 + number / 16) % kTuned.size());
  QDateTime date = LastTime(number * 263 % kHalfDay, now);
  // Some lie too far back for any period; the file is not cut at a fixed age.
  if (number % 11 == 4) date = date.addDays(-1);
  return {date, u"%1_%2_%3_%4_snr %5"_s.arg(receivers.at(number % receivers.size()), people[person].call, tuned.mode)
                    .arg(tuned.kiloHertz)
                    .arg(number * 17 % 40 - 12)};
}

// What such a file also holds: calls with a suffix or none at all, modes and frequencies that no list has, fields that
// are missing, texts with everything that a page would escape, and dates that are none.
QStringList OddLines(const QDateTime& now) {
  // The file is the same for some minutes, as a real one is.
  const QString recent = now.addSecs(-300 - now.toSecsSinceEpoch() % 300).toString(u"yyyyMMddhhmmss"_s);
  return {u"DK7QXB/P_VE3/EI7QOD_EP_14233_portable &amp; on foot_"_s + recent + u".txt"_s,
          u"F4QYC_I2QRH_JT65_14076_<b>not bold</b> 5*9*9_pictures/"_s + recent + u".txt"_s,
          u"EA3QTL_G0QBE_SSTV_3733_Martin 1_"_s + recent + u".TXT"_s,
          u"HA5QFV_LZ2QMB_ep_18100_no such band_"_s + recent + u".txt"_s,
          u"OZ1QYP_LA8QBR_EP__no frequency_"_s + recent + u".txt"_s,
          u"N0CALL_K1QPE_EP_14233_nobody_"_s + recent + u".txt"_s,
          u"_K1QPE_EP_14233_no call_"_s + recent + u".txt"_s,
          u"ABC_K1QPE_EP_14233_too short_"_s + recent + u".txt"_s,
          u"GM3QNG_OK1QEU_EP_14233_not in the database_"_s + recent + u".txt"_s,
          u"SM6QZQ_OK1QEU_EP_14233_without a place_"_s + recent + u".txt"_s,
          u"K1QPE_N3QSG_EP_14233_no such day_20261399256199.txt"_s,
          u"K1QPE_W5QUJ_EP_14233_year 0_00000101000000.txt"_s,
          u"K1QPE_K6QVL_EP_14233_no date_latest.txt"_s,
          u"K1QPE_WA8QXN_EP"_s,
          u"K1QPE"_s,
          {}};
}

}  // namespace

QByteArray PropagationFile(OnAirForm form, const QStringList& receivers, const QDateTime& now) {
  if (form == OnAirForm::ErrorPage) return OnAirErrorPage();
  std::vector<Report> reports;
  const bool isEmpty = form == OnAirForm::Empty || receivers.isEmpty();
  const qint64 count = isEmpty ? 0 : form == OnAirForm::Many ? kMany : receivers.size() * kReports;
  for (qint64 number = 0; number < count; ++number) reports.push_back(MakeReport(receivers, number, now));
  std::stable_sort(reports.begin(), reports.end(), [](const Report& a, const Report& b) { return a.date < b.date; });
  QStringList lines{u"Propagation paths"_s};
  if (!isEmpty && form != OnAirForm::Many) lines += OddLines(now);
  for (const Report& report : reports) {
    lines << report.line + u'_' + report.date.toString(u"yyyyMMddhhmmss"_s) + u".txt"_s;
  }
  // The last line is never read, and neither is the empty one behind it.
  lines << u"End of file"_s << QString();
  return lines.join("\r\n"_L1).toLatin1();
}
