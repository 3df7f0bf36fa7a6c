// SPDX-License-Identifier: GPL-3.0-or-later
// The only module that knows all windows beside Form1: makes a window when it is first wanted, finds it while it is
// open, connects the signals that lead from one window to another, and closes them. Form1 owns the only Windows. A new
// window needs a kind, a maker and a row of the table in windows.cpp; a setup window has both in setup_windows.cpp.
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <functional>

#include "app/services.h"
#include "callbook/lookup_window.h"
#include "cams/cam_status_window.h"
#include "cams/site_index_window.h"
#include "display/compare_window.h"
#include "display/easypal_paste.h"
#include "display/info_window.h"
#include "display/last15_window.h"
#include "display/print_window.h"
#include "display/viewer_window.h"
#include "maps/map_location_window.h"
#include "onair/map_on_air_window.h"
#include "onair/on_air_caption.h"
#include "onair/on_air_now_window.h"
#include "onair/propagation_window.h"
#include "onair/rx_ok_list.h"
#include "ui/base_window.h"
#include "ui/menu_opener.h"

// The kinds of windows, one for each class.
enum class WindowKind {
  Lookup,
  History,
  LocationMap,
  OnAirNow,
  PropagationMap,
  OnAirMap,
  ReceivedOkMap,
  SiteIndex,
  Viewer,
  CamStatus,
  Comparison,
  Print,
  Information,
  // Setup windows; setup_windows.cpp registers them.
  OwnLocation,
  DatabaseEditor,
  PageNames,
  AddSite,
  EditSite,
  DeleteSite,
  BlockCalls,
  SiteChanges,
  NewVersion
};

// All windows beside Form1.
class Windows : public QObject {
  Q_OBJECT

 public:
  // menus opens the menus of all windows. The windows stay above mainWindow. lstRxOk: what frmMapRxOk draws.
  // cams: whose lights Form19 and Form20 show.
  Windows(Services& services, MenuOpener& menus, const RxOkList& lstRxOk, CamRound& cams, QWidget* mainWindow);
  // Deletes the windows that are still open, before the objects that they refer to.
  ~Windows() override;

  // Makes windows of a kind from now on. isSetup: CloseSetupWindows closes them.
  void Register(WindowKind kind, std::function<BaseWindow*()> make, bool isSetup);
  // All kinds that are registered, in the order of their registration.
  QList<WindowKind> Kinds() const;
  // The open window of a kind; nullptr where none is.
  BaseWindow* Find(WindowKind kind) const { return open_.value(kind); }
  // The open window of a kind; makes one if none is open, without showing it.
  BaseWindow& Get(WindowKind kind);

  // What Form1 and the windows want of another window.
  Form12& LookUp(const QString& call, const QRect& beside);
  // Opens a window, or brings the open one to the front.
  void Show(WindowKind kind);
  // Shows a place, in degrees, on the map that suits it best.
  void ShowOnMap(const QString& call, double lat, double lon);
  void ShowReceivedOkMap();
  // Shows the history of a site, in the open window if there is one.
  void ShowHistory(const HistoryOrigin& origin);
  // The viewer lies above all windows until one of them is wanted.
  void LowerViewer();
  // Closes the window of a kind; none may be open.
  void Close(WindowKind kind);
  // Shows the meant picture of a window in full size; the viewer steps among the others.
  void ShowViewer(const PictureList& pictures);
  // Shows two pictures side by side.
  void ShowComparison(const PictureList& pair);
  // Offers to print a picture.
  void ShowPrint(const Form21::Picture& picture);
  // Shows what is told of a picture's file, over the window that the picture belongs to.
  void ShowPictureInfo(const SourceFile& file, const QWidget* owner);
  void ShowPropagationMap();
  // Opens the site index where it was when it was closed last; one that is open is closed first.
  Form19& ShowSiteIndex();

