// SPDX-License-Identifier: GPL-3.0-or-later
// The style of an element as plain values. Made by html_style and html_elements, read by html_text and html_lines.
#pragma once

#include <QtGlobal>

// How an element lays out what it holds.
enum class Display : quint8 {
  None,
  Inline,
  InlineBlock,
  Block,
  Table,
  Section,  // of a table
  Row,
  Cell,
};

// What becomes of blanks and line ends.
enum class WhiteSpace : quint8 { Collapse, Keep, KeepLines };

// What becomes of the letters.
enum class LetterCase : quint8 { AsWritten, Upper, Lower, Capital };

// All of an element's style that its text can tell.
struct ElementStyle {
  Display display = Display::Block;
  WhiteSpace whiteSpace = WhiteSpace::Collapse;
  LetterCase letterCase = LetterCase::AsWritten;
  // Its text takes its room but is not seen.
  bool isHidden = false;
  // Beside the line that it stands in: floating or absolutely positioned.
  bool isAside = false;
  // A picture, a field: it fills room in its line, and what it holds is not text of the page.
  bool isReplaced = false;
  // A flexible box or a grid: each child is a block.
  bool isFlex = false;
};
