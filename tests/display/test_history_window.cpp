// SPDX-License-Identifier: GPL-3.0-or-later
// Form15 in the running program: its grid, keys, words and menu, and what closes it.
#include <QLabel>
#include <QWheelEvent>

#include "callbook/lookup_window.h"
#include "display/last15_window.h"
#include "window_fixture.h"

namespace {

struct OpenHistory : WindowFixture {
  Station& station = AddSite(u"ZZ1AA"_s, 2);

  explicit OpenHistory(bool txMode = false) {
    for (int number = 1; number <= 30; ++number) {
      const QString path = txMode ? u"TX%1.jpg"_s.arg(number) : u"image%1"_s.arg(number);
      station.SetFile(path, PlainPicture("AB1CD * EP snr -3 *03:15:2026 10:30", QSize(160, 120)));
    }
    station.Misbehave(u"image5"_s, Behaviour::NotFound);
    if (!StartAndPoll()) qFatal("no page");
    Choose(txMode ? Command::ShowTxHistory : Command::ShowHistory, 1);
  }
  void Choose(Command command, int slot) const {
    services->commands.Do({command, 2, {}, form->findChild<WindowMenus*>()->SubjectOf(slot), form.get()});
  }
  Form15* Window() const { return qobject_cast<Form15*>(form->AllWindows().Find(WindowKind::History)); }
  HistoryView& View() const { return *Window()->findChild<HistoryView*>(); }
  ThumbCell* CellAt(int slot) const { return View().Cells().CellAt(slot); }
  // Whether all of a cell can be seen.
  bool InSight(int slot) const {
    const ThumbCell* cell = CellAt(slot);
    return cell->visibleRegion().boundingRect() == cell->rect();
  }
};

}  // namespace

class TestHistoryWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsThreeRowsOfSix() {
    OpenHistory f;
    QCOMPARE(f.Window()->windowTitle(), u"Last 30 pictures of ZZ1AA"_s);
    QTRY_COMPARE(f.Window()->findChild<QLabel*>(u"lblCap"_s)->text(), u"29 of 30 pictures"_s);
    QCOMPARE(f.Window()->findChild<QLabel*>(u"lblCap2"_s)->text(), f.State().language[TextLine::kHistoryDone]);
    QVERIFY(!f.Window()->findChild<QWidget*>(u"picProgress"_s)->isVisible());
    QVERIFY(f.View().ScrollBar1.isVisible());
    QVERIFY(f.InSight(0) && f.InSight(14) && !f.InSight(15));
    QCOMPARE(f.CellAt(6)->accessibleName(), u"ZZ1AA Image 7"_s);
    QVERIFY(f.CellAt(6)->accessibleDescription().contains(u"AB1CD"_s));
    // The scroll bar follows the focus; the wheel moves by rows.
    f.CellAt(0)->setFocus();
    QTest::keyClick(f.CellAt(0), Qt::Key_End);
    QTRY_VERIFY(f.InSight(29) && f.InSight(15) && !f.InSight(14));
    QTest::keyClick(f.CellAt(29), Qt::Key_Home);
    QTRY_VERIFY(f.InSight(0) && f.InSight(14));
    QTest::keyClick(f.CellAt(0), Qt::Key_PageDown);
    QTRY_VERIFY(f.CellAt(15)->hasFocus() && f.InSight(15) && f.InSight(29) && !f.InSight(14));
    // To the view itself: an event that a test makes is not passed on to the cell's parents.
    QWheelEvent up({9, 9}, f.View().mapToGlobal(QPointF(9, 9)), {}, QPoint(0, 360), {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&f.View(), &up);
    QTRY_VERIFY(f.InSight(0) && !f.InSight(15));
    QTest::keyClick(f.CellAt(3), Qt::Key_Down);
    QVERIFY(f.CellAt(8)->hasFocus());
  }

  void ShowsSentPicturesInOneRow() {
    OpenHistory f(true);
    QTRY_COMPARE(f.Window()->Pictures().Found(), 5);
    QVERIFY(!f.View().ScrollBar1.isVisible() && f.InSight(4) && f.CellAt(5) == nullptr);
    QCOMPARE(f.Window()->windowTitle(), u"TX pictures of ZZ1AA"_s);
    // The same window turns to thirty.
    f.Choose(Command::ShowHistory, 1);
    QVERIFY(f.View().ScrollBar1.isVisible() && f.CellAt(29) != nullptr && f.InSight(14) && !f.InSight(15));
    QCOMPARE(f.Window()->windowTitle(), u"Last 30 pictures of ZZ1AA"_s);
  }

