// SPDX-License-Identifier: GPL-3.0-or-later
// The ways from the main window to the lookup and to the map of a station, on the simulated callbook services.
#include <QClipboard>
#include <QFileInfo>
#include <QLocalSocket>
#include <QPushButton>

#include "callbook/lookup_window.h"
#include "maps/map_location_window.h"
#include "onair/rx_ok_window.h"
#include "operators.h"
#include "window_fixture.h"

namespace {

// A page of four senders: one whom the service knows, one whom it does not know, one whose call is refused, and a site
// that has sent no picture.
struct StationsFixture : WindowFixture {
  StationsFixture() {
    hosts.QRZCQ = band.HostUrl(u"QRZCQ"_s);
    hosts.Pictures = band.HostUrl(u"Pictures"_s);
    for (const QString& name : {u"Australia Map.jpg"_s, u"UK Map.jpg"_s, u"World Map.jpg"_s}) AddMap(name);
    int slot = 0;
    for (const QByteArray& caller : {"VK2QFW"_ba, "ZZ9SUN"_ba, "N0CALL"_ba}) {
      AddSite(u"ZZ%1AA"_s.arg(slot + 1), slot + 1).SetPicture(PlainPicture(caller + " * EP snr -3 *03:15:2026 10:30"));
      ++slot;
    }
    QVERIFY(StartAndPoll());
    State().config.CallbookIndex = 3;
    State().config.CallbookName = u"QRZCQ"_s;
    QTRY_COMPARE(State().page.Field(1, Caller), u"ZZ9SUN"_s);
    QTRY_COMPARE(State().page.Field(0, Caller), u"VK2QFW"_s);
  }

  QLineEdit& CallField() const { return *form->findChild<QLineEdit*>(u"txtCall"_s); }
  // nullptr until it has opened for the first time.
  template <typename Window>
  Window* Find() const {
    Window* found = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets()) {
      auto* window = qobject_cast<Window*>(top);
      // A window that has been closed may still wait for its deletion.
      if (window != nullptr && (found == nullptr || window->isVisible())) found = window;
    }
    return found;
  }
  bool IsOpen() const { return Find<Form12>() != nullptr && Find<Form12>()->isVisible(); }
  QString Shown(const QString& label) const { return Find<Form12>()->findChild<QLineEdit*>(label)->text(); }
  void CloseLookup() const { Find<Form12>()->close(); }
  // The caption that names the sender, below the picture.
  void ClickCaption(int slot) const {
    ThumbCell* cell = form->findChild<PageView*>()->CellAt(slot);
    QTest::mouseClick(cell, Qt::LeftButton, {}, cell->SenderPlace().center());
  }
  void ChooseInSubMenu(MenuId subMenu, int index) const {
    const MenuEntry entry = SubEntry(subMenu, index);
    const auto* menus = form->findChild<WindowMenus*>();
    services->commands.Do({entry.command, index, entry.text, menus->SubjectOf(State().page.SelectedSlot), {}});
  }
  // The texts of all sub-menus in the menu of a cell.
  QStringList SubMenuRows(int slot) const {
    auto* menus = form->findChild<WindowMenus*>();
    menus->OpenCellMenu(slot, QPoint(100, 100), true);
    QStringList texts;
    for (const frmSubMenu* menu : form->findChildren<frmSubMenu*>()) {
      for (const QAction* row : menu->actions()) texts += row->text();
    }
    menus->CloseMenus();
    return texts;
  }
  MenuEntry SubEntry(MenuId subMenu, int index) const {
    MenuTables tables(State(), services->commands);
    tables.BuildMenuTables(State().language);
    const auto* menus = form->findChild<WindowMenus*>();
    return tables.Menu(subMenu, menus->SubjectOf(State().page.SelectedSlot)).at(index);
  }
};

struct RaiseCounter : QObject {
  int count = 0;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::ZOrderChange) ++count;
    return false;
  }
};

}  // namespace

