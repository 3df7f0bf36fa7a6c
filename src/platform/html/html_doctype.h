// SPDX-License-Identifier: GPL-3.0-or-later
// A page's document type: whether the page is shown as old browsers did, where a paragraph may hold a table. The
// parser's own answer is wrong for most old document types. Called by html_source.
#pragma once

#include <QByteArrayView>

struct DocumentType {
  // One past its ">"; 0 if the page has none.
  qsizetype end = 0;
  bool isQuirky = true;
};

// Only blanks and comments may stand before it.
DocumentType ReadDocumentType(QByteArrayView html);
