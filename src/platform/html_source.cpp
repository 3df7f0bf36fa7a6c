// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html_source.h"

#include <QLatin1StringView>
#include <algorithm>
#include <array>
#include <vector>

#include "platform/html_doctype.h"
#include "platform/html_tags.h"

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kDeepest = 500;

// The elements that are open, as far as the depth is concerned.
class OpenElements {
 public:
  void Follow(const TagScanner::Tag& tag) {
    constexpr quint8 kWithoutDepth = TagTrait::kVoid | TagTrait::kEndsItself | TagTrait::kRawText;
    const bool isOfItsOwn = tag.closesItself && tag.name == GUMBO_TAG_UNKNOWN;
    if (tag.kind == TagScanner::Kind::Comment || isOfItsOwn || (TraitsOf(tag.name) & kWithoutDepth) != 0) return;
    if (tag.kind == TagScanner::Kind::End) {
      End(tag.name);
    } else {
      Start(tag.name);
    }
  }

  // Between the cells of a table stray text is thrown out of it, and the parser looks at each tag that parts it.
  bool IsBetweenCells() const {
    for (size_t i = open_.size(); i > 0; --i) {
      const GumboTag tag = open_[i - 1];
      if (tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH || tag == GUMBO_TAG_CAPTION) return false;
      if (tag == GUMBO_TAG_TABLE || IsInTable(tag)) return true;
    }
    return false;
  }

  bool IsTooDeep() const { return open_.size() > kDeepest; }

 private:
  static bool IsInTable(GumboTag tag) { return (TraitsOf(tag) & TagTrait::kInTable) != 0; }

  void Start(GumboTag tag) {
    if (IsInTable(tag)) {
      const auto table = std::find(open_.rbegin(), open_.rend(), GUMBO_TAG_TABLE);
      const auto below = static_cast<size_t>(table - open_.rbegin());
      // A cell stands in its row and section, a row in its section.
      const size_t levels = tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH ? 2 : tag == GUMBO_TAG_TR ? 1 : 0;
      if (table != open_.rend() && below > levels) open_.resize(open_.size() - below + levels);
    }
    open_.push_back(tag);
  }

  void End(GumboTag tag) {
    const bool isOfTable = IsInTable(tag) || tag == GUMBO_TAG_TABLE;
    for (size_t i = open_.size(); i > 0; --i) {
      const GumboTag open = open_[i - 1];
      if (open == tag) {
        open_.resize(i - 1);
        return;
      }
      if (isOfTable ? open == GUMBO_TAG_TABLE : (TraitsOf(open) & TagTrait::kBarrier) != 0) return;
    }
  }

  std::vector<GumboTag> open_;
};

// What may stand in a run: the parser changes everything else, or sees markup in it.
bool IsPlain(std::string_view text, size_t at) {
  static const std::array<bool, 256> kPlain = [] {
    std::array<bool, 256> plain = {};
    for (size_t c = 0; c < 256; ++c) plain[c] = (c >= ' ' && c != 0x7F) || c == '\t' || c == '\n' || c == '\f';
    plain['&'] = plain['<'] = false;
    return plain;
  }();
  // The bytes that Windows-1252 leaves open stand in every page that was UTF-8 and is read as Windows-1252.
  constexpr std::string_view kOpen("\x81\x8D\x8F\x90\x9D");
  if (text[at] == '\xC2' && at + 1 < text.size()) return kOpen.find(text[at + 1]) == std::string_view::npos;
  return kPlain[static_cast<uchar>(text[at])];
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\f';
}

bool IsOfReference(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '#';
}

bool Matters(QByteArrayView name, bool hasSheets) {
  static constexpr std::array kAlways = {"style"_L1, "hidden"_L1, "open"_L1,    "type"_L1,
                                         "align"_L1, "media"_L1,  "controls"_L1};
  const QLatin1StringView text(name);
  const auto isName = [text](QLatin1StringView known) {
    return known.size() == text.size() && known.compare(text, Qt::CaseInsensitive) == 0;
  };
  return std::any_of(kAlways.begin(), kAlways.end(), isName) || (hasSheets && (isName("class"_L1) || isName("id"_L1)));
}

