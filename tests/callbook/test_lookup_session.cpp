// SPDX-License-Identifier: GPL-3.0-or-later
// What the lookup window shows and keeps, against the simulated services: over the network, with real pictures.

#include "callbook/station_place.h"
#include "lookup_fixture.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kQrz = 2;
constexpr int kQrzcq = 3;
constexpr int kCallook = 4;
constexpr int kHamCall = 5;

}  // namespace

class TestLookupSession : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AsksEachService() {
    const auto check = [](const char* what, int service, bool signedIn, bool hasData, TextLine status) {
      const TableRow row(what);
      SessionFixture f(service);
      f.program.nicknames.lstNicknames = QStringList{u"K1QPE*Marty"_s};
      if (signedIn) f.SignIn();
      f.Look(u"k1qpe/P"_s);
      QCOMPARE(f.view.title, u"Callsign k1qpe/P"_s);
      QCOMPARE(f.view.call, u"Reading %1. . ."_s.arg(f.program.config.CallbookName));
      QVERIFY(f.view.busy);
      QTRY_VERIFY_WITH_TIMEOUT(!f.view.busy, 10'000);
      f.Settle();
      QCOMPARE(f.view.status, f.Text(status));
      QCOMPARE(f.LookupStatus, f.Text(status));
      if (!hasData) {
        QCOMPARE(f.view.call + f.view.name + f.view.add1 + f.view.ctry + f.view.dxAz, QString());
        QCOMPARE(f.Records(), 0);
        QCOMPARE(f.PictureRequests(), 0);
        return;
      }
      QCOMPARE(f.view.call, u"K1QPE  (From %1)"_s.arg(f.program.config.CallbookName));
      QCOMPARE(f.view.name, u"Marty  (Martha)"_s);
      QCOMPARE(f.view.add1, u"88 Maple Street"_s);
      QVERIFY2(f.view.add2.startsWith(u"East Harrow"_s), qPrintable(f.view.add2));
      QVERIFY2(f.view.ctry == u"United States"_s || f.view.ctry == u"U.S.A."_s, qPrintable(f.view.ctry));
      QCOMPARE(f.view.dxAz, u"604 km 39° "_s);
      const QString filed = f.Filed(u"K1QPE"_s);
      QVERIFY2(filed.startsWith(u"Martha*44.1*-70.2*Extra"_s), qPrintable(filed));
      QCOMPARE(filed.section(u'*', 4, 6), (QStringList{f.view.add1, f.view.add2, f.view.ctry}.join(u'*')));
      QCOMPARE(filed.section(u'*', 7), service == kQrz || service == kHamCall ? u"1951"_s : QString());
      QTRY_VERIFY(!f.view.picture.isNull());
      QVERIFY(!f.Picture(u"K1QPE"_s).isEmpty());
    };
    check("eHam", 1, false, false, TextLine::kNotLoggedIn);
    check("eHam, signed in", 1, true, true, TextLine::kLoggedIn);
    check("QRZ", kQrz, false, false, TextLine::kNotLoggedIn);
    check("QRZ, signed in", kQrz, true, true, TextLine::kLoggedIn);
    check("QRZCQ", kQrzcq, false, true, TextLine::kQrzcqStatus);
    check("QRZCQ, signed in", kQrzcq, true, true, TextLine::kLoggedIn);
    check("Callook", kCallook, false, true, TextLine::kCallookStatus);
    check("HamCall", kHamCall, false, false, TextLine::kNotLoggedIn);
    check("HamCall, signed in", kHamCall, true, true, TextLine::kLoggedIn);
  }

