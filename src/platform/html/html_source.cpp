// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_source.h"

#include <QLatin1StringView>
#include <algorithm>
#include <array>
#include <vector>

#include "platform/html/html_depth.h"
#include "platform/html/html_doctype.h"
#include "platform/html/html_style_scan.h"
#include "platform/html/html_tags.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view kHardBlank("&nbsp;");

// What may stand in a run: the parser changes everything else, or sees markup in it. A carriage return is as good as a
// blank where blanks do not count.
size_t PlainEnd(std::string_view text, size_t at, bool mayKeepBlanks) {
  static const std::array<bool, 256> kPlain = [] {
    std::array<bool, 256> plain = {};
    for (size_t c = 0; c < 256; ++c) plain[c] = (c >= ' ' && c != 0x7F && c != 0xC2) || c == '\t' || c == '\n';
    plain['\f'] = true;
    plain['&'] = plain['<'] = false;
    return plain;
  }();
  // The bytes that Windows-1252 leaves open stand in every page that was UTF-8 and is read as Windows-1252.
  constexpr std::string_view kOpen("\x81\x8D\x8F\x90\x9D");
  while (at < text.size()) {
    const char c = text[at];
    if (kPlain[static_cast<uchar>(c)]) {
      ++at;
      continue;
    }
    const bool isHardBlank = c == '&' && text.substr(at, kHardBlank.size()) == kHardBlank;
    const bool isOpen = at + 1 < text.size() && kOpen.find(text[at + 1]) != std::string_view::npos;
    const bool isPlain = c == '\xC2' ? !isOpen : c == '\r' && !mayKeepBlanks;
    if (!isHardBlank && !isPlain) return at;
    at += isHardBlank ? kHardBlank.size() : 1;
  }
  return at;
}

std::string_view Text(QByteArrayView bytes) {
  return {bytes.data(), static_cast<size_t>(bytes.size())};
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\r';
}

bool IsBlankText(std::string_view text) {
  return std::all_of(text.begin(), text.end(), IsBlank);
}

bool IsOfReference(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '#';
}

// Writes the source that the parser gets: the page without what no text needs.
class SourceWriter {
 public:
  explicit SourceWriter(const QByteArray& html)
      : html_(html),
        page_(html.constData(), static_cast<size_t>(html.size())),
        styles_(page_),
        mayHoldRuns_(!html.contains('\xF3')),
        mayKeepBlanks_(styles_.KeepsBlanks()) {
    source_.hasSheets = styles_.HasSheets();
  }

  PageSource Run() {
    const DocumentType type = ReadDocumentType(html_);
    source_.text.reserve(page_.size() + 32);
    if (!type.isQuirky) source_.text += "<!DOCTYPE html>";
    // A second body tag keeps a later frameset from taking the body's place.
    source_.text += "<body><body>";
    TagScanner scanner(html_);
    TagScanner::Tag tag;
    qsizetype copied = type.end;
    while (scanner.Next(&tag)) {
      if (tag.begin < copied) continue;
      const bool beginsLine = BeginsLine(tag);
      const bool isOfTable = tag.kind != TagScanner::Kind::Comment && OpenElements::IsOfTable(tag.name);
      const std::string_view text = Slice(copied, tag.begin);
      copied = tag.rawEnd;
      if (!IsAtLinesEdge(text, beginsLine, isOfTable)) AddText(text);
      if (IsWithoutEffect(tag)) continue;
      AddTag(tag);
      isAtLineBegin_ = beginsLine;
      isBehindTableTag_ = isOfTable;
      isInDrawing_ = tag.isInDrawing;
      open_.Follow(tag, hasAttributes_);
      if (open_.IsTooDeep()) return {};
    }
    if (copied < scanner.TextEnd()) AddText(Slice(copied, scanner.TextEnd()));
    return std::move(source_);
  }

 private:
  std::string_view Slice(qsizetype begin, qsizetype end) const {
    return page_.substr(static_cast<size_t>(begin), static_cast<size_t>(end - begin));
  }

  // True if the text ahead of a tag and the text behind it stand in different lines for certain.
  bool BeginsLine(const TagScanner::Tag& tag) {
    const bool isChoice = tag.name == GUMBO_TAG_SELECT || tag.name == GUMBO_TAG_OPTGROUP;
    if (isChoice && tag.kind == TagScanner::Kind::Start) isInChoice_ = true;
    if (tag.name == GUMBO_TAG_SELECT && tag.kind == TagScanner::Kind::End) isInChoice_ = false;
    if (!styles_.IsPlain() || tag.isInDrawing || isInDrawing_ || tag.kind == TagScanner::Kind::Comment) return false;
    const bool isStart = tag.kind == TagScanner::Kind::Start;
    // Stray text behind a table's start tag goes ahead of the table.
    if (tag.name == GUMBO_TAG_TABLE) return !HasAsideTable(tag) && !isStart && open_.IsInTable();
    const quint16 traits = TraitsOf(tag.name);
    if ((traits & TagTrait::kInTable) != 0) return (isStart || tag.name == GUMBO_TAG_TR) && open_.IsInTable();
    return isStart ? (traits & TagTrait::kBeginsLine) != 0 : tag.name == GUMBO_TAG_P || tag.name == GUMBO_TAG_BR;
  }

