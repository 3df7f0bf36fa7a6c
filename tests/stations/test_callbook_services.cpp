// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated callbook services over real HTTP: who gets data, how long a sign-in lasts, that the program's own
// readers find every operator's fields in every service's pages, and what the picture store has.
#include <QImage>
#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTest>

#include "callbook/callbook_service.h"
#include "callbook/db_rec.h"
#include "callbook/page_reader.h"
#include "callbook_host.h"
#include "core/config.h"
#include "operators.h"
#include "picture_store.h"
#include "platform/html/html_text.h"
#include "station_band.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kRight = "user=robin&password=perch";

struct Got {
  int status = 0;
  QByteArray body;
  QByteArray location;
  QList<QNetworkCookie> cookies;
};

const CallbookService& ServiceOf(const QString& name) {
  for (int i = 1; i < kCallbookServices; ++i) {
    if (CallbookNameOf(i) == name) return *FindCallbookService(i);
  }
  return *FindCallbookService(kCallbookServices);
}

// The text that the program reads the fields of a page from.
QString TextOf(const QByteArray& page) {
  return HTMLDecode(AnsiText(page));
}

}  // namespace

class TestCallbookServices : public QObject {
  Q_OBJECT

  QNetworkAccessManager net_;

  // No cookies but those given, no redirect followed. A form is posted, no form is a plain read.
  Got Ask(const QString& url, const QByteArray& cookie = {}, const QByteArray& form = {}) {
    QNetworkRequest request{QUrl(url)};
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/x-www-form-urlencoded"_s);
    if (!cookie.isEmpty()) request.setRawHeader("Cookie", cookie);
    const std::unique_ptr<QNetworkReply> reply(form.isEmpty() ? net_.get(request) : net_.post(request, form));
    QSignalSpy finished(reply.get(), &QNetworkReply::finished);
    if (!finished.wait(20000)) return {};
    return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), reply->readAll(),
            reply->rawHeader("Location"), QNetworkCookie::parseCookies(reply->rawHeader("Set-Cookie"))};
  }

  QByteArray SignIn(const StationBand& band, const QString& name) {
    const Got got = Ask(band.HostUrl(name) + u"/login"_s, {}, kRight);
    return got.cookies.isEmpty() ? QByteArray() : got.cookies.first().toRawForm(QNetworkCookie::NameAndValueOnly);
  }

  static QString PageUrl(const StationBand& band, const CallbookService& service, const QString& call) {
    return band.HostUrl(CallbookNameOf(service.index)) + service.pagePath + call;
  }

 private Q_SLOTS:
  void signsInAndOut_data() {
    QTest::addColumn<bool>("needsLogin");
    QTest::addColumn<bool>("isSession");  // the cookie tells no end
    QTest::newRow("eHam") << true << false;
    QTest::newRow("QRZ") << true << true;
    QTest::newRow("QRZCQ") << false << false;
    QTest::newRow("HamCall") << true << true;
  }

  void signsInAndOut() {
    QFETCH(bool, needsLogin);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const CallbookService& service = ServiceOf(name);
    StationBand band;
    const QString root = band.HostUrl(name) + service.rootPath;
    const QString login = band.HostUrl(name) + service.loginPath;
    const QString page = PageUrl(band, service, u"DL0QPA"_s);
    const auto greets = [&](const Got& got) { return TextOf(got.body).contains(service.loginText); };
    const auto tells = [&](const Got& got) { return got.body.contains("Hohenrode"); };

    // Nobody is signed in, and a wrong password changes nothing.
    QVERIFY(!greets(Ask(root)) && !greets(Ask(page)));
    QCOMPARE(tells(Ask(page)), !needsLogin);
    QVERIFY(Ask(login).body.contains("type=\"password\""));
    for (const char* wrong : {"user=robin&password=roach", "user=&password=perch", "password=perch", "perch"}) {
      const Got got = Ask(login, {}, wrong);
      QCOMPARE(got.status, 200);
      QVERIFY(got.cookies.isEmpty() && got.body.contains("role=\"alert\"") && !greets(got));
    }

    const Got got = Ask(login, {}, kRight);
    QCOMPARE(got.status, 303);
    QCOMPARE(QString::fromLatin1(got.location), service.rootPath);
    QCOMPARE(got.cookies.size(), 1);
    const QNetworkCookie cookie = got.cookies.first();
    QVERIFY(cookie.isHttpOnly() && cookie.path() == u"/"_s && cookie.domain().isEmpty());
    QTEST(cookie.isSessionCookie(), "isSession");
    if (!cookie.isSessionCookie()) {
      const qint64 days = QDateTime::currentDateTimeUtc().daysTo(cookie.expirationDate());
      QVERIFY(days == 29 || days == 30);
    }
    const QByteArray session = cookie.toRawForm(QNetworkCookie::NameAndValueOnly);
    QVERIFY(greets(Ask(root, "other=1; " + session)) && greets(Ask(page, session)) && tells(Ask(page, session)));

    // A band started anew knows the session; a session that is made up or another service's is none.
    StationBand again;
    QVERIFY(tells(Ask(PageUrl(again, service, u"DL0QPA"_s), session)));
    QByteArray forged = session;
    forged.back() = forged.back() == '0' ? '1' : '0';
    QVERIFY(!greets(Ask(root, forged)));
    const QString other = name == "QRZ"_L1 ? u"eHam"_s : u"QRZ"_s;
    QVERIFY(!greets(Ask(root, cookie.name() + '=' + SignIn(band, other).split('=').last())));

    const Got left = Ask(band.HostUrl(name) + u"/logout"_s, session);
    QCOMPARE(left.status, 303);
    QCOMPARE(left.cookies.size(), 1);
    QVERIFY(left.cookies.first().expirationDate() <= QDateTime::currentDateTimeUtc());
    QVERIFY(!greets(Ask(root, session)) && !greets(Ask(page, session)));
    QVERIFY(greets(Ask(root, SignIn(band, name))));
  }

  void readersFindEveryField_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("signedIn");
    QTest::newRow("eHam") << u"eHam"_s << true;
    QTest::newRow("QRZ") << u"QRZ"_s << true;
    QTest::newRow("QRZCQ") << u"QRZCQ"_s << true;
    QTest::newRow("QRZCQ, no login") << u"QRZCQ"_s << false;
    QTest::newRow("Callook") << u"Callook"_s << false;
    QTest::newRow("HamCall") << u"HamCall"_s << true;
  }

  void readersFindEveryField() {
    QFETCH(QString, name);
    QFETCH(bool, signedIn);
    const CallbookService& service = ServiceOf(name);
    const int index = service.index;
    StationBand band;
    const QByteArray session = signedIn ? SignIn(band, name) : QByteArray();
    int seen = 0;
    PageReader reader;
    for (const Operator& person : Operators()) {
      const bool isAmerican = person.country == u"United States";
      if (name == "Callook"_L1 && !isAmerican) continue;
      if (name == "QRZ"_L1 && IsForSubscribers(person)) continue;
      const QString call = person.call.toString();
      reader.PageText = TextOf(Ask(PageUrl(band, service, call), session).body);
      const NameReading read = reader.cName(index, call);
      const QStringList lines{read.name, reader.Add1(index), reader.Add2(index), reader.ctry(index)};
      const QString country = name == "Callook"_L1 ? u"U.S.A."_s : person.country.toString();
      QCOMPARE(lines, QStringList({person.name.toString(), person.street.toString(), person.town.toString(), country}));
      QVERIFY2(read.event == NameReading::Event::None, qPrintable(call));
      QCOMPARE(reader.LoggedIn(index), signedIn);
      // Latitude and Longitude must not pass for equal because both failed: compare as they stand.
      QVERIFY2(reader.Latitude(index) == person.lat && reader.Longitude(index) == person.lon, qPrintable(call));
      QCOMPARE(reader.Class(index), person.licence.toString());
      const bool tellsBirth = person.born > 0 && (name == "QRZ"_L1 || name == "HamCall"_L1);
      QCOMPARE(reader.DateOfBirth(index), tellsBirth ? QString::number(person.born) : QString());
      ++seen;
    }
    QVERIFY(seen >= 10);
  }

  void readersTellWhatIsMissing_data() {
    using enum NameReading::Event;
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("signedIn");
    QTest::addColumn<NameReading::Event>("event");
    for (const char* name : {"eHam", "QRZ", "QRZCQ", "HamCall"}) {
      QTest::addRow("%s, unknown", name) << QString::fromLatin1(name) << u"ZZ9SUN"_s << true << CallNotFound;
    }
    QTest::newRow("QRZCQ, unknown, no login") << u"QRZCQ"_s << u"ZZ9SUN"_s << false << CallNotFound;
    QTest::newRow("Callook, unknown") << u"Callook"_s << u"ZZ9SUN"_s << false << CallNotFound;
    QTest::newRow("Callook, abroad") << u"Callook"_s << u"DL0QPA"_s << false << CallNotFound;
    QTest::newRow("eHam, no login") << u"eHam"_s << u"DL0QPA"_s << false << CallNotFound;
    QTest::newRow("QRZ, no login") << u"QRZ"_s << u"DL0QPA"_s << false << LoginRequired;
    QTest::newRow("QRZ, no subscriber") << u"QRZ"_s << u"G3QXR"_s << true << LoginRequired;
    QTest::newRow("HamCall, no login") << u"HamCall"_s << u"DL0QPA"_s << false << CallNotFound;
    QTest::newRow("markup as a call") << u"eHam"_s << u"<b>Country"_s << true << CallNotFound;
  }

  void readersTellWhatIsMissing() {
    QFETCH(QString, name);
    QFETCH(QString, call);
    QFETCH(bool, signedIn);
    const CallbookService& service = ServiceOf(name);
    StationBand band;
    PageReader reader;
    const Got got = Ask(PageUrl(band, service, call), signedIn ? SignIn(band, name) : QByteArray());
    QCOMPARE(got.status, 200);
    QVERIFY(!got.body.contains("<b>Country"));
    reader.PageText = TextOf(got.body);
    const NameReading read = reader.cName(service.index, call);
    QTEST(read.event, "event");
    QCOMPARE(read.name, QString());
    QCOMPARE(reader.LoggedIn(service.index), signedIn);
  }

  void storesPictures_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isPicture");
    QTest::newRow("has one") << u"b/dk7qxb/dk7qxb.jpg"_s << 200 << true;
    QTest::newRow("has none") << u"a/dl0qpa/dl0qpa.jpg"_s << 404 << false;
    QTest::newRow("unknown") << u"n/zz9sun/zz9sun.jpg"_s << 404 << false;
    QTest::newRow("other folder") << u"a/dk7qxb/dk7qxb.jpg"_s << 404 << false;
    QTest::newRow("no picture") << u"g/n8qxg/n8qxg.jpg"_s << 200 << false;
  }

  void storesPictures() {
    QFETCH(QString, path);
    StationBand band;
    const Got got = Ask(band.HostUrl(u"Pictures"_s) + u'/' + path);
    QTEST(got.status, "status");
    const QImage image = QImage::fromData(got.body);
    QTEST(!image.isNull(), "isPicture");
    if (!image.isNull()) QCOMPARE(image.width() + image.height(), 700);
  }

  void takesWhatIsWellFormedAndMisbehavesAsTold() {
    StationBand band;
    const Station& station = band.AddStation(u"ZZ9QX"_s);
    QCOMPARE(Ask(station.Url(), {}, kRight).status, 405);
    const QString login = band.HostUrl(u"QRZ"_s) + u"/login"_s;
    const QByteArray field = QByteArray(kRight) + "&note=";
    QCOMPARE(Ask(login, {}, field.leftJustified(kMostForm, 'x')).status, 303);

    // A form that comes in pieces, one that is too long, and a length that is none.
    const QUrl url(login);
    const auto answer = [&](const QList<QByteArray>& pieces) {
      QTcpSocket socket;
      socket.connectToHost(url.host(), static_cast<quint16>(url.port()));
      if (!QTest::qWaitFor([&] { return socket.state() == QAbstractSocket::ConnectedState; })) return QByteArray();
      for (const QByteArray& piece : pieces) {
        socket.write(piece);
        socket.flush();
        QCoreApplication::processEvents();
      }
      QByteArray text;
      (void)QTest::qWaitFor([&] { return (text += socket.readAll()).contains("\r\n\r\n"); });
      return text.left(12);
    };
    const QByteArray head = "POST /login HTTP/1.1\r\nHost: x\r\nContent-Length: ";
    QCOMPARE(answer({head, "25\r\n", "\r\nuser=robin", "&password", "=perch"}), QByteArray("HTTP/1.1 303"));
    QCOMPARE(answer({head + "65537\r\n\r\n"}), QByteArray("HTTP/1.1 413"));
    QCOMPARE(answer({head + "-3\r\n\r\n"}), QByteArray("HTTP/1.1 400"));
    QCOMPARE(answer({"POST /login HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n"}), QByteArray("HTTP/1.1 411"));
    QCOMPARE(answer({"PUT /login HTTP/1.1\r\n\r\n"}), QByteArray("HTTP/1.1 405"));

    band.FindHost(u"QRZ"_s)->Misbehave(u"db/DL0QPA"_s, Behaviour::ServerError);
    const QByteArray session = SignIn(band, u"QRZ"_s);
    QCOMPARE(Ask(band.HostUrl(u"QRZ"_s) + u"/db/DL0QPA"_s, session).status, 500);
    QCOMPARE(Ask(band.HostUrl(u"QRZ"_s) + u"/db/DK7QXB"_s, session).status, 200);
    band.FindHost(u"QRZ"_s)->SetAnswer(u"db/DK7QXB"_s, {200, "image/png", "no page", {}});
    QCOMPARE(Ask(band.HostUrl(u"QRZ"_s) + u"/db/DK7QXB"_s, session).body, QByteArray("no page"));
    QVERIFY(band.HostsIni().contains("\nQRZ=" + band.HostUrl(u"QRZ"_s).toUtf8() + '\n'));
  }
};

OMNI_TEST(TestCallbookServices)
#include "test_callbook_services.moc"
