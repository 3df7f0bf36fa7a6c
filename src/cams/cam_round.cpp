// SPDX-License-Identifier: GPL-3.0-or-later
#include "cams/cam_round.h"

#include <QSet>
#include <utility>

#include "page/cam_light.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Adds a call to a text of calls, each behind a "*". Once: a program that runs for weeks asks the same cams again and
// again.
void AddName(QString& names, const QString& call) {
  if (!(names + u'*').contains(u'*' + call + u'*')) names += u'*' + call;
}

}  // namespace

CamRound::CamRound(Program& program, ThumbGrid& grid, ucPollCam& ucCam, QObject* parent)
    : QObject(parent), program_(program), grid_(grid), ucCam_(ucCam) {
  Timer11.setSingleShot(true);
  Timer11.setInterval(100ms);
  connect(&Timer11, &QTimer::timeout, this, &CamRound::Timer11Tick);
  connect(&ucCam_, &ucPollCam::GotCamPic, this, &CamRound::OnCamAnswer);
  connect(&ucCam_, &ucPollCam::NoCamPic, this, &CamRound::OnCamFailure);
  connect(&ucCam_, &ucPollCam::Finished, this, &CamRound::OnFinished);
}

void CamRound::ListsRead() {
  // The label is hidden in mode 1 too until the user chooses a mode.
  isLabelShown_ = program_.config.CamMode == 0;
  if (program_.config.CamMode == 2) program_.sites.lstCams.clear();
  Q_EMIT CaptionChanged();
}

void CamRound::BeginCount() {
  CamsRequested = CamsFinished = ActiveCamCount = 0;
}

void CamRound::ShowLabel(bool shown) {
  isLabelShown_ = shown;
  Q_EMIT CaptionChanged();
}

void CamRound::PollAllCams() {
  Stop();
  running_ = AllCams;
  program_.page.ActiveCamNames.clear();
  if (program_.config.AutoPollCams == 1) program_.page.CamMinuteCount = 0;
  program_.page.txtActive = u"START"_s;
  BeginCount();
  isCounting_ = true;
  ShowLabel(true);
  // lstCams stays: it was filled when the mode was chosen, and at the start.
  for (int site = 0; site < program_.sites.Sites.size(); ++site) Ask(site);
  OnFinished();
}

void CamRound::PollPageCams() {
  Stop();
  running_ = PageCams;
  BeginCount();
  HideLights();
  const int page = program_.page.CurrentPage;
  // A page without DSSTV sites has no cams: not those of all pages, for which 0 stands.
  program_.sites.lstCams.clear();
  if (program_.page.OnDsstvPage()) program_.sites.ListCams(page);
  Q_EMIT ListChanged();
  Q_EMIT CaptionChanged();
  for (int site = 0; site < program_.sites.Sites.size(); ++site) {
    if (program_.sites.GetSiteSlot(site, page) > 0) Ask(site);
  }
  OnFinished();
}

// Shows the light of the site's slot yellow and asks its cam, if it has one.
void CamRound::Ask(int site) {
  const SiteRec& record = program_.sites.Sites.at(site);
  if (record.CamUrl.isEmpty() || record.Call.isEmpty()) return;
  ++CamsRequested;
  const int slot = program_.sites.GetSiteSlot(site, program_.page.CurrentPage);
  if (slot > 0) grid_.ShowCamLight(slot - 1, imgCamY);
  // Without a connection no cam is asked: each would turn red, which says nothing about the cam.
  if (program_.page.Online) ucCam_.DownloadCamPic(record.CamUrl, QString::number(site));
}

void CamRound::HideLights() {
  for (int slot = 0; slot < program_.page.ThumbCount; ++slot) grid_.ShowCamLight(slot, CamLight::Hidden);
}

void CamRound::RoundDue(int kind) {
  if (running_ != None) {
    due_ = static_cast<Kind>(kind);
  } else if (kind == AllCams) {
    PollAllCams();
  } else {
    PollPageCams();
  }
}

void CamRound::ListFailed() {
  if (!program_.page.OnDsstvPage()) return;
  program_.page.CamPollDue = false;
  if (program_.config.CamMode > 1) return;
  const bool isRunning = CamsFinished < CamsRequested;
  if (program_.config.CamMode == 1 && !isRunning) return PollPageCams();
  const QStringList before = program_.sites.lstCams;
  program_.sites.ListCams(program_.config.CamMode == 1 ? program_.page.CurrentPage : 0);
  if (isRunning) KeepMarks(before);
  Q_EMIT ListChanged();
  if (!isRunning) PollAllCams();
}

