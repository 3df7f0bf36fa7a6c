// SPDX-License-Identifier: GPL-3.0-or-later
// What all rooms share: made in main, handed down by reference, alive for the whole run.
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

  QChar ZeroGlyph = QChar(u'Ø');  // shows a zero inside a call
  int UtcOffsetHours = 0;         // added to local time gives UTC; not wrapped at midnight

  QStringList lstBadCalls;
  QStringList lstBlock;
  NicknameList nicknames;
  QStringList lstMap;
  QStringList lstLanguages;
  QStringList PageLabels;  // index 1 to 21; 0 is never used
  QString SaveDir;
  QList<int> MapLeft;
  QList<int> MapTop;

  QString LookupStatus;  // login state at the callbook service, as the lookup window showed it last
};
