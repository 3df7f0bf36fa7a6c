// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the first part of a body whose parts replace each other (multipart/x-mixed-replace), while its bytes come in: a
// cam sends such a body without end. url_transfer makes one for such an answer.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

// The place of the first part. It is looked for in bytes that were not looked at before, so the work is linear.
class FirstPart {
 public:
  // Looks at the bytes that have come behind those of the last call; true once the part is whole.
  bool IsWhole(QByteArrayView body);
  // The part itself, when it is whole.
  QByteArray In(QByteArrayView body) const;
  // The part that the end of the connection has ended; empty where it had not begun, or lacks bytes that it announced.
  QByteArray AtEnd(QByteArrayView body);

 private:
  bool TakeLine(QByteArrayView body);
  void ReadLine(QByteArrayView line);

  enum class At { Before, Head, Data, Whole } at_ = At::Before;
  QByteArray delimiter_;    // the line between two parts
  qsizetype begin_ = 0;     // of the line that is looked at; later of the part
  qsizetype searched_ = 0;  // bytes that hold no end of that line, or of the part
  qsizetype length_ = -1;   // of the part as announced; -1: its end is the next delimiter
  qsizetype end_ = 0;       // of the part, when it is whole
};
