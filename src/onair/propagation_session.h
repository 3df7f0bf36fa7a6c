// SPDX-License-Identifier: GPL-3.0-or-later
// What frmMapPropagation shows, without the window: fetches the file of reports, keeps its rows, filters them by the
// chosen period, band and mode. The window owns one and draws what it holds.
#pragma once

#include <QObject>
#include <QTimer>

#include "callbook/call_database.h"
#include "core/hosts.h"
#include "core/program.h"
#include "core/stored_settings.h"
#include "onair/propagation_paths.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/net/url_reader.h"
#include "platform/settings_store.h"
#include "platform/wanted.h"

// Reading and filtering happen beside the event loop.
class PropagationSession : public QObject {
  Q_OBJECT

 public:
  // What a session uses.
  struct Dependencies {
    Program& program;
    UrlNetwork& network;
    Background& background;
    const Hosts& hosts;
    SettingsStore& store;
    const Clock& clock;
    CallDatabase& database;
    int& PeriodMinutes;  // outlives the window: the period is kept for the run
  };

  explicit PropagationSession(const Dependencies& dependencies, QObject* parent = nullptr);

  // Reads the stored choice and asks for the file.
  void Open();
  // From lists of the window; the file is asked for anew each time.
  void SetPeriod(int minutes);
  void SetBand(int index);
  void SetMode(int index);

  // The paths anew: the database has changed.
  void Rebuild() { Filter(false); }

  const PropagationChoice& Choice() const { return choice_; }
  const PropagationPaths& Paths() const { return paths_; }
  // The newest report of the file is older than the period.
  bool IsOutdated() const { return outdated_; }
  // Reports of the file beyond the most that are kept.
  qsizetype LeftOut() const { return leftOut_; }
  QList<ReceivedRow> Received(const QString& call) const;

 Q_SIGNALS:
  // Other paths are shown than before.
  void Changed();
  // The rows of an answer have been filtered, whether anything has changed or not.
  void Refreshed();

 private:
  void Request();
  void Take(const QByteArray& file);
  void Filter(bool answered);
  void Store(Setting setting, int index);
  qint64 Now() const;

  Dependencies deps_;
  UrlReader reader_;
  QTimer Timer1_;
  PropagationChoice choice_;
  std::shared_ptr<const PropagationReports> reports_ = std::make_shared<PropagationReports>();
  PropagationPaths paths_;
  bool outdated_ = false;
  qsizetype leftOut_ = 0;
  Wanted read_;
  Wanted filter_;
  std::shared_ptr<CallReader> database_;  // used beside the event loop only
};
