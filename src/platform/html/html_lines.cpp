// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_lines.h"

#include <algorithm>

namespace {

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Position behind a row of words with single blanks between them, which can be written without any collapsing.
size_t EndOfWords(std::string_view text, size_t at) {
  while (at < text.size()) {
    const bool isBetweenWords = text[at] == ' ' && at + 1 < text.size() && !IsSpace(text[at + 1]);
    if (IsSpace(text[at]) && !isBetweenWords) return at;
    ++at;
  }
  return at;
}

std::string InCase(std::string_view words, LetterCase letterCase, bool* isInWord) {
  const QString text = QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
  if (letterCase == LetterCase::Upper) return text.toUpper().toStdString();
  if (letterCase == LetterCase::Lower) return text.toLower().toStdString();
  QString capital = text;
  for (QChar& letter : capital) {
    if (!*isInWord) letter = letter.toUpper();
    *isInWord = letter.isLetterOrNumber() || letter == u'\'' || letter == u'\u2019';
  }
  return capital.toStdString();
}

}  // namespace

void HtmlLines::AddText(std::string_view text, const ElementStyle& style) {
  size_t at = 0;
  while (at < text.size()) {
    if (text[at] == '\n' && style.whiteSpace != WhiteSpace::Collapse) {
      DropBlank();
      if (!style.isHidden) Write("\r\n");
      lines_.back().isAtStart = true;
      ++at;
      continue;
    }
    if (IsSpace(text[at]) && style.whiteSpace != WhiteSpace::Keep) {
      AddBlank(style);
      ++at;
      continue;
    }
    // A carriage return can only come from a character reference (&#13;), because line ends of the source have become
    // line feeds before. Where blanks are kept it is shown as a blank: the readers of the text know CR LF alone as the
    // end of a line.
    if (text[at] == '\r') {
      AddWords(" ", style);
      ++at;
      continue;
    }
    const size_t end = style.whiteSpace == WhiteSpace::Keep ? text.find_first_of("\r\n", at) : EndOfWords(text, at);
    AddWords(text.substr(at, end - at), style);
    at = std::min(end, text.size());
  }
}

void HtmlLines::AddWords(std::string_view words, const ElementStyle& style) {
  WriteBlank();
  lines_.back().isAtStart = false;
  if (style.isHidden) return;
  if (style.letterCase == LetterCase::AsWritten) {
    Write(words);
  } else {
    Write(InCase(words, style.letterCase, &isInWord_));
  }
}

void HtmlLines::AddBlank(const ElementStyle& style) {
  isInWord_ = false;
  Line& line = lines_.back();
  if (line.isAtStart || line.hasBlank || line.earlyBlank >= 0) return;
  line.hasBlank = true;
  line.isBlankSeen = !style.isHidden;
}

void HtmlLines::AddObject() {
  isInWord_ = false;
  WriteBlank();
  lines_.back().isAtStart = false;
}

void HtmlLines::AddNewLine() {
  EndLine();
  Write("\r\n");
}

void HtmlLines::AddTab() {
  EndLine();
  Write("\t");
}

void HtmlLines::AskForBreaks(int breaks) {
  breaks_ = std::max(breaks_, breaks);
}

void HtmlLines::EndLine() {
  isInWord_ = false;
  DropBlank();
  lines_.back().isAtStart = true;
}

void HtmlLines::EnterBox() {
  AddObject();
  lines_.emplace_back();
}

void HtmlLines::EnterAside() {
  Line& line = lines_.back();
  if (line.hasBlank && line.isBlankSeen) {
    Write(" ");
    line.earlyBlank = static_cast<qsizetype>(text_.size()) - 1;
    line.hasBlank = false;
  }
  lines_.emplace_back();
}

void HtmlLines::LeaveBox() {
  DropBlank();
  lines_.pop_back();
}

QString HtmlLines::Take() {
  while (!lines_.empty()) LeaveBox();
  lines_.emplace_back();
  if (!dropped_.empty()) {
    std::sort(dropped_.begin(), dropped_.end());
    std::string kept;
    kept.reserve(text_.size());
    size_t from = 0;
    for (const qsizetype at : dropped_) {
      kept.append(text_, from, static_cast<size_t>(at) - from);
      from = static_cast<size_t>(at) + 1;
    }
    kept.append(text_, from);
    text_ = kept;
  }
  return QString::fromStdString(text_);
}

void HtmlLines::WriteBlank() {
  Line& line = lines_.back();
  if (line.hasBlank && line.isBlankSeen) Write(" ");
  line.hasBlank = false;
  line.earlyBlank = -1;
}

void HtmlLines::DropBlank() {
  Line& line = lines_.back();
  line.hasBlank = false;
  if (line.earlyBlank >= 0) dropped_.push_back(line.earlyBlank);
  line.earlyBlank = -1;
}

void HtmlLines::Write(std::string_view text) {
  if (!text_.empty())
    for (int i = 0; i < breaks_; ++i) text_ += "\r\n";
  breaks_ = 0;
  text_ += text;
}
