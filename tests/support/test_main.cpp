// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QStandardPaths>
#include <QTest>

#include "test_suite.h"

std::vector<TestSuite::Maker>& TestSuite::Makers() {
  static std::vector<Maker> makers;
  return makers;
}

int main(int argc, char** argv) {
  // A debugger started for each crash takes both processors for minutes and tells nothing that a second run would not.
  qputenv("QTEST_DISABLE_STACK_DUMP", "1");
  QApplication app(argc, argv);
  QStandardPaths::setTestModeEnabled(true);
  // A first argument that names a class runs that class alone; what follows goes to it.
  QStringList arguments = QCoreApplication::arguments();
  QString only;
  for (const TestSuite::Maker& make : TestSuite::Makers()) {
    const std::unique_ptr<QObject> test(make());
    if (arguments.value(1) == QLatin1StringView(test->metaObject()->className())) only = arguments.takeAt(1);
  }
  int failures = 0;
  for (const TestSuite::Maker& make : TestSuite::Makers()) {
    const std::unique_ptr<QObject> test(make());
    if (!only.isEmpty() && only != QLatin1StringView(test->metaObject()->className())) continue;
    failures += QTest::qExec(test.get(), arguments);
  }
  return failures == 0 ? 0 : 1;
}
