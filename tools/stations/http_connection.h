// SPDX-License-Identifier: GPL-3.0-or-later
// One connection of a host: takes requests one after the other and writes the answers, properly or with the fault that
// is wanted. Host makes one for each caller.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include "http_host.h"

// The server's end of one socket.
class HttpConnection : public QObject {
 public:
  // Takes the socket over.
  HttpConnection(QTcpSocket* socket, Host& host);

  // Writes the answer to the request that is pending.
  void Send(const Answer& answer, Behaviour behaviour);
  // Sends nothing for the request that is pending and takes no other.
  void FallSilent() { busy_ = true; }
  // Ends the connection so that the caller sees a reset, not an orderly end.
  void Reset();

 private:
  void ReadMore();
  void TakeHead(const QByteArray& head);
  void WriteHead(const Answer& answer, qint64 length);
  void WriteWhole(const Answer& answer);
  void WritePart(const Answer& answer, qint64 claimed, qint64 sent);
  void BeginFlood(const QByteArray& bytes);
  void Flood();
  void BeginStream(const Answer& answer);
  void BeginDrip(const Answer& answer);
  void DripByte();
  void Finish();

  QTcpSocket* socket_;
  Host& host_;
  QByteArray buffer_;
  QByteArray rest_;  // the bytes that flood or drip
  QTimer drip_;
  qsizetype dripped_ = 0;
  RequestHead pending_;
  bool hasHead_ = false;  // the head of the request that is coming in is complete
  bool busy_ = false;
  bool headOnly_ = false;
  bool keepAlive_ = true;
};
