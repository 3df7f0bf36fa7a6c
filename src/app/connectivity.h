// SPDX-License-Identifier: GPL-3.0-or-later
// Asks once whether the Internet can be reached: the root page of a well-known server. The main window runs it as it
// loads, and again when the user says so.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>

#include "platform/net/url_reader.h"

class ConnectivityTest : public QObject {
  Q_OBJECT

 public:
  // host: scheme and authority; empty means that there is none, and every test fails.
  ConnectivityTest(UrlNetwork& network, const QString& host,
                   std::chrono::milliseconds patience = std::chrono::seconds(15), QObject* parent = nullptr);

  void Run();

 Q_SIGNALS:
  // Any answer of the server counts as reached.
  void Answered(bool reached);

 private:
  void Answer(bool reached);

  UrlReader reader_;
  QString host_;
  QTimer patience_;
};
