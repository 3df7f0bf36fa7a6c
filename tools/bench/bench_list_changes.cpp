// SPDX-License-Identifier: GPL-3.0-or-later
// The author's list with 5,000 changes, in the program's own windows: omni-perch-bench-list-changes [ROUNDS].
//
// One line a round: open=, from the tick of Timer1 that may open Form6 to its painted lists, the comparison with the
// sites and 100,000 records of the call database included; applied=, from its closing until tables, files and records
// are written; event=, the longest handling of one event in both times; all in ms. growth=, in MiB of PSS, of the open
// window.
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>

#include "author_pages.h"
#include "bench_calls.h"
#include "bench_window.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRecords = 100'000;
constexpr int kKept = 3'000;     // with other coordinates
constexpr int kRemoved = 1'000;  // no longer listed
constexpr int kAdded = 1'000;
constexpr auto kUrl = "http://127.0.0.1:9/image1"_L1;

// Measures each event that the loop handles, and notes whether a list of Form6 was painted.
class MeasuredApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
    QElapsedTimer timer;
    timer.start();
    const bool paints = event->type() == QEvent::Paint && qobject_cast<ChangeList*>(receiver->parent()) != nullptr;
    ++depth_;
    const bool done = QApplication::notify(receiver, event);
    if (--depth_ == 0) longest = std::max(longest, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    painted = painted || paints;
    return done;
  }

  bool painted = false;
  double longest = 0;

 private:
  int depth_ = 0;
};

template <typename Condition>
bool Until(Condition condition) {
  QElapsedTimer timer;
  timer.start();
  while (!condition() && timer.elapsed() < 20'000) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
  return condition();
}

double PssMib() {
  QFile file(u"/proc/self/smaps_rollup"_s);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QByteArray text = file.readAll();
  const qsizetype at = text.indexOf("\nPss:");
  return at < 0 ? 0 : text.mid(at + 5, text.indexOf("kB", at) - at - 5).trimmed().toDouble() / 1024;
}

bool Write(const QString& path, const QByteArray& text) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

// Calls of sites are every twentieth of the database's, so that they lie all over the file.
QString SiteCall(int number) {
  return CallOf(static_cast<quint32>(number * 20));
}

bool MakeFolder(const QString& folder, const QByteArray& hosts) {
  QByteArray records;
  records.reserve(kRecords * kRecordSize);
  DbRec record;
  record.Lat = u"10"_s;
  record.Lon = u"20"_s;
  for (quint32 i = 0; i < kRecords; ++i) {
    record.Call = CallOf(i);
    records.append(reinterpret_cast<const char*>(&record), kRecordSize);
  }
  QByteArray sites;
  for (int i = 0; i < kKept + kRemoved; ++i)
    sites += SiteCall(i).toLatin1() + "*******10*20**\r\n" + QByteArray(kUrl.data()) + "\r\n";
  return QDir().mkpath(folder) && Write(folder + u"/Omni-Perch-DB.db"_s, records) &&
         Write(folder + u"/Omni-Perch.lst"_s, sites) && Write(folder + u"/WXsites.lst"_s, {}) &&
         Write(folder + u"/Omni-Perch.cfg"_s,
               "1\r\n5\r\n1\r\n1\r\n0\r\nEnglish\r\n50.1\r\n10.4\r\n0\r\n0\r\n1\r\nZZ9QX\r\n") &&
         Write(folder + u"/hosts.ini"_s, hosts);
}

QByteArray ListFile() {
  AuthorList list{QDate::currentDate()};
  for (int i = 0; i < kKept; ++i) list.sites.push_back({SiteCall(i), kUrl, u"11.5"_s, u"20"_s});
  for (int i = 0; i < kAdded; ++i) list.sites.push_back({SiteCall(kKept + kRemoved + i), kUrl, u"12"_s, u"20"_s});
  return UpdatesFile(list);
}

bool Round(MeasuredApplication& app, const QString& folder, const QByteArray& hosts) {
  if (!MakeFolder(folder, hosts)) return false;
  BenchWindow bench;
  bool isLoaded = false;
  QObject::connect(bench.window.get(), &Form1::Loaded, &app, [&isLoaded]() { isLoaded = true; });
  if (!bench.window->Load(false) || !Until([&]() { return isLoaded; })) return false;
  UpdateCheck& check = bench.window->Updates().Check();
  SiteChanges& changes = bench.window->Logic().changes;
  const double before = PssMib();
  QElapsedTimer timer;
  QObject::connect(&check.Timer1, &QTimer::timeout, &app, [&]() {
    app.longest = 0;
    app.painted = false;
    timer.start();
  });
  check.CheckForUpdates();
  if (!Until([&]() { return timer.isValid() && app.painted; })) return false;
  const double open = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  const double growth = PssMib() - before;
  timer.start();
  bench.window->AllWindows().Find(WindowKind::SiteChanges)->close();
  const QString last = SiteCall(kKept - 1);
  const bool isApplied = Until([&]() {
    if (!changes.Undoable()) return false;
    const std::optional<FoundRecord> found = bench.services->database.Find(last);
    return found && found->record.Lat.Text() == "11.5"_L1;
  });
  const double applied = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  if (!isApplied || bench.services->program.sites.Sites.size() != kKept + kAdded) return false;
  std::printf("open=%.1f applied=%.1f event=%.1f growth=%.1f\n", open, applied, app.longest, growth);
  std::fflush(stdout);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir home;
  qputenv("XDG_DATA_HOME", home.path().toUtf8());
  MeasuredApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  StationBand band;
  band.FindHost(u"Author"_s)->SetAnswer(kUpdatesPath, {200, "text/plain", ListFile(), {}});
  const int rounds = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 5;
  for (int round = 0; round < rounds; ++round) {
    if (!Round(app, home.filePath(u"Omni-Perch"_s), band.HostsIni())) {
      std::fprintf(stderr, "round %d failed\n", round);
      return 1;
    }
  }
  return 0;
}
