// SPDX-License-Identifier: GPL-3.0-or-later
// One executable runs several test classes: each registers itself with OMNI_TEST(Class), and test_main runs them all.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

class TestSuite {
 public:
  using Maker = std::function<QObject*()>;
  static std::vector<Maker>& Makers();
  explicit TestSuite(Maker maker) { Makers().push_back(std::move(maker)); }
};

#define OMNI_TEST(Class) static const TestSuite registered##Class([]() -> QObject* { return new Class; });
