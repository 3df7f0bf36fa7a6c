// SPDX-License-Identifier: GPL-3.0-or-later
// A user signs in to a callbook service and out again: the login state, the cookies and the record of a lookup, against
// the simulated services.

#include "lookup_fixture.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kEham = 1;
constexpr int kQrz = 2;
constexpr int kCallook = 4;

}  // namespace

class TestLookupSignIn : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void SignsInAndOut() {
    SessionFixture f(kEham);
    f.LookToTheEnd(u"K1QPE"_s);
    QCOMPARE(f.session.Offer().text, u"Sign in to eHam"_s);
    f.session.AwaitSignIn();
    f.SignIn();
    QTRY_COMPARE(f.view.name, u"Martha"_s);
    QCOMPARE(f.session.Offer().text, u"Sign out of eHam"_s);
    f.Settle();
    const int asked = f.Service().TotalRequests();
    // The cookie has ended the waiting: closing the browser window afterwards reads nothing.
    f.session.SignInClosed();
    QVERIFY(!f.view.busy);

    // A login to eHam is none to QRZ, of which there are no cookies.
    f.session.ChooseService(kQrz - 1);
    QCOMPARE(f.session.Offer().text, u"Sign in to QRZ"_s);
    f.session.EndLookup();
    f.Choose(kEham);

    // The next call has a record to show and reads no page: the session still knows of the login.
    f.Look(u"K1QPE"_s);
    QCOMPARE(f.session.Offer().text, u"Sign out of eHam"_s);
    f.session.SignOut();
    QTRY_COMPARE(f.view.status, f.Text(TextLine::kNotLoggedIn));
    QCOMPARE(f.view.name, QString());
    QVERIFY(f.cookies.All().isEmpty());
    QCOMPARE(f.Service().TotalRequests(), asked + 1);

    // A user who gives up closes the window: the call is read once.
    f.session.AwaitSignIn();
    f.session.SignInClosed();
    QTRY_COMPARE(f.Service().TotalRequests(), asked + 2);
    QTRY_VERIFY(!f.view.busy);

    // Choosing another service ends the waiting.
    f.session.AwaitSignIn();
    f.session.ChooseService(kCallook - 1);
    QTRY_VERIFY(!f.view.busy);
    f.session.SignInClosed();
    QVERIFY(!f.view.busy);
    QVERIFY(f.session.Offer().kind == SignInOffer::Kind::None);
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
    f.session.AwaitSignIn();
    give("the login page's");
    QTRY_COMPARE(host.TotalRequests(), 3);
    QVERIFY(!QTest::qWaitFor([&host]() { return host.TotalRequests() > 3; }, 1500));
    // A cookie that the browser window gets later counts again.
    give("the user's");
    QTRY_COMPARE(host.TotalRequests(), 5);
    // Signing out ends the waiting for a login: closing the browser window then reads nothing.
    QTRY_VERIFY(!f.view.busy);
    f.session.SignOut();
    QTRY_VERIFY(!f.view.busy);
    f.session.SignInClosed();
    QVERIFY(!f.view.busy);
  }

  void KnowsOfASignOutWithoutACall() {
    SessionFixture f(kEham);
    f.SignIn();
    f.Look(QString());
    QSignalSpy changed(&f.session, &LookupSession::Changed);
    QCOMPARE(f.session.Offer().text, u"Sign out of eHam"_s);
    f.session.SignOut();
    QCOMPARE(f.session.Offer().text, u"Sign in to eHam"_s);
    QCOMPARE(changed.count(), 1);
  }
};

OMNI_TEST(TestLookupSignIn)
#include "test_lookup_sign_in.moc"
