// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html_source.h"

#include <QLatin1StringView>
#include <algorithm>
#include <vector>

#include "platform/html_doctype.h"

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kDeepest = 500;

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool IsAny(GumboTag tag, std::initializer_list<GumboTag> tags) {
  return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

bool HoldsRawText(GumboTag tag) {
  return IsAny(tag, {GUMBO_TAG_SCRIPT, GUMBO_TAG_STYLE, GUMBO_TAG_TEXTAREA, GUMBO_TAG_TITLE, GUMBO_TAG_XMP,
                     GUMBO_TAG_IFRAME, GUMBO_TAG_NOEMBED, GUMBO_TAG_NOFRAMES, GUMBO_TAG_NOSCRIPT});
}

bool IsVoid(GumboTag tag) {
  return IsAny(tag, {GUMBO_TAG_AREA, GUMBO_TAG_BASE, GUMBO_TAG_BASEFONT, GUMBO_TAG_BGSOUND, GUMBO_TAG_BR, GUMBO_TAG_COL,
                     GUMBO_TAG_EMBED, GUMBO_TAG_FRAME, GUMBO_TAG_HR, GUMBO_TAG_IMAGE, GUMBO_TAG_IMG, GUMBO_TAG_INPUT,
                     GUMBO_TAG_KEYGEN, GUMBO_TAG_LINK, GUMBO_TAG_META, GUMBO_TAG_PARAM, GUMBO_TAG_SOURCE,
                     GUMBO_TAG_TRACK, GUMBO_TAG_WBR});
}

// Their end tags are mostly left out, and the next one of the kind ends them: they do not nest by themselves.
bool EndsItself(GumboTag tag) {
  return IsAny(tag, {GUMBO_TAG_P, GUMBO_TAG_LI, GUMBO_TAG_DD, GUMBO_TAG_DT, GUMBO_TAG_OPTION, GUMBO_TAG_OPTGROUP,
                     GUMBO_TAG_COLGROUP, GUMBO_TAG_HTML, GUMBO_TAG_HEAD, GUMBO_TAG_BODY, GUMBO_TAG_FRAMESET});
}

bool IsInTable(GumboTag tag) {
  return IsAny(tag, {GUMBO_TAG_TD, GUMBO_TAG_TH, GUMBO_TAG_TR, GUMBO_TAG_TBODY, GUMBO_TAG_THEAD, GUMBO_TAG_TFOOT,
                     GUMBO_TAG_CAPTION});
}

// An end tag of something else does not reach beyond these.
bool IsBarrier(GumboTag tag) {
  return IsInTable(tag) ||
         IsAny(tag, {GUMBO_TAG_TABLE, GUMBO_TAG_OBJECT, GUMBO_TAG_APPLET, GUMBO_TAG_MARQUEE, GUMBO_TAG_TEMPLATE});
}

bool IsBlock(GumboTag tag) {
  return EndsItself(tag) || tag == GUMBO_TAG_TABLE || (IsInTable(tag) && tag != GUMBO_TAG_TD && tag != GUMBO_TAG_TH) ||
         IsAny(tag, {GUMBO_TAG_ADDRESS, GUMBO_TAG_ARTICLE, GUMBO_TAG_ASIDE,   GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_BR,
                     GUMBO_TAG_CENTER,  GUMBO_TAG_DIR,     GUMBO_TAG_DIV,     GUMBO_TAG_DL,         GUMBO_TAG_FIELDSET,
                     GUMBO_TAG_FOOTER,  GUMBO_TAG_FORM,    GUMBO_TAG_H1,      GUMBO_TAG_H2,         GUMBO_TAG_H3,
                     GUMBO_TAG_H4,      GUMBO_TAG_H5,      GUMBO_TAG_H6,      GUMBO_TAG_HEADER,     GUMBO_TAG_HR,
                     GUMBO_TAG_MAIN,    GUMBO_TAG_MENU,    GUMBO_TAG_NAV,     GUMBO_TAG_OL,         GUMBO_TAG_PRE,
                     GUMBO_TAG_SECTION, GUMBO_TAG_SUMMARY, GUMBO_TAG_DETAILS, GUMBO_TAG_UL});
}

// The elements that are open, as far as the depth is concerned.
class OpenElements {
 public:
  size_t Depth() const { return open_.size(); }

  void Start(GumboTag tag) {
    if (IsInTable(tag)) {
      const qsizetype table = LastOf(GUMBO_TAG_TABLE);
      // A cell stands in its row and section, a row in its section: three levels under the table at most.
      if (table >= 0) open_.resize(std::min(open_.size(), static_cast<size_t>(table) + LevelsAbove(tag)));
    }
    open_.push_back(tag);
  }

  void End(GumboTag tag) {
    for (size_t i = open_.size(); i > 0; --i) {
      if (open_[i - 1] == tag) {
        open_.resize(i - 1);
        return;
      }
      const bool stops =
          IsInTable(tag) || tag == GUMBO_TAG_TABLE ? open_[i - 1] == GUMBO_TAG_TABLE : IsBarrier(open_[i - 1]);
      if (stops) return;
    }
  }

 private:
  static size_t LevelsAbove(GumboTag tag) {
    if (tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH) return 3;
    return tag == GUMBO_TAG_TR ? 2 : 1;
  }

  qsizetype LastOf(GumboTag tag) const {
    for (size_t i = open_.size(); i > 0; --i)
      if (open_[i - 1] == tag) return static_cast<qsizetype>(i) - 1;
    return -1;
  }

  std::vector<GumboTag> open_;
};

// True at a control character that the parser does not let through. The bytes that Windows-1252 leaves open are among
// them (0x81, 0x8D, 0x8F, 0x90, 0x9D): they stand in every page that was UTF-8 and is read as Windows-1252.
bool IsControl(QByteArrayView text, qsizetype at) {
  const char c = text[at];
  if (c == '\xC2') {
    const QByteArrayView kOpen("\x81\x8D\x8F\x90\x9D");
    return at + 1 < text.size() && kOpen.contains(text[at + 1]);
  }
  return (c > 0 && c < ' ' && !IsSpace(c)) || c == '\x7F';
}

// Controls as character references.
void AppendWithControls(QByteArrayView text, QByteArray* source) {
  qsizetype copied = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (!IsControl(text, at)) continue;
    source->append(text.sliced(copied, at - copied));
    const bool isLong = text[at] == '\xC2';
    source->append("&#" + QByteArray::number(static_cast<uchar>(text[at + (isLong ? 1 : 0)])) + ';');
    at += isLong ? 1 : 0;
    copied = at + 1;
  }
  source->append(text.sliced(copied));
}

}  // namespace

