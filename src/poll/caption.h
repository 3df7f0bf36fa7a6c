// SPDX-License-Identifier: GPL-3.0-or-later
// Reads who sent a picture, in which mode and when, from the text at the picture's end. The intake reads a fresh
// download, the walk of a page a file on the disk; the two readers are close but not equal, and both manners stay.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

#include "station/date_text.h"
#include "station/picture_date.h"

struct Caption {
  QString ModeTag;                  // empty: none
  std::optional<QString> Caller;    // normalised call; nothing where the tail did not tell it
  std::optional<QString> ModeText;  // tag, blank and the text from "snr" on
  std::optional<QString> SentTime;  // month/day/year hh:mm, UTC as sent; empty: a new picture's is no date
  std::optional<QString> FromCall;  // call for lblFrom, zeros as the glyph; nothing: lblFrom stays
  bool TimeFound = false;           // the tail had a ":" and its fields were read
};

// The tail of a fresh download: the last 60 characters, of these what stands behind the last "***".
QString TailOfDownload(const QByteArray& body);
// The tail of a stored file, from its last 100 bytes: behind the last run of three NULs, else found is false and the
// tail holds what was walked over.
struct FileTail {
  QString tail;
  bool found = false;
};
FileTail TailOfFile(const QByteArray& last100);

Caption ParseTailFromDownload(const QString& tail, QChar zeroGlyph);
Caption ParseTailFromFile(const FileTail& tail, QChar zeroGlyph);
