// SPDX-License-Identifier: GPL-3.0-or-later
// The widget of one cell: paints a Cell, plays its animation, and passes presses on. The page's view makes one for each
// slot of the layout.
#pragma once

#include <QAccessibleWidget>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include "page/cell_painter.h"
#include "page/hover_tip.h"

// The widget of one cell.
class ThumbCell : public QWidget {
  Q_OBJECT

 public:
  ThumbCell(int slot, QWidget* parent);

  void SetCell(const Cell& cell);
  // Repaints where the value differs from what the screen shows.
  void Refresh();
  // Scale, font and texts; geometry is set by the view.
  void SetTheme(const CellTheme& theme);
  int Slot() const { return slot_; }
  const Cell& Shown() const { return cell_; }
  // The picture's tip, which becomes part of the description for screen readers; empty: none.
  void SetTipText(const QString& text);
  // The caption that names the sender, in pixels of the cell.
  QRect SenderPlace() const;
  // The accessible name; empty: the call or the caption of the cell.
  void SetName(const QString& name);
  // Adds to the description the details that Cell does not hold. emptyName: the accessible name of a cell without a
  // site.
  void SetDetails(const QString& modeText, const QString& sentTime, const QString& emptyName);

 Q_SIGNALS:
  // A press by mouse (left button), by Return or Space, or by a screen reader.
  void Pressed(int slot);
  // Ctrl and a press, or Ctrl and Space.
  void MarkPressed(int slot);
  // A press on the caption that names the sender.
  void SenderPressed(int slot);
  // A press on the light of the site's cam, or the key C.
  void CamPressed(int slot);
  // The pointer has begun to drag the picture.
  void DragWanted(int slot);
  void MenuWanted(int slot, QPoint at, bool byKeyboard);
  // The pointer has come to a part that has a tip, or left the last one.
  void Hovered(int slot, TipPart part);
  void HoverLeft();
  void FocusChanged(int slot, bool in);
  // An arrow key asks for a neighbour.
  void Moved(int slot, Qt::Key key);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void NextFrame();
  void MakePixmap();
  void Describe();
  QString Age() const;
  bool IsOnCam(const QPointF& place) const;
  std::optional<TipPart> PartAt(const QPointF& place) const;

  int slot_;
  Cell cell_;
  Cell painted_;  // the value that the screen shows
  CellTheme theme_;
  QString name_;
  QString modeText_;
  QString sentTime_;
  QString emptyName_;
  QString tipText_;
  std::optional<TipPart> hovered_;
  std::optional<QPointF> pressedAt_;  // on a picture: it may become a press or a drag
  qsizetype frame_ = 0;
  QPixmap pixmap_;     // the frame at the size that it is painted with
  bool stale_ = true;  // pixmap_ has to be made again
  QTimer frameTimer_;
};

// Presents a ThumbCell to assistive technology as a button with a press action.
class AccessibleCell : public QAccessibleWidget {
 public:
  explicit AccessibleCell(ThumbCell* cell);
  QStringList actionNames() const override;
  void doAction(const QString& actionName) override;
  // Has Qt make an AccessibleCell for each ThumbCell. To be called once, before the first window.
  static void Install();
};
