// SPDX-License-Identifier: GPL-3.0-or-later
// A bar whose slider goes at once to where the pointer is pressed or dragged: the position in the film, and the volume.
#pragma once

#include <QSlider>

// A level bar; keys move its slider too.
class FilmSlider : public QSlider {
  Q_OBJECT

 public:
  explicit FilmSlider(QWidget* parent);

  // Shows a value that the user has not chosen; nothing while the user drags.
  void Show(int value);

 Q_SIGNALS:
  // The user wants this value, by pointer or keys.
  void Wanted(int value);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void TakePointer(const QMouseEvent* event);
};
