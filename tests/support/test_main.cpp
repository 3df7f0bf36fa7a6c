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
  QApplication app(argc, argv);
  QStandardPaths::setTestModeEnabled(true);
  int failures = 0;
  for (const TestSuite::Maker& make : TestSuite::Makers()) {
    const std::unique_ptr<QObject> test(make());
    failures += QTest::qExec(test.get(), argc, argv);
  }
  return failures == 0 ? 0 : 1;
}
