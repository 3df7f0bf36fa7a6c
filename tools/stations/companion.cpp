// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion.h"

#include <QLocale>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Companion::Companion(const QString& socketDir, QObject* parent) : QObject(parent), socketDir_(socketDir) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, &Companion::Hear);
  const QString own = socketDir + u"/tv-echo-form1"_s;
  QLocalServer::removeServer(own);
  server_.listen(own);
  // The whole list, as the program knows nothing of what it was told before it was started anew.
  connect(&link_, &QLocalSocket::connected, this, [this] { Send(List()); });
  connect(&retry_, &QTimer::timeout, this, [this] {
    if (link_.state() == QLocalSocket::UnconnectedState) link_.connectToServer(socketDir_ + u"/omni-perch-form1"_s);
  });
  retry_.start(1s);
}

void Companion::Report(const QList<Reception>& receptions) {
  for (const Reception& reception : receptions) {
    receptions_.removeIf([&](const Reception& earlier) { return earlier.call == reception.call; });
  }
  receptions_ = receptions + receptions_;
  Send(List());
}

QByteArray Companion::List() const {
  QStringList records;
  for (const Reception& reception : receptions_) {
    QStringList fields{reception.call, reception.text};
    if (reception.when.isValid()) fields << QLocale::c().toString(reception.when, u"M/d/yyyy hh:mm:ss"_s);
    records << fields.join(u'\t');
  }
  return "txtRxOk=" + records.join(u'*').toUtf8() + '\n';
}

void Companion::Send(const QByteArray& line) {
  if (!IsConnected()) return;
  link_.write(line);
  link_.flush();
}

void Companion::Hear() {
  while (QLocalSocket* caller = server_.nextPendingConnection()) {
    connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
    const auto read = [this, caller] {
      while (caller->canReadLine()) {
        if (caller->readLine(100).trimmed() == "Closed") Q_EMIT ProgramClosed();
      }
    };
    connect(caller, &QLocalSocket::readyRead, this, read);
    read();
  }
}
