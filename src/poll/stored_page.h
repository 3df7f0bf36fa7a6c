// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the page on the screen from the disk without asking any site: thumbs, captions, and error boxes of pictures
// that failed. The poll's walk begins with it; without a connection it is all that is shown.
#pragma once

#include <QString>
#include <optional>

#include "core/program.h"
#include "page/thumb_grid.h"
#include "poll/picture_intake.h"

// The site in a slot.
struct SlotPlace {
  int site = 0;  // index into Sites
  QString call;
};

// The site in a slot (from 0) of a page; nothing for an empty slot.
std::optional<SlotPlace> PlaceAt(const SiteTable& sites, int page, int slot);

// What FillSlot has found.
struct FilledSlot {
  QString url;             // the site's plain address
  bool errorPage = false;  // the stored picture is an error page, and the cell shows the error box
};

// The page on the screen, as the disk has it.
class StoredPage {
 public:
  StoredPage(Program& program, ThumbGrid& grid, PictureIntake& intake);

  // The whole page.
  void Show();
  // The thumbs alone; a thumb whose picture is gone is removed.
  void ShowThumbs();
  // One slot of a DSSTV page: its captions, List1, its fields, and its picture.
  FilledSlot FillSlot(int slot, int site, const QString& call);

 private:
  void ShowWx();

  Program& program_;
  ThumbGrid& grid_;
  PictureIntake& intake_;
};
