// SPDX-License-Identifier: GPL-3.0-or-later
// The one table of the settings in the keyed store: window placement, map offsets, page names, blocked calls and the
// choices of single windows. Start-up, the saving of the state and those windows read and write the store through it.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>
#include <optional>

#include "platform/settings_store.h"

// Place of the main window, in pixels of the screen.
struct WindowPlacement {
  static constexpr int kNormal = 1;
  static constexpr int kMaximized = 3;
  static constexpr int kRestored = 9;

  int flags = 0;
  int showCmd = kRestored;
  QPoint minimized{100, 100};
  QRect normal{0, 0, 100, 100};

  bool IsMaximized() const { return showCmd == kMaximized; }
};

// The settings.
enum class Setting {
  PlacementFlags,
  PlacementShowCmd,
  PlacementMinX,
  PlacementMinY,
  PlacementLeft,
  PlacementTop,
  PlacementRight,
  PlacementBottom,
  MapLeft,    // index: map 0 to 8
  MapTop,     // index: map 0 to 8
  PageLabel,  // index: page 1 to 20
  SaveDir,
  Block,  // index 0 to 9
  PrintSize,
  OnAirMapIndex,
  TxBand,
  TxMode,
  OnAirBandCheck,  // index from 0 up, as are the next three; shared with the companion program
  OnAirModeCheck,
  MapBandCheck,
  MapModeCheck
};

// Reads and writes the settings by name.
class StoredSettings {
 public:
  static constexpr int kMaps = 9;
  static constexpr int kPages = 20;
  static constexpr int kBlocked = 10;

  explicit StoredSettings(SettingsStore& store) : store_(store) {}

  // A text that is no number, or a missing one, gives the default of the setting; check boxes give 0 or 1.
  int Number(Setting setting, int index = 0) const;
  void SetNumber(Setting setting, int value) { SetNumber(setting, 0, value); }
  void SetNumber(Setting setting, int index, int value);
  QString Text(Setting setting, int index, const QString& fallback) const;
  void SetText(Setting setting, int index, const QString& value);

  // Nothing if no placement has ever been stored.
  std::optional<WindowPlacement> ReadPlacement() const;
  // A minimized window is stored as a normal one, so that the program never comes back minimized.
  void StorePlacement(const WindowPlacement& placement);

  // Entries 0 to 8 of MapLeft or MapTop; each map has a default of its own.
  QList<int> ReadMapOffsets(Setting mapSide) const;
  void StoreMapOffsets(const QList<int>& mapLeft, const QList<int>& mapTop);

  // Index 1 to 20 and, last, the name of the WX page; index 0 is empty. pageWord ends in its blank.
  QStringList ReadPageLabels(const QString& pageWord, const QString& wxPageName) const;
  void StorePageLabels(const QStringList& labels);

  QStringList ReadBlockList() const;
  // Stores the first ten calls; the other keys are emptied.
  void StoreBlockList(const QStringList& calls);

  // False if the store could not be written.
  bool Save() { return store_.Save(); }

 private:
  SettingsStore& store_;
};