  // Tables beside the line: what stands around them goes on.
  bool HasAsideTable(const TagScanner::Tag& tag) {
    const auto isAside = [](const TagScanner::Attribute& attribute) {
      return IsName(attribute.name, "align") &&
             !QLatin1StringView(attribute.source).contains("center"_L1, Qt::CaseInsensitive);
    };
    hasAsideTable_ = hasAsideTable_ || std::any_of(tag.attributes.begin(), tag.attributes.end(), isAside);
    return hasAsideTable_;
  }

  // Blanks at the begin or end of a line are none.
  bool IsAtLinesEdge(std::string_view text, bool isLineEnd, bool isTableTagNext) const {
    if (isInChoice_ || !styles_.IsPlain() || mayKeepBlanks_ || !IsBlankText(text)) return false;
    if (open_.IsBetweenCells()) return isBehindTableTag_ && isTableTagNext && open_.IsInTable();
    return isLineEnd || isAtLineBegin_;
  }

  // The tags of a document's frame, and on a page without any style those of bold type, of links and their like, change
  // no text.
  bool IsWithoutEffect(const TagScanner::Tag& tag) const {
    // Where blanks count, a line break behind the tag that keeps them does not, but behind any other it does.
    if (tag.isInDrawing || isInDrawing_ || isTextOpen_ || mayKeepBlanks_ || open_.IsBetweenCells()) return false;
    if (tag.kind == TagScanner::Kind::Comment) return true;
    if (isTitleOpen_ && tag.name == GUMBO_TAG_TITLE) return false;
    const quint16 traits = TraitsOf(tag.name);
    if ((traits & TagTrait::kUnseen) == 0)
      return styles_.IsPlain() && !isInChoice_ && !isInForm_ && (traits & TagTrait::kTextStyle) != 0;
    return std::none_of(tag.attributes.begin(), tag.attributes.end(),
                        [&](const auto& attribute) { return styles_.Matters(attribute, tag.name); });
  }

  // The parser knows where cells and rows end.
  static bool IsImplied(GumboTag end, const TagScanner::Tag& next) {
    if (next.kind == TagScanner::Kind::Comment || next.isInDrawing) return false;
    const bool isCell = next.name == GUMBO_TAG_TD || next.name == GUMBO_TAG_TH;
    const bool isRow = next.name == GUMBO_TAG_TR;
    const bool isSection = next.name == GUMBO_TAG_TBODY || next.name == GUMBO_TAG_THEAD || next.name == GUMBO_TAG_TFOOT;
    if (next.kind == TagScanner::Kind::Start) return isRow || isSection || (isCell && end != GUMBO_TAG_TR);
    return next.name == GUMBO_TAG_TABLE || (isRow && end != GUMBO_TAG_TR);
  }

  // Holds the end tag of a cell or row back until it is seen what follows.
  bool Hold(const TagScanner::Tag& tag) {
    const bool mayBeImplied = tag.name == GUMBO_TAG_TD || tag.name == GUMBO_TAG_TH || tag.name == GUMBO_TAG_TR;
    if (!mayBeImplied || tag.kind != TagScanner::Kind::End || isInDrawing_) return false;
    heldEnd_ = tag.name;
    return true;
  }

  void WriteHeld() {
    if (heldEnd_ == GUMBO_TAG_UNKNOWN) return;
    source_.text += "</";
    source_.text += gumbo_normalized_tagname(heldEnd_);
    source_.text += '>';
    heldEnd_ = GUMBO_TAG_UNKNOWN;
  }

  void AddTag(const TagScanner::Tag& tag) {
    hasAttributes_ = false;
    if (IsImplied(heldEnd_, tag)) heldEnd_ = GUMBO_TAG_UNKNOWN;
    WriteHeld();
    isTextOpen_ = false;
    if (tag.name == GUMBO_TAG_FORM) isInForm_ = tag.kind == TagScanner::Kind::Start;
    isTitleOpen_ = tag.name == GUMBO_TAG_TITLE && tag.kind == TagScanner::Kind::Start;
    std::string& text = source_.text;
    if (tag.isInDrawing) {
      if (KeepsBlanks(Slice(tag.begin, tag.end))) mayKeepBlanks_ = true;
      if (tag.kind == TagScanner::Kind::Comment) {
        text += Slice(tag.begin, tag.rawEnd);
      } else {
        WriteTag(tag);
      }
      return;
    }
    if (tag.kind == TagScanner::Kind::Comment) {
      text += "<!---->";
      return;
    }
    if (Hold(tag)) return;
    // The parser holds text back until the next element begins or ends, but forgets it when a form ends: the text would
    // slip out of the form. A comment brings it in.
    if (tag.name == GUMBO_TAG_FORM && tag.kind == TagScanner::Kind::End) text += "<!---->";
    WriteTag(tag);
    if ((TraitsOf(tag.name) & TagTrait::kKeepsBlanks) != 0) mayKeepBlanks_ = true;
    if (tag.kind != TagScanner::Kind::Start) return;
    if (tag.name == GUMBO_TAG_STYLE && styles_.HasSheets()) AddSheet(Slice(tag.end, tag.rawEnd));
    if (tag.name == GUMBO_TAG_XMP || tag.name == GUMBO_TAG_PLAINTEXT) text += Slice(tag.end, tag.rawEnd);
  }

