// SPDX-License-Identifier: GPL-3.0-or-later
// The propagation map with 5,000 paths among 500 stations, in the program's own windows, on the World map:
// omni-perch-bench-propagation DATA ROUNDS. DATA: folder with the files of an installation.
//
// Prints one line a round, "arrived= event= layout= hover= pss_kib=", times in ms. arrived: from the file's last byte
// leaving the server to the last painting of the map; event: the longest handling of one event in that time; layout: of
// the labels alone; hover: from the pointer's arrival at a call to its grid; pss_kib: memory of the process.
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <cstdio>

#include "bench_window.h"
#include "callbook/call_database.h"
#include "maps/label_layout.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kStations = 500;
constexpr int kPaths = 5000;
constexpr auto kQuiet = 700ms;  // without a painting: the map is finished

QString CallOf(int number) {
  const auto letter = [](int n) { return QChar(u'A' + n % 26); };
  return u"ZZ"_s + QString::number(number % 10) + letter(number / 10) + letter(number / 260) + u'B';
}

// Stations where most of them are.
void FillDatabase(const QString& folder) {
  QRandomGenerator random(9);
  constexpr std::array kRegions = {QRectF(-120, 35, 48, 13), QRectF(-5, 44, 30, 14), QRectF(-5, 44, 30, 14),
                                   QRectF(140, -38, 12, 10), QRectF(131, 33, 10, 7)};
  QList<StationRecord> stations;
  for (int i = 0; i < kStations; ++i) {
    const QRectF& region = kRegions[static_cast<std::size_t>(random.bounded(int(kRegions.size())))];
    DbRec record;
    record.Call = CallOf(i);
    record.Lat = CoordinateText(region.y() + random.bounded(region.height()));
    record.Lon = CoordinateText(region.x() + random.bounded(region.width()));
    stations.append({CallOf(i), record});
  }
  CallDatabase(folder).SaveStations(stations);
}

// Other paths each time.
QByteArray ReportFile(quint32 seed) {
  QRandomGenerator random(seed);
  QByteArray file = "From_To_Mode_kHz_Report_Time\r\n";
  const QDateTime now = QDateTime::currentDateTimeUtc();
  for (int i = 0; i < kPaths; ++i) {
    const QDateTime at = now.addSecs(-random.bounded(50 * 60));
    file += (CallOf(random.bounded(kStations)) + u'_' + CallOf(random.bounded(kStations)) + u"_EP_14233_599_"_s +
             at.toString(u"yyyyMMddhhmmss"_s) + u".txt\r\n"_s)
                .toLatin1();
  }
  return file + "\r\n";
}

std::chrono::nanoseconds Now() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

double Ms(std::chrono::nanoseconds time) {
  return static_cast<double>(time.count()) / 1e6;
}

// Answers every request with a file of reports, on a thread of its own.
class ReportServer {
 public:
  ReportServer() {
    server_->listen(QHostAddress::LocalHost);
    address_ = u"http://127.0.0.1:"_s + QString::number(server_->serverPort());
    server_->moveToThread(&thread_);
    QObject::connect(&thread_, &QThread::finished, server_, &QObject::deleteLater);
    QObject::connect(server_, &QTcpServer::newConnection, server_, [this]() { Accept(); });
    thread_.start();
  }
  ~ReportServer() {
    thread_.quit();
    thread_.wait();
  }
  ReportServer(const ReportServer&) = delete;
  ReportServer& operator=(const ReportServer&) = delete;

  QString Address() const { return address_; }
  // When the last answer was sent.
  std::chrono::nanoseconds Sent() const { return std::chrono::nanoseconds(sent_.load()); }

 private:
  void Accept() {
    QTcpSocket* socket = server_->nextPendingConnection();
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket]() {
      socket->readAll();
      const QByteArray file = ReportFile(++answers_);
      socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nConnection: close\r\nContent-Length: " +
                    QByteArray::number(file.size()) + "\r\n\r\n" + file);
      socket->flush();
      sent_ = Now().count();
      socket->disconnectFromHost();
    });
  }

  QThread thread_;
  QTcpServer* server_ = new QTcpServer;  // moves to the thread, which deletes it
  QString address_;
  quint32 answers_ = 0;
  std::atomic<qint64> sent_ = 0;
};

// Measures each event that the loop handles, and notes when the map has been painted.
class MeasuredApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    const std::chrono::nanoseconds begin = Now();
    const bool paints = event->type() == QEvent::Paint && receiver == map;
    ++depth_;
    const bool done = QApplication::notify(receiver, event);
    if (--depth_ == 0) longest = std::max(longest, Now() - begin);
    if (paints) painted = Now();
    return done;
  }

  const QObject* map = nullptr;
  std::chrono::nanoseconds painted{};
  std::chrono::nanoseconds longest{};

 private:
  int depth_ = 0;
};