// Makes the source that the parser gets.
class Reducer {
 public:
  explicit Reducer(const QByteArray& html)
      : html_(html), page_(html.constData(), static_cast<size_t>(html.size())), mayHoldRuns_(!html.contains('\xF3')) {
    source_.hasSheets = QLatin1StringView(html).contains("<style"_L1, Qt::CaseInsensitive);
    if (source_.hasSheets) NoteBlanks(html);
    const QLatin1StringView text(html);
    isPlainPage_ = !text.contains("style"_L1, Qt::CaseInsensitive) && !text.contains("hidden"_L1, Qt::CaseInsensitive);
  }

  PageSource Run() {
    const DocumentType type = ReadDocumentType(html_);
    source_.text.reserve(page_.size() + 32);
    if (!type.isQuirky) source_.text += "<!DOCTYPE html>";
    // A second body tag keeps a later frameset from taking the body's place.
    source_.text += "<body><body>";
    TagScanner scanner(html_);
    TagScanner::Tag tag;
    OpenElements open;
    qsizetype copied = type.end;
    while (scanner.Next(&tag)) {
      if (tag.begin < copied) continue;
      AddText(Slice(copied, tag.begin));
      copied = tag.rawEnd;
      if (IsWithoutEffect(tag, open)) continue;
      AddTag(tag);
      open.Follow(tag);
      if (open.IsTooDeep()) return {};
    }
    AddText(Slice(copied, html_.size()));
    return std::move(source_);
  }

 private:
  std::string_view Slice(qsizetype begin, qsizetype end) const {
    return page_.substr(static_cast<size_t>(begin), static_cast<size_t>(end - begin));
  }

  // On a page without any style the tags of bold type, of links and their like change no text.
  bool IsWithoutEffect(const TagScanner::Tag& tag, const OpenElements& open) const {
    return isPlainPage_ && tag.kind != TagScanner::Kind::Comment && (TraitsOf(tag.name) & TagTrait::kLook) != 0 &&
           !tag.isInDrawing && !isTextOpen_ && !open.IsBetweenCells();
  }

  void AddTag(const TagScanner::Tag& tag) {
    isTextOpen_ = false;
    std::string& text = source_.text;
    if (tag.isInDrawing) {
      text += Slice(tag.begin, tag.rawEnd);
      return;
    }
    if (tag.kind == TagScanner::Kind::Comment) {
      text += "<!---->";
      return;
    }
    text += tag.kind == TagScanner::Kind::End ? "</" : "<";
    text.append(tag.writtenName.data(), static_cast<size_t>(tag.writtenName.size()));
    for (const TagScanner::Attribute& attribute : tag.attributes) {
      if (!Matters(attribute.name, source_.hasSheets)) continue;
      NoteBlanks(attribute.source);
      text += ' ';
      text.append(attribute.source.data(), static_cast<size_t>(attribute.source.size()));
    }
    text += tag.closesItself ? " />" : ">";
    if ((TraitsOf(tag.name) & TagTrait::kKeepsBlanks) != 0) mayKeepBlanks_ = true;
    const bool isSeen = tag.name == GUMBO_TAG_STYLE || tag.name == GUMBO_TAG_XMP || tag.name == GUMBO_TAG_PLAINTEXT;
    if (isSeen) text += Slice(tag.end, tag.rawEnd);
  }

  // A style that might keep white space, in a sheet or an attribute.
  void NoteBlanks(QByteArrayView style) {
    if (QLatin1StringView(style).contains("white-space"_L1, Qt::CaseInsensitive)) mayKeepBlanks_ = true;
  }

