// SPDX-License-Identifier: GPL-3.0-or-later
// What the disk has of the page on the screen: thumbs, captions and the boxes of pictures that failed, shown without
// asking anybody. The poll's walk begins with it, and a page without a connection is nothing else.
#pragma once

#include <QString>
#include <optional>

#include "core/program.h"
#include "page/thumb_grid.h"
#include "poll/picture_intake.h"

// Who stands in a slot.
struct SlotPlace {
  int site = 0;  // index into Sites
  QString call;
};

// Who stands in a 0-based slot of a page, if anybody does.
std::optional<SlotPlace> PlaceAt(const SiteTable& sites, int page, int slot);

// What filling a slot has told.
struct FilledSlot {
  QString url;             // the site's plain address
  bool errorPage = false;  // the stored picture is an error page, and the box stands in the cell
};

class StoredPage {
 public:
  StoredPage(Program& program, ThumbGrid& grid, PictureIntake& intake);

  // The whole page.
  void Show();
  // The thumbs alone; a thumb whose picture is gone goes too.
  void ShowThumbs();
  // One slot of a DSSTV page: captions, list and fields, and its picture.
  FilledSlot FillSlot(int slot, int site, const QString& call);

 private:
  void ShowWx();

  Program& program_;
  ThumbGrid& grid_;
  PictureIntake& intake_;
};
