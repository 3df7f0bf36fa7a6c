// SPDX-License-Identifier: GPL-3.0-or-later
#include <signal.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/picture/picture_tool.h"
#include "sample_pictures.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QSize kThumbBox(116, 86);

}  // namespace

// Processes that die or hang, and jobs that nobody wants any more.
class TestPictureHangs : public QObject {
  Q_OBJECT

  QString Put(const QString& name, const QByteArray& bytes) const;
  void BothAreReady(const QString& path);

  std::unique_ptr<QTemporaryDir> folder_;
  std::unique_ptr<PictureTool> tool_;

 private Q_SLOTS:
  void init();

  void AKilledProcessCostsItsOwnJob();
  void AHangingProcessIsReplaced();
  void HangingPicturesDoNotHoldTheOthers();
  void WhatOnlyShowsIsDroppedWithItsPage();
  void AProcessIsReplacedAfterManyJobs();
};

void TestPictureHangs::init() {
  folder_ = std::make_unique<QTemporaryDir>();
  tool_ = std::make_unique<PictureTool>(QStringLiteral(PICTURE_TOOL), folder_->path(), 2s);
}

QString TestPictureHangs::Put(const QString& name, const QByteArray& bytes) const {
  QString path = folder_->filePath(name);
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("no room for a test file");
  return path;
}

void TestPictureHangs::BothAreReady(const QString& path) {
  tool_->WarmUp();
  int answers = 0;
  const auto count = [&](const PictureAnswer&) { ++answers; };
  for (int i = 0; i < 20; ++i) tool_->View(path, QSize(64, 64), this, count);
  QTRY_COMPARE(answers, 20);
  QTRY_COMPARE(tool_->ProcessIds().size(), 2);
}

void TestPictureHangs::AKilledProcessCostsItsOwnJob() {
  const QString path = Put(u"picture"_s, SamplePicture(u"jpg"_s, QSize(64, 64)));
  BothAreReady(path);
  const QList<qint64> before = tool_->ProcessIds();
  for (const qint64 process : before) kill(static_cast<pid_t>(process), SIGSTOP);  // the jobs are surely in hand then
  QList<bool> answers;
  for (int i = 0; i < 2; ++i) {
    tool_->View(path, QSize(64, 64), this, [&](const PictureAnswer& answer) { answers.append(answer.ok); });
  }
  kill(static_cast<pid_t>(before.first()), SIGKILL);
  QTRY_COMPARE(answers, QList<bool>({false}));
  kill(static_cast<pid_t>(before.last()), SIGCONT);
  QTRY_COMPARE(answers, QList<bool>({false, true}));
  // One that dies while it has nothing to do is replaced unnoticed.
  for (const qint64 process : tool_->ProcessIds()) kill(static_cast<pid_t>(process), SIGKILL);
  QTRY_VERIFY(tool_->ProcessIds().isEmpty());
  BothAreReady(path);
}

void TestPictureHangs::AHangingProcessIsReplaced() {
  const QString path = Put(u"picture"_s, SamplePicture(u"jpg"_s, QSize(64, 64)));
  BothAreReady(path);
  const QList<qint64> stopped = tool_->ProcessIds();
  for (const qint64 process : stopped) kill(static_cast<pid_t>(process), SIGSTOP);
  QList<bool> answers;
  for (int i = 0; i < 4; ++i) {
    const QString own = Put(QString::number(i), SamplePicture(u"jpg"_s, QSize(64, 64)));
    tool_->View(own, QSize(64, 64), this, [&](const PictureAnswer& answer) { answers.append(answer.ok); });
  }
  QTRY_COMPARE(answers, QList<bool>(4, true));  // those that hung had a second try
  for (const qint64 process : stopped) QTRY_VERIFY(kill(static_cast<pid_t>(process), 0) != 0);
}

// Two pictures that cannot be done in the time, among ten that can.
void TestPictureHangs::HangingPicturesDoNotHoldTheOthers() {
  const QString slow = Put(u"slow"_s, SlowJpeg());
  const QString good = Put(u"good"_s, SamplePicture(u"jpg"_s, QSize(64, 64)));
  BothAreReady(good);
  QList<bool> answers;
  const auto note = [&](const PictureAnswer& answer) { answers.append(answer.ok); };
  for (int i = 0; i < 12; ++i) tool_->View(i < 2 ? slow : good, kThumbBox, this, note);
  QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 12, 30000);
  QCOMPARE(answers, QList<bool>(10, true) + QList<bool>(2, false));
  // It is known now, so that it waits behind those that came later, and leaves a process to those that come in the
  // meantime.
  answers.clear();
  for (int i = 0; i < 2; ++i) tool_->View(slow, kThumbBox, this, note);
  tool_->View(good, kThumbBox, this, note);
  QTRY_COMPARE(tool_->ProcessIds().size(), 3);
  QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 3, 30000);
  QCOMPARE(answers, QList<bool>({true, false, false}));
  QTRY_VERIFY(tool_->ProcessIds().size() <= 2);
}

void TestPictureHangs::WhatOnlyShowsIsDroppedWithItsPage() {
  const QString source = Put(u"picture"_s, SamplePicture(u"jpg"_s, QSize(64, 64)));
  const QString thumb = folder_->filePath(u"thumb.jpg"_s);
  bool here = true;
  PictureOptions options;
  options.wanted = [&]() { return here; };
  QStringList answers;
  const auto note = [&](const QString& name) {
    return [&, name](const PictureAnswer& answer) { answers += name + (answer.dropped ? u" dropped"_s : u""_s); };
  };
  for (int i = 0; i < 2; ++i) tool_->View(source, kThumbBox, this, note(u"view"_s), options);  // these begin at once
  tool_->MakeThumb(source, thumb, kThumbBox, this, note(u"thumb"_s), options);
  tool_->Load(source, kThumbBox, this, note(u"load"_s), options);
  tool_->Measure(SamplePicture(u"jpg"_s, QSize(9, 9)), this, note(u"measure"_s));
  here = false;
  QTRY_COMPARE(answers.size(), 5);
  answers.sort();
  QCOMPARE(answers, QStringList({u"load dropped"_s, u"measure"_s, u"thumb"_s, u"view"_s, u"view"_s}));
  QVERIFY(QFile::exists(thumb));
}

// Whatever one picture may have done to a process ends with it.
void TestPictureHangs::AProcessIsReplacedAfterManyJobs() {
  const QByteArray marker = SamplePicture(u"bmp"_s, QSize(2, 2));
  BothAreReady(Put(u"picture"_s, marker));
  const QList<qint64> before = tool_->ProcessIds();
  int good = 0;
  for (int i = 0; i < 1000; ++i) {
    tool_->Measure(marker, this, [&](const PictureAnswer& answer) { good += answer.ok ? 1 : 0; });
  }
  QTRY_COMPARE_WITH_TIMEOUT(good, 1000, 60000);
  // One of the two has done five hundred of them at least.
  QTRY_VERIFY(!tool_->ProcessIds().contains(before.first()) || !tool_->ProcessIds().contains(before.last()));
}

OMNI_TEST(TestPictureHangs)
#include "test_picture_hangs.moc"
