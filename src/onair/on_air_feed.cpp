// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_feed.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kRefreshMinutes = 5;
constexpr auto kCgiPath = "/cgi-bin/call.cgi"_L1;
constexpr auto kTextPath = "/zz9qx/Files/OnAirNow.txt"_L1;
constexpr auto kLineEnd = "\r\n"_L1;

QString KeyOf(FeedSource source) {
  return QString::number(static_cast<int>(source));
}

}  // namespace

OnAirFeed::OnAirFeed(const Dependencies& dependencies, bool missingLetter, QObject* parent)
    : QObject(parent),
      program_(dependencies.program),
      hosts_(dependencies.hosts),
      missingLetter_(missingLetter),
      ucGetList(dependencies.network),
      reader_(dependencies.pageText, dependencies.background) {
  Timer1.setInterval(60s);
  connect(&Timer1, &QTimer::timeout, this, [this]() {
    if (++minutes_ % kRefreshMinutes == 0) GetOnAirList();
  });
  connect(&ucGetList, &UrlReader::Done, this, &OnAirFeed::TakeBody);
  // A read that fails says nothing: no message comes, and the list stays as it is.
}

void OnAirFeed::Start() {
  GetOnAirList();
  Timer1.start();
}

void OnAirFeed::GetOnAirList() {
  former_ = true;
  GotList1 = true;
  GotList2 = true;
  Ask(FeedSource::Cgi, hosts_.OnAirCgi, kCgiPath);
  Ask(FeedSource::TextFile, hosts_.OnAirText, kTextPath);
}

void OnAirFeed::Ask(FeedSource source, const QString& host, QLatin1StringView path) {
  reader_.Cancel(source);
  if (host.isEmpty()) {
    ucGetList.Cancel(KeyOf(source));
  } else {
    ucGetList.Start(KeyOf(source), QUrl(host + path), UrlPriority::User);
  }
}

void OnAirFeed::TakeBody(const QString& key, const QByteArray& body) {
  const FeedSource source = key == KeyOf(FeedSource::Cgi) ? FeedSource::Cgi : FeedSource::TextFile;
  if (body.isEmpty()) return TakeFailure(source);
  reader_.Read(source, body, program_.lstBadCalls, [this, source](const std::optional<FeedRows>& rows) {
    if (rows) {
      TakeRows(*rows);
    } else {
      TakeFailure(source);
    }
  });
}

// The rows of the refresh before are shown until this one's first answer is there.
void OnAirFeed::ForgetFormer() {
  if (!std::exchange(former_, false)) return;
  list1_.clear();
  leftOut_ = 0;
  cut_ = false;
}

void OnAirFeed::TakeRows(const FeedRows& rows) {
  ForgetFormer();
  list1_ += rows.rows;
  leftOut_ += rows.leftOut;
  cut_ = cut_ || rows.cut;
  Q_EMIT ListChanged();
}

void OnAirFeed::TakeFailure(FeedSource source) {
  (source == FeedSource::Cgi ? GotList1 : GotList2) = false;
  ForgetFormer();
  Q_EMIT Failed(FailureText());
}

QString OnAirFeed::FailureText() const {
  QString text;
  // The texts are the same in every language. Users of On Air Now know the first without its first letter.
  if (!GotList1) {
    text = (missingLetter_ ? " n air now file not found "_L1 : " On air now file not found "_L1) + kLineEnd +
           " on ZB3KLM server. "_L1;
  }
  if (!GotList2) text = " On air now file not found "_L1 + kLineEnd + " on ZZ9QX server. "_L1;
  if (!GotList1 && !GotList2) {
    text = " On air now file not found "_L1 + kLineEnd + " on ZB3KLM and ZZ9QX server. "_L1;
  }
  return kLineEnd + text + kLineEnd + kLineEnd + " This message will close in 10 seconds. "_L1;
}
