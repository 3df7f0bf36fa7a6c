// SPDX-License-Identifier: GPL-3.0-or-later
// Goes from tag to tag through the source of a page, without a tree. Called by html_source.
#pragma once

#include <gumbo.h>

#include <QByteArrayView>
#include <array>
#include <vector>

// What a quick reader has to know of the elements, as bits.
namespace TagTrait {
inline constexpr quint16 kVoid = 1;
// The end tag is mostly left out, and the next element of the kind ends it: it does not nest by itself.
inline constexpr quint16 kEndsItself = 2;
// What it holds is text whatever it looks like.
inline constexpr quint16 kRawText = 4;
inline constexpr quint16 kInTable = 8;
// The end tag of something else does not reach beyond it.
inline constexpr quint16 kBarrier = 16;
inline constexpr quint16 kBlock = 32;
inline constexpr quint16 kKeepsBlanks = 64;
// Only styles the text within its line: bold, links and their like.
inline constexpr quint16 kTextStyle = 128;
// Wherever its start tag stands, it begins a line of its own.
inline constexpr quint16 kBeginsLine = 256;
// Nothing of it is ever seen, nor does it part what stands around it.
inline constexpr quint16 kUnseen = 512;
// No drawing holds it: its start tag ends the drawing that it stands in.
inline constexpr quint16 kEndsDrawing = 1024;
// Opened again in the next block where its end tag was left out.
inline constexpr quint16 kFormatting = 2048;
}  // namespace TagTrait

extern const std::array<quint16, GUMBO_TAG_LAST + 1> kTagTraits;

inline quint16 TraitsOf(GumboTag tag) {
  return kTagTraits[tag];
}

class TagScanner {
 public:
  struct Attribute {
    QByteArrayView name;
    QByteArrayView source;  // name and value
  };

  enum class Kind : quint8 { Start, End, Comment };

  // Positions in the source: the "<", one past the ">", and one past the raw text that a start tag begins (the tag's
  // end if it begins none).
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

  // False at the end of the source; a tag that the source's end cuts is none.
  bool Next(Tag* tag);
  // Where the page's text ends: ahead of a tag that the source's end cuts. Known once Next has answered false.
  qsizetype TextEnd() const { return textEnd_; }

 private:
  void SkipComment();
  bool ReadTag(qsizetype name, Tag* tag);
  // One past the value at a position, or the source's size.
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
