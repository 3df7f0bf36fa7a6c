// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/picture/picture_queue.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestPictureQueue : public QObject {
  Q_OBJECT

  // Whose turn it is at this moment, in their order, when every job ends as soon as it has begun.
  QList<quint64> Order(std::chrono::seconds after = 0s);
  void Add(quint64 id, PicturePriority priority = PicturePriority::Usual, const QString& origin = {},
           const QString& target = {}, const std::function<bool()>& wanted = {});

  PictureQueue queue_;
  PictureQueue::Time start_{};

 private Q_SLOTS:
  void init() { queue_ = {}; }

  void TheScreenGoesFirstAndWhatWasLeftLast();
  void ASuspectWaitsBehindAllOthersButNotForEver();
  void ASlowPictureMakesRoomOnlyForThoseThatWait();
  void OneHelperIsLeftForTheOthers();
  void OneFileIsStoredOnceAtATime();
};

QList<quint64> TestPictureQueue::Order(std::chrono::seconds after) {
  QList<quint64> order;
  while (const std::optional<quint64> id = queue_.Begin(start_ + after)) {
    order.append(*id);
    queue_.End(*id, false);
  }
  return order;
}

void TestPictureQueue::Add(quint64 id, PicturePriority priority, const QString& origin, const QString& target,
                           const std::function<bool()>& wanted) {
  queue_.Add({id, priority, origin, target, wanted}, start_);
}

void TestPictureQueue::TheScreenGoesFirstAndWhatWasLeftLast() {
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

void TestPictureQueue::ASuspectWaitsBehindAllOthersButNotForEver() {
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
  QCOMPARE(queue_.Begin(start_), 4);
  queue_.End(4, true);
  fill();
  QCOMPARE(Order(), QList<quint64>({1, 3, 2}));
}

void TestPictureQueue::ASlowPictureMakesRoomOnlyForThoseThatWait() {
  Add(1, PicturePriority::Screen, u"slow"_s);
  QCOMPARE(queue_.Begin(start_), 1);
  QVERIFY(!queue_.CutsOff(1));  // nobody needs its helper: a large picture is not decoded twice
  queue_.End(1, false);

  Add(2, PicturePriority::Screen, u"fast"_s);
  Add(3, PicturePriority::Screen, u"other"_s);
  Add(4, PicturePriority::Later, u"fast"_s);
  QCOMPARE(queue_.Begin(start_), 2);
  QCOMPARE(queue_.Begin(start_), 3);
  QCOMPARE(queue_.Begin(start_), std::nullopt);
  QVERIFY(queue_.CutsOff(3));
  queue_.PutLast(3, start_);
  queue_.End(2, true);
  QCOMPARE(queue_.Begin(start_), 4);
  QCOMPARE(queue_.Begin(start_), 3);
  QVERIFY(!queue_.CutsOff(3));  // this is its long try
}

void TestPictureQueue::OneHelperIsLeftForTheOthers() {
  queue_.Suspect(u"bad"_s);
  for (const quint64 id : {1U, 2U, 3U}) Add(id, PicturePriority::Screen, u"bad"_s);
  QCOMPARE(queue_.Begin(start_), 1);
  QCOMPARE(queue_.Begin(start_), 2);
  QCOMPARE(queue_.Begin(start_ + 60s), std::nullopt);
  Add(4, PicturePriority::Later);
  QCOMPARE(queue_.Begin(start_ + 60s), 4);
  QVERIFY(queue_.CutsOff(4));  // even with nobody waiting: it would be the third
}

void TestPictureQueue::OneFileIsStoredOnceAtATime() {
  Add(1, PicturePriority::Usual, {}, u"a.jpg"_s);
  Add(2, PicturePriority::Usual, {}, u"a.jpg"_s);
  Add(3, PicturePriority::Later, {}, u"b.jpg"_s);
  QCOMPARE(queue_.Begin(start_), 1);
  QCOMPARE(queue_.Begin(start_), 3);
  queue_.End(1, true);
  QCOMPARE(queue_.Begin(start_), 2);
}

OMNI_TEST(TestPictureQueue)
#include "test_picture_queue.moc"
