// SPDX-License-Identifier: GPL-3.0-or-later
// Opens what the program cannot draw itself: a film in the player frmWmp, and a page about a station's place in
// frmStView. The menus and clicks of all windows lead here. Form1 owns the only one.
#pragma once

#include <QObject>

#include "app/picture_actions.h"
#include "app/picture_transfer.h"
#include "app/services.h"
#include "app/windows.h"
#include "display/film_player.h"

// The player and the page view.
class MediaViews : public QObject {
  Q_OBJECT

 public:
  // What it works with; all outlive it. It is a child of the main window.
  struct Dependencies {
    Services& services;
    Windows& windows;
    PictureActions& pictures;
    PictureTransfer& transfer;
    QWidget* mainWindow;
  };

  explicit MediaViews(const Dependencies& dependencies);

  // Sub-menus 31 and 50: 0 and 1 the place of the site, 2 and 3 that of the sender; 0 and 2 by its address.
  void MnuStViewClick(int index, const MenuSubject& subject);
  // PageViewUrl: an address, "*" and the title. Nothing opens where it is no address of the web.
  void OpenPageView(const QString& PageViewUrl);
  void Play(const SourcePicture& film);
  FilmPlayer& Player() { return player_; }
  // The open windows follow the language.
  void ShowTexts();
  // Before the program ends.
  void CloseAll();

 private:
  void RegisterCommands();
  void ShowPlaceOf(const QString& call, bool byAddress);
  PageViewTexts TextsOf(const QString& title) const;
  // What a button of frmStView has taken of its page.
  void TakePicture(PageViewAction action, const QImage& picture, QWidget* window);
  bool AllowsOtherPlayer();
  void TellFault(FilmPlayer::Fault fault);

  Dependencies deps_;
  FilmPlayer player_;
  bool connected_ = false;  // with the browser, which is loaded when the first view opens
  QString viewTitle_;
};