void Wait(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

// One refresh, by a change of the mode that all reports have: what is shown follows the new file.
void Refresh(MeasuredApplication& app, const ReportServer& server, QComboBox& cboMode) {
  const std::chrono::nanoseconds before = server.Sent();
  cboMode.setCurrentIndex(cboMode.currentIndex() == 0 ? 1 : 0);
  Q_EMIT cboMode.activated(cboMode.currentIndex());
  while (server.Sent() == before) Wait(1ms);
  app.longest = {};
  app.painted = server.Sent();
  while (Now() - std::max(app.painted, server.Sent()) < kQuiet) Wait(20ms);
}

double LayoutMs(const MapView& view) {
  MapOverlay overlay = view.Overlay();
  const std::chrono::nanoseconds begin = Now();
  LayOutLabels(overlay, view.PictureSize());
  return Ms(Now() - begin);
}

double HoverMs(MapView& view, QWidget& picRx) {
  QRect label;
  for (qsizetype i = 0; i < view.Labels().size() && !view.visibleRegion().contains(label.center()); ++i) {
    label = view.LabelRect(i);
  }
  const QPoint at = label.center();
  QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  const std::chrono::nanoseconds begin = Now();
  QCoreApplication::sendEvent(&view, &move);
  picRx.repaint();
  const double time = Ms(Now() - begin);
  picRx.hide();
  return time;
}

QByteArray PssKib() {
  QFile file(u"/proc/self/smaps_rollup"_s);
  if (!file.open(QIODevice::ReadOnly)) return "0";
  const QByteArray text = file.readAll();
  const qsizetype at = text.indexOf("\nPss:");
  return at < 0 ? "0" : text.mid(at + 5, text.indexOf("kB", at) - at - 5).trimmed();
}

void MakeFolder(const QString& installed, const QString& folder, const QString& address) {
  QDir().mkpath(folder);
  for (const QString& part : {u"Languages"_s, u"Maps"_s}) QFile::link(installed + u'/' + part, folder + u'/' + part);
  for (const QString& file : {u"Omni-Perch.cfg"_s, u"WXsites.lst"_s})
    QFile::copy(installed + u'/' + file, folder + u'/' + file);
  QFile hosts(folder + u"/hosts.ini"_s);
  if (hosts.open(QIODevice::WriteOnly)) {
    hosts.write("[Hosts]\n");
    for (const char* host :
         {"Author", "Time", "OnAirCgi", "eHam", "QRZ", "QRZCQ", "Callook", "HamCall", "Pictures", "Maps"})
      hosts.write(QByteArray(host) + "=\n");
    hosts.write("Connectivity=" + address.toLatin1() + "\nOnAirText=" + address.toLatin1() + '\n');
  }
  FillDatabase(folder);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s DATA ROUNDS\n", argv[0]);
    return 2;
  }
  const QTemporaryDir folder;
  qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
  MeasuredApplication app(argc, argv);
  const ReportServer server;
  MakeFolder(QDir(QString::fromLocal8Bit(argv[1])).absolutePath(), folder.filePath(u"Omni-Perch"_s), server.Address());
  QApplication::setQuitOnLastWindowClosed(false);
  BenchWindow at;
  if (!at.window->Load(false)) return 1;
  Wait(2s);
  Program& program = at.services->program;
  program.config.MapIndex = static_cast<int>(program.lstMap.indexOf(u"World Map.jpg"_s));
  at.window->AllWindows().ShowPropagationMap();
  BaseWindow* map = at.window->AllWindows().Find(WindowKind::PropagationMap);
  auto* view = map->findChild<MapView*>();
  app.map = view;
  while (view->Labels().size() < kStations / 2) Wait(50ms);
  Wait(1s);
  for (int round = QString::fromLocal8Bit(argv[2]).toInt(); round > 0; --round) {
    Refresh(app, server, *map->findChild<QComboBox*>(u"cboMode"_s));
    const double arrived = Ms(app.painted - server.Sent());
    const double event = Ms(app.longest);
    std::printf("arrived=%.1f event=%.1f layout=%.1f hover=%.1f pss_kib=%s\n", arrived, event, LayoutMs(*view),
                HoverMs(*view, *map->findChild<QWidget*>(u"picRx"_s)), PssKib().constData());
    std::fflush(stdout);
  }
  at.window->CloseMe();
  return QApplication::exec();
}
