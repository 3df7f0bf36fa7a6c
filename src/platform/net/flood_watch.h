// SPDX-License-Identifier: GPL-3.0-or-later
// Ends connections that a server floods. Qt reads the head of an answer, the length of a chunk and what comes between
// answers byte by byte and to its end; a server that goes on without end holds its thread, and with it every other read
// of the program. Called by url_reader.
#pragma once

#include <QHash>
#include <QHostAddress>
#include <QList>

class FloodWatch {
 public:
  struct Peer {
    QHostAddress address;
    quint16 port = 0;
    bool operator==(const Peer& other) const = default;
  };

  struct Flood {
    int descriptor = -1;
    Peer peer;
  };

  // Looks at the connections of this process to some peers, while no answer comes from anybody: the flood is the one
  // that was read from since the last look and still holds unread bytes. The others wait for its reader, and hold what
  // came.
  QList<Flood> Look(const QList<Peer>& peers);
  // All connections of this process that hold bytes that nobody took.
  static QList<Flood> Unread();
  // The reader of such a connection sees its end.
  static void Cut(const QList<Flood>& floods);
  // Makes the next look the first one.
  void Forget() { taken_.clear(); }

 private:
  // Bytes that were taken from each connection up to the last look, by its descriptor.
  QHash<int, qint64> taken_;
};
