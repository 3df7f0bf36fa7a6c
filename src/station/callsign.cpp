// SPDX-License-Identifier: GPL-3.0-or-later
#include "station/callsign.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestCall = 7;           // characters of a clean call
constexpr qsizetype kShortestReported = 4;      // characters of a call that may be reported, including a mode word
constexpr qsizetype kLongestReported = 9;       // the same without the mode word
constexpr qsizetype kLongestDroppedPrefix = 3;  // characters: "VE3/" is dropped, "ABCD/" stays

// Characters of the Western code page beyond Latin-1 that are letters there.
constexpr QStringView kCodePageLetters = u"\u0160\u0161\u0152\u0153\u017D\u017E\u0178\u0192\u02C6";

bool InCodePage(QChar c) {
  return c.unicode() <= 0xFF || kCodePageLetters.contains(c);
}

// Lists and tails come in the Western code page, so its accented letters are part of a word. A letter of any other
// alphabet ends a word, as the "?" does as which it would have arrived.
bool IsAlphaNumeric(QChar c) {
  return InCodePage(c) && c.isLetterOrNumber();
}

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

// Upper case character by character, so that the length stays; a character whose upper case is not in the code page
// (the micro sign) stays.
QString UpperCased(QString text) {
  for (QChar& c : text) {
    const QChar upper = c.toUpper();
    if (InCodePage(upper) || !InCodePage(c)) c = upper;
  }
  return text;
}

QString BlanksTrimmed(QStringView text) {
  while (text.startsWith(u' ')) text = text.sliced(1);
  while (text.endsWith(u' ')) text.chop(1);
  return text.toString();
}

}  // namespace

qsizetype LeadingWord(const QString& text) {
  return std::find_if_not(text.cbegin(), text.cend(), IsAlphaNumeric) - text.cbegin();
}

QString CleanCall(QString& text) {
  if (text.isEmpty() || text == "SWL"_L1) return text;
  text = BlanksTrimmed(UpperCased(text)).replace(u'Ø', u'0');

  // Drop a short first word, which is a country's prefix or "DE". A short text without any separator is dropped as a
  // whole: calls of three characters do not exist.
  const qsizetype prefix = LeadingWord(text);
  if (prefix <= kLongestDroppedPrefix) text = BlanksTrimmed(QStringView(text).mid(prefix + 1));
  text.truncate(LeadingWord(text));

  if (std::none_of(text.cbegin(), text.cend(), IsDigit)) return {};
  if (text.size() > kLongestCall) text.clear();
  return text;
}

bool IsBadCall(QString& call, const QStringList& lstBadCalls) {
  if (call == "SWL"_L1) return false;
  if (call.isEmpty()) return true;
  call = BlanksTrimmed(UpperCased(call));
  const QString bare = QString(call).remove(" JT65"_L1);
  if (lstBadCalls.contains(bare, Qt::CaseInsensitive)) return true;
  return call.size() < kShortestReported || bare.size() > kLongestReported;
}

QStringList BuiltInBadCalls() {
  return {u"BBZW"_s, u"BKZKY"_s, u"BITEME"_s, u"B1TEME"_s, u"Callsign"_s, u"DEN4CTFK"_s,
          u"FAWA"_s, u"FCR16"_s, u"FCR16B"_s, u"FFQKY"_s,  u"IGNORED"_s,  u"KX4QRT"_s,
          u"LBZW"_s, u"MARS"_s,  u"N0CALL"_s, u"NOCALL"_s, u"XMOP"_s};
}

QString ShownCall(const QString& call, QChar zeroGlyph) {
  return QString(call).replace(u'0', zeroGlyph);
}

QChar ZeroGlyphFor(const QString& presentDateText) {
  const QString text = BlanksTrimmed(presentDateText);
  const auto end = std::find_if_not(text.cbegin(), text.cend(), IsDigit);
  const int leadingNumber = QStringView(text.cbegin(), end).toInt();
  return leadingNumber > 2000 ? u'0' : u'Ø';
}
