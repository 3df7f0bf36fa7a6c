// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include "core/language_file.h"

using namespace Qt::StringLiterals;

struct Translations::Catalogue {
  QTranslator own;
  QTranslator qt;  // empty where the system has no translations of Qt
};

Translations::Translations() {
  QCoreApplication::installTranslator(this);
}

Translations::~Translations() {
  QCoreApplication::removeTranslator(this);
}

void Translations::Take(const QString& languageName) {
  auto next = std::make_unique<Catalogue>();
  const QString code = LanguageCode(languageName);
  // English is the language of the sources: its catalogue holds plural forms only and may be empty.
  std::ignore = next->own.load(u":/translations/omni-perch_"_s + code);
  std::ignore = next->qt.load(u"qtbase_"_s + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  const QWriteLocker locker(&lock_);
  catalogue_ = std::move(next);
}

// Empty until the first language is loaded, so that Qt sends no LanguageChange at the installation.
bool Translations::isEmpty() const {
  const QReadLocker locker(&lock_);
  return catalogue_ == nullptr;
}

QString Translations::translate(const char* context, const char* sourceText, const char* disambiguation, int n) const {
  const QReadLocker locker(&lock_);
  if (!catalogue_) return {};
  const QString text = catalogue_->own.translate(context, sourceText, disambiguation, n);
  return text.isNull() ? catalogue_->qt.translate(context, sourceText, disambiguation, n) : text;
}
