// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDeadlineTimer>
#include <atomic>
#include <thread>

#include "platform/picture/helper_process.h"
#include "platform/picture/picture_queue.h"
#include "platform/picture/ready_jobs.h"
#include "test_suite.h"

class TestPictureQueue : public QObject {
  Q_OBJECT

  // The jobs that begin at this moment, in their order, while none of them ends.
  QList<quint64> Begun(std::chrono::seconds after = 0s) {
    QList<quint64> order;
    while (const std::optional<quint64> id = queue_.Begin(start_ + after)) order.append(*id);
    return order;
  }
  // The order of all jobs when each ends as soon as it has begun.
  QList<quint64> Order(std::chrono::seconds after = 0s) {
    QList<quint64> order;
    while (const std::optional<quint64> id = queue_.Begin(start_ + after)) {
      order.append(*id);
      queue_.End(*id, false);
    }
    return order;
  }
  void Add(quint64 id, PicturePriority priority = PicturePriority::Usual, const QString& origin = {},
           const QString& target = {}, const std::function<bool()>& wanted = {}) {
    queue_.Add({id, priority, origin, target, wanted}, start_);
  }

  PictureQueue queue_;
  PictureQueue::Time start_{};

 private Q_SLOTS:
  void init() { queue_ = {}; }

  void TheScreenGoesFirstAndWhatWasLeftLast() {
    bool here = true;
    const auto wanted = [&]() { return here; };
    Add(1, PicturePriority::Usual, {}, u"a.jpg"_s, wanted);
    Add(2, PicturePriority::Screen, {}, {}, wanted);
    Add(3, PicturePriority::Later);
    Add(4);
    Add(5, PicturePriority::Screen);
    Add(6, PicturePriority::Screen, {}, u"b.jpg"_s);
    here = false;
    QCOMPARE(queue_.DropUnwanted().waiting, std::vector<quint64>{2});
    QCOMPARE(Order(), QList<quint64>({5, 6, 4, 1, 3}));
  }

  void ASuspectWaitsBehindAllOthersButNotForEver() {
    queue_.Suspect(u"bad"_s);
    const auto fill = [&]() {
      Add(1, PicturePriority::Screen, u"bad"_s);
      Add(2, PicturePriority::Later, u"good"_s);
      Add(3, PicturePriority::Screen);
    };
    fill();
    QCOMPARE(Order(29s), QList<quint64>({3, 2, 1}));
    fill();
    QCOMPARE(Order(30s), QList<quint64>({1, 3, 2}));
    Add(4, PicturePriority::Usual, u"bad"_s);
    QCOMPARE(Begun(), QList<quint64>{4});
    queue_.End(4, true);
    fill();
    QCOMPARE(Order(), QList<quint64>({1, 3, 2}));
  }

  void ASlowPictureMakesRoomOnlyForThoseThatWait() {
    Add(1, PicturePriority::Screen, u"slow"_s);
    QCOMPARE(Begun(), QList<quint64>{1});
    QVERIFY(!queue_.CutsOff(1));  // no other job waits for its process: a large picture is not decoded twice
    queue_.End(1, false);

    Add(2, PicturePriority::Screen, u"fast"_s);
    Add(3, PicturePriority::Screen, u"other"_s);
    Add(4, PicturePriority::Later, u"fast"_s);
    QCOMPARE(Begun(), QList<quint64>({2, 3}));
    QVERIFY(queue_.CutsOff(3));
    queue_.PutLast(3, start_);
    queue_.End(2, true);
    QCOMPARE(Begun(), QList<quint64>({4, 3}));
    Add(5);
    QVERIFY(!queue_.CutsOff(3));  // it is at its second, long try, whoever waits
  }

  void OneHelperIsLeftForTheOthers() {
    queue_.Suspect(u"bad"_s);
    for (const quint64 id : {1U, 2U, 3U}) Add(id, PicturePriority::Screen, u"bad"_s);
    QCOMPARE(Begun(), QList<quint64>({1, 2}));
    QCOMPARE(Begun(60s), QList<quint64>());
    Add(4, PicturePriority::Later);
    QCOMPARE(Begun(60s), QList<quint64>{4});
    QVERIFY(queue_.CutsOff(4));  // it holds the third process, though no other job waits
  }

  void OnlyQuickPicturesOfTheScreenAreMadeReadyAhead() {
    const auto ahead = [this]() {
      QList<quint64> order;
      while (const std::optional<quint64> id = queue_.BeginAhead(start_)) order.append(*id);
      return order;
    };
    for (const quint64 id : {1U, 2U, 3U, 4U, 5U}) Add(id, PicturePriority::Screen, u"host"_s);
    QCOMPARE(Begun(), QList<quint64>({1, 2}));
    QCOMPARE(ahead(), QList<quint64>({3, 4, 5}));
    Add(6, PicturePriority::Screen, {}, u"stored.jpg"_s);
    Add(7);
    QCOMPARE(ahead(), QList<quint64>());
    queue_.Begun(3);
    queue_.End(1, true);
    // Those that no process has taken go back before what came later; a suspect's go behind all others.
    queue_.PutBack({4, 5});
    queue_.Suspect(u"host"_s);
    QCOMPARE(ahead(), QList<quint64>());
    queue_.End(2, false);
    queue_.End(3, false);
    QCOMPARE(Order(), QList<quint64>({6, 7, 4, 5}));
    bool here = true;
    Add(8, PicturePriority::Screen, {}, {}, [&]() { return here; });
    QCOMPARE(ahead(), QList<quint64>{8});
    QVERIFY(!queue_.HasUnwantedAhead());
    here = false;
    QVERIFY(queue_.HasUnwantedAhead());
  }

  void AHelperGoesOnWhileTheEventLoopIsBusy() {
    std::atomic<int> made = 0;
    const auto job = [&made](quint64 id) {
      HelperJob result;
      result.id = id;
      result.make = [&made]() -> std::optional<HelperJob::Frame> {
        ++made;
        return std::nullopt;
      };
      return result;
    };
    ReadyJobs ready;
    HelperProcess helper(u"/no/such/program"_s, u"pictures"_s, &ready);
    QSignalSpy answered(&helper, &HelperProcess::Answered);
    ready.Put(job(2));
    ready.Put(job(3));
    helper.Take(job(1));
    const QDeadlineTimer patience(10s);
    while (made < 3 && !patience.hasExpired()) std::this_thread::yield();
    QCOMPARE(made.load(), 3);
    QVERIFY(!helper.IsIdle());
    QTRY_COMPARE(answered.count(), 3);
    QCOMPARE(answered.at(0).at(2).toULongLong(), 2U);
    QCOMPARE(answered.at(1).at(2).toULongLong(), 3U);
    QVERIFY(helper.IsIdle());
  }

  void OneFileIsStoredOnceAtATime() {
    Add(1, PicturePriority::Usual, {}, u"a.jpg"_s);
    Add(2, PicturePriority::Usual, {}, u"a.jpg"_s);
    Add(3, PicturePriority::Later, {}, u"b.jpg"_s);
    QCOMPARE(Begun(), QList<quint64>({1, 3}));
    queue_.End(1, true);
    QCOMPARE(Begun(), QList<quint64>{2});
  }
};

OMNI_TEST(TestPictureQueue)
#include "test_picture_queue.moc"
