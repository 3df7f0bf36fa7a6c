// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/save_all_line.h"

#include <QEvent>
#include <QLayout>

using namespace Qt::StringLiterals;

SaveAllLine::SaveAllLine(SaveAll& saving, QWidget* window)
    : ActionLine(u"saveAllLine"_s, {u"cmdStop"_s}, window), saving_(saving) {
  setAutoFillBackground(true);
  connect(this, &ActionLine::Pressed, &saving_, &SaveAll::Stop);
  connect(&saving_, &SaveAll::Progressed, this, &SaveAllLine::ShowProgress);
  connect(&saving_, &SaveAll::Ended, this, &QObject::deleteLater);
  window->installEventFilter(this);
  ShowProgress();
}

void SaveAllLine::ShowProgress() {
  SetLine(tr("%1 of %2 pictures have been saved").arg(saving_.Saved()).arg(saving_.Count()), {tr("Stop")});
  Place();
  raise();
}

void SaveAllLine::Place() {
  const QSize window = parentWidget()->size();
  const int high = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(window.width()) : sizeHint().height();
  setGeometry(0, window.height() - high, window.width(), high);
}

bool SaveAllLine::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Place();
  return ActionLine::eventFilter(watched, event);
}

void SaveAllLine::changeEvent(QEvent* event) {
  ActionLine::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) ShowProgress();
}
