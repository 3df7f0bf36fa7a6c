// SPDX-License-Identifier: GPL-3.0-or-later
// On Air Now as a user meets it: the list through refreshes, the panels, the tip, the keys.
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>

#include "feed_fixture.h"
#include "onair/on_air_now_window.h"
#include "recording_menus.h"
#include "test_suite.h"
#include "ui/msg_box_timed.h"

namespace {

struct ListFixture : FeedFixture {
  QWidget owner;
  RecordingMenus menus;
  QPointer<frmOnAirNow> window;
  QString caption;

  void Open() {
    window = new frmOnAirNow({AllDependencies(), tool, menus, caption}, &owner);
    QObject::connect(window, &frmOnAirNow::CaptionChanged, &owner, [this](const QString& text) { caption = text; });
    window->show();
    QCOMPARE(window->windowTitle(), caption.isEmpty() ? u"On Air Now"_s : caption);
    QVERIFY(QTest::qWaitForWindowActive(window));
  }
  ~ListFixture() { delete window; }

  OnAirGrid& Grid() const { return *window->findChild<OnAirGrid*>(); }
  QString Cells(int row) const {
    QStringList cells;
    for (int i = 0; i < kOnAirColumns; ++i) cells << Grid().model()->index(row, i).data().toString();
    return cells.join(u'|');
  }
  QString Calls() const {
    QStringList calls;
    for (const OnAirEntry& entry : Grid().Model().Entries()) calls << entry.call;
    return calls.join(u' ');
  }
  QWidget* Part(const QString& name) const { return window->findChild<QWidget*>(name); }
  void Click(const QString& name) const { QTest::mouseClick(Part(name), Qt::LeftButton); }
  QByteArray Settings() const {
    QFile file(folder.filePath(u"settings.ini"_s));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

QByteArray Lines(int first, int last) {
  QByteArray text = "head\r\n";
  for (int i = first; i <= last; ++i)
    text += "ZZ" + QByteArray::number(i) + "Q_EP_" + QByteArray::number(7000 + i) + "_x\r\n";
  return text;
}

}  // namespace

class TestOnAirNow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsTheStations() {
    ListFixture f;
    f.program.ZeroGlyph = QChar(u'Ø');
    f.Station(u"ZZ10Q"_s, u"51.5"_s, u"-0.1"_s);
    f.Answer("head\nZZ10Q-EP 14.233_\n", "head\r\n");
    f.caption = u"On Air Now (7)"_s;  // from the opening before
    f.Open();
    QTRY_COMPARE(f.caption, u"On Air Now (1)"_s);
    QCOMPARE(f.window->windowTitle(), u"On Air Now  (1)"_s);
    QCOMPARE(f.Cells(0), u"ZZ1ØQ|EP|14.233|50°||"_s);
    f.Answer("head\n", "head\r\nZZ10Q_SSTV_PEANUT_<b>&amp;\r\n");
    QTest::keyClick(f.window, Qt::Key_F5);
    QTRY_COMPARE(f.Cells(0), u"ZZ1ØQ|SSTV|PEANUT|50°||<b>&amp;"_s);
    QVERIFY(f.Grid().viewport()->width() >= f.Grid().columnViewportPosition(5) + 30);
  }

