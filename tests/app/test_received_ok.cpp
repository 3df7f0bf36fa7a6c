// SPDX-License-Identifier: GPL-3.0-or-later
// From the companion's lines to lblMap and the map, in the whole program.
#include <QLocalSocket>

#include "onair/rx_ok_window.h"
#include "test_suite.h"
#include "window_fixture.h"

class TestReceivedOk : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void CompanionAndMap() {
    WindowFixture f;
    QDir(f.folder.path()).mkpath(u"Maps"_s);
    QFile::copy(u"" MAPS_DIR "/UK Map.jpg"_s, f.folder.filePath(u"Maps/UK Map.jpg"_s));
    QVERIFY(f.StartAndPoll());
    // The start has moved the focus to the call field for the last time.
    QTRY_COMPARE(f.State().page.txtActive, u"START"_s);
    ReceivedOk& received = *f.form->findChild<ReceivedOk*>();
    received.Timer3.setInterval(0);
    BarLabel& lblMap = *f.form->findChild<BarLabel*>(u"lblMap"_s);
    const auto find = [&f]() {
      return qobject_cast<frmMapRxOk*>(f.form->AllWindows().Find(WindowKind::ReceivedOkMap));
    };
    // Without a row the map opens only when the user insists, without an own call not at all.
    QVERIFY(!lblMap.isVisible());
    received.OpenMap();
    QCOMPARE(f.dialogs.told.takeLast(), u"No station reports a good reception of a picture from ZZ9QX yet."_s);
    QVERIFY(find() == nullptr);
    const QString own = std::exchange(f.State().config.MyCall, QString());
    received.OpenMap();
    QCOMPARE(f.dialogs.told.takeLast(), u"Please enter your own callsign first."_s);
    f.State().config.MyCall = own;

    QLocalSocket companion;
    companion.connectToServer(f.folder.filePath(u"omni-perch-form1"_s));
    companion.write("txtRxOk=ZZ2AA\tok\t11/22/2026 10:00\n");
    QTRY_COMPARE(lblMap.isVisible() ? lblMap.text() : QString(), u"Map (1 rx sites)"_s);
    DbRec record;
    record.Lat = u"51.5"_s;
    record.Lon = u"-0.5"_s;
    for (const QString& call : {u"ZZ2AA"_s, u"ZZ3AA"_s}) {
      record.Call = call;
      QVERIFY(f.services->database.SaveStation(call, record));
    }
    lblMap.setFocus();
    QTest::keyClick(&lblMap, Qt::Key_Space);
    QTRY_VERIFY(find() != nullptr && find()->isVisible());
    MapView& view = *find()->findChild<MapView*>();
    QTRY_COMPARE(view.Labels().size(), 2);  // own position and the station

    // The map follows the list, and the focus stays on the label.
    companion.write("txtRxOk=ZZ2AA\tok\t11/22/2026 10:00\ntxtRxOk=ZZ2AA\tok\t11/22/2026 10:00*ZZ3AA\t\t\n");
    QTRY_COMPARE(view.Labels().size(), 3);
    QCOMPARE(lblMap.text(), u"Map (2 rx sites)"_s);
    QCOMPARE(f.form->focusWidget(), &lblMap);
    QSignalSpy refreshed(&f.form->Logic().poll, &PollCycle::HoverForgotten);
    f.form->Logic().poll.RefreshClick();
    const qsizetype signalsOfOne = refreshed.size();
    // An empty text does not wait for the timer.
    received.Timer3.stop();
    companion.write("txtFromRxOk=Refresh\ntxtFromRxOk=Refresh\ntxtFromRxOk=refresh\ntxtRxOk=\n");
    QTRY_VERIFY(!lblMap.isVisible());
    QTRY_COMPARE(view.Labels().size(), 1);
    QCOMPARE(refreshed.size(), 3 * signalsOfOne);

    find()->close();
    f.State().config.MyLat = f.State().config.MyLon = 0;
    f.dialogs.second = true;
    received.OpenMap();
    QTRY_COMPARE(f.dialogs.told.last(), u"Please set your own location, the map needs it."_s);
    f.Close();
  }
};

OMNI_TEST(TestReceivedOk)
#include "test_received_ok.moc"
