// SPDX-License-Identifier: GPL-3.0-or-later
// Paste into EasyPal and print, for the menus of the page, the history, the viewer and the lookup window, and for what
// a window shows without a file. The main window makes the only one.
#pragma once

#include <QImage>
#include <QObject>

#include "app/picture_actions.h"

// Handlers of the commands that hand a picture to EasyPal or to a printer.
class PictureTransfer : public QObject {
  Q_OBJECT

 public:
  // pictures: finds what a choice is about. mainWindow: messages stand in it when their window has gone.
  PictureTransfer(Services& services, Windows& windows, PictureActions& pictures, QWidget* mainWindow);

  // Pastes what a window shows; over: that window.
  void PasteImage(const QImage& image, QWidget* over);

 private:
  void PasteToEasyPal(const MenuChoice& choice);
  void PasteOperatorPicture(const MenuChoice& choice);
  void Print(const MenuChoice& choice);
  void Paste(const SourceFile& file, const MenuChoice& choice);

  Services& services_;
  Windows& windows_;
  PictureActions& pictures_;
};
