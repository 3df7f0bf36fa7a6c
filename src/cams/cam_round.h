// SPDX-License-Identifier: GPL-3.0-or-later
// The rounds that test which cams answer, and what follows from an answer: the list of cams, the lights of the page,
// the count. The poll's end, the menus and the windows of cams call it; the windows listen to its signals.
#pragma once

#include <QObject>
#include <QTimer>
#include <optional>

#include "cams/cam_reader.h"
#include "core/program.h"
#include "page/thumb_grid.h"

// The rounds over all cams and over those of the page.
class CamRound : public QObject {
  Q_OBJECT

 public:
  // The kinds of rounds, by the numbers that PollCycle gives them.
  enum Kind { None = 0, AllCams = 1, PageCams = 2 };

  CamRound(Program& program, ThumbGrid& grid, ucPollCam& ucCam, QObject* parent = nullptr);

  // To be called when the site list has been read.
  void ListsRead();
  // Begin a round at once; one that is under way is cancelled.
  void PollAllCams();
  void PollPageCams();
  // A round falls due. During one it waits for that one's end.
  void RoundDue(int kind);
  // The author's list could not be read, with which a cam round would have come: the list of cams is made anew, and a
  // round begins unless one is under way.
  void ListFailed();
  // Another page, or the same in another layout, is on the screen: a round over the page's cams is for that one.
  void PageChanged();
  // The menu mnuRefresh: all lights turn yellow, and a round begins a moment later.
  void RefreshCams();
  // Writes txtActive. "REFRESH" begins a round; nobody sends it today.
  void SetActive(const QString& text);
  // The program closes: ends the round.
  void Stop();
  // The site tables are about to change: ends the round, whose answers carry indices into them.
  void SitesWillChange();
  // They have changed: the windows of cams list them anew, and a round that was ended begins again.
  void SitesChanged();

  // 0: all cams; 1: those of the page; 2: off; 3: all that stays as it is but the rounds do not repeat.
  void MnuCamModeClick(int index);

  // Whether lblCam is to be seen, and what it says.
  bool LabelIsShown() const { return isLabelShown_; }
  QString LabelCaption() const;
  // Title of the window of all cams.
  QString StatusTitle() const;

  QTimer Timer11;  // 100 ms, once: begins the round that the user wants
  int CamsRequested = 0;
  int CamsFinished = 0;
  int ActiveCamCount = 0;

 Q_SIGNALS:
  // lblCam and the titles say something else now, or the label comes or goes.
  void CaptionChanged();
  // The first cell of the call in each window of cams takes this light.
  void LightChanged(const QString& call, CamLight light);
  // All lights of the window of all cams turn yellow.
  void LightsReset();
  // lstCams names other sites than before.
  void ListChanged();

 private:
  void OnCamAnswer(const QString& key);
  void OnCamFailure(const QString& key);
  void Timer11Tick();
  void OnFinished();
  // Index of the site that an answer is for; -1 where the answer is ignored.
  int SiteOf(const QString& key) const;
  void Mark(int site, QChar mark);
  void Ask(int site);
  void HideLights();
  void KeepMarks(const QStringList& before);
  void BeginCount();
  void ShowLabel(bool shown);

  Program& program_;
  ThumbGrid& grid_;
  ucPollCam& ucCam_;
  Kind running_ = None;
  Kind due_ = None;                // waits for the end of the running round
  Kind ended_ = None;              // by a change of the site tables
  bool isCounting_ = false;        // from the first round over all cams on
  std::optional<int> labelCount_;  // what lblCam says: it changes with an answer, not with the beginning of a round
  bool isLabelShown_ = false;
};