  // The parser compares every attribute of a tag with all those before it, so that each name is handed on once.
  void WriteTag(const TagScanner::Tag& tag) {
    std::string& text = source_.text;
    text += tag.kind == TagScanner::Kind::End ? "</" : "<";
    text += Text(tag.writtenName);
    std::array<QByteArrayView, 16> written;
    size_t count = 0;
    for (const TagScanner::Attribute& attribute : tag.attributes) {
      if (!styles_.Matters(attribute, tag.name) || count == written.size()) continue;
      const bool isRepeated = std::any_of(written.begin(), written.begin() + count,
                                          [&](QByteArrayView name) { return IsName(name, attribute.name); });
      if (isRepeated) continue;
      written[count++] = attribute.name;
      hasAttributes_ = true;
      if (KeepsBlanks(Text(attribute.source))) mayKeepBlanks_ = true;
      text += ' ';
      text += Text(attribute.source);
    }
    text += tag.closesItself ? " />" : ">";
  }

  void AddSheet(std::string_view sheet) {
    if (MayAddRun() && sheet.find_first_of(std::string_view("<\0", 2)) == std::string_view::npos) {
      AddRun(sheet);
    } else {
      source_.text += sheet;
    }
  }

  void AddText(std::string_view text) {
    if (text.empty()) return;
    WriteHeld();
    isTextOpen_ = isAtLineBegin_ = isBehindTableTag_ = false;
    size_t at = 0;
    while (at < text.size()) {
      size_t end = PlainEnd(text, at, mayKeepBlanks_);
      AddPlain(text.substr(at, end - at));
      if (end < text.size()) {
        end = AddSpecial(text, end);
        isTextOpen_ = end >= text.size();
      }
      at = end;
    }
  }

  void AddPlain(std::string_view text) {
    // A run takes four bytes.
    constexpr size_t kShortest = 4;
    // The parser must see the blanks that a text begins with.
    const auto firstLetter = std::find_if_not(text.begin(), text.end(), IsBlank);
    const auto blanks = static_cast<size_t>(firstLetter - text.begin());
    source_.text += text.substr(0, mayKeepBlanks_ ? blanks : std::min<size_t>(blanks, 1));
    text.remove_prefix(blanks);
    if (MayAddRun() && text.size() >= kShortest) {
      AddRun(text);
    } else {
      source_.text += text;
    }
  }

  // As many characters as a plane of private use has.
  bool MayAddRun() const { return mayHoldRuns_ && source_.runs.size() < 65533; }

  void AddRun(std::string_view text) {
    const size_t index = source_.runs.size();
    source_.runs.push_back(text);
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
  StyleScan styles_;
  // A page that uses the characters of the runs itself is handed over as it is.
  bool mayHoldRuns_;
  // The text so far ends in a character reference or a "<", which what follows must not become part of.
  bool isTextOpen_ = false;
  // A title was begun, whose text hides everything up to its end tag.
  bool isTitleOpen_ = false;
  // From here on more than one blank may count.
  bool mayKeepBlanks_;
  // Within a choice the parser passes over nearly every tag, and a group of options shows no text of its own.
  bool isInChoice_ = false;
  // What still stands open at a form's end tag stays open, and with it the form's line.
  bool isInForm_ = false;
  bool hasAsideTable_ = false;
  // Only blanks and tags without effect stand between here and a tag that begins a line.
  bool isAtLineBegin_ = false;
  bool isBehindTableTag_ = false;
  // The last tag was part of a drawing.
  bool isInDrawing_ = false;
  GumboTag heldEnd_ = GUMBO_TAG_UNKNOWN;
  OpenElements open_;
  // The last tag was handed on with attributes.
  bool hasAttributes_ = false;
  PageSource source_;
};

}  // namespace

PageSource ParserSource(const QByteArray& html) {
  return SourceWriter(html).Run();
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
  if (copied < scanner.TextEnd())
    flat.append(html.constData() + copied, static_cast<size_t>(scanner.TextEnd() - copied));
  return {std::move(flat), {}, false};
}
