// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/language_file.h"

#include <QFile>
#include <QFileInfo>

#include "core/page_state.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

using enum TextLine;

constexpr qsizetype kMostBytes = 1 << 20;  // the eight files have about 15 kB each
constexpr qsizetype kLongestText = 1000;   // characters; a longer text would make a window unusable
constexpr qsizetype kNamePlace = 11;       // place of the language in "Omni-Perch_English.Language"
constexpr QLatin1StringView kName("Omni-Perch");

struct KnownLanguage {
  QLatin1StringView name;
  QLatin1StringView code;
  QLocale::Language locale;
  CodePage codePage;
  QStringView wrongVersion;
  QStringView notFound;
};

constexpr QStringView kWrongVersion = u"Wrong language file version.";
constexpr QStringView kNotFound = u"Language file not found or corrupt";

constexpr std::array<KnownLanguage, kLanguageNames> kKnown = {{
    {"Dutch"_L1, "nl"_L1, QLocale::Dutch, CodePage::Western1252, u"Foute taalbestand versie.",
     u"Taalbestand ontbreekt of corrupt."},
    {"English"_L1, "en"_L1, QLocale::English, CodePage::Western1252, kWrongVersion, kNotFound},
    {"French"_L1, "fr"_L1, QLocale::French, CodePage::Western1252, u"Mauvaise version de fichier langage.",
     u"Fichier langage non trouvé ou corrompu."},
    {"German"_L1, "de"_L1, QLocale::German, CodePage::Western1252, kWrongVersion, kNotFound},
    {"Japanese"_L1, "ja"_L1, QLocale::Japanese, CodePage::Japanese932, kWrongVersion, kNotFound},
    {"Polish"_L1, "pl"_L1, QLocale::Polish, CodePage::CentralEuropean1250, kWrongVersion, kNotFound},
    {"Russian"_L1, "ru"_L1, QLocale::Russian, CodePage::Cyrillic1251, kWrongVersion, kNotFound},
    {"Spanish"_L1, "es"_L1, QLocale::Spanish, CodePage::Western1252, kWrongVersion, kNotFound},
}};

constexpr std::size_t kEnglish = 1;  // index of English in kKnown

const KnownLanguage* FindKnown(const QString& name) {
  const auto found = std::find_if(kKnown.begin(), kKnown.end(), [&](const KnownLanguage& k) { return k.name == name; });
  return found == kKnown.end() ? nullptr : &*found;
}

const KnownLanguage& KnownOrEnglish(const QString& name) {
  const KnownLanguage* known = FindKnown(name);
  return known != nullptr ? *known : kKnown[kEnglish];
}

// Blanks that are added to a text because its window shows it directly beside another text or at the edge of a label.
struct Blanks {
  TextLine line;
  int before;
  int behind;
};

constexpr std::array kBlanks = {
    Blanks{kFindCaption, 1, 1},      Blanks{kPopupCam, 1, 0},      Blanks{kDayWord, 1, 0},
    Blanks{kDaysWord, 1, 0},         Blanks{kPageWord, 0, 1},      Blanks{kSetLocation, 1, 1},
    Blanks{kNoPosition, 1, 1},       Blanks{kNewVersion, 0, 2},    Blanks{kEmptyWord, 1, 0},
    Blanks{kMeWord, 1, 1},           Blanks{kNotFoundText, 0, 1},  Blanks{kRxLegendLast, 1, 1},
    Blanks{kRxLegendPrevious, 1, 1}, Blanks{kRxLegendGreen, 0, 1}, Blanks{kRxLegendBlue, 0, 1},
    Blanks{kMapHelp, 2, 2},          Blanks{kRxInfo, 2, 2},
};

// Lines that continue the text of an earlier line, after a line break.
struct Continued {
  TextLine line;
  TextLine first;
};

constexpr std::array kContinued = {
    Continued{kAddHint2, kAddHint1},     Continued{kPasteQuestion2, kPasteQuestion1},
    Continued{kPagesHelp2, kPagesHelp1}, Continued{kCoordinateHint2, kCoordinateHint1},
    Continued{kPagesHelp3, kPagesHelp1}, Continued{kPagesNote2, kPagesNote1},
};

QString WithBlanks(TextLine line, const QString& text) {
  if (line == kFromWord) return text.trimmed() + u' ';
  for (const Blanks& blanks : kBlanks) {
    if (blanks.line == line) return QString(blanks.before, u' ') + text + QString(blanks.behind, u' ');
  }
  return text;
}

// The text behind the first "=", or the whole line if it has none.
QString TextOf(const QString& line) {
  return line.sliced(line.indexOf(u'=') + 1).left(kLongestText);
}

// The line from its last "Omni-Perch" to its end must equal the version text.
bool IsVersionLine(const QString& line, const QString& progVersion) {
  const qsizetype place = line.lastIndexOf(kName);
  return place >= 0 && QStringView(line).sliced(place) == progVersion;
}

