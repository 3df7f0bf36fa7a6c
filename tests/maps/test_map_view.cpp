// SPDX-License-Identifier: GPL-3.0-or-later
// The view of a map: panned by mouse and keys, its labels pressed by all means, its pixels right after every step.
#include <QAccessible>
#include <QMouseEvent>
#include <QPushButton>
#include <QSemaphore>
#include <QThreadPool>
#include <QWheelEvent>

#include "maps/map_line.h"
#include "maps/map_view.h"
#include "plain_picture.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// No two pixels near each other are alike.
QImage Pattern(const QSize& size) {
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) image.setPixel(x, y, qRgb(x % 251, y % 241, (x * 7 + y * 13) % 256));
  }
  return image;
}

MapOverlay::Label Label(const QString& name, const QPointF& place, bool clickable) {
  MapOverlay::Label label;
  label.name = name;
  label.text = name + u"\r\n text"_s;
  label.place = QRectF(place, QSizeF(80, 40));
  label.clickable = clickable;
  return label;
}

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

  // Panned in all directions, the frame has the same pixels as one that is painted anew at the same place.
  void PannedPixels() {
    const auto check = [](const char* what, double ratio, QSize picture, QSize pixels) {
      const TableRow row(what);
      MapOverlay overlay;
      for (int i = 0; i < 12; ++i) {
        overlay.lines.append({{70.0 * i, 0}, {900.0 - 70 * i, 650}, QColor(0, 0, 255), 2});
        overlay.circles.append({{70.0 * i, 300}, 12, QColor(200, 0, 0), 3, i % 2 == 0});
        overlay.labels.append(Label(u"label"_s, {80.0 * i, 55.0 * i}, true));
      }
      const auto layer = [&](MapLayer& made) {
        made.SetStyle({QFont(), QColor(Qt::gray), QColor(Qt::yellow), QColor(Qt::black), ratio});
        made.SetPicture(Pattern(pixels), picture);
        made.SetOverlay(overlay);
      };
      MapLayer walked;
      layer(walked);
      walked.Prepare(QSize(450, 350));
      walked.Frame(QSize(420, 310), QPoint(-3, -3));  // of another size before
      for (const QPoint& place : {QPoint(-250, -200), QPoint(-290, -200), QPoint(-210, -160), QPoint(-217, -431),
                                  QPoint(30, 20), QPoint(-1, -1), QPoint(-37, 0)}) {
        const QSize size = QSize(400, 300) * ratio;
        const QImage frame = walked.Frame(QSize(400, 300), place).copy(QRect(QPoint(0, 0), size));
        MapLayer fresh;
        layer(fresh);
        const QImage whole = fresh.Frame(QSize(400, 300), place);
        int unlike = 0;
        QCOMPARE(whole.size(), size);
        for (int y = 0; y < frame.height(); ++y) {
          const auto* one = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
          const auto* other = reinterpret_cast<const QRgb*>(whole.constScanLine(y));
          // Rounding may differ by a shade where a line or a ring begins at the edge of the part that was drawn anew.
          for (int x = 0; x < frame.width(); ++x) {
            unlike += std::abs(qRed(one[x]) - qRed(other[x])) > 8 || std::abs(qGreen(one[x]) - qGreen(other[x])) > 8 ||
                      std::abs(qBlue(one[x]) - qBlue(other[x])) > 8;
          }
        }
        QCOMPARE(unlike, 0);
      }
    };
    check("plain", 1.0, {900, 700}, {900, 700});
    check("sharp screen", 2.0, {900, 700}, {900, 700});
    check("smaller than its frame", 1.0, {120, 90}, {120, 90});
    check("narrow", 1.0, {120, 700}, {120, 700});
    check("read with fewer pixels", 1.0, {900, 700}, {562, 437});
  }

  // No label's box hides the mark that it belongs to, and no mark hides the text of a label.
  void MarksLieOnBoxes() {
    MapOverlay overlay;
    overlay.labels = {Label(u"label"_s, {20, 20}, false)};
    overlay.labels.first().box = QRectF(18, 18, 86, 66);
    overlay.labels.first().boxColour = Qt::green;
    const auto painted = [&overlay](const QColor& text) {
      MapLayer layer;
      layer.SetStyle({QFont(), QColor(Qt::gray), QColor(Qt::yellow), text, 1});
      layer.SetPicture(Pattern(QSize(200, 150)), QSize(200, 150));
      layer.SetOverlay(overlay);
      return layer.Frame(QSize(200, 150), QPoint(0, 0)).copy();
    };
    overlay.circles = {{{60, 84}, 4, QColor(0, 0, 255), 4, false}};
    const QImage rim = painted(Qt::black);
    QCOMPARE(rim.pixelColor(60, 80), QColor(0, 0, 255));
    QCOMPARE(rim.pixelColor(30, 84), QColor(Qt::green));
    overlay.circles = {{{60, 40}, 60, QColor(0, 0, 255), 0, true}};
    QCOMPARE_GT(Brightest(painted(Qt::white), QRect(20, 20, 80, 40)), 200);
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

  // A busy band, with a second thread at hand and without: each tile as if the whole frame had been drawn at once.
  void ManyLines() {
    const QSize size(1100, 600);
    MapOverlay overlay;
    QImage expected(size, QImage::Format_RGB32);
    expected.fill(Qt::white);
    const QImage white = expected;
    MapLineCanvas canvas(expected, expected.rect());
    for (int i = 0; i < 2400; ++i) {
      const QPointF from(i * 7 % 1100, i * 13 % 600);
      const QPointF to((i * 31 + 700) % 1100, (i * 17 + 300) % 600);
      const QColor colour(i % 200, i * 3 % 200, i * 7 % 200);
      overlay.lines.append({from, to, colour, 2});
      canvas.Draw(from, to, {colour.rgba(), 2, false});
    }
    QThreadPool* pool = QThreadPool::globalInstance();
    const auto restored = qScopeGuard([pool, most = pool->maxThreadCount()]() { pool->setMaxThreadCount(most); });
    for (const bool busy : {false, true}) {
      pool->setMaxThreadCount(busy ? 1 : 2);
      QSemaphore gate;
      if (busy) pool->start([&gate]() { gate.acquire(); });
      MapLayer layer;
      layer.SetPicture(white, size);
      layer.SetOverlay(overlay);
      const QImage frame = layer.Frame(size, QPoint(0, 0)).copy(QRect(QPoint(0, 0), size));
      gate.release();
      pool->waitForDone();
      QCOMPARE(frame, expected);
    }
  }

  // A desktop that turns dark while a map is open: labels that have a colour of their own keep it, with readable text.
  void TakesTheLook() {
    MapLayer layer;
    layer.SetPicture(Pattern(QSize(200, 150)), QSize(200, 150));
    MapOverlay overlay;
    overlay.labels = {Label(u"plain"_s, {10, 10}, false), Label(u"own"_s, {100, 10}, false)};
    overlay.labels.last().back = Qt::black;
    layer.SetOverlay(overlay);
    const auto colours = [&layer](const QColor& tip) {
      layer.SetStyle({QFont(), QColor(Qt::gray), tip, QColor(Qt::red), 1});
      const QImage frame = layer.Frame(QSize(200, 150), QPoint(0, 0));
      const bool white = Brightest(frame, QRect(100, 10, 80, 40)) > 200;
      return frame.pixelColor(11, 11).name() + frame.pixelColor(101, 11).name() + (white ? u" white"_s : QString());
    };
    QCOMPARE(colours(Qt::yellow), u"#ffff00#000000 white"_s);
    QCOMPARE(colours(Qt::darkBlue), u"#000080#000000 white"_s);
  }

  void LinesThatCanBeSeenThrough() {
    for (const bool smooth : {false, true}) {
      QImage image(20, 20, QImage::Format_RGB32);
      image.fill(Qt::white);
      MapLineCanvas(image, image.rect()).Draw({2, 10}, {18, 10}, {qRgba(0, 0, 0, 127), 2, smooth});
      QVERIFY(std::abs(qGray(image.pixel(10, 10)) - 128) <= 2);
    }
  }

  // How many pixels a line covers, and that it keeps to its clip.
  void Lines() {
    const auto check = [](const char* what, QPointF from, QPointF to, double width, double covered) {
      const TableRow row(what);
      const QRect clip(2, 2, 96, 96);
      for (const bool smooth : {false, true}) {
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Qt::white);
        MapLineCanvas(image, clip).Draw(from, to, {qRgb(0, 0, 0), width, smooth});
        double ink = 0;
        for (int y = 0; y < 100; ++y) {
          for (int x = 0; x < 100; ++x) {
            const double dark = (255 - qGray(image.pixel(x, y))) / 255.0;
            ink += dark;
            QVERIFY(dark == 0 || clip.contains(x, y));
          }
        }
        QVERIFY2(std::abs(ink - covered) <= (smooth ? 3 : 50), qPrintable(QString::number(ink)));
      }
    };
    check("level", {10, 50}, {90, 50}, 2.0, 160.0);
    check("upright, backwards", {50, 90}, {50, 10}, 2.0, 160.0);
    check("slanted", {10, 20}, {90, 80}, 2.0, 200.0);
    check("diagonal", {20, 80}, {80, 20}, 2.0, 169.7);
    check("through all of it", {-1e9, 50}, {1e9, 50}, 2.0, 192.0);
    check("steep from far off", {50, -2147483648.0}, {50, 2147483647.0}, 2.0, 192.0);
    check("wide, along the edge", {10, 4}, {90, 4}, 8.0, 480.0);
    check("beside it", {-10, -50}, {-10, 150}, 2.0, 0.0);
    check("no length", {50, 50}, {50, 50}, 2.0, 0.0);
    check("no number", {qQNaN(), 50}, {50, 50}, 2.0, 0.0);
    check("no end", {-qInf(), 50}, {50, 50}, 2.0, 0.0);
  }
};

OMNI_TEST(TestMapView)
#include "test_map_view.moc"
