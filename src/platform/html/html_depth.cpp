// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_depth.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr size_t kDeepest = 500;  // open elements at one place
// Limit on the depths of all tags of a page added up: for a single tag the parser may have to look at every open
// element.
constexpr size_t kMostWork = 30'000'000;
// The parser reopens at most so many identical formatting elements (bold, italic and the like) in the next block.
constexpr int kMostAlike = 3;

bool IsFormatting(GumboTag tag) {
  return (TraitsOf(tag) & TagTrait::kFormatting) != 0;
}

}  // namespace

void OpenElements::Follow(const TagScanner::Tag& tag, bool hasAttributes) {
  work_ += open_.size() + reopened_.size() + 1;
  constexpr quint16 kWithoutDepth = TagTrait::kVoid | TagTrait::kEndsItself | TagTrait::kRawText;
  const bool isOfItsOwn = tag.closesItself && tag.name == GUMBO_TAG_UNKNOWN;
  if (tag.kind == TagScanner::Kind::Comment || isOfItsOwn || (TraitsOf(tag.name) & kWithoutDepth) != 0) return;
  if (tag.kind == TagScanner::Kind::End) {
    End(tag.name);
  } else {
    Start(tag.name, hasAttributes);
  }
}

bool OpenElements::IsBetweenCells() const {
  for (size_t i = open_.size(); i > 0; --i) {
    const GumboTag tag = open_[i - 1].tag;
    if (tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH || tag == GUMBO_TAG_CAPTION) return false;
    if (IsOfTable(tag)) return true;
  }
  return false;
}

bool OpenElements::IsInTable() const {
  const auto around = std::find_if(open_.rbegin(), open_.rend(), [](const Element& open) {
    return open.tag == GUMBO_TAG_TABLE || open.tag == GUMBO_TAG_TEMPLATE;
  });
  return around != open_.rend() && around->tag == GUMBO_TAG_TABLE;
}

void OpenElements::Start(GumboTag tag, bool hasAttributes) {
  // A table that starts between the cells of another table ends that table.
  if (tag == GUMBO_TAG_TABLE && IsBetweenCells()) End(tag);
  if (IsPartOfTable(tag)) {
    const auto table =
        std::find_if(open_.rbegin(), open_.rend(), [](const Element& open) { return open.tag == GUMBO_TAG_TABLE; });
    const auto below = static_cast<size_t>(table - open_.rbegin());
    // How many elements may stay open between the table and its new part: row and section for a cell, the section for a
    // row.
    const size_t levels = tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH ? 2 : tag == GUMBO_TAG_TR ? 1 : 0;
    if (table != open_.rend() && below > levels) open_.resize(open_.size() - below + levels, {});
    // Formatting elements that were open outside of a cell are not reopened in it.
    reopened_.clear();
  }
  open_.push_back({tag, hasAttributes});
}

void OpenElements::End(GumboTag tag) {
  const bool isOfTable = IsOfTable(tag);
  for (size_t i = open_.size(); i > 0; --i) {
    const GumboTag open = open_[i - 1].tag;
    if (open == tag) {
      Close(i - 1);
      return;
    }
    if (isOfTable ? open == GUMBO_TAG_TABLE : (TraitsOf(open) & TagTrait::kBarrier) != 0) return;
  }
  const auto again =
      std::find_if(reopened_.rbegin(), reopened_.rend(), [tag](const Element& element) { return element.tag == tag; });
  if (again != reopened_.rend()) reopened_.erase(std::next(again).base());
}

// The end of a form or of a formatting element closes that element alone; the elements inside it stay open. The end of
// any other element closes all elements inside it, and the formatting elements among them are reopened behind it.
void OpenElements::Close(size_t index) {
  const GumboTag tag = open_[index].tag;
  const auto place = open_.begin() + static_cast<std::ptrdiff_t>(index);
  if (tag == GUMBO_TAG_FORM || IsFormatting(tag)) {
    open_.erase(place);
    return;
  }
  for (auto held = place + 1; held != open_.end(); ++held)
    if (IsFormatting(held->tag) && CountAlike(*held) < kMostAlike) reopened_.push_back(*held);
  open_.erase(place, open_.end());
  if (IsPartOfTable(tag)) reopened_.clear();
}

// How many elements like this one wait to be reopened. Elements with attributes count as different from each other.
std::ptrdiff_t OpenElements::CountAlike(const Element& element) const {
  if (element.hasAttributes) return 0;
  return std::count_if(reopened_.begin(), reopened_.end(),
                       [&](const Element& other) { return other.tag == element.tag && !other.hasAttributes; });
}

bool OpenElements::IsTooDeep() const {
  return open_.size() + reopened_.size() > kDeepest || work_ > kMostWork;
}
