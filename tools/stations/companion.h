// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the companion program TV Echo: tells Omni-Perch by its channel which stations have received the user's picture,
// and hears when the program closes. omni-perch-stations makes one for the demo, a test on a folder of its own.
#pragma once

#include <QDateTime>
#include <QLocalServer>
#include <QLocalSocket>
#include <QObject>
#include <QTimer>

// One station that has reported a good reception.
struct Reception {
  QString call;
  QString text;
  QDateTime when;  // UTC; invalid: the station told none

  bool operator==(const Reception&) const = default;
};

class Companion : public QObject {
  Q_OBJECT

 public:
  // socketDir: the folder of both sockets. Tries again and again to reach the program, which may start later.
  explicit Companion(const QString& socketDir, QObject* parent = nullptr);

  // A picture of the user's has been received by these. Earlier reports stay until a station reports again.
  void Report(const QList<Reception>& receptions);
  // Wants the program to poll its stations.
  void Refresh() { Send("txtFromRxOk=Refresh\n"); }
  bool IsConnected() const { return link_.state() == QLocalSocket::ConnectedState; }

 Q_SIGNALS:
  // The program has said that it closes.
  void ProgramClosed();

 private:
  QByteArray List() const;
  void Send(const QByteArray& line);
  void Hear();

  QString socketDir_;
  QLocalSocket link_;
  QLocalServer server_;
  QTimer retry_;
  QList<Reception> receptions_;  // the latest first
};
