// SPDX-License-Identifier: GPL-3.0-or-later
// A label of a window's bar that can be clicked, reached by Tab and read aloud. The bars of the main window and of the
// lookup window are made of these; a bar may make one narrower than its caption.
#pragma once

#include <QToolButton>

// The label: a caption that is pressed by mouse, Space or Return; lit while something is under way.
class BarLabel : public QToolButton {
  Q_OBJECT

 public:
  BarLabel(const QString& name, QWidget* parent);

  // Sets the whole caption, outer blanks included. A screen reader says it, and the tip shows it while the label is too
  // narrow for it.
  void SetCaption(const QString& caption);
  // Sets the caption that is painted while the label is too narrow for the whole one; empty: the whole caption is
  // elided.
  void SetBriefCaption(const QString& caption);
  // Sets a text that the tip says below the caption, and a screen reader as the description; empty: none.
  void SetNote(const QString& note);
  // Paints the caption white on the highlight colour, or plain.
  void SetLit(bool lit);
  bool Lit() const { return lit_; }

  // Widths in pixels for the whole caption, for the brief one, and the least at which labels can still be told apart.
  int WholeWidth() const { return WidthOf(text()); }
  int BriefWidth() const { return WidthOf(brief_.isEmpty() ? text() : brief_); }
  int LeastWidth() const;
  // The caption as it is painted at the present width.
  QString ShownCaption() const;

  // Removes the label from a bar that has no room for it, and puts it back; independent of whether the window wants the
  // label to be visible.
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
  QString note_;
  bool lit_ = false;
  bool wanted_ = true;
  bool moved_ = false;
};
