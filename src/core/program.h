// SPDX-License-Identifier: GPL-3.0-or-later
// The state that all folders share. Services makes one, which is handed down by reference and lives for the whole run;
// a test makes its own on a temporary folder.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include "core/config.h"
#include "core/language_file.h"
#include "core/page_state.h"
#include "core/site_table.h"
#include "station/nicknames.h"

inline constexpr int kMapOffsets = 9;

// Plain state: settings, site tables, shared lists, the page on the screen, language texts.
struct Program {
  static QString ProgVersion() { return QStringLiteral("Omni-Perch  6.50"); }
  static QString ProgReleased() { return QStringLiteral("Released 1/24/24"); }
  static QString Title() { return QStringLiteral("Omni-Perch"); }

  QString AppDataDir;  // data folder, no trailing separator
  QString CallsDir;    // data folder of a sibling program
  QString ProgramDir;  // folder of the executable

  Config config;
  SiteTable sites;
  PageState page;
  LanguageTexts language;  // texts of the language file by line; empty until one has been read

  QChar ZeroGlyph = QChar(u'Ø');  // shown in place of a zero in a call
  int UtcOffsetHours = 0;         // to be added to local time for UTC; not wrapped at midnight

  QStringList lstBadCalls;
  QStringList lstBlock;
  NicknameList nicknames;
  QStringList lstMap;
  QStringList lstLanguages;
  QStringList PageLabels;  // index 1 to 21; 0 is never used
  QString SaveDir;
  QList<int> MapLeft;
  QList<int> MapTop;
};
