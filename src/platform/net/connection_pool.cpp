// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/connection_pool.h"

#include <algorithm>

ConnectionPool::ConnectionPool(const UrlLimits& limits, const AddressRules& rules, QObject* parent)
    : QObject(parent), limits_(limits), rules_(rules), idleTimer_(this) {
  idleTimer_.setSingleShot(true);
  connect(&idleTimer_, &QTimer::timeout, this, &ConnectionPool::CloseExpired);
}

ConnectionPool::Taken ConnectionPool::Take(const HttpPlace& place, bool onlyPublic) {
  // Takes the connection that was used last: its server is the least likely to have closed it.
  for (qsizetype i = idle_.size() - 1; i >= 0; --i) {
    UrlConnection* connection = idle_[i].connection;
    if (connection->Place() != place || connection->HasEnded()) continue;
    if (onlyPublic && connection->LeadsIntoPrivate()) continue;
    connection->disconnect(this);
    idle_.removeAt(i);
    ++inUse_;
    return {connection, true};
  }
  return {TakeNew(place, onlyPublic), false};
}

UrlConnection* ConnectionPool::TakeNew(const HttpPlace& place, bool onlyPublic) {
  ++inUse_;
  CloseSurplus();
  return new UrlConnection(place, rules_, onlyPublic, this);
}

void ConnectionPool::GiveBack(UrlConnection* connection) {
  if (connection->HasEnded()) return Drop(connection);
  --inUse_;
  idle_ += {connection, QDeadlineTimer(limits_.idle)};
  // An idle connection that ends, or on which the server sends something that nobody has asked for, is dropped.
  connect(connection, &UrlConnection::Lost, this, [this, connection]() { DropIdle(connection); });
  connect(connection, &UrlConnection::Readable, this, [this, connection]() { DropIdle(connection); });
  CloseSurplus();
  if (!idleTimer_.isActive()) idleTimer_.start(limits_.idle);
}

void ConnectionPool::Drop(UrlConnection* connection) {
  --inUse_;
  connection->deleteLater();
}

void ConnectionPool::DropIdle(UrlConnection* connection) {
  connection->disconnect(this);
  idle_.removeIf([connection](const Idle& one) { return one.connection == connection; });
  connection->deleteLater();
}

void ConnectionPool::CloseSurplus() {
  while (!idle_.isEmpty() && inUse_ + idle_.size() > limits_.maxSockets) DropIdle(idle_.first().connection);
}

void ConnectionPool::CloseExpired() {
  while (!idle_.isEmpty() && idle_.first().until.hasExpired()) DropIdle(idle_.first().connection);
  if (idle_.isEmpty()) return;
  using std::chrono::milliseconds;
  const auto rest = std::chrono::ceil<milliseconds>(idle_.first().until.remainingTimeAsDuration());
  idleTimer_.start(std::max(rest, milliseconds(1)));
}
