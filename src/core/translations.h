// SPDX-License-Identifier: GPL-3.0-or-later
// The words that no language file has a line for, and the texts of Qt's own dialogs, in the language that the user has
// chosen. The load sequence makes one and hands it each language; all code asks it through tr().
#pragma once

#include <QReadWriteLock>
#include <QTranslator>
#include <memory>

// Installs itself once and for good: installing a translator for each language would send a LanguageChange to all
// windows for every one that comes and goes. Whoever calls Take tells the windows afterwards, by SendLanguageChange.
class Translations : public QTranslator {
 public:
  Translations();
  ~Translations() override;

  // languageName as in Config; a name that is not one of the eight known ones takes English. No window is told.
  void Take(const QString& languageName);

  bool isEmpty() const override;
  QString translate(const char* context, const char* sourceText, const char* disambiguation, int n) const override;

 private:
  struct Catalogue;

  mutable QReadWriteLock lock_;  // the network thread asks for the texts of Qt's errors
  std::unique_ptr<Catalogue> catalogue_;
};
