// SPDX-License-Identifier: GPL-3.0-or-later
// The lookup control against a server on loopback that plays all five services and the picture store.
#include <QElapsedTimer>
#include <QTest>
#include <csignal>
#include <memory>

#include "callbook/callbook_service.h"
#include "callbook/look_up.h"
#include "core/config.h"
#include "station_band.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kPatienceMs = 20'000;

QByteArray CallookPage(const QByteArray& name) {
  return "<html><body><div>Logout Show Map " + name +
         "</div><div>1 Mill Lane</div><div>Mill &amp; Town</div><div>x</div><div>y</div></body></html>";
}

// A control, and what it has said: one text an event, "GotPage ZZ9QX +" for a user who is logged in.
struct Fixture {
  explicit Fixture(const UrlLimits& limits = {.stall = 500ms, .deadline = 20s})
      : server(QHostAddress(QHostAddress::LocalHost), 0, nullptr), network(limits) {
    const QString base = server.Base();
    hosts.Author = hosts.eHam = hosts.QRZ = hosts.QRZCQ = hosts.Callook = hosts.HamCall = hosts.Pictures = base;
    lookUp = NewControl();
  }

  std::unique_ptr<ucLookUp> NewControl() {
    auto made = std::make_unique<ucLookUp>(network, hosts, pageText);
    ucLookUp* const c = made.get();
    const auto note = [this, c](const char* event, auto signal) {
      QObject::connect(c, signal, c, [this, event](const QString& key) { said += QLatin1String(event) + u' ' + key; });
    };
    const auto noteWithLogin = [this, c](const char* event, auto signal) {
      QObject::connect(c, signal, c, [this, event](const QString& key, bool loggedIn) {
        said += QLatin1String(event) + u' ' + key + (loggedIn ? u" +"_s : u" -"_s);
      });
    };
    noteWithLogin("GotPage", &ucLookUp::GotPage);
    noteWithLogin("LoginChecked", &ucLookUp::LoginChecked);
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
  void AsksTheServices_data();
  void AsksTheServices();
  void ReadsAPage();
  void SaysThatACallIsUnknown();
  void TakesAllForTheLatestOperation_data();
  void TakesAllForTheLatestOperation();
  void AnswersOnceForAKey();
  void DropsWhatNobodyWaitsFor();
  void ChecksLoginAndVersion();
  void CannotAskWithoutAHost();
  void LivesWithBadAnswers_data();
  void LivesWithBadAnswers();
  void ReadsTheLargestPage();
  void OutlivesAPageThatHoldsItsProcess();
  void NamesTheServices();
};

void TestLookUp::AsksTheServices_data() {
  QTest::addColumn<int>("service");  // 0: the picture
  QTest::addColumn<QString>("call");
  QTest::addColumn<QString>("target");  // empty: nothing is asked
  const auto row = [](int service, const QString& call, const QString& target) {
    QTest::addRow("%d %s", service, qPrintable(call.left(20))) << service << call << target;
  };
  const QStringList pages{u"/callbook/"_s, u"/db/"_s, u"/call/"_s, u"/"_s, u"/call?callsign="_s};
  for (int service = 1; service <= 5; ++service) {
    const QString& page = pages[service - 1];
    row(service, u"VE3/ZZØQX"_s, page + u"VE3/ZZ0QX"_s);
    row(service, u"A b?c#d%41&e=f+g\\"_s, page + u"A%20b%3Fc%23d%2541%26e%3Df%2Bg%5C"_s);
    row(service, u"A\r\nHost: x\0y@z"_s, page + u"A%0D%0AHost%3A%20x%00y%40z"_s);
    row(service, QString(200, u'Z'), page + QString(200, u'Z'));
    const bool inQuery = service == 5;
    for (const QString& call : {u".."_s, u"../../x"_s, u"x/../../../y"_s, u"."_s}) {
      row(service, call, inQuery ? page + call : QString());
    }
  }
  row(4, u"x//y@other.example:1/z"_s, u"/x//y%40other.example%3A1/z"_s);
  row(4, u""_s, u"/"_s);
  row(0, u"ZZ9QX"_s, u"/x/zz9qx/zz9qx.jpg"_s);
  row(0, u"ØZ9QØ"_s, u"/%C3%B8/0z9q0/0z9q0.jpg"_s);
  row(0, u"../.."_s, u""_s);
  row(0, u"Z Q?#"_s, u"/%23/z%20q%3F%23/z%20q%3F%23.jpg"_s);
}

void TestLookUp::AsksTheServices() {
  QFETCH(const int, service);
  QFETCH(const QString, call);
  QFETCH(const QString, target);
  Fixture f;
  f.lookUp->Database = service;
  if (service == 0) {
    f.lookUp->GetPicture(call);
  } else {
    f.lookUp->GetPage(call);
  }
  if (target.isEmpty()) {
    QCOMPARE(f.said, QStringList{service == 0 ? u"NoPic "_s + call : u"PointerNormal"_s});
    return;
  }
  QVERIFY(f.said.isEmpty() && f.Heard(1));
  QCOMPARE(f.said, QStringList{service == 0 ? u"GotPic "_s + call : u"GotPage %1 -"_s.arg(call)});
  QCOMPARE(f.server.Log(), QStringList{target});
}

void TestLookUp::ReadsAPage() {
  Fixture f;
  const QByteArray page = CallookPage("Zo\xEB &Eacute;x \x80");  // in Windows-1252
  f.server.SetPage(u"ZZ0QX"_s, [&page]() { return page; });
  f.server.SetPage(u"x/zz0qx/zz0qx.jpg"_s, []() { return QByteArray("\xFF\xD8\0picture", 10); });
  f.lookUp->Database = 4;
  f.lookUp->GetPage(u"ZZØQX"_s);
  QVERIFY(f.Heard(1));
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

void TestLookUp::SaysThatACallIsUnknown() {
  Fixture f;
  f.server.SetPage(u"db/ZZ9QX"_s, []() { return QByteArray("<p>Logout</p><p>Login is required</p>"); });
  f.lookUp->Database = 2;
  f.lookUp->GetPage(u"ZZ9QX"_s);
  QVERIFY(f.Heard(1));
  QCOMPARE(f.lookUp->cName(u"ZZ9QX"_s), QString());
  f.lookUp->Database = 1;
  QCOMPARE(f.lookUp->cName(u"ZZ9QY"_s), QString());
  QCOMPARE(f.said, (QStringList{u"GotPage ZZ9QX +"_s, u"LoginRequired ZZ9QX"_s, u"CallNotFound ZZ9QY"_s}));
}

void TestLookUp::TakesAllForTheLatestOperation_data() {
  QTest::addColumn<bool>("pictureLast");
  QTest::addColumn<bool>("refused");
  QTest::addColumn<QStringList>("said");
  QTest::newRow("page, picture") << false << false << QStringList{u"GotPage A -"_s, u"GotPage B -"_s};
  QTest::newRow("picture, page") << true << false << QStringList{u"GotPic A"_s, u"GotPic B"_s};
  QTest::newRow("page, no picture") << false << true << QStringList{u"PageNotFound A"_s, u"PageNotFound B"_s};
  QTest::newRow("no picture, page") << true << true << QStringList{u"NoPic A"_s, u"NoPic B"_s};
}

void TestLookUp::TakesAllForTheLatestOperation() {
  QFETCH(const bool, pictureLast);
  QFETCH(const bool, refused);
  Fixture f;
  if (refused) f.server.Misbehave({}, Behaviour::Refuse);
  f.lookUp->Database = 1;
  if (pictureLast) f.lookUp->GetPage(u"A"_s);
  f.lookUp->GetPicture(u"B"_s);
  if (!pictureLast) f.lookUp->GetPage(u"A"_s);
  QVERIFY(f.Heard(2));
  f.said.sort();
  QTEST(f.said, "said");
}

void TestLookUp::AnswersOnceForAKey() {
  Fixture f;
  const QByteArray slow = CallookPage(QByteArray(3'000'000, 'x'));
  f.server.SetPage(u"ZZ9QX"_s, [&]() { return f.server.Requests(u"ZZ9QX"_s) < 3 ? slow : CallookPage("Zoe"); });
  f.lookUp->Database = 4;
  for (const char* stage : {"asked", "decoding"}) {
    f.lookUp->LookupBytes.clear();
    f.lookUp->GetPage(u"ZZ9QX"_s);
    if (qstrcmp(stage, "decoding") == 0) {
      QVERIFY(QTest::qWaitFor([&f]() { return !f.lookUp->LookupBytes.isEmpty(); }, kPatienceMs));
    } else {
      QVERIFY(QTest::qWaitFor([&f]() { return f.server.TotalRequests() == 1; }, kPatienceMs));
    }
    QVERIFY2(f.said.isEmpty(), stage);
  }
  f.lookUp->GetPage(u"ZZ9QX"_s);
  QVERIFY(f.Heard(1));
  QCOMPARE(f.lookUp->cName(u"ZZ9QX"_s), u"Zoe"_s);
  f.lookUp->GetPage(u"ZZ9QY"_s);  // another key is another read
  QVERIFY(f.Heard(2));
  QCOMPARE(f.said, (QStringList{u"GotPage ZZ9QX -"_s, u"GotPage ZZ9QY -"_s}));

  // A page that has come is a page, whatever is begun while its text is being made.
  f.lookUp->LookupBytes.clear();
  f.server.SetPage(u"ZZ9QZ"_s, [&slow]() { return slow; });
  f.lookUp->GetPage(u"ZZ9QZ"_s);
  QVERIFY(QTest::qWaitFor([&f]() { return !f.lookUp->LookupBytes.isEmpty(); }, kPatienceMs));
  f.lookUp->GetPicture(u"ZZ9QY"_s);
  QVERIFY(f.Heard(4));
  QVERIFY(f.said.contains(u"GotPage ZZ9QZ -"_s) && f.said.contains(u"GotPic ZZ9QY"_s));
}

void TestLookUp::DropsWhatNobodyWaitsFor() {
  Fixture f;
  const QByteArray slow = CallookPage(QByteArray(3'000'000, 'x'));
  f.server.SetPage(u"ZZ9QX"_s, [&slow]() { return slow; });
  f.lookUp->Database = 4;
  f.lookUp->GetPage(u"ZZ9QY"_s);
  f.lookUp.reset();
  f.lookUp = f.NewControl();
  f.lookUp->Database = 4;
  f.lookUp->GetPage(u"ZZ9QX"_s);
  QVERIFY(QTest::qWaitFor([&f]() { return f.lookUp->LookupBytes == CallookPage(QByteArray(3'000'000, 'x')); },
                          kPatienceMs));
  QElapsedTimer took;
  took.start();
  f.lookUp.reset();  // while the text is being made
  QVERIFY(took.elapsed() < 100);
  QCOMPARE(f.said, QStringList());

  // The window may go in its own handler.
  const std::unique_ptr<ucLookUp> other = f.NewControl();
  f.lookUp = f.NewControl();
  f.lookUp->Database = other->Database = 4;
  connect(f.lookUp.get(), &ucLookUp::GotPage, this, [&f]() { f.lookUp.reset(); });
  f.lookUp->GetPage(u"ZZ9QY"_s);
  QVERIFY(f.Heard(1) && !f.lookUp);
  other->GetPage(u"ZZ9QZ"_s);
  QVERIFY(f.Heard(2));
  QCOMPARE(f.said, (QStringList{u"GotPage ZZ9QY -"_s, u"GotPage ZZ9QZ -"_s}));
}

void TestLookUp::ChecksLoginAndVersion() {
  Fixture f;
  f.server.SetPage({}, []() { return QByteArray("<p>ver 6.50</p><p>Logout</p>"); });
  f.server.SetPage(u"call"_s, []() { return QByteArray("<p>Log Out</p>"); });
  const QStringList told{u"key +"_s, u"key +"_s, u"key -"_s, u"key -"_s, u"key +"_s};
  for (int service = 1; service <= 5; ++service) {
    f.said.clear();
    f.lookUp->Database = service;
    f.lookUp->IsLoggedIn(u"key"_s);
    QVERIFY(f.Heard(1));
    QCOMPARE(f.said, QStringList{u"LoginChecked "_s + told[service - 1]});
    QCOMPARE(f.server.Log().last(), service == 5 ? u"/call"_s : u"/"_s);
  }
  // Its text takes the place of the page's; until it has come there is none.
  f.lookUp->Database = 4;
  f.server.SetPage(u"ZZ9QX"_s, []() { return CallookPage("Zoe"); });
  f.lookUp->GetPage(u"ZZ9QX"_s);
  QVERIFY(f.Heard(2));
  f.lookUp->IsLoggedIn(u"key"_s);
  QCOMPARE(f.lookUp->cName(u"ZZ9QX"_s), QString());
  QVERIFY(f.Heard(4));
  f.said.clear();
  f.lookUp->CheckUpdates();
  QVERIFY(f.Heard(1));
  QVERIFY(f.said.first().startsWith("UpdateFound ver 6.50"_L1));
  f.server.Misbehave({}, Behaviour::Reset);
  f.lookUp->CheckUpdates();
  QVERIFY(f.Heard(2));
  f.lookUp->IsLoggedIn(u"key"_s);
  QVERIFY(f.Heard(3));
  QCOMPARE(f.said.mid(1), (QStringList{u"UpdatesNotFound"_s, u"SiteNotFound key"_s}));
}

void TestLookUp::CannotAskWithoutAHost() {
  Fixture f;
  f.hosts.Pictures.clear();
  f.lookUp = f.NewControl();
  f.lookUp->GetPage(u"ZZ9QX"_s);  // no service yet
  f.lookUp->Database = 1;
  f.lookUp->GetPage(u"ZZ9QX"_s);
  f.lookUp->GetPicture(u"ZZ9QX"_s);  // ends the read of the page nevertheless
  QCOMPARE(f.said, (QStringList{u"PointerNormal"_s, u"NoPic ZZ9QX"_s}));
  for (const QString& call : {u"ZZ9QY"_s, u"ZZ9QZ"_s}) {
    f.said.clear();
    f.lookUp->GetPage(call);
    QVERIFY(f.Heard(1));
    QCOMPARE(f.said, QStringList{u"GotPage %1 -"_s.arg(call)});
  }

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

void TestLookUp::LivesWithBadAnswers_data() {
  QTest::addColumn<Behaviour>("behaviour");
  QTest::addColumn<bool>("page");
  QTest::newRow("stall") << Behaviour::Stall << false;
  QTest::newRow("stall in the page") << Behaviour::StallMidBody << false;
  QTest::newRow("redirect in a circle") << Behaviour::RedirectLoop << false;
  QTest::newRow("redirect to a file") << Behaviour::RedirectToFile << false;
  QTest::newRow("reset") << Behaviour::Reset << false;
  QTest::newRow("cut short") << Behaviour::ShortBody << false;
  QTest::newRow("nothing") << Behaviour::EmptyBody << true;
  QTest::newRow("half a page") << Behaviour::Truncated << true;
  QTest::newRow("picture") << Behaviour::GarbageBody << true;
  QTest::newRow("error page") << Behaviour::ServerError << true;
}

void TestLookUp::LivesWithBadAnswers() {
  QFETCH(const Behaviour, behaviour);
  QFETCH(const bool, page);
  Fixture f;
  f.lookUp->LookupBytes = "of another read";
  f.server.SetPage(u"call"_s, []() { return QByteArray("<p>Search</p><table><tr><td>callsign</td></tr></table>"); });
  f.server.Misbehave({}, behaviour);
  f.lookUp->Database = 5;
  f.lookUp->GetPage(u"ZZ9QX"_s);
  QVERIFY(f.Heard(1));
  QCOMPARE(f.said, QStringList{page ? u"GotPage ZZ9QX -"_s : u"PageNotFound ZZ9QX"_s});
  QCOMPARE(f.lookUp->LookupBytes == "of another read", !page);
  QCOMPARE(f.lookUp->cName(u"ZZ9QX"_s) + f.lookUp->Add1() + f.lookUp->Class(), QString());
  QCOMPARE(f.said.mid(1), QStringList{u"CallNotFound ZZ9QX"_s});
}

void TestLookUp::ReadsTheLargestPage() {
  Fixture f{UrlLimits()};
  QByteArray page = CallookPage("Zoe");
  page += QByteArray(64 * 1024 * 1024 - page.size(), 'x');
  f.server.SetPage({}, [&page]() { return page; });
  f.lookUp->Database = 4;
  f.lookUp->GetPage(u""_s);
  QVERIFY(f.Heard(1));
  QCOMPARE(f.lookUp->cName(u""_s), u"Zoe"_s);
  page += 'x';
  f.lookUp->GetPage(u""_s);
  QVERIFY(f.Heard(2));
  // Of a text that no service has the beginning counts: a handler searches it some twenty times.
  page = "<p>" + QByteArray(2 * 1024 * 1024, 'x') + "</p>" + CallookPage("Zoe");
  f.lookUp->GetPage(u""_s);
  QVERIFY(f.Heard(3));
  QCOMPARE(f.lookUp->cName(u""_s), QString());
  QCOMPARE(f.said, (QStringList{u"GotPage  -"_s, u"PageNotFound "_s, u"GotPage  -"_s, u"CallNotFound "_s}));
}

// A stopped process stands for a page that holds or kills its parser.
void TestLookUp::OutlivesAPageThatHoldsItsProcess() {
  Fixture f;
  f.lookUp->Database = 4;
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
  f.lookUp->GetPage(u""_s);
  QVERIFY(f.Heard(1));

  // Held for ever: the page is given up, the next one is read.
  QVERIFY(startAndStop());
  const pid_t held = process();
  QVERIFY(read(u""_s) && f.Heard(2) && kill(held, 0) != 0);
  f.lookUp->GetPage(u""_s);
  QVERIFY(f.Heard(3));
  const QStringList told{u"GotPage  -"_s, u"PageNotFound "_s, u"GotPage  -"_s};
  QCOMPARE(f.said, told);

  // Dead in between: the next page gets another one.
  QCOMPARE(kill(process(), SIGKILL), 0);
  QVERIFY(read(u""_s) && f.Heard(4));
  QCOMPARE(f.said.last(), u"GotPage  -"_s);
}

void TestLookUp::NamesTheServices() {
  Hosts hosts;
  hosts.eHam = u"http://127.0.0.1:1"_s;
  hosts.Callook = hosts.eHam;
  QStringList told;
  for (int i = -1; i <= 6; ++i) {
    if (const CallbookService* s = FindCallbookService(i)) {
      told += CallbookNameOf(i) + u' ' + s->comboName + u' ' + LoginUrl(*s, hosts).toString() +
              (s->needsLogin ? u'!' : u'.');
    }
  }
  QCOMPARE(told, (QStringList{u"eHam eHam http://127.0.0.1:1/login!"_s, u"QRZ QRZ !"_s, u"QRZCQ QRZCQ.com ."_s,
                              u"Callook Callook.info ."_s, u"HamCall HamCall !"_s}));
}

OMNI_TEST(TestLookUp)
#include "test_look_up.moc"
