// SPDX-License-Identifier: GPL-3.0-or-later
// Rewrites an HTML page for the parser, whose time goes with the square of the nesting and with every character: leaves
// out what cannot change the page's text, and refuses a page that nests too deep. Called by html_tree.
#pragma once

#include <QByteArray>
#include <string>
#include <string_view>
#include <vector>

// A page as the parser gets it.
struct PageSource {
  // Empty if the page's elements are nested more than 500 deep, by a quick count that follows implied end tags roughly.
  std::string text;
  // Stretches of plain text (with "&nbsp;") and style sheets that the parser need not see: text has one character in
  // the place of each. They point into the page.
  std::vector<std::string_view> runs;
  bool hasSheets = false;  // style sheets that can change the page's text
};

// The page as the body of a document of its own, in the mode that its document type asks for, without the content of
// comments, scripts and their like and without attributes that cannot matter.
PageSource ParserSource(const QByteArray& html);

// The page without its structure: a line break for a row of block tags, a blank for any other tag. For a page that the
// parser could not take in reasonable time.
PageSource FlatSource(const QByteArray& html);

// Calls take with the pieces of a run, in which "&nbsp;" has become the character.
template <typename Take>
void ForEachPieceOfRun(std::string_view run, Take take) {
  constexpr std::string_view kHardBlank("&nbsp;");
  size_t at = run.find('&');
  while (at != std::string_view::npos && run.substr(at).starts_with(kHardBlank)) {
    if (at > 0) take(run.substr(0, at));
    take(std::string_view("\xC2\xA0"));
    run.remove_prefix(at + kHardBlank.size());
    at = run.find('&');
  }
  if (!run.empty()) take(run);
}

// Calls take(std::string_view) with the pieces of a text of the tree, in which its runs are back in their places.
template <typename Take>
void ForEachPiece(std::string_view text, const std::vector<std::string_view>& runs, Take take) {
  while (!text.empty()) {
    const size_t mark = runs.empty() ? std::string_view::npos : text.find('\xF3');
    if (mark != 0) take(text.substr(0, mark));
    if (mark == std::string_view::npos || mark + 4 > text.size()) return;
    const auto bits = [&](size_t place) { return static_cast<size_t>(text[mark + place]) & 0x3F; };
    const size_t index = ((bits(1) & 0x0F) << 12) | (bits(2) << 6) | bits(3);
    if (index < runs.size()) ForEachPieceOfRun(runs[index], take);
    text.remove_prefix(mark + 4);
  }
}
