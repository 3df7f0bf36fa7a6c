// SPDX-License-Identifier: GPL-3.0-or-later
// The update check: once a run it asks the author's server for the newest version, the list of sites and the blocked
// calls, and at start the time service for the time. MainUpdates owns the only one, and shows what it finds.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>

#include "callbook/call_database.h"
#include "core/hosts.h"
#include "core/program.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/net/url_reader.h"
#include "platform/system_clock.h"
#include "platform/wanted.h"
#include "sites/site_list_plan.h"

// Reads and compares. What comes from the servers is read beside the event loop.
class UpdateCheck : public QObject {
  Q_OBJECT

 public:
  // What the check uses beside its own reads.
  struct Dependencies {
    Program& program;
    UrlNetwork& network;
    const Hosts& hosts;
    Background& background;
    const Clock& clock;
    CallDatabase& database;
    SystemClock* systemClock;  // nullptr: the clock is never set
    // Copies the user's files before the first address is changed, and tells whether they are copied.
    std::function<void(QObject* context, const std::function<void(bool)>& then)> keepCopy;
    // Whether Form6 may open: no setup window and no message box is open.
    std::function<bool()> mayOpen;
  };

  explicit UpdateCheck(const Dependencies& dependencies, QObject* parent = nullptr);

  // Asks for the time, with or without a connection. A run without a time service asks for nothing.
  void AskTime();
  // Asks for version, list of sites and blocked calls.
  void CheckForUpdates();
  // Asks for the list of sites alone, again if the run has had it already.
  void FetchList();
  // ucUpdates: reads an address under a key past any cache. An empty host fails at once, yet not before this returns.
  void DownloadFile(const QString& host, const QString& path, const QString& key);
  // The program closes: nothing answers any more.
  void Stop();

  QTimer Timer1;  // 0.1 s, while Form6 waits for other windows to close
  QStringList lstMaster;
  bool UpdatesPending = false;
  bool ListFileIsPrimary = false;  // the list came under the key "2"

 Q_SIGNALS:
  // A newer version is there, and the user has not been asked in this run.
  void NewVersionFound(const QString& version);
  // The list of sites has come; the flag is ListFileIsPrimary.
  void ListCame(bool isPrimary);
  // The read under the key "2" has failed.
  void ListFailed();
  // The list differs from the user's sites, and Form6 is to open with this plan.
  void ChangesFound(const SiteListPlan& plan);

 private:
  // What the reading of the list has given.
  struct ListReading {
    std::shared_ptr<const UpdateFile> file;  // nullptr: to be forgotten
    QList<AddressChange> addresses;
  };

  void UpdateFound(const QString& key, const QByteArray& body);
  void UpdatesNotFound(const QString& key);
  void TakeTime(const QByteArray& body);
  void TakeVersion(const QByteArray& body);
  void TakeList(const QByteArray& body);
  void TakeReading(const ListReading& reading);
  // Finds out whether Form6 has anything to show.
  void Compare();
  void TakeBadCalls(const QByteArray& body);
  void Timer1Tick();
  void ForgetList();
  // A function that compares the list with the sites as they are now, to be called on another thread.
  std::function<SiteListPlan()> Comparison() const;

  const Dependencies deps_;
  UrlReader ucUpdates;
  UrlReader ucBadCalls;
  Wanted list_;  // renewed by a newer list
  Wanted run_;   // until Stop
  std::shared_ptr<const UpdateFile> file_;
  QList<AddressChange> replaced_;
};