  void AnswersFromTheDatabase() {
    // Where dxAz is empty, the record does not suffice and the service is asked.
    const auto check = [](const char* what, const QString& name, const QString& lat, const QString& lon, double myLat,
                          const QString& dxAz) {
      const TableRow row(what);
      SessionFixture f;
      f.program.config.MyLat = myLat;
      f.program.nicknames.lstNicknames = QStringList{u"K1QPE*Rob"_s};
      f.File(u"K1QPE"_s, name, lat, lon);
      QSignalSpy front(&f.session, &LookupSession::FrontWanted);
      f.LookToTheEnd(u"K1QPE"_s);
      QCOMPARE(front.isEmpty(), dxAz.isEmpty());
      QCOMPARE(f.Service().TotalRequests(), dxAz.isEmpty() ? 1 : 0);
      QCOMPARE(f.Records(), 1);
      if (dxAz.isEmpty()) {
        QCOMPARE(f.Filed(u"K1QPE"_s).section(u'*', 0, 1), u"Martha*44.1"_s);
        return;
      }
      QCOMPARE(f.view.call, u"K1QPE  (from the local database)"_s);
      QCOMPARE(f.view.name, u"Rob  (Robin)"_s);
      QCOMPARE(f.view.add1 + u'/' + f.view.add2 + u'/' + f.view.ctry, u"1 Mill Lane//Nowhere"_s);
      QCOMPARE(f.view.dxAz, dxAz);
      QTRY_VERIFY(!f.view.picture.isNull());
    };
    check("known", u"Robin"_s, u"51,5"_s, u" 0.1E"_s, 40.0, u"5,711 km 50° "_s);
    check("own place unknown", u"Robin"_s, u"51.5"_s, u"0.1"_s, 0.0, u"Set your own location first (Setup)"_s);
    check("no longitude", u"Robin"_s, u"51.5"_s, u"0"_s, 40.0, u"Location unknown"_s);
    check("no latitude", u"Robin"_s, u"0"_s, u"0.1"_s, 40.0, {});
    check("no name", {}, u"51.5"_s, u"0.1"_s, 40.0, {});
  }

  void TakesTheSitesPlace() {
    SessionFixture f;
    f.LookToTheEnd(u"W1QXM"_s);
    QCOMPARE(f.view.dxAz, u"No coordinates on Callook"_s);
    QCOMPARE(f.Filed(u"W1QXM"_s).section(u'*', 0, 3), u"Nobody Knowsplace*0*0*Novice"_s);
    for (const QString& call : {u"W1QXM"_s, u"W0QXM"_s}) {
      SiteRec site;
      site.Call = call;
      site.Lat = 43.5;
      site.Lon = -72.25;
      f.program.sites.Sites.append(site);
    }
    f.program.sites.SortSites();
    f.LookToTheEnd(u"W1QXM"_s);
    QVERIFY2(f.view.dxAz.contains(u" km "_s), qPrintable(f.view.dxAz));
    QCOMPARE(f.Filed(u"W1QXM"_s).section(u'*', 1, 2), u"43.5*-72.25"_s);
    QCOMPARE(PlaceOf(f.program, f.database, u"WØQXM"_s).TargetLat, 43.5);
    QCOMPARE(PlaceOf(f.program, f.database, u"WØQXN"_s).TargetLat, 0.0);

    // Half a place on the page is none: both coordinates come from the site.
    PageHost host(QHostAddress(QHostAddress::LocalHost), 0, nullptr);
    f.hosts.Callook = host.Base();
    host.SetPage(u"W1QXM"_s, []() {
      return CallPage(Callbook::Callook, u"W1QXM"_s, FindOperator(u"K1QPE"_s), false).replace("Longitude", "Length");
    });
    f.Look(u"W1QXM"_s);
    f.UpdateToTheEnd();
    QCOMPARE(f.Filed(u"W1QXM"_s).section(u'*', 0, 2), u"Martha*43.5*-72.25"_s);
  }

  void KnowsNoSixthService() {
    SessionFixture f;
    f.program.config.CallbookIndex = 6;
    f.program.config.CallbookName.clear();
    f.LookToTheEnd(u"K1QPE"_s);
    QCOMPARE(f.view.call, u"Reading . . ."_s);
    QCOMPARE(f.view.status + f.view.name, QString());
    QVERIFY(f.session.Offer().kind == SignInOffer::Kind::None);
    QCOMPARE(f.Records(), 0);
    f.session.ChooseService(kCallook - 1);
    QTRY_COMPARE(f.view.name, u"Martha"_s);
  }

