// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/url_transfer.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kProgressEveryMs = 30;
constexpr qsizetype kMostHead = 64LL * 1024;  // with all interim heads before it

bool IsWebAddress(const QUrl& url) {
  const QString scheme = url.scheme();
  return url.isValid() && !url.host().isEmpty() && (scheme == "http"_L1 || scheme == "https"_L1);
}

QByteArray Languages() {
  const QByteArray name = QLocale::system().name().replace(u'_', u'-').toLatin1();
  if (name == "C") return "en,*";
  return name.startsWith("en") ? name + ",*" : name + ",en,*";
}

QByteArray RequestFor(const QUrl& url, const QByteArray& cookies, bool isKeepAlive) {
  static const QByteArray fixed = "\r\nAccept-Encoding: gzip, deflate\r\nAccept-Language: " + Languages() +
                                  "\r\nUser-Agent: Omni-Perch/6.50\r\nCache-Control: no-cache\r\nPragma: no-cache\r\n";
  const QByteArray path = url.path(QUrl::FullyEncoded).toLatin1();
  QByteArray request = "GET " + (path.startsWith('/') ? path : '/' + path);
  if (url.hasQuery()) request += '?' + url.query(QUrl::FullyEncoded).toLatin1();
  request += " HTTP/1.1\r\nHost: " + url.adjusted(QUrl::RemoveUserInfo).authority(QUrl::FullyEncoded).toLatin1() +
             "\r\nConnection: " + (isKeepAlive ? "Keep-Alive" : "close") + fixed;
  if (!url.userName().isEmpty()) {
    const QString who = url.userName(QUrl::FullyDecoded) + u':' + url.password(QUrl::FullyDecoded);
    request += "Authorization: Basic " + who.toUtf8().toBase64() + "\r\n";
  }
  if (!cookies.isEmpty()) request += "Cookie: " + cookies + "\r\n";
  return request + "\r\n";
}

}  // namespace

UrlTransfer::UrlTransfer(const Shared& shared, const ReadOptions& options, std::function<bool(qint64)> mayGrow,
                         QObject* parent)
    : QObject(parent),
      shared_(shared),
      options_(options),
      mayGrow_(std::move(mayGrow)),
      stall_(this),
      opening_(this),
      deadline_(this) {
  for (QTimer* limit : {&stall_, &opening_, &deadline_}) limit->setSingleShot(true);
  connect(&opening_, &QTimer::timeout, this, &UrlTransfer::Fail);
  connect(&stall_, &QTimer::timeout, this, &UrlTransfer::Fail);
  connect(&deadline_, &QTimer::timeout, this, &UrlTransfer::Fail);
  deadline_.start(options.deadline.count() > 0 ? options.deadline : shared.limits.deadline);
}

UrlTransfer::~UrlTransfer() {
  Stop();
}

void UrlTransfer::Begin(const QUrl& url) {
  url_ = url;
  stall_.start(shared_.limits.stall);
  if (IsWebAddress(url)) {
    Ask(shared_.pool.Take(HttpPlace(url), wasPublic_));
  } else {
    QMetaObject::invokeMethod(this, &UrlTransfer::Fail, Qt::QueuedConnection);
  }
}

void UrlTransfer::Ask(const ConnectionPool::Taken& taken) {
  connection_ = taken.connection;
  isUsed_ = taken.isUsed;
  isHeard_ = false;
  input_.clear();
  used_ = searched_ = headBytes_ = 0;
  head_.reset();
  reader_.reset();
  connect(connection_, &UrlConnection::Opened, this, &UrlTransfer::SendRequest);
  connect(connection_, &UrlConnection::Readable, this, &UrlTransfer::OnReadable);
  connect(connection_, &UrlConnection::Lost, this, &UrlTransfer::OnLost);
  if (isUsed_) {
    SendRequest();
  } else {
    if (options_.opening.count() > 0) opening_.start(options_.opening);
    connection_->Open();
  }
}

