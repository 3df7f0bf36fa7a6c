// SPDX-License-Identifier: GPL-3.0-or-later
// Goes from tag to tag through the source of a page, without a tree. Called by html_source.
#pragma once

#include <gumbo.h>

#include <QByteArrayView>
#include <array>
#include <vector>

// What html_source and html_depth have to know about elements, as bits.
namespace TagTrait {
// It has no content and no end tag.
inline constexpr quint16 kVoid = 1;
// The end tag is mostly left out, and the next element of the kind ends it: it does not nest by itself.
inline constexpr quint16 kEndsItself = 2;
// Its content is text, even if that looks like tags.
inline constexpr quint16 kRawText = 4;
// A part of a table: section, row, cell or caption.
inline constexpr quint16 kInTable = 8;
// An end tag within it does not close an element outside of it.
inline constexpr quint16 kBarrier = 16;
// A block, or whatever else parts lines.
inline constexpr quint16 kBlock = 32;
// It keeps blanks and line ends, as pre does.
inline constexpr quint16 kKeepsBlanks = 64;
// Only styles the text within its line: bold, links and their like.
inline constexpr quint16 kTextStyle = 128;
// Its start tag begins a line, wherever it is.
inline constexpr quint16 kBeginsLine = 256;
// It is never shown, and does not part the text around it.
inline constexpr quint16 kUnseen = 512;
// It cannot be in a drawing: its start tag ends the drawing around it.
inline constexpr quint16 kEndsDrawing = 1024;
// The parser reopens it in the next block if its end tag was left out.
inline constexpr quint16 kFormatting = 2048;
}  // namespace TagTrait

// The bits of each element.
extern const std::array<quint16, GUMBO_TAG_LAST + 1> kTagTraits;

inline quint16 TraitsOf(GumboTag tag) {
  return kTagTraits[tag];
}

// Reads the tags of one page one after the other.
class TagScanner {
 public:
  // An attribute as it is written.
  struct Attribute {
    QByteArrayView name;
    QByteArrayView source;  // name and value
  };

  // What kind of tag it is; a comment counts as one.
  enum class Kind : quint8 { Start, End, Comment };

  // One tag. Positions in the source: the "<", the one behind the ">", and the one behind the raw text that a start tag
  // begins (the tag's end if it begins none).
  struct Tag {
    Kind kind = Kind::Start;
    GumboTag name = GUMBO_TAG_UNKNOWN;
    bool closesItself = false;
    bool isInDrawing = false;
    qsizetype begin = 0;
    qsizetype end = 0;
    qsizetype rawEnd = 0;
    QByteArrayView writtenName;
    std::vector<Attribute> attributes;
  };

  explicit TagScanner(QByteArrayView html) : html_(html), textEnd_(html.size()) {}

  // Reads the next tag. False at the end of the source; a tag that is cut off there does not count.
  bool Next(Tag* tag);
  // Where the page's text ends: in front of a tag that is cut off. Known once Next has returned false.
  qsizetype TextEnd() const { return textEnd_; }

 private:
  void SkipComment();
  bool ReadTag(qsizetype name, Tag* tag);
  // Position behind the value at a position, or the source's size.
  qsizetype EndOfValue(qsizetype at) const;
  void FollowDrawings(const Tag& tag);
  qsizetype EndOfRawText(qsizetype from, QByteArrayView name) const;
  qsizetype EndOfScript(qsizetype from) const;
  qsizetype PastComment(qsizetype from) const;
  qsizetype Past(QByteArrayView text, qsizetype from) const;

  QByteArrayView html_;
  qsizetype at_ = 0;
  qsizetype textEnd_;
  // Within a drawing or a formula other rules hold: no raw text, and tags may close themselves.
  bool isInDrawing_ = false;
};
