// SPDX-License-Identifier: GPL-3.0-or-later
// The location map in its window, on real picture files of all kinds.
#include <QDir>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>

#include "map_folder.h"
#include "maps/map_location_window.h"
#include "recording_menus.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

struct MapFixture : MapFolder {
  Program program;
  MapStore store{folder.path()};
  QWidget owner;
  RecordingMenus menus;
  QPointer<frmMapLoc> window;  // deletes itself when it is closed

  // Europe and the whole world, as large as the pictures that come with the program.
  void SaveBothMaps() const {
    Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    Save(u"World Map.jpg"_s, QSize(2800, 1412), Qt::green);
  }
  void Open() {
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), u"English"_s, 8, Program::ProgVersion(), program.language);
    program.lstMap = QDir(folder.filePath(u"maps"_s)).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    program.MapLeft = QList<int>(kMapOffsets, 1);
    program.MapTop = QList<int>(kMapOffsets, 1);
    program.config.MyLat = 52.5;
    program.config.MyLon = -1.25;
    owner.show();
  }
  void Pick(double lat, double lon) {
    if (!window) window = new frmMapLoc(program, store, menus, &owner);
    window->PickMapForTarget(u"ZZ1AA"_s, lat, lon);
    QTRY_VERIFY(window->isVisible());
  }
  MapView& View() const { return *window->findChild<MapView*>(); }
  QListView& Maps() const { return *window->findChild<QListView*>(u"lstMaps"_s); }
  QToolButton& Button() const { return *window->findChild<QToolButton*>(u"cmdMaps"_s); }
  // A choice in the list, from its opening to a key.
  void Choose(int row, Qt::Key key = Qt::Key_Return) const {
    QTest::mouseClick(&Button(), Qt::LeftButton);
    Maps().setCurrentIndex(Maps().model()->index(row, 0));
    QTest::keyClick(&Maps(), key);
  }
  // Returns when the store has read a picture; a window that asked for it before has got it.
  void ReadToTheEnd(const QString& name) {
    bool read = false;
    store.Read(name, &owner, [&read](const MapPicture&) { read = true; });
    QTRY_VERIFY(read);
  }
  QString Info() const { return window->findChild<QLabel*>(u"lblMapInfo1"_s)->text(); }
  QRect InScreen() const { return window->screen()->availableGeometry(); }
};

}  // namespace

class TestMapWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsTheTarget() {
    MapFixture f;
    f.SaveBothMaps();
    f.Open();
    f.Pick(48, 2);
    QCOMPARE(f.window->windowTitle(), u"Europe Map"_s);
    QCOMPARE(f.View().accessibleName(), u"Europe Map"_s);
    QCOMPARE(f.Info(), u"ZZ1AA  Dx 551 km  Az 153°"_s);
    // With its decoration no larger than the screen, and in the middle of it.
    QCOMPARE(f.window->frameGeometry().size(), QSize(1810, 1490).boundedTo(f.InScreen().size()));
    QCOMPARE(f.window->frameGeometry().center(), f.InScreen().center());
    const QRect label = f.View().LabelRect(0);
    QVERIFY(QRect(QPoint(0, 0), f.window->size()).contains(label.translated(f.View().pos())));
    // The frame is as high as the window, below its bar.
    QCOMPARE(f.View().size(), f.window->size());
    QCOMPARE(f.View().y(), f.window->findChild<QFrame*>(u"imgMenuBar"_s)->height());
    const QFrame* info = f.window->findChild<QFrame*>(u"picInfo"_s);
    QCOMPARE(info->y(), f.View().y() + 4);
    QCOMPARE(info->width(), info->findChild<QLabel*>()->sizeHint().width() + 40);
    // The map can be dragged through it.
    QCOMPARE(f.window->childAt(info->geometry().center()), &f.View());
    QCOMPARE(f.Button().accessibleName(), u"Maps Europe"_s);

    LoadLanguage(QStringLiteral(LANGUAGES_DIR), u"Russian"_s, 8, Program::ProgVersion(), f.program.language);
    f.window->ShowTexts();
    QCOMPARE(f.Info(), u"ZZ1AA  Dx 551 км  Az 153°"_s);
    QCOMPARE(f.View().Overlay().labels.last().text.trimmed(), u"Я"_s);

