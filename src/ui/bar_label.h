// SPDX-License-Identifier: GPL-3.0-or-later
// A label of a window's bar that can be clicked, reached by Tab and read aloud. The bars of the main window and of the
// lookup window are made of these; who lays them out may make one narrower than its caption.
#pragma once

#include <QToolButton>

// A caption that is pressed by mouse, Space or Return; lit while something is under way.
class BarLabel : public QToolButton {
  Q_OBJECT

 public:
  BarLabel(const QString& name, QWidget* parent);

  // The whole caption, outer blanks included. It is what a screen reader says, and the tip wherever the label is too
  // narrow for it.
  void SetCaption(const QString& caption);
  // What is painted instead while the whole caption has no room; empty: only the whole caption, elided.
  void SetBriefCaption(const QString& caption);
  // White on the highlight colour, or plain.
  void SetLit(bool lit);
  bool Lit() const { return lit_; }

  // Pixels that the whole and the brief caption take, and the least that still tells one label from another.
  int WholeWidth() const { return WidthOf(text()); }
  int BriefWidth() const { return WidthOf(brief_.isEmpty() ? text() : brief_); }
  int LeastWidth() const;
  // The caption as it is painted at the present width.
  QString ShownCaption() const;

  // A bar takes a label that has no room off itself, and back again, without losing whether the label is wanted at all.
  void SetMoved(bool moved);
  bool Wanted() const { return wanted_; }
  bool Moved() const { return moved_; }
  void setVisible(bool visible) override;
  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int WidthOf(const QString& caption) const;
  void TakeTip();

  QString brief_;
  bool lit_ = false;
  bool wanted_ = true;
  bool moved_ = false;
};
