// SPDX-License-Identifier: GPL-3.0-or-later
// What the lookup window shows and keeps, against the simulated services: over the network, with real pictures;
// and how a user signs in to a service and out again: the login state, the cookies and the record.

#include "callbook/station_place.h"
#include "lookup_fixture.h"

class TestLookupSession : public QObject {
  Q_OBJECT

  enum Service { kEham = 1, kQrz, kQrzcq, kCallook, kHamCall };

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
      QCOMPARE(f.view.status + u'|' + f.LookupStatus, f.Text(status) + u'|' + f.Text(status));
      QCOMPARE(f.Records(), hasData ? 1 : 0);
      if (!hasData) {
        QCOMPARE(f.Shown(), u"|||||"_s);
        QCOMPARE(f.PictureRequests(), 0);
        return;
      }
      QCOMPARE(f.Shown().section(u'|', 0, 2),
               u"K1QPE  (From %1)|Marty  (Martha)|88 Maple Street"_s.arg(f.program.config.CallbookName));
      const QRegularExpression place(u"\\|East Harrow[^|]*\\|(United States|U.S.A.)\\|604 km 39° $"_s);
      QVERIFY2(f.Shown().contains(place), qPrintable(f.Shown()));
      const QStringList filed{u"Martha*44.1*-70.2*Extra"_s, f.view.add1, f.view.add2, f.view.ctry,
                              service == kQrz || service == kHamCall ? u"1951"_s : QString()};
      QCOMPARE(f.Filed(u"K1QPE"_s), filed.join(u'*'));
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
      const bool asks = dxAz.isEmpty();
      QVERIFY(front.isEmpty() == asks && f.Service().TotalRequests() == (asks ? 1 : 0) && f.Records() == 1);
      if (asks) QCOMPARE(f.Filed(u"K1QPE"_s).section(u'*', 0, 1), u"Martha*44.1"_s);
      if (asks) return;
      QCOMPARE(f.Shown(), u"K1QPE  (from the local database)|Rob  (Robin)|1 Mill Lane||Nowhere|"_s + dxAz);
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
    SiteRec site;
    site.Lat = 43.5;
    site.Lon = -72.25;
    for (const QString& call : {u"W1QXM"_s, u"W0QXM"_s}) {
      site.Call = call;
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
    QCOMPARE(f.Shown() + f.view.status, u"Reading . . .|||||"_s);
    QVERIFY(f.session.SignIn().Offer().kind == SignInOffer::Kind::None && f.Records() == 0);
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
    QVERIFY(beeps.count() == 1 && f.view.name.isEmpty() && f.view.call.startsWith(u"G3QXR"_s));
    QCOMPARE(f.session.SignIn().Offer().text, u"Sign in to QRZ"_s);
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
      QVERIFY(f.Records() == 0 && f.PictureRequests() == 0 && !QFile::exists(f.folder.filePath(u"images"_s)));
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
    for (const QString& call : {QString(200, u'A'), QString(200, u'7'), u"É1QPEX"_s}) {
      check("a long one or an accent", call, u"Not found: "_s + call);
    }
    check("a query", u"K1Q?x=1#y"_s, u"Not found: K1Q"_s);
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
    // An empty file is read again, and its record is not.
    const int asked = f.Service().TotalRequests();
    const int pictures = f.PictureRequests();
    f.WritePicture(u"K1QPE"_s, QByteArray());
    for (int look = 0; look < 2; ++look) {
      f.Look(u"K1QPE"_s);
      QVERIFY(f.view.picture.isNull());
      QTRY_VERIFY(!f.view.picture.isNull());
    }
    QVERIFY(f.PictureRequests() == pictures + 1 && f.Service().TotalRequests() == asked);
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
    QStringList sizes;
    for (const QSize& pixels :
         {QSize(570, 100), QSize(30, 20), QSize(400, 280), QSize(400, 300), QSize(100, 390), QSize(0, 10)}) {
      sizes += u"%1x%2"_s.arg(PictureUnits(pixels).width()).arg(PictureUnits(pixels).height());
    }
    QCOMPARE(sizes.join(u' '), u"57x10 57x38 57x39.9 52x39 10x39 -1x-1"_s);
  }

  void DropsFormerCalls() {
    SessionFixture f;
    f.Service().SetLatency(150ms);
    f.Look(u"K1QPE"_s);
    QTRY_COMPARE(f.Service().TotalRequests(), 1);
    f.Service().SetLatency(0ms);
    f.LookToTheEnd(u"W5QUJ"_s);
    QCOMPARE(f.view.name, u"Buck R."_s);
    f.Service().SetLatency(150ms);
    QSignalSpy stored(&f.session, &LookupSession::Stored);
    f.Look(u"K6QVL"_s);
    f.session.EndLookup();
    QVERIFY(!f.view.busy);
    // By the time that a third has been through, the other two would have come.
    f.LookToTheEnd(u"N0QZP"_s);
    QTRY_COMPARE(stored, QList<QVariantList>{{u"N0QZP"_s}});
    QVERIFY(f.view.call.startsWith(u"N0QZP"_s));
    QCOMPARE(f.Filed(u"K1QPE"_s) + f.Filed(u"K6QVL"_s), QString());
  }