  void SaysWhatItDidNotFind() {
    SessionFixture f;
    QSignalSpy beeps(&f.session, &LookupSession::Beep);
    for (int service = 1; service <= kCallbookServices; ++service) {
      f.Choose(service);
      if (service != kCallook) f.SignIn();
      f.LookToTheEnd(u"QQ7QQQ"_s);
      QCOMPARE(f.view.call + f.view.name, u"Not found: QQ7QQQ"_s);
    }
    QCOMPARE(beeps.count(), 0);

    // QRZ shows this one to others only.
    f.Choose(kQrz);
    f.LookToTheEnd(u"G3QXR"_s);
    QCOMPARE(beeps.count(), 1);
    QCOMPARE(f.view.name, QString());
    QVERIFY(f.view.call.startsWith(u"G3QXR"_s));
    QCOMPARE(f.session.Offer().text, u"Sign in to QRZ"_s);
    // Of the record that another service has given, the name goes and nothing else.
    f.Choose(kQrzcq);
    f.LookToTheEnd(u"G3QXR"_s);
    QVERIFY(!f.view.name.isEmpty());
    f.session.ChooseService(kQrz - 1);
    QTRY_COMPARE(beeps.count(), 2);
    QVERIFY(f.view.name.isEmpty() && !f.view.add1.isEmpty() && !f.view.busy);

    for (const Behaviour behaviour : {Behaviour::Stall, Behaviour::RedirectLoop}) {
      f.Service().Misbehave({}, behaviour);
      f.LookToTheEnd(u"K1QPE"_s);
      QCOMPARE(f.view.call, u"Not found: K1QPE"_s);
    }
    QCOMPARE(f.Records(), 1);  // the one that QRZCQ's page has filled
  }

  // PageReader::ParsePos stays where the page before has left it; a name cut out from there belongs to nobody.
  void KeepsNoNameOfAnUnknownCall() {
    SessionFixture f(kHamCall);
    PageHost host(QHostAddress(QHostAddress::LocalHost), 0, nullptr);
    f.hosts.HamCall = host.Base();
    QByteArray page = CallPage(Callbook::HamCall, u"K1QPE"_s, FindOperator(u"K1QPE"_s), true);
    host.SetPage(u"call"_s, [&page]() { return page; });
    f.LookToTheEnd(u"K1QPE"_s);
    const QString filed = f.Filed(u"K1QPE"_s);
    QVERIFY(filed.startsWith(u"Martha*"_s));
    page = "<html><body>Log Out. No such station, and nothing but words on this page, enough of them.</body></html>";
    f.UpdateToTheEnd();
    QCOMPARE(f.view.call + f.view.name, u"Not found: K1QPE"_s);
    QCOMPARE(f.Filed(u"K1QPE"_s), filed);
    page = CallPage(Callbook::HamCall, u"K1QPE"_s, FindOperator(u"K1QPE"_s), true);
    f.session.Update();
    QTRY_COMPARE(f.view.name, u"Martha"_s);
  }

  void KeepsOutBadCalls() {
    const auto check = [](const char* what, const QString& call, const QString& shown) {
      const TableRow row(what);
      SessionFixture f;
      f.LookToTheEnd(call);
      QCOMPARE(f.view.call, shown);
      QCOMPARE(f.Records(), 0);
      QVERIFY(QDir(f.folder.path()).entryList({u"*images*"_s}, QDir::AllEntries).isEmpty());
      QCOMPARE(f.PictureRequests(), 0);
      f.session.ChooseService(kCallook - 1);
      f.UpdateToTheEnd();
      QVERIFY(f.Service().Log().filter(u".."_s).isEmpty());

      // Whatever the call is, its picture's file lies in the folder of pictures under a name of letters and digits.
      const QString path = OperatorPicturePath(u"/data"_s, call);
      QVERIFY2(path.isEmpty() || QFileInfo(path).path() == u"/data/images/qrzImages"_s, qPrintable(path));
      QVERIFY(QFileInfo(path).completeBaseName().size() <= 20);
      QCOMPARE(OperatorPicturePath(u"/data"_s, u"./"_s), QString());
    };
    const QString progress = u"Reading Callook. . ."_s;
    check("nothing", {}, progress);
    check("blanks", u"   "_s, progress);
    check("a separator first", u"/ZZ9QX"_s, progress);
    check("a zero alone", u"Ø"_s, u"Not found: 0"_s);
    check("a prefix first", u"VE3/ZZ9QX"_s, u"Not found: VE3"_s);
    check("a folder above", u"../../K1QPE"_s, progress);
    check("200 characters", QString(200, u'A'), u"Not found: "_s + QString(200, u'A'));
    check("200 digits", QString(200, u'7'), u"Not found: "_s + QString(200, u'7'));
    check("a query", u"K1Q?x=1#y"_s, u"Not found: K1Q"_s);
    check("an accent", u"É1QPEX"_s, u"Not found: É1QPEX"_s);
  }

