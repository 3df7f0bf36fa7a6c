// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/poll_cycle.h"

#include <QFile>

#include "core/page_files.h"
#include "core/picture_key.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kWxMinutes = 3;   // the WX page refreshes every three minutes whatever the chosen rate
constexpr int kCamMinutes = 5;  // a cam round falls due every fifth minute

}  // namespace

PollCycle::PollCycle(Program& program, ThumbGrid& grid, SlotPictures& files, PictureIntake& intake, ucCkNew& check,
                     UserControl1& download, const Clock& clock, QObject* parent)
    : QObject(parent),
      program_(program),
      grid_(grid),
      files_(files),
      stored_(program, grid, intake),
      check_(check),
      download_(download),
      clock_(clock) {
  for (QTimer* minute : {&Timer4, &Timer6, &Timer10}) minute->setInterval(60s);
  Timer12.setInterval(30s);
  Timer5.setInterval(100ms);
  tmrIfAllDone.setInterval(2s);
  Timer5.setSingleShot(true);
  tmrIfAllDone.setSingleShot(true);
  connect(&Timer4, &QTimer::timeout, this, &PollCycle::Timer4Tick);
  connect(&Timer5, &QTimer::timeout, this, &PollCycle::Timer5Tick);
  connect(&Timer6, &QTimer::timeout, this, &PollCycle::Timer6Tick);
  connect(&Timer10, &QTimer::timeout, this, &PollCycle::Timer10Tick);
  connect(&tmrIfAllDone, &QTimer::timeout, this, &PollCycle::IfAllDoneTick);
  connect(&intake, &PictureIntake::Answered, this, &PollCycle::AfterPicture);
  Timer10.start();
}

void PollCycle::SetBusy(bool busy) {
  if (busy_ == busy) return;
  busy_ = busy;
  Q_EMIT BusyChanged(busy);
}

void PollCycle::SetResting(bool resting) {
  if (resting_ == resting) return;
  resting_ = resting;
  Q_EMIT RestChanged(resting);
}

void PollCycle::TurnOn(QTimer& timer) {
  if (!timer.isActive()) timer.start();
  SetResting(false);
}

void PollCycle::StopRefreshTimers() {
  Timer4.stop();
  Timer6.stop();
}

void PollCycle::Rest() {
  StopRefreshTimers();
  // Without automatic polling nothing rests.
  SetResting(program_.config.AutoRefreshOn == 1);
}

void PollCycle::StartRefreshTimer() {
  if (program_.page.CurrentPage == PageState::WxPage) {
    program_.page.WxRefreshCounter = 0;
    TurnOn(Timer4);
  } else {
    // AutoRefreshCounter goes on: a manual refresh does not postpone the next automatic poll.
    TurnOn(Timer6);
  }
}

void PollCycle::BeginStarter() {
  StopRefreshTimers();
  if (program_.page.Online) SetBusy(true);
}

void PollCycle::EndStarter() {
  if (program_.config.AutoRefreshOn == 1) StartRefreshTimer();
}

void PollCycle::Walk(bool clearGrid) {
  if (program_.page.Online) {
    if (program_.page.OnDsstvPage()) {
      StartPoll(clearGrid);
    } else {
      StartWxPoll();
    }
  }
  EndStarter();
}

void PollCycle::FirstPoll() {
  PageState& page = program_.page;
  BeginStarter();
  page.SitesDone = 0;
  page.CamPollDue = true;
  page.UpdateCheckDue = true;
  // The user may have changed the page while the connection was being tested, so Walk takes the page of now.
  if (page.Online) Walk(false);
  // A first walk that cannot end by answers is followed by the work after a poll all the same, so that a user without
  // any site is offered those of the author's list. Later walks of such a page have no end.
  if (page.Online && (page.SitesOnPage == 0 || !allAsked_)) tmrIfAllDone.start();
}