    // Larger letters on the desktop.
    QFont large = f.window->font();
    large.setPointSize(2 * large.pointSize());
    f.window->setFont(large);
    for (const MapOverlay::Label& shown : f.View().Overlay().labels) {
      QCOMPARE(shown.place.size(), f.View().LabelSize(shown.text));
    }
    QCOMPARE(f.View().y(), f.window->findChild<QFrame*>(u"imgMenuBar"_s)->sizeHint().height());

    // Closed and opened again for another station.
    QTest::keyClick(f.window.data(), Qt::Key_Escape);
    QTRY_VERIFY(f.window.isNull());
    f.Pick(-33.9, 18.4);
    QCOMPARE(f.window->windowTitle(), u"World Map"_s);
    QTest::mouseClick(f.window->findChild<QToolButton*>(u"cmdClose"_s), Qt::LeftButton);
    QTRY_VERIFY(f.window.isNull());
    f.Pick(48, 2);
    QCOMPARE(f.View().Picture().size(), QSize(1810, 1490));
    QCOMPARE(f.window->focusWidget(), &f.View());
  }

  // The window does not open again for a picture that was asked for just before it was closed.
  void ComesWhenItIsAskedFor() {
    MapFixture f;
    f.SaveBothMaps();
    f.Open();
    f.Pick(48, 2);
    f.Choose(1);
    QTest::keyClick(&f.View(), Qt::Key_Escape);
    QVERIFY(!f.window->isVisible());
    f.ReadToTheEnd(u"World Map.jpg"_s);
    QTRY_VERIFY(f.window.isNull());
    // Asked for anew, it opens; also from where it lies minimized.
    f.Pick(48, 2);
    QCOMPARE(f.window->windowTitle(), u"Europe Map"_s);
    f.window->showMinimized();
    QTRY_VERIFY(f.window->isMinimized());
    f.Pick(-33.9, 18.4);
    QTRY_COMPARE(f.window->windowTitle(), u"World Map"_s);
    QVERIFY(!f.window->isMinimized());
  }

  void ChoosesFromTheList() {
    MapFixture f;
    f.Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    f.Save(u"world map.GIF"_s, QSize(2800, 1412), Qt::green);
    f.Open();
    f.Pick(48, 2);
    QTest::mouseClick(f.window->findChild<QLabel*>(u"lblMaps"_s), Qt::LeftButton);
    QVERIFY(f.Maps().isVisible());
    QTest::keyClick(&f.Maps(), Qt::Key_Escape);
    QVERIFY(!f.Maps().isVisible() && f.window->isVisible());
    QCOMPARE(f.program.config.MapIndex, 0);
    QTest::mouseClick(&f.Button(), Qt::LeftButton);
    QTRY_VERIFY(f.Maps().hasFocus());
    f.View().setFocus();
    QVERIFY2(!f.Maps().isVisible(), "a list that is left closes");
    for (const bool open : {true, false}) {
      QTest::mouseClick(&f.Button(), Qt::LeftButton);
      QCOMPARE(f.Maps().isVisible(), open);
    }
    QVERIFY(f.View().hasFocus());
    // By keyboard, on any desktop.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
      f.Button().setFocus();
      QTest::keyClick(f.window->focusWidget(), key);
      QVERIFY(f.Maps().isVisible());
      QTest::keyClick(&f.Maps(), Qt::Key_Escape);
    }
    QTest::mouseClick(&f.Button(), Qt::LeftButton);
    QCOMPARE(f.Maps().model()->index(1, 0).data().toString(), u"world"_s);
    QCOMPARE(f.Maps().currentIndex().row(), 0);
    QTest::keyClick(&f.Maps(), Qt::Key_Down);
    QTest::keyClick(&f.Maps(), Qt::Key_Return);
    QVERIFY(!f.Maps().isVisible());
    QTRY_COMPARE(f.window->windowTitle(), u"world map"_s);
    QCOMPARE(f.program.config.MapIndex, 1);
    QCOMPARE(f.View().Picture().size(), QSize(2800, 1412));

    // Two choices in a row, the first to be read from the disk, the second at hand: the window keeps the second.
    f.Save(u"world map.GIF"_s, QSize(2801, 1412), Qt::blue);
    for (const int row : {1, 0}) f.Choose(row, Qt::Key_Space);
    f.ReadToTheEnd(u"world map.GIF"_s);
    QCOMPARE(f.window->windowTitle(), u"Europe Map"_s);
    QCOMPARE(f.View().Picture().width(), 1810);
  }

  void PopupLeadsToTheLookup() {
    MapFixture f;
    f.Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    f.Open();
    f.Pick(48, 2);
    QSignalSpy wanted(f.window.data(), &frmMapLoc::LookupWanted);
    QTest::mouseClick(&f.View(), Qt::LeftButton, {}, f.View().LabelRect(0).center());
    QCOMPARE(f.menus.wanted.size(), 1);
    QCOMPARE(f.menus.wanted.first().menu, MenuId::MapCall);
    QCOMPARE(f.menus.wanted.first().subject.caller, u"ZZ1AA"_s);
    QCOMPARE(f.menus.wanted.first().owner, f.window.data());
    f.window->MnuPopupClick(0);
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted.first().at(0).toString(), u"ZZ1AA"_s);
    QCOMPARE(wanted.first().at(1).toRect().topLeft(), f.View().mapToGlobal(f.View().LabelRect(0).topLeft()));
  }

  // Eleven maps: the offsets of the tenth and eleventh have no place, those of the others are kept.
  void StoresOffsets() {
    const auto check = [](const char* what, int index, bool stored) {
      const TableRow row(what);
      MapFixture f;
      for (int i = 10; i <= 20; ++i) f.Save(u"%1 Europe Map.jpg"_s.arg(i), QSize(3000, 200));
      f.Open();
      f.Pick(48, 2);
      f.Choose(index);
      QTRY_COMPARE(f.window->windowTitle(), u"%1 Europe Map"_s.arg(10 + index));
      QTest::keyClick(&f.View(), Qt::Key_Right);
      QVERIFY(f.View().Fit().place.x() < 0);
      QList<int> expected(kMapOffsets, 1);
      if (stored) expected[index] = f.View().Fit().place.x();
      QCOMPARE(f.program.MapLeft, expected);
      QCOMPARE(f.program.MapTop, QList<int>(kMapOffsets, 1));  // it cannot be dragged up or down
    };
    check("first", 0, true);
    check("ninth", 8, true);
    check("tenth", 9, false);
    check("eleventh", 10, false);
  }

  // The frame is as high as the window and begins below the bar: its last 25 rows are never seen, and a station near
  // the picture's lower edge is moved up by as many.
  void DragsFromTheLowerEdge() {
    MapFixture f;
    f.Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    f.Open();
    f.Pick(31, 20);
    const QPoint before = f.View().Fit().place;
    QCOMPARE(before.y(), f.View().height() - 1490 - 25);
    QVERIFY(before.x() < -20 && before.x() > f.View().width() - 1790);
    const QPoint start(300, 100);
    const QPoint end = start + QPoint(20, 60);
    QTest::mousePress(&f.View(), Qt::LeftButton, {}, start);
    QMouseEvent move(QEvent::MouseMove, end, f.View().mapToGlobal(end), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.View(), &move);
    QCOMPARE(f.View().Fit().place, before + QPoint(20, 60));
    QCOMPARE(f.program.MapLeft.at(0), before.x() + 20);
    QCOMPARE(f.program.MapTop.at(0), before.y() + 60);
    QTest::mouseRelease(&f.View(), Qt::LeftButton, {}, end);
    // A window of another size shows the place that it was dragged to.
    f.window->resize(f.window->width() - 100, f.window->height() - 60);
    QCOMPARE(f.View().Fit().place, before + QPoint(20 - 50, 60 - 30));
    // Opened again, the map shows its station, not the place that it was dragged to.
    f.Pick(31, 20);
    QTRY_COMPARE(f.View().Fit().place, before);
  }

  void WithoutMaps() {
    MapFixture f;
    f.Open();
    f.Pick(48, 2);
    QCOMPARE(f.window->windowTitle(), u"Omni-Perch  Maps"_s);
    QVERIFY(f.View().Picture().isNull());
    QCOMPARE(f.Info(), u"ZZ1AA  Dx 551 km  Az 153°"_s);
    QTest::mouseClick(&f.Button(), Qt::LeftButton);
    QTest::keyClick(&f.View(), Qt::Key_Right);
    QVERIFY(f.View().Overlay().labels.isEmpty());
  }

  // A file that cannot be read: the title names its map, the former picture stays, and nothing is marked on that.
  void BadFileLeavesThePicture() {
    MapFixture f;
    f.Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    f.Write(u"World Map.jpg"_s, "no picture");
    f.Open();
    f.Pick(48, 2);
    QTest::keyClick(&f.View(), Qt::Key_Left);
    const QList<int> offsets = f.program.MapLeft;
    f.Pick(-33.9, 18.4);
    QTRY_COMPARE(f.window->windowTitle(), u"World Map"_s);
    QCOMPARE(f.View().PictureSize(), QSize(1810, 1490));
    QCOMPARE(f.Info(), u"ZZ1AA  Dx 9,769 km  Az 163°\nWorld Map.jpg cannot be read"_s);
    QVERIFY(f.View().Labels().isEmpty() && f.View().Overlay().circles.isEmpty());
    QTest::keyClick(&f.View(), Qt::Key_Left);
    QCOMPARE(f.program.MapLeft, offsets);
    f.Pick(48, 2);
    QCOMPARE(f.Info(), u"ZZ1AA  Dx 551 km  Az 153°"_s);
    QCOMPARE(f.View().Labels().size(), 2);
    // A window that is larger than its picture shows it in the middle.
    f.Save(u"World Map.jpg"_s, QSize(20, 10));
    f.window->close();
    QTRY_VERIFY(f.window.isNull());
    f.Pick(-33.9, 18.4);
    QTRY_COMPARE(f.View().PictureSize(), QSize(20, 10));
    QCOMPARE(f.View().picInner().center().x(), (f.window->width() - 1) / 2);
    QVERIFY(f.window->width() >= 300);
  }

  // A map of more pixels than are held in memory is drawn as large as its header says, so that marks lie right.
  void HugeMap() {
    MapFixture f;
    QImage huge(6000, 5600, QImage::Format_Grayscale8);
    huge.fill(90);
    for (int y = 2800; y < 5600; ++y) std::fill_n(huge.scanLine(y) + 3000, 3000, uchar(200));
    QVERIFY(huge.save(f.folder.filePath(u"maps/Europe Map.jpg"_s), "JPG"));
    f.Open();
    f.Pick(48, 2);
    QCOMPARE(f.View().picInner().size(), QSize(6000, 5600));
    QVERIFY(f.View().Picture().width() < 6000);
    // The corner of the light quarter, in the middle of the map.
    MapLayer layer;
    layer.SetStyle({QFont(), Qt::gray, Qt::yellow, Qt::black, 1});
    layer.SetPicture(f.View().Picture(), f.View().PictureSize());
    const QImage frame = layer.Frame(QSize(200, 200), QPoint(-2900, -2700));
    QVERIFY(qGray(frame.pixel(96, 96)) < 100 && qGray(frame.pixel(104, 96)) < 100 && qGray(frame.pixel(96, 104)) < 100);
    QVERIFY(qGray(frame.pixel(104, 104)) > 190);
  }

  // Names of files are as long as their user likes.
  void LongNames() {
    MapFixture f;
    const QString name = QString(240, u'W') + u" Europe Map.jpg"_s;
    f.Save(name, QSize(1810, 1490));
    f.Open();
    f.Pick(48, 2);
    f.window->resize(500, 300);
    QTest::mouseClick(&f.Button(), Qt::LeftButton);
    QVERIFY(f.window->rect().contains(f.Maps().geometry()));
    QTRY_VERIFY(f.Button().mapTo(f.window, f.Button().rect().bottomRight()).x() < 300);
    const auto* cmdClose = f.window->findChild<QToolButton*>(u"cmdClose"_s);
    QVERIFY(f.window->rect().contains(cmdClose->mapTo(f.window, cmdClose->rect().bottomRight())));
    QVERIFY(f.Button().accessibleName().contains(name.left(240)));
  }
};

OMNI_TEST(TestMapWindow)
#include "test_map_window.moc"
