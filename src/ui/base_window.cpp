// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/base_window.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QRadioButton>

#include "ui/window_place.h"

BaseWindow::BaseWindow(QWidget* opener, Qt::WindowFlags kind) : QWidget(opener, kind) {
  setAttribute(Qt::WA_DeleteOnClose);
}

void BaseWindow::SetDefaultButton(QAbstractButton* button) {
  defaultButton_ = button;
}

void BaseWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LanguageChange && shown_) ShowTexts();
}

void BaseWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (event->isAccepted()) Q_EMIT Closed();
}

void BaseWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      close();
      return;
    case Qt::Key_F1:
      Q_EMIT HelpWanted();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter: {
      // Press the focused button too: not every desktop's style lets Return do that.
      auto* focused = qobject_cast<QAbstractButton*>(focusWidget());
      // A check or radio box turns by Space; Return is meant for the window.
      const bool isBox =
          qobject_cast<QCheckBox*>(focused) != nullptr || qobject_cast<QRadioButton*>(focused) != nullptr;
      if (isBox && defaultButton_ != nullptr) focused = nullptr;
      QAbstractButton* button = focused != nullptr ? focused : defaultButton_;
      if (button != nullptr && button->isEnabled()) button->click();
      return;
    }
    default:
      QWidget::keyPressEvent(event);
  }
}

void BaseWindow::setVisible(bool visible) {
  if (visible && !shown_) {
    shown_ = true;
    ShowTexts();
    PlaceWindow();
  }
  QWidget::setVisible(visible);
}

void BaseWindow::PlaceWindow() {
  const QWidget* opener = parentWidget() != nullptr ? parentWidget()->window() : nullptr;
  const QPoint middle = opener != nullptr ? opener->frameGeometry().center() : MonitorAt(QPoint()).center();
  if (!testAttribute(Qt::WA_Resized)) adjustSize();
  QRect place(QPoint(), size() + FrameOf(this));
  place.moveCenter(middle);
  move(KeptOnMonitor(place, middle).topLeft());
}
