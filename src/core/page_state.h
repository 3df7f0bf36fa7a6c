// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of the page on the screen and of the poll that runs over it. The poll's modules change it, the page's
// cells and the hover tips read it.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

#include "platform/wanted.h"

inline constexpr int kWxPage = 21;
inline constexpr int kMaxSlots = 36;

// Fields of a row of ThumbFields. 4 to 6 belong to the window of a site's last pictures.
enum ThumbField : std::size_t {
  Caller = 1,      // call of the station whose picture this is, or "Not found"
  ModeText = 2,    // mode tag, a blank and the "snr ..." text
  SentTime = 3,    // date and time of the picture, UTC
  SlotCall = 7,    // call of the site in this slot
  SlotSite = 8,    // index of the site in Sites, as text
  LastHeight = 9,  // marker height at the last check of this run; "0" after a failed check
  ShownMark = 10   // cleared after a picture is shown
};

// The page on the screen.
struct PageState {
  static constexpr int WxPage = kWxPage;

  int CurrentPage = 1;    // 1 to 20, or WxPage
  int ThumbCount = 0;     // slots of the layout
  int SelectedSlot = -1;  // 0-based slot of the last click; -1: none
  Wanted visit;           // asked anew by every change of page or layout: older answers do not count

  bool Online = false;
  bool CamPollDue = true;
  bool UpdateCheckDue = true;
  bool UpdatePromptAllowed = true;
  bool CamRoundHeld = false;
  int SitesOnPage = 0;
  int SitesDone = 0;
  int AutoRefreshCounter = 0;  // minutes
  int WxRefreshCounter = 0;    // minutes
  int CamMinuteCount = 0;      // minutes; at 6 it never reaches 5
  QString txtActive;           // "START" lets the cams be polled
  QStringList List1;           // calls of the page: call, four blanks, slot + 1

  std::array<std::array<QString, 11>, 37> ThumbFields;  // slot, field

  QString& Field(int slot, ThumbField field) { return ThumbFields[static_cast<std::size_t>(slot)][field]; }
  const QString& Field(int slot, ThumbField field) const { return ThumbFields[static_cast<std::size_t>(slot)][field]; }
  // Forgets the heights of this run with all else, so that every slot counts as changed.
  void EraseThumbFields() { ThumbFields = {}; }
  bool OnDsstvPage() const { return CurrentPage < WxPage; }
};
