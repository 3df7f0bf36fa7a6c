// SPDX-License-Identifier: GPL-3.0-or-later
// The left click on a picture of the page: which cells refuse it, where their files are, and what stops. The main
// window forwards the cells' presses, and Windows opens the viewer that it asks for.
#pragma once

#include <QObject>

#include "core/program.h"
#include "display/picture_source.h"
#include "page/thumb_grid.h"
#include "poll/poll_cycle.h"

// The handler of the page's left click.
class PageClick : public QObject {
  Q_OBJECT

 public:
  PageClick(Program& program, ThumbGrid& grid, PollCycle& poll, QObject* parent = nullptr);

  // The left button, Return or Space on a cell.
  void Press(int slot);
  // A cell's picture, and all those of the page that a click would open, in the order of their slots.
  SourcePicture PictureOf(int slot) const;
  PictureList Pictures(int slot) const;
  // True if the cell has a picture that a click may open.
  bool Opens(int slot) const;
  // Ctrl and the left button or Space: marks a picture for the comparison.
  void Mark(int slot);
  // Asks for the comparison of the two marked pictures; false where there are no two.
  bool Compare();
  // A picture of the page has turned out to be a film: shows the mark of a film over its cell, unless another page or
  // another picture is there by now.
  void MarkFilm(const SourcePicture& picture);

 Q_SIGNALS:
  void ViewerWanted(const PictureList& pictures);
  void ComparisonWanted(const PictureList& pair);

 private:
  Program& program_;
  ThumbGrid& grid_;
  PollCycle& poll_;
};
