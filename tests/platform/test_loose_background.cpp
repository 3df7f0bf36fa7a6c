// SPDX-License-Identifier: GPL-3.0-or-later
#include <QEventLoop>
#include <QSemaphore>
#include <QTimer>

#include "platform/loose_background.h"
#include "test_suite.h"

class TestLooseBackground : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The owner goes while a job runs: it does not wait, the job ends, and its result goes to nobody.
  void LetsTheJobRunOn() {
    QSemaphore begun;
    QSemaphore mayEnd;
    bool answered = false;
    const auto work = [&begun, &mayEnd]() {
      begun.release();
      return mayEnd.tryAcquire(1, 10'000);
    };
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&]() {
      auto owner = std::make_unique<QObject>();
      auto background = std::make_unique<LooseBackground>();
      background->Run<bool>(owner.get(), work, [&answered](bool) { answered = true; });
      begun.acquire();
      background.reset();
      QCOMPARE(mayEnd.available(), 0);  // the job is still at its work
      owner.reset();
      mayEnd.release();
      loop.quit();
    });
    loop.exec();
    QTRY_COMPARE(mayEnd.available(), 0);
    QVERIFY(!answered);
  }
};

OMNI_TEST(TestLooseBackground)
#include "test_loose_background.moc"
