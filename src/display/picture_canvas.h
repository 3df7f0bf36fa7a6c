// SPDX-License-Identifier: GPL-3.0-or-later
// Paints a picture where a ViewerZoom places it, plays its animation, and turns mouse and keys into zoom and moves: at
// once from the nearest copy while something moves, smoothed beside the event loop when it stands. AniGIF and
// MouseHelper of Form2, and both halves of the comparison.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include "display/picture_scales.h"
#include "display/viewer_zoom.h"
#include "platform/background.h"
#include "platform/picture/picture_answer.h"
#include "platform/wanted.h"

// The widget of one picture.
class PictureCanvas : public QWidget {
  Q_OBJECT

 public:
  // zoom may be shared by several canvases of the same size. drawing: smooths what is shown.
  PictureCanvas(ViewerZoom& zoom, Background& drawing, QWidget* parent);

  // Another picture, or with samePicture the same in another resolution: then what is seen stays until it is drawn
  // anew.
  void SetPicture(const QList<PictureFrame>& frames, const PictureScales& scales, bool samePicture);
  void Clear();
  // A line in the middle of the window, over a picture or without one; empty: none.
  void SetNote(const QString& note);
  bool HasPicture() const { return !scales_.IsEmpty(); }
  // What the window shows is as good as it gets: nothing moves, nothing is being drawn.
  bool IsRefined() const;
  // Zooms, moves, fits; false: the key is none of these.
  bool ZoomByKey(QKeyEvent* event);

 Q_SIGNALS:
  // The left button was pressed and released at one place.
  void Clicked();
  void MenuWanted(QPoint at, bool byKeyboard);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  // An image of the whole window, and what it shows.
  struct Drawn {
    QImage image;
    QRectF place;     // of the picture, device pixels
    qint64 pixels{};  // which pixels: the key of the image that was drawn
    bool Fits(const QRectF& where, QSize frame) const { return place == where && image.size() == frame; }
  };

  QRectF Place() const;
  QSize Frame() const;
  void ZoomChanged();
  void Refine();
  void NextFrame();

  ViewerZoom& zoom_;
  Background& drawing_;
  QList<PictureFrame> frames_;
  PictureScales scales_;  // of the frame that is shown
  qsizetype frame_ = 0;
  QTimer frameTimer_;
  QString note_;
  Drawn drawn_;
  bool busy_ = false;  // another thread draws
  Wanted wanted_;      // the picture that is shown
  bool dragging_ = false;
  QPoint pressedAt_;
  QPoint draggedTo_;
  bool moved_ = false;  // too far since the press for a click
};
