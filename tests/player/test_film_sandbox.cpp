// SPDX-License-Identifier: GPL-3.0-or-later
#include <QProcess>

#include "film_copy.h"
#include "test_folder.h"

class TestFilmSandbox : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RefusesAllThatFilmsDoNotNeed() {
    const TestFolder home;
    home.Put(u"secret"_s, "mine");
    QCOMPARE(QProcess::execute(QStringLiteral(HOSTILE_FILM), {home.path()}), 0);
    QCOMPARE(home.Bytes(u"secret"_s), "mine");
    QCOMPARE(QDir(home.path()).entryList(QDir::Files | QDir::System | QDir::Hidden), QStringList(u"secret"_s));
  }

  // The player itself has entered it by the time that it shows a film.
  void ThePlayerIsInIt() {
    const TestFolder folder;
    folder.Put(u"film"_s, QByteArray("RIFF\0\0\0\0AVI ", 12));
    QProcess player;
    player.start(QStringLiteral(FILM_PLAYER), {folder.filePath(u"film"_s), u"English"_s, QString()});
    QVERIFY(player.waitForStarted());
    const auto isIn = [&player]() {
      QFile status(u"/proc/%1/status"_s.arg(player.processId()));
      return status.open(QIODevice::ReadOnly) && status.readAll().contains("Seccomp:\t2");
    };
    QTRY_VERIFY(isIn());
    player.closeWriteChannel();  // the main program has gone
    QTRY_COMPARE(player.state(), QProcess::NotRunning);
    QCOMPARE(player.exitStatus(), QProcess::NormalExit);
  }

  // A newer picture may be written over the file while the film plays.
  void PlaysACopy() {
    const TestFolder folder;
    folder.Put(u"film"_s, "old bytes");
    const FilmCopy film = CopyFilm(folder.filePath(u"film"_s));
    folder.Put(u"film"_s, "new");
    QFile copy(film.path);
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(copy.readAll(), "old bytes");
    QCOMPARE(film.head, "old bytes");
    QVERIFY(CopyFilm(folder.filePath(u"none"_s)).path.isEmpty());
    QVERIFY(CopyFilm(folder.path()).path.isEmpty());
  }
};

OMNI_TEST(TestFilmSandbox)
#include "test_film_sandbox.moc"