  void KeepsPicturesWhole() {
    SessionFixture f;
    const QByteArray old = PlainImage(QSize(300, 200));
    // The store has a file of that name which is no picture, and for the other call nothing but an error page.
    for (const QString& call : {u"N8QXG"_s, u"N7QWM"_s}) {
      f.WritePicture(call, old);
      f.LookToTheEnd(call);
      QVERIFY(!f.view.name.isEmpty());
      QTRY_VERIFY(!f.view.picture.isNull());
      QCOMPARE(f.Picture(call), old);
      QCOMPARE(f.view.pictureUnits, QSizeF(57, 38));
    }
    f.WritePicture(u"K1QPE"_s, old);
    f.LookToTheEnd(u"K1QPE"_s);
    QTRY_VERIFY(f.Picture(u"K1QPE"_s) != old && !f.view.picture.isNull());
    QVERIFY(f.Picture(u"K1QPE"_s).startsWith("\xFF\xD8"));
  }

  void ReadsEmptyPicturesAgain() {
    SessionFixture f;
    f.File(u"K1QPE"_s, u"Robin"_s, u"51.5"_s, u"0.1"_s);
    f.WritePicture(u"K1QPE"_s, QByteArray());
    f.Look(u"K1QPE"_s);
    QTRY_VERIFY(!f.view.picture.isNull());
    QCOMPARE(f.PictureRequests(), 1);
    QVERIFY(!f.Picture(u"K1QPE"_s).isEmpty());
    f.Look(u"K1QPE"_s);
    QVERIFY(f.view.picture.isNull());
    QTRY_VERIFY(!f.view.picture.isNull());
    QCOMPARE(f.PictureRequests(), 1);
    QCOMPARE(f.Service().TotalRequests(), 0);
  }

  // A picture that is still being decoded when another read or another call begins is not shown.
  void ShowsNoFormerPicture() {
    enum { AnotherCall, AnUpdate, AService };
    for (const int way : {AnotherCall, AnUpdate, AService}) {
      SessionFixture f;
      f.File(u"QQ7QQQ"_s, u"Robin"_s, u"51.5"_s, u"0.1"_s);
      f.WritePicture(u"QQ7QQQ"_s, PlainImage(QSize(1600, 1200)));
      f.Look(u"QQ7QQQ"_s);
      QVERIFY(f.view.name == u"Robin"_s && f.view.picture.isNull());
      if (way == AnotherCall) f.Look(u"QQ7QQR"_s);
      if (way == AnUpdate) f.session.Update();
      if (way == AService) f.session.ChooseService(kCallook - 1);
      QTRY_VERIFY(f.view.call.startsWith(u"Not found: "_s));
      bool decoded = false;
      f.tool.View(f.PicturePath(u"QQ7QQQ"_s), QSize(9, 9), &f.session, [&](const PictureAnswer&) { decoded = true; });
      QTRY_VERIFY(decoded);
      QVERIFY(f.view.picture.isNull());
    }
  }

  void SizesPictures() {
    const QList<std::pair<QSize, QSizeF>> sizes{{{570, 100}, {57, 10}},   {{30, 20}, {57, 38}},
                                                {{400, 280}, {57, 39.9}}, {{400, 300}, {52, 39}},
                                                {{100, 390}, {10, 39}},   {{0, 10}, {-1, -1}}};
    for (const auto& [pixels, units] : sizes) {
      const QSizeF size = PictureUnits(pixels);
      QVERIFY(std::abs(size.width() - units.width()) < 1e-9 && std::abs(size.height() - units.height()) < 1e-9);
    }
  }

