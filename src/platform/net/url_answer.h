// SPDX-License-Identifier: GPL-3.0-or-later
// What the network thread tells the program about one read.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

// One step of a read, or its end.
struct UrlAnswer {
  enum class Kind { Progress, Done, Failed };
  Kind kind = Kind::Failed;
  quint64 id = 0;
  qint64 max = 0;
  qint64 read = 0;
  QByteArray body;
  QString floodingHost;  // of a read that failed because its server sent too much
};
