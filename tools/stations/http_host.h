// SPDX-License-Identifier: GPL-3.0-or-later
// One web host of the simulated band: a small HTTP/1.1 server on a loopback address of its own, whose answers can be
// told to misbehave. Stations and the named hosts (author, time, ...) derive from it and only say what a path holds.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTcpServer>
#include <chrono>
#include <functional>
#include <utility>

#include "http_request.h"

// What a host does instead of answering properly.
enum class Behaviour {
  Normal,
  NotFound,        // status 404 with a page that says so
  ServerError,     // status 500 with a page
  EmptyBody,       // status 200, no byte
  ShortBody,       // tells a longer body than it sends, then closes
  Truncated,       // half the picture in an answer that is whole
  Endless,         // bytes until the reader gives up
  EndlessHead,     // header lines until the reader gives up
  Stall,           // takes the request and never answers
  StallMidBody,    // falls silent in the middle of the body
  Drip,            // a byte now and then
  Stream,          // the picture again and again, as parts that replace each other
  StreamOpen,      // a first such part that never ends
  Reset,           // the connection is reset
  Refuse,          // the connection is refused: holds for the whole host, whatever path is named
  RedirectLoop,    // to the same address, for ever
  RedirectToFile,  // to a file of the reader's own machine
  RedirectOk,      // one hop to the right thing
  WrongType,       // a page with status 200 that does not say "404"
  Bomb,            // a picture whose header claims 60000x60000 pixels
  GarbageBody      // bytes that are no picture
};

// An answer to a request.
struct Answer {
  int status = 200;
  QByteArray type = "text/html";
  QByteArray body;
  QByteArray location;                                 // of a redirect; else empty
  QList<std::pair<QByteArray, QByteArray>> headers{};  // further ones
};

// Status 404 with a page that says so.
Answer NoSuchPage();

class HttpConnection;

// One server at one address.
class Host : public QObject {
 public:
  // Listens at once; port 0 takes any free one.
  Host(const QHostAddress& address, quint16 port, QObject* parent);
  ~Host() override;

  // False where the address and port were not to be had; a host that refuses on purpose had them.
  bool HasAddress() const { return hasAddress_; }
  // Scheme and authority, without a trailing "/".
  QString Base() const;

  // Sets the behaviour for a path ("checknew.jpg", "image1") from now on; the empty path stands for all paths that have
  // none of their own.
  void Misbehave(const QString& path, Behaviour behaviour);
  // Sets the answer for a path from now on, whatever the host would say; its behaviour still applies.
  void SetAnswer(const QString& path, const Answer& answer) { answers_.insert(path, answer); }
  // Time before the first byte of each answer.
  void SetLatency(std::chrono::milliseconds latency) { latency_ = latency; }
  // The same for one path alone.
  void SetLatency(const QString& path, std::chrono::milliseconds latency) { latencies_.insert(path, latency); }

  // How often a path was asked for, whatever the query; "" is the root page.
  int Requests(const QString& path) const;
  int TotalRequests() const { return total_; }
  // Request targets in order of arrival, queries included, the latest 10,000.
  QStringList Log() const { return log_; }

 protected:
  using Deliver = std::function<void(const Answer&)>;
  // Answers a request, at once or later; deliver may be called after the reader has gone.
  virtual void Handle(const Request& request, const Deliver& deliver) = 0;
  // Whether Handle wants POST too; else only GET and HEAD come to it.
  virtual bool TakesForms() const { return false; }

 private:
  friend class HttpConnection;
  void Accept();
  void Take(HttpConnection* connection, Request request);
  Behaviour BehaviourOf(const QString& path) const;

  QTcpServer server_;
  QHostAddress address_;
  quint16 port_;
  bool hasAddress_ = false;
  QHash<QString, Behaviour> behaviours_;
  QHash<QString, Answer> answers_;
  QHash<QString, int> counts_;
  QStringList log_;
  int total_ = 0;
  std::chrono::milliseconds latency_{0};
  QHash<QString, std::chrono::milliseconds> latencies_;
};
