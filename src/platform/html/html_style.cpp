// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_style.h"

#include <algorithm>
#include <cstdlib>

#include "platform/html/html_elements.h"
#include "platform/html/html_tree.h"

namespace {

using std::string_view;

// More than any page has that people wrote. A stranger's page may hold more: its further rules are ignored.
constexpr size_t kMostRules = 2000;
constexpr int kMostComparisons = 5'000'000;
constexpr int kScreenWidth = 1280;  // pixels, for media queries

// The rank of a rule, from its lowest bits up: its order, its specificity, whether it is a style attribute,
// "!important".
constexpr quint32 kOrderBits = 12;
constexpr quint32 kStyleAttribute = 1U << 30;
constexpr quint32 kImportant = 1U << 31;

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool IsNameLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

string_view Trimmed(string_view text) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return text;
}

bool Same(string_view text, string_view word) {
  return text.size() == word.size() && qstrnicmp(text.data(), word.data(), word.size()) == 0;
}

bool IsOneOf(string_view text, std::initializer_list<string_view> words) {
  return std::any_of(words.begin(), words.end(), [text](string_view word) { return Same(text, word); });
}

QByteArray Bytes(string_view text) {
  return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

// The position of the first of some signs outside of quotes and brackets, or the text's end.
size_t FindOpen(string_view text, string_view signs, size_t from = 0) {
  char quote = 0;
  int brackets = 0;
  for (size_t i = from; i < text.size(); ++i) {
    const char c = text[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (brackets == 0 && signs.find(c) != string_view::npos) {
      return i;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '(' || c == '[') {
      ++brackets;
    } else if ((c == ')' || c == ']') && brackets > 0) {
      --brackets;
    }
  }
  return text.size();
}

// Old pages put a sheet into an HTML comment, whose marks a sheet may hold anywhere between its rules.
QByteArray WithoutComments(string_view sheet) {
  QByteArray plain;
  plain.reserve(static_cast<qsizetype>(sheet.size()));
  size_t at = 0;
  while (at < sheet.size()) {
    const size_t comment = std::min(sheet.find("/*", at), sheet.size());
    plain.append(sheet.data() + at, static_cast<qsizetype>(comment - at));
    const size_t end = comment < sheet.size() ? sheet.find("*/", comment + 2) : string_view::npos;
    at = end == string_view::npos ? sheet.size() : end + 2;
  }
  return plain.replace("<!--", "").replace("-->", "");
}

// One past the "}" that ends the block whose "{" stands at a position.
size_t EndOfBlock(string_view sheet, size_t brace) {
  int depth = 0;
  for (size_t i = brace; i < sheet.size(); ++i) {
    if (sheet[i] == '{') ++depth;
    if (sheet[i] == '}' && --depth == 0) return i + 1;
  }
  return sheet.size();
}

bool HasClass(string_view classes, const QByteArray& name, bool isQuirky) {
  size_t at = 0;
  while (at < classes.size()) {
    while (at < classes.size() && IsSpace(classes[at])) ++at;
    size_t end = at;
    while (end < classes.size() && !IsSpace(classes[end])) ++end;
    const string_view word = classes.substr(at, end - at);
    const string_view wanted(name.constData(), static_cast<size_t>(name.size()));
    if (isQuirky ? Same(word, wanted) : word == wanted) return true;
    at = end;
  }
  return false;
}

string_view NameOf(const GumboNode* element) {
  if (element->v.element.tag != GUMBO_TAG_UNKNOWN) return gumbo_normalized_tagname(element->v.element.tag);
  GumboStringPiece name = element->v.element.original_tag;
  gumbo_tag_from_original_text(&name);
  return {name.data == nullptr ? "" : name.data, name.length};
}

void ApplyDisplay(string_view value, ElementStyle* style) {
  if (value.empty()) return;
  style->isFlex = IsOneOf(value, {"flex", "grid", "inline-flex", "inline-grid"});
  if (Same(value, "none") || IsOneOf(value, {"table-column", "table-column-group"})) {
    style->display = Display::None;
  } else if (IsOneOf(value, {"block", "list-item", "flow-root", "flex", "grid", "table-caption"})) {
    style->display = Display::Block;
  } else if (IsOneOf(value, {"inline-block", "inline-flex", "inline-grid", "inline-table"})) {
    style->display = Display::InlineBlock;
  } else if (IsOneOf(value, {"inline", "contents"})) {
    style->display = style->isReplaced ? Display::InlineBlock : Display::Inline;
  } else if (Same(value, "table")) {
    style->display = Display::Table;
  } else if (IsOneOf(value, {"table-row-group", "table-header-group", "table-footer-group"})) {
    style->display = Display::Section;
  } else if (Same(value, "table-row")) {
    style->display = Display::Row;
  } else if (Same(value, "table-cell")) {
    style->display = Display::Cell;
  }
}

void ApplyWhiteSpace(string_view value, ElementStyle* style) {
  if (IsOneOf(value, {"pre", "pre-wrap", "break-spaces"})) style->whiteSpace = WhiteSpace::Keep;
  if (Same(value, "pre-line")) style->whiteSpace = WhiteSpace::KeepLines;
  if (IsOneOf(value, {"normal", "nowrap", "initial"})) style->whiteSpace = WhiteSpace::Collapse;
}

void ApplyLetterCase(string_view value, ElementStyle* style) {
  if (Same(value, "uppercase")) style->letterCase = LetterCase::Upper;
  if (Same(value, "lowercase")) style->letterCase = LetterCase::Lower;
  if (Same(value, "capitalize")) style->letterCase = LetterCase::Capital;
  if (IsOneOf(value, {"none", "initial"})) style->letterCase = LetterCase::AsWritten;
}

void MakeBlock(ElementStyle* style) {
  if (style->display != Display::None && style->display != Display::Table) style->display = Display::Block;
}

}  // namespace

bool PageStyles::Declarations::IsEmpty() const {
  return std::all_of(values.begin(), values.end(), [](string_view value) { return value.empty(); });
}

void PageStyles::Cascade::Apply(const Declarations& declarations, quint32 rank) {
  for (size_t i = 0; i < kProperties; ++i) {
    const quint32 own = rank | (declarations.importance[i] == Importance::Important ? kImportant : 0);
    if (declarations.values[i].empty() || own < ranks[i]) continue;
    values[i] = declarations.values[i];
    ranks[i] = own;
  }
}

PageStyles::PageStyles(const HtmlTree& tree) : isQuirky_(tree.IsQuirky()), comparisons_(kMostComparisons) {
  if (tree.HasSheets()) ReadStyleElements(tree);
}

void PageStyles::ReadStyleElements(const HtmlTree& tree) {
  std::vector<const GumboNode*> pending = {tree.Body()};
  std::vector<string_view> found;
  while (!pending.empty()) {
    const GumboNode* node = pending.back();
    pending.pop_back();
    const GumboVector& children = node->v.element.children;
    if (node->v.element.tag == GUMBO_TAG_STYLE) {
      if (children.length == 0 || !IsForScreens(AttributeOf(node, "media"))) continue;
      std::string sheet;
      ForEachPiece(static_cast<const GumboNode*>(children.data[0])->v.text.text, tree.Runs(),
                   [&sheet](string_view piece) { sheet += piece; });
      sheets_.push_back(WithoutComments(sheet));
      continue;
    }
    for (unsigned i = children.length; i > 0; --i) {
      const auto* child = static_cast<const GumboNode*>(children.data[i - 1]);
      if (child->type == GUMBO_NODE_ELEMENT) pending.push_back(child);
    }
  }
  // Read only now that all sheets are stored: the rules point into them, and they must not move any more.
  for (const QByteArray& sheet : sheets_) ReadSheet({sheet.constData(), static_cast<size_t>(sheet.size())});
}

void PageStyles::ReadSheet(string_view sheet) {
  size_t at = 0;
  while (at < sheet.size()) {
    size_t brace = FindOpen(sheet, "{;", at);
    string_view prelude = Trimmed(sheet.substr(at, brace - at));
    // A media block is entered like the sheet itself, so that its closing brace turns up in front of the next rule.
    while (!prelude.empty() && prelude.front() == '}') prelude = Trimmed(prelude.substr(1));
    const bool isOneLine = brace < sheet.size() && sheet[brace] == ';';
    if (isOneLine && prelude.starts_with('@')) {
      at = brace + 1;
      continue;
    }
    if (isOneLine) brace = FindOpen(sheet, "{", brace);
    if (brace == sheet.size()) return;
    if (prelude.starts_with("@media") && IsForScreens(prelude.substr(6))) {
      at = brace + 1;
    } else {
      at = EndOfBlock(sheet, brace);
      if (prelude.empty() || prelude.front() != '@') AddRules(prelude, sheet.substr(brace + 1, at - brace - 1));
    }
  }
}

// True if one of the queries of a list holds on the screen that the text is made for.
bool PageStyles::IsForScreens(string_view query) {
  if (Trimmed(query).empty()) return true;
  for (const QByteArray& part : Bytes(query).toLower().split(',')) {
    bool holds = true;
    QByteArray rest = part;
    for (const QByteArray& term : rest.replace('(', " and ").replace(')', "").replace(" and ", "\n").split('\n')) {
      const QByteArray word = term.trimmed();
      const qsizetype colon = word.indexOf(':');
      const int pixels = word.mid(colon + 1).trimmed().replace("px", "").toInt();
      if (word.startsWith("min-width:")) {
        holds = holds && kScreenWidth >= pixels;
      } else if (word.startsWith("max-width:")) {
        holds = holds && kScreenWidth <= pixels;
      } else if (!word.isEmpty() && word != "and" && word != "screen" && word != "all" && word != "only screen") {
        holds = false;
      }
    }
    if (holds) return true;
  }
  return false;
}

void PageStyles::AddRules(string_view selectors, string_view block) {
  if (!block.empty() && block.back() == '}') block.remove_suffix(1);
  const Declarations declarations = ReadDeclarations(block);
  if (declarations.IsEmpty()) return;
  while (!selectors.empty() && rules_.size() < kMostRules) {
    const size_t comma = FindOpen(selectors, ",");
    Rule rule;
    const bool isKnown = ReadSelector(Trimmed(selectors.substr(0, comma)), &rule.selector);
    selectors.remove_prefix(std::min(comma + 1, selectors.size()));
    if (!isKnown) continue;
    quint32 specificity = 0;
    for (const Compound& compound : rule.selector)
      specificity += (compound.id.isEmpty() ? 0 : 1U << 12) + (static_cast<quint32>(compound.classes.size()) << 6) +
                     (compound.tag.isEmpty() ? 0 : 1);
    rule.declarations = declarations;
    rule.rank = (std::min(specificity, (1U << 17) - 1) << kOrderBits) + static_cast<quint32>(rules_.size());
    const Compound& last = rule.selector.back();
    const QByteArray key = !last.id.isEmpty()      ? '#' + last.id
                           : !last.classes.empty() ? '.' + last.classes.front()
                                                   : last.tag;
    rulesByKey_[isQuirky_ ? key.toLower() : key].push_back(rules_.size());
    rules_.push_back(std::move(rule));
  }
}

PageStyles::Declarations PageStyles::ReadDeclarations(string_view text) {
  static constexpr std::array<string_view, kProperties> kNames = {"display", "visibility", "white-space",
                                                                  "float",   "position",   "text-transform"};
  Declarations declarations;
  while (!text.empty()) {
    const size_t end = FindOpen(text, ";");
    const string_view declaration = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const size_t colon = declaration.find(':');
    if (colon == string_view::npos) continue;
    const string_view name = Trimmed(declaration.substr(0, colon));
    string_view value = Trimmed(declaration.substr(colon + 1));
    const size_t mark = value.find('!');
    const bool isImportant = mark != string_view::npos;
    value = Trimmed(value.substr(0, mark));
    if (IsOneOf(value, {"inherit", "unset", "revert"})) continue;
    for (size_t i = 0; i < kProperties; ++i) {
      if (!Same(name, kNames[i]) || (declarations.importance[i] == Importance::Important && !isImportant)) continue;
      declarations.values[i] = value;
      declarations.importance[i] = isImportant ? Importance::Important : Importance::Normal;
    }
  }
  return declarations;
}

// Reads a selector of compounds that are joined by blanks or ">". False for any other selector; its rule is ignored.
bool PageStyles::ReadSelector(string_view text, std::vector<Compound>* selector) {
  bool isChild = false;
  while (!text.empty()) {
    if (IsSpace(text.front()) || text.front() == '>') {
      isChild = isChild || text.front() == '>';
      text.remove_prefix(1);
      continue;
    }
    size_t end = 0;
    while (end < text.size() && !IsSpace(text[end]) && text[end] != '>') ++end;
    Compound compound;
    if (!ReadCompound(text.substr(0, end), &compound)) return false;
    compound.isChild = isChild;
    isChild = false;
    selector->push_back(std::move(compound));
    text.remove_prefix(end);
  }
  return !selector->empty();
}

bool PageStyles::ReadCompound(string_view text, Compound* compound) {
  while (!text.empty()) {
    const char sign = text.front();
    if (sign == '.' || sign == '#' || sign == '*') text.remove_prefix(1);
    if (sign == '*') continue;
    size_t end = 0;
    while (end < text.size() && IsNameLetter(text[end])) ++end;
    if (end == 0) return false;
    const QByteArray name = Bytes(text.substr(0, end));
    text.remove_prefix(end);
    if (sign == '.') {
      compound->classes.push_back(name);
    } else if (sign == '#') {
      compound->id = name;
    } else {
      compound->tag = name.toLower();
    }
  }
  return true;
}

bool PageStyles::Matches(const Compound& compound, const GumboNode* element) const {
  --comparisons_;
  if (!compound.tag.isEmpty() &&
      !Same(NameOf(element), {compound.tag.constData(), static_cast<size_t>(compound.tag.size())}))
    return false;
  if (!compound.id.isEmpty() && !HasWord(AttributeOf(element, "id"), compound.id)) return false;
  if (compound.classes.empty()) return true;
  const string_view classes = AttributeOf(element, "class");
  return std::all_of(compound.classes.begin(), compound.classes.end(),
                     [&](const QByteArray& name) { return HasWord(classes, name); });
}

// A list of classes may be as long as the page, so its length counts as further comparisons.
bool PageStyles::HasWord(string_view words, const QByteArray& word) const {
  constexpr size_t kCharactersOfAComparison = 64;
  comparisons_ -= static_cast<int>(words.size() / kCharactersOfAComparison);
  return comparisons_ > 0 && HasClass(words, word, isQuirky_);
}

// Compares from the last compound up through the ancestors, each with the nearest ancestor that fits. Only a selector
// that mixes blanks and ">" could need another ancestor.
bool PageStyles::Matches(const Rule& rule, const GumboNode* element) const {
  if (!Matches(rule.selector.back(), element)) return false;
  for (size_t i = rule.selector.size() - 1; i > 0; --i) {
    const bool isChild = rule.selector[i].isChild;
    const GumboNode* ancestor = element->parent;
    while (ancestor != nullptr && ancestor->type == GUMBO_NODE_ELEMENT && !Matches(rule.selector[i - 1], ancestor)) {
      if (isChild || comparisons_ < 0) return false;
      ancestor = ancestor->parent;
    }
    if (ancestor == nullptr || ancestor->type != GUMBO_NODE_ELEMENT) return false;
    element = ancestor;
  }
  return true;
}

void PageStyles::ApplySheets(const GumboNode* element, Cascade* cascade) const {
  const auto tryKey = [&](const QByteArray& key) {
    if (comparisons_ <= 0) return;
    const auto found = rulesByKey_.constFind(isQuirky_ ? key.toLower() : key);
    if (found == rulesByKey_.constEnd()) return;
    for (const size_t index : *found)
      if (comparisons_ > 0 && Matches(rules_[index], element))
        cascade->Apply(rules_[index].declarations, rules_[index].rank);
  };
  tryKey(QByteArray());
  tryKey(Bytes(NameOf(element)).toLower());
  const string_view id = AttributeOf(element, "id");
  if (!id.empty()) tryKey('#' + Bytes(id));
  string_view classes = AttributeOf(element, "class");
  while (!classes.empty()) {
    size_t end = 0;
    while (end < classes.size() && !IsSpace(classes[end])) ++end;
    tryKey('.' + Bytes(classes.substr(0, end)));
    classes = Trimmed(classes.substr(end));
  }
}

ElementStyle PageStyles::Of(const GumboNode* element, const ElementStyle& parent) const {
  ElementStyle style;
  style.display = parent.display;
  style.whiteSpace = parent.whiteSpace;
  style.letterCase = parent.letterCase;
  style.isHidden = parent.isHidden;
  ApplyOwnRules(element, isQuirky_, &style);
  const GumboAttribute* own = gumbo_get_attribute(&element->v.element.attributes, "style");
  if (own == nullptr && rules_.empty()) {
    if (style.isAside || parent.isFlex) MakeBlock(&style);
    return style;
  }
  Cascade cascade;
  if (!rules_.empty()) ApplySheets(element, &cascade);
  if (own != nullptr) cascade.Apply(ReadDeclarations(own->value), kStyleAttribute);
  ApplyDisplay(cascade.values[kDisplay], &style);
  if (Same(cascade.values[kDisplay], "contents")) style.isFlex = parent.isFlex;
  ApplyWhiteSpace(cascade.values[kWhiteSpace], &style);
  ApplyLetterCase(cascade.values[kTransform], &style);
  const string_view visibility = cascade.values[kVisibility];
  if (!visibility.empty()) style.isHidden = IsOneOf(visibility, {"hidden", "collapse"});
  const string_view floating = cascade.values[kFloat];
  if (!floating.empty()) style.isAside = IsOneOf(floating, {"left", "right"});
  if (IsOneOf(cascade.values[kPosition], {"absolute", "fixed"})) style.isAside = true;
  if (style.isAside || parent.isFlex) MakeBlock(&style);
  return style;
}
