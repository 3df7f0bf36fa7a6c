// SPDX-License-Identifier: GPL-3.0-or-later
#include "cams/cam_reader.h"

#include <QUrl>
#include <utility>

using namespace std::chrono_literals;

namespace {

// Twelve run in the network at once. Some more are handed to it, so that it need not wait for this loop.
constexpr int kHanded = 12 + 6;
constexpr qint64 kMostDecoding = 32LL * 1024 * 1024;  // bytes that wait for a decoder; beyond, no further cam is read
constexpr auto kLook = 200ms;                         // how often silent cams are looked for

}  // namespace

ucPollCam::ucPollCam(UrlNetwork& network, PictureTool& tool, const CamLimits& limits, QObject* parent)
    : QObject(parent), limits_(limits), reader_(network), tool_(tool) {
  start_.setSingleShot(true);
  connect(&start_, &QTimer::timeout, this, &ucPollCam::HandOut);
  silence_.setInterval(std::min<std::chrono::milliseconds>(kLook, limits.silence));
  connect(&silence_, &QTimer::timeout, this, &ucPollCam::PutSilentLast);
  connect(&reader_, &UrlReader::Begun, this, [this](const QString& key) { inFlight_[key].running.start(); });
  connect(&reader_, &UrlReader::Progress, this, [this](const QString& key) { inFlight_[key].isHeard = true; });
  connect(&reader_, &UrlReader::Done, this, &ucPollCam::OnBody);
  connect(&reader_, &UrlReader::Failed, this, &ucPollCam::OnFailed);
}

void ucPollCam::DownloadCamPic(const QString& url, const QString& key) {
  Forget(key);
  inFlight_[key].url = url;
  Enqueue(key, failed_.contains(url));
  if (!start_.isActive()) start_.start(0ms);
}

void ucPollCam::CancelAll() {
  while (!inFlight_.empty()) Forget(QString(inFlight_.begin()->first));
}

void ucPollCam::Enqueue(const QString& key, bool isLate) {
  Read& read = inFlight_[key];
  read.at = Read::At::Waiting;
  read.isPatient = isLate;
  (isLate ? late_ : waiting_).append(key);
}

void ucPollCam::HandOut() {
  while (handed_ < kHanded && decoding_ < kMostDecoding) {
    const QString key = TakeNext();
    if (key.isEmpty()) break;
    Read& read = inFlight_[key];
    read.at = Read::At::Handed;
    read.isHeard = false;
    read.running.invalidate();
    ++handed_;
    ReadOptions options;
    options.priority = UrlPriority::Behind;
    options.opening = limits_.opening;
    options.deadline = limits_.deadline;
    options.maxBody = limits_.maxBody;
    options.firstPart = true;
    reader_.StartWith(key, QUrl(read.url.trimmed()), options);
  }
  if (handed_ == 0) {
    silence_.stop();
  } else if (!silence_.isActive()) {
    silence_.start();
  }
}

QString ucPollCam::TakeNext() {
  if (!waiting_.isEmpty()) return waiting_.takeFirst();
  return late_.isEmpty() ? QString() : late_.takeFirst();
}

// A cam that sends nothing would hold its place for as long as all limits allow, and a few dozen of them the round.
// While others wait they go first, and the silent one is asked once more, with all patience, when these have had their
// turn.
void ucPollCam::PutSilentLast() {
  QList<QString> silent;
  bool othersWait = !waiting_.isEmpty();
  for (const auto& [key, read] : inFlight_) {
    if (read.at != Read::At::Handed || read.isPatient) continue;
    if (!read.running.isValid()) {
      othersWait = true;
    } else if (!read.isHeard && std::chrono::milliseconds(read.running.elapsed()) >= limits_.silence) {
      silent.append(key);
    }
  }
  if (!othersWait) return;
  for (const QString& key : std::as_const(silent)) {
    reader_.Cancel(key);
    --handed_;
    Enqueue(key, true);
  }
  HandOut();
}

// Takes a read back, whatever it is at.
void ucPollCam::Forget(const QString& key) {
  const auto read = inFlight_.find(key);
  if (read == inFlight_.end()) return;
  if (read->second.at == Read::At::Handed) --handed_;
  decoding_ -= read->second.bytes;
  reader_.Cancel(key);
  waiting_.removeOne(key);
  late_.removeOne(key);
  inFlight_.erase(read);
}

void ucPollCam::OnBody(const QString& key, const QByteArray& body) {
  Read& read = inFlight_[key];
  read.at = Read::At::Decoding;
  read.bytes = body.size();
  decoding_ += read.bytes;
  --handed_;
  HandOut();
  const Wanted::Token token = inFlight_[key].wanted.Ask();
  PictureOptions options;
  options.priority = PicturePriority::Later;  // behind everything that somebody looks at
  options.host = QUrl(inFlight_[key].url).host();
  options.wanted = [token]() { return token.StillWanted(); };
  const auto measured = [this, key, token](const PictureAnswer& answer) {
    if (!token.StillWanted()) return;
    if (answer.ok) picture_ = answer.size;
    End(key, answer.ok);
  };
  tool_.Measure(body, this, measured, options);
}

void ucPollCam::OnFailed(const QString& key) {
  --handed_;
  inFlight_[key].at = Read::At::Waiting;
  End(key, false);
}

void ucPollCam::End(const QString& key, bool isGood) {
  const QString url = inFlight_[key].url;
  decoding_ -= std::exchange(inFlight_[key].bytes, 0);
  if (isGood) {
    failed_.remove(url);
    const Wanted::Token token = inFlight_[key].wanted.Present();
    Q_EMIT GotCamPic(key);
    // The handler may have asked for the same cam anew.
    if (token.StillWanted()) inFlight_.erase(key);
  } else {
    failed_.insert(url);
    inFlight_.erase(key);
    Q_EMIT NoCamPic(key);
  }
  HandOut();
  if (!IsBusy()) Q_EMIT Finished();
}
