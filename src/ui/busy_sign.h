// SPDX-License-Identifier: GPL-3.0-or-later
// imgRefresh: the turning sign that a poll is under way.
#pragma once

#include <QTimer>
#include <QWidget>

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
