// SPDX-License-Identifier: GPL-3.0-or-later
// The operating choices of Omni-Perch.cfg, one a line, and their reader and writer.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include "platform/text/numbers.h"

// The values of the file, in the order of its lines, and two that follow from them.
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

  // Follow from CallbookIndex and LanguageName.
  QString CallbookName;  // empty above 5
  QString OnAirCode;     // language block of the on-air windows' built-in texts

  // Takes the lines of the file and corrects values out of range. A file with fewer lines leaves the other values as
  // they were.
  void Read(const QStringList& lines);
  // The 20 lines of the file. mapLeft and mapTop are the offsets of the map MapIndex; they are written but never read.
  QStringList Lines(int mapLeft, int mapTop) const;

  // Reads Omni-Perch.cfg in the data folder; false if there is no such file. A file that is there but cannot be read
  // changes nothing, and SaveConfig then leaves that file alone.
  bool ReadConfig(const QString& appDataDir);
  // False if the file could not be written; the old file is intact then.
  bool SaveConfig(const QString& appDataDir, int mapLeft, int mapTop) const;
  // The same with the last three lines empty, as the window of the own location has always written the file: callbook
  // service, time of the last report and menu style fall back to their defaults if the program dies before SaveConfig.
  bool SaveSetupLines(const QString& appDataDir, int mapLeft, int mapTop) const;
  static QString Path(const QString& appDataDir);

 private:
  void ReadReportLine(const QString& line);
  bool Write(const QString& appDataDir, const QStringList& lines) const;

  bool unreadable_ = false;
};

// The name of a callbook service that CallbookName has after the start; empty outside 1 to 5.
QString CallbookNameOf(int index);
// The on-air language code for a language name; `fallback` for an unknown name.
QString OnAirLanguageCode(const QString& languageName, const QString& fallback);
