// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plain_tip.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

QString PlainTip(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  return u"<span style=\"white-space:pre-wrap\">"_s + text.toHtmlEscaped() + u"</span>"_s;
}
