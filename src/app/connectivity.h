// SPDX-License-Identifier: GPL-3.0-or-later
// Tests whether the Internet can be reached by reading the root page of a well-known server. The main window runs the
// test as it loads, and again when the user asks for it.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>

#include "platform/net/url_reader.h"

// One test at a time.
class ConnectivityTest : public QObject {
  Q_OBJECT

 public:
  // host: scheme and authority; empty: there is none, and every test fails. patience: without an answer by then the
  // test fails.
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
