// SPDX-License-Identifier: GPL-3.0-or-later
// The menu window by keyboard, mouse and screen reader, with its sub-menus and its place on the monitor.
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QScreen>

#include "test_suite.h"
#include "ui/bar_label.h"
#include "ui/menu_accessible.h"
#include "ui/menu_window.h"

using namespace Qt::StringLiterals;

namespace {

QList<MenuEntry> Entries(const QStringList& texts) {
  QList<MenuEntry> entries;
  for (const QString& text : texts) {
    MenuEntry entry;
    entry.text = text;
    entry.index = static_cast<int>(entries.size()) + 100;
    entries.append(entry);
  }
  return entries;
}

// Apple, Avocado, Banana (greyed), Cherry (opens one and two), Date & Fig.
struct Opened {
  QWidget window;
  frmMenu menu{&window};
  QSignalSpy chosen{&menu, &frmMenu::Chosen};
  QSignalSpy closed{&menu, &frmMenu::AboutToClose};

  Opened() {
    window.setGeometry(100, 100, 300, 200);
    window.show();
    QCursor::setPos(window.mapToGlobal(QPoint(5, 5)));
  }

  void Open(QPoint place = QPoint(200, 200), frmMenu::Opener opener = frmMenu::Opener::Pointer) {
    QList<MenuEntry> entries = Entries({u" Apple "_s, u" Avocado "_s, u"Banana"_s, u"Cherry"_s, u"Date & Fig"_s});
    entries[1].separatorAfter = true;
    entries[2].enabled = false;
    entries[3].subMenu = MenuId::RefreshRate;
    menu.MakeMenu(entries, [](MenuId id) {
      QList<MenuEntry> sub = id == MenuId::RefreshRate ? Entries({u"one"_s, u"two"_s}) : QList<MenuEntry>();
      sub[1].hasCheck = sub[1].checked = true;
      return sub;
    });
    menu.OpenAt(place, opener);
  }

  QString ChosenText() const { return chosen.first().first().value<MenuEntry>().text.trimmed(); }
  QAction* Row(const QString& text) const {
    const QList<QAction*> rows = menu.actions();
    for (QAction* row : rows) {
      if (row->text().trimmed() == text) return row;
    }
    return nullptr;
  }

  QPoint Middle(const QString& text) const { return menu.actionGeometry(Row(text)).center(); }
};

}  // namespace

class TestMenuWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { AccessibleMenuOwner::Install(); }

  void Keys() {
    // typed: d down, u up, r right, l left, e Return, x Escape; capitals are typed as letters.
    const auto check = [](const char* what, const QString& typed, const QString& expected) {
      const TableRow row(what);
      Opened opened;
      opened.Open();
      static const QHash<QChar, Qt::Key> keys = {{u'd', Qt::Key_Down}, {u'u', Qt::Key_Up},     {u'r', Qt::Key_Right},
                                                 {u'l', Qt::Key_Left}, {u'e', Qt::Key_Return}, {u'x', Qt::Key_Escape}};
      for (const QChar c : typed) {
        QWidget* popup = QApplication::activePopupWidget();
        QVERIFY(popup != nullptr);
        if (keys.contains(c)) {
          QTest::keyClick(popup, keys.value(c));
        } else {
          QTest::keyClick(popup, c.toLatin1());
        }
      }
      QString outcome = opened.menu.isVisible() ? u"open"_s : u"closed"_s;
      if (!opened.chosen.isEmpty()) {
        QVERIFY(!opened.menu.isVisible());
        outcome = opened.ChosenText();
      }
      QCOMPARE(outcome, expected);
    };
    check("down", u"dde"_s, u"Avocado"_s);
    check("letter", u"De"_s, u"Date & Fig"_s);
    check("letter again", u"AAe"_s, u"Avocado"_s);
    check("two letters", u"AVe"_s, u"Avocado"_s);
    check("greyed", u"Be"_s, u"open"_s);
    check("into the sub-menu", u"uurde"_s, u"two"_s);
    check("out of the sub-menu", u"uurlde"_s, u"Date & Fig"_s);
    check("letter in the sub-menu", u"uurTe"_s, u"two"_s);
    check("letter of a sub-menu", u"Crde"_s, u"two"_s);
    check("escape", u"dx"_s, u"closed"_s);
    check("escape from the sub-menu", u"uurx"_s, u"open"_s);
  }

  void MouseChooses() {
    Opened opened;
    opened.Open();
    // The handler may build the next menu from within the choice.
    connect(&opened.menu, &frmMenu::Chosen, &opened.menu, [&opened]() { opened.Open(QPoint(10, 10)); });
    QTest::mouseClick(&opened.menu, Qt::LeftButton, {}, opened.Middle(u"Banana"_s));
    QCOMPARE(opened.chosen.size(), 0);
    QTest::mouseClick(&opened.menu, Qt::LeftButton, {}, opened.Middle(u"Date && Fig"_s));
    QCOMPARE(opened.chosen.size(), 1);
    QCOMPARE(opened.ChosenText(), u"Date & Fig"_s);
    QCOMPARE(opened.closed.size(), 1);
    QVERIFY(opened.menu.isVisible());
    QCOMPARE(opened.menu.pos(), QPoint(10, 10));
  }

  // A screen reader's press closes no menu by itself, and an open menu would hold the keyboard.
  void AScreenReaderPresses() {
    const auto check = [](const char* what, const QString& text, bool inSubMenu, const QString& expected) {
      const TableRow row(what);
      Opened opened;
      opened.Open();
      QMenu* sub = opened.Row(u"Cherry"_s)->menu();
      if (inSubMenu) opened.menu.setActiveAction(opened.Row(u"Cherry"_s));
      QString outcome;
      connect(&opened.menu, &frmMenu::Chosen, &opened.menu, [&outcome](const MenuEntry& entry) {
        outcome = QApplication::activePopupWidget() != nullptr ? u"chosen while open"_s : entry.text.trimmed();
      });
      QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(inSubMenu ? sub : &opened.menu);
      for (int i = 0; i < menu->childCount(); ++i) {
        QAccessibleInterface* item = menu->child(i);
        if (item->text(QAccessible::Name).trimmed() != text) continue;
        item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
      }
      const bool chosen = !outcome.isEmpty();
      QCOMPARE(opened.closed.size(), chosen ? 1 : 0);
      if (!chosen) outcome = sub->isVisible() ? u"sub-menu"_s : u"open"_s;
      QCOMPARE(outcome, expected);
    };
    check("entry", u"Avocado"_s, false, u"Avocado"_s);
    check("entry of a sub-menu", u"two"_s, true, u"two"_s);
    check("greyed entry", u"Banana"_s, false, u"open"_s);
    check("opens a sub-menu", u"Cherry"_s, false, u"sub-menu"_s);
  }

  void KeysPressALabel() {
    BarLabel label(u"lblSetup"_s, nullptr);
    QSignalSpy clicked(&label, &BarLabel::clicked);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) QTest::keyClick(&label, key);
    QCOMPARE(clicked.size(), 3);
    label.setEnabled(false);
    QTest::keyClick(&label, Qt::Key_Return);
    QCOMPARE(clicked.size(), 3);
  }

  void HoverOpensTheSubMenu() {
    Opened opened;
    opened.Open();
    QMenu* sub = opened.Row(u"Cherry"_s)->menu();
    QVERIFY(sub != nullptr);
    QTest::mouseMove(&opened.menu, opened.Middle(u"Apple"_s));
    QTest::mouseMove(&opened.menu, opened.Middle(u"Cherry"_s));
    QTRY_VERIFY(sub->isVisible());
    const int overlap = opened.menu.geometry().right() + 1 - sub->x();
    QVERIFY2(std::abs(overlap - 30) <= 4, qPrintable(QString::number(overlap)));

    // Neither menu closes on the pointer's way from one to the other; both close once it is elsewhere without a button.
    QCursor::setPos(sub->geometry().center());
    opened.menu.MenusTick();
    QVERIFY(opened.menu.isVisible() && sub->isVisible());
    QCursor::setPos(opened.window.mapToGlobal(QPoint(1, 1)));
    QTest::mousePress(&opened.menu, Qt::LeftButton, {}, opened.Middle(u"Banana"_s));
    opened.menu.MenusTick();
    QVERIFY(opened.menu.isVisible());
    QTest::mouseRelease(&opened.menu, Qt::LeftButton, {}, opened.Middle(u"Banana"_s));
    QCursor::setPos(opened.window.mapToGlobal(QPoint(2, 2)));
    QTRY_VERIFY(!opened.menu.isVisible());
    QVERIFY(!sub->isVisible());
    QVERIFY(!opened.menu.tmrMenus.isActive());
    QCOMPARE(opened.closed.size(), 1);
    QVERIFY(opened.chosen.isEmpty());
  }

  void KeyboardKeepsItOpen() {
    Opened opened;
    opened.Open(QPoint(200, 200), frmMenu::Opener::Keyboard);
    QCOMPARE(opened.menu.activeAction(), opened.Row(u"Apple"_s));
    opened.menu.MenusTick();
    QVERIFY(opened.menu.isVisible());
    // A nudge of the mouse between two keys does not take the menu away; leaving for good does.
    QCursor::setPos(opened.window.mapToGlobal(QPoint(7, 7)));
    QTest::keyClick(&opened.menu, Qt::Key_Down);
    opened.menu.MenusTick();
    QVERIFY(opened.menu.isVisible());
    QCursor::setPos(opened.window.mapToGlobal(QPoint(9, 9)));
    opened.menu.MenusTick();
    QVERIFY(!opened.menu.isVisible());
  }

  void StaysOnTheMonitor() {
    const QRect monitor = QGuiApplication::primaryScreen()->geometry();
    Opened opened;
    opened.Open(monitor.bottomRight());
    QVERIFY(monitor.contains(opened.menu.geometry()));
    QTest::keyClick(&opened.menu, 'c');
    QTest::keyClick(&opened.menu, Qt::Key_Right);
    QMenu* sub = opened.Row(u"Cherry"_s)->menu();
    QTRY_VERIFY(sub->isVisible());
    QVERIFY(monitor.contains(sub->geometry()));
    QVERIFY(sub->x() < opened.menu.x());

    QStringList pages;
    for (int i = 0; i < 200; ++i) pages.append(QString(i == 7 ? 100000 : 5, u'W'));
    opened.menu.MakeMenu(Entries(pages));
    opened.menu.OpenAt(QPoint(0, 0));
    QVERIFY(monitor.contains(opened.menu.geometry()));
    QTest::keyClick(&opened.menu, Qt::Key_Up);
    QVERIFY(opened.menu.rect().contains(opened.menu.actionGeometry(opened.menu.activeAction())));
  }

  void OneMenuAtATime() {
    Opened first;
    Opened second;
    first.Open();
    second.Open();
    QVERIFY(!first.menu.isVisible() && second.menu.isVisible());
    second.menu.MakeMenu({});
    second.menu.OpenAt(QPoint(50, 50));
    QVERIFY(!second.menu.isVisible());
  }

  void IsInTheAccessibleTree() {
    Opened opened;
    QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&opened.window);
    QCOMPARE(window->childCount(), 0);
    opened.Open();
    QCOMPARE(window->childCount(), 1);
    QAccessibleInterface* menu = window->child(0);
    QCOMPARE(menu->role(), QAccessible::PopupMenu);
    QCOMPARE(window->indexOfChild(menu), 0);
    QStringList seen;
    for (int i = 0; i < menu->childCount(); ++i) {
      const QAccessibleInterface* item = menu->child(i);
      if (item->role() != QAccessible::MenuItem) continue;
      const QAccessible::State state = item->state();
      seen.append(item->text(QAccessible::Name).trimmed() + (state.disabled ? u" greyed"_s : QString()) +
                  (item->childCount() == 1 ? u" opens"_s : QString()));
    }
    QCOMPARE(seen, QStringList({u"Apple"_s, u"Avocado"_s, u"Banana greyed"_s, u"Cherry opens"_s, u"Date & Fig"_s}));
    QAccessibleInterface* sub = QAccessible::queryAccessibleInterface(opened.Row(u"Cherry"_s)->menu());
    QVERIFY(sub->child(1)->state().checkable && sub->child(1)->state().checked);
    opened.menu.close();
    QCOMPARE(window->childCount(), 0);
  }
};

OMNI_TEST(TestMenuWindow)
#include "test_menu_window.moc"
