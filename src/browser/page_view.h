// SPDX-License-Identifier: GPL-3.0-or-later
// What the program tells the window frmStView, which shows a page about a station's place, and what comes back of it.
// Shared by the program and the library omni_web; plain values only.
#pragma once

#include <QString>
#include <QUrl>

// The texts of the window, in the language of the program.
struct PageViewTexts {
  QString caption;
  QString lblCopy;
  QString lblSave;
  QString lblPaste;
  QString saveTip;
  QString pasteTip;
};

// What is to be done with the picture that was taken of the page.
enum class PageViewAction { Copy, Save, Paste };

// PageViewUrl in its two parts.
struct PageViewPlace {
  QUrl address;
  QString title;  // the call, or another text
};

// Splits PageViewUrl at its first "*"; a text without one is all address.
inline PageViewPlace SplitPageViewUrl(const QString& PageViewUrl) {
  const qsizetype star = PageViewUrl.indexOf(QLatin1Char('*'));
  if (star < 0) return {QUrl(PageViewUrl), {}};
  return {QUrl(PageViewUrl.left(star)), PageViewUrl.mid(star + 1)};
}