void PollCycle::RefreshClick() {
  BeginStarter();
  Q_EMIT HoverForgotten();
  program_.page.CamPollDue = true;
  program_.page.SitesDone = 0;
  Walk(false);
}

void PollCycle::EndPoll() {
  check_.CancelAll();
  download_.CancelAll();
  files_.WithdrawAll();
  grid_.EndWaiting();
  PageState& page = program_.page;
  page.visit.Ask();
  page.SitesOnPage = page.SitesDone = 0;
  waiting_.clear();
  allAsked_ = false;
  Timer12.stop();
  tmrIfAllDone.stop();
  SetBusy(false);
  Q_EMIT HoverForgotten();
}

void PollCycle::ReloadPage() {
  BeginStarter();
  program_.page.EraseThumbFields();
  for (int slot = 0; slot < program_.page.ThumbCount; ++slot) {
    grid_.SetReloadMark(slot);
    files_.ForgetFailure(program_.page.CurrentPage, slot);
  }
  program_.page.SitesDone = 0;
  Walk(false);
}

void PollCycle::PageChange(int page) {
  PageState& state = program_.page;
  BeginStarter();
  state.CurrentPage = page;
  state.visit.Ask();
  state.EraseThumbFields();
  grid_.ClearThumbs();
  state.SitesDone = 0;
  state.CamRoundHeld = true;
  state.CamPollDue = true;
  state.txtActive = program_.config.CamMode < 2 ? u"START"_s : QString();
  Q_EMIT PageChanged();
  Walk(true);
  if (!state.Online) stored_.Show();
}

void PollCycle::LayoutChange() {
  BeginStarter();
  program_.page.visit.Ask();
  program_.page.EraseThumbFields();
  program_.page.SitesDone = 0;
  Walk(true);
  if (!program_.page.Online) stored_.Show();
}

void PollCycle::LanguageChange() {
  grid_.TakeLanguage();
  BeginStarter();
  program_.page.SitesDone = 0;
  Walk(false);
  if (!program_.page.Online) stored_.Show();
}

void PollCycle::PlacesChanged() {
  BeginStarter();
  Q_EMIT HoverForgotten();
  program_.page.SitesDone = 0;
  Walk(false);
  if (!program_.page.Online) stored_.Show();
}

void PollCycle::Timer6Tick() {
  PageState& page = program_.page;
  if (++page.AutoRefreshCounter < program_.config.AutoRefreshMinutes) return;
  page.AutoRefreshCounter = 0;
  BeginStarter();
  page.SitesDone = 0;
  Walk(false);
}

void PollCycle::Timer4Tick() {
  PageState& page = program_.page;
  if (++page.WxRefreshCounter != kWxMinutes) return;
  page.WxRefreshCounter = 0;
  BeginStarter();
  Walk(false);
}

void PollCycle::Timer5Tick() {
  BeginStarter();
  program_.page.EraseThumbFields();
  program_.page.CamPollDue = true;
  Walk(false);
  if (!program_.page.Online) stored_.Show();
}

void PollCycle::Timer10Tick() {
  PageState& page = program_.page;
  if (++page.CamMinuteCount != kCamMinutes) return;
  page.CamPollDue = true;
  // Without automatic cam rounds the count is not reset, and this is the only time that it reaches five.
  if (program_.config.AutoPollCams != 0) page.CamMinuteCount = 0;
}