class TestStationCalls : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LooksUpTheSenderOfACaption() {
    StationsFixture f;
    f.ClickCaption(2);
    QVERIFY2(!f.IsOpen(), "a call that is refused is not looked up");
    const Operator& person = *FindOperator(u"VK2QFW"_s);
    f.ClickCaption(0);
    QVERIFY(f.IsOpen());
    QTRY_COMPARE(f.Shown(u"lblName"_s), person.name.toString());
    QCOMPARE(f.Shown(u"lblCall"_s), u"VK2QFW  (From QRZCQ)"_s);
    QVERIFY(f.Shown(u"lblDxAz"_s).contains(u"km"_s));
    QTRY_VERIFY(QFileInfo::exists(f.folder.filePath(u"images/qrzImages/VK2QFW.jpg"_s)));
    f.CloseLookup();
    const QStringList rows = f.SubMenuRows(0);
    QVERIFY2(rows.contains(f.State().language[TextLine::kQrzcqStatus]), "the menu keeps the login state of the lookup");
    // Now the database knows.
    f.ClickCaption(0);
    QTRY_COMPARE(f.Shown(u"lblCall"_s), u"VK2QFW  (from the local database)"_s);
    f.ClickCaption(1);
    QTRY_COMPARE(f.Shown(u"lblCall"_s), u"Not found: ZZ9SUN"_s);
  }

  void LooksUpTextsAndSenders() {
    StationsFixture f;
    QPushButton& cmdGo = *f.form->findChild<QPushButton*>(u"cmdGo"_s);
    f.CallField().setText(u"hello"_s);
    QTest::mouseClick(&cmdGo, Qt::LeftButton);
    QVERIFY2(!f.IsOpen(), "a word without a digit is no call");
    QGuiApplication::clipboard()->setText(u"no call here"_s);
    QTest::keyClick(&f.CallField(), Qt::Key_F8);
    QCOMPARE(f.CallField().text(), QString());
    QVERIFY(!f.IsOpen());

    f.CallField().setText(u"vk2qfw/p"_s);
    QTest::mouseClick(&cmdGo, Qt::LeftButton);
    QTRY_COMPARE(f.Shown(u"lblCall"_s), u"VK2QFW  (From QRZCQ)"_s);
    f.CloseLookup();
    f.CallField().setText(u"ZZ9SUN"_s);
    QTest::keyClick(&f.CallField(), Qt::Key_Return);
    QTRY_COMPARE(f.Shown(u"lblCall"_s), u"Not found: ZZ9SUN"_s);
    QGuiApplication::clipboard()->setText(u" de k1qpe de zz9 "_s);
    QTest::keyClick(&f.CallField(), Qt::Key_F8);
    QCOMPARE(f.CallField().text(), u"K1QPE"_s);
    QTRY_COMPARE(f.Shown(u"lblCall"_s), u"K1QPE  (From QRZCQ)"_s);
    QCOMPARE(QCursor::pos(), f.Find<Form12>()->frameGeometry().center());
    // The sub-menu of a cell looks up its sender, and clears the call field.
    f.State().page.SelectedSlot = 1;
    QCOMPARE(f.SubEntry(MenuId::Lookups, 1).text, u"ZZ9SUN sender"_s);
    f.ChooseInSubMenu(MenuId::Lookups, 1);
    QTRY_COMPARE(f.Shown(u"lblCall"_s), u"Not found: ZZ9SUN"_s);
    QCOMPARE(f.CallField().text(), QString());
  }

  void ShowsStationsOnMaps() {
    StationsFixture f;
    f.State().page.SelectedSlot = 0;
    f.ChooseInSubMenu(MenuId::MapOfCall, 1);
    QVERIFY2(f.Find<frmMapLoc>() == nullptr, "nobody knows yet where the sender is");
    f.ClickCaption(0);
    QTRY_COMPARE(f.Shown(u"lblCall"_s), u"VK2QFW  (From QRZCQ)"_s);
    f.CloseLookup();
    const auto showsMap = [&f](const QString& title) {
      return f.Find<frmMapLoc>() != nullptr && f.Find<frmMapLoc>()->isVisible() &&
             f.Find<frmMapLoc>()->windowTitle() == title;
    };
    // The record is written beside the event loop.
    QTRY_VERIFY((f.ChooseInSubMenu(MenuId::MapOfCall, 1), f.Find<frmMapLoc>() != nullptr));
    QTRY_VERIFY(showsMap(u"Australia Map"_s));
    // A site is shown where the list of sites places it.
    f.ChooseInSubMenu(MenuId::MapOfCall, 0);
    QTRY_VERIFY(showsMap(u"UK Map"_s));
    // The call on the map opens the lookup again.
    Q_EMIT f.Find<frmMapLoc>()->LookupWanted(u"K1QPE"_s, QRect(300, 300, 50, 20));
    QTRY_COMPARE(f.Shown(u"lblCall"_s), u"K1QPE  (From QRZCQ)"_s);
    // The lookup offers a map with one coordinate, too: on the meridian of Greenwich the other is 0.
    DbRec record;
    record.Call = u"ZZ9MER"_s;
    record.Name = u"Robin"_s;
    record.Lat = u"51.5"_s;
    record.Lon = u"0"_s;
    f.services->database.SaveStation(u"ZZ9MER"_s, record);
    QVERIFY(f.services->database.Finish());
    f.ChooseInSubMenu(MenuId::MapOfCall, 1);
    QTRY_VERIFY(showsMap(u"Australia Map"_s));
    Q_EMIT f.Find<frmMapLoc>()->LookupWanted(u"ZZ9MER"_s, QRect(300, 300, 50, 20));
    f.Find<Form12>()->MnuMapsClick(0);
    QTRY_VERIFY(showsMap(u"UK Map"_s));

    RaiseCounter raises;
    f.Find<frmMapLoc>()->installEventFilter(&raises);
    f.CloseLookup();
    QVERIFY2(raises.count > 0, "an open map comes up again when the lookup goes");
  }

  // From the companion's lines to lblMap and the map.
  void ShowsWhoHasReceivedAPicture() {
    WindowFixture f;
    f.AddMap(u"UK Map.jpg"_s);
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
      f.services->database.SaveStation(call, record);
    }
    QVERIFY(f.services->database.Finish());
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
  }
};

OMNI_TEST(TestStationCalls)
#include "test_station_calls.moc"
