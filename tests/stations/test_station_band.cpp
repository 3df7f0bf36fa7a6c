// SPDX-License-Identifier: GPL-3.0-or-later
// The band over real HTTP: what other tests take for granted of it, and that it misbehaves as it was told.
#include <QElapsedTimer>
#include <QImage>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTcpSocket>
#include <QTest>

#include "station_band.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Got {
  QByteArray body;
  int status = 0;
  QNetworkReply::NetworkError error = QNetworkReply::NoError;
  bool ended = false;  // false: given up on
};

QSize SizeOf(const Got& got) {
  return QImage::fromData(got.body).size();
}

}  // namespace

class TestStationBand : public QObject {
  Q_OBJECT

  QNetworkAccessManager net_;

  // Reads an address; gives up when the reply has not ended in time or has brought more than most bytes.
  Got Read(const QString& url, std::chrono::milliseconds patience = 20s, qint64 most = 1 << 22) {
    const std::unique_ptr<QNetworkReply> reply(net_.get(QNetworkRequest(QUrl(url))));
    Got got;
    const auto isEnough = [&] {
      got.body += reply->readAll();
      return reply->isFinished() || got.body.size() > most;
    };
    (void)QTest::qWaitFor(isEnough, static_cast<int>(patience.count()));
    got.ended = reply->isFinished();
    got.error = reply->error();
    got.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return got;
  }

 private Q_SLOTS:
  void ServesCountsAndMovesOn() {
    StationBand band;
    Station& one = band.AddStation(u"ZZ9AA"_s);
    Station& other = band.AddStation(u"ZZ9BB"_s);
    QVERIFY(QUrl(one.Url()).host() != QUrl(other.Url()).host());
    one.SetMarker({2, 212});
    one.SetOnAir(true);
    QCOMPARE(SizeOf(Read(one.Base() + u"/checknew.jpg?d=1"_s)), QSize(1, 212));
    const QByteArray picture = Read(one.Url()).body;
    QCOMPARE(QImage::fromData(picture).size(), QSize(320, 256));
    QCOMPARE(Read(one.Base() + u"/image31"_s).status, 404);
    QCOMPARE(one.Log(), QStringList({u"/checknew.jpg?d=1"_s, u"/image1"_s, u"/image31"_s}));
    QCOMPARE(one.Requests(u"checknew.jpg"_s), 1);
    QCOMPARE(other.TotalRequests(), 0);

    one.NewPicture(QDateTime(QDate(2024, 1, 24), QTime(15, 30), Qt::UTC));
    const QByteArray next = Read(one.Url()).body;
    QVERIFY(next != picture && next.right(60).contains("*01:24:2024 15:30"));
    QCOMPARE(Read(one.Base() + u"/image2"_s).body, picture);
    QVERIFY(SizeOf(Read(one.Base() + u"/checknew.jpg"_s)).height() != 212);
    // By a placeholder that no host has, or by its address.
    QVERIFY(band.HostsIni().contains("Time=" + band.HostUrl(u"Time"_s).toUtf8() + '\n'));
    QVERIFY(band.HostsIni().contains("Maps=\n"));
  }

  void Misbehaves_data() {
    QTest::addColumn<Behaviour>("behaviour");
    QTest::addColumn<int>("status");  // 0: no answer at all
    QTest::addColumn<bool>("ends");
    QTest::addColumn<bool>("failed");
    QTest::addColumn<int>("bytes");  // of 1000; -1: another body
    QTest::newRow("404") << Behaviour::NotFound << 404 << true << true << -1;
    QTest::newRow("500") << Behaviour::ServerError << 500 << true << true << -1;
    QTest::newRow("empty") << Behaviour::EmptyBody << 200 << true << false << 0;
    QTest::newRow("short") << Behaviour::ShortBody << 200 << true << true << 1000;
    QTest::newRow("truncated") << Behaviour::Truncated << 200 << true << false << 500;
    QTest::newRow("endless") << Behaviour::Endless << 200 << false << false << -1;
    QTest::newRow("stall") << Behaviour::Stall << 0 << false << false << 0;
    QTest::newRow("stall in body") << Behaviour::StallMidBody << 200 << false << false << 500;
    QTest::newRow("reset") << Behaviour::Reset << 0 << true << true << 0;
    QTest::newRow("refuse") << Behaviour::Refuse << 0 << true << true << 0;
    QTest::newRow("loop") << Behaviour::RedirectLoop << 302 << true << true << -1;
    QTest::newRow("to a file") << Behaviour::RedirectToFile << 302 << true << true << -1;
    QTest::newRow("one hop") << Behaviour::RedirectOk << 200 << true << false << 1000;
    QTest::newRow("page") << Behaviour::WrongType << 200 << true << false << -1;
    QTest::newRow("garbage") << Behaviour::GarbageBody << 200 << true << false << -1;
  }

  void Misbehaves() {
    QFETCH(Behaviour, behaviour);
    QFETCH(int, bytes);
    QFETCH(bool, ends);
    StationBand band;
    Station& station = band.AddStation(u"ZZ9QX"_s);
    const QByteArray picture(1000, 'p');
    station.SetPicture(picture);
    station.Misbehave(u"image1"_s, behaviour);
    const Got got = Read(station.Url(), ends ? 20s : 700ms, 1 << 20);
    QCOMPARE(got.ended, ends);
    QTEST(got.status, "status");
    if (ends) QTEST(got.error != QNetworkReply::NoError, "failed");
    if (bytes >= 0) QCOMPARE(got.body, picture.left(bytes));
    if (bytes < 0) QVERIFY(got.body != picture);
    if (behaviour == Behaviour::Endless) QVERIFY(got.body.size() > 1 << 20);
    if (behaviour != Behaviour::Refuse) QCOMPARE(SizeOf(Read(station.Base() + u"/checknew.jpg"_s)).width(), 2);
    station.Misbehave(u"image1"_s, Behaviour::Normal);
    QCOMPARE(Read(station.Url()).body, picture);
  }

  void DripsWaitsAndSendsAHeadWithoutEnd() {
    StationBand band;
    Station& station = band.AddStation(u"ZZ9QX"_s);
    station.SetPicture("0123456789");
    station.SetLatency(300ms);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(Read(station.Url()).body.size(), 10);
    QVERIFY(clock.elapsed() >= 290);
    station.Misbehave({}, Behaviour::Drip);
    const Got some = Read(station.Url(), 20s, 2);
    QVERIFY(!some.ended);
    QCOMPARE(some.body, QByteArray("012"));

    // By a plain socket: a reader of Qt's would not come back.
    station.Misbehave({}, Behaviour::EndlessHead);
    const QUrl url(station.Url());
    QTcpSocket socket;
    socket.connectToHost(url.host(), static_cast<quint16>(url.port()));
    socket.write("GET " + url.path().toLatin1() + " HTTP/1.1\r\nHost: x\r\n\r\n");
    QByteArray head;
    connect(&socket, &QTcpSocket::readyRead, this, [&]() { head += socket.readAll(); });
    QTRY_VERIFY_WITH_TIMEOUT(head.size() > 1 << 20, 20'000);
    QVERIFY(head.startsWith("HTTP/1.1 200 ") && !head.contains("\r\n\r\n"));
  }
};

OMNI_TEST(TestStationBand)
#include "test_station_band.moc"
