// SPDX-License-Identifier: GPL-3.0-or-later
// Names of the menus and of what their entries do, and the registry of handlers. Each folder registers the handlers of
// its commands; a menu greys the entries whose command nobody handles. The menus are filled and shown in app/.
#pragma once

#include <QHash>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QString>
#include <functional>

// The menus: those of the first level by their given numbers, sub-menus by their given numbers plus 100.
enum class MenuId : int {
  None = 0,
  Pages = 1,
  Find = 2,
  Alphabet = 3,
  Setup = 4,
  Picture = 5,   // of a cell of the page
  History = 8,   // of a cell of a site's history
  MapCall = 10,  // of a call on any map
  LookupMaps = 11,
  LookupPicture = 12,
  OnAir = 13,
  SignIn = 16,
  More = 17,      // labels for which the main window's bar has no room
  ListCall = 18,  // of a call in a list
  Viewer = 19,    // of the picture in the viewer
  CamView = 108,
  CamMode = 109,
  RefreshRate = 110,
  WindowSize = 111,
  Thumbs = 112,
  Language = 113,
  MapOfCall = 130,
  PageViews = 131,
  Lookups = 132,
  HistoryPageViews = 150,
};

// The commands. A comment names the menu where the command's name does not.
enum class Command : int {
  None,  // a heading, a text
  ShowPage,
  FindOnPage,
  // Setup menu.
  ShowReceivedOkMap,
  SetLocation,
  EditDatabase,
  EditPageNames,
  AddSite,
  EditSite,
  DeleteSite,
  BlockCalls,
  SetCamView,
  SetCamMode,
  SetRefreshRate,
  SetWindowSize,
  SetThumbs,
  SetLanguage,
  MakeBackup,
  ShowHelp,
  ShowAbout,
  // Picture menu.
  ReloadPicture,
  ReloadPage,
  ShowHistory,
  ShowTxHistory,
  ShowCam,
  BlockSender,
  ShowOnMap,
  ShowPageView,
  LookUp,
  CopyPicture,
  SaveToDesktop,
  MailPicture,
  PasteToEasyPal,
  SavePictureAs,
  PrintPicture,
  ShowPictureInfo,
  CompactPage,
  RemoveFromPage,
  RemoveAllFromPage,
  OpenSiteIndex,
  // Menu of a site's history.
  ReloadHistoryPicture,
  // Lookup window: the call's place, and the operator's picture.
  ShowCallOnMap,
  ShowCallByCoordinates,
  ShowCallByAddress,
  // Map windows: looks a call up.
  LookUpMapCall,
  CopyOperatorPicture,
  SaveOperatorPictureToDesktop,
  PasteOperatorPicture,
  SaveOperatorPictureAs,
  PrintOperatorPicture,
  SignInOrOut,
  // Menu of lblOnAirNow, and of a row of its list.
  ShowOnAirList,
  ShowOnAirMap,
  LookUpListCall,
  ShowListCallOnMap,
  // Menu of the labels for which the bar has no room.
  PressBarLabel,
};

// The picture that a choice is about: that of the window whose menu or button started the action, never of another
// window that happens to be open.
struct PictureSource {
  enum class Window { None, Page, History };
  Window window = Window::None;
  int slot = -1;  // slot in that window, from 0
};

// What a menu is about: the picture in a cell, or the call that a window shows.
struct MenuSubject {
  PictureSource source;
  QString site;         // call of the site that the picture came from
  QString caller;       // its sender as the cell's fields have it, or the window's call
  bool empty = true;    // there is no site in the cell
  bool hasCam = false;  // the cell shows a cam light
  bool camOnly = false;
  bool weather = false;  // a cell of the weather page
  bool placed = false;   // the call's position is known
  QString offer;         // text of the SignInOffer of the lookup window
  QRect senderPlace;     // of the sender's caption in the cell, on the screen; a lookup opens beside it
};

// One choice from a menu. index is the entry's place in its menu, from 0; text the entry as it was shown.
struct MenuChoice {
  Command command = Command::None;
  int index = 0;
  QString text;
  MenuSubject subject;
  QPointer<QObject> owner;  // window whose menu it was
};

// The registry of handlers. There is one for the program.
class Commands {
 public:
  using Handler = std::function<void(const MenuChoice&)>;

  // The handler is removed with its context; a later handler of the same command replaces it.
  void Register(Command command, QObject* context, Handler handler);
  bool Handles(Command command) const;
  // Calls the handler of the choice's command; does nothing without one.
  void Do(const MenuChoice& choice) const;

 private:
  struct Entry {
    QPointer<QObject> context;
    Handler handler;
  };
  QHash<Command, Entry> entries_;
};
