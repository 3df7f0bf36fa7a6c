// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/main_cams.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

MainCams::MainCams(const MainWindow& mainWindow, QObject* parent)
    : QObject(parent),
      services_(mainWindow.services),
      program_(mainWindow.services.program),
      logic_(mainWindow.logic),
      pic_(mainWindow.pic),
      windows_(mainWindow.windows),
      viewer_(mainWindow.services.run.programDir) {
  Timer9.setSingleShot(true);
  Timer9.setInterval(1ms);
  connect(&Timer9, &QTimer::timeout, this, &MainCams::Timer9Tick);
  connect(&logic_.cams, &CamRound::CaptionChanged, this, &MainCams::ShowLabel);
  connect(&logic_.poll, &PollCycle::CamLightsReset, &logic_.cams, &CamRound::LightsReset);
  connect(&logic_.poll, &PollCycle::CamRoundWanted, &logic_.cams, &CamRound::RoundDue);
  connect(pic_.lblCam, &BarLabel::clicked, this, [this]() { windows_.Show(WindowKind::CamStatus); });
  connect(&mainWindow.picAll, &PageView::CamPressed, this,
          [this](int slot) { ShowCamOf(program_.page.Field(slot, SlotCall)); });
  connect(&windows_, &Windows::CamWanted, this, &MainCams::ShowCamOf);
  RegisterCommands();
}

void MainCams::RegisterCommands() {
  Commands& commands = services_.commands;
  commands.Register(Command::SetCamMode, this,
                    [this](const MenuChoice& choice) { logic_.cams.MnuCamModeClick(choice.index); });
  commands.Register(Command::SetCamView, this,
                    [this](const MenuChoice& choice) { program_.config.CamView = choice.index; });
  commands.Register(Command::ShowCam, this, [this](const MenuChoice& choice) { ShowCamOf(choice.subject.site); });
  commands.Register(Command::OpenSiteIndex, this, [this](const MenuChoice& choice) { OpenIndex(choice.subject); });
}

void MainCams::ShowLabel() {
  pic_.lblCam->SetCaption(logic_.cams.LabelCaption());
  pic_.lblCam->SetNote(program_.language[TextLine::kCamsTip].trimmed());
  pic_.lblCam->setVisible(logic_.cams.LabelIsShown());
}

void MainCams::PageChanged() {
  // The index lists the sites of the page that was on the screen, and its cell is gone.
  windows_.Close(WindowKind::SiteIndex);
  logic_.cams.PageChanged();
}

void MainCams::Stop() {
  Timer9.stop();
  logic_.cams.Stop();
  logic_.cams.SetActive({});
}

void MainCams::ShowCamOf(const QString& call) {
  int site = program_.sites.FindCall(call);
  if (site < 0) site = program_.sites.FindCall(QString(call).replace(u'Ø', u'0'));
  if (site < 0 || program_.config.CamMode > 1) return;
  viewer_.Show(program_.sites.Sites.at(site).CamUrl, program_.sites.Sites.at(site).Call, program_.config.CamView == 1);
}

void MainCams::OpenIndex(const MenuSubject& subject) {
  const Choice origin{-1, program_.page.CurrentPage, subject.source.slot, subject.empty};
  Form19& index = windows_.ShowSiteIndex();
  disconnect(&index, &Form19::SiteChosen, this, nullptr);
  connect(&index, &Form19::SiteChosen, this, [this, origin](int site) {
    choice_ = origin;
    choice_.site = site;
    Timer9.start();
  });
}

void MainCams::Timer9Tick() {
  if (choice_.page != program_.page.CurrentPage || !logic_.grid.HasSlot(choice_.slot)) return;
  // The cell may have been filled since. Adding the site would then drive another one off the page.
  const bool isEmpty = choice_.wasEmpty && logic_.grid.Cells().at(choice_.slot).lblCall.isEmpty();
  if (isEmpty || !program_.page.OnDsstvPage()) {
    program_.page.SelectedSlot = choice_.slot;
    logic_.sites.AddSiteToSlot(choice_.site);
  } else if (choice_.site >= 0 && choice_.site < program_.sites.Sites.size()) {
    windows_.ShowHistory({.Last15Site = choice_.site});
  }
}