  void AddText(std::string_view text) {
    size_t at = 0;
    if (!text.empty()) isTextOpen_ = false;
    while (at < text.size()) {
      size_t end = at;
      while (end < text.size() && IsPlain(text, end)) ++end;
      // Behind a "<" that begins no tag stands a tag that the source's end has cut.
      const bool isCutTag = at > 0 && text[at - 1] == '<';
      if (isCutTag) {
        source_.text += text.substr(at, end - at);
      } else {
        AddPlain(text.substr(at, end - at));
      }
      if (end < text.size()) {
        end = AddSpecial(text, end);
        isTextOpen_ = end >= text.size();
      }
      at = end;
    }
  }

  void AddPlain(std::string_view text) {
    constexpr size_t kShortest = 8;
    // As many characters as a plane of private use has.
    constexpr size_t kMost = 65533;
    const bool isBlank = std::all_of(text.begin(), text.end(), IsBlank);
    if (isBlank && !mayKeepBlanks_) text = text.substr(0, 1);
    // The parser must see that a text begins with a blank.
    const size_t begin = !text.empty() && IsBlank(text.front()) ? 1 : 0;
    if (isBlank || !mayHoldRuns_ || text.size() - begin < kShortest || source_.runs.size() >= kMost) {
      source_.text += text;
      return;
    }
    const size_t index = source_.runs.size();
    source_.runs.push_back(text.substr(begin));
    source_.text += text.substr(0, begin);
    // U+F0000 and up.
    source_.text += '\xF3';
    source_.text += static_cast<char>(0xB0 | (index >> 12));
    source_.text += static_cast<char>(0x80 | ((index >> 6) & 0x3F));
    source_.text += static_cast<char>(0x80 | (index & 0x3F));
  }

  // A character reference stays together, a control goes in as one; the parser would not let it through.
  size_t AddSpecial(std::string_view text, size_t at) {
    size_t end = at + 1;
    if (text[at] == '&') {
      while (end < text.size() && IsOfReference(text[end])) ++end;
      if (end < text.size() && text[end] == ';') ++end;
    } else if (text[at] != '<' && text[at] != '\r' && text[at] != 0) {
      if (text[at] == '\xC2') end = at + 2;
      source_.text += "&#" + std::to_string(static_cast<uchar>(text[end - 1])) + ';';
      return end;
    }
    source_.text += text.substr(at, end - at);
    return end;
  }

  QByteArrayView html_;
  std::string_view page_;
  // A page that uses the characters of the runs itself is handed over as it is.
  bool mayHoldRuns_;
  bool isPlainPage_ = false;
  // The text so far ends in a character reference or a "<", which what follows must not become part of.
  bool isTextOpen_ = false;
  // From here on more than one blank may count.
  bool mayKeepBlanks_ = false;
  PageSource source_;
};

}  // namespace

PageSource ParserSource(const QByteArray& html) {
  return Reducer(html).Run();
}

PageSource FlatSource(const QByteArray& html) {
  std::string flat("<body>");
  flat.reserve(static_cast<size_t>(html.size()) + 16);
  TagScanner scanner(html);
  TagScanner::Tag tag;
  qsizetype copied = 0;
  bool isBroken = false;
  while (scanner.Next(&tag)) {
    const QByteArrayView text = QByteArrayView(html).sliced(copied, tag.begin - copied);
    if (!text.trimmed().isEmpty()) isBroken = false;
    flat.append(text.data(), static_cast<size_t>(text.size()));
    copied = tag.rawEnd;
    if (tag.kind == TagScanner::Kind::Comment) continue;
    if ((TraitsOf(tag.name) & TagTrait::kBlock) != 0 && !isBroken) {
      flat += "<br>";
      isBroken = true;
    } else {
      flat += ' ';
    }
  }
  flat.append(html.constData() + copied, static_cast<size_t>(html.size() - copied));
  return {std::move(flat), {}, false};
}
