// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/url_transfer.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kProgressEveryMs = 30;
constexpr qint64 kSlice = 64LL * 1024;

bool IsWebAddress(const QUrl& url) {
  const QString scheme = url.scheme();
  return url.isValid() && !url.host().isEmpty() && (scheme == "http"_L1 || scheme == "https"_L1);
}

int Status(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

// Qt reports a status of 400 and above as an error although the answer came whole; such errors are these.
bool IsAnswer(const QNetworkReply& reply) {
  const QNetworkReply::NetworkError error = reply.error();
  if (error == QNetworkReply::NoError) return true;
  const bool ofStatus = (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError) ||
                        (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError) ||
                        error == QNetworkReply::ProtocolInvalidOperationError ||
                        error == QNetworkReply::ProxyAuthenticationRequiredError;
  return ofStatus && Status(reply) >= 400;
}

bool IsRedirect(const QNetworkReply& reply) {
  switch (Status(reply)) {
    case 301:
    case 302:
    case 303:
    case 307:
    case 308:
      return !reply.rawHeader("Location").isEmpty();
    default:
      return false;
  }
}

QNetworkRequest RequestFor(const QUrl& url) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader, u"Omni-Perch/6.50"_s);
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  // Stations are small servers: plain connections, six of them, are what they know.
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  // Redirects are followed by hand: none of Qt's policies allows https to http and still refuses every other scheme.
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  // The body limit here counts unpacked bytes whatever their ratio.
  request.setDecompressedSafetyCheckThreshold(-1);
  return request;
}

}  // namespace

UrlTransfer::UrlTransfer(QNetworkAccessManager& access, const UrlLimits& limits, const CookieList& cookies,
                         QObject* parent)
    : QObject(parent), access_(access), limits_(limits), cookies_(cookies), stall_(this), deadline_(this) {
  stall_.setSingleShot(true);
  deadline_.setSingleShot(true);
  connect(&stall_, &QTimer::timeout, this, &UrlTransfer::Fail);
  connect(&deadline_, &QTimer::timeout, this, &UrlTransfer::Fail);
}

UrlTransfer::~UrlTransfer() {
  DropReply();
}

void UrlTransfer::Begin(const QUrl& url) {
  deadline_.start(limits_.deadline);
  Request(url);
}

void UrlTransfer::Request(const QUrl& url) {
  stall_.start(limits_.stall);
  if (!IsWebAddress(url)) {
    QMetaObject::invokeMethod(this, &UrlTransfer::Fail, Qt::QueuedConnection);
    return;
  }
  QNetworkRequest request = RequestFor(url);
  if (const QByteArray cookies = cookies_.HeaderFor(url); !cookies.isEmpty()) request.setRawHeader("Cookie", cookies);
  reply_ = access_.get(request);
  connect(reply_, &QNetworkReply::metaDataChanged, this, &UrlTransfer::OnHeaders);
  connect(reply_, &QNetworkReply::readyRead, this, &UrlTransfer::OnData);
  connect(reply_, &QNetworkReply::finished, this, &UrlTransfer::OnFinished);
}

void UrlTransfer::OnHeaders() {
  Q_EMIT Heard();
  stall_.start(limits_.stall);
  const auto cookies = reply_->header(QNetworkRequest::SetCookieHeader).value<QList<QNetworkCookie>>();
  if (!cookies.isEmpty()) Q_EMIT CookiesTold(reply_->url(), cookies);
  if (reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong() > limits_.maxBody) Fail();
}

void UrlTransfer::OnData() {
  Q_EMIT Heard();
  stall_.start(limits_.stall);
  if (!Drain()) return;
  if (sinceProgress_.isValid() && sinceProgress_.elapsed() < kProgressEveryMs) return;
  if (IsRedirect(*reply_)) return;
  sinceProgress_.start();
  Q_EMIT Progress(ToldLength(), body_.size());
}

// Takes over what has come, in slices: a few packed bytes can hold gigabytes. False when that ended the read.
bool UrlTransfer::Drain() {
  while (true) {
    const QByteArray slice = reply_->read(kSlice);
    if (slice.isEmpty()) return true;
    body_ += slice;
    if (body_.size() > limits_.maxBody) {
      Fail();
      return false;
    }
  }
}

void UrlTransfer::OnFinished() {
  Q_EMIT Heard();
  if (!Drain()) return;
  if (!IsAnswer(*reply_) || body_.size() < ToldLength()) {
    Fail();
    return;
  }
  if (Follow()) return;
  const qint64 max = ToldLength();
  Stop();
  Q_EMIT Progress(max, body_.size());
  Q_EMIT Done(body_);
}

// True when the answer was a redirect and the read goes on, or has failed, at its target.
bool UrlTransfer::Follow() {
  if (!IsRedirect(*reply_)) return false;
  const QUrl target = reply_->url().resolved(QUrl::fromEncoded(reply_->rawHeader("Location")));
  DropReply();
  body_.clear();
  if (++redirects_ > limits_.maxRedirects) {
    Fail();
  } else {
    Request(target);
  }
  return true;
}

void UrlTransfer::Fail() {
  Stop();
  Q_EMIT Failed();
}

void UrlTransfer::Stop() {
  stall_.stop();
  deadline_.stop();
  DropReply();
}

void UrlTransfer::DropReply() {
  if (!reply_) return;
  QNetworkReply* reply = std::exchange(reply_, nullptr);
  reply->disconnect(this);
  reply->abort();
  reply->deleteLater();
}

// Length of the body as the server told it; 0 where it did not, or where it told that of the packed one. Qt unpacks on
// its own and tells neither the packed length nor whether the stream was whole: a packed body that was cut off passes.
qint64 UrlTransfer::ToldLength() const {
  const QByteArray packing = reply_->rawHeader("Content-Encoding").trimmed().toLower();
  if (!packing.isEmpty() && packing != "identity") return 0;
  return reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong();
}
