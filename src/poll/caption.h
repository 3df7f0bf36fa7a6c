// SPDX-License-Identifier: GPL-3.0-or-later
// Reads who sent a picture, in which mode and when, from the text at the picture's end. The intake reads a fresh
// download, the walk of a page a file on the disk; the two readers are close but not equal, and both manners stay.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

#include "station/date_text.h"
#include "station/picture_date.h"

// What the text at a picture's end tells.
struct Caption {
  QString ModeTag;                  // empty: none
  std::optional<QString> Caller;    // call as CleanCall leaves it; nothing: the tail names no caller
  std::optional<QString> ModeText;  // tag, blank and the text from "snr" on
  std::optional<QString> SentTime;  // month/day/year hh:mm, UTC as sent; empty: a fresh download has no readable time
  std::optional<QString> FromCall;  // call for lblFrom, zeros as the glyph; nothing: lblFrom stays
  bool TimeFound = false;           // the tail had a ":" and its fields were read
};

// The tail of a fresh download: its last 60 characters, or what follows the last "***" among them.
QString TailOfDownload(const QByteArray& body);
// The tail of a stored file: the text behind the last run of three NULs. Without such a run found is false, and tail
// holds all but the first three bytes.
struct FileTail {
  QString tail;
  bool found = false;
};
FileTail TailOfFile(const QByteArray& last100);

// zeroGlyph: the character that the user sees for a zero in a call.
Caption ParseTailFromDownload(const QString& tail, QChar zeroGlyph);
// Reads nothing but the mode tag where the tail was not found.
Caption ParseTailFromFile(const FileTail& tail, QChar zeroGlyph);
