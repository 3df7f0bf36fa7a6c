// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/page_logic.h"

PageLogic::PageLogic(Program& program, const Clock& clock, UrlNetwork& network, PictureTool& tool,
                     Background& background)
    : grid(program, tool, clock),
      ucCkNew1(network, tool),
      ucDnLoad(network),
      files(program, heights, tool, background),
      intake(program, grid, files, clock, ucDnLoad),
      check(program, heights, grid, ucCkNew1, ucDnLoad),
      poll(program, grid, files, intake, ucCkNew1, ucDnLoad, clock),
      sites(program, grid, files, poll, ucCkNew1, ucDnLoad),
      changes({program, grid, heights, files, poll, background}),
      mover(program, poll, files, changes),
      click(program, grid, poll),
      ucCam(network, tool),
      cams(program, grid, ucCam) {
  QObject::connect(&check, &NewImageCheck::Checked, &poll, &PollCycle::AfterCheck);
  QObject::connect(&changes, &SiteChanges::AboutToChange, &cams, &CamRound::SitesWillChange);
  QObject::connect(&changes, &SiteChanges::Changed, &cams, &CamRound::SitesChanged);
  QObject::connect(&changes, &SiteChanges::AboutToChange, &sites, &PageSites::ForgetUndo);
  QObject::connect(&sites, &PageSites::PlacesTouched, &changes, &SiteChanges::ForgetUndo);
  // Unique, because a test makes several PageLogic over the same network and tool.
  QObject::connect(&network, &UrlNetwork::HostFlooded, &tool, &PictureTool::Suspect, Qt::UniqueConnection);
}