// The cams that have answered in the present round are not asked again in it.
void CamRound::KeepMarks(const QStringList& before) {
  QStringList& list = program_.sites.lstCams;
  const QSet<QString> isListed(list.cbegin(), list.cend());
  for (const QString& item : before) {
    const QString call = item.chopped(2);
    if (isListed.contains(call + "*Y"_L1)) program_.sites.SetCamMark(call, item.back());
  }
}

void CamRound::OnFinished() {
  if (ucCam_.IsBusy()) return;
  running_ = None;
  // On the weather page all answers are dropped: a round waits for another page.
  if (due_ == None || !program_.page.OnDsstvPage()) return;
  const Kind due = std::exchange(due_, None);
  Q_EMIT LightsReset();
  RoundDue(due);
}

void CamRound::PageChanged() {
  if (program_.config.CamMode == 1) {
    PollPageCams();
  } else {
    OnFinished();
  }
}

void CamRound::Stop() {
  Timer11.stop();
  ucCam_.CancelAll();
  running_ = due_ = None;
}

void CamRound::SitesWillChange() {
  if (running_ != None) ended_ = running_;
  Stop();
}

void CamRound::SitesChanged() {
  Q_EMIT ListChanged();
  Q_EMIT CaptionChanged();
  const Kind again = std::exchange(ended_, None);
  if (again != None && program_.page.OnDsstvPage()) RoundDue(again);
}

void CamRound::RefreshCams() {
  // Nothing would turn the lights back.
  if (program_.config.CamMode > 1 || !program_.page.Online || !program_.page.OnDsstvPage()) return;
  Q_EMIT LightsReset();
  Timer11.start();
}

void CamRound::Timer11Tick() {
  if (!program_.page.OnDsstvPage()) {
    due_ = program_.config.CamMode == 0 ? AllCams : None;
    return;
  }
  if (program_.config.CamMode == 0) PollAllCams();
  if (program_.config.CamMode == 1) PollPageCams();
}

void CamRound::SetActive(const QString& text) {
  const bool changed = std::exchange(program_.page.txtActive, text) != text;
  if (!changed || text != "REFRESH"_L1) return;
  if (program_.config.CamMode == 0) RefreshCams();
  if (program_.config.CamMode == 1) PollPageCams();
}

void CamRound::MnuCamModeClick(int index) {
  Config& config = program_.config;
  config.AutoPollCams = index == 3 ? 0 : 1;
  if (index < 0 || index > 2) return;
  config.CamMode = index;
  if (index == 0) {
    program_.sites.ListCams();
    Q_EMIT ListChanged();
    PollAllCams();
  } else if (index == 1) {
    ShowLabel(true);
    PollPageCams();
  } else {
    Stop();
    program_.page.txtActive.clear();
    program_.sites.lstCams.clear();
    HideLights();
    ShowLabel(false);
    Q_EMIT ListChanged();
  }
}

// The key is the index in Sites at the time of the question. Where a site has been taken out of the table meanwhile,
// the answer counts for whichever site has that index now: this is wanted, and the next round puts it right.
int CamRound::SiteOf(const QString& key) const {
  const int site = key.toInt();
  if (site >= program_.sites.Sites.size() || !program_.page.OnDsstvPage() || program_.config.CamMode == 2) return -1;
  return program_.sites.Sites.at(site).Call.isEmpty() ? -1 : site;
}

// Enters an answer into lstCams and turns the lights of the site.
void CamRound::Mark(int site, QChar mark) {
  const QString call = program_.sites.Sites.at(site).Call;
  program_.sites.SetCamMark(call, mark);
  const int slot = program_.sites.GetSiteSlot(site, program_.page.CurrentPage);
  if (slot > 0) grid_.ShowCamLight(slot - 1, LightOfMark(mark));
  Q_EMIT LightChanged(call, LightOfMark(mark));
  ++CamsFinished;
}

void CamRound::OnCamAnswer(const QString& key) {
  const int site = SiteOf(key);
  if (site < 0) return;
  const QString& call = program_.sites.Sites.at(site).Call;
  AddName(program_.page.txtActive, call);
  AddName(program_.page.ActiveCamNames, call);
  if (isCounting_) labelCount_ = ++ActiveCamCount;
  Mark(site, u'G');
  Q_EMIT CaptionChanged();
}

void CamRound::OnCamFailure(const QString& key) {
  const int site = SiteOf(key);
  if (site >= 0) Mark(site, u'R');
}

QString CamRound::LabelCaption() const {
  const QString word = program_.language[TextLine::kCamsWord];
  return labelCount_ ? word + u" (%1)"_s.arg(*labelCount_) : word;
}

QString CamRound::StatusTitle() const {
  const QString title = u"Omni-Perch  Cam sites status"_s;
  return isCounting_ ? title + u" (%1 active)"_s.arg(ActiveCamCount) : title;
}
