// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_style_scan.h"

#include <QLatin1StringView>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// If the sheets hold more names than this, every name of the page counts as one of theirs.
constexpr size_t kMostNames = 10'000;
constexpr size_t kNowhere = std::string_view::npos;

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool IsNameLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
         static_cast<uchar>(c) >= 0x80;
}

char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

// Sorts without regard to case: old pages mix the cases of a class and its rule.
bool ComesBefore(std::string_view one, std::string_view other) {
  return std::lexicographical_compare(one.begin(), one.end(), other.begin(), other.end(),
                                      [](char a, char b) { return LowerCase(a) < LowerCase(b); });
}

QLatin1StringView Latin(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

// True if declarations may set a property that changes a text. With escaped letters they may set any.
bool CanBeSeen(std::string_view declarations) {
  static constexpr std::array kWords = {"display"_L1,  "visibility"_L1,     "white-space"_L1, "float"_L1,
                                        "position"_L1, "text-transform"_L1, "\\"_L1,          "&"_L1};
  return std::any_of(kWords.begin(), kWords.end(),
                     [&](QLatin1StringView word) { return Latin(declarations).contains(word, Qt::CaseInsensitive); });
}

// Finds a word, given in lower case, in any case. It goes on by the word's length, so that most of the page's letters
// are not looked at.
class WordFinder {
 public:
  constexpr explicit WordFinder(std::string_view word) : word_(word) {
    for (const char c : word) {
      isInWord_[static_cast<uchar>(c)] = true;
      if (c >= 'a' && c <= 'z') isInWord_[static_cast<uchar>(c ^ 0x20)] = true;
    }
  }

  constexpr size_t Size() const { return word_.size(); }

  size_t Find(std::string_view page, size_t from) const {
    for (size_t at = from + word_.size() - 1; at < page.size(); at += word_.size()) {
      if (!isInWord_[static_cast<uchar>(page[at])]) continue;
      const char letter = LowerCase(page[at]);
      // A letter that the word has twice may be at either place.
      for (size_t place = word_.find(letter); place != kNowhere; place = word_.find(letter, place + 1))
        if (IsAt(page, at - place)) return at - place;
    }
    return kNowhere;
  }

 private:
  bool IsAt(std::string_view page, size_t at) const {
    if (at + word_.size() > page.size()) return false;
    for (size_t i = 0; i < word_.size(); ++i)
      if (LowerCase(page[at + i]) != word_[i]) return false;
    return true;
  }

  std::string_view word_;
  std::array<bool, 256> isInWord_ = {};
};

constexpr WordFinder kStyle("style");
constexpr WordFinder kStyleEnd("</style");
constexpr WordFinder kHidden("hidden");

// True if a "hidden" at a position may be an attribute; as part of a word or as a value it is none.
bool IsAttribute(std::string_view page, size_t at) {
  if (at < 2) return false;
  const char before = page[at - 1];
  if (before == '"' || before == '\'') return page[at - 2] != '=';
  return IsSpace(before) || before == '/';
}

bool HasHiddenElements(std::string_view page) {
  for (size_t at = kHidden.Find(page, 0); at != kNowhere; at = kHidden.Find(page, at + kHidden.Size()))
    if (IsAttribute(page, at)) return true;
  return false;
}

}  // namespace

bool IsName(QByteArrayView name, QByteArrayView known) {
  return name.compare(known, Qt::CaseInsensitive) == 0;
}

bool KeepsBlanks(std::string_view style) {
  return Latin(style).contains("white-space"_L1, Qt::CaseInsensitive);
}

StyleScan::StyleScan(std::string_view page) {
  ReadStyles(page);
  if (isPlain_) isPlain_ = !HasHiddenElements(page);
}

void StyleScan::ReadStyles(std::string_view page) {
  // A longer tag is not searched: it counts as one that can change the text.
  constexpr size_t kLongestTag = 4096;
  size_t at = kStyle.Find(page, 0);
  while (at != kNowhere) {
    size_t next = at + kStyle.Size();
    if (at > 0 && page[at - 1] == '<') {
      const size_t end = std::min(kStyleEnd.Find(page, next), page.size());
      ReadSheet(page.substr(next, end - next));
      next = std::min(end + kStyleEnd.Size(), page.size());
    } else if (isPlain_) {
      const std::string_view tag = page.substr(at, kLongestTag);
      const size_t end = tag.find('>');
      if (end == kNowhere || CanBeSeen(tag.substr(0, end))) isPlain_ = false;
      // Go on behind the tag: it is not searched again for another "style" inside it.
      if (end != kNowhere) next = at + end;
    }
    at = kStyle.Find(page, next);
  }
  std::sort(names_.begin(), names_.end(), ComesBefore);
}

// Reads the names of a sheet; one that only colours and moves is ignored.
void StyleScan::ReadSheet(std::string_view sheet) {
  if (!CanBeSeen(sheet)) return;
  isPlain_ = false;
  hasSheets_ = true;
  keepsBlanks_ = keepsBlanks_ || ::KeepsBlanks(sheet);
  for (size_t at = sheet.find_first_of(".#"); at != kNowhere && names_.size() < kMostNames;
       at = sheet.find_first_of(".#", at)) {
    size_t end = ++at;
    while (end < sheet.size() && IsNameLetter(sheet[end])) ++end;
    if (end > at) names_.push_back(sheet.substr(at, end - at));
    at = end;
  }
}

bool StyleScan::IsNamed(std::string_view name) const {
  return names_.size() >= kMostNames || std::binary_search(names_.begin(), names_.end(), name, ComesBefore);
}

// True if the sheets have one of the names. value: a class or id attribute as it is written, its name included.
bool StyleScan::IsNamedInSheets(std::string_view value) const {
  if (value.find('&') != kNowhere) return true;
  size_t at = value.find('=');
  while (at < value.size()) {
    while (at < value.size() && (IsSpace(value[at]) || value[at] == '=' || value[at] == '"' || value[at] == '\'')) ++at;
    size_t end = at;
    while (end < value.size() && !IsSpace(value[end]) && value[end] != '"' && value[end] != '\'') ++end;
    if (end > at && IsNamed(value.substr(at, end - at))) return true;
    at = end;
  }
  return false;
}

bool StyleScan::Matters(const TagScanner::Attribute& attribute, GumboTag tag) const {
  const QByteArrayView name = attribute.name;
  const std::string_view source(attribute.source.data(), static_cast<size_t>(attribute.source.size()));
  switch (LowerCase(name.front())) {
    case 's':
      return IsName(name, "style") && CanBeSeen(source);
    case 'e':
      // On an annotation in a formula it tells whether that holds HTML.
      return IsName(name, "encoding");
    case 'h':
      return IsName(name, "hidden");
    case 'o':
      return IsName(name, "open");
    case 't':
      return tag == GUMBO_TAG_INPUT && IsName(name, "type");
    case 'm':
      return tag == GUMBO_TAG_STYLE && IsName(name, "media");
    case 'a': {
      // A table or a picture is moved beside the line by it; elsewhere it only moves the text within.
      constexpr quint16 kAligned = TagTrait::kBlock | TagTrait::kInTable;
      return (tag == GUMBO_TAG_TABLE || (TraitsOf(tag) & kAligned) == 0) && IsName(name, "align");
    }
    case 'c':
      return IsName(name, "controls") || (hasSheets_ && IsName(name, "class") && IsNamedInSheets(source));
    case 'i':
      return hasSheets_ && IsName(name, "id") && IsNamedInSheets(source);
    default:
      return false;
  }
}
