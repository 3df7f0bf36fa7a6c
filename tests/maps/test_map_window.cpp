// SPDX-License-Identifier: GPL-3.0-or-later
// The location map in its window, on real picture files of all kinds.
#include <QDir>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "maps/map_location_window.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

struct MapFolder {
  QTemporaryDir folder;
  MapFolder() { QDir(folder.path()).mkpath(u"maps"_s); }  // the letter case is the user's

  void Save(const QString& name, const QSize& size, const QColor& colour = Qt::cyan, const char* type = "JPG") const {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    if (!picture.save(folder.filePath(u"maps/"_s + name), type, 90)) qFatal("no picture saved");
  }
  void Write(const QString& name, const QByteArray& bytes) const {
    QFile file(folder.filePath(u"maps/"_s + name));
    if (!file.open(QIODevice::WriteOnly)) qFatal("no file written");
    file.write(bytes);
  }
};

struct MapFixture : MapFolder {
  Program program;
  MapStore store{folder.path()};
  QWidget owner;
  std::unique_ptr<frmMapLoc> window;

  void Open() {
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), u"English"_s, 8, Program::ProgVersion(), program.language);
    program.lstMap = QDir(folder.filePath(u"maps"_s)).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    program.MapLeft = QList<int>(kMapOffsets, 1);
    program.MapTop = QList<int>(kMapOffsets, 1);
    program.config.MyLat = 52.5;
    program.config.MyLon = -1.25;
    program.config.CallbookName = u"eHam"_s;
    window = std::make_unique<frmMapLoc>(program, store, &owner);
    owner.show();
  }
  void Pick(double lat, double lon) {
    program.TargetLat = lat;
    program.TargetLon = lon;
    window->PickMapForTarget(u"ZZ1AA"_s);
    QTRY_VERIFY(window->isVisible());
  }
  MapView& View() const { return *window->findChild<MapView*>(); }
  QListWidget& Maps() const { return *window->findChild<QListWidget*>(u"lstMaps"_s); }
  QString Info() const { return window->findChild<QLabel*>(u"lblMapInfo1"_s)->text(); }
  QRect InScreen() const { return window->screen()->availableGeometry(); }
};

}  // namespace

class TestMapWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Pictures_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");  // as read; empty: none
    QTest::newRow("picture") << u"Europe Map.jpg"_s << QSize(300, 200);
    QTest::newRow("any letter case") << u"EUROPE map.JPG"_s << QSize(300, 200);
    QTest::newRow("of another type than its name") << u"Asia Map.jpg"_s << QSize(40, 30);
    QTest::newRow("one pixel, a gif") << u"Tiny Map.gif"_s << QSize(1, 1);
    QTest::newRow("cut off") << u"Cut Map.jpg"_s << QSize(300, 200);
    QTest::newRow("missing") << u"Moon Map.jpg"_s << QSize();
    QTest::newRow("broken") << u"Broken Map.jpg"_s << QSize();
    QTest::newRow("empty") << u"Empty Map.jpg"_s << QSize();
    QTest::newRow("folder") << u"Folder Map.jpg"_s << QSize();
    QTest::newRow("too many pixels") << u"Huge Map.jpg"_s << QSize();
    QTest::newRow("too wide") << u"Wide Map.jpg"_s << QSize();
    QTest::newRow("no name") << QString() << QSize();
  }

  void Pictures() {
    QFETCH(QString, name);
    MapFolder files;
    files.Save(u"Europe Map.jpg"_s, QSize(300, 200));
    files.Save(u"Asia Map.jpg"_s, QSize(40, 30), Qt::red, "PNG");
    QImage huge(8000, 8000, QImage::Format_Mono);
    huge.fill(0);
    huge.save(files.folder.filePath(u"maps/Huge Map.jpg"_s), "PNG");
    files.Save(u"Wide Map.jpg"_s, QSize(33000, 2));
    files.Write(u"Tiny Map.gif"_s,
                QByteArray::fromHex("47494638396101000100800000ff000000000021f90401000000002c00000000"
                                    "010001000002024401003b"));
    files.Write(u"Broken Map.jpg"_s, QByteArray(5000, 'x'));
    files.Write(u"Empty Map.jpg"_s, QByteArray());
    QFile whole(files.folder.filePath(u"maps/Europe Map.jpg"_s));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    files.Write(u"Cut Map.jpg"_s, whole.readAll().chopped(100));
    QDir(files.folder.path()).mkpath(u"maps/Folder Map.jpg"_s);

    MapStore store(files.folder.path());
    std::optional<QImage> read;
    store.Read(name, this, [&read](const QImage& picture) { read = picture; });
    QTRY_VERIFY(read.has_value());
    QTEST(read->isNull() ? QSize() : read->size(), "size");
    if (!read->isNull()) QCOMPARE(read->format(), QImage::Format_RGB32);
  }

  void KeepsTheLastTwo() {
    MapFolder files;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s}) files.Save(name, QSize(30, 20));
    MapStore store(files.folder.path());
    const auto atOnce = [this, &store](const QString& name) {
      bool now = true;
      bool answered = false;
      QColor colour;
      bool inTime = false;
      store.Read(name, this, [&](const QImage& picture) {
        inTime = now;
        answered = true;
        colour = picture.pixelColor(3, 3);
      });
      now = false;
      return QTest::qWaitFor([&answered]() { return answered; }) ? (inTime ? u"kept "_s : u"read "_s) + colour.name()
                                                                 : QString();
    };
    QStringList answers;
    for (const QString& name : {u"a"_s, u"b"_s, u"a"_s, u"c"_s, u"a"_s, u"b"_s}) answers.append(atOnce(name).left(4));
    QCOMPARE(answers.join(u' '), u"read read kept read kept read"_s);
    // The user has put another picture in its place.
    files.Save(u"a"_s, QSize(31, 20), Qt::black);
    QCOMPARE(atOnce(u"a"_s), u"read #000000"_s);
    QCOMPARE(atOnce(u"a"_s), u"kept #000000"_s);
    // Twice in a row: the one before does not take the place of another map.
    files.Save(u"a"_s, QSize(32, 20), Qt::white);
    QCOMPARE(atOnce(u"a"_s), u"read #ffffff"_s);
    QVERIFY(atOnce(u"b"_s).startsWith(u"kept"));

    bool called = false;
    {
      QObject gone;
      store.Read(u"c"_s, &gone, [&called](const QImage&) { called = true; });
    }
    QVERIFY(QTest::qWaitFor([&]() { return atOnce(u"c"_s).startsWith(u"kept"); }));
    QVERIFY(!called);
  }

  void KeepsOneHugePicture() {
    MapFolder files;
    QImage huge(5000, 3000, QImage::Format_Mono);
    huge.fill(0);
    for (const QString& name : {u"maps/a"_s, u"maps/b"_s}) QVERIFY(huge.save(files.folder.filePath(name), "PNG"));
    MapStore store(files.folder.path());
    int answers = 0;
    for (const QString& name : {u"a"_s, u"b"_s}) {
      store.Read(name, this, [&answers](const QImage& picture) { answers += picture.width() == 5000 ? 1 : 0; });
    }
    QTRY_COMPARE(answers, 2);
    store.Read(u"b"_s, this, [&answers](const QImage&) { ++answers; });
    QCOMPARE(answers, 3);
    store.Read(u"a"_s, this, [&answers](const QImage&) { ++answers; });
    QCOMPARE(answers, 3);
    QTRY_COMPARE(answers, 4);
  }

  void SeeThroughIsWhite() {
    MapFolder files;
    QImage clear(4, 4, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    QVERIFY(clear.save(files.folder.filePath(u"maps/Clear Map.gif"_s), "PNG"));
    MapStore store(files.folder.path());
    QImage read;
    store.Read(u"Clear Map.gif"_s, this, [&read](const QImage& picture) { read = picture; });
    QTRY_COMPARE(read.size(), QSize(4, 4));
    QCOMPARE(read.pixelColor(1, 1), QColor(Qt::white));
  }

  void ShowsTheTarget() {
    MapFixture f;
    f.Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    f.Save(u"World Map.jpg"_s, QSize(2800, 1412), Qt::green);
    f.Open();
    f.Pick(48, 2);
    QCOMPARE(f.window->windowTitle(), u"Europe Map"_s);
    QCOMPARE(f.View().accessibleName(), u"Europe Map"_s);
    QCOMPARE(f.Info(), u"ZZ1AA  Dx 551 km  Az 153°"_s);
    QCOMPARE(f.program.config.MapIndex, 0);
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
    QCOMPARE(f.window->findChild<QToolButton*>(u"cmdMaps"_s)->accessibleName(), u"Maps Europe"_s);
    QCOMPARE(f.Maps().accessibleName(), u"Maps"_s);

    LoadLanguage(QStringLiteral(LANGUAGES_DIR), u"Russian"_s, 8, Program::ProgVersion(), f.program.language);
    f.window->SetTexts();
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
    QTest::keyClick(f.window.get(), Qt::Key_Escape);
    QVERIFY(!f.window->isVisible());
    f.Pick(-33.9, 18.4);
    QCOMPARE(f.window->windowTitle(), u"World Map"_s);
    auto* cmdClose = f.window->findChild<QToolButton*>(u"cmdClose"_s);
    cmdClose->setFocus();
    QTest::mouseClick(cmdClose, Qt::LeftButton);
    QVERIFY(!f.window->isVisible());
    f.Pick(48, 2);
    QCOMPARE(f.View().Picture().size(), QSize(1810, 1490));
    QCOMPARE(f.window->focusWidget(), &f.View());
  }

  // But not for a picture that was asked for just before it was closed.
  void ComesWhenItIsAskedFor() {
    MapFixture f;
    f.Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    f.Save(u"World Map.jpg"_s, QSize(2800, 1412), Qt::green);
    f.Open();
    f.Pick(48, 2);
    f.Maps().setCurrentRow(1);
    QTest::keyClick(&f.Maps(), Qt::Key_Return);
    QTest::keyClick(&f.View(), Qt::Key_Escape);
    bool read = false;
    f.store.Read(u"World Map.jpg"_s, this, [&read](const QImage&) { read = true; });
    QTRY_VERIFY(read);
    QVERIFY(!f.window->isVisible());
    // Asked for anew, it does; also from where it lies minimized.
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
    QTest::mouseClick(f.window->findChild<QToolButton*>(u"cmdMaps"_s), Qt::LeftButton);
    QTRY_VERIFY(f.Maps().hasFocus());
    f.View().setFocus();
    QVERIFY2(!f.Maps().isVisible(), "a list that is left closes");
    for (const bool open : {true, false}) {
      QTest::mouseClick(f.window->findChild<QToolButton*>(u"cmdMaps"_s), Qt::LeftButton);
      QCOMPARE(f.Maps().isVisible(), open);
    }
    QVERIFY(f.View().hasFocus());
    // By keyboard, on any desktop.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
      f.window->findChild<QToolButton*>(u"cmdMaps"_s)->setFocus();
      QTest::keyClick(f.window->focusWidget(), key);
      QVERIFY(f.Maps().isVisible());
      QTest::keyClick(&f.Maps(), Qt::Key_Escape);
    }
    QTest::mouseClick(f.window->findChild<QToolButton*>(u"cmdMaps"_s), Qt::LeftButton);
    QCOMPARE(f.Maps().item(1)->text(), u"world"_s);
    QCOMPARE(f.Maps().currentRow(), 0);
    // Another station is looked at elsewhere meanwhile; the map stays with its own.
    f.program.TargetLat = 10;
    QTest::keyClick(&f.Maps(), Qt::Key_Down);
    QTest::keyClick(&f.Maps(), Qt::Key_Return);
    QVERIFY(!f.Maps().isVisible());
    QTRY_COMPARE(f.window->windowTitle(), u"world map"_s);
    QCOMPARE(f.program.config.MapIndex, 1);
    QCOMPARE(f.Info(), u"ZZ1AA  Dx 551 km  Az 153°"_s);
    QCOMPARE(f.View().Picture().size(), QSize(2800, 1412));

    // Two choices in a row, the first to be read from the disk, the second at hand: the last one stands.
    f.Save(u"world map.GIF"_s, QSize(2801, 1412), Qt::blue);
    for (const int row : {1, 0}) {
      QTest::mouseClick(f.window->findChild<QToolButton*>(u"cmdMaps"_s), Qt::LeftButton);
      f.Maps().setCurrentRow(row);
      QTest::keyClick(&f.Maps(), Qt::Key_Space);
    }
    bool read = false;
    f.store.Read(u"world map.GIF"_s, this, [&read](const QImage&) { read = true; });
    QTRY_VERIFY(read);
    QCOMPARE(f.window->windowTitle(), u"Europe Map"_s);
    QCOMPARE(f.View().Picture().width(), 1810);
  }

  void PopupLeadsToTheLookup() {
    MapFixture f;
    f.Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    f.Open();
    f.Pick(48, 2);
    QSignalSpy wanted(f.window.get(), &frmMapLoc::LookupWanted);
    QTest::mouseClick(&f.View(), Qt::LeftButton, {}, f.View().LabelRect(0).center());
    auto* menu = f.window->findChild<frmMenu*>();
    QVERIFY(menu->isVisible());
    QStringList entries;
    for (const QAction* action : menu->actions())
      entries.append(action->text().trimmed() + (action->isEnabled() ? u""_s : u" -"_s));
    QCOMPARE(entries.join(u", "_s), u"Look up on eHam, ZZ1AA by address -, ZZ1AA by coordinates -"_s);
    QCOMPARE(menu->accessibleName(), u"ZZ1AA"_s);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted.first().at(0).toString(), u"ZZ1AA"_s);
    QCOMPARE(wanted.first().at(1).toRect().topLeft(), f.View().mapToGlobal(f.View().LabelRect(0).topLeft()));
  }

  // Eleven maps: the offsets of the tenth and eleventh have no place, those of the others are kept.
  void StoresOffsets_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("stored");
    QTest::newRow("first") << 0 << true;
    QTest::newRow("ninth") << 8 << true;
    QTest::newRow("tenth") << 9 << false;
    QTest::newRow("eleventh") << 10 << false;
  }

  void StoresOffsets() {
    QFETCH(int, row);
    QFETCH(bool, stored);
    MapFixture f;
    for (int i = 10; i <= 20; ++i) f.Save(u"%1 Europe Map.jpg"_s.arg(i), QSize(3000, 200));
    f.Open();
    f.Pick(48, 2);
    f.Maps().setCurrentRow(row);
    QTest::keyClick(&f.Maps(), Qt::Key_Return);
    QTRY_COMPARE(f.window->windowTitle(), u"%1 Europe Map"_s.arg(10 + row));
    QTest::keyClick(&f.View(), Qt::Key_Right);
    QVERIFY(f.View().Fit().place.x() < 0);
    QList<int> expected(kMapOffsets, 1);
    if (stored) expected[row] = f.View().Fit().place.x();
    QCOMPARE(f.program.MapLeft, expected);
    QCOMPARE(f.program.MapTop, QList<int>(kMapOffsets, 1));  // it cannot be dragged up or down
  }

  // A station near the lower edge leaves the picture's end to the rows that the bar has pushed off the window.
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
    // Opened again, the map shows its station, not the place that it was dragged to.
    f.Pick(31, 20);
    QTRY_COMPARE(f.View().Fit().place, before);
  }

  void WithoutMaps() {
    MapFixture f;
    f.Open();
    f.Pick(48, 2);
    QCOMPARE(f.program.config.MapIndex, 0);
    QCOMPARE(f.window->windowTitle(), u"Omni-Perch  Maps"_s);
    QVERIFY(f.View().Picture().isNull());
    QCOMPARE(f.Info(), u"ZZ1AA  Dx 551 km  Az 153°"_s);
    QTest::mouseClick(f.window->findChild<QToolButton*>(u"cmdMaps"_s), Qt::LeftButton);
    QTest::keyClick(&f.View(), Qt::Key_Right);
    QVERIFY(f.View().Overlay().labels.isEmpty());
  }

  void BadFileLeavesThePicture() {
    MapFixture f;
    f.Save(u"Europe Map.jpg"_s, QSize(1810, 1490));
    f.Write(u"World Map.jpg"_s, "no picture");
    f.Open();
    f.Pick(48, 2);
    f.Pick(-33.9, 18.4);
    QTRY_COMPARE(f.window->windowTitle(), u"World Map"_s);
    QCOMPARE(f.View().Picture().size(), QSize(1810, 1490));
    // A window smaller than the map that is asked for, and one that is larger than its picture.
    f.Save(u"World Map.jpg"_s, QSize(20, 10));
    f.window->close();
    f.Pick(-33.9, 18.4);
    QTRY_COMPARE(f.View().Picture().size(), QSize(20, 10));
    QCOMPARE(f.View().picInner().center().x(), (f.window->width() - 1) / 2);
    QVERIFY(f.window->width() >= 300);
  }
};

OMNI_TEST(TestMapWindow)
#include "test_map_window.moc"
