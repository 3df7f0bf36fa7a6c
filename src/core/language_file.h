// SPDX-License-Identifier: GPL-3.0-or-later
// Language files: which there are, how one is read into the program's texts, and the few texts of the on-air windows
// that are built in. Called at the start and when the user picks another language.
#pragma once

#include <QByteArray>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <array>

#include "core/language_lines.h"
#include "platform/text/text_file.h"

// The texts as the windows show them, blanks and line breaks added. Where lines are joined, the first holds all of
// them.
struct LanguageTexts {
  std::array<QString, kTextLines> lines;

  const QString& operator[](TextLine line) const { return lines[static_cast<std::size_t>(line)]; }
};

struct LanguageResult {
  bool read = false;       // there was a file with at least one line
  bool versionOk = false;  // the version line is that of this program; the texts are used either way
  bool complete = false;   // all 221 texts were there; only then the main labels take new captions
  QString wrongVersion;    // message in the language chosen; to be shown when read and not versionOk
  QString notFound;        // prepared beside the other and never shown: a missing file stays silent
};

// Reads the file of languageName in folder into texts. listed is the count of lstLanguages: with fewer than eight the
// read ends at the first language name without a place. Lines that are not read keep the texts that they had. A name
// that is not one of the eight known ones reads nothing and has empty messages.
LanguageResult LoadLanguage(const QString& folder, const QString& languageName, qsizetype listed,
                            const QString& progVersion, LanguageTexts& texts);
// The same for the bytes of a file, without the messages. Bytes behind the first MiB are not looked at.
LanguageResult ReadLanguage(const QByteArray& bytes, CodePage codePage, qsizetype listed, const QString& progVersion,
                            LanguageTexts& texts);

// Of one of the eight languages, and of English for any other name: the two letters in the names of the files of
// translations, and the locale in which dates and numbers are shown. What is stored never goes through the locale.
QLatin1StringView LanguageCode(const QString& languageName);
QLocale LanguageLocale(const QString& languageName);

// lstLanguages from the names of the files in the language folder, in any order: the order of the language menu.
QStringList ListLanguages(const QStringList& fileNames);

// Default page labels follow the language, the user's own stay: labels 1 to 20 that contain the old word for page
// become the new one and their number, label 21 the new name of the WX page. labels is indexed from 1.
void TranslatePageLabels(QStringList& labels, const LanguageTexts& before, const LanguageTexts& after);

// Built-in texts of the on-air windows, by their number in a language's block.
enum class OnAirText { kRefreshTip = 5, kBandPanel = 13, kModePanel = 14 };
// languageCode is Config::OnAirCode; empty and unknown codes read the English block.
QString BuiltInText(const QString& languageCode, OnAirText text);
