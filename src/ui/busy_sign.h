// SPDX-License-Identifier: GPL-3.0-or-later
// imgRefresh: the turning sign in the main window's bar while a poll is under way.
#pragma once

#include <QTimer>
#include <QWidget>

// Turns while it is visible.
class BusySign : public QWidget {
  Q_OBJECT

 public:
  explicit BusySign(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void Turn();

  QTimer timer_;
  int step_ = 0;
};
