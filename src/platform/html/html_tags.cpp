// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_tags.h"

#include <algorithm>
#include <initializer_list>

namespace {

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

constexpr auto MakeTraits() {
  using namespace TagTrait;
  std::array<quint16, GUMBO_TAG_LAST + 1> traits = {};
  const auto add = [&traits](quint16 trait, std::initializer_list<GumboTag> tags) {
    for (const GumboTag tag : tags) traits[tag] |= trait;
  };
  add(kVoid, {GUMBO_TAG_AREA, GUMBO_TAG_BASE, GUMBO_TAG_BASEFONT, GUMBO_TAG_BGSOUND, GUMBO_TAG_BR, GUMBO_TAG_COL,
              GUMBO_TAG_EMBED, GUMBO_TAG_FRAME, GUMBO_TAG_HR, GUMBO_TAG_IMAGE, GUMBO_TAG_IMG, GUMBO_TAG_INPUT,
              GUMBO_TAG_KEYGEN, GUMBO_TAG_LINK, GUMBO_TAG_META, GUMBO_TAG_PARAM, GUMBO_TAG_SOURCE, GUMBO_TAG_TRACK,
              GUMBO_TAG_WBR});
  add(kEndsItself | kBlock,
      {GUMBO_TAG_P, GUMBO_TAG_LI, GUMBO_TAG_DD, GUMBO_TAG_DT, GUMBO_TAG_OPTION, GUMBO_TAG_OPTGROUP, GUMBO_TAG_COLGROUP,
       GUMBO_TAG_HTML, GUMBO_TAG_HEAD, GUMBO_TAG_BODY, GUMBO_TAG_FRAMESET});
  add(kRawText, {GUMBO_TAG_SCRIPT, GUMBO_TAG_STYLE, GUMBO_TAG_TEXTAREA, GUMBO_TAG_TITLE, GUMBO_TAG_XMP,
                 GUMBO_TAG_IFRAME, GUMBO_TAG_NOEMBED, GUMBO_TAG_NOFRAMES, GUMBO_TAG_NOSCRIPT});
  add(kInTable | kBarrier,
      {GUMBO_TAG_TD, GUMBO_TAG_TH, GUMBO_TAG_TR, GUMBO_TAG_TBODY, GUMBO_TAG_THEAD, GUMBO_TAG_TFOOT, GUMBO_TAG_CAPTION});
  add(kUnseen, {GUMBO_TAG_HTML, GUMBO_TAG_HEAD, GUMBO_TAG_BODY, GUMBO_TAG_META, GUMBO_TAG_LINK, GUMBO_TAG_BASE,
                GUMBO_TAG_TITLE});
  add(kBarrier, {GUMBO_TAG_TABLE, GUMBO_TAG_OBJECT, GUMBO_TAG_APPLET, GUMBO_TAG_MARQUEE, GUMBO_TAG_TEMPLATE});
  add(kBlock, {GUMBO_TAG_ADDRESS, GUMBO_TAG_ARTICLE,  GUMBO_TAG_ASIDE,   GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_BR,
               GUMBO_TAG_CAPTION, GUMBO_TAG_CENTER,   GUMBO_TAG_DETAILS, GUMBO_TAG_DIR,        GUMBO_TAG_DIV,
               GUMBO_TAG_DL,      GUMBO_TAG_FIELDSET, GUMBO_TAG_FOOTER,  GUMBO_TAG_FORM,       GUMBO_TAG_H1,
               GUMBO_TAG_H2,      GUMBO_TAG_H3,       GUMBO_TAG_H4,      GUMBO_TAG_H5,         GUMBO_TAG_H6,
               GUMBO_TAG_HEADER,  GUMBO_TAG_HR,       GUMBO_TAG_MAIN,    GUMBO_TAG_MENU,       GUMBO_TAG_NAV,
               GUMBO_TAG_OL,      GUMBO_TAG_PRE,      GUMBO_TAG_SECTION, GUMBO_TAG_SUMMARY,    GUMBO_TAG_TABLE,
               GUMBO_TAG_TBODY,   GUMBO_TAG_TFOOT,    GUMBO_TAG_THEAD,   GUMBO_TAG_TR,         GUMBO_TAG_UL});
  add(kBeginsLine,
      {GUMBO_TAG_ADDRESS, GUMBO_TAG_ARTICLE, GUMBO_TAG_ASIDE, GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_BR,   GUMBO_TAG_CENTER,
       GUMBO_TAG_DD,      GUMBO_TAG_DIR,     GUMBO_TAG_DIV,   GUMBO_TAG_DL,         GUMBO_TAG_DT,   GUMBO_TAG_FIELDSET,
       GUMBO_TAG_FOOTER,  GUMBO_TAG_H1,      GUMBO_TAG_H2,    GUMBO_TAG_H3,         GUMBO_TAG_H4,   GUMBO_TAG_H5,
       GUMBO_TAG_H6,      GUMBO_TAG_HEADER,  GUMBO_TAG_HR,    GUMBO_TAG_LI,         GUMBO_TAG_MAIN, GUMBO_TAG_MENU,
       GUMBO_TAG_NAV,     GUMBO_TAG_OL,      GUMBO_TAG_P,     GUMBO_TAG_SECTION,    GUMBO_TAG_UL});
  add(kEndsDrawing,
      {GUMBO_TAG_B,       GUMBO_TAG_BIG,  GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_BODY,  GUMBO_TAG_BR,   GUMBO_TAG_CENTER,
       GUMBO_TAG_CODE,    GUMBO_TAG_DD,   GUMBO_TAG_DIV,        GUMBO_TAG_DL,    GUMBO_TAG_DT,   GUMBO_TAG_EM,
       GUMBO_TAG_EMBED,   GUMBO_TAG_H1,   GUMBO_TAG_H2,         GUMBO_TAG_H3,    GUMBO_TAG_H4,   GUMBO_TAG_H5,
       GUMBO_TAG_H6,      GUMBO_TAG_HEAD, GUMBO_TAG_HR,         GUMBO_TAG_I,     GUMBO_TAG_IMG,  GUMBO_TAG_LI,
       GUMBO_TAG_LISTING, GUMBO_TAG_MENU, GUMBO_TAG_META,       GUMBO_TAG_NOBR,  GUMBO_TAG_OL,   GUMBO_TAG_P,
       GUMBO_TAG_PRE,     GUMBO_TAG_RUBY, GUMBO_TAG_S,          GUMBO_TAG_SMALL, GUMBO_TAG_SPAN, GUMBO_TAG_STRONG,
       GUMBO_TAG_STRIKE,  GUMBO_TAG_SUB,  GUMBO_TAG_SUP,        GUMBO_TAG_TABLE, GUMBO_TAG_TT,   GUMBO_TAG_U,
       GUMBO_TAG_UL,      GUMBO_TAG_VAR});
  add(kKeepsBlanks, {GUMBO_TAG_PRE, GUMBO_TAG_XMP, GUMBO_TAG_LISTING, GUMBO_TAG_PLAINTEXT});
  add(kTextStyle,
      {GUMBO_TAG_A,    GUMBO_TAG_ABBR, GUMBO_TAG_ACRONYM, GUMBO_TAG_B,     GUMBO_TAG_BIG,    GUMBO_TAG_BLINK,
       GUMBO_TAG_CITE, GUMBO_TAG_CODE, GUMBO_TAG_DEL,     GUMBO_TAG_DFN,   GUMBO_TAG_EM,     GUMBO_TAG_FONT,
       GUMBO_TAG_I,    GUMBO_TAG_INS,  GUMBO_TAG_KBD,     GUMBO_TAG_LABEL, GUMBO_TAG_MARK,   GUMBO_TAG_NOBR,
       GUMBO_TAG_S,    GUMBO_TAG_SAMP, GUMBO_TAG_SMALL,   GUMBO_TAG_SPAN,  GUMBO_TAG_STRIKE, GUMBO_TAG_STRONG,
       GUMBO_TAG_SUB,  GUMBO_TAG_SUP,  GUMBO_TAG_TT,      GUMBO_TAG_U,     GUMBO_TAG_VAR});
  add(kFormatting,
      {GUMBO_TAG_A, GUMBO_TAG_B, GUMBO_TAG_BIG, GUMBO_TAG_CODE, GUMBO_TAG_EM, GUMBO_TAG_FONT, GUMBO_TAG_I,
       GUMBO_TAG_NOBR, GUMBO_TAG_S, GUMBO_TAG_SMALL, GUMBO_TAG_STRIKE, GUMBO_TAG_STRONG, GUMBO_TAG_TT, GUMBO_TAG_U});
  return traits;
}

// Attributes of one tag; further ones are ignored.
constexpr size_t kMostAttributes = 1000;

bool IsTagOf(QByteArrayView text, QByteArrayView beginning) {
  if (text.size() <= beginning.size()) return false;
  const char next = text[beginning.size()];
  return (IsSpace(next) || next == '>' || next == '/') &&
         qstrnicmp(text.data(), beginning.data(), static_cast<size_t>(beginning.size())) == 0;
}

}  // namespace

