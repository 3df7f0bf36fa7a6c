// SPDX-License-Identifier: GPL-3.0-or-later
// Language files: lists them, reads one into the program's texts, and holds the few texts of the on-air windows that
// are built in. Called at the start and when the user chooses another language.
#pragma once

#include <QByteArray>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <array>

#include "core/language_lines.h"
#include "platform/text/text_file.h"

// The texts as the windows show them, with blanks and line breaks added. Where several lines of the file make one text,
// the first of them holds it all.
struct LanguageTexts {
  std::array<QString, kTextLines> lines;

  const QString& operator[](TextLine line) const { return lines[static_cast<std::size_t>(line)]; }
};

// How the reading of a language file ended.
struct LanguageResult {
  bool read = false;       // there was a file with at least one line
  bool versionOk = false;  // the version line is that of this program; the texts are used either way
  bool complete = false;   // all 221 texts were in the file
  QString wrongVersion;    // message in the language chosen; to be shown when read and not versionOk
  QString notFound;        // message about a missing file; never shown, because a missing file is passed over silently
};

// Reads the file of languageName in folder into texts. listed: number of entries of lstLanguages; with fewer than
// eight, the reading ends at the first language name beyond them. Texts that are not read stay as they were. A name
// that is not one of the eight known ones reads nothing and gives empty messages.
LanguageResult LoadLanguage(const QString& folder, const QString& languageName, qsizetype listed,
                            const QString& progVersion, LanguageTexts& texts);
// The same for the bytes of a file, without the messages. Bytes beyond the first MiB are ignored.
LanguageResult ReadLanguage(const QByteArray& bytes, CodePage codePage, qsizetype listed, const QString& progVersion,
                            LanguageTexts& texts);

// For one of the eight languages, or else for English: the two letters in the names of the translation files, and the
// locale in which dates and numbers are shown (stored values never use the locale).
QLatin1StringView LanguageCode(const QString& languageName);
QLocale LanguageLocale(const QString& languageName);

// lstLanguages, in the order of the language menu, from the names of the files in the language folder (in any order).
QStringList ListLanguages(const QStringList& fileNames);

// Renames default page labels after a change of language: labels 1 to 20 that contain the old word for "page" become
// the new word and their number, label 21 the new name of the WX page. The user's own labels stay. labels is indexed
// from 1.
void TranslatePageLabels(QStringList& labels, const LanguageTexts& before, const LanguageTexts& after);

// Built-in texts of the on-air windows, by their number in a language's block.
enum class OnAirText { kRefreshTip = 5, kBandPanel = 13, kModePanel = 14 };
// languageCode is Config::OnAirCode; empty and unknown codes read the English block.
QString BuiltInText(const QString& languageCode, OnAirText text);
