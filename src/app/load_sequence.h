// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the stored state in one fixed order between the making of the main window and its first poll, and writes it
// when that window closes. The main window runs the steps and shows the messages that they return.
#pragma once

#include <QMutex>
#include <QString>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include "core/program.h"
#include "core/save_state.h"
#include "core/translations.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/settings_store.h"
#include "poll/height_table.h"

// A message that ends the program; empty: the load goes on.
struct LoadStop {
  QString message;
  bool exclamation = false;
  explicit operator bool() const { return !message.isEmpty(); }
};

// The steps of loading and of writing back.
class LoadSequence {
 public:
  LoadSequence(Program& program, Translations& translations, HeightTable& heights, SettingsStore& store,
               const Clock& clock);

  // Makes folders; reads heights, maps, languages, configuration, page labels. anotherRuns: makes, deletes and writes
  // nothing, and stops with the already-running message once a language is loaded.
  LoadStop ReadSettings(bool anotherRuns);
  // Reads site lists, save folder, blocked calls, nicknames.
  LoadStop ReadLists();

  // Writes everything back in the order of the closing sequence. placement: nothing while the window is not visible.
  // sendClosed informs the companion program, inform shows a message about duplicate sites.
  void WriteState(const std::optional<WindowPlacement>& placement, const std::function<void()>& sendClosed,
                  const std::function<void(const QString&)>& inform);
  // Removes half-written pictures that a decoder job has left when it was cut short.
  void CleanTemporaryFiles() const;
  // Writes what a poll has changed (the dates of the sites' pictures, the heights) beside the event loop, so that a
  // crash of the machine loses one poll at most. Writes nothing if nothing has changed since the last time.
  void SaveAfterPoll(Background& background, QObject* context);
  // Writes state, heights and nicknames at once and shows no message.
  void WriteNow(const std::optional<WindowPlacement>& placement);
  // SaveAllState alone, for a caller that will rebuild the site tables. Returns the names of files that could not be
  // written.
  QStringList SaveAllState(const std::optional<WindowPlacement>& placement,
                           const std::function<void(const QString&)>& inform);
  // The same beside the event loop; saved gets those names, unless context is gone by then.
  void SaveBeside(const std::optional<WindowPlacement>& placement, const std::function<void(const QString&)>& inform,
                  Background& background, QObject* context, const std::function<void(const QStringList&)>& saved);

  // Changes the language: reads its file, loads its translations, and renames the default page labels. The caller has
  // to inform the windows. Returns a message to be shown, or an empty text.
  QString ChangeLanguage(const QString& name);
  // The warning about the language file that was read at start; empty if the file was right or missing.
  QString LanguageMessage() const { return languageMessage_; }

  std::optional<WindowPlacement> StoredPlacement() const { return placement_; }

 private:
  // Shared with the jobs that write beside the event loop. They run in the order in which they were asked for, so that
  // the newest copy of the state is written last. A job writes under the mutex, and nothing once the state has been
  // written at once after it was asked for: its copy is out of date then.
  struct Writing {
    QMutex mutex;
    std::atomic<int> atOnce = 0;  // how often the state was written on the event loop
  };
  void OvertakeWriting();
  void MakeFolders();
  void FindMaps();
  void FindLanguages();
  QString LanguageFolder() const;
  QString LoadLanguage();

  Program& program_;
  Translations& translations_;
  HeightTable& heights_;
  SettingsStore& store_;
  SiteListFile lists_;
  const Clock& clock_;
  std::optional<WindowPlacement> placement_;
  QString languageMessage_;
  std::shared_ptr<Writing> writing_ = std::make_shared<Writing>();
  QStringList written_;  // heights and dates that SaveAfterPoll wrote last
};

// UTC hour minus local hour, not wrapped at midnight: -20 may mean +4.
int UtcOffset(const QDateTime& local);
