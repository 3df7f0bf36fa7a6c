// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/save_line.h"

#include <QDir>
#include <QLayout>

using namespace Qt::StringLiterals;

SaveLine::SaveLine(QWidget* parent) : ActionLine(u"saveLine"_s, {u"retryButton"_s, u"closeAnywayButton"_s}, parent) {
  connect(this, &ActionLine::Pressed, this, [this](int index) {
    if (index == 0) {
      Q_EMIT RetryWanted();
    } else {
      Q_EMIT DiscardWanted();
    }
  });
}

void SaveLine::SetFailure(const QString& path) {
  const bool isNew = path_.isEmpty() && !path.isEmpty();
  path_ = path;
  ShowTexts();
  if (isNew) Button(0)->setFocus();
}

void SaveLine::ShowTexts() {
  const QString text = tr("%1 could not be written. What you have entered is still here.");
  SetLine(path_.isEmpty() ? QString() : text.arg(QDir::toNativeSeparators(path_)),
          {tr("Try again"), tr("Close without saving")});
  if (path_.isEmpty() || !window()->isVisible() || window()->layout() == nullptr) return;
  // Without room for it the line would squeeze what stands above it.
  QLayout* rows = window()->layout();
  rows->activate();
  const int wanted =
      rows->hasHeightForWidth() ? rows->totalHeightForWidth(window()->width()) : window()->sizeHint().height();
  if (wanted > window()->height()) window()->resize(window()->width(), wanted);
}
