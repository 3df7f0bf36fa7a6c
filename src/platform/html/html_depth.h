// SPDX-License-Identifier: GPL-3.0-or-later
// Counts how deep the elements of a page nest, from its tags alone: the parser needs time by the square of that depth,
// so html_source calls this before a page is parsed.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/html/html_tags.h"

// The elements that are open at a place of the page, roughly as the parser would have them.
class OpenElements {
 public:
  // Takes the next tag of the page. hasAttributes: html_source passes the tag on with attributes, so that the parser
  // holds it to be different from other tags of its name.
  void Follow(const TagScanner::Tag& tag, bool hasAttributes);
  // True between the cells of a table. Text there is moved by the parser to a place in front of the table, and a tag
  // between two pieces of such text matters even if it has no other effect.
  bool IsBetweenCells() const;
  bool IsInTable() const;
  // True where the page nests too deep at this place, or deep for too many tags.
  bool IsTooDeep() const;

  static bool IsOfTable(GumboTag tag) { return tag == GUMBO_TAG_TABLE || IsPartOfTable(tag); }

 private:
  // An element that is open or waits to be reopened.
  struct Element {
    GumboTag tag;
    bool hasAttributes;
  };

  static bool IsPartOfTable(GumboTag tag) { return (TraitsOf(tag) & TagTrait::kInTable) != 0; }
  void Start(GumboTag tag, bool hasAttributes);
  void End(GumboTag tag);
  void Close(size_t index);
  std::ptrdiff_t CountAlike(const Element& element) const;

  std::vector<Element> open_;
  // Formatting elements (bold and the like) that were still open when the block around them ended: the parser reopens
  // them in the next block.
  std::vector<Element> reopened_;
  size_t work_ = 0;  // depths of all tags so far, added up
};
