// SPDX-License-Identifier: GPL-3.0-or-later
// Form2: one picture as large as the monitor allows, with zoom and drag. A left click on a cell of the page or of the
// history opens it; Windows makes it.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

#include "core/program.h"
#include "display/picture_canvas.h"
#include "display/picture_source.h"
#include "display/viewer_picture.h"
#include "ui/base_window.h"
#include "ui/menu_opener.h"

// The viewer. There is one; a second click shows its picture in the open one.
class Form2 : public BaseWindow {
  Q_OBJECT

 public:
  // What it works with; all outlive it.
  struct Dependencies {
    ViewerPicture::Dependencies picture;
    Background& drawing;
    const Program& program;
    MenuOpener& menus;
  };

  Form2(const Dependencies& services, QWidget* mainWindow);

  // Shows the picture on the monitor of the pointer, once it is there or has let wait too long. A film opens no window.
  void Open(const PictureList& pictures);
  // Previous (-1) or next (1) picture of the same window.
  void Step(int by);
  // Another window that the viewer's menu has opened is to be seen.
  void LeaveTop() { SetTopMost(false); }
  // Path of the picture that was asked for last; empty before the first.
  QString ViewerFile() const { return list_.pictures.value(list_.at).file; }
  const ViewerPicture& Shown() const { return picture_; }
  void ShowTexts() override;

 Q_SIGNALS:
  void FilmFound(const SourcePicture& picture);
  // That film is to be played: it was clicked, or Return was pressed on the mark that stands for it among pictures.
  void FilmWanted(const SourcePicture& picture);

 protected:
  void PlaceWindow() override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Load(const SourcePicture& picture);
  // Opens the window of a picture that is still being decoded.
  void OpenAhead(const SourcePicture& picture, QSize size);
  void TakePicture();
  void TakeFilm(const SourcePicture& picture);
  void TakeFailure(const SourcePicture& picture, bool noSandbox);
  void TellWaiting();
  void ShowWindow();
  void SetTopMost(bool topMost);
  void CloseByClick();
  void OpenMenu(QPoint at, bool byKeyboard);
  QString Details() const;
  QString NoteText() const;
  QSize PictureBox() const;
  void TakeMonitor();
  QRect Monitor() const { return {MonLeft, MonTop, MonW, MonH}; }

  // Why the window shows a line of text in its middle.
  enum class Note { None, Waiting, Film, Gone, NoSandbox };

  const Program& program_;
  MenuOpener& menus_;
  ViewerPicture picture_;
  ViewerZoom zoom_;
  PictureCanvas* AniGIF;
  QLabel* lblInfo;
  PictureList list_;
  SourcePicture source_;  // whose title is shown
  QSize size_;            // of the picture; empty: it is not known
  int MonLeft = 0;        // work area of the monitor
  int MonTop = 0;
  int MonW = 0;
  int MonH = 0;
  Note note_ = Note::None;
  bool typeKnown_ = false;  // of the picture that is being loaded; bytes of no type may be a film
  bool stepping_ = false;
  bool openedAhead_ = false;  // the window stands already as its picture wants it
  QTimer waitTimer_;
  QElapsedTimer opened_;
};
