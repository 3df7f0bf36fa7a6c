// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>

#include "platform/picture/picture_tool.h"
#include "sample_pictures.h"
#include "test_folder.h"

namespace {

constexpr QSize kThumbBox(116, 86);

}  // namespace

// Processes that die or hang, and jobs that nobody wants any more.
class TestPictureHangs : public QObject {
  Q_OBJECT

  // Both processes run and have decoded something: a round of jobs has left them as they were. On a slow machine a
  // process that starts may be taken for a hanging one.
  void BothAreReady() {
    tool_->WarmUp();
    QList<qint64> before;
    do {
      before = tool_->ProcessIds();
      int answers = 0;
      for (int i = 0; i < 20; ++i) tool_->View(good_, kThumbBox, this, [&](const PictureAnswer&) { ++answers; });
      QTRY_COMPARE(answers, 20);
    } while (before.size() != 2 || tool_->ProcessIds() != before);
  }
  // A job's bytes are in the pipe to this process.
  static bool HasJob(qint64 process) {
    const int input = open(qPrintable(u"/proc/%1/fd/0"_s.arg(process)), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    int bytes = 0;
    const bool isKnown = input >= 0 && ioctl(input, FIONREAD, &bytes) == 0;
    if (input >= 0) close(input);
    return isKnown && bytes > 0;
  }
  QList<qint64> Signalled(int signal) const {
    QList<qint64> processes = tool_->ProcessIds();
    for (const qint64 process : processes) {
      kill(static_cast<pid_t>(process), signal);
      // A process that has not stopped yet may still take the next job.
      const auto hasStopped = [process]() {
        QFile state(u"/proc/%1/stat"_s.arg(process));
        return state.open(QIODevice::ReadOnly) && state.readAll().contains(") T ");
      };
      if (signal == SIGSTOP) (void)QTest::qWaitFor(hasStopped);
    }
    return processes;
  }

  TestFolder folder_;
  const QString good_ = folder_.Put(u"good"_s, SamplePicture(u"jpg"_s, QSize(64, 64)));
  std::unique_ptr<PictureTool> tool_;
  QList<bool> answers_;
  const PictureTool::Done note_ = [this](const PictureAnswer& answer) { answers_ += answer.ok; };

 private Q_SLOTS:
  void init() {
    tool_ = std::make_unique<PictureTool>(QStringLiteral(PICTURE_TOOL), folder_.path(), 2s);
    answers_.clear();
    BothAreReady();
  }

  void AKilledProcessCostsItsOwnJob() {
    const QList<qint64> stopped = Signalled(SIGSTOP);  // both have a job in hand when one of them is killed
    for (int i = 0; i < 2; ++i) tool_->View(good_, kThumbBox, this, note_);
    QTRY_VERIFY(HasJob(stopped.first()) && HasJob(stopped.last()));
    kill(static_cast<pid_t>(stopped.first()), SIGKILL);
    QTRY_COMPARE(answers_, QList<bool>({false}));
    kill(static_cast<pid_t>(stopped.last()), SIGCONT);
    QTRY_COMPARE(answers_, QList<bool>({false, true}));
    // A process that dies while it has nothing to do is replaced unnoticed.
    (void)Signalled(SIGKILL);
    QTRY_VERIFY(tool_->ProcessIds().isEmpty());
    BothAreReady();
  }

  void AHangingProcessIsReplaced() {
    const QList<qint64> stopped = Signalled(SIGSTOP);
    const QByteArray picture = SamplePicture(u"jpg"_s, QSize(64, 64));
    for (int i = 0; i < 4; ++i) tool_->View(folder_.Put(QString::number(i), picture), kThumbBox, this, note_);
    QTRY_COMPARE(answers_, QList<bool>(4, true));  // the jobs of the stopped processes had a second try
    for (const qint64 process : stopped) QTRY_VERIFY(kill(static_cast<pid_t>(process), 0) != 0);
  }

  // Two pictures that cannot be done in the time, among ten that can.
  void HangingPicturesDoNotHoldTheOthers() {
    const QString slow = folder_.Put(u"slow"_s, SlowJpeg());
    for (int i = 0; i < 12; ++i) tool_->View(i < 2 ? slow : good_, kThumbBox, this, note_);
    QTRY_COMPARE_WITH_TIMEOUT(answers_.size(), 12, 30000);
    QCOMPARE(answers_, QList<bool>(10, true) + QList<bool>(2, false));
    // The slow picture is known now: it waits behind pictures that came later, and leaves a process to those that come
    // in the meantime.
    answers_.clear();
    for (int i = 0; i < 2; ++i) tool_->View(slow, kThumbBox, this, note_);
    tool_->View(good_, kThumbBox, this, note_);
    QTRY_COMPARE(tool_->ProcessIds().size(), 3);
    QTRY_COMPARE_WITH_TIMEOUT(answers_.size(), 3, 30000);
    QCOMPARE(answers_, QList<bool>({true, false, false}));
    QTRY_VERIFY(tool_->ProcessIds().size() <= 2);
  }

  void WhatOnlyShowsIsDroppedWithItsPage() {
    const QString thumb = folder_.filePath(u"thumb.jpg"_s);
    bool here = true;
    PictureOptions options;
    options.wanted = [&]() { return here; };
    QStringList answers;
    const auto note = [&](const QString& name) {
      return [&, name](const PictureAnswer& answer) { answers += name + (answer.dropped ? u" dropped"_s : u""_s); };
    };
    const QList<qint64> stopped = Signalled(SIGSTOP);
    for (int i = 0; i < 2; ++i) tool_->View(good_, kThumbBox, this, note(u"view"_s), options);  // these begin at once
    tool_->MakeThumb(good_, thumb, kThumbBox, this, note(u"thumb"_s), options);
    tool_->Load(good_, kThumbBox, this, note(u"load"_s), options);
    here = false;
    tool_->Measure(SamplePicture(u"jpg"_s, QSize(9, 9)), this, note(u"measure"_s));
    for (const qint64 process : stopped) kill(static_cast<pid_t>(process), SIGCONT);
    QTRY_COMPARE(answers.size(), 5);
    answers.sort();
    QCOMPARE(answers, QStringList({u"load dropped"_s, u"measure"_s, u"thumb"_s, u"view"_s, u"view"_s}));
    QVERIFY(QFile::exists(thumb));
  }

  // Whatever one picture may have done to a process ends with it.
  void AProcessIsReplacedAfterManyJobs() {
    const QByteArray marker = SamplePicture(u"bmp"_s, QSize(2, 2));
    const QList<qint64> before = tool_->ProcessIds();
    for (int i = 0; i < 1000; ++i) tool_->Measure(marker, this, note_);
    QTRY_COMPARE_WITH_TIMEOUT(answers_, QList<bool>(1000, true), 60000);
    // One of the two has done five hundred of them at least.
    QTRY_VERIFY(!tool_->ProcessIds().contains(before.first()) || !tool_->ProcessIds().contains(before.last()));
  }
};

OMNI_TEST(TestPictureHangs)
#include "test_picture_hangs.moc"
