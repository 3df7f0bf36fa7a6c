// SPDX-License-Identifier: GPL-3.0-or-later
// The program's texts by role, in English. The one place where a user-visible text stands in the code; windows and
// logic take them from Program.
#pragma once

#include <QString>

struct Texts {
  QString RefreshWord = QStringLiteral("Refresh");
  QString OffWord = QStringLiteral("off");
  QString FindCaption = QStringLiteral("Find");
  QString OnAirCaption = QStringLiteral("On Air");
  QString PropagationCaption = QStringLiteral("Propagation");
  QString CamsWord = QStringLiteral("Cams");
  QString PageWord = QStringLiteral("Page ");
  QString WxPageName = QStringLiteral("Weather");

  QString ConnectingText = QStringLiteral("Connecting...");
  QString FromWord = QStringLiteral("From ");
  QString AgeWord = QStringLiteral(" - ");
  QString DayWord = QStringLiteral(" day");
  QString DaysWord = QStringLiteral(" days");
  QString ErrorCaption = QStringLiteral("ERROR");
  QString ErrorWord = QStringLiteral("Site error");
  QString CorruptText = QStringLiteral("Picture corrupt");
  QString NoPictureText = QStringLiteral("No picture");
  QString BlockedCaption = QStringLiteral("BLOCKED");
  QString BlockedText = QStringLiteral("Blocked call");
  QString IllegalText = QStringLiteral("Illegal callsign");

  QString AlreadyRunning = QStringLiteral("Omni-Perch is already running.");
  QString ConnectivityQuestion =
      QStringLiteral("There is no connection to the Internet.\nTry again, or go on without polling?");
  QString ClosingText = QStringLiteral("Omni-Perch is closing");

  // Read aloud and shown in tool tips only.
  QString CallFieldName = QStringLiteral("Callsign to look up");
  QString LookUpName = QStringLiteral("Look the callsign up");
  QString EmptyCellName = QStringLiteral("Empty slot");
  QString PageGridName = QStringLiteral("Pictures of the page");
  QString BusyName = QStringLiteral("Polling");
};
