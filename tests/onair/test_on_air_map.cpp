// SPDX-License-Identifier: GPL-3.0-or-later
// The on-air map as a user meets it: points, list, the text beside a label, the choice of a map.
#include <QDir>
#include <QListView>

#include "feed_fixture.h"
#include "onair/map_on_air_window.h"
#include "recording_menus.h"
#include "test_suite.h"
#include "ui/msg_box_timed.h"

using namespace Qt::StringLiterals;

namespace {

struct OnAirMapFixture : FeedFixture {
  QWidget owner;
  RecordingMenus menus;
  Dialogs dialogs;
  MapStore maps{folder.path()};
  OnAirCaption caption{program, []() { return false; }};
  QPointer<frmMapOnAir> window;

  OnAirMapFixture() {
    QDir(folder.path()).mkpath(u"Maps"_s);
    for (const QString& name : {u"Europe Map.jpg"_s, u"World Map.jpg"_s}) {
      QImage picture(name.startsWith(u'E') ? QSize(1810, 1490) : QSize(2800, 1412), QImage::Format_RGB32);
      picture.fill(Qt::cyan);
      QVERIFY(picture.save(folder.filePath(u"Maps/"_s + name)));
      program.lstMap << name;
    }
    Station(u"ZZ10Q"_s, u"51,5"_s, u"-0.1"_s);
    Station(u"ZZ2QX"_s, u"0"_s, u"9"_s);
    Station(u"ZZ3QX"_s, u"nan"_s, u"9"_s);
    Station(u"ZZ5QX"_s, u"-30"_s, u"140"_s);
    program.config.MyLat = 48;
    program.config.MyLon = 11;
    program.ZeroGlyph = QChar(u'Ø');
    Answer("head\nZZ10Q-EP 14.233_\nZZ2QX-EP 7.100_\nZZ3QX-FT8 7.074_\nZZ5QX-EP 7.100_\n",
           "head\r\nZZ10Q_EPH_3733_x\r\nZZ9QX_EP__y\r\nN0CALL_EP_14233_\r\n");
  }
  ~OnAirMapFixture() { delete window; }

  void Open() {
    window = new frmMapOnAir({AllDependencies(), program, maps, tool, menus, dialogs, caption}, &owner);
    window->Open();
    window->Open();
    QVERIFY2(!window->isVisible(), "a second click does not show it without its picture");
    QTRY_VERIFY(window->isVisible());
    QVERIFY(QTest::qWaitForWindowActive(window));
  }
  MapView& View() const { return *window->findChild<MapView*>(); }
  template <typename Type>
  Type& Part(const QString& name) const {
    return *window->findChild<Type*>(name);
  }
  QString Labels() const {
    QStringList texts;
    for (const MapOverlay::Label& label : View().Labels()) texts << label.text;
    return texts.join(u'|');
  }
  QString Row(int row) const {
    const auto* model = Part<QTableView>(u"List2"_s).model();
    QStringList cells;
    for (int i = 0; i < 3; ++i) cells << model->index(row, i).data().toString();
    return cells.join(u'\t');
  }
};

}  // namespace

