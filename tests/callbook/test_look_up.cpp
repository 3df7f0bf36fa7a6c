// SPDX-License-Identifier: GPL-3.0-or-later
// The lookup control against a server on loopback that plays all five services and the picture store.
#include <QElapsedTimer>
#include <csignal>

#include "callbook/look_up.h"
#include "core/config.h"
#include "station_band.h"
#include "test_suite.h"

namespace {

constexpr int kPatienceMs = 20'000;

QByteArray CallookPage(const QByteArray& name) {
  return "<html><body><div>Logout Show Map " + name +
         "</div><div>1 Mill Lane</div><div>Mill &amp; Town</div><div>x</div><div>y</div></body></html>";
}

// A control and its events, one text each: "GotPage ZZ9QX +" for a user who is logged in.
struct Fixture {
  explicit Fixture(const UrlLimits& limits = {.stall = 500ms, .deadline = 20s})
      : server(QHostAddress(QHostAddress::LocalHost), 0, nullptr), network(limits) {
    const QString base = server.Base();
    hosts.Author = hosts.eHam = hosts.QRZ = hosts.QRZCQ = hosts.Callook = hosts.HamCall = hosts.Pictures = base;
    lookUp = NewControl();
    lookUp->Database = 4;  // Callook
  }

  std::unique_ptr<ucLookUp> NewControl() {
    auto made = std::make_unique<ucLookUp>(network, hosts, pageText);
    ucLookUp* const c = made.get();
    const auto note = [this, c](const char* event, auto signal) {
      QObject::connect(c, signal, c, [this, event](const QString& key) { said += QLatin1String(event) + u' ' + key; });
    };
    for (const auto& [event, signal] :
         {std::pair("GotPage", &ucLookUp::GotPage), std::pair("LoginChecked", &ucLookUp::LoginChecked)}) {
      QObject::connect(c, signal, c, [this, event = QLatin1String(event)](const QString& key, bool loggedIn) {
        said += event + u' ' + key + (loggedIn ? u" +"_s : u" -"_s);
      });
    }
    note("SiteNotFound", &ucLookUp::SiteNotFound);
    note("PageNotFound", &ucLookUp::PageNotFound);
    note("CallNotFound", &ucLookUp::CallNotFound);
    note("GotPic", &ucLookUp::GotPic);
    note("NoPic", &ucLookUp::NoPic);
    note("LoginRequired", &ucLookUp::LoginRequired);
    note("UpdateFound", &ucLookUp::UpdateFound);
    QObject::connect(c, &ucLookUp::UpdatesNotFound, c, [this]() { said += u"UpdatesNotFound"_s; });
    QObject::connect(c, &ucLookUp::PointerNormal, c, [this]() { said += u"PointerNormal"_s; });
    return made;
  }
  bool Heard(qsizetype count) {
    return QTest::qWaitFor([this, count]() { return said.size() >= count; }, kPatienceMs);
  }
  // Begins to read the page of a call, and waits for one more event.
  bool Reads(const QString& call) {
    const qsizetype before = said.size();
    lookUp->GetPage(call);
    return Heard(before + 1);
  }

  PageHost server;
  UrlNetwork network;
  Hosts hosts;
  PageTextTool pageText{QStringLiteral(PICTURE_TOOL), {.job = 5s, .idle = 30s}};
  QStringList said;
  std::unique_ptr<ucLookUp> lookUp;
};

}  // namespace