  // The paste into EasyPal, for everything that shows a picture.
  EasyPalPaste& Paste() { return paste_; }
  // The call database or the own location has changed: open lists and maps place their stations anew.
  void PlacesChanged();
  // Other senders are blocked: an open history blanks their pictures, too.
  void BlocksChanged();
  // A language has been read; before the windows show their texts in it.
  void LanguageLoaded();

  // The setup window that is open; nullptr where none is.
  BaseWindow* OpenSetupWindow() const;
  // Closes setup windows: before another one opens, and before others change the tables that they show.
  void CloseSetupWindows();
  // Has setup windows give their state back, before it is written for the last time.
  void ProgramEnds();
  // Closes all windows before the program ends; browser windows need a running event loop for that.
  void CloseAll();

 Q_SIGNALS:
  // The login state that a lookup has shown, for the menus.
  void LookupStatusChanged(const QString& status);
  // The window of a site's history has begun to fetch.
  void HistoryFetching();
  // A picture of the history was clicked, which stops the refresh timers as a click on the page does.
  void HistoryPictureWanted();
  // What a map window shows is to be copied, or saved.
  void MapCopyWanted(const QImage& seen, QWidget* window);
  void MapSaveWanted(const QImage& seen, QWidget* window);
  // What a window shows is to be pasted into EasyPal.
  void PasteWanted(const QImage& seen, QWidget* window);
  // Of the window of a history: a picture is dragged out of it; all its pictures are to be saved.
  void HistoryDragWanted(const SourcePicture& picture, QWidget* window);
  void HistorySaveWanted(const PictureList& pictures, QWidget* window);
  // A picture that the viewer was asked for is a film.
  void FilmFound(const SourcePicture& picture);
  // A film was clicked.
  void FilmWanted(const SourcePicture& picture);
  // The lookup window wants a page about a place; PageViewUrl as in callbook/place_page.
  void PageViewWanted(const QString& PageViewUrl);
  // What lblOnAirNow says from now on.
  void OnAirCaptionChanged(const QString& caption);
  // F1 was pressed in a window.
  void HelpWanted();
  // A cam of the window of all cams was pressed.
  void CamWanted(const QString& call);

 private:
  struct Registration {
    WindowKind kind;
    std::function<BaseWindow*()> make;
    bool isSetup = false;
  };

  void RegisterOwn();
  BaseWindow* MakeLookup();
  BaseWindow* MakeHistory();
  BaseWindow* MakeLocationMap();
  BaseWindow* MakeOnAirNow();
  BaseWindow* MakePropagationMap();
  BaseWindow* MakeOnAirMap();
  BaseWindow* MakeReceivedOkMap();
  BaseWindow* MakeViewer();
  BaseWindow* MakeSiteIndex();
  BaseWindow* MakeCamStatus();
  BaseWindow* MakeComparison();
  BaseWindow* MakePrint();
  BaseWindow* MakeInformation();
  // Connects what all maps want of other windows.
  template <typename Map>
  BaseWindow* Connected(Map* window);
  void RegisterOnAirCommands();
  void RegisterHistoryCommands();
  // Of a print whose window has been closed.
  void TellPrintEnd(int job, PrintEnd end, const QString& file);
  void RaiseMaps();
  Services& services_;
  MenuOpener& menus_;
  const RxOkList& lstRxOk_;
  CamRound& cams_;
  QWidget* mainWindow_;
  QList<Registration> registrations_;
  QHash<WindowKind, QPointer<BaseWindow>> open_;
  EasyPalPaste paste_;
  PrintJobs printJobs_;
  OnAirCaption onAirCaption_;
  Background drawing_;             // smooths what the viewer shows, beside the disk's work
  QString lblOnAirNow_;            // what it was last made to say in the present language
  SiteIndexPlace siteIndexPlace_;  // of the site index; kept while it is closed
  int PeriodMinutes_ = 60;         // of the propagation map; kept while it is closed
};