void PollCycle::StartPoll(bool clearGrid) {
  PageState& page = program_.page;
  Q_EMIT HoverForgotten();
  if (clearGrid) grid_.ClearThumbs();
  SetBusy(true);
  Timer12.start();
  page.List1.clear();
  waiting_.clear();
  allAsked_ = true;
  stored_.ShowThumbs();
  page.SitesOnPage = 0;
  int errorPages = 0;
  for (int slot = 0; slot < page.ThumbCount; ++slot) {
    const std::optional<SlotPlace> place = PlaceAt(program_.sites, page.CurrentPage, slot);
    if (!place) continue;
    // Sites that are not asked count too, so that the poll of a page with such a site never ends: the busy sign stays,
    // and the next minute polls regardless.
    ++page.SitesOnPage;
    const ThumbGrid::Edit cell = grid_.EditCell(slot);
    const FilledSlot filled = stored_.FillSlot(slot, place->site, place->call);
    if (filled.errorPage) ++errorPages;
    cell->lblConnect = true;
    if (filled.url.contains("cam only"_L1, Qt::CaseInsensitive)) {
      grid_.ShowCamOnly(slot);
      allAsked_ = false;
    } else if (NewImageCheck::HasMarker(filled.url)) {
      waiting_.insert(slot);
      check_.DownloadFile(NewImageCheck::MarkerUrl(filled.url, UniqueTime()), QString::number(slot));
    } else {
      allAsked_ = false;
    }
  }
  // The error box of each stored error page counts. The counts are added only now that SitesOnPage is complete; before,
  // they could end the poll half-way.
  page.SitesDone += errorPages;
  if (errorPages > 0) EndIfReached();
  if (page.SitesOnPage == 0) SetBusy(false);
}

void PollCycle::StartWxPoll() {
  PageState& page = program_.page;
  const int layout = program_.config.ThumbLayout;
  if (layout < 1 || layout > kLayouts) return;
  SetBusy(true);
  waiting_.clear();
  allAsked_ = true;
  grid_.HidePictures();
  const auto slotOf = [layout](const SiteRec& site) {
    return static_cast<int>(Val(site.PageSlots[static_cast<std::size_t>(layout)])) - 1;
  };
  const QList<SiteRec>& sites = program_.sites.WxSites;
  for (const SiteRec& site : sites) {
    const int slot = slotOf(site);
    if (slot < 0) continue;
    if (slot >= page.ThumbCount) break;
    grid_.SetWxSite(slot, site.Call);
  }
  page.SitesOnPage = 0;
  for (const SiteRec& site : sites) {
    const int slot = slotOf(site);
    if (slot < 0) continue;
    ++page.SitesOnPage;
    if (slot >= page.ThumbCount) break;
    grid_.ClearFrom(slot);
    QString ScratchUrl = PlainUrl(site.Url);
    if (NewImageCheck::HasMarker(ScratchUrl)) {
      // ScratchUrl stays the marker's address, so that the picture of such a site is the marker itself.
      ScratchUrl = NewImageCheck::MarkerUrl(ScratchUrl, QString());
      check_.DownloadFile(ScratchUrl, QString::number(slot));
    }
    grid_.SetConnecting(slot, true);
    grid_.SetProgress(slot, 0);
    waiting_.insert(slot);
    download_.DownloadFile(ScratchUrl, PictureKey{page.CurrentPage, slot}.Text());
  }
  if (page.SitesOnPage == 0) SetBusy(false);
}

QString PollCycle::UniqueTime() const {
  return clock_.Now().toString(u"yyyyMMddHHmmss"_s);
}

void PollCycle::AfterCheck(int slot, CheckOutcome outcome) {
  // A WX site is asked for its picture whatever its marker says, so a WX slot waits for the picture.
  const bool dsstv = program_.page.OnDsstvPage();
  if (outcome == CheckOutcome::Unchanged) {
    ++program_.page.SitesDone;
    if (dsstv) waiting_.remove(slot);
  } else if (outcome == CheckOutcome::NoSite && dsstv) {
    // The late answer for a removed site counts, once.
    if (!waiting_.remove(slot)) return;
    ++program_.page.SitesDone;
  }
  if (program_.page.SitesDone >= program_.page.SitesOnPage) PollFinished();
  EndIfAllAnswered();
}

