// SPDX-License-Identifier: GPL-3.0-or-later
// A picture as the window says it whose cell or menu was clicked, and the pictures of that window among which the
// viewer steps. Made by the page's click and by the history, taken by the viewer and the comparison; never asked back
// from whichever window happens to be open.
#pragma once

#include <QList>
#include <QString>
#include <functional>

#include "ui/commands.h"

// One picture and what was known about it at the click.
struct SourcePicture {
  QString file;      // path; a file of this name with any extension is meant too
  QString site;      // call of the site, with plain zeros; the caption on the weather page
  QString sender;    // call as the cell's fields have it; empty or "Not found": none
  QString mode;      // mode tag, a blank and the "snr ..." text; may be empty
  QString sentTime;  // UTC, as the cell's fields have it; may be empty
  QString host;      // of the station: behind all others wait the pictures of a host whose picture has hung
  PictureSource source;
  bool weather = false;  // of the weather page, where no caption is a call

  bool operator==(const SourcePicture& other) const {
    return file == other.file && site == other.site && source.window == other.source.window &&
           source.slot == other.source.slot;
  }
};

// The pictures of one window in their order, without empty cells, and which of them is meant.
struct PictureList {
  QList<SourcePicture> pictures;
  qsizetype at = 0;
  // The list as the window has it by now, while the window exists: its files and what is known of them change. Empty:
  // there is no other.
  std::function<PictureList()> renew;

  bool Holds(qsizetype index) const { return index >= 0 && index < pictures.size(); }
};
