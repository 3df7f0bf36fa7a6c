// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the program and of Qt's own dialogs in each language, and that no window hears of their coming.
#include <QApplication>
#include <QTest>
#include <QWidget>

#include "core/language_file.h"
#include "core/translations.h"
#include "test_suite.h"
#include "ui/language_change.h"

using namespace Qt::StringLiterals;

namespace {

class CountingWindow : public QWidget {
 public:
  using QWidget::QWidget;
  int changes = 0;

 protected:
  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::LanguageChange) ++changes;
  }
};

QString Spoken(const char* context, const char* text) {
  return QCoreApplication::translate(context, text);
}

}  // namespace

class TestTranslations : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void SpeaksEachLanguage_data() {
    QTest::addColumn<QString>("own");
    QTest::addColumn<QString>("qt");
    QTest::newRow("English") << u"Reload"_s << u"Retry"_s;
    QTest::newRow("Spanish") << u"Recargar"_s << u"Reintentar"_s;
    QTest::newRow("German") << u"Neu laden"_s << u"Wiederholen"_s;
    QTest::newRow("French") << u"Actualiser"_s << u"Réessayer"_s;
    QTest::newRow("Dutch") << u"Vernieuwen"_s << u"Opnieuw proberen"_s;
    QTest::newRow("Polish") << u"Odśwież"_s << u"Ponów"_s;
    QTest::newRow("Japanese") << u"再読み込み"_s << u"再試行"_s;
    QTest::newRow("Russian") << u"Обновить"_s << u"Повторить"_s;
    QTest::newRow("german") << u"Reload"_s << u"Retry"_s;
    QTest::newRow("de") << u"Reload"_s << u"Retry"_s;
  }

  void SpeaksEachLanguage() {
    QFETCH(const QString, own);
    Translations translations;
    // Nothing of the language before is left.
    translations.Take(u"Russian"_s);
    translations.Take(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(Spoken("WebWindow", "Reload"), own);
    QTEST(Spoken("QPlatformTheme", "Retry"), "qt");
  }

  // Also a window that another one owns hears of it once, and of nothing but the one call.
  void TellsEachWindowOnce() {
    CountingWindow main;
    CountingWindow owned(&main, Qt::Dialog);
    CountingWindow control(&owned);
    {
      Translations translations;
      translations.Take(u"German"_s);
      QCoreApplication::sendPostedEvents();
      QCOMPARE(main.changes + owned.changes + control.changes, 0);
      SendLanguageChange();
      QCoreApplication::sendPostedEvents();
      for (const CountingWindow* window : {&main, &owned, &control}) QCOMPARE(window->changes, 1);
    }
    QCOMPARE(Spoken("WebWindow", "Reload"), u"Reload"_s);
  }
};

OMNI_TEST(TestTranslations)
#include "test_translations.moc"
