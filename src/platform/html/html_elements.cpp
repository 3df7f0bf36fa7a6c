// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_elements.h"

#include <QByteArray>
#include <array>
#include <initializer_list>
#include <string_view>

namespace {

using DisplayTable = std::array<Display, GUMBO_TAG_LAST + 1>;

DisplayTable MakeDisplays();

Display DisplayOfTag(GumboTag tag) {
  static const DisplayTable kDisplays = MakeDisplays();
  return kDisplays[tag];
}

DisplayTable MakeDisplays() {
  DisplayTable table;
  table.fill(Display::Inline);
  const auto set = [&table](Display display, std::initializer_list<GumboTag> tags) {
    for (const GumboTag tag : tags) table[tag] = display;
  };
  set(Display::None,
      {GUMBO_TAG_AREA,     GUMBO_TAG_BASE,     GUMBO_TAG_BASEFONT, GUMBO_TAG_COL,    GUMBO_TAG_COLGROUP,
       GUMBO_TAG_DATALIST, GUMBO_TAG_HEAD,     GUMBO_TAG_LINK,     GUMBO_TAG_META,   GUMBO_TAG_NOEMBED,
       GUMBO_TAG_NOFRAMES, GUMBO_TAG_PARAM,    GUMBO_TAG_RP,       GUMBO_TAG_SCRIPT, GUMBO_TAG_SOURCE,
       GUMBO_TAG_STYLE,    GUMBO_TAG_TEMPLATE, GUMBO_TAG_TITLE,    GUMBO_TAG_TRACK,  GUMBO_TAG_NOSCRIPT});
  set(Display::Block,
      {GUMBO_TAG_ADDRESS,  GUMBO_TAG_ARTICLE, GUMBO_TAG_ASIDE, GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_BODY,
       GUMBO_TAG_CAPTION,  GUMBO_TAG_CENTER,  GUMBO_TAG_DD,    GUMBO_TAG_DETAILS,    GUMBO_TAG_DIR,
       GUMBO_TAG_DIV,      GUMBO_TAG_DL,      GUMBO_TAG_DT,    GUMBO_TAG_FIELDSET,   GUMBO_TAG_FIGCAPTION,
       GUMBO_TAG_FIGURE,   GUMBO_TAG_FOOTER,  GUMBO_TAG_FORM,  GUMBO_TAG_H1,         GUMBO_TAG_H2,
       GUMBO_TAG_H3,       GUMBO_TAG_H4,      GUMBO_TAG_H5,    GUMBO_TAG_H6,         GUMBO_TAG_HEADER,
       GUMBO_TAG_HGROUP,   GUMBO_TAG_HR,      GUMBO_TAG_HTML,  GUMBO_TAG_LEGEND,     GUMBO_TAG_LI,
       GUMBO_TAG_LISTING,  GUMBO_TAG_MAIN,    GUMBO_TAG_MENU,  GUMBO_TAG_NAV,        GUMBO_TAG_OL,
       GUMBO_TAG_OPTGROUP, GUMBO_TAG_OPTION,  GUMBO_TAG_P,     GUMBO_TAG_PLAINTEXT,  GUMBO_TAG_PRE,
       GUMBO_TAG_SECTION,  GUMBO_TAG_SUMMARY, GUMBO_TAG_UL,    GUMBO_TAG_XMP});
  set(Display::InlineBlock,
      {GUMBO_TAG_AUDIO, GUMBO_TAG_BUTTON, GUMBO_TAG_CANVAS, GUMBO_TAG_EMBED, GUMBO_TAG_IFRAME, GUMBO_TAG_IMAGE,
       GUMBO_TAG_IMG, GUMBO_TAG_INPUT, GUMBO_TAG_MARQUEE, GUMBO_TAG_METER, GUMBO_TAG_OBJECT, GUMBO_TAG_PROGRESS,
       GUMBO_TAG_SELECT, GUMBO_TAG_TEXTAREA, GUMBO_TAG_VIDEO});
  set(Display::Table, {GUMBO_TAG_TABLE});
  set(Display::Section, {GUMBO_TAG_TBODY, GUMBO_TAG_THEAD, GUMBO_TAG_TFOOT});
  set(Display::Row, {GUMBO_TAG_TR});
  set(Display::Cell, {GUMBO_TAG_TD, GUMBO_TAG_TH});
  return table;
}

bool IsReplaced(GumboTag tag) {
  switch (tag) {
    case GUMBO_TAG_AUDIO:
    case GUMBO_TAG_CANVAS:
    case GUMBO_TAG_EMBED:
    case GUMBO_TAG_IFRAME:
    case GUMBO_TAG_IMAGE:
    case GUMBO_TAG_IMG:
    case GUMBO_TAG_INPUT:
    case GUMBO_TAG_METER:
    case GUMBO_TAG_OBJECT:
    case GUMBO_TAG_PROGRESS:
    case GUMBO_TAG_TEXTAREA:
    case GUMBO_TAG_VIDEO:
      return true;
    default:
      return false;
  }
}

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool IsWord(std::string_view text, std::string_view word) {
  return text.size() == word.size() && qstrnicmp(text.data(), word.data(), word.size()) == 0;
}

bool HasAttribute(const GumboNode* element, const char* name) {
  return gumbo_get_attribute(&element->v.element.attributes, name) != nullptr;
}

// The parser does not know "dialog" and "search", which are newer than it is.
Display DisplayOfUnknown(const GumboNode* element) {
  GumboStringPiece name = element->v.element.original_tag;
  gumbo_tag_from_original_text(&name);
  const std::string_view text(name.data, name.length);
  if (IsWord(text, "dialog")) return HasAttribute(element, "open") ? Display::Block : Display::None;
  return IsWord(text, "search") ? Display::Block : Display::Inline;
}

// Of a drawing only the texts are shown.
Display DisplayOfDrawing(const GumboNode* element) {
  const GumboElement& own = element->v.element;
  if (own.tag == GUMBO_TAG_SVG) return Display::InlineBlock;
  if (own.tag == GUMBO_TAG_FOREIGNOBJECT) return Display::Block;
  GumboStringPiece name = own.original_tag;
  gumbo_tag_from_original_text(&name);
  const std::string_view text(name.data, name.length);
  if (IsWord(text, "text")) return Display::Block;
  if (IsWord(text, "g") || IsWord(text, "a") || IsWord(text, "switch") || IsWord(text, "tspan") ||
      IsWord(text, "textpath"))
    return Display::Inline;
  return Display::None;
}

// False for a child that its parent does not show: closed details show only their summary, a choice only its options,
// and a table no form that is directly between its rows or cells.
bool IsShownByParent(const GumboNode* element) {
  const GumboNode* parent = element->parent;
  if (parent == nullptr || parent->type != GUMBO_NODE_ELEMENT) return true;
  const GumboTag tag = element->v.element.tag;
  if (IsClosed(parent)) return tag == GUMBO_TAG_SUMMARY;
  if (parent->v.element.tag == GUMBO_TAG_SELECT) return tag == GUMBO_TAG_OPTION || tag == GUMBO_TAG_OPTGROUP;
  const Display around = DisplayOfTag(parent->v.element.tag);
  const bool isInTable = around == Display::Table || around == Display::Section || around == Display::Row;
  return !(isInTable && tag == GUMBO_TAG_FORM);
}

}  // namespace

