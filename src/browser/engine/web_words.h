// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the browser windows in the eight languages; the language files have no lines for them. web_window and
// web_page show them.
#pragma once

#include <QString>

struct WebWords {
  QLatin1StringView language;
  // The bar and the menu.
  QStringView back;
  QStringView reload;
  QStringView cut;
  QStringView copy;
  QStringView paste;
  QStringView selectAll;
  QStringView encrypted;
  QStringView notEncrypted;
  QStringView notTrusted;
  // Names for screen readers.
  QStringView connection;
  QStringView address;
  QStringView page;
  QStringView message;
  // What is told below the page; those that end in a blank go on with what they are about.
  QStringView notOpened;
  QStringView noFiles;
  QStringView notSaved;
  QStringView answeredNo;
  QStringView notAnswered;
  QStringView refused;
  QStringView stopped;
};

// languageName as in Config; a name that is not known speaks English. Lasts as long as the library.
const WebWords& WebWordsOf(const QString& languageName);
