// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/rx_ok_lookups.h"

#include <QFileInfo>

#include "callbook/operator_picture.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qsizetype kAtOnce = 2;

}  // namespace

RxOkLookups::RxOkLookups(const Dependencies& dependencies, QObject* parent) : QObject(parent), deps_(dependencies) {
  Timer1.setSingleShot(true);
  Timer1.setInterval(10s);
  connect(&Timer1, &QTimer::timeout, this, [this]() { Show(State::Failed); });
}

RxOkLookups::~RxOkLookups() {
  qDeleteAll(running_);
}

// Known places are kept, so that a list that changes every few seconds does not read the database each time.
RxOkPlace RxOkLookups::PlaceOf(const QString& call) {
  const auto known = places_.constFind(call);
  if (known != places_.cend()) return *known;
  if (notInDatabase_.contains(call)) return {};
  const TargetLocation found = deps_.database.LookupTargetLocation(call);
  const RxOkPlace place{found.TargetLat, found.TargetLon};
  if (place.IsKnown()) return *places_.insert(call, place);
  notInDatabase_.insert(call);
  return {};
}

void RxOkLookups::ReadDatabaseAgain() {
  if (stamp_.HasChanged(deps_.program.AppDataDir)) notInDatabase_.clear();
}

void RxOkLookups::Ask(const QStringList& calls) {
  waiting_.clear();
  for (const QString& call : calls) {
    if (!asked_.contains(call)) waiting_.append(call);
  }
  AskNext();
}

void RxOkLookups::Keep(const QSet<QString>& listed) {
  if (listed.isEmpty()) return;
  const QStringList calls = running_.keys();
  for (const QString& call : calls) {
    if (listed.contains(call)) continue;
    // It has had no answer, so it is asked for again should the station come back.
    asked_.remove(call);
    ucLookUp* lookUp = running_.take(call);
    lookUp->disconnect(this);
    lookUp->deleteLater();
  }
}

void RxOkLookups::Stop() {
  waiting_.clear();
  Timer1.stop();
  for (ucLookUp* lookUp : std::exchange(running_, {})) lookUp->deleteLater();
}

void RxOkLookups::AskNext() {
  while (running_.size() < kAtOnce && !waiting_.isEmpty()) Begin(waiting_.takeFirst());
  if (!running_.isEmpty() || !waiting_.isEmpty() || failed_) return;
  Timer1.stop();
  Show(State::Idle);
}

void RxOkLookups::Begin(const QString& call) {
  asked_.insert(call);
  auto* lookUp = new ucLookUp(deps_.network, deps_.hosts, deps_.pageText, this);
  running_.insert(call, lookUp);
  connect(lookUp, &ucLookUp::GotPage, this, &RxOkLookups::GotPage);
  connect(lookUp, &ucLookUp::PageNotFound, this, &RxOkLookups::PageNotFound);
  // A read that cannot be started tells nothing else.
  connect(lookUp, &ucLookUp::PointerNormal, this, [this, call]() { PageNotFound(call); });
  connect(lookUp, &ucLookUp::CallNotFound, this, [this]() { unknownCall_ = true; });
  connect(lookUp, &ucLookUp::GotPic, this, &RxOkLookups::GotPic);
  connect(lookUp, &ucLookUp::NoPic, this, &RxOkLookups::End);
  Timer1.start();
  if (state_ == State::Idle) Show(State::Asking);
  lookUp->Database = deps_.program.config.CallbookIndex;
  lookUp->GetPage(call);
}

void RxOkLookups::GotPage(const QString& call) {
  ucLookUp* lookUp = running_.value(call);
  if (lookUp == nullptr) return;
  unknownCall_ = false;
  lookUp->cName(call);
  const RxOkPlace place{lookUp->Latitude(), lookUp->Longitude()};
  AskPicture(call);
  // Last, because the receiver may ask for other calls.
  if (unknownCall_ || !place.IsKnown()) return;
  places_.insert(call, place);
  Q_EMIT Found();
}

// Timer1 goes on, so that it tells of the failure.
void RxOkLookups::PageNotFound(const QString& call) {
  failed_ = true;
  AskPicture(call);
}

// Only now: a control that has asked for a picture would take its page for one.
void RxOkLookups::AskPicture(const QString& call) {
  ucLookUp* lookUp = running_.value(call);
  if (lookUp == nullptr) return;
  // An empty file counts as no picture.
  if (QFileInfo(OperatorPicturePath(deps_.program.AppDataDir, call)).size() > 0) return End(call);
  lookUp->GetPicture(call);
}

// The body may be an error page, so it is measured first: only a picture is stored.
void RxOkLookups::GotPic(const QString& call) {
  ucLookUp* lookUp = running_.value(call);
  if (lookUp == nullptr) return;
  const QByteArray bytes = lookUp->LookupBytes;
  const QString path = OperatorPicturePath(deps_.program.AppDataDir, call);
  deps_.tool.Measure(bytes, this, [this, bytes, path](const PictureAnswer& answer) {
    if (!answer.ok) return;
    deps_.background.Run<bool>(
        this, [path, bytes]() { return WriteOperatorPicture(path, bytes); }, [](bool) {});
  });
  End(call);
}

void RxOkLookups::End(const QString& call) {
  // A signal of this very control may have led here, so it must not be deleted before the event loop turns.
  if (ucLookUp* lookUp = running_.take(call)) lookUp->deleteLater();
  // Not at once: where no read can be started, a thousand calls would end one inside the other.
  QMetaObject::invokeMethod(this, &RxOkLookups::AskNext, Qt::QueuedConnection);
}

void RxOkLookups::Show(State state) {
  if (state == state_) return;
  state_ = state;
  Q_EMIT StateChanged();
}