constinit const std::array<quint16, GUMBO_TAG_LAST + 1> kTagTraits = MakeTraits();

bool TagScanner::Next(Tag* tag) {
  while (true) {
    at_ = html_.indexOf('<', at_);
    if (at_ < 0 || at_ + 1 >= html_.size()) {
      at_ = html_.size();
      return false;
    }
    const bool isEnd = html_[at_ + 1] == '/';
    const qsizetype name = at_ + (isEnd ? 2 : 1);
    tag->begin = at_;
    tag->kind = isEnd ? Kind::End : Kind::Start;
    if (name < html_.size() && IsLetter(html_[name])) return ReadTag(name, tag);
    const bool isText = name >= html_.size() || (!isEnd && html_[at_ + 1] != '!' && html_[at_ + 1] != '?');
    if (isText) {
      ++at_;
      continue;
    }
    SkipComment();
    tag->kind = Kind::Comment;
    tag->isInDrawing = isInDrawing_;
    tag->end = tag->rawEnd = at_;
    return true;
  }
}

// Skips a comment, or what a browser takes for one.
void TagScanner::SkipComment() {
  const QByteArrayView rest = html_.sliced(at_);
  if (rest.startsWith("<!-->")) {
    at_ += 5;
  } else if (rest.startsWith("<!--->")) {
    at_ += 6;
  } else if (rest.startsWith("<!--")) {
    at_ = PastComment(at_ + 4);
  } else if (isInDrawing_ && rest.startsWith("<![CDATA[")) {
    at_ = Past("]]>", at_ + 9);
  } else {
    at_ = Past(">", at_ + 2);
  }
}

