// SPDX-License-Identifier: GPL-3.0-or-later
// The open connections of the program. Those that nobody reads from are kept a while for the next read of their server.
// The network thread owns one; url_transfer takes its connections from it and gives them back.
#pragma once

#include <QDeadlineTimer>
#include <QList>
#include <QTimer>

#include "platform/net/url_connection.h"
#include "platform/net/url_limits.h"

// Idle connections, and a count of those that are in use.
class ConnectionPool : public QObject {
  Q_OBJECT

 public:
  // A connection. isUsed: an earlier read has used it, so the server may be closing it just now.
  struct Taken {
    UrlConnection* connection = nullptr;
    bool isUsed = false;
  };

  ConnectionPool(const UrlLimits& limits, const AddressRules& rules, QObject* parent);

  // Returns an idle connection to the place, or a new one that is not open yet. onlyPublic: an idle one that leads into
  // the user's own network is not taken, and a new one will refuse such addresses.
  Taken Take(const HttpPlace& place, bool onlyPublic);
  UrlConnection* TakeNew(const HttpPlace& place, bool onlyPublic);
  // Keeps a connection for the next read of its server. All that the server sent must have been read.
  void GiveBack(UrlConnection* connection);
  // Closes a connection that was taken.
  void Drop(UrlConnection* connection);

 private:
  // A connection that nobody reads from, and when it is closed.
  struct Idle {
    UrlConnection* connection = nullptr;
    QDeadlineTimer until;
  };

  void DropIdle(UrlConnection* connection);
  void CloseSurplus();
  void CloseExpired();

  const UrlLimits limits_;
  const AddressRules& rules_;
  QList<Idle> idle_;     // in the order in which they were given back
  qsizetype inUse_ = 0;  // connections in use
  QTimer idleTimer_;
};
