// SPDX-License-Identifier: GPL-3.0-or-later
// One cell of the page as plain values: all that a thumbnail cell shows. The page's logic changes it, the cell's widget
// paints it. Lengths are units of the page, 132 by 119 a cell, whatever the window's size.
#pragma once

#include <QColor>
#include <QList>
#include <QRectF>
#include <QString>
#include <optional>

#include "core/language_file.h"
#include "platform/picture/picture_tool.h"

// State colour of Shape1.
enum class CellColour { Window, OnAir, Stale };
// Status light of a site's cam. Yellow: it is being tested; gray: the site has none, or it is not tested.
enum class CamLight { Hidden, Yellow, Green, Red, Gray };

inline constexpr QColor kOnAirColour(242, 242, 214);
inline constexpr QColor kStaleColour(255, 136, 136);
inline constexpr QColor kConnectColour(150, 180, 255);
inline constexpr QColor kFlashColour(0, 0, 255);
inline constexpr QColor kErrorColour(50, 50, 50);
inline constexpr QColor kCompareColour(255, 165, 0);

// A line of the error box: a text of the language file, by its role, and `rest`, which follows it in every language.
struct BoxLine {
  std::optional<TextLine> role;
  QString rest;

  QString Text(const LanguageTexts& texts) const { return role ? texts[*role] + rest : rest; }
  bool operator==(const BoxLine&) const = default;
};

// The error box: a caption in its frame and two lines below.
struct BoxLines {
  BoxLine caption;
  BoxLine first;
  BoxLine second;
  bool noSandbox = false;  // shown because this system can decode no picture at all, which the lines do not say
  bool operator==(const BoxLines&) const = default;
};

// All that one cell shows.
struct Cell {
  CellColour Shape1 = CellColour::Window;
  bool flash = false;      // Shape1 is blue for this moment
  QString lblCall;         // caption
  QString onAirTip;        // tip of lblCall: "On air", "Off air" or empty
  QString lblFrom;         // caption
  bool fromSender = true;  // false: lblFrom names no sender, and the view leaves it unpainted
  bool fromVisible = true;
  bool lblConnect = false;  // the label "connecting" is visible
  bool picProg = false;     // the progress bar is visible
  int progress = 0;         // percent of picProg
  QString lblMode;          // tag; empty hides it
  QColor modeColour;
  QString lblDisk;          // the site's call with plain zeros (Tag of lblDisk)
  bool reloadMark = false;  // Tag of img: "1" after a forced reload, else "0"
  CamLight imgCam = CamLight::Hidden;
  int compareMark = 0;  // marked for the comparison; the higher, the later; 0: not marked

  // The picture, or the error box in its place.
  QRectF img;                  // frame of the picture within the cell
  QList<PictureFrame> frames;  // empty: no picture
  bool animated = false;
  bool errorBox = false;
  BoxLines box;
  // The box's lines in the present language. PageView writes them into its copy of the cell just before it is painted.
  QString lblError;
  QString lblInfo;
  QString lblInfo2;
  QString boxReason;  // text of the box's tip; empty: none

  bool operator==(const Cell&) const = default;
};