std::string_view AttributeOf(const GumboNode* element, const char* name) {
  const GumboAttribute* attribute = gumbo_get_attribute(&element->v.element.attributes, name);
  if (attribute == nullptr) return {};
  std::string_view value = attribute->value;
  while (!value.empty() && IsSpace(value.front())) value.remove_prefix(1);
  while (!value.empty() && IsSpace(value.back())) value.remove_suffix(1);
  return value;
}

bool IsClosed(const GumboNode* element) {
  return element->v.element.tag == GUMBO_TAG_DETAILS && !HasAttribute(element, "open");
}

void ApplyOwnRules(const GumboNode* element, bool isQuirky, ElementStyle* style) {
  const GumboElement& own = element->v.element;
  if (own.tag_namespace == GUMBO_NAMESPACE_SVG) {
    style->display = DisplayOfDrawing(element);
    return;
  }
  if (own.tag_namespace == GUMBO_NAMESPACE_MATHML) {
    style->display = own.tag == GUMBO_TAG_MATH ? Display::InlineBlock : Display::Block;
    return;
  }
  style->display = own.tag == GUMBO_TAG_UNKNOWN ? DisplayOfUnknown(element) : DisplayOfTag(own.tag);
  style->isReplaced = IsReplaced(own.tag);
  if (own.tag == GUMBO_TAG_PRE || own.tag == GUMBO_TAG_XMP || own.tag == GUMBO_TAG_LISTING ||
      own.tag == GUMBO_TAG_PLAINTEXT)
    style->whiteSpace = WhiteSpace::Keep;
  if (own.tag == GUMBO_TAG_TABLE && isQuirky) style->whiteSpace = WhiteSpace::Collapse;
  // The parser turns "isindex" into a form; browsers no longer do.
  const bool isMadeUp = (element->parse_flags & GUMBO_INSERTION_FROM_ISINDEX) != 0;
  if (isMadeUp || !IsShownByParent(element)) style->display = Display::None;
  if (own.attributes.length == 0) {
    if (own.tag == GUMBO_TAG_AUDIO) style->display = Display::None;
    return;
  }
  if (HasAttribute(element, "hidden") && own.tag != GUMBO_TAG_EMBED) style->display = Display::None;
  if (own.tag == GUMBO_TAG_AUDIO && !HasAttribute(element, "controls")) style->display = Display::None;
  if (own.tag == GUMBO_TAG_INPUT && IsWord(AttributeOf(element, "type"), "hidden")) style->display = Display::None;
  if (style->isReplaced || own.tag == GUMBO_TAG_TABLE) {
    const std::string_view align = AttributeOf(element, "align");
    style->isAside = IsWord(align, "left") || IsWord(align, "right");
  }
}
