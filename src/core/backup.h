// SPDX-License-Identifier: GPL-3.0-or-later
// Copies of the user's files below Backups: the four main files over those of the last backup, and a dated folder with
// all lists and settings. The setup menu makes one; the update check makes one before it changes the first address.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

#include "platform/background.h"
#include "platform/clock.h"

// How a backup ended.
struct BackupResult {
  QString folder;      // of the dated copy; empty if it was not made
  QStringList failed;  // for each file that could not be written: its path and the reason
};

// Makes the copies, one backup at a time.
class Backup : public QObject {
  Q_OBJECT

 public:
  using Done = std::function<void(const BackupResult& result)>;

  // What has to be done before files are copied.
  struct Dependencies {
    QString appDataDir;
    const Clock& clock;
    Background& background;
    std::function<QStringList()> saveState;  // writes all state; returns what could not be written, as in BackupResult
    std::function<void(const std::function<void()>& then)> mergeDatabase;  // makes its file complete and sorted
  };

  explicit Backup(Dependencies dependencies, QObject* parent = nullptr);

  QString Folder() const;  // where the copies are

  // The user's backup: the four main files are replaced, and a dated copy of all files is made, of which ten are kept.
  // Does nothing while a backup is being made. done is called on the event loop of context, unless that is gone.
  void Make(QObject* context, const Done& done);
  // A dated copy alone, under the name of the update, of which three are kept.
  void MakeBeforeUpdate(QObject* context, const Done& done);

 private:
  struct Job;
  void Start(Job job, QObject* context, const Done& done);

  Dependencies deps_;
  bool running_ = false;
};
