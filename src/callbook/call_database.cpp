// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/call_database.h"

#include <QPointer>

#include "callbook/record_order.h"

QString CallList::Call(int index) const {
  return AnsiText(BlanksTrimmed(QByteArrayView(calls_).sliced(index * kCallSize, kCallSize)));
}

int CallList::FirstNotBefore(const QString& text) const {
  const QByteArray wanted = AnsiBytes(text);
  int low = 0;
  int high = Count();
  while (low < high) {
    const int middle = low + (high - low) / 2;
    const QByteArrayView call = BlanksTrimmed(QByteArrayView(calls_).sliced(middle * kCallSize, kCallSize));
    if (CompareBytes(call, wanted) < 0) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

CallDatabase::CallDatabase(const QString& appDataDir) : found_(appDataDir), written_(appDataDir) {
  worker_.setMaxThreadCount(1);
}

CallDatabase::~CallDatabase() {
  worker_.waitForDone();
}

void CallDatabase::Begin() {}

bool CallDatabase::Finish() {
  worker_.waitForDone();
  return std::exchange(allWritten_, true);
}

template <typename Result>
void CallDatabase::Run(const std::function<Result()>& work, QObject* context,
                       const std::function<void(const Result&)>& then) {
  worker_.start([this, work, context = QPointer<QObject>(context), then]() {
    const Result result = work();
    if (!then) return;
    QMetaObject::invokeMethod(
        &answers_,
        [context, then, result]() {
          if (context) then(result);
        },
        Qt::QueuedConnection);
  });
}

void CallDatabase::Change(const std::function<bool()>& work, QObject* context, const Saved& then) {
  const auto remembered = [this, work]() {
    const bool durable = work();
    allWritten_ = allWritten_ && durable;
    return durable;
  };
  const auto answer = [then](const bool& durable) { then(durable); };
  Run<bool>(remembered, context, then ? answer : std::function<void(const bool&)>());
}

int CallDatabase::FindRecord(const QString& call) {
  const int number = found_.FindRecord(call);
  DbCurrent = found_.DbCurrent;
  return number;
}

std::optional<FoundRecord> CallDatabase::Find(const QString& call) {
  const int number = FindRecord(call);
  if (number == 0) return std::nullopt;
  return FoundRecord{number, DbCurrent};
}

TargetLocation CallDatabase::LookupTargetLocation(const QString& call) {
  if (FindRecord(QString(call).replace(u'Ø', u'0')) == 0) return {};
  return {true,
          Coordinate(DbCurrent.Lat.Text()),
          Coordinate(DbCurrent.Lon.Text()),
          DbCurrent.Name.Text(),
          DbCurrent.Add1.Text(),
          DbCurrent.Add2.Text(),
          DbCurrent.Ctry.Text()};
}

int CallDatabase::RecordCount() const {
  return found_.RecordCount();
}

QString CallDatabase::Path() const {
  return found_.Path();
}

void CallDatabase::SaveStation(const QString& call, const DbRec& record, QObject* context, const Saved& then) {
  Change([this, call, record]() { return written_.SaveStation(call, record); }, context, then);
}

void CallDatabase::SaveStations(const QList<StationRecord>& stations, QObject* context, const Saved& then) {
  const auto work = [this, stations]() {
    bool all = true;
    for (const StationRecord& station : stations) all = written_.SaveStation(station.call, station.record) && all;
    return all;
  };
  Change(work, context, then);
}

void CallDatabase::DeleteRecord(const QString& call, QObject* context,
                                const std::function<void(const Deletion&)>& then) {
  const auto work = [this, call]() {
    Deletion deletion;
    if (written_.FindRecord(call) > 0) deletion.removed += written_.DbCurrent;
    deletion.durable = written_.DeleteRecord(call);
    allWritten_ = allWritten_ && deletion.durable;
    return deletion;
  };
  Run<Deletion>(work, context, then);
}

void CallDatabase::SortDatabase(QObject* context, const Saved& then) {
  Change([this]() { return written_.SortDatabase(); }, context, then);
}

void CallDatabase::FillCallList(QObject* context, const std::function<void(const CallList&)>& then) {
  const auto work = [this]() {
    QStringList calls;
    written_.FillCallList(calls);
    QByteArray bytes;
    for (const QString& call : std::as_const(calls)) bytes += AnsiBytes(call).leftJustified(6, ' ', true);
    return CallList(bytes);
  };
  Run<CallList>(work, context, then);
}
