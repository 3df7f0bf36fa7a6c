// SPDX-License-Identifier: GPL-3.0-or-later
// The logic objects of the page, made and connected in one place: the main window owns one, and so does every test that
// polls without a screen.
#pragma once

#include "cams/cam_reader.h"
#include "cams/cam_round.h"
#include "core/program.h"
#include "display/page_click.h"
#include "page/thumb_grid.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/net/url_reader.h"
#include "platform/picture/picture_tool.h"
#include "poll/download_control.h"
#include "poll/height_table.h"
#include "poll/new_image_check.h"
#include "poll/picture_intake.h"
#include "poll/poll_cycle.h"
#include "poll/slot_pictures.h"
#include "sites/page_mover.h"
#include "sites/page_sites.h"
#include "sites/site_changes.h"

// Each object may use those above it.
struct PageLogic {
  PageLogic(Program& program, const Clock& clock, UrlNetwork& network, PictureTool& tool, Background& background);

  HeightTable heights;
  ThumbGrid grid;
  ucCkNew ucCkNew1;
  UserControl1 ucDnLoad;
  SlotPictures files;
  PictureIntake intake;
  NewImageCheck check;
  PollCycle poll;
  PageSites sites;
  SiteChanges changes;
  PageMover mover;
  PageClick click;
  ucPollCam ucCam;
  CamRound cams;
};
