// SPDX-License-Identifier: GPL-3.0-or-later
// Asynchronous reads of http(s) addresses by key. UrlNetwork is the program's one access manager with its limits;
// each download control owns a UrlReader with a key space of its own.
#pragma once

#include <QHash>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QUrl>
#include <chrono>

// What no server may exceed.
struct UrlLimits {
  std::chrono::milliseconds stall = std::chrono::seconds(60);     // without a byte
  std::chrono::milliseconds deadline = std::chrono::minutes(10);  // in all, against a slow drip
  qint64 maxBody = 64LL * 1024 * 1024;                            // unpacked bytes
  int maxRedirects = 10;
};

class UrlReader;

class UrlNetwork : public QObject {
  Q_OBJECT

 public:
  explicit UrlNetwork(const UrlLimits& limits = {}, QObject* parent = nullptr);

 private:
  friend class UrlReader;
  // Reads are begun a few at a time from the event loop, so that a walk over a whole page never holds it.
  void Enqueue(UrlReader* reader, const QString& key);
};

class UrlReader : public QObject {
  Q_OBJECT

 public:
  explicit UrlReader(UrlNetwork& network, QObject* parent = nullptr);
  ~UrlReader() override;

  // Begins a read; one pending under the same key is cancelled first and says nothing. Never answers before it returns.
  void Start(const QString& key, const QUrl& url);
  // Ends a read without a word; a key that is not pending is passed over.
  void Cancel(const QString& key);
  bool IsPending(const QString& key) const;

 Q_SIGNALS:
  // max is 0 where the server did not tell the length.
  void Progress(const QString& key, qint64 max, qint64 read);
  // The whole body, whatever the HTTP status. The key is no longer pending when this is raised.
  void Done(const QString& key, const QByteArray& body);
  // Transport error, limit exceeded, or an address that is not http(s).
  void Failed(const QString& key);
};
