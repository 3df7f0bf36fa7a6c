// SPDX-License-Identifier: GPL-3.0-or-later
// The state of the page on the screen and of the poll that runs over it. The poll's modules change it; the page's cells
// and the hover tips read it.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

#include "platform/wanted.h"

inline constexpr int kWxPage = 21;
inline constexpr int kMaxSlots = 36;

// Fields of a slot in ThumbFields; the numbers are the given ones. 4 to 6 belong to the window of a site's last
// pictures.
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
  Wanted visit;           // renewed by every change of page or layout; answers for an earlier visit do not count

  bool Online = false;
  bool CamPollDue = true;
  bool UpdateCheckDue = true;
  bool UpdatePromptAllowed = true;
  bool CamRoundHeld = false;
  int SitesOnPage = 0;
  int SitesDone = 0;
  int AutoRefreshCounter = 0;  // minutes
  int WxRefreshCounter = 0;    // minutes
  int CamMinuteCount = 0;      // minutes until a cam round is due at 5; a count of 6 or more never gets there
  QString txtActive;           // "START" lets the cams be polled; then the calls of those that have answered
  QString ActiveCamNames;      // "*" and the call of each cam that has answered
  QStringList List1;           // calls of the page: call, four blanks, slot + 1

  std::array<std::array<QString, 11>, 37> ThumbFields;  // slot, field

  QString& Field(int slot, ThumbField field) { return ThumbFields[static_cast<std::size_t>(slot)][field]; }
  const QString& Field(int slot, ThumbField field) const { return ThumbFields[static_cast<std::size_t>(slot)][field]; }
  // Erases all fields; as that includes LastHeight, every slot then counts as changed.
  void EraseThumbFields() { ThumbFields = {}; }
  bool OnDsstvPage() const { return CurrentPage < WxPage; }
};
