// SPDX-License-Identifier: GPL-3.0-or-later
// The messages of the network thread to the program about one read.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

// One step of a read, or its end.
struct UrlAnswer {
  // Begun, of UrlPriority::Behind alone, and Progress may come several times; one of the others ends the read.
  enum class Kind { Begun, Progress, Done, Failed };
  Kind kind = Kind::Failed;
  quint64 id = 0;
  qint64 max = 0;   // bytes of the body as the server announced them; 0: unknown
  qint64 read = 0;  // bytes of the body so far
  QByteArray body;
  QString floodingHost;  // of a read that failed because its server sent too much
};
