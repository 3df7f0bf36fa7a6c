// SPDX-License-Identifier: GPL-3.0-or-later
// The only module that knows all windows beside Form1: makes a window when it is first wanted, finds it while it is
// open, connects the signals that lead from one window to another, and closes them. Form1 owns the only Windows. A new
// window needs a kind, a maker and a row of the table in windows.cpp.
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>

#include "app/services.h"
#include "callbook/lookup_window.h"
#include "display/last15_window.h"
#include "maps/map_location_window.h"
#include "onair/map_on_air_window.h"
#include "onair/on_air_caption.h"
#include "onair/on_air_now_window.h"
#include "onair/propagation_window.h"
#include "onair/rx_ok_list.h"
#include "ui/base_window.h"
#include "ui/menu_opener.h"

// The kinds of windows, one for each class.
enum class WindowKind { Lookup, History, LocationMap, OnAirNow, PropagationMap, OnAirMap, ReceivedOkMap };

// All windows beside Form1.
class Windows : public QObject {
  Q_OBJECT

 public:
  // menus opens the menus of all windows. The windows stay above mainWindow. lstRxOk: what frmMapRxOk draws.
  Windows(Services& services, MenuOpener& menus, const RxOkList& lstRxOk, QWidget* mainWindow);
  // Deletes the windows that are still open, before the objects that they refer to.
  ~Windows() override;

  // All kinds.
  static QList<WindowKind> Kinds();
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
  // Closes the window of a kind; none may be open.
  void Close(WindowKind kind);

  void ShowPropagationMap();

  // A language has been read; before the windows show their texts in it.
  void LanguageLoaded() { onAirCaption_.TakeLanguage(); }

  // Closes setup windows: before another one opens, and before others change the tables that they show.
  void CloseSetupWindows();
  // Closes all windows before the program ends; browser windows need a running event loop for that.
  void CloseAll();

 Q_SIGNALS:
  // The login state that a lookup has shown, for the menus.
  void LookupStatusChanged(const QString& status);
  // The window of a site's history has begun to fetch.
  void HistoryFetching();
  // What lblOnAirNow says from now on.
  void OnAirCaptionChanged(const QString& caption);

 private:
  struct Registration;
  static const QList<Registration>& Registrations();
  BaseWindow* MakeLookup();
  BaseWindow* MakeHistory();
  BaseWindow* MakeLocationMap();
  BaseWindow* MakeOnAirNow();
  BaseWindow* MakePropagationMap();
  BaseWindow* MakeOnAirMap();
  BaseWindow* MakeReceivedOkMap();
  // Connects what all maps of many stations want of other windows.
  BaseWindow* Connected(CallMapWindow* window);
  void RegisterOnAirCommands();
  void RegisterHistoryCommands();
  void RaiseMaps();

  Services& services_;
  MenuOpener& menus_;
  const RxOkList& lstRxOk_;
  QWidget* mainWindow_;
  QHash<WindowKind, QPointer<BaseWindow>> open_;
  OnAirCaption onAirCaption_;
  int PeriodMinutes_ = 60;  // of the propagation map; kept while it is closed
};
