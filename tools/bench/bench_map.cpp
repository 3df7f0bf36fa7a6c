// SPDX-License-Identifier: GPL-3.0-or-later
// The location map measured inside its own window, under the platform that Qt finds: omni-perch-bench-map [MAPS]. MAPS:
// folder with "World Map.jpg"; without it a picture of that size is made up.
//
// Prints "open_first= open_again= pan= pan_worst= busy= busy_pan= busy_pan_worst=", all in ms. open: from the key press
// to the painted map, with the picture on the disk and with it at hand; pan: a step of the arrow keys at 2560x1440,
// median and worst of 200; busy_pan: the same with 5,000 lines and 500 labels; busy: how long the event loop is held
// when these come.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdio>

#include "core/language_file.h"
#include "maps/map_location_window.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kWorld(2800, 1412);
constexpr QSize kScreen(2560, 1440);
constexpr int kSteps = 200;
constexpr int kLines = 5000;
constexpr int kLabels = 500;

// As full of edges as a map is.
QImage MadeUpPicture(const QSize& size) {
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(QColor(207, 225, 236));
  QPainter painter(&picture);
  QRandomGenerator random(7);
  for (int i = 0; i < 4000; ++i) {
    painter.setPen(QColor(124, 147, 163));
    painter.setBrush(QColor(245, 241, 230 - static_cast<int>(random.bounded(40))));
    painter.drawEllipse(random.bounded(size.width()), random.bounded(size.height()), random.bounded(60), 20);
  }
  return picture;
}

// Stations in a few crowded regions, as on the air, and the paths between them.
MapOverlay BusyOverlay(const MapView& view, const QSize& picture) {
  MapOverlay overlay;
  QRandomGenerator random(42);
  constexpr std::array kRegions = {QRectF(0.05, 0.1, 0.3, 0.4), QRectF(0.45, 0.05, 0.2, 0.35),
                                   QRectF(0.45, 0.05, 0.2, 0.35), QRectF(0.8, 0.2, 0.15, 0.7)};
  for (int i = 0; i < kLabels; ++i) {
    const QRectF& region = kRegions[static_cast<std::size_t>(random.bounded(int(kRegions.size())))];
    const QPointF station((region.x() + random.bounded(region.width())) * picture.width(),
                          (region.y() + random.bounded(region.height())) * picture.height());
    MapOverlay::Label label;
    label.text = u" ZZ%1AB "_s.arg(i);
    label.place = QRectF(station, view.LabelSize(label.text));
    label.clickable = true;
    overlay.labels.append(label);
    overlay.circles.append({station, 4, QColor(0, 0, 255), 4, false});
  }
  for (int i = 0; i < kLines; ++i) {
    overlay.lines.append({overlay.circles.at(random.bounded(kLabels)).centre,
                          overlay.circles.at(random.bounded(kLabels)).centre, QColor(0, 0, 255), 2});
  }
  return overlay;
}

double Ms(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// A map window wants somebody who opens its menus; none is opened here.
struct NoMenus : MenuOpener {
  void OpenMenu(const MenuRequest&) override {}
  void CloseMenus() override {}
};

// A widget that opens the map at a key press, as the main window does.
class Opener : public QWidget {
 public:
  explicit Opener(std::function<void()> open) : open_(std::move(open)) {}

 protected:
  void keyPressEvent(QKeyEvent*) override { open_(); }

 private:
  std::function<void()> open_;
};

// Tells when the view has painted with a picture and the frame has gone to the screen.
class PaintWatch : public QObject {
 public:
  void Watch(MapView* view) {
    view_ = view;
    view->installEventFilter(this);
  }
  bool painted = false;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && !view_->Picture().isNull()) {
      // Queued, so that it comes after the event that paints and sends the frame.
      QMetaObject::invokeMethod(
          this, [this]() { painted = true; }, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  MapView* view_ = nullptr;
};

void Press(QWidget& widget, Qt::Key key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(&widget, &press);
}

double Open(Opener& opener, PaintWatch& watch) {
  watch.painted = false;
  QElapsedTimer timer;
  timer.start();
  Press(opener, Qt::Key_M);
  while (!watch.painted) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  return Ms(timer);
}

// Lets the window manager finish with a closed window.
void Rest() {
  QEventLoop loop;
  QTimer::singleShot(300, &loop, &QEventLoop::quit);
  loop.exec();
}

// Milliseconds of many steps.
struct Frames {
  double median = 0;
  double worst = 0;
};

// Pans forth and back along both directions; each step is painted at once.
Frames Pan(MapView& view) {
  QList<double> times;
  constexpr std::array kKeys = {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up};
  view.repaint();
  for (int i = 0; i < kSteps; ++i) {
    QElapsedTimer timer;
    timer.start();
    Press(view, kKeys[static_cast<std::size_t>(i / 5) % kKeys.size()]);
    view.repaint();
    times.append(Ms(timer));
  }
  std::sort(times.begin(), times.end());
  return {times.at(times.size() / 2), times.last()};
}

// Pans a view of its own, so that the size does not depend on the screen: its picture alone, then with many lines.
void PanWide() {
  MapView wide(nullptr);
  const QSize large = kScreen + QSize(400, 400);
  wide.SetPicture(MadeUpPicture(large), large);
  PaintWatch wideWatch;
  wideWatch.Watch(&wide);
  wide.FitMapToWindow(kScreen, 0);
  wide.show();
  while (!wideWatch.painted) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  const Frames calm = Pan(wide);
  wide.SetOverlay(BusyOverlay(wide, large));
  QElapsedTimer timer;
  timer.start();
  wide.repaint();
  const double whole = Ms(timer);
  // The frame with all of them is painted beside the event loop.
  Rest();
  Rest();
  const Frames busy = Pan(wide);
  std::printf("pan=%.1f pan_worst=%.1f busy=%.1f busy_pan=%.1f busy_pan_worst=%.1f\n", calm.median, calm.worst, whole,
              busy.median, busy.worst);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QTemporaryDir folder;
  QDir(folder.path()).mkpath(u"Maps"_s);
  const QString path = folder.filePath(u"Maps/World Map.jpg"_s);
  if (argc < 2 || !QFile::copy(QString::fromLocal8Bit(argv[1]) + u"/World Map.jpg"_s, path)) {
    MadeUpPicture(kWorld).save(path, "JPG", 90);
  }

  Program program;
  program.lstMap = {u"World Map.jpg"_s};
  program.MapLeft.resize(kMapOffsets);
  program.MapTop.resize(kMapOffsets);
  program.config.MyLat = 40;
  program.config.MyLon = -75;
  MapStore store(folder.path());
  NoMenus menus;
  QPointer<frmMapLoc> map;
  PaintWatch watch;
  // The window is made anew each time, as in the program.
  Opener opener([&]() {
    if (!map) {
      map = new frmMapLoc(program, store, menus, &opener);
      watch.Watch(map->findChild<MapView*>());
    }
    map->PickMapForTarget(u"ZZ1AA"_s, -33.9, 18.4);
  });
  opener.resize(400, 300);
  opener.show();
  QApplication::processEvents();

  const double first = Open(opener, watch);
  map->close();
  // As the program's event loop would: the loops of this file are nested too deep to delete a window that was closed
  // outside of them.
  QCoreApplication::sendPostedEvents(map, QEvent::DeferredDelete);
  Rest();
  const double again = Open(opener, watch);

  std::printf("open_first=%.1f open_again=%.1f ", first, again);
  PanWide();
  return 0;
}
