// SPDX-License-Identifier: GPL-3.0-or-later
// An HTML page made ready for the parser, whose time goes with the square of the nesting and with every character of
// what no text needs. Called by html_tree.
#pragma once

#include <QByteArray>
#include <string>
#include <string_view>
#include <vector>

struct PageSource {
  // Empty if the page's elements are nested more than 500 deep, by a quick count that follows implied end tags roughly.
  std::string text;
  // Runs of plain text and of "&nbsp;", and the style sheets, which the parser would only carry around: the source
  // holds one character in the place of each. They point into the page.
  std::vector<std::string_view> runs;
  bool hasSheets = false;
};

// The page as the body of a document of its own, in the mode that its document type asks for, without the content of
// comments, scripts and their like and without attributes that cannot matter.
PageSource ParserSource(const QByteArray& html);

// The tags of a page without its structure: a line break for a run of block tags, nothing for the others. What is left
// of a page that the parser cannot take in reasonable time.
PageSource FlatSource(const QByteArray& html);

// A run without its references, piece by piece.
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

// Hands a text of the tree, with its runs back in their places, piece by piece to a function that takes a string_view.
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