bool TagScanner::Next(Tag* tag) {
  while (true) {
    at_ = html_.indexOf('<', at_);
    if (at_ < 0 || at_ + 1 >= html_.size()) return false;
    const bool isEnd = html_[at_ + 1] == '/';
    const qsizetype name = at_ + (isEnd ? 2 : 1);
    if (name >= html_.size()) return false;
    if (!IsLetter(html_[name])) {
      at_ = EndOfOther(at_);
      continue;
    }
    qsizetype nameEnd = name;
    while (nameEnd < html_.size() && !IsSpace(html_[nameEnd]) && html_[nameEnd] != '>' && html_[nameEnd] != '/')
      ++nameEnd;
    const qsizetype end = EndOfTag(nameEnd);
    if (end < 0) return false;
    const QByteArrayView text = html_.sliced(name, nameEnd - name);
    tag->name = text.size() > 20 ? GUMBO_TAG_UNKNOWN : gumbo_tagn_enum(text.data(), static_cast<unsigned>(text.size()));
    tag->isEnd = isEnd;
    tag->closesItself = html_[end - 2] == '/';
    tag->begin = at_;
    tag->end = end;
    at_ = end;
    if (!isEnd && HoldsRawText(tag->name)) at_ = EndOfRawText(end, text);
    if (!isEnd && tag->name == GUMBO_TAG_PLAINTEXT) at_ = html_.size();
    return true;
  }
}

qsizetype TagScanner::EndOfOther(qsizetype at) const {
  const QByteArrayView rest = html_.sliced(at);
  if (rest.startsWith("<!-->")) return at + 5;
  if (rest.startsWith("<!--->")) return at + 6;
  if (rest.startsWith("<!--")) {
    const qsizetype end = html_.indexOf(QByteArrayView("-->"), at + 4);
    return end < 0 ? html_.size() : end + 3;
  }
  if (rest.startsWith("<!") || rest.startsWith("<?") || rest.startsWith("</")) return Past(">", at + 2);
  return at + 1;
}

