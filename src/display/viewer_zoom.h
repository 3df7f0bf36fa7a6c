// SPDX-License-Identifier: GPL-3.0-or-later
// Size and place of a picture in the viewer's window: fit, zoom in small steps about the pointer, moves by drag and
// key. Lengths are the window's pixels. Form2 owns one, the comparison one for its two pictures; their canvases paint
// by it.
#pragma once

#include <QObject>
#include <QPointF>
#include <QRect>
#include <QSizeF>
#include <QTimer>

// The window, frame included, in which a picture opens: nine tenths of the monitor in the direction that the picture
// fills, and centred. frame: what the desktop adds to the window; least: the smallest client area.
QRect FitWindow(QSize picture, const QRect& monitor, QSize frame, QSize least);

// Zoom and place of one picture.
class ViewerZoom : public QObject {
  Q_OBJECT

 public:
  static constexpr int kTick = 120;    // rotation of a wheel that begins kSteps steps
  static constexpr int kSteps = 50;    // of a tick: many small ones, so that the zoom looks smooth
  static constexpr int kLargest = 32;  // times the natural size

  explicit ViewerZoom(QObject* parent = nullptr);

  // Another picture, of this natural size: fits it.
  void SetPicture(QSizeF natural);
  // The picture turns out to be of this natural size: it is fitted again unless the user has moved or zoomed it.
  void SetNatural(QSizeF natural);
  // The client area. A fitted picture fits again, any other keeps the point in the middle.
  void SetClient(QSizeF client);
  // Stretches the picture to the client area as far as its proportions allow.
  void Fit();
  // Natural size about the middle; a picture smaller than the client area is centred in it.
  void ShowNatural();
  // The place of the pointer, about which is zoomed.
  void PointerMoved(QPointF pointer);
  // A turn of the wheel in eighths of a degree. Turns add up to ticks; a tick during the steps extends the target.
  void Turn(int rotation);
  // The next of the small steps; false: there is none, or the picture must not become larger or smaller.
  bool Step();
  bool IsMoving() const { return steps_ != 0; }
  // Moves the picture; a piece of it always stays in the window.
  void MoveBy(QPointF by);

  QRectF Place() const { return place_; }
  QSizeF Client() const { return client_; }

 Q_SIGNALS:
  // Place() is another.
  void Changed();
  // The last step is done.
  void Settled();

 private:
  void TakeRatios();
  void Tick();

  QSizeF natural_{1, 1};
  QSizeF client_{1, 1};
  QRectF place_{0, 0, 1, 1};
  double GrabX = 0;  // the pointer when it moved last
  double GrabY = 0;
  QPointF anchor_;  // the point of the picture that was nearest to it then, about which is zoomed
  QPointF ratio_;   // the same point in the picture, 0 to 1 from its left and upper edge
  bool fitted_ = true;
  int rotation_ = 0;  // that is no whole tick yet
  int steps_ = 0;     // still to be done; below 0 the picture shrinks
  QTimer stepTimer_;
};
