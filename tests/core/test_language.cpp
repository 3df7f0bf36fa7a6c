// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRegularExpression>
#include <QSet>

#include "core/language_file.h"
#include "test_folder.h"

namespace {

using enum TextLine;

const QString kProgVersion = u"Omni-Perch  6.50"_s;
const QStringList kLanguages = {u"English"_s, u"Spanish"_s, u"German"_s,   u"French"_s,
                                u"Dutch"_s,   u"Polish"_s,  u"Japanese"_s, u"Russian"_s};

QByteArray Installed(const QString& language) {
  const QString path = u"%1/Omni-Perch_%2.Language"_s.arg(QStringLiteral(LANGUAGES_DIR), language);
  return ReadFileBytes(path).value_or(QByteArray());
}

// The lines of an installed file, each as its key and its text.
QList<std::pair<QString, QString>> Parsed(const QString& language) {
  QList<std::pair<QString, QString>> lines;
  for (const QString& line : SplitLines(QString::fromUtf8(Installed(language)))) {
    lines.emplaceBack(line.section(u'=', 0, 0), line.section(u'=', 1));
  }
  return lines;
}

QStringList MarksOf(const QString& text) {
  static const QRegularExpression mark(u"\\?{2,}|\\*+|xxx"_s);
  QStringList marks;
  for (auto matches = mark.globalMatch(text); matches.hasNext();) marks += matches.next().captured();
  marks.sort();
  return marks;
}

// Texts that are the same word in a language as in English.
bool MayEqualEnglish(const QString& language, int line) {
  static const QHash<QString, QSet<int>> words = {
      {u"French"_s, {95, 99, 100, 124, 175, 218, 219}}, {u"Dutch"_s, {175}}, {u"Spanish"_s, {157}}};
  return line == int(kVersion) || line == int(kAgeWord) || line == int(kKilometersWord) ||
         words.value(language).contains(line);
}

// A file whose text in line n is "text n", but for the lines given.
QByteArray MadeFile(int count, const QHash<int, QByteArray>& lines = {}, const QByteArray& lineEnd = "\r\n") {
  QByteArray bytes;
  for (int i = 0; i < count; ++i) {
    const QByteArray plain = i == 0 ? QByteArray("v=Omni-Perch  6.50") : "k=text " + QByteArray::number(i);
    bytes += lines.value(i, plain) + lineEnd;
  }
  return bytes;
}

LanguageResult Read(const QByteArray& bytes, LanguageTexts& texts, qsizetype listed = 8) {
  return ReadLanguage(bytes, CodePage::Western1252, listed, kProgVersion, texts);
}

// The texts of a language file as it is installed.
LanguageTexts Loaded(const QString& language) {
  LanguageTexts texts;
  LoadLanguage(QStringLiteral(LANGUAGES_DIR), language, 8, kProgVersion, texts);
  return texts;
}

}  // namespace