void UrlTransfer::SendRequest() {
  opening_.stop();
  if (!connection_->LeadsIntoPrivate()) wasPublic_ = true;
  connection_->Send(RequestFor(url_, shared_.cookies.HeaderFor(url_), KeepsConnection()));
}

void UrlTransfer::OnReadable() {
  if (isPaused_) return;
  stall_.start(shared_.limits.stall);
  isHeard_ = true;
  Pump();
}

void UrlTransfer::OnLost() {
  if (isPaused_) return;
  // A server may close an idle connection at the moment when it is used again. It has not seen the request then, so the
  // request is sent over a new connection.
  if (isUsed_ && !isHeard_ && connection_) {
    DropConnection();
    Ask({shared_.pool.TakeNew(HttpPlace(url_), wasPublic_), false});
    return;
  }
  Pump();
}

// Reads what has come in until there is nothing more, the budget is spent or the answer is at its end.
void UrlTransfer::Pump() {
  while (connection_ && !isPaused_) {
    if (used_ >= input_.size() && !(reader_ && reader_->IsPending())) {
      input_ = connection_->Read();
      used_ = searched_ = 0;
      if (input_.isEmpty()) break;
    }
    if (!(head_ ? TakeBody() : TakeHead())) return;
  }
  if (!connection_ || isPaused_ || !connection_->HasEnded()) return;
  if (part_) return OnPart(part_->AtEnd(body_));
  if (reader_ && reader_->End() == HttpBody::State::Whole) return OnWhole();
  Fail();
}

// False when the read has ended or goes on at another address.
bool UrlTransfer::TakeHead() {
  const QByteArrayView rest = QByteArrayView(input_).sliced(used_);
  const qsizetype length = HeadLength(rest, searched_);
  if (headBytes_ + (length > 0 ? length : rest.size()) > kMostHead) {
    FailAsFlood();
    return false;
  }
  if (length == 0) {
    searched_ = rest.size();
    const QByteArray more = connection_->Read();
    if (!more.isEmpty()) {
      input_.remove(0, std::exchange(used_, 0));
      input_ += more;
      return true;
    }
    if (connection_->HasEnded()) Fail();
    return false;
  }
  head_ = ParseHead(rest.first(length));
  used_ += length;
  searched_ = 0;
  headBytes_ += length;
  if (!head_ || head_->status == 101) {
    Fail();
    return false;
  }
  if (head_->IsInterim()) {
    head_.reset();
    return true;
  }
  return OnHead();
}

// False when the answer is at its end already.
bool UrlTransfer::OnHead() {
  if (!head_->cookies.isEmpty()) Q_EMIT CookiesReceived(url_, head_->cookies);
  reader_ = std::make_unique<HttpBody>(*head_);
  const qint64 announced = AnnouncedLength();
  if (options_.successOnly && head_->status >= 400) {
    Fail();
  } else if (head_->IsRedirect()) {
    Follow();
  } else if (options_.firstPart && head_->IsStream()) {
    part_ = std::make_unique<FirstPart>();
    return true;
  } else if (IsTooLong(announced)) {
    return false;
  } else if (reader_->Now() == HttpBody::State::Whole) {
    OnWhole();
  } else {
    body_.reserve(announced);
    return true;
  }
  return false;
}

// Fails the read if its body is longer than allowed. One that only this read does not allow is no flood.
bool UrlTransfer::IsTooLong(qint64 bytes) {
  if (bytes > shared_.limits.maxBody) {
    FailAsFlood();
  } else if (options_.maxBody > 0 && bytes > options_.maxBody) {
    Fail();
  } else {
    return false;
  }
  return true;
}

// The stream goes on for ever: its connection is closed.
void UrlTransfer::OnPart(const QByteArray& part) {
  if (part.isEmpty()) return Fail();
  shared_.budget.Give(body_.size() - part.size());
  body_ = part;
  OnWhole();
}

