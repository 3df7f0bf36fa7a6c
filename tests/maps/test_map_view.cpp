// SPDX-License-Identifier: GPL-3.0-or-later
// The view of a map: panned by mouse and keys, its labels pressed by all means.
#include <QAccessible>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolTip>
#include <QWheelEvent>

#include "map_pattern.h"
#include "maps/map_view.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// A window of 400x300 whose view begins 25 pixels below its top, with a map of 900x700 at (-250, -200).
struct Shown {
  QWidget window;
  QPushButton before{&window};
  MapView* view = new MapView(&window);
  QPushButton after{&window};
  QSignalSpy panned{view, &MapView::Panned};
  QSignalSpy clicked{view, &MapView::LabelClicked};

  Shown() {
    window.resize(400, 300);
    before.setGeometry(0, 0, 10, 10);
    after.setGeometry(20, 0, 10, 10);
    view->SetPicture(Pattern(QSize(900, 700)), QSize(900, 700));
    view->FitMapToWindow(window.size(), 25);
    MapOverlay overlay;
    overlay.labels = {Label(u"first"_s, {300, 250}, true), Label(u"fixed"_s, {450, 250}, false),
                      Label(u"far"_s, {800, 600}, true)};
    view->SetOverlay(overlay);
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window)) qWarning("the window did not become active");
    view->setFocus();
  }
  QPoint Place() const { return view->Fit().place; }
  QString Clicked() const {
    QStringList names;
    for (const QList<QVariant>& click : clicked) names.append(click.at(0).toString() + u' ' + click.at(2).toString());
    return names.join(u", "_s);
  }
  void Move(const QPoint& to, Qt::MouseButtons buttons) const {
    QMouseEvent move(QEvent::MouseMove, to, view->mapToGlobal(to), Qt::NoButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(view, &move);
  }
  QAccessibleInterface* Access() const { return QAccessible::queryAccessibleInterface(view); }
};

}  // namespace

