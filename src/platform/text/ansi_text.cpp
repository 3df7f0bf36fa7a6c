// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/ansi_text.h"

#include <algorithm>

namespace {

// Characters of the bytes 0x80 to 0x9F; those that the code page leaves undefined stand for themselves.
constexpr QStringView kHighCharacters =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";
constexpr char16_t kFirstHigh = 0x80;
constexpr char16_t kFirstLatin = 0xA0;

// The byte of a character; 0 if the code page lacks it.
char AnsiByte(QChar c) {
  const char16_t code = c.unicode();
  if (code < kFirstHigh || (code >= kFirstLatin && code <= 0xFF)) return static_cast<char>(code);
  const qsizetype high = kHighCharacters.indexOf(c);
  return high < 0 ? '\0' : static_cast<char>(kFirstHigh + high);
}

// The byte of a character or of its letter without the accent; "?" if the code page has neither.
char NearestByte(QChar c) {
  const char exact = AnsiByte(c);
  if (exact != '\0' || c.isNull()) return exact;
  const QString parts = c.decomposition();
  const char base = parts.isEmpty() ? '\0' : AnsiByte(parts.front());
  return base == '\0' ? '?' : base;
}

}  // namespace

QByteArray AnsiBytes(const QString& text) {
  QByteArray bytes(text.size(), Qt::Uninitialized);
  std::transform(text.begin(), text.end(), bytes.begin(), NearestByte);
  return bytes;
}

QString AnsiText(QByteArrayView bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& c : text) {
    if (c.unicode() >= kFirstHigh && c.unicode() < kFirstLatin) c = kHighCharacters[c.unicode() - kFirstHigh];
  }
  return text;
}
