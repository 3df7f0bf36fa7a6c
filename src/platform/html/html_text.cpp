// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_text.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/html/html_elements.h"
#include "platform/html/html_lines.h"
#include "platform/html/html_style.h"
#include "platform/html/html_tree.h"

namespace {

const GumboVector& ChildrenOf(const GumboNode* element) {
  return element->v.element.children;
}

bool IsBlank(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
}

// Goes through the tree without recursion, for which a page may nest too deep.
class PageWalk {
 public:
  explicit PageWalk(const HtmlTree& tree) : tree_(tree), styles_(tree) {}

  QString Run() {
    open_.push_back({tree_.Body(), 0, ElementStyle()});
    while (!open_.empty()) {
      Open& top = open_.back();
      if (top.next < ChildrenOf(top.element).length) {
        Visit(static_cast<const GumboNode*>(ChildrenOf(top.element).data[top.next++]));
      } else {
        const Open ended = top;
        open_.pop_back();
        if (!open_.empty()) End(ended);
      }
    }
    return lines_.Take();
  }

 private:
  // Index of the next child of one kind. It is kept, because it is asked for behind every child.
  struct NextOfKind {
    unsigned child = 0;
    bool isKnown = false;
  };

  // An element that the walk is in.
  struct Open {
    const GumboNode* element;
    unsigned next;  // index of the child that is visited next
    ElementStyle style;
    bool hasSummary = false;  // of closed details: a summary has been shown
    NextOfKind row = {};
    NextOfKind cell = {};
    NextOfKind sectionWithRow = {};
  };

  void Visit(const GumboNode* node) {
    if (node->type == GUMBO_NODE_ELEMENT) {
      Begin(node);
    } else if (node->type == GUMBO_NODE_TEXT || node->type == GUMBO_NODE_WHITESPACE || node->type == GUMBO_NODE_CDATA) {
      AddText(node->v.text.text);
    }
  }

  // Writes a text, but not blanks between the parts of a table or a flexible box, nor a text that is directly in a
  // choice, a drawing or closed details.
  void AddText(std::string_view text) {
    const Open& parent = open_.back();
    const Display display = parent.style.display;
    const bool isBetweenBoxes =
        parent.style.isFlex || display == Display::Table || display == Display::Section || display == Display::Row;
    if (isBetweenBoxes && IsBlank(text)) return;
    const GumboElement& element = parent.element->v.element;
    if (element.tag == GUMBO_TAG_SELECT || element.tag == GUMBO_TAG_OPTGROUP || element.tag == GUMBO_TAG_SVG ||
        IsClosed(parent.element))
      return;
    ForEachPiece(text, tree_.Runs(), [&](std::string_view piece) { lines_.AddText(piece, parent.style); });
  }

  void Begin(const GumboNode* element) {
    Open& parent = open_.back();
    const ElementStyle style = styles_.Of(element, parent.style);
    if (style.display == Display::None) return;
    if (IsClosed(parent.element) && std::exchange(parent.hasSummary, true)) return;
    if (element->v.element.tag == GUMBO_TAG_BR) {
      lines_.EndLine();
      if (!style.isHidden) lines_.AddNewLine();
      return;
    }
    if (style.isAside) {
      lines_.EnterAside();
    } else if (style.display == Display::InlineBlock) {
      lines_.EnterBox();
    } else if (style.display != Display::Inline) {
      lines_.EndLine();
    }
    AskForBreaks(element, style);
    Open open = {element, 0, style};
    if (style.isReplaced) open.next = ChildrenOf(element).length;
    open_.push_back(open);
  }

  void End(const Open& ended) {
    const ElementStyle& style = ended.style;
    if (style.isAside || style.display == Display::InlineBlock) {
      lines_.LeaveBox();
    } else if (style.display != Display::Inline) {
      lines_.EndLine();
    }
    AskForBreaks(ended.element, style);
    if (style.isHidden) return;
    if (style.display == Display::Cell && HasCellBehind(&open_.back())) lines_.AddTab();
    if (style.display == Display::Row && IsRowBelow()) lines_.AddNewLine();
  }

  void AskForBreaks(const GumboNode* element, const ElementStyle& style) {
    if (style.isHidden) return;
    if (style.display == Display::Block || style.display == Display::Table) lines_.AskForBreaks(1);
    if (element->v.element.tag == GUMBO_TAG_P) lines_.AskForBreaks(2);
  }

  // True if a child from parent.next on fits. Each child is tested once, however often this is called.
  template <typename Fits>
  static bool IsAhead(const Open& parent, NextOfKind* next, Fits fits) {
    if (next->isKnown && next->child >= parent.next) return next->child < ChildrenOf(parent.element).length;
    const GumboVector& children = ChildrenOf(parent.element);
    unsigned at = parent.next;
    while (at < children.length && !fits(static_cast<const GumboNode*>(children.data[at]))) ++at;
    *next = {at, true};
    return at < children.length;
  }

  bool IsShownAs(Display display, const GumboNode* node, const ElementStyle& parent) const {
    return node->type == GUMBO_NODE_ELEMENT && styles_.Of(node, parent).display == display;
  }

  bool HasCellBehind(Open* row) const {
    return IsAhead(*row, &row->cell,
                   [&](const GumboNode* child) { return IsShownAs(Display::Cell, child, row->style); });
  }

  bool HasRowBehind(Open* parent) const {
    return IsAhead(*parent, &parent->row,
                   [&](const GumboNode* child) { return IsShownAs(Display::Row, child, parent->style); });
  }

  bool HasRowInSectionsBehind(Open* table) const {
    return IsAhead(*table, &table->sectionWithRow, [&](const GumboNode* child) {
      if (!IsShownAs(Display::Section, child, table->style)) return false;
      Open section = {child, 0, styles_.Of(child, table->style)};
      return HasRowBehind(&section);
    });
  }

  // Called when a row has ended: true if its table shows another row, in this section or in a later one.
  bool IsRowBelow() {
    Open& parent = open_.back();
    if (HasRowBehind(&parent)) return true;
    if (parent.style.display != Display::Section) return HasRowInSectionsBehind(&parent);
    if (open_.size() < 2) return false;
    Open& table = open_[open_.size() - 2];
    return HasRowBehind(&table) || HasRowInSectionsBehind(&table);
  }

  const HtmlTree& tree_;
  PageStyles styles_;
  HtmlLines lines_;
  std::vector<Open> open_;
};

}  // namespace

QString HTMLDecode(const QString& html) {
  const HtmlTree tree(html.left(kMostHtml).toUtf8());
  if (tree.Body() == nullptr) return {};
  return PageWalk(tree).Run();
}
