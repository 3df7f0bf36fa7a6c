// SPDX-License-Identifier: GPL-3.0-or-later
// The operating choices of Omni-Perch.cfg, one a line, and their reader and writer.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include "platform/text/numbers.h"

struct Config {
  int GuiMode = 0;             // window size class 0 to 3
  int ThumbLayout = 0;         // 1 to 6: 5, 10, 15, 24, 35, 36 thumbnails
  int AutoRefreshOn = 0;       // 1: automatic polls
  int AutoRefreshMinutes = 1;  // 1, 2 or 5
  int DiskChoice = 0;          // carried through
  QString LanguageName;
  double MyLat = 0;  // degrees
  double MyLon = 0;
  int DistUnit = 0;  // 1: miles, 0: kilometres
  int CamMode = 0;   // 0 to 2
  int AutoPollCams = 0;
  QString MyCall;
  int MapIndex = 0;
  int CamView = 0;
  QString MyCallTyped;
  int CallbookIndex = 1;
  int SpareFlag = 0;  // carried through
  QDateTime LastRxOkTime;
  int MenuStyle = 0;  // carried through

  // Derived.
  QString CallbookName;  // empty above 5
  QString OnAirCode;     // language block of the on-air windows' built-in texts

  // Takes the lines of the file: short files leave the rest as it was, then the fixes and clamps.
  void Read(const QStringList& lines);
  // The 20 lines. mapLeft and mapTop: offsets of the map MapIndex, written only.
  QStringList Lines(int mapLeft, int mapTop) const;

  // Reads Omni-Perch.cfg in the data folder; false where there is none. One that is there and cannot be read leaves
  // everything as it was, and SaveConfig then leaves that file alone.
  bool ReadConfig(const QString& appDataDir);
  // False where the file was not written; the old one is whole then.
  bool SaveConfig(const QString& appDataDir, int mapLeft, int mapTop) const;

 private:
  void ReadReportLine(const QString& line);

  bool unreadable_ = false;
};

// Name of a callbook service as it is at the start and in messages; empty outside 1 to 5.
QString CallbookNameOf(int index);
// The on-air language code of a language name; fallback for a name that is not known.
QString OnAirLanguageCode(const QString& languageName, const QString& fallback);
