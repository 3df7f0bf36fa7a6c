// SPDX-License-Identifier: GPL-3.0-or-later
// A label of the bar that can be clicked, reached by Tab and read aloud; lit while something is under way.
#pragma once

#include <QToolButton>

class BarLabel : public QToolButton {
  Q_OBJECT

 public:
  BarLabel(const QString& name, QWidget* parent);

  void SetCaption(const QString& caption);
  // White on the highlight colour, or plain.
  void SetLit(bool lit);
  bool Lit() const { return lit_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  QSize sizeHint() const override;

 private:
  bool lit_ = false;
};
