// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook_host.h"

#include <QMessageAuthenticationCode>
#include <QRandomGenerator>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// A session is recognised by its seal, not by a list, so that it goes on when the band has been started anew. The
// secret guards made-up data only.
constexpr auto kSecret = "no secret at all";
constexpr qsizetype kIdLength = 32;

QByteArray Seal(Callbook service, const QByteArray& id) {
  return QMessageAuthenticationCode::hash(CallbookName(service).toUtf8() + id, kSecret, QCryptographicHash::Sha256)
      .toHex();
}

Answer Found(const QByteArray& page) {
  return {200, "text/html; charset=windows-1252", page, {}};
}

Answer SeeOther(const QByteArray& location, const QByteArray& cookie) {
  return {303, "text/html", "<html><body>This way, please.</body></html>\n", location, {{"Set-Cookie", cookie}}};
}

// How long a browser is to keep the cookie, in which the services differ: for a time, until it ends, until a date.
QByteArray Lifetime(Callbook service) {
  constexpr int kDays = 30;
  switch (service) {
    case Callbook::eHam:
      return "; Max-Age=" + QByteArray::number(kDays * 86400);
    case Callbook::QRZCQ: {
      const QDateTime end = QDateTime::currentDateTimeUtc().addDays(kDays);
      return "; Expires=" + QLocale::c().toString(end, u"ddd, dd MMM yyyy hh:mm:ss 'GMT'"_s).toLatin1();
    }
    case Callbook::HamCall:
      return "; SameSite=Lax";
    default:
      return {};
  }
}

}  // namespace

CallbookHost::CallbookHost(Callbook service, const QHostAddress& address, quint16 port, QObject* parent)
    : Host(address, port, parent), service_(service) {}

QByteArray CallbookHost::CookieName() const {
  switch (service_) {
    case Callbook::eHam:
      return "ehsession";
    case Callbook::QRZ:
      return "session";
    case Callbook::QRZCQ:
      return "sid";
    case Callbook::HamCall:
      return "hc";
    case Callbook::Callook:
      break;
  }
  return {};
}

QString CallbookHost::CallIn(const Request& request) const {
  constexpr std::array kFolders{"callbook/"_L1, "db/"_L1, "call/"_L1, ""_L1};
  if (service_ == Callbook::HamCall) {
    return request.path == "call"_L1 ? request.QueryValue("callsign") : QString();
  }
  const QLatin1StringView folder = kFolders.at(static_cast<std::size_t>(service_));
  return request.path.startsWith(folder) ? request.path.mid(folder.size()) : QString();
}

QByteArray CallbookHost::RootPath() const {
  return service_ == Callbook::HamCall ? "/call" : "/";
}

QByteArray CallbookHost::NewSession() const {
  std::array<quint32, kIdLength / 8> chance{};
  QRandomGenerator::system()->fillRange(chance.data(), static_cast<qsizetype>(chance.size()));
  const QByteArray id = QByteArray(reinterpret_cast<const char*>(chance.data()), sizeof chance).toHex();
  return id + '.' + Seal(service_, id);
}

bool CallbookHost::IsSignedIn(const Request& request) const {
  if (service_ == Callbook::Callook) return false;
  const QByteArray session = request.Cookie(CookieName());
  const QByteArray id = session.left(kIdLength);
  return session == id + '.' + Seal(service_, id) && !ended_.contains(session);
}

Answer CallbookHost::SignIn(const Request& request) const {
  const bool isRight =
      !request.FormValue("user").isEmpty() && request.FormValue("password") == QLatin1StringView(kCallbookPassword);
  if (!isRight) return Found(LoginPage(service_, true));
  return SeeOther(RootPath(), CookieName() + '=' + NewSession() + "; Path=/; HttpOnly" + Lifetime(service_));
}

Answer CallbookHost::SignOut(const Request& request) {
  if (IsSignedIn(request)) ended_.insert(request.Cookie(CookieName()));
  return SeeOther(RootPath(), CookieName() + "=; Path=/; HttpOnly; Max-Age=0");
}

void CallbookHost::Handle(const Request& request, const Deliver& deliver) {
  const bool hasLogin = service_ != Callbook::Callook;
  const QString call = CallIn(request);
  if (hasLogin && request.path == "login"_L1) {
    deliver(request.method == "POST" ? SignIn(request) : Found(LoginPage(service_, false)));
  } else if (hasLogin && request.path == "logout"_L1) {
    deliver(SignOut(request));
  } else if (request.path.isEmpty() || (call.isEmpty() && '/' + request.path.toUtf8() == RootPath())) {
    deliver(Found(FrontPage(service_, IsSignedIn(request))));
  } else if (!call.isEmpty()) {
    deliver(Found(CallPage(service_, call, FindOperator(call), IsSignedIn(request))));
  } else {
    deliver(NoSuchPage());
  }
}
