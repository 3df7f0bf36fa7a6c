// SPDX-License-Identifier: GPL-3.0-or-later
// The words that the language files do not have, and the texts of Qt's own dialogs, in the user's language. Services
// makes one and the load sequence hands it each language; all code asks it through tr().
#pragma once

#include <QReadWriteLock>
#include <QTranslator>
#include <memory>

// One translator that is installed for the whole run: installing and removing one for each language would send a
// LanguageChange to all windows each time. Whoever calls Take informs the windows afterwards by SendLanguageChange.
class Translations : public QTranslator {
 public:
  Translations();
  ~Translations() override;

  // Loads a language; languageName as in Config, an unknown one takes English. The windows are not informed.
  void Take(const QString& languageName);

  bool isEmpty() const override;
  QString translate(const char* context, const char* sourceText, const char* disambiguation, int n) const override;

 private:
  struct Catalogue;

  mutable QReadWriteLock lock_;  // the network thread asks for the texts of Qt's errors
  std::unique_ptr<Catalogue> catalogue_;
};