// A ">" within a quoted value does not end the tag; a quote counts only behind "=".
qsizetype TagScanner::EndOfTag(qsizetype at) const {
  while (at < html_.size() && html_[at] != '>') {
    if (html_[at++] != '=') continue;
    while (at < html_.size() && IsSpace(html_[at])) ++at;
    if (at >= html_.size() || (html_[at] != '"' && html_[at] != '\'')) continue;
    const qsizetype quote = html_.indexOf(html_[at], at + 1);
    if (quote < 0) return -1;
    at = quote + 1;
  }
  return at < html_.size() ? at + 1 : -1;
}

qsizetype TagScanner::EndOfRawText(qsizetype from, QByteArrayView name) const {
  for (qsizetype at = html_.indexOf(QByteArrayView("</"), from); at >= 0;
       at = html_.indexOf(QByteArrayView("</"), at + 2)) {
    const QByteArrayView rest = html_.sliced(at + 2);
    if (rest.size() > name.size() && qstrnicmp(rest.data(), name.data(), static_cast<size_t>(name.size())) == 0 &&
        !IsLetter(rest[name.size()]))
      return at;
  }
  return html_.size();
}

qsizetype TagScanner::Past(QByteArrayView text, qsizetype from) const {
  const qsizetype found = from < html_.size() ? html_.indexOf(text, from) : -1;
  return found < 0 ? html_.size() : found + text.size();
}

QByteArray ParserSource(const QByteArray& html) {
  const DocumentType type = ReadDocumentType(html);
  QByteArray source;
  source.reserve(html.size() + 32);
  if (!type.isQuirky) source.append("<!DOCTYPE html>");
  // A second body tag keeps a later frameset from taking the body's place.
  source.append("<body><body>");
  qsizetype copied = type.end;
  TagScanner scanner(html);
  TagScanner::Tag tag;
  // A browser takes what stands in a noscript for text that is not shown; the parser would see elements in it.
  const bool hasAny = QLatin1StringView(html).contains("<noscript"_L1, Qt::CaseInsensitive);
  while (hasAny && scanner.Next(&tag)) {
    if (tag.name != GUMBO_TAG_NOSCRIPT || tag.begin < copied) continue;
    AppendWithControls(QByteArrayView(html).sliced(copied, tag.begin - copied), &source);
    copied = tag.end;
    if (tag.isEnd) continue;
    copied = html.size();
    if (scanner.Next(&tag)) copied = tag.end;
  }
  AppendWithControls(QByteArrayView(html).sliced(copied), &source);
  return source;
}

QByteArray FlatSource(const QByteArray& html) {
  QByteArray flat("<body>");
  flat.reserve(html.size());
  TagScanner scanner(html);
  TagScanner::Tag tag;
  qsizetype copied = 0;
  bool isBroken = false;
  while (scanner.Next(&tag)) {
    const QByteArrayView text = QByteArrayView(html).sliced(copied, tag.begin - copied);
    if (!text.trimmed().isEmpty()) isBroken = false;
    flat.append(text);
    copied = tag.end;
    if (!tag.isEnd && HoldsRawText(tag.name)) copied = scanner.Next(&tag) ? tag.end : html.size();
    if (IsBlock(tag.name) && !isBroken) {
      flat.append("<br>");
      isBroken = true;
    } else {
      flat.append(' ');
    }
  }
  flat.append(QByteArrayView(html).sliced(copied));
  return flat;
}

bool NestsTooDeep(QByteArrayView html) {
  OpenElements open;
  TagScanner scanner(html);
  TagScanner::Tag tag;
  while (scanner.Next(&tag)) {
    const bool isOfItsOwn = tag.closesItself && tag.name == GUMBO_TAG_UNKNOWN;
    if (IsVoid(tag.name) || EndsItself(tag.name) || HoldsRawText(tag.name) || isOfItsOwn) continue;
    if (tag.isEnd) {
      open.End(tag.name);
    } else {
      open.Start(tag.name);
    }
    if (open.Depth() > kDeepest) return true;
  }
  return false;
}