class TestLanguage : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FilesHoldTheSameLines() {
    const auto english = Parsed(u"English"_s);
    for (const QString& language : kLanguages) {
      const TableRow row(qPrintable(language));
      const QByteArray bytes = Installed(language);
      QVERIFY(bytes.isValidUtf8() && !bytes.startsWith("\xEF\xBB\xBF"));
      for (const char* end : {"\r", "\n", "\r\n"}) QCOMPARE(bytes.count(end), kTextLines);
      const auto lines = Parsed(language);
      QCOMPARE(lines.size(), kTextLines);
      QSet<QString> keys;
      for (int i = 0; i < kTextLines; ++i) {
        const auto& [key, text] = lines.at(i);
        const auto& [englishKey, englishText] = english.at(i);
        const QByteArray where = u"line %1: %2 = %3"_s.arg(i).arg(key, text).toUtf8();
        QVERIFY2(key == englishKey && !key.isEmpty() && !keys.contains(key), where.constData());
        keys += key;
        QVERIFY2(MarksOf(text) == MarksOf(englishText), where.constData());
        QVERIFY2(text.trimmed() == text && text.isEmpty() == (i == int(kAgeWord)), where.constData());
        QVERIFY2(language == u"English" || text != englishText || MayEqualEnglish(language, i), where.constData());
      }
      LanguageTexts texts;
      QVERIFY(Read(bytes, texts).versionOk);
    }
  }

  void ShortPlacesGetShortTexts() {
    const QHash<TextLine, int> places = {
        {kFindCaption, 12}, {kCamsWord, 10},      {kOnAirText, 14},      {kPropagationCaption, 12},
        {kRefreshWord, 13}, {kInactiveWord, 10},  {kConnectingText, 12}, {kErrorCaption, 8},
        {kErrorWord, 14},   {kNoPictureText, 16}, {kCorruptText, 16},    {kBlockedCaption, 8},
        {kBlockedText, 16}, {kIllegalText, 16},   {kMissingLocation, 5}, {kFromWord, 8},
        {kDaysWord, 6},     {kMeWord, 5}};
    for (const QString& language : kLanguages) {
      const LanguageTexts texts = Loaded(language);
      for (auto place = places.begin(); place != places.end(); ++place) {
        QVERIFY2(texts[place.key()].size() <= place.value(), qPrintable(language + u": "_s + texts[place.key()]));
      }
    }
  }

  void LinesMeetTheirTexts() {
    const LanguageTexts texts = Loaded(u"English"_s);
    QCOMPARE(texts[MenuLines::kSetup.back()] + texts[MenuLines::kPicture.back()] + texts[MenuLines::kWindowSize.back()],
             u"About Omni-PerchSite indexExtra large"_s);
    // The language names among the lines have the order of the list of languages.
    const QStringList listed = ListLanguages(QDir(QStringLiteral(LANGUAGES_DIR)).entryList(QDir::Files));
    QCOMPARE(listed.size(), kLanguageNames);
    for (int i = 0; i < kLanguageNames; ++i) QVERIFY(texts.lines[static_cast<std::size_t>(i + 1)].contains(listed[i]));
  }

  void KnowsItsVersion() {
    const auto check = [](bool ok, const QByteArrayList& lines) {
      for (const QByteArray& line : lines) {
        LanguageTexts texts;
        const LanguageResult result = Read(MadeFile(kTextLines, {{0, line}}), texts);
        QVERIFY2(result.versionOk == ok, line.constData());
        // The texts are used either way.
        QVERIFY(result.complete && texts[kRefreshWord] == u"text 64");
      }
    };
    check(true, {"key=Omni-Perch  6.50", "Omni-Perch  6.50", "Omni-Perch file=Omni-Perch  6.50"});
    check(false, {"key=Omni-Perch 6.50", "key=Omni-Perch  6.51", "key=Omni-Perch  6.50 ",
                  "key=Omni-Perch  6.50 Omni-Perch", "key="});
  }

  void FitsTexts() {
    const auto check = [](int line, const QByteArray& written, const QString& shown) {
      for (const QByteArray lineEnd : {"\r\n", "\n", "\r"}) {
        LanguageTexts texts;
        // Read twice: nothing of the first reading is left in the second.
        for (int i = 0; i < 2; ++i) QVERIFY(Read(MadeFile(kTextLines, {{line, written}}, lineEnd), texts).complete);
        QCOMPARE(texts[static_cast<TextLine>(line)], shown);
      }
    };
    check(218, "k=Propagation", u"Propagation"_s);
    check(64, "k=a=b", u"a=b"_s);
    check(64, "Refresh", u"Refresh"_s);
    check(64, "k=", QString());
    check(64, QByteArray("k=a\0b", 5), u"ab"_s);
    check(95, "k=Page", u"Page "_s);
    check(117, "k=  From   ", u"From "_s);
    check(146, "k=", u" - "_s);
    check(72, "k=one", u"one\ntext 73"_s);
    check(147, "k=one", u"one\ntext 148\ntext 149"_s);
    check(64, "k=" + QByteArray(100000, 'x'), QString(1000, u'x'));
  }

  // Reads as many lines as the file has, and as many names of languages as the list of languages has.
  void StopsWhereTheFileOrTheListEnds() {
    const auto check = [](int count, int listed, int lastRead) {
      LanguageTexts texts;
      texts.lines.fill(u"kept"_s);
      const LanguageResult result = Read(MadeFile(count), texts, listed);
      QCOMPARE(result.read, count > 0);
      QCOMPARE(result.complete, lastRead == 221);
      for (int i = 1; i < kTextLines; ++i) {
        const QString& text = texts.lines[static_cast<std::size_t>(i)];
        QVERIFY2(i <= lastRead ? text.contains(u"text %1"_s.arg(i)) : text == u"kept", qPrintable(text));
      }
    };
    for (const int count : {0, 1}) check(count, 8, 0);
    check(221, 8, 220);
    for (const int count : {222, 5000}) check(count, 8, 221);
    check(222, 12, 221);
    for (const int listed : {7, 0}) check(222, listed, listed);
  }

  void ReadsTheCodePageOfItsLanguage() {
    const auto check = [](const QString& language, const QByteArray& written, const QString& shown) {
      const TestFolder folder;
      folder.Put(u"Omni-Perch_%1.Language"_s.arg(language), MadeFile(kTextLines, {{64, "k=" + written}}));
      LanguageTexts texts;
      QVERIFY(LoadLanguage(folder.path(), language, 8, kProgVersion, texts).complete);
      QCOMPARE(texts[kRefreshWord], shown);
    };
    check(u"Polish"_s, "Od\x9Cwie\xBF", u"Odśwież"_s);
    check(u"Russian"_s, "\xCE\xE1\xED\xEE\xE2\xE8\xF2\xFC", u"Обновить"_s);
    check(u"Japanese"_s, "\x8D\x58\x90\x56", u"更新"_s);
    check(u"Spanish"_s, "\x80 se\xF1o", u"€ seño"_s);
    check(u"Polish"_s, u"Odśwież"_s.toUtf8(), u"Odśwież"_s);
  }

  void ReadsTheBeginningOfHugeFiles() {
    const TestFolder folder;
    LanguageTexts texts;
    // Only the first MiB of a file is read. The lines have two bytes a character, so that the cut falls now into a
    // character and now between two: neither may make the text one of the code page.
    for (const QByteArray key : {"k", "kk"}) {
      QByteArray bytes = MadeFile(kTextLines, {{64, key + "=" + u"Odśwież"_s.toUtf8()}});
      while (bytes.size() < 2'000'000) bytes += u"k=żżżżżżżżżż\r\n"_s.toUtf8();
      const QString path = folder.Put(u"Omni-Perch_Polish.Language"_s, bytes);
      QVERIFY(QFile::resize(path, 100'000'000));
      QVERIFY(LoadLanguage(folder.path(), u"Polish"_s, 8, kProgVersion, texts).complete);
      QCOMPARE(texts[kRefreshWord], u"Odśwież"_s);
    }
    // One line without an end.
    QVERIFY(!Read(QByteArray(3'000'000, 'x'), texts).versionOk);
    QCOMPARE(texts[kRefreshWord], u"Odśwież"_s);
  }

  void TellsWhatIsMissing() {
    const TestFolder folder;
    folder.PutFolder(u"Omni-Perch_German.Language"_s);
    folder.Put(u"Omni-Perch_Italian.Language"_s, MadeFile(kTextLines));
    folder.Put(u"omni-perch_dutch.language"_s, MadeFile(kTextLines));
    const auto check = [&folder](const QString& language, bool read, const QString& told) {
      LanguageTexts texts;
      const LanguageResult result = LoadLanguage(folder.path(), language, 8, kProgVersion, texts);
      QVERIFY(result.read == read && result.complete == read && texts[kRefreshWord].isEmpty() == !read);
      QCOMPARE(result.wrongVersion + u'|' + result.notFound, told);
    };
    const QString english = u"Wrong language file version.|Language file not found or corrupt"_s;
    check(u"French"_s, false, u"Mauvaise version de fichier langage.|Fichier langage non trouvé ou corrompu."_s);
    check(u"Dutch"_s, true, u"Foute taalbestand versie.|Taalbestand ontbreekt of corrupt."_s);
    for (const QString& language : {u"German"_s, u"Japanese"_s}) check(language, false, english);
    for (const QString& language : {u"Italian"_s, u"../x"_s}) check(language, false, u"|"_s);
  }

  void ListsLanguages() {
    const auto check = [](const QString& files, const QString& list) {
      QStringList names = {u"readme.txt"_s, u"Omni-Perch"_s, u"Omni-Perch.Language"_s, u"Omni-Perch_NoDot"_s};
      for (const QString& name : files.split(u' ', Qt::SkipEmptyParts)) names += u"Omni-Perch_"_s + name;
      QCOMPARE(ListLanguages(names).join(u' '), list);
    };
    check(u"Russian.L English.L Dutch.L Spanish.L French.L German.L Japanese.L Polish.L"_s,
          u"Dutch French German Japanese Polish Russian Spanish English"_s);
    check(u"English.L English.L.bak Dutch.L French.L German.L"_s, u"Dutch French German English"_s);
    check(u"Czech.L English.L Dutch.L French.L Polish.L"_s, u"Dutch French Polish Czech English"_s);
    // The order of the menu takes English to be the third of the sorted names: the third entry goes and English is
    // added at the end, whatever the third one was.
    check(u"Dutch.L French.L German.L Polish.L"_s, u"Dutch French Polish English"_s);
    check(u"Dutch.L English.L"_s, u"Dutch English English"_s);
    check(QString(), u"English"_s);
  }

  void PageLabelsFollow() {
    const LanguageTexts english = Loaded(u"English"_s);
    const LanguageTexts german = Loaded(u"German"_s);
    QStringList labels(22);
    for (int page = 1; page < 21; ++page) labels[page] = u"Page %1"_s.arg(page);
    labels[3] = u"My friends"_s;
    labels[21] = u"Weather"_s;
    const QStringList before = labels;
    TranslatePageLabels(labels, english, german);
    QCOMPARE(labels[1] + labels[3] + labels[20] + labels[21], u"Seite 1My friendsSeite 20Wetter"_s);
    TranslatePageLabels(labels, german, english);
    QCOMPARE(labels, before);
    // Before any language was read the word for page is empty: every label is then the user's own.
    TranslatePageLabels(labels, LanguageTexts(), german);
    QCOMPARE(labels, before);
  }

  void HasBuiltInTexts() {
    QCOMPARE(BuiltInText(u"0"_s, OnAirText::kRefreshTip), u"Refresh On Air Now list"_s);
    QCOMPARE(BuiltInText(QString(), OnAirText::kRefreshTip), u"Refresh On Air Now list"_s);
    QCOMPARE(BuiltInText(u"9"_s, OnAirText::kRefreshTip), u"Обновить"_s);
    QCOMPARE(BuiltInText(u"5"_s, OnAirText::kModePanel), u"Select modes to monitor"_s);
  }
};

OMNI_TEST(TestLanguage)
#include "test_language.moc"
