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

// How blanks and line ends are treated.
enum class WhiteSpace : quint8 { Collapse, Keep, KeepLines };

// How the case of letters is changed.
enum class LetterCase : quint8 { AsWritten, Upper, Lower, Capital };

// The parts of an element's style that can change the text of its page.
struct ElementStyle {
  Display display = Display::Block;
  WhiteSpace whiteSpace = WhiteSpace::Collapse;
  LetterCase letterCase = LetterCase::AsWritten;
  // The element takes its place in the line but its text is not shown.
  bool isHidden = false;
  // It lies beside the line of the text around it: floating or absolutely positioned.
  bool isAside = false;
  // A picture or an input field: it takes a place in its line, and its content is no text of the page.
  bool isReplaced = false;
  // A flexible box or a grid: each child is a block.
  bool isFlex = false;
};
