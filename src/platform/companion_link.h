// SPDX-License-Identifier: GPL-3.0-or-later
// The channel of the companion program TV Echo: a local socket of the same user that takes "txtRxOk=..." and
// "txtFromRxOk=..." lines; at closing one line goes the other way. ReceivedOk owns the program's only one.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <QObject>
#include <QString>

// The program's end of the channel.
class CompanionLink : public QObject {
  Q_OBJECT

 public:
  // socketDir: the folder of both sockets.
  explicit CompanionLink(const QString& socketDir, QObject* parent = nullptr);
  ~CompanionLink() override;

  // $XDG_RUNTIME_DIR or the temporary folder.
  static QString DefaultSocketDir();

  // Opens "omni-perch-form1" for this user alone. False where it cannot be opened; the program goes on without.
  bool Listen();
  // Stops listening and sends "Closed" to "tv-echo-form1"; nobody there is no error. Waits at most half a second.
  void SendClosed();

 Q_SIGNALS:
  // item: "txtRxOk" or "txtFromRxOk"; other lines and lines over 1 MiB are dropped. Of each client one line is told in
  // a turn of the event loop. Eight clients are heard; a ninth is hung up on.
  void TextArrived(const QString& item, const QString& text);

 private:
  // A connection, and what it has sent of lines that have not been taken yet.
  struct Client {
    QByteArray bytes;
    bool tooLong = false;    // what is left of this line is skipped
    bool readsSoon = false;  // Read() is queued
  };

  void CloseConnections();
  void Accept();
  void Read(QLocalSocket* socket);
  void ReadSoon(QLocalSocket* socket);
  void TakeLine(const QByteArray& line);

  QString socketDir_;
  QLocalServer server_;
  QHash<QLocalSocket*, Client> clients_;
};
