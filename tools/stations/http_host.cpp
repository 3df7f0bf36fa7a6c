// SPDX-License-Identifier: GPL-3.0-or-later
#include "http_host.h"

#include <QNetworkProxy>
#include <QPointer>
#include <QTimer>

#include "http_connection.h"
#include "picture_faults.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLogLines = 10000;
// A redirect that leads to the right thing goes through this folder, where nothing misbehaves.
constexpr auto kMoved = "moved/"_L1;

QByteArray Page(const QByteArray& title, const QByteArray& text) {
  return "<!DOCTYPE html>\n<html><head><title>" + title + "</title></head>\n<body><h1>" + title + "</h1><p>" + text +
         "</p><hr><address>A small web server in a radio shack</address></body></html>\n";
}

QByteArray Garbage() {
  QByteArray bytes(6000, '\0');
  quint32 state = 0x2545f491U;
  for (char& byte : bytes) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<char>(0x80U | (state >> 25U));
  }
  return bytes;
}

// The answer under a behaviour that changes its content; HttpConnection does the behaviours that change how it is sent.
Answer Altered(const Answer& answer, Behaviour behaviour, const QByteArray& target) {
  switch (behaviour) {
    case Behaviour::NotFound:
      return {404, "text/html", Page("404 Not Found", "The requested page is not on this server."), {}};
    case Behaviour::ServerError:
      return {500, "text/html", Page("Internal Server Error", "The server could not fulfil your request."), {}};
    case Behaviour::EmptyBody:
      return {200, answer.type, {}, {}};
    case Behaviour::WrongType:
      return {200, "text/html", Page("It works", "Welcome to the new web site of the club."), {}};
    case Behaviour::Bomb:
      return {200, answer.type, AsBomb(answer.body), {}};
    case Behaviour::GarbageBody:
      return {200, answer.type, Garbage(), {}};
    case Behaviour::RedirectLoop:
      return {302, "text/html", Page("Found", "Look here."), target};
    case Behaviour::RedirectToFile:
      return {302, "text/html", Page("Found", "Look there."), "file:///etc/passwd"};
    case Behaviour::RedirectOk:
      return {302, "text/html", Page("Found", "Moved."), "/" + QByteArray(kMoved.data()) + target.mid(1)};
    default:
      return answer;
  }
}

bool NeedsBody(Behaviour behaviour) {
  switch (behaviour) {
    case Behaviour::NotFound:
    case Behaviour::ServerError:
    case Behaviour::EmptyBody:
    case Behaviour::WrongType:
    case Behaviour::GarbageBody:
    case Behaviour::RedirectLoop:
    case Behaviour::RedirectToFile:
    case Behaviour::RedirectOk:
    case Behaviour::Reset:
      return false;
    default:
      return true;
  }
}

}  // namespace

Answer NoSuchPage() {
  return {404,
          "text/html",
          "<html><head><title>404 Not Found</title></head><body><h1>Not Found</h1><p>There is no such page on this "
          "server.</p></body></html>",
          {}};
}

Host::Host(const QHostAddress& address, quint16 port, QObject* parent)
    : QObject(parent), address_(address), port_(port) {
  server_.setProxy(QNetworkProxy::NoProxy);
  connect(&server_, &QTcpServer::newConnection, this, &Host::Accept);
  hasAddress_ = server_.listen(address_, port_);
  if (hasAddress_) port_ = server_.serverPort();
}

Host::~Host() = default;

QString Host::Base() const {
  return u"http://%1:%2"_s.arg(address_.toString()).arg(port_);
}

void Host::Misbehave(const QString& path, Behaviour behaviour) {
  behaviours_.insert(path, behaviour);
  const bool refuse = behaviours_.values().contains(Behaviour::Refuse);
  if (refuse && server_.isListening()) {
    server_.close();
    for (QObject* child : children()) {
      if (auto* connection = dynamic_cast<HttpConnection*>(child)) connection->Reset();
    }
  } else if (!refuse && !server_.isListening()) {
    server_.listen(address_, port_);
  }
}

int Host::Requests(const QString& path) const {
  return counts_.value(path.startsWith(u'/') ? path.mid(1) : path);
}

void Host::Accept() {
  while (QTcpSocket* socket = server_.nextPendingConnection()) new HttpConnection(socket, *this);
}

Behaviour Host::BehaviourOf(const QString& path) const {
  return behaviours_.value(path, behaviours_.value(QString(), Behaviour::Normal));
}

void Host::Take(HttpConnection* connection, Request request) {
  QString& path = request.path;
  log_.append(QString::fromLatin1(request.target));
  if (log_.size() > kLogLines) log_.removeFirst();
  ++total_;
  ++counts_[path];

  Behaviour behaviour = BehaviourOf(path);
  if (path.startsWith(kMoved)) {
    path.remove(0, kMoved.size());
    behaviour = Behaviour::Normal;
  }
  if (behaviour == Behaviour::Stall) {
    connection->FallSilent();
    return;
  }
  const QPointer<HttpConnection> caller(connection);
  const Deliver deliver = [this, caller, behaviour, path, target = request.target](const Answer& answer) {
    if (!caller) return;
    QTimer::singleShot(
        latencies_.value(path, latency_), caller.data(),
        [caller, behaviour, told = Altered(answer, behaviour, target)] { caller->Send(told, behaviour); });
  };
  if (!NeedsBody(behaviour)) {
    deliver({});
  } else if (request.method == "POST" && !TakesForms()) {
    deliver({405, "text/plain", "GET and HEAD only\n", {}});
  } else if (answers_.contains(path)) {
    deliver(answers_.value(path));
  } else {
    Handle(request, deliver);
  }
}
