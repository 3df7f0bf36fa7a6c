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

// Position behind the characters that may go into a run; any other one the parser would change or take for markup. A
// carriage return may go in where blanks are collapsed.
size_t PlainEnd(std::string_view text, size_t at, bool mayKeepBlanks) {
  static const std::array<bool, 256> kPlain = [] {
    std::array<bool, 256> plain = {};
    for (size_t c = 0; c < 256; ++c) plain[c] = (c >= ' ' && c != 0x7F && c != 0xC2) || c == '\t' || c == '\n';
    plain['\f'] = true;
    plain['&'] = plain['<'] = false;
    return plain;
  }();
  // The second bytes, behind C2 in UTF-8, of the five characters that Windows-1252 does not define. The parser lets
  // them through as references only, and each page that was UTF-8 but is read as Windows-1252 has some.
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

// Writes the source for the parser: the page without the parts that cannot change its text.
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

  // True if the text in front of a tag and the text behind it are in different lines for certain.
  bool BeginsLine(const TagScanner::Tag& tag) {
    const bool isChoice = tag.name == GUMBO_TAG_SELECT || tag.name == GUMBO_TAG_OPTGROUP;
    if (isChoice && tag.kind == TagScanner::Kind::Start) isInChoice_ = true;
    if (tag.name == GUMBO_TAG_SELECT && tag.kind == TagScanner::Kind::End) isInChoice_ = false;
    if (!styles_.IsPlain() || tag.isInDrawing || isInDrawing_ || tag.kind == TagScanner::Kind::Comment) return false;
    const bool isStart = tag.kind == TagScanner::Kind::Start;
    // The parser moves text that is directly behind a table's start tag to a place in front of the table.
    if (tag.name == GUMBO_TAG_TABLE) return !HasAsideTable(tag) && !isStart && open_.IsInTable();
    const quint16 traits = TraitsOf(tag.name);
    if ((traits & TagTrait::kInTable) != 0) return (isStart || tag.name == GUMBO_TAG_TR) && open_.IsInTable();
    return isStart ? (traits & TagTrait::kBeginsLine) != 0 : tag.name == GUMBO_TAG_P || tag.name == GUMBO_TAG_BR;
  }

  // True once the page has had a floating table, behind which the line around it goes on.
  bool HasAsideTable(const TagScanner::Tag& tag) {
    const auto isAside = [](const TagScanner::Attribute& attribute) {
      return IsName(attribute.name, "align") &&
             !QLatin1StringView(attribute.source).contains("center"_L1, Qt::CaseInsensitive);
    };
    hasAsideTable_ = hasAsideTable_ || std::any_of(tag.attributes.begin(), tag.attributes.end(), isAside);
    return hasAsideTable_;
  }

  // True for blanks at the beginning or end of a line: they are not shown.
  bool IsAtLinesEdge(std::string_view text, bool isLineEnd, bool isTableTagNext) const {
    if (isInChoice_ || !styles_.IsPlain() || mayKeepBlanks_ || !IsBlankText(text)) return false;
    if (open_.IsBetweenCells()) return isBehindTableTag_ && isTableTagNext && open_.IsInTable();
    return isLineEnd || isAtLineBegin_;
  }

  // True for tags that change no text: html, head, body and the like, and on a page without any style bold type, links
  // and the like.
  bool IsWithoutEffect(const TagScanner::Tag& tag) const {
    // Where blanks are kept, the parser drops a line end directly behind <pre>. Without a tag between them, a line end
    // that is to be kept would get into that place.
    if (tag.isInDrawing || isInDrawing_ || isTextOpen_ || mayKeepBlanks_ || open_.IsBetweenCells()) return false;
    if (tag.kind == TagScanner::Kind::Comment) return true;
    if (isTitleOpen_ && tag.name == GUMBO_TAG_TITLE) return false;
    const quint16 traits = TraitsOf(tag.name);
    if ((traits & TagTrait::kUnseen) == 0)
      return styles_.IsPlain() && !isInChoice_ && !isInForm_ && (traits & TagTrait::kTextStyle) != 0;
    return std::none_of(tag.attributes.begin(), tag.attributes.end(),
                        [&](const auto& attribute) { return styles_.Matters(attribute, tag.name); });
  }

  // True if the end tag of a cell or row can be left out, because the next tag implies it.
  static bool IsImplied(GumboTag end, const TagScanner::Tag& next) {
    if (next.kind == TagScanner::Kind::Comment || next.isInDrawing) return false;
    const bool isCell = next.name == GUMBO_TAG_TD || next.name == GUMBO_TAG_TH;
    const bool isRow = next.name == GUMBO_TAG_TR;
    const bool isSection = next.name == GUMBO_TAG_TBODY || next.name == GUMBO_TAG_THEAD || next.name == GUMBO_TAG_TFOOT;
    if (next.kind == TagScanner::Kind::Start) return isRow || isSection || (isCell && end != GUMBO_TAG_TR);
    return next.name == GUMBO_TAG_TABLE || (isRow && end != GUMBO_TAG_TR);
  }

  // Keeps the end tag of a cell or row back until the next tag tells whether it is implied. False for any other tag.
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
    // The parser buffers text until the next element begins or ends, but not until the end of a form: the text would
    // come behind the form. A comment makes it write the text.
    if (tag.name == GUMBO_TAG_FORM && tag.kind == TagScanner::Kind::End) text += "<!---->";
    WriteTag(tag);
    if ((TraitsOf(tag.name) & TagTrait::kKeepsBlanks) != 0) mayKeepBlanks_ = true;
    if (tag.kind != TagScanner::Kind::Start) return;
    if (tag.name == GUMBO_TAG_STYLE && styles_.HasSheets()) AddSheet(Slice(tag.end, tag.rawEnd));
    if (tag.name == GUMBO_TAG_XMP || tag.name == GUMBO_TAG_PLAINTEXT) text += Slice(tag.end, tag.rawEnd);
  }

  // Each attribute name is passed on once only: the parser compares each attribute of a tag with all before it.
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
    // The character that stands for a run takes four bytes.
    constexpr size_t kShortest = 4;
    // The parser itself must see the blanks at the beginning of a text.
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

  // There are no more characters than this in a private plane of Unicode, and each stands for one run.
  bool MayAddRun() const { return mayHoldRuns_ && source_.runs.size() < 65533; }

  void AddRun(std::string_view text) {
    const size_t index = source_.runs.size();
    source_.runs.push_back(text);
    // The character U+F0000 + index, in UTF-8.
    source_.text += '\xF3';
    source_.text += static_cast<char>(0xB0 | (index >> 12));
    source_.text += static_cast<char>(0x80 | ((index >> 6) & 0x3F));
    source_.text += static_cast<char>(0x80 | (index & 0x3F));
  }

  // Writes a character that may not go into a run and returns the position behind it. A character reference is copied
  // whole; a control character is written as a reference, because the parser would replace it.
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
  // False if the page itself uses the characters that stand for runs; it is then passed on without runs.
  bool mayHoldRuns_;
  // The written text ends in a character reference or a "<". Text behind a tag that is left out must not be joined to
  // it.
  bool isTextOpen_ = false;
  // Within a title, whose text goes up to its end tag.
  bool isTitleOpen_ = false;
  // From here on blanks may be kept.
  bool mayKeepBlanks_;
  // Within a choice (a select element) the parser ignores nearly every tag, and a group of options shows no text of its
  // own.
  bool isInChoice_ = false;
  // Within a form. Elements that are open at its end tag stay open, and with them the form's line.
  bool isInForm_ = false;
  bool hasAsideTable_ = false;
  // Only blanks and tags without effect have come since a tag that begins a line.
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
