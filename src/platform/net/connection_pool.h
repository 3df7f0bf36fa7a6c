// SPDX-License-Identifier: GPL-3.0-or-later
// The open connections of the program. Those that nobody reads from are kept a while for the next read of their server.
// The network thread owns one; url_transfer takes its connections from it and gives them back.
#pragma once

#include <QDeadlineTimer>
#include <QList>
#include <QTimer>

#include "platform/net/url_connection.h"
#include "platform/net/url_limits.h"

class ConnectionPool : public QObject {
  Q_OBJECT

 public:
  // A connection, and whether it has served before: the server may be closing such a one just now.
  struct Taken {
    UrlConnection* connection = nullptr;
    bool isUsed = false;
  };

  ConnectionPool(const UrlLimits& limits, const AddressRules& rules, QObject* parent);

  // An idle connection to the place, or a new one that is not open yet. onlyPublic: one that leads into the user's own
  // network is no choice; the new one then fails.
  Taken Take(const HttpPlace& place, bool onlyPublic);
  UrlConnection* TakeNew(const HttpPlace& place, bool onlyPublic);
  // For the next read of its server. Nothing may be left to read of it.
  void GiveBack(UrlConnection* connection);
  // It is closed and forgotten.
  void Drop(UrlConnection* connection);

 private:
  struct Idle {
    UrlConnection* connection = nullptr;
    QDeadlineTimer until;
  };

  void DropIdle(UrlConnection* connection);
  void CloseSurplus();
  void CloseOld();

  const UrlLimits limits_;
  const AddressRules& rules_;
  QList<Idle> idle_;  // the one that was given back first stands first
  qsizetype taken_ = 0;
  QTimer old_;
};