QStringList LinesOf(const QByteArray& bytes, CodePage codePage) {
  QByteArray head = bytes.left(kMostBytes);
  if (head.size() < bytes.size()) {
    // Cut at the end of a line: half a UTF-8 character would have the whole file read in the code page.
    const qsizetype end = std::max(head.lastIndexOf('\n'), head.lastIndexOf('\r'));
    if (end >= 0) head.truncate(end);
  }
  // Drop NULs, which are never text; a file saved as UTF-16 is then readable as far as its letters are Latin.
  head.removeIf([](char c) { return c == '\0'; });
  return SplitLines(DecodeText(head, codePage));
}

void TakeText(LanguageTexts& texts, TextLine line, const QString& text) {
  texts.lines[static_cast<std::size_t>(line)] = WithBlanks(line, text);
  for (const Continued& continued : kContinued) {
    if (continued.line == line) texts.lines[static_cast<std::size_t>(continued.first)] += u'\n' + text;
  }
}

}  // namespace

LanguageResult ReadLanguage(const QByteArray& bytes, CodePage codePage, qsizetype listed, const QString& progVersion,
                            LanguageTexts& texts) {
  LanguageResult result;
  const QStringList lines = LinesOf(bytes, codePage);
  if (lines.isEmpty()) return result;
  result.read = true;
  result.versionOk = IsVersionLine(lines.first(), progVersion);

  // The table of language names has as many places as languages are listed. With fewer than eight, the first name
  // without a place is an error that ends the reading; languages beyond eight have no name.
  const qsizetype places = listed < kLanguageNames ? listed + 1 : kTextLines;
  const qsizetype end = std::min<qsizetype>({lines.size(), places, kTextLines});
  for (qsizetype i = 1; i < end; ++i) TakeText(texts, static_cast<TextLine>(i), TextOf(lines[i]));
  result.complete = end == kTextLines;
  if (result.complete) texts.lines[static_cast<std::size_t>(kAgeWord)] += " - "_L1;
  return result;
}

LanguageResult LoadLanguage(const QString& folder, const QString& languageName, qsizetype listed,
                            const QString& progVersion, LanguageTexts& texts) {
  const KnownLanguage* known = FindKnown(languageName);
  if (known == nullptr) return {};

  LanguageResult result;
  const QString path = ResolvePath(folder, kName + u'_' + languageName + u".Language"_s);
  QFile file(path);
  if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly)) {
    // One byte more than is used shows that the file is longer.
    result = ReadLanguage(file.read(kMostBytes + 1), known->codePage, listed, progVersion, texts);
  }
  result.wrongVersion = known->wrongVersion.toString();
  result.notFound = known->notFound.toString();
  return result;
}

QLatin1StringView LanguageCode(const QString& languageName) {
  return KnownOrEnglish(languageName).code;
}

QLocale LanguageLocale(const QString& languageName) {
  return QLocale(KnownOrEnglish(languageName).locale);
}

QStringList ListLanguages(const QStringList& fileNames) {
  QStringList names;
  for (const QString& fileName : fileNames) {
    const qsizetype dot = fileName.indexOf(u'.');
    if (!fileName.startsWith(kName) || dot < kNamePlace) continue;
    names += fileName.sliced(kNamePlace, dot - kNamePlace);
  }
  names.sort();
  names.removeDuplicates();
  // The languages of lines 1 to 8 come first, English third among them.
  std::stable_partition(names.begin(), names.end(), [](const QString& name) { return FindKnown(name) != nullptr; });
  const QString english = u"English"_s;
  if (names.removeOne(english)) names.insert(std::min<qsizetype>(2, names.size()), english);

  // The third entry is removed and English appended. Normally the third is English, which thus moves to the end. If
  // language files are missing, another language may be lost from the menu this way, or English be there twice.
  if (names.size() > 2) names.removeAt(2);
  names += english;
  return names;
}

void TranslatePageLabels(QStringList& labels, const LanguageTexts& before, const LanguageTexts& after) {
  const auto holds = [&labels](qsizetype page, const QString& word) {
    return page < labels.size() && !word.isEmpty() && labels[page].contains(word);
  };
  for (qsizetype page = 1; page < kWxPage; ++page) {
    if (holds(page, before[kPageWord])) labels[page] = after[kPageWord] + QString::number(page);
  }
  if (holds(kWxPage, before[kWxPageName])) labels[kWxPage] = after[kWxPageName];
}

QString BuiltInText(const QString& languageCode, OnAirText text) {
  // The captions of the panels are the same in all languages.
  switch (text) {
    case OnAirText::kBandPanel:
      return u"Select bands to monitor"_s;
    case OnAirText::kModePanel:
      return u"Select modes to monitor"_s;
    case OnAirText::kRefreshTip:
      break;
  }
  switch (languageCode.toInt()) {
    case 1:
      return u"Rafraîchir"_s;
    case 2:
      return u"Aktualisierung"_s;
    case 5:
      return u"Vernieuwen"_s;
    case 7:
      return u"Odświeżać"_s;
    case 8:
      return u"Actualizar"_s;
    case 9:
      return u"Обновить"_s;
    default:
      return u"Refresh On Air Now list"_s;
  }
}