bool TagScanner::ReadTag(qsizetype name, Tag* tag) {
  const auto size = html_.size();
  qsizetype at = name;
  while (at < size && !IsSpace(html_[at]) && html_[at] != '>' && html_[at] != '/') ++at;
  tag->writtenName = html_.sliced(name, at - name);
  tag->attributes.clear();
  tag->closesItself = false;
  while (at < size && html_[at] != '>') {
    tag->closesItself = html_[at] == '/';
    if (tag->closesItself || IsSpace(html_[at])) {
      ++at;
      continue;
    }
    const qsizetype begin = at++;
    while (at < size && !IsSpace(html_[at]) && html_[at] != '>' && html_[at] != '/' && html_[at] != '=') ++at;
    const qsizetype nameEnd = at;
    while (at < size && IsSpace(html_[at])) ++at;
    const bool hasValue = at < size && html_[at] == '=';
    at = hasValue ? EndOfValue(at + 1) : nameEnd;
    if (tag->attributes.size() < kMostAttributes)
      tag->attributes.push_back({html_.sliced(begin, nameEnd - begin), html_.sliced(begin, at - begin)});
  }
  if (at >= size) {
    textEnd_ = tag->begin;
    at_ = size;
    return false;
  }
  at_ = tag->end = tag->rawEnd = at + 1;
  const QByteArrayView text = tag->writtenName;
  tag->name = text.size() > 20 ? GUMBO_TAG_UNKNOWN : gumbo_tagn_enum(text.data(), static_cast<unsigned>(text.size()));
  FollowDrawings(*tag);
  tag->isInDrawing = isInDrawing_;
  if (tag->kind == Kind::Start && !isInDrawing_ && (TraitsOf(tag->name) & TagTrait::kRawText) != 0)
    at_ = tag->rawEnd = tag->name == GUMBO_TAG_SCRIPT ? EndOfScript(tag->end) : EndOfRawText(tag->end, text);
  if (tag->kind == Kind::Start && tag->name == GUMBO_TAG_PLAINTEXT) at_ = tag->rawEnd = size;
  return true;
}