  // Sender and site come from the history's own fields, whatever the page shows by now.
  void ItsMenuIsAboutItsOwnPicture() {
    OpenHistory f;
    QTRY_COMPARE(f.Window()->Pictures().Found(), 29);
    f.form->ReloadPage();
    f.State().page.SelectedSlot = 0;
    auto* menus = f.form->findChild<WindowMenus*>();
    Q_EMIT f.View().Cells().MenuWanted(7, QPoint(100, 100), true);
    auto* menu = f.Window()->findChild<frmMenu*>();
    QVERIFY(menus->IsOpen() && menu != nullptr);
    QStringList enabled;
    for (const QAction* row : menu->actions()) {
      if (row->isEnabled() && !row->isSeparator()) enabled << row->text();
    }
    QCOMPARE(enabled.size(), 11);  // all of the menu: no entry depends on what the page shows
    QStringList subRows;
    for (const frmSubMenu* sub : f.Window()->findChildren<frmSubMenu*>()) {
      for (const QAction* row : sub->actions()) subRows << row->text();
    }
    QVERIFY2(subRows.join(u'|').contains(u"ZZ1AA site|AB1CD sender"_s), qPrintable(subRows.join(u'|')));
    const int before = f.station.Requests(u"image8"_s);
    menu->actions().first()->trigger();
    menus->CloseMenus();
    QTRY_COMPARE(f.station.Requests(u"image8"_s), before + 1);
    // A click on the sender's caption looks the sender up; one on the picture is for the viewer.
    const QSignalSpy lookUps(f.Window(), &Form15::LookupWanted);
    const QSignalSpy views(f.Window(), &Form15::ViewWanted);
    QTest::mouseClick(f.CellAt(6), Qt::LeftButton, {}, f.CellAt(6)->SenderPlace().center());
    QTest::keyClick(f.CellAt(6), Qt::Key_Return);
    QTest::keyClick(f.CellAt(4), Qt::Key_Return);  // which has no picture
    QCOMPARE(lookUps.size(), 1);
    QCOMPARE(lookUps[0][0], u"AB1CD"_s);
    QCOMPARE(views.size(), 1);
    // Two marked pictures are compared; what has no picture cannot be marked.
    const QSignalSpy pairs(f.Window(), &Form15::ComparisonWanted);
    for (const int slot : {6, 4, 1}) {
      QTest::keyClick(f.CellAt(slot), Qt::Key_D, Qt::ControlModifier);
      QTest::keyClick(f.CellAt(slot), Qt::Key_Space, Qt::ControlModifier);
    }
    QVERIFY(pairs.isEmpty());
    QTest::keyClick(f.CellAt(6), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(pairs.size(), 1);
    QCOMPARE(pairs[0][0].value<PictureList>().pictures.last().source.slot, 1);
  }

  void FollowsTheProgram() {
    OpenHistory f;
    QTRY_COMPARE(f.Window()->Pictures().Found(), 29);
    f.form->MnuLanguageClick(static_cast<int>(f.State().lstLanguages.indexOf(u"German"_s)));
    QCOMPARE(f.Window()->windowTitle(), u"Die letzten 30 Bilder von ZZ1AA"_s);
    QCOMPARE(f.CellAt(6)->Shown().lblCall, u"Bild 7"_s);
    QVERIFY(f.CellAt(6)->Shown().lblFrom.startsWith(f.State().language[TextLine::kFromWord]));
    QCOMPARE(f.CellAt(4)->Shown().lblInfo, u"Bild 5"_s);
    f.form->Logic().poll.StopRefreshTimers();
    f.Choose(Command::ShowHistory, 1);
    QVERIFY2(f.form->Logic().poll.Timer6.isActive(), "the refresh timers go on");
    f.form->MnuPagesClick(2);
    QVERIFY(f.Window() == nullptr);
  }
};

OMNI_TEST(TestHistoryWindow)
#include "test_history_window.moc"
