// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/call_database.h"

#include <QPointer>
#include <chrono>

#include "callbook/record_order.h"

namespace {

constexpr auto kRest = std::chrono::seconds(1);  // from the last change until it is sorted in

}  // namespace

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

CallDatabase::CallDatabase(const QString& appDataDir, const std::shared_ptr<DatabaseDisk>& disk)
    : CallDatabase(appDataDir, disk, std::make_shared<SharedLayout>()) {}

CallDatabase::CallDatabase(const QString& appDataDir, const std::shared_ptr<DatabaseDisk>& disk,
                           const std::shared_ptr<SharedLayout>& layout)
    : CallReader(appDataDir, layout), file_(appDataDir, layout, disk) {
  worker_.setMaxThreadCount(1);
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  QObject::connect(&rest_, &QTimer::timeout, &answers_, [this]() { SortDatabase(); });
}

CallDatabase::~CallDatabase() {
  Finish();
}

void CallDatabase::Begin() {
  if (!file_.WasInterrupted()) return;
  // Searches must find what lies unsorted in the file, so learn that now; sorting can wait.
  worker_.start([this]() { file_.Know(); });
  worker_.waitForDone();
  SortDatabase();
}

bool CallDatabase::Finish() {
  rest_.stop();
  worker_.start([this]() { allWritten_ = file_.Close() && allWritten_; });
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
  const auto answer = [this, context = QPointer<QObject>(context), then](const bool& durable) {
    rest_.start();
    if (context && then) then(durable);
  };
  Run<bool>(remembered, &answers_, answer);
}

void CallDatabase::SaveStation(const QString& call, const DbRec& record, QObject* context, const Saved& then) {
  Change([this, call, record]() { return file_.SaveStation(call, record); }, context, then);
}

void CallDatabase::SaveStations(const QList<StationRecord>& stations, QObject* context, const Saved& then) {
  Change([this, stations]() { return file_.SaveStations(stations); }, context, then);
}

void CallDatabase::DeleteRecord(const QString& call, QObject* context,
                                const std::function<void(const Deletion&)>& then) {
  const auto work = [this, call]() {
    Deletion deletion = file_.DeleteRecord(call);
    allWritten_ = allWritten_ && deletion.durable;
    return deletion;
  };
  Run<Deletion>(work, context, then);
}

void CallDatabase::PutBack(const QList<DbRec>& removed, QObject* context, const Saved& then) {
  Change([this, removed]() { return file_.PutBack(removed); }, context, then);
}

void CallDatabase::SortDatabase(QObject* context, const Saved& then) {
  Run<bool>([this]() { return file_.SortDatabase(); }, context, then);
}

void CallDatabase::FillCallList(QObject* context, const std::function<void(const CallList&)>& then) {
  Run<CallList>([this]() { return CallList(file_.FillCallList().value_or(QByteArray())); }, context, then);
}
