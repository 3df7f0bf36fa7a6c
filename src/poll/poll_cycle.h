// SPDX-License-Identifier: GPL-3.0-or-later
// The poll: who starts a walk over the page on the screen, the walk itself, the counting of its answers, its end and
// what follows. The main window forwards clicks and menu choices; the check and the intake report their answers.
#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

#include "core/program.h"
#include "page/thumb_grid.h"
#include "platform/clock.h"
#include "poll/download_control.h"
#include "poll/new_image_check.h"
#include "poll/picture_intake.h"
#include "poll/stored_page.h"

class PollCycle : public QObject {
  Q_OBJECT

 public:
  PollCycle(Program& program, ThumbGrid& grid, SlotPictures& files, PictureIntake& intake, ucCkNew& check,
            UserControl1& download, const Clock& clock, QObject* parent = nullptr);

  // Walks the DSSTV page: thumbs from the disk first, then a check for each site.
  void StartPoll(bool clearGrid);
  void StartWxPoll();
  // Shows what the disk has of the page, and asks nobody.
  void ShowStoredPage() { stored_.Show(); }

  // The starters. Each does nothing beyond its counters where there is no connection.
  void FirstPoll();
  void RefreshClick();
  void ReloadPage();
  void PageChange(int page);
  // After the grid has been made for another layout.
  void LayoutChange();
  void LanguageChange();
  // A site window has closed: polls again a moment later.
  void StartTimer5() { Timer5.start(); }

  // What the second pass does for a slot without asking.
  FilledSlot FillSlot(int slot, int site, const QString& call) { return stored_.FillSlot(slot, site, call); }

  void MnuRateClick(int index);
  void StopRefreshTimers();
  void StartRefreshTimer();
  // Caption of lblRefresh for the present settings.
  QString RefreshCaption() const;
  // True while imgRefresh shows: a walk is under way or answers are awaited.
  bool Busy() const { return busy_; }

  // The poll alone counts: each answer in one step with the comparison that may end the poll.
  void AfterCheck(int slot, CheckOutcome outcome);
  void AfterPicture(int slot, AnswerOutcome outcome);
  // A site that moves within the page is asked twice, and counts once.
  void TakeBackOne() { --program_.page.SitesDone; }
  // Shows the page as its places stand now and asks it, as a click on the refresh label does.
  void PlacesChanged();

  QTimer Timer4;        // 60 s, minutes of the WX page
  QTimer Timer5;        // 0.1 s, once
  QTimer Timer6;        // 60 s, minutes of a DSSTV page
  QTimer Timer10;       // 60 s, always; every fifth minute a cam round is due
  QTimer Timer12;       // 30 s while a poll runs; its tick does nothing
  QTimer tmrIfAllDone;  // 2 s after a poll, once

  void Timer4Tick();
  void Timer5Tick();
  void Timer6Tick();
  void Timer10Tick();
  void IfAllDoneTick();

 Q_SIGNALS:
  void BusyChanged(bool busy);
  void RefreshCaptionChanged();
  void PageChanged();
  // A walk begins: no tip may stay open over cells that change.
  void HoverForgotten();
  // Once a run, at the end of the first poll.
  void UpdateCheckWanted();
  // Status lights of the cam window back to yellow.
  void CamLightsReset();
  // 1: all sites with a cam; 2: those of the page.
  void CamRoundWanted(int round);

 private:
  void SetBusy(bool busy);
  void BeginStarter();
  void EndStarter();
  void Walk(bool clearGrid);
  void PollFinished();
  void EndIfExact();
  void EndIfReached();
  void EndIfAllAnswered();
  void AfterBlocked();
  // Update check and first cam round, from the places where the count may be reached out of turn.
  void EarlyPostPoll();
  QString UniqueTime() const;

  Program& program_;
  ThumbGrid& grid_;
  SlotPictures& files_;
  StoredPage stored_;
  ucCkNew& check_;
  UserControl1& download_;
  const Clock& clock_;
  bool busy_ = false;
  QSet<int> waiting_;      // slots of this poll that were asked and have not answered
  bool allAsked_ = false;  // false: some of the counted slots are never asked, and this poll does not end by answers
};