  // Panels: what is ticked takes effect, and goes to the disk, when the panel closes; no restart is needed for that.
  void FiltersAndRemembers() {
    ListFixture f;
    f.Answer("head\nZZ1QX-EP 14.233_\nZZ2QX-EP 7.100_\nZZ3QX-FT8 7.074_\n", "head");
    f.Open();
    QTRY_COMPARE(f.Calls(), u"ZZ1QX ZZ2QX ZZ3QX"_s);
    QVERIFY(f.Settings().isEmpty());
    f.Click(u"cmdBand"_s);
    QVERIFY(f.Part(u"picBand"_s)->isVisible());
    f.Click(u"ckBand(3)"_s);
    QTest::keyClick(f.Part(u"ckBand(3)"_s), Qt::Key_Escape);
    QVERIFY(!f.Part(u"picBand"_s)->isVisible() && f.window->isVisible());
    QTRY_COMPARE(f.Calls(), u"ZZ2QX ZZ3QX"_s);
    QCOMPARE(f.Part(u"cmdBand"_s)->property("text").toString(), u"40 ▾"_s);
    QTRY_VERIFY(f.Settings().contains("[TV%20Echo]") && f.Settings().contains("TX\\band3=1"));
    f.Click(u"cmdMode"_s);
    QTest::keyClick(f.Part(u"ckMode(4)"_s), Qt::Key_Space);
    f.Click(u"imgModeClose"_s);
    QTRY_COMPARE(f.Calls(), u"ZZ3QX"_s);
    QTRY_VERIFY(f.Settings().contains("TX\\mode4=1"));

    SettingsStore again(f.folder.filePath(u"settings.ini"_s));
    FeedFixture other;
    OnAirSession list({other.AllDependencies(), again, other.database}, OnAirWindow::List);
    list.Open();
    QCOMPARE(list.BandSummary() + list.ModeSummary(), u"40FT8"_s);
    // The map has boxes of its own, and the single choice that the propagation map has made since.
    StoredSettings(again).SetNumber(Setting::TxBand, 5);
    StoredSettings(again).SetNumber(Setting::TxMode, 99);
    OnAirSession map({other.AllDependencies(), again, other.database}, OnAirWindow::Map);
    map.Open();
    QCOMPARE(map.BandSummary() + u'|' + map.ModeSummary(), u"20|All Modes"_s);
  }

  // In the step between the answers of the two sources half of the rows are gone.
  void KeepsTopRowAndSelectionThroughARefresh() {
    ListFixture f;
    f.Answer("head\n", Lines(100, 299));
    f.Open();
    QTRY_COMPARE(f.Grid().model()->rowCount(), 200);
    f.Grid().verticalScrollBar()->setValue(100);
    const QString top = f.Grid().Model().Entries().at(100).call;
    f.Grid().selectRow(104);
    const QString chosen = f.Grid().Model().Entries().at(104).call;
    f.Text().SetLatency(std::chrono::milliseconds(300));
    f.Answer("head\nZZ1QX-EP 14.233_\n", Lines(100, 299));
    QSignalSpy reset(&f.Grid().Model(), &QAbstractItemModel::modelReset);
    QTest::keyClick(f.window, Qt::Key_F5);
    QTRY_COMPARE(f.Grid().model()->rowCount(), 1);
    QTRY_COMPARE(f.Grid().model()->rowCount(), 201);
    QCOMPARE(f.Grid().model()->index(f.Grid().rowAt(0), 0).data().toString(), top);
    QCOMPARE(f.Grid().currentIndex().siblingAtColumn(0).data().toString(), chosen);
    QCOMPARE(f.Grid().selectionModel()->selectedRows().size(), 1);
    QCOMPARE(reset.count(), 2);
    // The station at the top has gone off the air, and so has the chosen one: both places are kept by their number.
    f.Answer("head\n", Lines(100, 200 - 2) + Lines(205, 299).mid(6));
    QTest::keyClick(f.window, Qt::Key_F5);
    QTRY_COMPARE(f.Grid().model()->rowCount(), 194);
    QCOMPARE(f.Grid().rowAt(0), 101);
    QCOMPARE(f.Grid().currentIndex().row(), 105);
    f.Answer("head\nZZ1QX-EP 14.233_\n", Lines(100, 299));
    QTest::keyClick(f.window, Qt::Key_F5);
    QTRY_COMPARE(f.Grid().model()->rowCount(), 201);
    // The third click on a head brings the told order back.
    for (const QString& first : {u"ZZ100Q"_s, u"ZZ1QX"_s, u"ZZ1QX"_s}) {
      f.Grid().verticalScrollBar()->setValue(0);
      QTest::keyClick(&f.Grid(), Qt::Key_3, Qt::ControlModifier);
      QTRY_COMPARE(f.Grid().Model().Entries().first().call, first);
    }
  }

