// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated callbook services over real HTTP, signed in where they ask for it: the program's own readers find every
// operator's fields in every service's pages.
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include "callbook/callbook_service.h"
#include "callbook/db_rec.h"
#include "callbook/page_reader.h"
#include "callbook_host.h"
#include "core/config.h"
#include "operators.h"
#include "platform/html/html_text.h"
#include "station_band.h"
#include "test_suite.h"

namespace {

QByteArray BodyOf(QNetworkReply* started) {
  const std::unique_ptr<QNetworkReply> reply(started);
  QSignalSpy finished(reply.get(), &QNetworkReply::finished);
  (void)finished.wait(20'000);
  return reply->readAll();
}

}  // namespace

class TestCallbookServices : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReadersFindEveryField_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("signedIn");
    for (int index = 1; index <= kCallbookServices; ++index) {
      const CallbookService& service = *FindCallbookService(index);
      const bool hasLogin = !service.loginPath.isEmpty();
      QTest::addRow("%s", qPrintable(CallbookNameOf(index))) << index << hasLogin;
      if (hasLogin && !service.needsLogin) QTest::newRow("without the login") << index << false;
    }
  }
  void ReadersFindEveryField() {
    QFETCH(int, index);
    QFETCH(bool, signedIn);
    const CallbookService& service = *FindCallbookService(index);
    const QString name = CallbookNameOf(index);
    StationBand band;
    QNetworkAccessManager net;  // keeps the cookie of the session
    if (signedIn) {
      QNetworkRequest login(QUrl(band.HostUrl(name) + service.loginPath));
      login.setHeader(QNetworkRequest::ContentTypeHeader, u"application/x-www-form-urlencoded"_s);
      (void)BodyOf(net.post(login, "user=robin&password=perch"));
    }
    int seen = 0;
    PageReader reader;
    for (const Operator& person : Operators()) {
      const bool isAmerican = person.country == u"United States";
      if (name == "Callook"_L1 && !isAmerican) continue;
      if (name == "QRZ"_L1 && IsForSubscribers(person)) continue;
      const QString call = person.call.toString();
      const QUrl page(band.HostUrl(name) + service.pagePath + call);
      reader.PageText = HTMLDecode(AnsiText(BodyOf(net.get(QNetworkRequest(page)))));
      const NameReading read = reader.cName(index, call);
      const QStringList lines{read.name, reader.Add1(index), reader.Add2(index), reader.ctry(index)};
      const QString country = name == "Callook"_L1 ? u"U.S.A."_s : person.country.toString();
      QCOMPARE(lines, QStringList({person.name.toString(), person.street.toString(), person.town.toString(), country}));
      QVERIFY2(read.event == NameReading::Event::None, qPrintable(call));
      QCOMPARE(reader.LoggedIn(index), signedIn);
      // QCOMPARE would take two values that are no numbers for equal.
      QVERIFY2(reader.Latitude(index) == person.lat && reader.Longitude(index) == person.lon, qPrintable(call));
      QCOMPARE(reader.Class(index), person.licence.toString());
      const bool tellsBirth = person.born > 0 && (name == "QRZ"_L1 || name == "HamCall"_L1);
      QCOMPARE(reader.DateOfBirth(index), tellsBirth ? QString::number(person.born) : QString());
      ++seen;
    }
    QVERIFY(seen >= 10);
  }
};

OMNI_TEST(TestCallbookServices)
#include "test_callbook_services.moc"
