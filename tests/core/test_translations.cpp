// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the program and of Qt's own dialogs in each language, and that windows hear of a change once.
#include <QApplication>
#include <QWidget>

#include "core/language_file.h"
#include "core/translations.h"
#include "test_suite.h"
#include "ui/language_change.h"

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
  void SpeaksEachLanguage() {
    const auto check = [](const QString& language, const QString& own, const QString& qt) {
      Translations translations;
      // Nothing of the language before is left.
      translations.Take(u"Russian"_s);
      translations.Take(language);
      QCOMPARE(Spoken("WebWindow", "Reload") + u'|' + Spoken("QPlatformTheme", "Retry"), own + u'|' + qt);
    };
    for (const QString& english : {u"English"_s, u"german"_s}) check(english, u"Reload"_s, u"Retry"_s);
    check(u"Spanish"_s, u"Recargar"_s, u"Reintentar"_s);
    check(u"German"_s, u"Neu laden"_s, u"Wiederholen"_s);
    check(u"French"_s, u"Actualiser"_s, u"Réessayer"_s);
    check(u"Dutch"_s, u"Vernieuwen"_s, u"Opnieuw proberen"_s);
    check(u"Polish"_s, u"Odśwież"_s, u"Ponów"_s);
    check(u"Japanese"_s, u"再読み込み"_s, u"再試行"_s);
    check(u"Russian"_s, u"Обновить"_s, u"Повторить"_s);
  }

  // Loading the words sends nothing; SendLanguageChange() then reaches every window once, owned ones too.
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