class TestMapView : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Drags() {
    Shown shown;
    QCOMPARE(shown.Place(), QPoint(-250, -200));
    QTest::mousePress(shown.view, Qt::LeftButton, {}, QPoint(200, 150));
    QCOMPARE(shown.view->cursor().shape(), Qt::ClosedHandCursor);
    shown.Move(QPoint(230, 140), Qt::LeftButton);
    QCOMPARE(shown.Place(), QPoint(-220, -210));
    // Too far to the right: that direction stays, and follows the pointer again once it is back.
    shown.Move(QPoint(500, 130), Qt::LeftButton);
    QCOMPARE(shown.Place(), QPoint(-220, -220));
    shown.Move(QPoint(201, 130), Qt::LeftButton);
    QCOMPARE(shown.Place(), QPoint(-249, -220));
    QCOMPARE(shown.panned.last(), (QList<QVariant>{-249, -220}));
    QTest::mouseRelease(shown.view, Qt::LeftButton, {}, QPoint(201, 130));
    shown.Move(QPoint(250, 150), Qt::NoButton);
    QCOMPARE(shown.Place(), QPoint(-249, -220));
    QCOMPARE(shown.panned.size(), 3);
    QTest::mousePress(shown.view, Qt::RightButton, {}, QPoint(200, 150));
    shown.Move(QPoint(230, 140), Qt::RightButton);
    QCOMPARE(shown.Place(), QPoint(-249, -220));
  }

  void Keys() {
    const auto check = [](const char* what, Qt::Key key, Qt::KeyboardModifiers modifiers, QPoint place) {
      const TableRow row(what);
      Shown shown;
      shown.view->SetHome(QPointF(100, 500), 25);
      QTest::keyClick(shown.view, key, modifiers);
      if (key == Qt::Key_Down) QTest::keyClick(shown.view, key, modifiers);
      QCOMPARE(shown.Place(), place);
      QCOMPARE(shown.panned.last(), (QList<QVariant>{shown.Place().x(), shown.Place().y()}));
    };
    check("right", Qt::Key_Right, {}, {-290, -200});
    check("left", Qt::Key_Left, {}, {-210, -200});
    check("up, fast", Qt::Key_Up, Qt::ShiftModifier, {-250, 0});
    // 25 rows of the frame lie below the window's edge.
    check("down, a page", Qt::Key_Down, Qt::ControlModifier, {-250, -425});
    check("home", Qt::Key_Home, {}, {0, -350});
  }

  void Wheel() {
    const auto check = [](const char* what, QPoint pixels, QPoint angle, bool shift, QPoint place) {
      const TableRow row(what);
      Shown shown;
      QWheelEvent wheel(QPointF(200, 150), shown.view->mapToGlobal(QPointF(200, 150)), pixels, angle, Qt::NoButton,
                        shift ? Qt::ShiftModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(shown.view, &wheel);
      QCOMPARE(shown.Place(), place);
      QCOMPARE(shown.panned.size(), 1);
    };
    check("a notch", {}, {0, 120}, false, {-250, -160});
    check("a notch sideways", {}, {0, -120}, true, {-290, -200});
    check("touch pad", {7, -9}, {56, -72}, false, {-243, -209});
  }

  void LabelsAreClicked() {
    Shown shown;
    const QPoint first = shown.view->LabelRect(0).center();
    QCOMPARE(first, QPoint(89, 69));
    QTest::mouseClick(shown.view, Qt::LeftButton, {}, first);
    QCOMPARE(shown.Clicked(), u"first false"_s);
    // Neither a press that ends elsewhere, nor one on a plain label, nor one on the map.
    QTest::mousePress(shown.view, Qt::LeftButton, {}, first);
    QTest::mouseRelease(shown.view, Qt::LeftButton, {}, first + QPoint(100, 0));
    QTest::mouseClick(shown.view, Qt::LeftButton, {}, shown.view->LabelRect(1).center());
    QTest::mouseClick(shown.view, Qt::LeftButton, {}, QPoint(300, 200));
    QCOMPARE(shown.clicked.size(), 1);
    shown.Move(first, Qt::NoButton);
    QCOMPARE(shown.view->cursor().shape(), Qt::PointingHandCursor);
    shown.Move(QPoint(300, 200), Qt::NoButton);
    QCOMPARE(shown.view->cursor().shape(), Qt::OpenHandCursor);
  }

  // A crowded map has few places without a label: from one the map can be dragged too, and that is no click.
  void DragsFromALabel() {
    Shown shown;
    const QPoint first = shown.view->LabelRect(0).center();
    QTest::mousePress(shown.view, Qt::LeftButton, {}, first);
    shown.Move(first + QPoint(2, 2), Qt::LeftButton);
    QCOMPARE(shown.Place(), QPoint(-250, -200));
    shown.Move(first + QPoint(40, 30), Qt::LeftButton);
    QCOMPARE(shown.Place(), QPoint(-210, -170));
    QTest::mouseRelease(shown.view, Qt::LeftButton, {}, first + QPoint(40, 30));
    QCOMPARE(shown.clicked.size(), 0);
  }

  // A refresh in which stations come and go moves neither the keyboard's focus nor what the pointer rests on, and does
  // not swallow a click.
  void StaysAtTheCallOverARedraw() {
    Shown shown;
    QSignalSpy pointed(shown.view, &MapView::LabelPointed);
    MapOverlay overlay = shown.view->Overlay();
    overlay.labels[2].id = u"ZZ1AA"_s;
    shown.view->SetOverlay(overlay);
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QCOMPARE(shown.view->FocusedLabel(), 2);
    QCOMPARE(pointed.last().first().toLongLong(), 2);
    overlay.labels.removeFirst();
    shown.view->SetOverlay(overlay);
    QCOMPARE(shown.view->FocusedLabel(), 1);
    QCOMPARE(pointed.last().first().toLongLong(), 1);
    const QPoint at = shown.view->LabelRect(1).center();
    QTest::mousePress(shown.view, Qt::LeftButton, {}, at);
    overlay.labels.removeFirst();
    shown.view->SetOverlay(overlay);
    QTest::mouseRelease(shown.view, Qt::LeftButton, {}, at);
    QCOMPARE(shown.Clicked(), u"far false"_s);
    overlay.labels.clear();
    shown.view->SetOverlay(overlay);
    QCOMPARE(pointed.last().first().toLongLong(), -1);
  }

  // Tips are a stranger's words, shown as they stand; a label without room for its text tells that first.
  void Tips() {
    Shown shown;
    MapOverlay overlay = shown.view->Overlay();
    overlay.labels[0].tip = u"<b>599</b>"_s;
    overlay.labels[2].dot = true;
    overlay.labels[2].tip = u"heard"_s;
    shown.view->SetOverlay(overlay);
    const QPoint first = shown.view->LabelRect(0).center();
    QHelpEvent help(QEvent::ToolTip, first, shown.view->mapToGlobal(first));
    QCoreApplication::sendEvent(shown.view, &help);
    QVERIFY(QToolTip::text().contains("&lt;b&gt;599"_L1));
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QCOMPARE(QToolTip::text(), u"far\r\n text\nheard"_s);
    QCOMPARE(shown.Access()->child(2)->text(QAccessible::Description), u"heard"_s);
  }

  void TellsThePointUnderThePointer() {
    Shown shown;
    QSignalSpy pointer(shown.view, &MapView::PointerMoved);
    shown.Move(QPoint(10, 20), Qt::NoButton);
    QCOMPARE(pointer.last().first().value<std::optional<QPointF>>(), QPointF(260, 220));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(shown.view, &leave);
    QCOMPARE(pointer.last().first().value<std::optional<QPointF>>(), std::nullopt);
  }

  void LabelsAreReachedByTab() {
    Shown shown;
    QTest::keyClick(shown.view, Qt::Key_Return);
    QCOMPARE(shown.Clicked(), QString());
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QTest::keyClick(shown.view, Qt::Key_Return);
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QTest::keyClick(shown.view, Qt::Key_Space);
    QCOMPARE(shown.Clicked(), u"first true, far true"_s);
    // The far label has come into view, above the 25 rows of the frame that lie below the window's edge.
    QVERIFY(QRect(0, 0, 400, 275).contains(shown.view->LabelRect(2)));
    QTest::keyClick(shown.view, Qt::Key_Backtab);
    QCOMPARE(shown.view->FocusedLabel(), 0);
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QVERIFY(!shown.view->hasFocus());
    QCOMPARE(shown.view->FocusedLabel(), -1);
    // Back from behind the view its last label comes first; its menu takes the focus and gives it back.
    QTest::keyClick(&shown.after, Qt::Key_Backtab);
    QCOMPARE(shown.view->FocusedLabel(), 2);
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(shown.view, &menu);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(200, 150), shown.view->mapToGlobal(QPoint(200, 150)));
    QCoreApplication::sendEvent(shown.view, &key);
    QCOMPARE(shown.Clicked(), u"first true, far true, far true"_s);
    shown.after.setFocus(Qt::TabFocusReason);
    // One far off the map can be pressed, and moves nothing.
    MapOverlay far;
    far.labels = {Label(u"lost"_s, {-2147483648.0, 2147483647.0}, true)};
    shown.view->SetOverlay(far);
    const QPoint place = shown.Place();
    shown.view->setFocus();
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QTest::keyClick(shown.view, Qt::Key_Return);
    QCOMPARE(shown.clicked.last().at(0).toString(), u"lost"_s);
    QCOMPARE(shown.Place(), place);
    // A new map without that label takes the focus off it.
    QCOMPARE(shown.view->FocusedLabel(), 0);
    shown.view->SetOverlay({});
    QCOMPARE(shown.view->FocusedLabel(), -1);
  }

  void Accessibility() {
    Shown shown;
    shown.view->setAccessibleName(u"Europe Map"_s);
    QAccessibleInterface* map = shown.Access();
    QVERIFY(map != nullptr);
    QCOMPARE(map->text(QAccessible::Name), u"Europe Map"_s);
    QCOMPARE(map->childCount(), 3);
    QAccessibleInterface* first = map->child(0);
    QCOMPARE(first->text(QAccessible::Name), u"first text"_s);
    QCOMPARE(first->role(), QAccessible::Button);
    QCOMPARE(map->child(1)->role(), QAccessible::StaticText);
    QVERIFY(map->child(1)->actionInterface()->actionNames().isEmpty());
    QCOMPARE(map->indexOfChild(map->child(2)), 2);
    QVERIFY(map->child(2)->state().offscreen);
    QCOMPARE(first->rect().topLeft(), shown.view->mapToGlobal(QPoint(50, 50)));
    QCOMPARE(map->childAt(first->rect().center().x(), first->rect().center().y()), first);
    first->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(shown.Clicked(), u"first true"_s);
    // Where the focus is.
    QCOMPARE(map->focusChild(), map);
    QVERIFY(!first->state().focused && first->state().focusable && !map->child(1)->state().focusable);
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QCOMPARE(map->focusChild(), first);
    QVERIFY(first->state().focused && !map->child(2)->state().focused);
    shown.view->SetOverlay({});
    QCOMPARE(map->childCount(), 0);
    QVERIFY(!first->isValid());
    QVERIFY(first->rect().isEmpty());
  }

  // A window made larger and smaller again comes back to where the user has moved the map.
  void ResizingKeepsThePan() {
    Shown shown;
    const QPoint panned = shown.Place() + QPoint(-40, 40);
    QTest::keyClick(shown.view, Qt::Key_Right);
    QTest::keyClick(shown.view, Qt::Key_Up);
    QCOMPARE(shown.Place(), panned);
    const auto resize = [&shown](int width, int height) {
      shown.window.resize(width, height);
      shown.view->FitMapToWindow(shown.window.size(), 25);
    };
    for (int width = 400; width <= 520; ++width) resize(width, 300 + (width - 400) / 2);
    QCOMPARE(shown.Place(), panned + QPoint(60, 30));  // the same point in the middle
    resize(1000, 800);
    QCOMPARE(shown.Place(), QPoint(50, 50));
    resize(400, 300);
    QCOMPARE(shown.Place(), panned);
    // Another map, or another station, begins anew.
    shown.view->SetHome(QPointF(100, 500), 25);
    resize(401, 300);
    QCOMPARE(shown.Place(), QPoint(0, -350));
  }
};

OMNI_TEST(TestMapView)
#include "test_map_view.moc"