void PollCycle::AfterPicture(int slot, AnswerOutcome outcome) {
  waiting_.remove(slot);
  int& done = program_.page.SitesDone;
  ++done;
  switch (outcome) {
    case AnswerOutcome::Shown:
    case AnswerOutcome::GivenUp:
      EndIfExact();
      break;
    case AnswerOutcome::Blanked:
      AfterBlocked();
      EndIfExact();
      break;
    case AnswerOutcome::Unusable:
    case AnswerOutcome::Corrupt:
      // The arrival has counted above, and the error box counts once more. These double counts are intended.
      ++done;
      EndIfReached();
      break;
    case AnswerOutcome::Failed:
      EndIfReached();
      ++done;
      EndIfExact();
      break;
  }
  EndIfAllAnswered();
}

void PollCycle::EndIfExact() {
  // Equal, not at least: a double count may step over SitesOnPage, and then a later answer that tests for "at least"
  // ends the poll.
  if (program_.page.SitesDone == program_.page.SitesOnPage) PollFinished();
}

void PollCycle::EndIfReached() {
  const PageState& page = program_.page;
  if (page.SitesDone < page.SitesOnPage) return;
  SetBusy(false);
  // CamPollDue stays set, so that tmrIfAllDone runs the cam round once more.
  if (page.CamPollDue) EarlyPostPoll();
  PollFinished();
}

void PollCycle::EndIfAllAnswered() {
  // Sites that were moved or removed during the poll can keep the count from reaching SitesOnPage. The poll ends all
  // the same once no slot is awaited.
  if (busy_ && allAsked_ && waiting_.isEmpty()) PollFinished();
}

void PollCycle::AfterBlocked() {
  PageState& page = program_.page;
  if (page.SitesDone < page.SitesOnPage || !page.CamPollDue) return;
  EarlyPostPoll();
  page.CamPollDue = false;
}

void PollCycle::EarlyPostPoll() {
  PageState& page = program_.page;
  if (page.UpdateCheckDue) Q_EMIT UpdateCheckWanted();
  page.UpdateCheckDue = false;
  if (page.OnDsstvPage() && program_.config.CamMode == 0 && !page.CamRoundHeld) Q_EMIT CamRoundWanted(1);
}

void PollCycle::PollFinished() {
  SetBusy(false);
  tmrIfAllDone.start();
}

void PollCycle::IfAllDoneTick() {
  PageState& page = program_.page;
  tmrIfAllDone.stop();
  Timer12.stop();
  if (program_.config.AutoRefreshOn == 1 && page.OnDsstvPage()) TurnOn(Timer6);
  if (!page.CamPollDue) return;
  if (page.UpdateCheckDue) Q_EMIT UpdateCheckWanted();
  page.UpdateCheckDue = false;
  if (page.OnDsstvPage()) {
    Q_EMIT CamLightsReset();
    if (program_.config.CamMode == 0 && !page.CamRoundHeld) Q_EMIT CamRoundWanted(1);
    if (program_.config.CamMode == 1) Q_EMIT CamRoundWanted(2);
  }
  page.CamRoundHeld = false;
  page.CamPollDue = false;
}

void PollCycle::MnuRateClick(int index) {
  Config& config = program_.config;
  if (index >= 0 && index <= 2) {
    config.AutoRefreshMinutes = index == 0 ? 1 : index == 1 ? 2 : 5;
    config.AutoRefreshOn = 1;
    StartRefreshTimer();
  } else {
    config.AutoRefreshOn = 0;
    StopRefreshTimers();
    SetResting(false);
  }
  Q_EMIT RefreshCaptionChanged();
}

QString PollCycle::RefreshCaption() const {
  const Config& config = program_.config;
  const LanguageTexts& texts = program_.language;
  if (config.GuiMode == 0) return u"  "_s + texts[TextLine::kRefreshWord];
  if (config.AutoRefreshOn != 1)
    return texts[TextLine::kRefreshWord] + u" ("_s + texts[TextLine::kInactiveWord] + u") "_s;
  return texts[TextLine::kRefreshWord] + u" (auto %1 min) "_s.arg(config.AutoRefreshMinutes);
}
