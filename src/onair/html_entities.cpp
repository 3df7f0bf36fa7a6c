// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/html_entities.h"

#include <array>

#include "platform/text/ansi_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestEntity = 10;  // between "&" and ";"

// Characters 160 to 255, in their order.
constexpr std::array kLatinNames = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",   "ordf",
    "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",   "acute",  "micro",
    "para",   "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave",
    "Aacute", "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",
    "Igrave", "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",
    "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute",
    "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave",
    "iacute", "icirc",  "iuml",   "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide",
    "oslash", "ugrave", "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};
static_assert(kLatinNames.size() == 96);

struct Name {
  const char* name;
  char16_t character;
};
constexpr std::array kOtherNames = {
    Name{"amp", u'&'},         Name{"lt", u'<'},          Name{"gt", u'>'},          Name{"quot", u'"'},
    Name{"apos", u'\''},       Name{"euro", u'\u20AC'},   Name{"hellip", u'\u2026'}, Name{"bull", u'\u2022'},
    Name{"ndash", u'\u2013'},  Name{"mdash", u'\u2014'},  Name{"lsquo", u'\u2018'},  Name{"rsquo", u'\u2019'},
    Name{"ldquo", u'\u201C'},  Name{"rdquo", u'\u201D'},  Name{"trade", u'\u2122'},  Name{"Scaron", u'\u0160'},
    Name{"scaron", u'\u0161'}, Name{"OElig", u'\u0152'},  Name{"oelig", u'\u0153'},  Name{"Yuml", u'\u0178'},
    Name{"fnof", u'\u0192'},   Name{"dagger", u'\u2020'}, Name{"permil", u'\u2030'}, Name{"circ", u'\u02C6'}};

QString OfNumber(QStringView digits) {
  const bool hex = digits.startsWith(u'x', Qt::CaseInsensitive);
  bool ok = false;
  const uint code = hex ? digits.sliced(1).toUInt(&ok, 16) : digits.toUInt(&ok);
  // What is no character is shown as such; numbers 128 to 159 mean the code page.
  if (!ok || code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
    return QString(QChar::ReplacementCharacter);
  if (code >= 0x80 && code < 0xA0) return AnsiText(QByteArray(1, static_cast<char>(code)));
  const char32_t character = code;
  return QString::fromUcs4(&character, 1);
}

// Of what stands between "&" and ";"; empty: no entity.
QString CharacterOf(QStringView entity) {
  if (entity.startsWith(u'#')) return OfNumber(entity.sliced(1));
  for (const Name& name : kOtherNames) {
    if (entity == QLatin1StringView(name.name)) return QString(QChar(name.character));
  }
  for (std::size_t i = 0; i < kLatinNames.size(); ++i) {
    if (entity == QLatin1StringView(kLatinNames[i])) return QString(QChar(static_cast<char16_t>(0xA0 + i)));
  }
  return {};
}

bool BeginsTag(QChar next) {
  return next == u'!' || next == u'/' || next == u'?' || (next.unicode() < 0x80 && next.isLetter());
}

}  // namespace

bool HasTags(const QString& text) {
  for (qsizetype at = text.indexOf(u'<'); at >= 0 && at + 1 < text.size(); at = text.indexOf(u'<', at + 1)) {
    if (BeginsTag(text[at + 1])) return true;
  }
  return false;
}

QString WithEntitiesDecoded(const QString& text) {
  const QStringView all(text);
  QString out;
  qsizetype done = 0;
  for (qsizetype at = all.indexOf(u'&'); at >= 0; at = all.indexOf(u'&', std::max(done, at + 1))) {
    const qsizetype length = all.mid(at + 1, kLongestEntity + 1).indexOf(u';');
    const QString character = length < 1 ? QString() : CharacterOf(all.sliced(at + 1, length));
    if (character.isEmpty()) continue;
    out += all.sliced(done, at - done);
    out += character;
    done = at + 1 + length + 1;
  }
  return done == 0 ? text : out.append(all.sliced(done));
}