// False when the read has ended or stands still.
bool UrlTransfer::TakeBody() {
  while (used_ < input_.size() || reader_->IsPending()) {
    if (!mayGrow_(body_.size())) {
      Pause();
      return false;
    }
    if (!Step()) return false;
  }
  if (!sinceProgress_.isValid() || sinceProgress_.elapsed() >= kProgressEveryMs) EmitProgress();
  return true;
}

bool UrlTransfer::Step() {
  const qsizetype before = body_.size();
  used_ += reader_->Step(QByteArrayView(input_).sliced(used_), body_);
  shared_.budget.Take(body_.size() - before);
  if (part_ && part_->IsWhole(body_)) {
    OnPart(part_->In(body_));
  } else if (IsTooLong(body_.size())) {
    return false;
  } else if (reader_->Now() == HttpBody::State::Broken) {
    Fail();
  } else if (reader_->Now() == HttpBody::State::Whole) {
    if (part_)
      OnPart(part_->AtEnd(body_));
    else
      OnWhole();
  } else {
    return true;
  }
  return false;
}

// Both time limits stand still: a server cannot send while nobody reads from it.
void UrlTransfer::Pause() {
  isPaused_ = true;
  stall_.stop();
  deadlineRest_ = deadline_.remainingTimeAsDuration();
  deadline_.stop();
}

void UrlTransfer::Resume() {
  if (!std::exchange(isPaused_, false)) return;
  stall_.start(shared_.limits.stall);
  deadline_.start(deadlineRest_);
  Pump();
}

void UrlTransfer::OnWhole() {
  ReleaseConnection();
  stall_.stop();
  deadline_.stop();
  EmitProgress();
  // From here on whoever takes Done gives the body's bytes back to the budget.
  const QByteArray body = std::exchange(body_, {});
  Q_EMIT Done(body);
}

// The redirect's own body is not used. If all of it has come in, the connection can be used again.
void UrlTransfer::Follow() {
  QByteArray unread;
  while (used_ < input_.size() && unread.size() < kMostHead && reader_->Now() == HttpBody::State::More)
    used_ += reader_->Step(QByteArrayView(input_).sliced(used_), unread);
  ReleaseConnection();
  stall_.stop();
  const QUrl target = url_.resolved(QUrl::fromEncoded(head_->location));
  if (++redirects_ > shared_.limits.maxRedirects) return Fail();
  Q_EMIT Moved(target);
}

void UrlTransfer::Finish(bool isFlood) {
  Stop();
  Q_EMIT Failed(isFlood);
}

void UrlTransfer::Stop() {
  isPaused_ = false;
  stall_.stop();
  opening_.stop();
  deadline_.stop();
  DropConnection();
  ForgetBody();
}

void UrlTransfer::ForgetBody() {
  shared_.budget.Give(body_.size());
  body_ = {};
}

void UrlTransfer::DropConnection() {
  if (!connection_) return;
  UrlConnection* connection = std::exchange(connection_, nullptr);
  connection->disconnect(this);
  shared_.pool.Drop(connection);
}

// Gives the connection back for the next read of its server if the answer has ended cleanly, else closes it.
void UrlTransfer::ReleaseConnection() {
  if (!connection_) return;
  const bool isAtEnd = reader_->Now() == HttpBody::State::Whole && used_ == input_.size();
  if (!isAtEnd || !head_->isKeepAlive || !KeepsConnection()) return DropConnection();
  UrlConnection* connection = std::exchange(connection_, nullptr);
  connection->disconnect(this);
  shared_.pool.GiveBack(connection);
}

void UrlTransfer::EmitProgress() {
  sinceProgress_.start();
  Q_EMIT Progress(AnnouncedLength(), body_.size());
}

// Length of the body as the server announced it; 0 where it announced none, or that of the packed body.
qint64 UrlTransfer::AnnouncedLength() const {
  if (!head_ || head_->isChunked || head_->packing != HttpHead::Packing::None) return 0;
  return std::max<qint64>(head_->length, 0);
}
