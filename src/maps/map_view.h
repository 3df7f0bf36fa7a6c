// SPDX-License-Identifier: GPL-3.0-or-later
// picOuter and picInner of every map window: the picture of a map in its frame, panned by mouse and keys, with lines,
// circles and labels upon it. The window says what is drawn, in pixels of the picture; the view paints it.
#pragma once

#include <QWidget>
#include <optional>

#include "maps/map_fit.h"
#include "maps/map_labels.h"
#include "maps/map_layer.h"
#include "platform/loose_background.h"

// The widget picOuter. A window sets picture and overlay, and fits the view to itself.
class MapView : public QWidget, public MapLabels {
  Q_OBJECT

 public:
  explicit MapView(QWidget* parent);

  // size: the map's size in pixels; picture may have been read with fewer.
  void SetPicture(const QImage& picture, const QSize& size);
  const QImage& Picture() const { return layer_.Picture(); }
  QSize PictureSize() const { return fit_.picture; }
  void SetOverlay(const MapOverlay& overlay);
  const MapOverlay& Overlay() const { return layer_.Overlay(); }

  // Prepares fonts and memory for a first picture in a frame of that size, while the picture is being read.
  void Prepare(const QSize& frame);
  // Gives picOuter the window's width below its bar and the window's whole height, so that its lowest rows are cut off.
  // A picture that the user has moved keeps the point in its middle; any other shows its home point (SetHome), or its
  // middle where it has none.
  void FitMapToWindow(const QSize& window, int menuBarHeight);
  // The point of the picture that FitMapToWindow and the Home key bring into view; none: the picture's middle. Forgets
  // where the user has moved the map to. bottomRoom: pixels below the picture, see kMapBottomRoom.
  void SetHome(const std::optional<QPointF>& point, int bottomRoom);
  const MapFit& Fit() const { return fit_; }
  // Place of the picture inside picOuter.
  QRect picInner() const { return {fit_.place, fit_.picture}; }

  // Size in pixels of a label with this text; the logic of a map window places its labels by it.
  QSizeF LabelSize(const QString& text) const;
  const QList<MapOverlay::Label>& Labels() const override { return layer_.Overlay().labels; }
  QRect LabelRect(qsizetype index) const override;
  qsizetype FocusedLabel() const override { return focused_; }
  // Moves the keyboard's focus to a label and the label into view.
  void FocusLabel(qsizetype index);
  void PressLabel(qsizetype index, bool byKeyboard) override;

 Q_SIGNALS:
  // A clickable label was clicked or pressed by keyboard. globalPoint: where the label's menu opens.
  void LabelClicked(const QString& name, const QPoint& globalPoint, bool byKeyboard);
  // The sign of a closable label was clicked, or the Delete key pressed upon it.
  void LabelClosed(const QString& name);
  // A full stop (1) or a comma (-1) was pressed upon the label that has the focus.
  void NextPartnerWanted(qsizetype index, int step);
  // The pointer has come upon a label, or the keyboard's focus has; -1: it has left it. Told again when the labels are
  // others.
  void LabelPointed(qsizetype index);
  // The point of the picture under the pointer; none: the pointer is beside it.
  void PointerMoved(const std::optional<QPointF>& point);
  // The user has moved the picture.
  void Panned(int left, int top);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void changeEvent(QEvent* event) override;

 private:
  void UpdateStyle();
  void PaintBeside();
  void UpdateCursor(const QPoint& pointer);
  void FollowPointer(const QPoint& pointer);
  void Point(qsizetype index);
  void ShowTip(qsizetype index, const QPoint& globalPoint);
  QRect CloseSign(qsizetype index) const;
  bool LabelKey(int key);
  void PanBy(const QPoint& step);
  void StorePan();
  bool PanByKey(int key, Qt::KeyboardModifiers modifiers);
  void ShowLabel(qsizetype index);
  qsizetype LabelAt(const QPoint& place) const;
  qsizetype NextClickable(qsizetype from, int step) const;
  // Rows of picOuter below the window's edge.
  int HiddenRows() const;

  MapLayer layer_;
  MapFit fit_;
  std::optional<QPointF> home_;
  int homeRoom_ = 0;
  std::optional<QPointF> middle_;    // point of the picture in the middle of what is seen, once the user has moved it
  std::optional<QPoint> dragPoint_;  // point of the picture where the left button went down
  QPoint pressedAt_;
  qsizetype pressedLabel_ = -1;  // label under the left button
  qsizetype pointed_ = -1;       // label under the pointer, or that the focus has reached last
  qsizetype focused_ = -1;
  bool painting_ = false;  // another thread paints a frame
  LooseBackground painter_;
};
