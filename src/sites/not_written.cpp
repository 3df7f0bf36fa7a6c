// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/not_written.h"

#include <QCoreApplication>
#include <QLayout>

namespace {

// Context of the words in data/translations.
class NotWrittenWords {
  Q_DECLARE_TR_FUNCTIONS(NotWrittenWords)
};

}  // namespace

void ShowNotWritten(QLabel* line, const QStringList& files) {
  const QString names = files.join(QStringLiteral(", "));
  line->setText(files.isEmpty()
                    ? QString()
                    : NotWrittenWords::tr("%1 could not be written: is the disk full, or the folder read-only? Nothing "
                                          "has been changed; what you typed stays here.")
                          .arg(names));
  line->setAccessibleName(line->text());
  line->setVisible(!files.isEmpty());
  QWidget* window = line->window();
  if (files.isEmpty() || window->layout() == nullptr) return;
  // Without more room the line would be taken out of the boxes above it.
  window->layout()->activate();
  const int height = window->layout()->totalHeightForWidth(window->width());
  window->resize(window->size().expandedTo(window->layout()->totalSizeHint()).expandedTo({0, height}));
}
