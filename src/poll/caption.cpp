// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/caption.h"

#include <QDate>
#include <QStringList>
#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kDownloadTail = 60;
constexpr qsizetype kClock = 5;  // "hh:mm"

// What tells a fresh download and a stored file apart. The differences look like slips, yet pictures have been labelled
// this way for years: a tail with "JT9" is no JT65 on arrival and becomes one when it is read from the disk.
struct Manner {
  QLatin1StringView jt65Word;
  bool fromDisk;
};

constexpr Manner kDownload{"JT65"_L1, false};
constexpr Manner kFile{"JT"_L1, true};

// Every hit overwrites the one before, so that "snr -" in an FT8 tail gives FT8.
QString ModeTagOf(const QString& tail, const Manner& manner) {
  QString tag;
  if (tail.contains("snr -"_L1)) tag = tail.contains("HYBRID"_L1) ? u"EPH"_s : u"EP"_s;
  if (tail.contains("FT4"_L1)) tag = u"FT4"_s;
  if (tail.contains("FT8"_L1)) tag = u"FT8"_s;
  if (tail.contains("JS8"_L1)) tag = u"JS8"_s;
  if (tail.contains(manner.jt65Word)) tag = u"JT65"_s;
  if (tail.contains("PSK"_L1)) tag = u"PSK"_s;
  if (tail.contains("QK"_L1)) tag = u"QKP"_s;
  return tag;
}

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

bool IsAboveAt(QChar c) {
  return c.unicode() > 64;
}

// Lists hold a record a line, and labels one line: nothing of a stranger's bytes may end it.
QString WithoutControls(QString text) {
  const auto isControl = [](QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
  };
  text.removeIf(isControl);
  return text;
}

// A number behind a blank belongs to a call with a stroke. CleanCall ends a call at the first blank, so that this bites
// only should it ever let one through.
QString StrokeForBlank(QString call) {
  const qsizetype blank = call.indexOf(u' ');
  bool numeric = false;
  if (blank >= 0) call.sliced(blank + 1).toDouble(&numeric);
  return numeric ? call.replace(u' ', u'/') : call;
}

QString CallerOf(QString field, const Manner& manner, QChar zeroGlyph) {
  if (manner.fromDisk) {
    field.replace(u'Ø', u'0');
  } else {
    field = field.trimmed().toUpper().replace(zeroGlyph, u'0');
  }
  field.remove("-HYBRID-"_L1);
  const QString call = CleanCall(field);
  return manner.fromDisk ? StrokeForBlank(call) : call;
}

// The third field has ":" for "/" in its date.
QString SentTimeOf(const QString& field) {
  const qsizetype clock = std::max<qsizetype>(0, field.size() - kClock);
  const QString sent = NormaliseDate(field.first(clock).replace(u':', u'/') + field.sliced(clock));
  return ReadDate(sent).isValid() ? sent : QString();
}

Caption ParseTail(const QString& tail, const Manner& manner, QChar zeroGlyph) {
  Caption caption;
  caption.ModeTag = ModeTagOf(tail, manner);
  const qsizetype colon = tail.lastIndexOf(u':');
  if (colon < 0) return caption;
  caption.TimeFound = true;

  const QStringList parts = tail.left(colon + 3).split(u'*');
  caption.Caller = CallerOf(parts[0], manner, zeroGlyph);
  if (parts.size() == 1) return caption;

  caption.FromCall = ShownCall(*caption.Caller, zeroGlyph);
  const qsizetype snr = parts[1].indexOf("snr"_L1);
  if (snr >= 0) caption.ModeText = caption.ModeTag + u' ' + WithoutControls(parts[1].sliced(snr));
  if (parts.size() == 2) return caption;

  // A new picture without a readable time was sent just now, as far as anyone can tell: its empty time lets the intake
  // put the present one. A picture from the disk keeps the time that it was given then.
  const QString sent = SentTimeOf(parts[2]);
  if (!sent.isEmpty() || !manner.fromDisk) caption.SentTime = sent;
  return caption;
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

// Two digits mean this century.
int FullYear(int year) {
  return year < 2000 ? year + 2000 : year;
}

// "24/Mär/24": the day stands in the first two characters, the year behind the last letter.
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
  constexpr int kLastYear = 9999;  // five digits are no year, but a time glued to one
  if (date.year > kLastYear || !QDate::isValid(date.year, date.month, date.day)) return {};
  return u"%1/%2/%3"_s.arg(date.month).arg(date.day).arg(date.year);
}

struct MonthRow {
  int month;
  QStringView words;
};

// Words of the languages that stations write. Only three letters are compared, so that the rows of four never match;
// they stay, as the list is kept in step with the one that stations use.
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

QString TailOfDownload(const QByteArray& body) {
  const QString tail = QString::fromLatin1(body.last(std::min(kDownloadTail, body.size())));
  const qsizetype stars = tail.lastIndexOf("***"_L1);
  return stars < 0 ? tail : tail.sliced(stars + 3);
}

FileTail TailOfFile(const QByteArray& last100) {
  // The last byte is always text: a run that reaches it ends one place before.
  const qsizetype run = last100.chopped(std::min<qsizetype>(1, last100.size())).lastIndexOf(QByteArray(3, '\0'));
  const qsizetype start = std::min<qsizetype>(std::max<qsizetype>(run, 0) + 3, last100.size());
  return {QString::fromLatin1(last100.sliced(start)), run >= 0};
}

Caption ParseTailFromDownload(const QString& tail, QChar zeroGlyph) {
  return ParseTail(tail, kDownload, zeroGlyph);
}

Caption ParseTailFromFile(const FileTail& tail, QChar zeroGlyph) {
  if (tail.found) return ParseTail(tail.tail, kFile, zeroGlyph);
  Caption modeOnly;
  modeOnly.ModeTag = ModeTagOf(tail.tail, kFile);
  return modeOnly;
}

QString NormaliseDate(const QString& text) {
  QString date = WithoutControls(text).replace(u'.', u'/').replace(u'-', u'/');
  QString clock;
  const qsizetype colon = date.indexOf(u':');
  if (colon >= 2) clock = date.mid(colon - 2, kClock);
  // The clock may follow the date without a blank, once a line end between them is gone.
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