  void ChangesTheService() {
    SessionFixture f;
    f.LookToTheEnd(u"K1QPE"_s);
    QTRY_VERIFY(!f.view.picture.isNull());
    f.session.ChooseService(2);
    QCOMPARE(f.program.config.CallbookName + u'|' + f.view.updateCaption, u"QRZCQ.com|Update from QRZCQ.com"_s);
    QVERIFY(f.view.status.isEmpty() && f.view.picture.isNull() && f.view.busy);
    QTRY_COMPARE(f.view.call, u"K1QPE  (From QRZCQ.com)"_s);
    for (const int outside : {-1, 5}) f.session.ChooseService(outside);
    QVERIFY(f.program.config.CallbookIndex == kQrzcq && !f.view.busy);

    f.session.Update();
    QCOMPARE(f.Shown(), u"Reading QRZCQ.com. . .|||||"_s);
    QTRY_COMPARE(f.view.name, u"Martha"_s);
    f.Settle();
    QCOMPARE(f.Records(), 1);

    // eHam shows nothing without a login: the former record goes from the window, too.
    QTRY_VERIFY(!f.view.picture.isNull());
    f.session.ChooseService(0);
    QVERIFY(!f.view.name.isEmpty());
    QTRY_COMPARE(f.view.status, f.Text(TextLine::kNotLoggedIn));
    QVERIFY(f.Shown() == u"|||||" && !f.view.busy && f.view.picture.isNull());
  }

  // Neither the database nor a picture can be written, and the lookup shows all the same what it has read.
  void ShowsWhatItCannotKeep() {
    SessionFixture f;
    for (const QString& name : {u"Omni-Perch-DB.db"_s, u"images"_s}) f.folder.PutFolder(name);
    f.folder.Put(u"images/qrzImages"_s, {});
    QSignalSpy stored(&f.session, &LookupSession::Stored);
    f.LookToTheEnd(u"K1QPE"_s);
    QCOMPARE(f.view.name, u"Martha"_s);
    QTRY_COMPARE(f.PictureRequests(), 1);
    f.LookToTheEnd(u"W5QUJ"_s);
    QCOMPARE(f.view.name, u"Buck R."_s);
    QVERIFY(stored.isEmpty() && f.folder.Bytes(u"images/qrzImages"_s).isEmpty());
  }

  void SignsInAndOut() {
    SessionFixture f(kEham);
    f.LookToTheEnd(u"K1QPE"_s);
    QCOMPARE(f.session.SignIn().Offer().text, u"Sign in to eHam"_s);
    f.session.SignIn().Await();
    f.SignIn();
    QTRY_COMPARE(f.view.name, u"Martha"_s);
    QCOMPARE(f.session.SignIn().Offer().text, u"Sign out of eHam"_s);
    f.Settle();
    const int asked = f.Service().TotalRequests();
    // The cookie has ended the waiting: closing the browser window afterwards reads nothing.
    f.session.SignIn().Close();
    QVERIFY(!f.view.busy);

    // A login to eHam is none to QRZ, of which there are no cookies.
    f.session.ChooseService(kQrz - 1);
    QCOMPARE(f.session.SignIn().Offer().text, u"Sign in to QRZ"_s);
    f.session.EndLookup();
    f.Choose(kEham);

    // The next call has a record to show and reads no page: the session still knows of the login.
    f.Look(u"K1QPE"_s);
    QCOMPARE(f.session.SignIn().Offer().text, u"Sign out of eHam"_s);
    f.session.SignIn().SignOut();
    QTRY_COMPARE(f.view.status, f.Text(TextLine::kNotLoggedIn));
    QVERIFY(f.view.name.isEmpty() && f.cookies.All().isEmpty());
    QCOMPARE(f.Service().TotalRequests(), asked + 1);

    // A user who gives up closes the window: the call is read once.
    f.session.SignIn().Await();
    f.session.SignIn().Close();
    QTRY_COMPARE(f.Service().TotalRequests(), asked + 2);
    QTRY_VERIFY(!f.view.busy);

    // Choosing another service ends the waiting.
    f.session.SignIn().Await();
    f.session.ChooseService(kCallook - 1);
    QTRY_VERIFY(!f.view.busy);
    f.session.SignIn().Close();
    QVERIFY(!f.view.busy && f.session.SignIn().Offer().kind == SignInOffer::Kind::None);
  }

  // A service that gives a new cookie with every page is not asked for ever while the user types the password.
  void AwaitsTheSignInQuietly() {
    SessionFixture f(kEham);
    PageHost host(QHostAddress(QHostAddress::LocalHost), 0, nullptr);
    f.hosts.eHam = host.Base();
    const auto give = [&f](const QByteArray& value) { f.cookies.Add(QNetworkCookie("seen", value), u"127.0.0.1"_s); };
    host.SetPage(u"callbook/K1QPE"_s, [&]() {
      give(QByteArray::number(host.TotalRequests()));
      return QByteArray("<p>Nothing for strangers</p>");
    });
    f.LookToTheEnd(u"K1QPE"_s);
    f.session.SignIn().Await();
    give("the login page's");
    QTRY_COMPARE(host.TotalRequests(), 3);
    QVERIFY(!QTest::qWaitFor([&host]() { return host.TotalRequests() > 3; }, 1500));
    // A cookie that the browser window gets later counts again.
    give("the user's");
    QTRY_COMPARE(host.TotalRequests(), 5);
    // Signing out ends the waiting for a login: closing the browser window then reads nothing.
    QTRY_VERIFY(!f.view.busy);
    f.session.SignIn().SignOut();
    QTRY_VERIFY(!f.view.busy);
    f.session.SignIn().Close();
    QVERIFY(!f.view.busy);
  }

  void KnowsOfASignOutWithoutACall() {
    SessionFixture f(kEham);
    f.SignIn();
    f.Look(QString());
    QSignalSpy changed(&f.session, &LookupSession::Changed);
    QCOMPARE(f.session.SignIn().Offer().text, u"Sign out of eHam"_s);
    f.session.SignIn().SignOut();
    QVERIFY(f.session.SignIn().Offer().text == u"Sign in to eHam" && changed.count() == 1);
  }
};

OMNI_TEST(TestLookupSession)
#include "test_lookup_session.moc"
