// SPDX-License-Identifier: GPL-3.0-or-later
// How deep the elements of a page nest, counted from its tags without a tree: the parser's time goes with the square of
// the depth. Called by html_source.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/html/html_tags.h"

// The elements that are open at a place of the page, roughly as the parser would have them.
class OpenElements {
 public:
  // hasAttributes: the parser gets the tag with attributes, so that it is unlike others of its name.
  void Follow(const TagScanner::Tag& tag, bool hasAttributes);
  // Between the cells of a table stray text is thrown out of it, and the parser looks at each tag that parts it.
  bool IsBetweenCells() const;
  bool IsInTable() const;
  // Too deep at one place, or deep for too many tags.
  bool IsTooDeep() const;

  static bool IsOfTable(GumboTag tag) { return tag == GUMBO_TAG_TABLE || IsPartOfTable(tag); }

 private:
  // An element that stands open, or will again.
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
  // Bold and its like that were not ended before the block around them, so that the parser opens them in the next one.
  std::vector<Element> reopened_;
  size_t work_ = 0;
};
