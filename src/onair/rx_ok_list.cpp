// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/rx_ok_list.h"

#include <QStringTokenizer>
#include <set>

#include "platform/text/numbers.h"
#include "station/callsign.h"
#include "station/date_text.h"
#include "station/picture_date.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostRows = 1000;
constexpr int kMostReports = 2500;  // so that a text of a million separators holds nothing up
// A longer text would make a tip that fills the screen; no date is longer than its bound.
constexpr qsizetype kLongestCall = 64;
constexpr qsizetype kLongestText = 200;
constexpr qsizetype kLongestDate = 40;
constexpr qint64 kLastImageMinutes = 2;
constexpr qsizetype kMostDates = 4000;  // remembered; two lists have fewer

}  // namespace

// The calls of the list, searched as a list box searches: by the beginning of an entry. So a call is taken for listed
// when a longer one that begins with it is.
class RxOkList::ListedCalls {
 public:
  bool Has(const QString& call) const {
    const auto found = calls_.lower_bound(call);
    return found != calls_.end() && found->startsWith(call);
  }
  void Add(const QString& call) { calls_.insert(call); }

 private:
  std::set<QString> calls_;
};

namespace {

QString Field(QStringView field, qsizetype longest) {
  return WithoutControls(field.left(longest).toString());
}

// The user's own call as the thumbnails' senders are spelled.
QString OwnCall(const Program& program) {
  QString call = QString(program.config.MyCall).replace(program.ZeroGlyph, u'0').toUpper();
  return CleanCall(call);
}

}  // namespace

// Reads each date once: all reports of a picture have the same few, and they come again with every build.
QDateTime RxOkList::ToMinute(const QString& text) {
  const auto known = dates_.constFind(text);
  if (known != dates_.cend()) return *known;
  QDateTime when = ReadDate(text);
  if (when.isValid()) when = QDateTime(when.date(), QTime(when.time().hour(), when.time().minute()), Qt::UTC);
  if (dates_.size() == kMostDates) dates_.clear();
  dates_.insert(text, when);
  return when;
}

// Adds the stations of the page whose latest picture came from the user.
void RxOkList::AddThumbs(const Program& program, const QString& own, QList<RxOkRow>& rows, ListedCalls& listed) {
  const PageState& page = program.page;
  for (int slot = 0; slot < page.ThumbCount; ++slot) {
    QString sender = QString(page.Field(slot, Caller)).remove("JT65"_L1).trimmed();
    if (CleanCall(sender) != own) continue;
    const int number = static_cast<int>(Val(page.Field(slot, SlotSite)));
    if (number < 0 || number >= program.sites.Sites.size()) continue;
    const SiteRec& site = program.sites.Sites.at(number);
    QString call = site.Call;
    call = CleanCall(call);
    if (IsBadCall(call, program.lstBadCalls) || listed.Has(call)) continue;
    listed.Add(call);
    const QString& date = page.Field(slot, SentTime);
    rows.append({call, site.Lat, site.Lon, page.Field(slot, ModeText), date, ToMinute(date)});
  }
}

void RxOkList::SetReports(const QString& txtRxOk, const QStringList& lstBadCalls) {
  txtRxOk_ = txtRxOk;
  ReadReports(lstBadCalls);
}

void RxOkList::ReadReports(const QStringList& lstBadCalls) {
  reports_ = {lstBadCalls, {}, {}};
  if (!txtRxOk_.contains(u'\t')) return;
  ListedCalls listed;
  int count = 0;
  for (const QStringView record : QStringTokenizer(txtRxOk_, u'*')) {
    if (++count > kMostReports || reports_.rows.size() == kMostRows) break;
    QStringView fields[3];
    int filled = 0;
    for (const QStringView field : QStringTokenizer(record, u'\t')) {
      if (filled == 3) break;
      fields[filled++] = field;
    }
    QString call = fields[0].trimmed().left(kLongestCall).toString().toUpper();
    call = CleanCall(call);
    if (call.isEmpty()) continue;
    RxOkRow row{call, 0, 0, Field(fields[1], kLongestText), Field(fields[2], kLongestDate), {}};
    row.when = ToMinute(row.date);
    // The date of a call that is not to be reported counts all the same. One that cannot be read changes nothing.
    if (row.when.isValid() && (!reports_.newest.isValid() || row.when > reports_.newest)) reports_.newest = row.when;
    if (IsBadCall(call, lstBadCalls) || listed.Has(call)) continue;
    listed.Add(call);
    reports_.rows.append(row);
  }
}

void RxOkList::BuildRxOkList(Program& program) {
  const QString own = OwnCall(program);
  if (own.isEmpty()) return Clear();
  QList<RxOkRow> rows;
  ListedCalls listed;
  AddThumbs(program, own, rows, listed);
  // The list of bad calls may have come from the server since the text was read.
  if (reports_.lstBadCalls != program.lstBadCalls) ReadReports(program.lstBadCalls);
  if (rows.isEmpty()) {
    rows = reports_.rows;
  } else {
    for (const RxOkRow& row : std::as_const(reports_.rows)) {
      if (!listed.Has(row.call)) rows.append(row);
    }
  }
  if (reports_.newest.isValid()) program.config.LastRxOkTime = reports_.newest;
  Take(rows, reports_.newest);
}

void RxOkList::Take(const QList<RxOkRow>& rows, const QDateTime& lastRxReport) {
  if (rows == rows_ && lastRxReport == lastRxReport_) return;
  rows_ = rows;
  lastRxReport_ = lastRxReport;
  Q_EMIT Changed();
}

bool RxOkList::IsOfLastImage(const RxOkRow& row) const {
  if (!row.when.isValid() || !lastRxReport_.isValid()) return false;
  return std::abs(row.when.secsTo(lastRxReport_)) < kLastImageMinutes * 60;
}
