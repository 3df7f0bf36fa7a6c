// SPDX-License-Identifier: GPL-3.0-or-later
// The record of the local call database as it lies in the file: nine fixed-width texts, 167 bytes. The database reads
// and writes it; the windows fill and show its fields.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <array>
#include <type_traits>

#include "platform/text/ansi_text.h"

// Removes blanks at both ends; other white space and NULs stay.
QByteArrayView BlanksTrimmed(QByteArrayView bytes);

// A text of Width bytes, padded with blanks.
template <std::size_t Width>
class FixedText {
 public:
  FixedText() { bytes_.fill(' '); }
  FixedText& operator=(const QString& text) {
    const QByteArray bytes = AnsiBytes(text).leftJustified(static_cast<qsizetype>(Width), ' ', true);
    std::copy_n(bytes.begin(), Width, bytes_.begin());
    return *this;
  }

  QByteArrayView Bytes() const { return {bytes_.data(), static_cast<qsizetype>(Width)}; }
  // Without the padding.
  QString Text() const { return AnsiText(BlanksTrimmed(Bytes())); }

 private:
  std::array<char, Width> bytes_;
};

// A record, byte for byte as in the file.
struct DbRec {
  FixedText<6> Call;  // plain zeros; longer calls are kept by their first six characters
  FixedText<25> Name;
  FixedText<30> Add1;
  FixedText<30> Add2;
  FixedText<30> Ctry;
  FixedText<15> Lat;  // degrees as text, "0" unknown: CoordinateText
  FixedText<15> Lon;
  FixedText<12> Class;
  FixedText<4> YearBorn;
};

inline constexpr qint64 kRecordSize = 167;
static_assert(sizeof(DbRec) == kRecordSize && std::is_trivially_copyable_v<DbRec>);

// Degrees as the text of a record, always with a decimal point.
QString CoordinateText(double degrees);
// Degrees in the text of a record or a text box, with a point or a comma; 0 if it does not begin with a number.
double Coordinate(const QString& text);