  void DropsFormerCalls() {
    SessionFixture f;
    f.Service().SetLatency(std::chrono::milliseconds(150));
    f.Look(u"K1QPE"_s);
    QTRY_COMPARE(f.Service().TotalRequests(), 1);
    f.Service().SetLatency(std::chrono::milliseconds(0));
    f.LookToTheEnd(u"W5QUJ"_s);
    QCOMPARE(f.view.name, u"Buck R."_s);
    f.Service().SetLatency(std::chrono::milliseconds(150));
    QSignalSpy stored(&f.session, &LookupSession::Stored);
    f.Look(u"K6QVL"_s);
    f.session.EndLookup();
    QVERIFY(!f.view.busy);
    // By the time that a third has been through, the other two would have come.
    f.LookToTheEnd(u"N0QZP"_s);
    QTRY_COMPARE(stored.count(), 1);
    QCOMPARE(stored.first().first().toString(), u"N0QZP"_s);
    QVERIFY(f.view.call.startsWith(u"N0QZP"_s));
    QCOMPARE(f.Filed(u"K1QPE"_s) + f.Filed(u"K6QVL"_s), QString());
  }

  void ChangesTheService() {
    SessionFixture f;
    f.LookToTheEnd(u"K1QPE"_s);
    QTRY_VERIFY(!f.view.picture.isNull());
    f.session.ChooseService(2);
    QCOMPARE(f.program.config.CallbookName, u"QRZCQ.com"_s);
    QCOMPARE(f.view.updateCaption, u"Update from QRZCQ.com"_s);
    QVERIFY(f.view.status.isEmpty() && f.view.picture.isNull() && f.view.busy);
    QTRY_COMPARE(f.view.call, u"K1QPE  (From QRZCQ.com)"_s);
    for (const int outside : {-1, 5}) f.session.ChooseService(outside);
    QCOMPARE(f.program.config.CallbookIndex, kQrzcq);
    QVERIFY(!f.view.busy);

    f.session.Update();
    QCOMPARE(f.view.call, u"Reading QRZCQ.com. . ."_s);
    QCOMPARE(f.view.name + f.view.add1 + f.view.add2 + f.view.ctry + f.view.dxAz, QString());
    QTRY_COMPARE(f.view.name, u"Martha"_s);
    f.Settle();
    QCOMPARE(f.Records(), 1);

    // eHam shows nothing without a login: the former record goes from the window, too.
    QTRY_VERIFY(!f.view.picture.isNull());
    f.session.ChooseService(0);
    QVERIFY(!f.view.name.isEmpty());
    QTRY_COMPARE(f.view.status, f.Text(TextLine::kNotLoggedIn));
    QCOMPARE(f.view.call + f.view.name + f.view.add1 + f.view.add2 + f.view.ctry + f.view.dxAz, QString());
    QVERIFY(!f.view.busy && f.view.picture.isNull());
  }

  // Neither the database nor a picture can be written, and the lookup shows all the same what it has read.
  void ShowsWhatItCannotKeep() {
    SessionFixture f;
    QVERIFY(QDir(f.folder.path()).mkpath(u"Omni-Perch-DB.db"_s) && QDir(f.folder.path()).mkpath(u"images"_s));
    QFile inTheWay(f.folder.filePath(u"images/qrzImages"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    QSignalSpy stored(&f.session, &LookupSession::Stored);
    f.LookToTheEnd(u"K1QPE"_s);
    QCOMPARE(f.view.name, u"Martha"_s);
    QTRY_COMPARE(f.PictureRequests(), 1);
    QVERIFY(stored.isEmpty());
    f.LookToTheEnd(u"W5QUJ"_s);
    QCOMPARE(f.view.name, u"Buck R."_s);
    QCOMPARE(inTheWay.size(), 0);
  }
};

OMNI_TEST(TestLookupSession)
#include "test_lookup_session.moc"
