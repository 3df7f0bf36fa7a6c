// SPDX-License-Identifier: GPL-3.0-or-later
// What every test file begins with: Qt Test, files and signals, the suffixes of literals, and OMNI_TEST(Class), by
// which a test class joins the one executable of its folder. test_main runs all that have joined. Cases of one rule are
// calls of one lambda, whose first line is a TableRow.
#pragma once

#include <QDir>
#include <QFile>
#include <QObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// The test classes of this executable.
class TestSuite {
 public:
  using Maker = std::function<QObject*()>;
  static std::vector<Maker>& Makers();
  explicit TestSuite(Maker maker) { Makers().push_back(std::move(maker)); }
};

// Names the row of a table in which a comparison has failed: the line number of a failure does not tell it. Rows behind
// the first that failed are named as such, because QTRY_... waits no longer in a test that has failed.
class TableRow {
 public:
  explicit TableRow(const char* name) : name_(name), failedBefore_(QTest::currentTestFailed()) {}
  ~TableRow() {
    if (QTest::currentTestFailed())
      qWarning("%s row \"%s\"", failedBefore_ ? "After a failure," : "Failed in", name_.constData());
  }
  Q_DISABLE_COPY_MOVE(TableRow)

 private:
  QByteArray name_;  // a copy: rows that a loop makes name themselves by a temporary text
  bool failedBefore_;
};

#define OMNI_TEST(Class) static const TestSuite registered##Class([]() -> QObject* { return new Class; });
