// SPDX-License-Identifier: GPL-3.0-or-later
#include "station/picture_date.h"

#include <QDate>
#include <QStringList>
#include <algorithm>
#include <array>

#include "platform/text/numbers.h"
#include "station/date_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kClock = 5;  // "hh:mm"

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

bool IsAboveAt(QChar c) {
  return c.unicode() > 64;
}

struct DateNumbers {
  int year = 0;
  int month = 0;
  int day = 0;
};

bool HasDigit(const QString& text) {
  return std::any_of(text.cbegin(), text.cend(), IsDigit);
}

int Number(const QString& text) {
  return static_cast<int>(std::clamp(Val(text), -1.0, 1e6));
}

// Years below 2000 are offsets to 2000.
int FullYear(int year) {
  return year < 2000 ? year + 2000 : year;
}

// Reads a date such as "24/Mär/24": the day is in the first two characters, the year behind the last letter.
DateNumbers WordDate(const QString& date) {
  const auto first = std::find_if(date.cbegin(), date.cend(), IsAboveAt);
  const auto last = std::find_if(date.crbegin(), date.crend(), IsAboveAt).base();
  const QString word = QStringView(first, last).toString().remove(u'/');
  const QString year = QStringView(last, date.cend()).toString().remove(u'/');
  if (!HasDigit(year)) return {};
  return {FullYear(Number(year)), MonthNumber(word), Number(date.left(2))};
}

// Month, day, year, whatever the locale.
DateNumbers NumericDate(const QString& date) {
  const QStringList parts = date.split(u'/');
  if (parts.size() < 3 || !HasDigit(parts[2])) return {};
  return {FullYear(Number(parts[2])), Number(parts[0]), Number(parts[1])};
}

QString ShortDate(const DateNumbers& date) {
  constexpr int kLastYear = 9999;  // a larger number is a year with the digits of a time behind it
  if (date.year > kLastYear || !QDate::isValid(date.year, date.month, date.day)) return {};
  return u"%1/%2/%3"_s.arg(date.month).arg(date.day).arg(date.year);
}

struct MonthRow {
  int month;
  QStringView words;
};

// Month words of the languages that stations use. Only three letters are compared, so that words of four never match;
// they stay because the list is kept equal to the one that stations use.
constexpr std::array<MonthRow, 12> kMonths{{{1, u"Jan janv Jän Ian gen sty ian ene sic"},
                                            {2, u"Feb fév Phe lut fev liu"},
                                            {3, u"Mar maa Mär ber"},
                                            {4, u"Apr avr kwi abr kvi"},
                                            {5, u"May mei mai maj mag tra"},
                                            {6, u"Jun juin Ioun giu cze iiun che"},
                                            {7, u"Jul juil Ioul lug lip iiul lyp"},
                                            {8, u"Aug aoû ag. sie ago avg ser"},
                                            {9, u"Sep set wrz set sen ver"},
                                            {10, u"Oct okt ott paz out zho"},
                                            {11, u"Nov Noe lis noi lys"},
                                            {12, u"Dec Dez Dek dic des gru hru"}}};

}  // namespace

QString WithoutControls(QString text) {
  const auto isControl = [](QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
  };
  text.removeIf(isControl);
  return text;
}

QString NormaliseDate(const QString& text) {
  QString date = WithoutControls(text).replace(u'.', u'/').replace(u'-', u'/');
  QString clock;
  const qsizetype colon = date.indexOf(u':');
  if (colon >= 2) clock = date.mid(colon - 2, kClock);
  // The time may follow the date without a blank, once a line end between them has been removed.
  if (colon >= 0) date.truncate(std::max<qsizetype>(0, colon - 2));
  date.remove(0, std::find_if(date.cbegin(), date.cend(), IsDigit) - date.cbegin());
  date = date.section(u' ', 0, 0);

  const bool inWords = std::any_of(date.cbegin(), date.cend(), IsAboveAt);
  const QString shortDate = ShortDate(inWords ? WordDate(date) : NumericDate(date));
  return clock.isEmpty() ? shortDate : shortDate + u' ' + clock;
}

int MonthNumber(const QString& word) {
  const QStringView letters = QStringView(word).left(3);
  for (const MonthRow& row : kMonths) {
    for (const QStringView known : row.words.tokenize(u' ')) {
      if (known.compare(letters, Qt::CaseInsensitive) == 0) return row.month;
    }
  }
  return 1;
}