class TestOnAirMap : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // A station without a place stands in the list and nowhere on the map; one that both sources know has one label.
  void ShowsPointsAndList() {
    OnAirMapFixture f;
    StoredSettings(f.store).SetNumber(Setting::OnAirMapIndex, 1);
    f.Open();
    QTRY_COMPARE(f.window->windowTitle(), u"On Air Now (6)"_s);
    QTRY_COMPARE(f.Labels(), u" Me | ZZ1ØQ | ZZ5QX "_s);
    f.caption.Timer13.setInterval(std::chrono::milliseconds(1));
    QTRY_COMPARE(f.Part<QToolButton>(u"cmdOnAir"_s).text(), u"0 (6)"_s);
    QCOMPARE(f.window->windowTitle(), u"On Air Now (6)"_s);
    QCOMPARE(f.Row(2) + u'|' + f.Row(4) + u'|' + f.Row(5), u"ZZ3QX\tFT8\t7.074|ZZ1ØQ\tEPH\t3.733|ZZ9QX\tEP\t"_s);
    QSignalSpy pasted(f.window.data(), &frmMapOnAir::PasteWanted);
    QTest::mouseClick(&f.Part<QToolButton>(u"cmdPaste"_s), Qt::LeftButton);
    QCOMPARE(pasted.count(), 1);
    QVERIFY(!pasted.first().first().value<QImage>().isNull());

    // Another map has its own places and the same list, and is there in the next run.
    const QPointF world = *f.View().Labels().at(1).anchor;
    QTest::mouseClick(&f.Part<QToolButton>(u"cmdMaps"_s), Qt::LeftButton);
    QTest::keyClick(&f.Part<QListView>(u"cboMaps"_s), Qt::Key_Home);
    QTest::keyClick(&f.Part<QListView>(u"cboMaps"_s), Qt::Key_Return);
    QTRY_COMPARE(f.Labels(), u" Me | ZZ1ØQ "_s);
    QVERIFY(*f.View().Labels().at(1).anchor != world);
    QCOMPARE(f.window->windowTitle(), u"On Air Now (6)"_s);
    QCOMPARE(f.Part<QTableView>(u"List2"_s).model()->rowCount(), 6);
    QCOMPARE(StoredSettings(f.store).Number(Setting::OnAirMapIndex), 0);
    QCOMPARE(f.program.config.MapIndex, Program().config.MapIndex);
  }

  void TellsAboutAStation() {
    OnAirMapFixture f;
    f.Open();
    QTRY_COMPARE(f.Labels(), u" Me | ZZ1ØQ "_s);
    f.View().FocusLabel(1);
    QVERIFY(f.Part<QLabel>(u"lstInfo"_s).isVisible());
    QCOMPARE(f.Part<QLabel>(u"lstInfo"_s).text(), u"  ZZ1ØQ  \nRobin\nPerch Lane 1\nFernbach, Germany"_s);
    // It stays with its label when the map is moved.
    const auto beside = [&f]() { return f.Part<QLabel>(u"lstInfo"_s).pos() - f.View().LabelRect(1).topLeft(); };
    const QPoint before = beside();
    QTest::keyClick(&f.View(), Qt::Key_Right);
    QCOMPARE(beside(), before);
    QTest::keyClick(&f.View(), Qt::Key_Return);
    QCOMPARE(f.menus.wanted.last().subject.caller, u"ZZ10Q"_s);
    QSignalSpy lookup(f.window, &CallMapWindow::LookupWanted);
    f.Answer("head\n", "head\r\n");
    QTest::keyClick(f.window, Qt::Key_F5);
    QTRY_COMPARE(f.Labels(), u" Me "_s);
    // The label has gone while the menu was open.
    f.window->MnuPopupClick(0);
    QCOMPARE(lookup.takeFirst().first().toString(), u"ZZ10Q"_s);
    QVERIFY(!f.Part<QLabel>(u"lstInfo"_s).isVisible());
  }

  void TellsAboutARow() {
    OnAirMapFixture f;
    f.Open();
    QTRY_COMPARE(f.Part<QTableView>(u"List2"_s).model()->rowCount(), 6);
    QTest::mouseClick(&f.Part<QToolButton>(u"cmdOnAir"_s), Qt::LeftButton);
    auto& list = f.Part<QTableView>(u"List2"_s);
    QVERIFY(list.hasFocus());
    list.selectRow(5);
    QTest::keyClick(&list, Qt::Key_Return);
    const auto* tip = f.window->findChild<frmTipOnAir*>();
    QVERIFY(tip->isVisible() && tip->text().startsWith("ZZ9QX   not found in database  \n"_L1));
    QTRY_VERIFY(f.View().Labels().size() == 2);
    QVERIFY(!f.window->ShowCall(u"ZZ9QX"_s) && f.window->ShowCall(u"ZZ10Q"_s));
    QVERIFY(f.View().hasFocus() && f.View().FocusedLabel() == 1 && !list.isVisible() && !tip->isVisible());
    // Escape closes the list before the window.
    QTest::mouseClick(&f.Part<QToolButton>(u"cmdOnAir"_s), Qt::LeftButton);
    QTest::keyClick(&list, Qt::Key_Escape);
    QVERIFY(!list.isVisible() && f.window->isVisible());
  }

  void TellsAFailureInTheMiddle() {
    OnAirMapFixture f;
    f.Answer("", "Error");
    f.Open();
    QTRY_VERIFY(f.window->findChild<frmMsgBoxTimed*>() != nullptr);
    auto* box = f.window->findChild<frmMsgBoxTimed*>();
    QTRY_VERIFY((box->geometry().center() - f.window->rect().center()).manhattanLength() <= 2);
    QVERIFY(box->findChild<QLabel*>()->text().contains("\n On air now file not found \n"_L1));
  }
};

OMNI_TEST(TestOnAirMap)
#include "test_on_air_map.moc"
