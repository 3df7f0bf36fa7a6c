// SPDX-License-Identifier: GPL-3.0-or-later
// The actions on one picture that the menus of the page, the history, the viewer and the lookup window offer: finds the
// file that a choice is about, and has it copied, saved or mailed. Form1 owns the only one.
#pragma once

#include <QObject>
#include <QWidget>

#include "app/page_logic.h"
#include "app/picture_drag.h"
#include "app/services.h"
#include "app/windows.h"
#include "display/picture_copy.h"
#include "display/picture_save.h"
#include "display/save_all.h"
#include "display/source_file.h"

// Handlers of the commands about a picture.
class PictureActions : public QObject {
  Q_OBJECT

 public:
  // What it works with; all outlive it. It is a child of the main window.
  struct Dependencies {
    Services& services;
    PageLogic& logic;
    Windows& windows;
    QWidget* mainWindow;
  };

  explicit PictureActions(const Dependencies& dependencies);

  // Finds the file of the picture that a choice is about: the window whose menu it was says which one. Call it in the
  // handler of the choice itself. found is called once, later; with a file that has vanished where there is none.
  void FindSourceFile(const MenuChoice& choice, const SourceFiles::Found& found);
  // The clipboard's side of copy and paste.
  PictureCopy& Clipboard() { return copy_; }
  // The image that a window shows and that has no file, onto the clipboard.
  void CopyImage(const QImage& image, QWidget* window);
  // The same into Map.bmp, and from there to where the user wants it; name: the suggested one.
  void SaveImageAs(const QImage& image, const QString& name, QWidget* window);
  // A picture of the page or of a history is dragged out of its window.
  void Drag(const SourcePicture& picture, QWidget* window) { drag_.Begin(picture, window); }
  // All pictures of a page or of a history into a folder that the user chooses.
  void SaveAllPictures(const PictureList& list, QWidget* window);
  // Says in one line, in the window of the choice, what cannot be done.
  void Tell(const MenuChoice& choice, const QString& text) const;

 private:
  void RegisterCommands();
  // The menu of the operator's picture, by the index of its entries.
  void MnuPicClick(const MenuChoice& choice);
  void CopyPicture(const MenuChoice& choice);
  void SaveToDesktop(const MenuChoice& choice);
  void SaveAs(const MenuChoice& choice);
  void MailPicture(const MenuChoice& choice);
  void ShowInfo(const MenuChoice& choice);
  // then: what follows once the clipboard holds the picture.
  void CopyThen(const MenuChoice& choice, const std::function<void()>& then);
  // The open window of a choice, or else the main window.
  QWidget* WindowOf(const MenuChoice& choice) const;
  // Asks where to, and writes the file there.
  void SaveFileAs(const SourceFile& file, const QString& name, QWidget* window);
  static void TellWindow(QWidget* window, const QString& text);
  static void TellSaved(QWidget* window, const SavedCopy& copy);
  void SaveAllEnded(const QString& failed);
  // The operator's picture, saved as Desktop.bmp from the window's picture first.
  void FindDesktopBmp(const Form12& window, const SourceFiles::Found& found);

  Dependencies deps_;
  SourceFiles files_;
  PictureCopy copy_;
  Wanted copyWanted_;  // the copy that was chosen last
  // What the user has asked for is written on a thread of its own: a slow folder holds up nothing else.
  Background writer_;
  PictureDrag drag_;
  SaveAll saveAll_;
  QPointer<QWidget> saveAllWindow_;  // whose pictures are being saved
};
