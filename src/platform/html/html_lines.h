// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a page as it grows: white space is collapsed within a line, blocks ask for line breaks that count only
// once text follows. Called by html_text, which tells it where lines, boxes and blocks begin and end.
#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

#include "platform/html/element_style.h"

class HtmlLines {
 public:
  HtmlLines() : lines_(1) {}

  // UTF-8; text of a hidden element takes part in the collapsing only.
  void AddText(std::string_view text, const ElementStyle& style);
  // Something in the line that is no text, as a picture is.
  void AddObject();
  void AddNewLine();
  void AddTab();
  // The greatest number of line breaks asked for between two texts is what they get; none before the first or behind
  // the last text.
  void AskForBreaks(int breaks);
  // A block begins or ends here: blanks at the line's end are dropped, blanks that follow begin a line.
  void EndLine();
  // A box with lines of its own, within the line or beside it; then back to the line around it.
  void EnterBox();
  void EnterAside();
  void LeaveBox();

  // The whole text, lines parted by CR LF.
  QString Take();

 private:
  struct Line {
    bool isAtStart = true;
    // A blank that is written once something follows it in the line.
    bool hasBlank = false;
    bool isBlankSeen = false;
    // Where a blank was written before its time, because a box beside the line comes between; -1 if none.
    qsizetype earlyBlank = -1;
  };

  void AddWords(std::string_view words, const ElementStyle& style);
  void AddBlank(const ElementStyle& style);
  void WriteBlank();
  void DropBlank();
  void Write(std::string_view text);

  std::string text_;
  // For capitals at the beginning of words, which several pieces of text may make up.
  bool isInWord_ = false;
  int breaks_ = 0;
  std::vector<Line> lines_;
  // Early blanks that turned out to stand at a line's end.
  std::vector<qsizetype> dropped_;
};