  void TellsAboutARow() {
    ListFixture f;
    f.Station(u"ZZ1QX"_s, u"51.5"_s, u"-0.1"_s);
    f.Answer("head\nZZ1QX-EP 14.233_\nZZ2QX-EP PEANUT_\n", "head");
    f.Open();
    QTRY_COMPARE(f.Grid().model()->rowCount(), 2);
    const auto* tip = f.window->findChild<frmTipOnAir*>();
    const QPoint second(10, f.Grid().rowViewportPosition(1) + 5);
    QTest::mouseClick(f.Grid().viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(tip->text(),
             u"ZZ2QX   not found in database  \n  In Omni-Perch Setup / Edit Callsign database  \n"
             "  add ZZ2QX to database.  "_s);
    // The pointer of a test stands nowhere near.
    QTRY_VERIFY(!tip->isVisible());
    QTest::keyClick(&f.Grid(), Qt::Key_Up);
    QTest::keyClick(&f.Grid(), Qt::Key_Return);
    QCOMPARE(tip->text(), u"  ZZ1QX  \nRobin\nPerch Lane 1\nFernbach, Germany"_s);
    QTest::keyClick(f.window, Qt::Key_Escape);
    QVERIFY(!tip->isVisible() && f.window->isVisible());
    // The user turns to another program.
    QTest::keyClick(&f.Grid(), Qt::Key_Return);
    QVERIFY(tip->isVisible());
    QFocusEvent left(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&f.Grid(), &left);
    QVERIFY(!tip->isVisible());

    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(f.Grid().viewport(), &menu);
    QCOMPARE(f.menus.wanted.last().subject.caller, u"ZZ1QX"_s);
    QVERIFY(f.menus.wanted.last().menu == MenuId::ListCall && f.menus.wanted.last().subject.placed);
    QTest::keyClick(&f.Grid(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&f.Grid(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"ZZ1QX\tEP\t14.233\t50°\t\nZZ2QX\tEP\tPEANUT\t\t"_s);
  }

  // Stands at the left edge in the middle of the height, leaves the focus where it is, and goes.
  void TellsAFailure() {
    ListFixture f;
    f.Answer("", "head");
    f.Open();
    QTRY_VERIFY(f.window->findChild<frmMsgBoxTimed*>() != nullptr);
    auto* box = f.window->findChild<frmMsgBoxTimed*>();
    QCOMPARE(box->x(), 0);
    QVERIFY(std::abs(box->geometry().center().y() - f.window->rect().center().y()) <= 1);
    QVERIFY(f.Grid().hasFocus());
    QPointer<frmMsgBoxTimed> first = box;
    frmMsgBoxTimed::ShowMsg(f.window, u"again"_s, std::chrono::seconds(0));
    QCOMPARE(f.window->findChildren<frmMsgBoxTimed*>().size(), 1);
    QTRY_VERIFY(first == nullptr);
    // A message that comes in the turn in which another ends is not taken away with it.
    frmMsgBoxTimed::ShowMsg(f.window, u"one"_s, 10s);
    first = f.window->findChild<frmMsgBoxTimed*>();
    QTest::mouseClick(first, Qt::LeftButton);
    frmMsgBoxTimed::ShowMsg(f.window, u"two"_s, 10s);
    QTRY_VERIFY(first == nullptr);
    QCOMPARE(f.window->findChildren<frmMsgBoxTimed*>().size(), 1);
    QCOMPARE(f.window->findChild<frmMsgBoxTimed*>()->accessibleName(), u"two"_s);
  }
};

OMNI_TEST(TestOnAirNow)
#include "test_on_air_now.moc"
