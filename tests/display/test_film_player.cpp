// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/film_player.h"
#include "test_folder.h"

namespace {

const QByteArray kFilm = "RIFF1234AVI " + QByteArray(200, 'x');

// The program's side, with a shell script in the place of the player.
struct PlayerFixture {
  TestFolder folder;
  Program program;
  Background background;
  QList<QUrl> opened;
  bool opens = true;
  std::function<bool()> answer = []() { return true; };
  int asked = 0;
  std::unique_ptr<FilmPlayer> player;

  explicit PlayerFixture(const QByteArray& script) {
    folder.Put(u"player"_s, "#!/bin/sh\ncd " + folder.path().toUtf8() + "\n" + script + "\n");
    QFile::setPermissions(folder.filePath(u"player"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    folder.Put(u"1-5"_s, kFilm);
    program.config.LanguageName = u"German"_s;
    player = std::make_unique<FilmPlayer>(
        FilmPlayer::Dependencies{program, background, folder.filePath(u"player"_s),
                                 [this]() {
                                   ++asked;
                                   return answer();
                                 },
                                 [this](const QUrl& film, const std::function<void(bool)>& then) {
                                   opened.append(film);
                                   then(opens);
                                 }});
  }
  void Start() const { player->startup(folder.filePath(u"1-5"_s), u"ZZ1AA"_s); }
  QByteArray Said() const { return folder.Bytes(u"said"_s); }
};

}  // namespace

class TestFilmPlayer : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // However the player ends, its window is closed, and it tells so once.
  void EndsAreClosedWindows_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("closed") << QByteArray("exit 0");
    QTest::newRow("a fault") << QByteArray("exit 3");
    QTest::newRow("brought down by a film") << QByteArray("kill -SEGV $$");
    QTest::newRow("writes without end") << QByteArray("yes open | head -c 300000");
  }
  void EndsAreClosedWindows() {
    QFETCH(const QByteArray, script);
    PlayerFixture f(script);
    const QSignalSpy closed(f.player.get(), &FilmPlayer::Closed);
    f.Start();
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(!f.player->IsOpen() && f.opened.isEmpty());
  }

  void FollowsOneWindow() {
    PlayerFixture f(
        "printf '%s|%s|%s %s\\n' \"$1\" \"$2\" \"$3\" $$ >> said; while read line; do echo $line >> said; done");
    const QSignalSpy closed(f.player.get(), &FilmPlayer::Closed);
    f.Start();
    QTRY_VERIFY(f.Said().endsWith('\n'));
    const QByteArray first = f.Said().simplified();
    QVERIFY2(first.startsWith(f.folder.filePath(u"1-5"_s).toUtf8() + "|German|ZZ1AA "), first.constData());
    f.program.config.LanguageName = u"Polish"_s;
    f.player->TakeLanguage();
    QTRY_VERIFY(f.Said().endsWith("language Polish\n"));
    // Another film takes the window's place, which is no closing of the window.
    f.Start();
    QTRY_COMPARE(f.Said().count('|'), 4);
    const QString process = u"/proc/"_s + QString::fromUtf8(first.mid(first.lastIndexOf(' ') + 1));
    QTRY_VERIFY(!QFileInfo::exists(process));
    QVERIFY(f.player->IsOpen() && closed.isEmpty());
    f.player->Close();
    QCOMPARE(closed.size(), 1);
    f.player->Close();
    QCOMPARE(closed.size(), 1);
  }

  // A copy for the desktop's player, if the user says so, once, and of nothing but the film that is on the screen.
  void HandsOnACopy() {
    PlayerFixture f("echo open; read line");
    const QSignalSpy closed(f.player.get(), &FilmPlayer::Closed);
    f.answer = []() { return false; };
    f.Start();
    QTRY_COMPARE(f.asked, 1);
    bool behind = false;  // what a no would have begun has ended by then
    f.background.Run<int>(
        this, []() { return 0; }, [&behind](int) { behind = true; });
    QTRY_VERIFY(behind);
    QVERIFY(f.opened.isEmpty() && closed.isEmpty());
    f.answer = [&f]() {  // while the question is open a newer picture is stored in the film's place
      QFile::remove(f.folder.filePath(u"1-5"_s));
      f.folder.Put(u"1-5"_s, "newer");
      return true;
    };
    f.Start();
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(f.asked == 2 && f.opened.size() == 1);
    const QString copy = f.opened.first().toLocalFile();
    QVERIFY(copy.endsWith(u".avi"_s) && !copy.startsWith(f.folder.path()));
    QFile file(copy);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), kFilm);

    QList<FilmPlayer::Fault> faults;
    connect(f.player.get(), &FilmPlayer::Failed, this, [&faults](FilmPlayer::Fault fault) { faults.append(fault); });
    f.opens = false;
    f.answer = []() { return true; };
    f.folder.Put(u"1-5"_s, kFilm);
    f.Start();
    QTRY_COMPARE(faults, QList{FilmPlayer::Fault::NoOtherPlayer});
    f.folder.Put(u"1-5"_s, "[Desktop Entry]\nExec=mpeg avi");
    f.Start();
    QTRY_COMPARE(faults.size(), 2);
    QCOMPARE(faults.last(), FilmPlayer::Fault::NoCopy);
    QCOMPARE(f.opened.size(), 2);
    f.player.reset();
    QVERIFY(!QFileInfo::exists(copy));
  }

  void SaysThatThePlayerIsMissing() {
    PlayerFixture f("exit 0");
    QFile::remove(f.folder.filePath(u"player"_s));
    QList<FilmPlayer::Fault> faults;
    connect(f.player.get(), &FilmPlayer::Failed, this, [&faults](FilmPlayer::Fault fault) { faults.append(fault); });
    f.Start();
    QTRY_COMPARE(faults, QList{FilmPlayer::Fault::NoPlayer});
    QVERIFY(!f.player->IsOpen());
  }
};

OMNI_TEST(TestFilmPlayer)
#include "test_film_player.moc"
