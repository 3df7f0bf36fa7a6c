// SPDX-License-Identifier: GPL-3.0-or-later
// A page's HTML5 tree, made by the parser library. Called by html_text, in a process that may be killed.
#pragma once

#include <gumbo.h>

#include <QByteArray>
#include <memory>

#include "platform/html/html_source.h"

// The tree of one page, and the bytes that it points into.
class HtmlTree {
 public:
  // html: the page in UTF-8. A page that nests too deep is parsed without its structure.
  explicit HtmlTree(const QByteArray& html);
  ~HtmlTree();

  // The body element; nullptr if there is none.
  const GumboNode* Body() const { return body_; }
  // True if the page asks for the rendering of old browsers (no document type, or an old one).
  bool IsQuirky() const { return isQuirky_; }
  bool HasSheets() const { return source_.hasSheets; }
  // The runs, which ForEachPiece needs for a text of the tree.
  const std::vector<std::string_view>& Runs() const { return source_.runs; }

 private:
  struct Memory;
  void Parse(PageSource source);

  std::unique_ptr<Memory> memory_;
  // The tree points into html_ and source_.
  QByteArray html_;
  PageSource source_;
  const GumboNode* body_ = nullptr;
  bool isQuirky_ = false;
};
