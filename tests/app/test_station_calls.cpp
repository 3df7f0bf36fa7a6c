// SPDX-License-Identifier: GPL-3.0-or-later
// The ways from the main window to the lookup and to the map of a station, on the simulated callbook services.
#include <QClipboard>
#include <QFileInfo>
#include <QPushButton>

#include "callbook/lookup_window.h"
#include "maps/map_location_window.h"
#include "operators.h"
#include "test_suite.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace {

// A page of four senders: one whom the service knows, one whom it does not know, one whose call is refused, and a site
// that has sent no picture.
struct StationsFixture : WindowFixture {
  StationsFixture() {
    hosts.QRZCQ = band.HostUrl(u"QRZCQ"_s);
    hosts.Pictures = band.HostUrl(u"Pictures"_s);
    QDir(folder.path()).mkpath(u"Maps"_s);
    for (const char* name : {"Australia Map.jpg", "UK Map.jpg", "World Map.jpg"}) {
      QFile::copy(QStringLiteral(MAPS_DIR "/") + QLatin1StringView(name),
                  folder.filePath(u"Maps/"_s + QLatin1StringView(name)));
    }
    Sender(u"ZZ1AA"_s, 1, "VK2QFW");
    Sender(u"ZZ2AA"_s, 2, "ZZ9SUN");
    Sender(u"ZZ3AA"_s, 3, "N0CALL");
    QVERIFY(StartAndPoll());
    State().config.CallbookIndex = 3;
    State().config.CallbookName = u"QRZCQ"_s;
    QTRY_COMPARE(State().page.Field(1, Caller), u"ZZ9SUN"_s);
    QTRY_COMPARE(State().page.Field(0, Caller), u"VK2QFW"_s);
  }

  void Sender(const QString& site, int slot, const QByteArray& caller) {
    AddSite(site, slot).SetPicture(PlainPicture(caller + " * EP snr -3 *03:15:2026 10:30"));
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
    services->commands.Do({entry.command, index, entry.text, {}, {}});
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
    f.Close();
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
    f.Close();
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
    QVERIFY(CallDatabase(f.folder.path()).SaveStation(u"ZZ9MER"_s, record));
    f.ChooseInSubMenu(MenuId::MapOfCall, 1);
    QTRY_VERIFY(showsMap(u"Australia Map"_s));
    Q_EMIT f.Find<frmMapLoc>()->LookupWanted(u"ZZ9MER"_s, QRect(300, 300, 50, 20));
    f.Find<Form12>()->MnuMapsClick(0);
    QTRY_VERIFY(showsMap(u"UK Map"_s));

    RaiseCounter raises;
    f.Find<frmMapLoc>()->installEventFilter(&raises);
    f.CloseLookup();
    QVERIFY2(raises.count > 0, "an open map comes up again when the lookup goes");
    f.Close();
  }
};

OMNI_TEST(TestStationCalls)
#include "test_station_calls.moc"
