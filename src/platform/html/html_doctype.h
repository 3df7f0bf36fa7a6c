// SPDX-License-Identifier: GPL-3.0-or-later
// A page's document type: whether the page is shown as old browsers did, where a paragraph may hold a table. The
// parser's own answer is wrong for most old document types. Called by html_source.
#pragma once

#include <QByteArrayView>

// The document type of a page, or that it has none.
struct DocumentType {
  // Position behind its ">"; 0 if the page has none.
  qsizetype end = 0;
  bool isQuirky = true;
};

// Reads the document type at the beginning of a page; only blanks and comments may come before it.
DocumentType ReadDocumentType(QByteArrayView html);
