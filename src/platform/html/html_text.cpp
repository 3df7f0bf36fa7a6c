// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_text.h"

#include <algorithm>
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

// Goes through the tree without recursion: a page may nest as deep as it likes.
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
  struct Open {
    const GumboNode* element;
    unsigned next;  // child
    ElementStyle style;
  };

  void Visit(const GumboNode* node) {
    if (node->type == GUMBO_NODE_ELEMENT) {
      Begin(node);
    } else if (node->type == GUMBO_NODE_TEXT || node->type == GUMBO_NODE_WHITESPACE || node->type == GUMBO_NODE_CDATA) {
      AddText(node->v.text.text);
    }
  }

  // Text between the parts of a table or a flexible box, or of a drawing, is none if it is blank or outside of a label.
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
    const ElementStyle style = styles_.Of(element, open_.back().style);
    if (style.display == Display::None) return;
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
    if (style.display == Display::Cell && HasNext(Display::Cell, open_.back())) lines_.AddTab();
    if (style.display == Display::Row && IsRowBelow()) lines_.AddNewLine();
  }

  void AskForBreaks(const GumboNode* element, const ElementStyle& style) {
    if (style.isHidden) return;
    if (style.display == Display::Block || style.display == Display::Table) lines_.AskForBreaks(1);
    if (element->v.element.tag == GUMBO_TAG_P) lines_.AskForBreaks(2);
  }

  bool HasNext(Display display, const Open& parent) const {
    const GumboVector& siblings = ChildrenOf(parent.element);
    for (unsigned i = parent.next; i < siblings.length; ++i)
      if (IsShownAs(display, static_cast<const GumboNode*>(siblings.data[i]), parent.style)) return true;
    return false;
  }

  bool IsShownAs(Display display, const GumboNode* node, const ElementStyle& parent) const {
    return node->type == GUMBO_NODE_ELEMENT && styles_.Of(node, parent).display == display;
  }

  // After a row has ended: true if its table shows another one, in this section or in a later one.
  bool IsRowBelow() const {
    const Open& parent = open_.back();
    if (HasNext(Display::Row, parent)) return true;
    if (parent.style.display != Display::Section) return HasRowInNextSections(parent);
    if (open_.size() < 2) return false;
    const Open& table = open_[open_.size() - 2];
    return HasNext(Display::Row, table) || HasRowInNextSections(table);
  }

  bool HasRowInNextSections(const Open& table) const {
    const GumboVector& siblings = ChildrenOf(table.element);
    for (unsigned i = table.next; i < siblings.length; ++i) {
      const auto* section = static_cast<const GumboNode*>(siblings.data[i]);
      if (!IsShownAs(Display::Section, section, table.style)) continue;
      if (HasNext(Display::Row, {section, 0, styles_.Of(section, table.style)})) return true;
    }
    return false;
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
