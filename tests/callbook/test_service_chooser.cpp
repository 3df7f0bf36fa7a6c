// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of a callbook service as the lookup window and the setup windows have it.

#include "callbook/service_chooser.h"
#include "test_suite.h"

class TestServiceChooser : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void IsSpelledPerWindow() {
    for (const ServiceSpelling spelling : {ServiceSpelling::Lookup, ServiceSpelling::Setup}) {
      QWidget window;
      ServiceChooser chooser(spelling, {u"cmdGetLatLon"_s, u"lblStatus"_s}, &window);
      auto* cboDB = chooser.findChild<QComboBox*>(u"cboDB"_s);
      const QString callook = spelling == ServiceSpelling::Lookup ? u"Callook.info"_s : u"Callook"_s;
      const QStringList names = {u"eHam"_s, u"QRZ"_s, u"QRZCQ.com"_s, callook, u"HamCall"_s};
      QCOMPARE(cboDB->count(), names.size());
      Config config;
      for (int i = 0; i < names.size(); ++i) {
        QVERIFY(ChooseCallbook(config, i + 1, spelling));
        QCOMPARE(cboDB->itemText(i) + u'|' + config.CallbookName, names[i] + u'|' + names[i]);
      }
      QVERIFY(!ChooseCallbook(config, 6, spelling) && config.CallbookIndex == 5);
    }
  }

  void TellsOfTheUsersChoicesOnly() {
    QWidget window;
    ServiceChooser chooser(ServiceSpelling::Setup, {u"cmdGetLatLon"_s, u"lblStatus"_s}, &window);
    QSignalSpy chosen(&chooser, &ServiceChooser::Chosen);
    QSignalSpy wanted(&chooser, &ServiceChooser::FetchWanted);
    QSignalSpy key(&chooser, &ServiceChooser::KeyPressed);
    auto* cboDB = chooser.findChild<QComboBox*>(u"cboDB"_s);
    chooser.SetService(3);
    QVERIFY(cboDB->currentIndex() == 2 && chosen.isEmpty());
    QTest::keyClick(cboDB, Qt::Key_Down);
    QCOMPARE(chosen.value(0).value(0).toInt(), 3);

    chooser.ShowTexts(u"Select database"_s);
    chooser.SetFetchCaption(u"Get K1QPE & more\r\n(Logged in)"_s);
    QCOMPARE(chooser.FetchButton()->text(), u"Get K1QPE && more\r\n(Logged in)"_s);
    QTest::keyClick(chooser.FetchButton(), Qt::Key_Space);
    QCOMPARE(wanted.count(), 1);
    auto* cmdSignIn = chooser.findChild<QToolButton*>(u"cmdSignIn"_s);
    chooser.SetLogin(u"Not needed"_s, {SignInOffer::Kind::None, u"Sign in to Callook"_s});
    QVERIFY(!cmdSignIn->isEnabled() && !chooser.Status()->isEnabled());
    chooser.SetLogin(u"Not logged in"_s, {SignInOffer::Kind::SignIn, u"Sign in to QRZ"_s});
    QTest::keyClick(cmdSignIn, Qt::Key_Space);
    QCOMPARE(key.count(), 1);
    chooser.Describe(u"K1QPE, Martha"_s);
    for (const QWidget* control : chooser.TabChain()) {
      QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
      QVERIFY(control->focusPolicy() & Qt::TabFocus);
    }
    QCOMPARE(cboDB->accessibleDescription(), u"K1QPE, Martha"_s);
  }

  void WritesTheFetchCaption() {
    const QString text = u"Get ??? from ***"_s;
    QCOMPARE(FetchCaption(text, u"K1QPE"_s, u"QRZ"_s, {}), u"Get K1QPE from QRZ"_s);
    QCOMPARE(FetchCaption(text, u"K1QPE"_s, u"QRZ"_s, u"Logged in"_s), u"Get K1QPE from QRZ\r\n(Logged in)"_s);
  }
};

OMNI_TEST(TestServiceChooser)
#include "test_service_chooser.moc"