qsizetype TagScanner::EndOfValue(qsizetype at) const {
  const auto size = html_.size();
  while (at < size && IsSpace(html_[at])) ++at;
  if (at >= size) return size;
  if (html_[at] == '"' || html_[at] == '\'') {
    const qsizetype quote = html_.indexOf(html_[at], at + 1);
    return quote < 0 ? size : quote + 1;
  }
  while (at < size && !IsSpace(html_[at]) && html_[at] != '>') ++at;
  return at;
}

// A drawing ends with its end tag, or with a tag that cannot stand in one.
void TagScanner::FollowDrawings(const Tag& tag) {
  const bool isFrame = tag.name == GUMBO_TAG_SVG || tag.name == GUMBO_TAG_MATH;
  if (isFrame) {
    isInDrawing_ = tag.kind == Kind::Start && !tag.closesItself;
  } else if (tag.kind == Kind::Start && (TraitsOf(tag.name) & TagTrait::kEndsDrawing) != 0) {
    isInDrawing_ = false;
  }
}

qsizetype TagScanner::EndOfRawText(qsizetype from, QByteArrayView name) const {
  const QByteArrayView kEnd("</");
  for (qsizetype at = html_.indexOf(kEnd, from); at >= 0; at = html_.indexOf(kEnd, at + 2))
    if (IsTagOf(html_.sliced(at + 2), name)) return at;
  return html_.size();
}

// Old pages put a script into an HTML comment. Within that, an end tag ends the script only if no start tag of a script
// came before it.
qsizetype TagScanner::EndOfScript(qsizetype from) const {
  bool isInComment = false;
  bool isInner = false;
  for (qsizetype at = from; at < html_.size(); ++at) {
    const char c = html_[at];
    if (c != '<' && c != '-') continue;
    const QByteArrayView rest = html_.sliced(at);
    if (rest.startsWith("-->")) {
      isInComment = isInner = false;
    } else if (rest.startsWith("<!--")) {
      isInComment = true;
      // The same dashes may also end the comment.
      at += 1;
    } else if (isInComment && !isInner && IsTagOf(rest, "<script")) {
      isInner = true;
    } else if (IsTagOf(rest, "</script")) {
      if (!isInner) return at;
      isInner = false;
    }
  }
  return html_.size();
}

// One past the "-->" or "--!>" that ends a comment; both are looked for in one go, so that a page of nothing but
// comments is not searched to its end for each of them.
qsizetype TagScanner::PastComment(qsizetype from) const {
  const QByteArrayView kDashes("--");
  for (qsizetype at = html_.indexOf(kDashes, from); at >= 0; at = html_.indexOf(kDashes, at + 1)) {
    const QByteArrayView rest = html_.sliced(at + kDashes.size());
    if (rest.startsWith('>')) return at + 3;
    if (rest.startsWith("!>")) return at + 4;
  }
  return html_.size();
}

qsizetype TagScanner::Past(QByteArrayView text, qsizetype from) const {
  const qsizetype found = from < html_.size() ? html_.indexOf(text, from) : -1;
  return found < 0 ? html_.size() : found + text.size();
}
