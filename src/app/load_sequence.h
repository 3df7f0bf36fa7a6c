// SPDX-License-Identifier: GPL-3.0-or-later
// What is read between the making of the main window and its first poll, in one fixed order, and what is written when
// it closes. The main window runs the steps and shows what they ask to be shown.
#pragma once

#include <QMutex>
#include <QString>
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

class LoadSequence {
 public:
  LoadSequence(Program& program, Translations& translations, HeightTable& heights, SettingsStore& store,
               const Clock& clock);

  // Folders, heights, maps, languages, configuration, page labels. anotherRuns: nothing is made, deleted or written,
  // and the stop is the already-running message at its place.
  LoadStop ReadSettings(bool anotherRuns);
  // Site lists, save folder, blocked calls, nicknames.
  LoadStop ReadLists();

  // Everything back, in the order of the closing sequence; placement is missing while the window is not visible.
  // sendClosed tells the companion program, inform shows a duplicate message.
  void WriteState(const std::optional<WindowPlacement>& placement, const std::function<void()>& sendClosed,
                  const std::function<void(const QString&)>& inform);
  // Removes what a picture tool that was killed has left half-written beside its pictures.
  void CleanTemporaryFiles() const;
  // Writes what a poll changes, the dates of the sites' pictures and the heights, beside the event loop: a machine that
  // goes down loses one poll at most. Nothing is written where nothing has changed since.
  void SaveAfterPoll(Background& background, QObject* context);
  // State, heights and nicknames at once and without a word.
  void WriteNow(const std::optional<WindowPlacement>& placement);
  // SaveAllState alone, for callers that rebuild the tables.
  void SaveAllState(const std::optional<WindowPlacement>& placement, const std::function<void(const QString&)>& inform);

  // Takes another language: its file, then its translations, and the default page labels in it. The windows are still
  // to be told. A message to be shown, or nothing.
  QString ChangeLanguage(const QString& name);
  // What the language file of the start had to be warned of; empty where it was right or missing.
  QString LanguageMessage() const { return languageMessage_; }

  std::optional<WindowPlacement> StoredPlacement() const { return placement_; }

 private:
  // Jobs of SaveAfterPoll write under the mutex, and not at all once the state has been written by somebody else: what
  // they hold is older.
  struct Writing {
    QMutex mutex;
    int newest = 0;
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
  QStringList written_;  // what SaveAfterPoll wrote last
};

// Twips a pixel: below 10 or above 20 no screen reports the truth, and 15 is taken.
int ClampTwips(int twips);
// UTC hour less local hour of one instant, not wrapped at midnight: -20 can stand for +4.
int UtcOffset(const QDateTime& local);
