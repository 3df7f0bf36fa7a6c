// SPDX-License-Identifier: GPL-3.0-or-later
// Builds the text of a page: white space is collapsed within a line, and line breaks that blocks ask for are written
// only once text follows. html_text calls it at the beginning and end of lines, boxes and blocks.
#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

#include "platform/html/element_style.h"

// The text of one page, and the lines that are being written.
class HtmlLines {
 public:
  HtmlLines() : lines_(1) {}

  // text: UTF-8. That of a hidden element is not written, but takes part in the collapsing of blanks.
  void AddText(std::string_view text, const ElementStyle& style);
  // An object in the line that is no text, such as a picture: blanks in front of it and behind it count.
  void AddObject();
  void AddNewLine();
  void AddTab();
  // Asks for line breaks in front of the next text. Of several requests the greatest counts; none is written before the
  // first text or behind the last.
  void AskForBreaks(int breaks);
  // Ends the line, as a block begins or ends here: blanks in front are dropped, blanks that follow begin a line.
  void EndLine();
  // Begin a box with lines of its own, within the line or beside it; LeaveBox returns to the line around it.
  void EnterBox();
  void EnterAside();
  void LeaveBox();

  // Returns the whole text, its lines separated by CR LF.
  QString Take();

 private:
  // A line that is being written; that of an outer box waits.
  struct Line {
    bool isAtStart = true;
    // A blank that is written once something follows it in the line.
    bool hasBlank = false;
    bool isBlankSeen = false;
    // Where in text_ a blank was written early, because a box beside the line comes between; -1 if none was.
    qsizetype earlyBlank = -1;
  };

  void AddWords(std::string_view words, const ElementStyle& style);
  void AddBlank(const ElementStyle& style);
  void WriteBlank();
  void DropBlank();
  void Write(std::string_view text);

  std::string text_;
  // The text so far ends within a word. Capitalizing needs it, because a word may come in several pieces.
  bool isInWord_ = false;
  int breaks_ = 0;
  std::vector<Line> lines_;
  // Places in text_ of early blanks that turned out to end a line; Take() leaves them out.
  std::vector<qsizetype> dropped_;
};
