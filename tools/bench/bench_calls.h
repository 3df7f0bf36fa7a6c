// SPDX-License-Identifier: GPL-3.0-or-later
// The calls of the call database that the benchmarks search: made up, one a number.
#pragma once

#include <QString>

// Six characters that sort as their number: a letter, a digit, and four letters.
inline QString CallOf(quint32 number) {
  QString call(6, u'A');
  for (const int place : {5, 4, 3, 2, 0}) {
    call[place] = QChar(u'A' + static_cast<char16_t>(number % 26));
    number /= 26;
  }
  call[1] = u'1';
  return call;
}
