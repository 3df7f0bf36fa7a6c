// SPDX-License-Identifier: GPL-3.0-or-later
// The main window on a temporary data folder with its configuration, lists and languages, against a band on loopback;
// message boxes answer as the test has written down.
#pragma once

#include "app/main_window.h"
#include "page_fixture.h"
#include "test_folder.h"

// Answers as a test has written them down, and remembers what was asked.
class ScriptedDialogs : public Dialogs {
 public:
  QStringList told;
  bool exclamation = false;
  QList<bool> retries;
  int asked = 0;
  bool second = false;  // the answer to a question with two buttons
  QString path;         // the file or folder that is chosen

  void Inform(QWidget*, const QString& text, bool mark) override {
    told.append(text);
    exclamation = mark;
  }
  bool AskRetry(QWidget*, const QString&) override {
    ++asked;
    return !retries.isEmpty() && retries.takeFirst();
  }
  QString AskSaveFile(QWidget*, const QString&, const QString& name, const QString& filter) override {
    told.append(name + u'|' + filter);
    return path;
  }
  QString AskFolder(QWidget*, const QString&) override { return path; }
  bool AskSecond(QWidget*, const QString& text, const QString&, const QString&) override {
    told.append(text);
    return second;
  }
};

struct WindowFixture {
  TestFolder folder;
  StationBand band;
  ScriptedDialogs dialogs;
  StandingClock clock;
  Hosts hosts;
  std::chrono::milliseconds closingPause{20};
  SystemClock* systemClock = nullptr;  // never the real one
  QString decoder = QStringLiteral(PICTURE_TOOL);
  std::unique_ptr<Services> services;
  std::unique_ptr<Form1> form;

  WindowFixture() {
    Write("Omni-Perch.cfg", "1\r\n1\r\n1\r\n2\r\n7\r\nEnglish\r\n52.5\r\n-1.25\r\n0\r\n0\r\n1\r\nZZ9QX\r\n");
    Write("WXsites.lst", "Radar*1*1*1*1*1*1\r\n" + band.AddStation(QStringLiteral("ZZ9WX")).Url().toLatin1() + "\r\n");
    Write("nicknames.txt", "ZZ1AA*Bo\r\n");
    const QDir languages(QStringLiteral(LANGUAGES_DIR));
    QDir(folder.path()).mkpath(QStringLiteral("Languages"));
    for (const QString& name : languages.entryList(QDir::Files)) {
      QFile::copy(languages.filePath(name), folder.filePath(QStringLiteral("Languages/") + name));
    }
    hosts.Connectivity = band.HostUrl(QStringLiteral("Connectivity"));
    hosts.Time = band.HostUrl(QStringLiteral("Time"));
  }

  // A window that is still open goes through its closing sequence.
  ~WindowFixture() {
    if (form != nullptr && form->isVisible()) Close();
  }
  Q_DISABLE_COPY_MOVE(WindowFixture)

  void Write(const char* name, const QByteArray& bytes) const { folder.Put(QString::fromLatin1(name), bytes); }
  QByteArray Read(const char* name) const { return folder.Bytes(QString::fromLatin1(name)); }
  // A site in the first free line of the list, on page 1 in layout 1 and on page 2 in layout 6.
  Station& AddSite(const QString& call, int slot) {
    Station& station = band.AddStation(call);
    QFile file(folder.filePath(QStringLiteral("Omni-Perch.lst")));
    if (file.open(QIODevice::WriteOnly | QIODevice::Append)) {
      const QString place = QStringLiteral("%1").arg(slot, 2, 10, QLatin1Char('0'));
      file.write(QStringLiteral("%1*01%2*****02%2*52.5*-1.25***\r\n%3\r\n").arg(call, place, station.Url()).toLatin1());
    }
    return station;
  }

  Program& State() const { return services->program; }
  bool Start(bool anotherRuns = false) {
    form.reset();
    services = std::make_unique<Services>(RunSettings{.appDataDir = folder.path(),
                                                      .programDir = folder.path(),
                                                      .decoder = decoder,
                                                      .socketDir = folder.path(),
                                                      .hosts = hosts,
                                                      .limits = QuickLimits(),
                                                      .systemClock = systemClock,
                                                      .closingPause = closingPause},
                                          dialogs, clock);
    form = std::make_unique<Form1>(*services);
    return form->Load(anotherRuns);
  }
  // The same until the window is shown and its first poll has ended.
  bool StartAndPoll() {
    if (!Start()) return false;
    const QSignalSpy loaded(form.get(), &Form1::Loaded);  // the first poll has begun by then
    return QTest::qWaitFor([&]() { return !loaded.isEmpty() && form->isVisible() && !form->Logic().poll.Busy(); });
  }
  const Cell& CellOf(int slot) const { return form->Logic().grid.Cells().at(slot); }
  bool HasPicture(int slot) const { return !CellOf(slot).frames.isEmpty(); }
  // The map of a name among the maps of the program.
  void AddMap(const QString& name) const {
    folder.PutFolder(u"Maps"_s);
    QFile::copy(u"" MAPS_DIR "/"_s + name, folder.filePath(u"Maps/"_s + name));
  }
  void Close() {
    QSignalSpy closed(form.get(), &Form1::Closed);
    form->CloseMe();
    QTRY_COMPARE(closed.count(), 1);
    form.reset();
  }
};
