// SPDX-License-Identifier: GPL-3.0-or-later
// picOuter and picInner of every map window: the picture of a map in its frame, panned by mouse and keys, with lines,
// circles and labels upon it. The window says what is drawn, in pixels of the picture; the view paints it.
#pragma once

#include <QWidget>
#include <optional>

#include "maps/map_fit.h"
#include "maps/map_layer.h"

class MapView : public QWidget {
  Q_OBJECT

 public:
  explicit MapView(QWidget* parent);

  void SetPicture(const QImage& picture);
  const QImage& Picture() const { return layer_.Picture(); }
  void SetOverlay(const MapOverlay& overlay);
  const MapOverlay& Overlay() const { return layer_.Overlay(); }

  // Makes ready for a first picture in a frame of that size, while the picture is being read.
  void Prepare(const QSize& frame);
  // picOuter takes the window's width below its bar, and the window's whole height: its lowest rows are cut off.
  void FitMapToWindow(const QSize& window, int menuBarHeight);
  // Moves the point of the picture into view; the Home key comes back to it.
  void KeepInView(const QPointF& point, int bottomRoom);
  const MapFit& Fit() const { return fit_; }
  // Place of the picture inside picOuter.
  QRect picInner() const { return {fit_.place, layer_.Picture().size()}; }

  // Size of a label's text, for whoever places labels.
  QSizeF LabelSize(const QString& text) const;
  // Place of a label inside picOuter, its box included; empty for an index beyond the list.
  QRect LabelRect(qsizetype index) const;
  // Index of the clickable label that has the focus within the view, -1: the map itself.
  qsizetype FocusedLabel() const { return focused_; }
  // What a click on the label does; nothing for one that is not clickable.
  void PressLabel(qsizetype index, bool byKeyboard);

 Q_SIGNALS:
  // A click on a clickable label, or its press by keyboard. globalPoint: where a menu of it opens.
  void LabelClicked(const QString& name, const QPoint& globalPoint, bool byKeyboard);
  // The user has moved the picture.
  void Panned(int left, int top);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void changeEvent(QEvent* event) override;

 private:
  void UpdateLook();
  void UpdateCursor(const QPoint& pointer);
  void PanBy(const QPoint& step);
  bool PanByKey(int key, Qt::KeyboardModifiers modifiers);
  void FocusLabel(qsizetype index);
  void ShowLabel(qsizetype index);
  qsizetype LabelAt(const QPoint& place) const;
  qsizetype NextClickable(qsizetype from, int step) const;
  // Rows of picOuter below the window's edge.
  int HiddenRows() const;

  MapLayer layer_;
  MapFit fit_;
  std::optional<QPointF> home_;
  int homeRoom_ = 0;
  std::optional<QPoint> held_;   // point of the picture where the left button went down
  qsizetype pressedLabel_ = -1;  // label under the left button
  qsizetype focused_ = -1;
};