class TestLookUp : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AsksTheServices() {
    // Service 0 stands for the picture; an empty target says that nothing is asked.
    const auto check = [](int service, const QString& call, const QString& target) {
      const TableRow row(qUtf8Printable(call));
      Fixture f;
      f.lookUp->Database = service;
      service == 0 ? f.lookUp->GetPicture(call) : f.lookUp->GetPage(call);
      if (target.isEmpty()) QCOMPARE(f.said, QStringList{service == 0 ? u"NoPic "_s + call : u"PointerNormal"_s});
      if (target.isEmpty()) return;
      QVERIFY2(f.said.isEmpty(), "the answer came before the event loop had a turn");
      QVERIFY(f.Heard(1));
      QCOMPARE(f.said, QStringList{service == 0 ? u"GotPic "_s + call : u"GotPage %1 -"_s.arg(call)});
      QCOMPARE(f.server.Log(), QStringList{target});
    };
    const QStringList pages{u"/callbook/"_s, u"/db/"_s, u"/call/"_s, u"/"_s, u"/call?callsign="_s};
    for (int service = 1; service <= 5; ++service) {
      const QString& page = pages[service - 1];
      check(service, u"VE3/ZZØQX"_s, page + u"VE3/ZZ0QX"_s);
      check(service, u"A b?c#d%41&e=f+g\\"_s, page + u"A%20b%3Fc%23d%2541%26e%3Df%2Bg%5C"_s);
      check(service, u"A\r\nHost: x\0y@z"_s, page + u"A%0D%0AHost%3A%20x%00y%40z"_s);
      check(service, QString(200, u'Z'), page + QString(200, u'Z'));
      for (const QString& call : {u".."_s, u"../../x"_s, u"x/../../../y"_s, u"."_s}) {
        check(service, call, service == 5 ? page + call : QString());  // in a query
      }
    }
    check(4, u"x//y@other.example:1/z"_s, u"/x//y%40other.example%3A1/z"_s);
    check(4, u""_s, u"/"_s);
    check(0, u"ZZ9QX"_s, u"/x/zz9qx/zz9qx.jpg"_s);
    check(0, u"ØZ9QØ"_s, u"/%C3%B8/0z9q0/0z9q0.jpg"_s);
    check(0, u"../.."_s, u""_s);
    check(0, u"Z Q?#"_s, u"/%23/z%20q%3F%23/z%20q%3F%23.jpg"_s);
  }

  void ReadsAPage() {
    Fixture f;
    const QByteArray page = CallookPage("Zo\xEB &Eacute;x \x80");  // in Windows-1252
    f.server.SetPage(u"ZZ0QX"_s, [&page]() { return page; });
    f.server.SetPage(u"x/zz0qx/zz0qx.jpg"_s, []() { return QByteArray("\xFF\xD8\0picture", 10); });
    QVERIFY(f.Reads(u"ZZØQX"_s));
    QCOMPARE(f.lookUp->LookupBytes, page);
    QCOMPARE(f.lookUp->cName(u"ZZØQX"_s), u"Zoë Éx €"_s);
    QCOMPARE(f.lookUp->Add1(), u"1 Mill Lane"_s);
    f.lookUp->GetPicture(u"ZZØQX"_s);
    QVERIFY(f.Heard(2));
    QCOMPARE(f.said, (QStringList{u"GotPage ZZØQX -"_s, u"GotPic ZZØQX"_s}));
    QCOMPARE(f.lookUp->LookupBytes, QByteArray("\xFF\xD8\0picture", 10));
    QCOMPARE(f.lookUp->Add2(), u"Mill & Town"_s);  // the page is still there

    // No service of that number: the page that was read before is read for any call, and has no fields.
    f.lookUp->Database = 6;
    f.lookUp->GetPage(u"AB1CD"_s);
    f.lookUp->Database = 4;
    QCOMPARE(f.lookUp->Add1(), QString());  // the text went when the read began
    f.lookUp->Database = 6;
    QVERIFY(f.Heard(3));
    QCOMPARE(f.said.last(), u"GotPage AB1CD -"_s);
    QCOMPARE(f.server.Log().last(), u"/ZZ0QX"_s);
    QCOMPARE(f.lookUp->cName(u"AB1CD"_s) + f.lookUp->ctry(), QString());
    f.lookUp->Database = 4;
    QCOMPARE(f.lookUp->cName(u"AB1CD"_s), u"Zoë Éx €"_s);
  }

  void TakesAllForTheLatestOperation() {
    const auto check = [](const char* what, bool pictureLast, bool refused, const QStringList& said) {
      const TableRow row(what);
      Fixture f;
      if (refused) f.server.Misbehave({}, Behaviour::Refuse);
      f.lookUp->Database = 1;
      if (pictureLast) f.lookUp->GetPage(u"A"_s);
      f.lookUp->GetPicture(u"B"_s);
      if (!pictureLast) f.lookUp->GetPage(u"A"_s);
      QVERIFY(f.Heard(2));
      f.said.sort();
      QCOMPARE(f.said, said);
    };
    check("page, picture", false, false, {u"GotPage A -"_s, u"GotPage B -"_s});
    check("picture, page", true, false, {u"GotPic A"_s, u"GotPic B"_s});
    check("page, no picture", false, true, {u"PageNotFound A"_s, u"PageNotFound B"_s});
    check("no picture, page", true, true, {u"NoPic A"_s, u"NoPic B"_s});
  }

  void AnswersOnceForAKey() {
    Fixture f;
    const QByteArray slow = CallookPage(QByteArray(3'000'000, 'x'));
    f.server.SetPage(u"ZZ9QX"_s, [&]() { return f.server.Requests(u"ZZ9QX"_s) < 3 ? slow : CallookPage("Zoe"); });
    f.lookUp->GetPage(u"ZZ9QX"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.server.TotalRequests(), 1, kPatienceMs);
    f.lookUp->GetPage(u"ZZ9QX"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.lookUp->LookupBytes, slow, kPatienceMs);
    QVERIFY2(f.said.isEmpty(), "while its text is being made");
    QVERIFY(f.Reads(u"ZZ9QX"_s));
    QCOMPARE(f.lookUp->cName(u"ZZ9QX"_s), u"Zoe"_s);
    QVERIFY(f.Reads(u"ZZ9QY"_s));  // another key is another read
    QCOMPARE(f.said, (QStringList{u"GotPage ZZ9QX -"_s, u"GotPage ZZ9QY -"_s}));

    // A page whose bytes are there is still answered when a picture is asked for while its text is being made.
    f.lookUp->LookupBytes.clear();
    f.server.SetPage(u"ZZ9QZ"_s, [&slow]() { return slow; });
    f.lookUp->GetPage(u"ZZ9QZ"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.lookUp->LookupBytes, slow, kPatienceMs);
    f.lookUp->GetPicture(u"ZZ9QY"_s);
    QVERIFY(f.Heard(4) && f.said.contains(u"GotPage ZZ9QZ -"_s) && f.said.contains(u"GotPic ZZ9QY"_s));
  }

  void DropsWhatNobodyWaitsFor() {
    Fixture f;
    const QByteArray slow = CallookPage(QByteArray(3'000'000, 'x'));
    f.server.SetPage(u"ZZ9QX"_s, [&slow]() { return slow; });
    f.lookUp->GetPage(u"ZZ9QY"_s);
    f.lookUp.reset();
    f.lookUp = f.NewControl();
    f.lookUp->Database = 4;
    f.lookUp->GetPage(u"ZZ9QX"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.lookUp->LookupBytes, slow, kPatienceMs);
    QElapsedTimer took;
    took.start();
    f.lookUp.reset();  // while the text is being made
    QVERIFY(took.elapsed() < 100);
    QCOMPARE(f.said, QStringList());

    // A window may destroy its control in the handler of GotPage.
    const std::unique_ptr<ucLookUp> other = f.NewControl();
    f.lookUp = f.NewControl();
    f.lookUp->Database = other->Database = 4;
    connect(f.lookUp.get(), &ucLookUp::GotPage, this, [&f]() { f.lookUp.reset(); });
    QVERIFY(f.Reads(u"ZZ9QY"_s) && !f.lookUp);
    other->GetPage(u"ZZ9QZ"_s);
    QVERIFY(f.Heard(2));
    QCOMPARE(f.said, (QStringList{u"GotPage ZZ9QY -"_s, u"GotPage ZZ9QZ -"_s}));
  }

  void ChecksLoginAndVersion() {
    Fixture f;
    f.server.SetPage({}, []() { return QByteArray("<p>ver 6.50</p><p>Logout</p>"); });
    f.server.SetPage(u"call"_s, []() { return QByteArray("<p>Log Out</p>"); });
    for (int service = 1; service <= 5; ++service) {
      f.said.clear();
      f.lookUp->Database = service;
      f.lookUp->IsLoggedIn(u"key"_s);
      QVERIFY(f.Heard(1));
      const bool loggedIn = service != 3 && service != 4;
      QCOMPARE(f.said, QStringList{loggedIn ? u"LoginChecked key +"_s : u"LoginChecked key -"_s});
      QCOMPARE(f.server.Log().last(), service == 5 ? u"/call"_s : u"/"_s);
    }
    // The page that tells of the login takes the place of the call's; until its text has come there is none.
    f.lookUp->Database = 4;
    f.server.SetPage(u"ZZ9QX"_s, []() { return CallookPage("Zoe"); });
    QVERIFY(f.Reads(u"ZZ9QX"_s));
    f.lookUp->IsLoggedIn(u"key"_s);
    QCOMPARE(f.lookUp->cName(u"ZZ9QX"_s), QString());
    QVERIFY(f.Heard(4));
    f.said.clear();
    f.lookUp->CheckUpdates();
    QVERIFY(f.Heard(1) && f.said.first().startsWith("UpdateFound ver 6.50"_L1));
    f.server.Misbehave({}, Behaviour::Reset);
    f.lookUp->CheckUpdates();
    QVERIFY(f.Heard(2));
    f.lookUp->IsLoggedIn(u"key"_s);
    QVERIFY(f.Heard(3));
    QCOMPARE(f.said.mid(1), (QStringList{u"UpdatesNotFound"_s, u"SiteNotFound key"_s}));
  }

  void CannotAskWithoutAHost() {
    Fixture f;
    f.hosts.Pictures.clear();
    f.lookUp = f.NewControl();
    f.lookUp->GetPage(u"ZZ9QX"_s);  // no service yet
    f.lookUp->Database = 1;
    f.lookUp->GetPage(u"ZZ9QX"_s);
    f.lookUp->GetPicture(u"ZZ9QX"_s);  // ends the read of the page nevertheless
    QCOMPARE(f.said, (QStringList{u"PointerNormal"_s, u"NoPic ZZ9QX"_s}));
    QVERIFY(f.Reads(u"ZZ9QY"_s) && f.Reads(u"ZZ9QZ"_s));
    QCOMPARE(f.said.mid(2), (QStringList{u"GotPage ZZ9QY -"_s, u"GotPage ZZ9QZ -"_s}));

    f.said.clear();
    f.hosts = {};
    f.lookUp = f.NewControl();
    for (const int service : {1, 5, 9}) {
      f.lookUp->Database = service;
      f.lookUp->GetPage(u"ZZ9QX"_s);
      f.lookUp->GetPicture(u"ZZ9QX"_s);
      f.lookUp->IsLoggedIn(u"key"_s);
      f.lookUp->CheckUpdates();
    }
    const QStringList round{u"PointerNormal"_s, u"NoPic ZZ9QX"_s, u"SiteNotFound key"_s, u"UpdatesNotFound"_s};
    QCOMPARE(f.said, round + round + round);
  }

  void LivesWithBadAnswers() {
    const auto check = [](const char* what, Behaviour behaviour, bool page) {
      const TableRow row(what);
      Fixture f;
      f.lookUp->LookupBytes = "of another read";
      f.server.SetPage(u"call"_s, []() { return QByteArray("<p>Search</p><p>callsign</p>"); });
      f.server.Misbehave({}, behaviour);
      f.lookUp->Database = 5;
      QVERIFY(f.Reads(u"ZZ9QX"_s));
      QCOMPARE(f.said, QStringList{page ? u"GotPage ZZ9QX -"_s : u"PageNotFound ZZ9QX"_s});
      QCOMPARE(f.lookUp->LookupBytes == "of another read", !page);
      QCOMPARE(f.lookUp->cName(u"ZZ9QX"_s) + f.lookUp->Add1() + f.lookUp->Class(), QString());
      QCOMPARE(f.said.mid(1), QStringList{u"CallNotFound ZZ9QX"_s});
    };
    check("stall", Behaviour::Stall, false);
    check("nothing", Behaviour::EmptyBody, true);
    check("half a page", Behaviour::Truncated, true);
    check("picture", Behaviour::GarbageBody, true);
    check("error page", Behaviour::ServerError, true);
  }

  void ReadsTheLargestPage() {
    Fixture f{UrlLimits()};
    QByteArray page = CallookPage("Zoe");
    page += QByteArray(64 * 1024 * 1024 - page.size(), 'x');
    f.server.SetPage({}, [&page]() { return page; });
    QVERIFY(f.Reads(u""_s));
    QCOMPARE(f.lookUp->cName(u""_s), u"Zoe"_s);
    page += 'x';
    QVERIFY(f.Reads(u""_s));
    // Of a text that is longer than any service's, the beginning alone is searched: that happens some twenty times.
    page = "<p>" + QByteArray(2 * 1024 * 1024, 'x') + "</p>" + CallookPage("Zoe");
    QVERIFY(f.Reads(u""_s));
    QCOMPARE(f.lookUp->cName(u""_s), QString());
    QCOMPARE(f.said, (QStringList{u"GotPage  -"_s, u"PageNotFound "_s, u"GotPage  -"_s, u"CallNotFound "_s}));
  }

  // A process that is stopped or killed behaves as one whose parser a page holds or kills.
  void OutlivesAPageThatHoldsItsProcess() {
    Fixture f;
    f.server.SetPage({}, []() { return CallookPage("Zoe"); });
    const auto process = [&f]() { return static_cast<pid_t>(f.pageText.ProcessId()); };
    const auto startAndStop = [&]() {
      f.pageText.WarmUp();
      return QTest::qWaitFor([&]() { return process() != 0; }, kPatienceMs) && kill(process(), SIGSTOP) == 0;
    };
    const auto read = [&](const QString& call) {
      f.lookUp->LookupBytes.clear();
      f.lookUp->GetPage(call);
      return QTest::qWaitFor([&]() { return !f.lookUp->LookupBytes.isEmpty(); }, kPatienceMs);
    };
    QVERIFY(f.Reads(u""_s));

    // Held for ever: the page is given up, the next one is read.
    QVERIFY(startAndStop());
    const pid_t held = process();
    QVERIFY(read(u""_s) && f.Heard(2) && kill(held, 0) != 0 && f.Reads(u""_s));
    QCOMPARE(f.said, (QStringList{u"GotPage  -"_s, u"PageNotFound "_s, u"GotPage  -"_s}));

    // Dead in between: the next page gets another one.
    QCOMPARE(kill(process(), SIGKILL), 0);
    QVERIFY(read(u""_s) && f.Heard(4));
    QCOMPARE(f.said.last(), u"GotPage  -"_s);
  }
};

OMNI_TEST(TestLookUp)
#include "test_look_up.moc"
