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

// The poll of the page on the screen.
class PollCycle : public QObject {
  Q_OBJECT

 public:
  PollCycle(Program& program, ThumbGrid& grid, SlotPictures& files, PictureIntake& intake, ucCkNew& check,
            UserControl1& download, const Clock& clock, QObject* parent = nullptr);

  // Walks the DSSTV page: shows the thumbs on the disk, then asks each site for its marker.
  void StartPoll(bool clearGrid);
  void StartWxPoll();
  // Shows the page from the disk and asks no site.
  void ShowStoredPage() { stored_.Show(); }

  // What starts a walk. Without a connection no site is asked.
  void FirstPoll();
  void RefreshClick();
  void ReloadPage();
  void PageChange(int page);
  // To be called after the grid has been made for another layout.
  void LayoutChange();
  void LanguageChange();
  // Ends the walk and its answers, for somebody who is about to change the tables: no read, no picture and no count of
  // this poll comes any more, and the indices that they carry mean nothing from then on.
  void EndPoll();
  // A site window has closed: polls again a moment later.
  void StartTimer5() { Timer5.start(); }

  // Shows caption and picture of one slot from the disk, as the walk does before it asks the site.
  FilledSlot FillSlot(int slot, int site, const QString& call) { return stored_.FillSlot(slot, site, call); }

  void MnuRateClick(int index);
  void StopRefreshTimers();
  // The user looks at a picture: automatic polling rests, also after the picture is closed, until a poll of a DSSTV
  // page ends normally or the user refreshes, changes the page or chooses a rate.
  void Rest();
  bool Resting() const { return resting_; }
  void StartRefreshTimer();
  // Caption of lblRefresh for the present settings.
  QString RefreshCaption() const;
  // True while imgRefresh shows: a walk is under way or answers are awaited.
  bool Busy() const { return busy_; }

  // Counts an answer and, in the same step, ends the poll if that was the last. Nobody else counts the page's answers;
  // a site's history counts its own in the same two variables.
  void AfterCheck(int slot, CheckOutcome outcome);
  void AfterPicture(int slot, AnswerOutcome outcome);
  // Takes one count back: a site that moves within the page is asked twice and must count once.
  void TakeBackOne() { --program_.page.SitesDone; }
  // Sites have changed their slots: shows the page as it is now and polls it, as a click on lblRefresh does.
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
  void RestChanged(bool resting);
  // A walk begins; a tip over cells that change now has to close.
  void HoverForgotten();
  // Once a run, at the end of the first poll.
  void UpdateCheckWanted();
  // The cam window sets its status lights back to yellow.
  void CamLightsReset();
  // A cam round is due; 1: all sites with a cam, 2: those of the page.
  void CamRoundWanted(int round);

 private:
  void SetBusy(bool busy);
  void SetResting(bool resting);
  // Starts a refresh timer; one that is running already is not restarted, so that its minute goes on.
  void TurnOn(QTimer& timer);
  void BeginStarter();
  void EndStarter();
  void Walk(bool clearGrid);
  void PollFinished();
  void EndIfExact();
  void EndIfReached();
  void EndIfAllAnswered();
  void AfterBlocked();
  // Runs update check and cam round before tmrIfAllDone does: an error box or a blocked picture has reached the count.
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
  bool resting_ = false;
  QSet<int> waiting_;  // slots that this poll has asked and that have not answered
  // False: some counted slots are never asked, so the poll does not end when all asked ones have answered.
  bool allAsked_ = false;
};
