// SPDX-License-Identifier: GPL-3.0-or-later
// An HTML page made ready for the parser. The parser takes time with the square of the nesting and knows pages only as
// a browser without scripts sees them; what would hurt is taken out of the source before. Called by html_tree.
#pragma once

#include <gumbo.h>

#include <QByteArray>
#include <QByteArrayView>

// The page as the body of a document of its own, in the mode that its document type asks for, `noscript` elements taken
// out.
QByteArray ParserSource(const QByteArray& html);

// The tags of a page without its structure: a line break for a run of block tags, nothing for the others, scripts,
// styles and comments gone. What is left of a page that the parser cannot take in reasonable time.
QByteArray FlatSource(const QByteArray& html);

// True if elements are nested more than 500 deep, by a quick count that follows implied end tags roughly.
bool NestsTooDeep(QByteArrayView html);

// Goes from tag to tag through a source, over comments and over the text of scripts, styles and their like.
class TagScanner {
 public:
  explicit TagScanner(QByteArrayView html) : html_(html) {}

  // Positions in the source: the tag's "<" and one past its ">".
  struct Tag {
    GumboTag name = GUMBO_TAG_UNKNOWN;
    bool isEnd = false;
    bool closesItself = false;
    qsizetype begin = 0;
    qsizetype end = 0;
  };

  // False at the end of the source; a tag that the source's end cuts is none.
  bool Next(Tag* tag);

 private:
  // One past the markup that begins with the "<" at a position, or -1 if a tag begins there.
  qsizetype EndOfOther(qsizetype at) const;
  qsizetype EndOfTag(qsizetype at) const;
  qsizetype EndOfRawText(qsizetype from, QByteArrayView name) const;
  qsizetype Past(QByteArrayView text, qsizetype from) const;

  QByteArrayView html_;
  qsizetype at_ = 0;
};
