// SPDX-License-Identifier: GPL-3.0-or-later
// What the program has to do with other processes and its own second thread: the lock, the companion, the background.
#include <sys/wait.h>
#include <unistd.h>

#include <QLocalServer>
#include <QLocalSocket>
#include <QSemaphore>
#include <QTimer>

#include "platform/background.h"
#include "platform/companion_link.h"
#include "platform/instance_lock.h"
#include "test_folder.h"

namespace {

const QString kSocket = u"omni-perch-form1"_s;

// The number of a process that has ended.
pid_t EndedProcess() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  return child;
}

void Say(QLocalSocket& socket, const QByteArray& bytes) {
  socket.write(bytes);
  while (socket.bytesToWrite() > 0) {
    QCoreApplication::processEvents();
    socket.waitForBytesWritten(10);
  }
}

}  // namespace

class TestNeighbours : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void OneInstanceADataFolder() {
    const TestFolder dir;
    const QString file = u"omni-perch.lock"_s;
    QByteArray content;
    {
      InstanceLock lock(dir.path());
      QVERIFY(lock.Acquire());
      InstanceLock second(dir.path());
      QVERIFY(!second.Acquire());
      content = dir.Bytes(file);
      QVERIFY(content.contains('\n'));
    }
    QVERIFY(dir.Files().isEmpty());
    // What a crash, a power cut and a folder copied from another machine leave of a lock file.
    const QByteArray copied = QByteArray::number(QCoreApplication::applicationPid()) + "\nomni-perch\nelsewhere\n";
    const QByteArray ended = QByteArray::number(EndedProcess()) + content.sliced(content.indexOf('\n'));
    for (const QByteArray& rest : {ended, copied, QByteArray(), QByteArray(64, '\0'), "garbage\n"_ba}) {
      dir.Put(file, rest);
      QVERIFY(InstanceLock(dir.path()).Acquire());
    }
    const QString missing = dir.filePath(u"missing"_s);
    QVERIFY(InstanceLock(missing).Acquire() && !QFile::exists(missing));
  }

  void TakesTheCompanionsLines() {
    const TestFolder dir;
    CompanionLink link(dir.path());
    QVERIFY(link.Listen());
    QSignalSpy texts(&link, &CompanionLink::TextArrived);
    QLocalSocket socket;
    socket.connectToServer(dir.filePath(kSocket));
    QVERIFY(socket.waitForConnected());
    const QByteArray longest = "txtRxOk=" + QByteArray(1024 * 1024 - 8, 'x');
    Say(socket, "txtRxOk=ZZ9QX\tok\t1/2/24*\xC3\x98=\ntxtRxOk=\nother=x\n\ntxtrxok=x\ntxtFrom");
    Say(socket, "RxOk=Show\r\n" + longest + "y\n" + longest + "\n" + QByteArray(3'000'000, 'x') +
                    "\ntxtRxOk=last\ntxtRxOk=cut");
    QTRY_COMPARE(texts.size(), 5);
    QStringList told;
    for (const QList<QVariant>& text : texts) told += text[0].toString() + u'=' + text[1].toString();
    QCOMPARE(told.join(u'|'), u"txtRxOk=ZZ9QX\tok\t1/2/24*Ø=|txtRxOk=|txtFromRxOk=Show|%1|txtRxOk=last"_s.arg(
                                  QLatin1StringView(longest)));
    QCOMPARE(dir.Mode(kSocket) & 077, 0);
    // A companion that hangs up behind its last line has still said it.
    {
      QLocalSocket brief;
      brief.connectToServer(dir.filePath(kSocket));
      brief.write("txtRxOk=bye\n");
      QVERIFY(brief.waitForBytesWritten());
    }
    QTRY_COMPARE(texts.size(), 6);
  }

  // Each line may refresh a page: a client that floods the channel must leave turns of the event loop to the user.
  void AFloodHoldsNothingUp() {
    const TestFolder dir;
    CompanionLink link(dir.path());
    QVERIFY(link.Listen());
    int lines = 0;
    int most = 0;
    connect(&link, &CompanionLink::TextArrived, this, [&]() { most = std::max(most, ++lines); });
    QTimer turn;
    connect(&turn, &QTimer::timeout, this, [&]() { lines = 0; });
    turn.start(0);
    QSignalSpy texts(&link, &CompanionLink::TextArrived);
    QList<QLocalSocket*> clients;
    for (int i = 0; i < 9; ++i) {
      clients.append(new QLocalSocket(&link));
      clients.last()->connectToServer(dir.filePath(kSocket));
      QVERIFY(clients.last()->waitForConnected());
    }
    // The ninth is hung up on; its place is free again when another one has gone.
    QTRY_COMPARE(clients.at(8)->state(), QLocalSocket::UnconnectedState);
    clients.at(1)->abort();
    QCoreApplication::processEvents();
    clients.at(8)->connectToServer(dir.filePath(kSocket));
    Say(*clients.at(8), "txtRxOk=x\n");
    QTRY_COMPARE(texts.size(), 1);
    Say(*clients.first(), QByteArray("txtFromRxOk=Refresh\n").repeated(5000));
    clients.first()->disconnectFromServer();
    QTRY_COMPARE(texts.size(), 5001);
    QVERIFY2(most < 10, qPrintable(QString::number(most)));
  }

  void LeavesALivingSocketAlone() {
    const TestFolder dir;
    const QString path = dir.filePath(kSocket);
    auto first = std::make_unique<CompanionLink>(dir.path());
    QVERIFY(first->Listen());
    QSignalSpy texts(first.get(), &CompanionLink::TextArrived);
    CompanionLink second(dir.path());
    QVERIFY(!second.Listen());
    QLocalSocket socket;
    socket.connectToServer(path);
    QVERIFY(socket.waitForConnected());
    Say(socket, "txtRxOk=x\n");
    QTRY_COMPARE(texts.size(), 1);

    // A crash leaves the file without anyone behind it: here its second name, once the first has gone.
    const QString orphan = dir.filePath(u"orphan"_s);
    QCOMPARE(::link(QFile::encodeName(path).constData(), QFile::encodeName(orphan).constData()), 0);
    first.reset();
    QVERIFY(QFile::rename(orphan, path) && second.Listen());

    QVERIFY(!CompanionLink(dir.filePath(u"missing"_s)).Listen());
    QVERIFY(!CompanionLink(dir.filePath(QString(200, u'x'))).Listen());
  }

  void TellsTheCompanionThatItCloses() {
    const TestFolder dir;
    CompanionLink link(dir.path());
    QVERIFY(link.Listen());
    link.SendClosed();  // nobody there
    QVERIFY(!QFile::exists(dir.filePath(kSocket)));
    QLocalServer companion;
    QVERIFY(companion.listen(dir.filePath(u"tv-echo-form1"_s)));
    link.SendClosed();
    QVERIFY(companion.waitForNewConnection(5000));
    QLocalSocket* socket = companion.nextPendingConnection();
    QByteArray said;
    QTRY_VERIFY((said += socket->readAll()).contains('\n'));
    QCOMPARE(said, "Closed\n"_ba);
  }

  void WorksInOrderBesideTheLoop() {
    QList<int> done;
    QSemaphore gate;
    auto gone = std::make_unique<QObject>();
    std::atomic<int> ran = 0;
    auto background = std::make_unique<Background>();
    const auto work = [&](int number) {
      return [&, number]() {
        gate.acquire();
        ++ran;
        return number;
      };
    };
    const auto note = [&](int number) {
      QCOMPARE(QThread::currentThread(), thread());
      done += number;
    };
    for (int i = 0; i < 3; ++i) background->Run<int>(i == 1 ? gone.get() : this, work(i), note);
    gone.reset();
    gate.release(3);
    QTRY_COMPARE(done, (QList<int>{0, 2}));
    QCOMPARE(ran, 3);
    // The job that runs is waited for, and nobody hears of it.
    QSemaphore begun;
    const auto last = [&]() {
      begun.release();
      return work(3)();
    };
    background->Run<int>(this, last, note);
    begun.acquire();
    gate.release();
    background.reset();
    QCoreApplication::processEvents();
    QVERIFY(ran == 4 && done.size() == 2);
  }
};

OMNI_TEST(TestNeighbours)
#include "test_neighbours.moc"
