// SPDX-License-Identifier: GPL-3.0-or-later
// Copies of the user's files below Backups: the four main files over those of the last backup, and a dated folder with
// all lists and settings. The setup menu makes one; the update check makes one before it changes the first address.
#pragma once

#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QString>
#include <QStringList>
#include <functional>

#include "platform/background.h"
#include "platform/clock.h"

// How a backup ended.
struct BackupResult {
  QString folder;      // of the dated copy; empty if it was not made
  QStringList failed;  // the files that could not be written: name, or path and reason
};

// Makes the copies, one backup at a time.
class Backup : public QObject {
  Q_OBJECT

 public:
  using Done = std::function<void(const BackupResult& result)>;

  // The last two are what has to be done before files are copied; both go on in their argument.
  struct Dependencies {
    QString appDataDir;
    const Clock& clock;
    Background& background;
    // Writes all state; the argument gets the names of the files that could not be written.
    std::function<void(const std::function<void(const QStringList&)>& then)> saveState;
    // Makes the database's file complete and sorted.
    std::function<void(const std::function<void()>& then)> mergeDatabase;
  };

  explicit Backup(Dependencies dependencies, QObject* parent = nullptr);

  QString Folder() const;  // where the copies are

  // The user's backup: the four main files are replaced, and a dated copy of all files is made, of which ten are kept.
  // Begins when a backup that is being made is done. done is called on the event loop of context, unless that is gone.
  void Make(QObject* context, const Done& done);
  // A dated copy alone, under the name of the update, of which three are kept.
  void MakeBeforeUpdate(QObject* context, const Done& done);

 private:
  struct Job;
  void Begin(const Job& job, QObject* context, const Done& done);
  void Start(Job job, const QPointer<QObject>& context, const Done& done);
  void Copy(const Job& job, const QPointer<QObject>& context, const Done& done);

  Dependencies deps_;
  bool running_ = false;
  QQueue<std::function<void()>> waiting_;  // each starts a backup
};
