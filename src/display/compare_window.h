// SPDX-License-Identifier: GPL-3.0-or-later
// Two pictures side by side with one zoom and one place, so that two receptions of one picture can be compared. Opened
// for the two marked cells of the page or of a history.
#pragma once

#include <QLabel>
#include <array>

#include "core/program.h"
#include "display/picture_canvas.h"
#include "display/viewer_picture.h"
#include "ui/base_window.h"

// The window of the comparison. There is one.
class CompareWindow : public BaseWindow {
  Q_OBJECT

 public:
  // What it works with; all outlive it.
  struct Dependencies {
    ViewerPicture::Dependencies picture;
    Background& drawing;
    const Program& program;
  };

  CompareWindow(const Dependencies& services, QWidget* opener);

  // Shows the first two pictures of the list.
  void Open(const PictureList& pair);
  void ShowTexts() override;

 protected:
  void PlaceWindow() override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // One of the two pictures.
  struct Side {
    ViewerPicture picture;
    PictureCanvas* canvas;
    QLabel* caption;
    SourcePicture source;
    bool failed = false;
    Side(const Dependencies& services, ViewerZoom& zoom, QWidget* parent)
        : picture(services.picture, parent),
          canvas(new PictureCanvas(zoom, services.drawing, parent)),
          caption(new QLabel(parent)) {}
  };

  void Connect(Side& side);
  // A picture has come: the zoom is about the larger of the two.
  void TakePicture(Side& side);
  void TakeFailure(Side& side);

  const Program& program_;
  ViewerZoom zoom_;
  Side left_;
  Side right_;
};
