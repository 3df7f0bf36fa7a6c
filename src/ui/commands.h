// SPDX-License-Identifier: GPL-3.0-or-later
// The menus and what their entries do, by name, and the registry of who does it. A folder registers the handlers of its
// commands; a menu greys the entries that nobody handles. The menus are filled and shown in app/.
#pragma once

#include <QHash>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <functional>

// A menu of the first level by its given number, a sub-menu by its given number and 100.
enum class MenuId : int {
  None = 0,
  Pages = 1,
  Find = 2,
  Alphabet = 3,
  Setup = 4,
  Picture = 5,   // of a cell: the page's and, cut down, the history's
  MapCall = 10,  // of a call on any map
  LookupMaps = 11,
  LookupPicture = 12,
  SignIn = 16,
  More = 17,  // what the main window's bar has no room for
  CamView = 108,
  CamMode = 109,
  RefreshRate = 110,
  WindowSize = 111,
  Thumbs = 112,
  Language = 113,
  MapOfCall = 130,
  PageViews = 131,
  Lookups = 132,
};

// What a menu's entry does. The comment names the menu where the name does not.
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
  // Lookup window: the call's place, and the operator's picture.
  ShowCallOnMap,
  ShowCallByCoordinates,
  ShowCallByAddress,
  // Map windows: who the call is.
  LookUpMapCall,
  CopyOperatorPicture,
  SaveOperatorPictureToDesktop,
  PasteOperatorPicture,
  SaveOperatorPictureAs,
  PrintOperatorPicture,
  SignInOrOut,
  // Menu of the bar's labels that have no room.
  PressBarLabel,
};

// Which picture a choice is about. The window whose menu or button started the action decides, never another one that
// happens to be open.
struct PictureSource {
  enum class Window { None, Page, History };
  Window window = Window::None;
  int slot = -1;  // of that window, from 0
};

// What a menu is about: the picture in a cell, or the call that a window shows.
struct MenuSubject {
  PictureSource source;
  QString site;         // call of the site that the picture came from
  QString caller;       // its sender as the cell's fields have it, or the window's call
  bool empty = true;    // no site stands in the cell
  bool hasCam = false;  // the cell shows a cam light
  bool camOnly = false;
  bool weather = false;  // a cell of the weather page
  bool placed = false;   // the call's position is known
  QString offer;         // what can be done about the login at the callbook service, in words
};

// One choice from a menu. index is the entry's place in its menu, from 0; text the entry as it was shown.
struct MenuChoice {
  Command command = Command::None;
  int index = 0;
  QString text;
  MenuSubject subject;
  QPointer<QObject> owner;  // window whose menu it was
};

// Who does what. One for the program.
class Commands {
 public:
  using Handler = std::function<void(const MenuChoice&)>;

  // The handler is gone with its context; a later one for the same command takes its place.
  void Register(Command command, QObject* context, Handler handler);
  bool Handles(Command command) const;
  // Nothing for a command without a handler.
  void Do(const MenuChoice& choice) const;

 private:
  struct Entry {
    QPointer<QObject> context;
    Handler handler;
  };
  QHash<Command, Entry> entries_;
};
