// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>

#include "film_time.h"
#include "film_window.h"
#include "platform/picture/film_signature.h"
#include "test_folder.h"

using namespace std::chrono_literals;

namespace {

constexpr int kPatienceMs = 20'000;  // plugins load slowly on a busy machine

// A film of eight seconds with sound.
QString MakeFilm(const TestFolder& folder, const QString& ending) {
  const QString path = folder.filePath(u"film."_s + ending);
  QProcess::execute(u"ffmpeg"_s, {u"-loglevel"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                                  u"testsrc2=size=352x288:rate=25:duration=8"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                                  u"sine=duration=8"_s, path});
  return path;
}

QByteArray HeadOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.read(300) : QByteArray();
}

}  // namespace

class TestFilmWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PlaysAndObeys_data() {
    QTest::addColumn<QString>("ending");
    for (const char* ending : {"avi", "mp4", "mpg"}) QTest::newRow(ending) << QString::fromLatin1(ending);
  }
  void PlaysAndObeys() {
    QFETCH(const QString, ending);
    const TestFolder folder;
    const QString path = MakeFilm(folder, ending);
    QCOMPARE(FilmSignature(HeadOf(path)), ending);
    frmWmp window(QString(), ending);
    window.startup(path);
    QTRY_VERIFY_WITH_TIMEOUT(window.isVisible() && window.findChild<FilmCanvas*>()->HasFrame(), kPatienceMs);
    auto* canvas = window.findChild<FilmCanvas*>();
    QCOMPARE(canvas->grab().toImage().pixelColor(canvas->rect().center()).alpha(), 255);
    QVERIFY(std::abs(canvas->width() * 288 - canvas->height() * 352) < 600);

    auto* time = window.findChild<QLabel*>(u"lblTime"_s);
    const QRegularExpression length(u" / 0:00:0[78]$"_s);  // the head of an MPEG does not tell the last frame's
    QTRY_VERIFY_WITH_TIMEOUT(time->text().contains(length), kPatienceMs);
    auto* pause = window.findChild<QToolButton*>(u"imgPausePlay"_s);
    QTRY_COMPARE_WITH_TIMEOUT(pause->accessibleName(), u"Pause"_s, kPatienceMs);
    QTest::keyClick(canvas, Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(pause->accessibleName(), u"Play"_s, kPatienceMs);

    auto* bar = window.findChild<QSlider*>(u"imgBar"_s);
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(bar->width() / 2, bar->height() / 2));
    QTRY_VERIFY_WITH_TIMEOUT(time->text().startsWith(u"0:00:04"_s) || time->text().startsWith(u"0:00:03"_s),
                             kPatienceMs);
    QTest::mouseClick(window.findChild<QToolButton*>(u"imgForward"_s), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(bar->value() >= 4500, kPatienceMs);
    QTest::keyClick(canvas, Qt::Key_Home);
    QTRY_VERIFY_WITH_TIMEOUT(bar->value() < 500, kPatienceMs);
    QTest::keyClick(canvas, Qt::Key_F);
    QVERIFY(window.isFullScreen());
    QTest::keyClick(canvas, Qt::Key_Escape);
    QVERIFY(!window.isFullScreen() && window.isVisible());
  }

  // The desktop's player is offered only for what is a film by its signature.
  void SaysWhatItCannotPlay_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("offered");
    QTest::newRow("text") << QByteArray("#!/bin/sh\nrm mpeg avi\n").repeated(50) << false;
    QTest::newRow("only a head") << QByteArray("RIFF\0\0\0\0AVI LIST", 16).leftJustified(4000, 'x') << true;
  }
  void SaysWhatItCannotPlay() {
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, offered);
    const TestFolder folder;
    folder.Put(u"film"_s, bytes);
    frmWmp window(u"ZZ1AA"_s, FilmSignature(bytes));
    window.startup(folder.filePath(u"film"_s));
    auto* note = window.findChild<QLabel*>(u"lblNote"_s);
    // A demultiplexer that has only a head may wait for more without an end.
    const QRegularExpression said(u"^(This film cannot be played|The film does not begin)"_s);
    QTRY_VERIFY_WITH_TIMEOUT(note->isVisible() && note->text().contains(said), kPatienceMs);
    QCOMPARE(window.findChild<QPushButton*>(u"cmdOther"_s)->isVisible(), offered);
  }

  void Times() {
    const QLocale english(u"en_US"_s);
    const QLocale finnish(u"fi_FI"_s);
    QCOMPARE(FilmTime(0ms, 9s, finnish), u"0:00:00"_s);
    QCOMPARE(FilmTime(3599999ms, 1h, finnish), u"0:59:59"_s);
    QCOMPARE(FilmTime(3723s, 2h, english), u"1:02:03"_s);
    QCOMPARE(FilmTime(3723s, 2h, finnish), u"1.02.03"_s);
    QCOMPARE(FilmTime(14h, 15h, english), u"14:00:00"_s);
  }

  void Signatures() {
    for (const char* other : {"", "RIFF1234WAVE", "ftyp", "mpeg avi mp4", "G"})
      QVERIFY2(FilmSignature(other).isEmpty(), other);
    QCOMPARE(FilmSignature(QByteArray("\0\0\0\x18"
                                      "ftypmp42",
                                      12)),
             u"mp4"_s);
    QVERIFY(FilmSignature("1234ftypheic").isEmpty());
    QCOMPARE(ShownTypeOf("1234ftypisom x264 subme=7"), u"mp4"_s);
    QCOMPARE(ShownTypeOf("BM subme=7"), u"bmp"_s);
    QCOMPARE(FilmSignature("G" + QByteArray(187, 'x') + "G"), u"mpg"_s);
    QCOMPARE(ShownTypeOf("GIF89a" + QByteArray(182, 'x') + "G"), u"gif"_s);
  }
};

OMNI_TEST(TestFilmWindow)
#include "test_film_window.moc"
