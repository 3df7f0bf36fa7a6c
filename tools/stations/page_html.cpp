// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_html.h"

#include <array>
#include <cmath>

namespace {

struct Special {
  char32_t letter;
  char byte;
};

// Letters of names that Windows-1252 has and Latin-1 lacks.
constexpr std::array kSpecials{Special{U'\u2019', '\x92'}, Special{U'\u2013', '\x96'}, Special{U'\u0160', '\x8a'},
                               Special{U'\u0161', '\x9a'}, Special{U'\u017d', '\x8e'}, Special{U'\u017e', '\x9e'}};

QByteArray Letter(char32_t letter, bool onlyAscii) {
  switch (letter) {
    case U'&':
      return "&amp;";
    case U'<':
      return "&lt;";
    case U'>':
      return "&gt;";
    case U'"':
      return "&quot;";
    default:
      break;
  }
  if (letter < 0x80 || (!onlyAscii && letter >= 0xa0 && letter <= 0xff)) return {1, static_cast<char>(letter)};
  for (const Special& special : kSpecials) {
    if (!onlyAscii && special.letter == letter) return {1, special.byte};
  }
  return "&#" + QByteArray::number(static_cast<quint32>(letter)) + ';';
}

QByteArray Written(QStringView text, bool onlyAscii) {
  QByteArray html;
  for (const uint letter : text.toUcs4()) html += Letter(letter, onlyAscii);
  return html;
}

}  // namespace

QByteArray Html(QStringView text) {
  return Written(text, false);
}

QByteArray PlainHtml(QStringView text) {
  return Written(text, true);
}

QByteArray Degrees(double value, int decimals) {
  return QByteArray::number(value, 'f', decimals);
}

QByteArray LocatorOf(double lat, double lon) {
  const double east = (lon + 180) / 20;
  const double north = (lat + 90) / 10;
  const auto digit = [](double part, int base, char first) {
    return static_cast<char>(first + static_cast<int>(std::fmod(part, 1) * base));
  };
  QByteArray locator;
  locator += static_cast<char>('A' + static_cast<int>(east));
  locator += static_cast<char>('A' + static_cast<int>(north));
  locator += digit(east, 10, '0');
  locator += digit(north, 10, '0');
  locator += digit(east * 10, 24, 'a');
  locator += digit(north * 10, 24, 'a');
  return locator;
}
