// SPDX-License-Identifier: GPL-3.0-or-later
// Finds out which styles of a page can change its text, without a tree: most of them only colour and move, and
// html_source leaves those out.
#pragma once

#include <string_view>
#include <vector>

#include "platform/html/html_tags.h"

// The styles of one page, searched for what can change its text.
class StyleScan {
 public:
  // page must outlive this object.
  explicit StyleScan(std::string_view page);

  // True if no style of the page and no hidden element can change its text.
  bool IsPlain() const { return isPlain_; }
  // True if the page has style sheets that can change its text.
  bool HasSheets() const { return hasSheets_; }
  // True if a sheet may keep white space.
  bool KeepsBlanks() const { return keepsBlanks_; }
  // True if an attribute of an element can change the text.
  bool Matters(const TagScanner::Attribute& attribute, GumboTag tag) const;

 private:
  void ReadStyles(std::string_view page);
  void ReadSheet(std::string_view sheet);
  bool IsNamed(std::string_view name) const;
  bool IsNamedInSheets(std::string_view value) const;

  bool isPlain_ = true;
  bool hasSheets_ = false;
  bool keepsBlanks_ = false;
  // Classes and ids of the sheets, and other words behind a point or a number sign; sorted.
  std::vector<std::string_view> names_;
};

// True if both are the same name, in any letter case.
bool IsName(QByteArrayView name, QByteArrayView known);

// True if a style attribute names a white-space rule.
bool KeepsBlanks(std::string_view style);
