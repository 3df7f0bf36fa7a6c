// SPDX-License-Identifier: GPL-3.0-or-later
// The only module that knows all windows beside Form1: makes one when it is first wanted, finds it while it is open,
// connects the wishes that lead from one to another, and closes them. Form1 owns the only one. A new window is a kind,
// a maker and a row of the table in windows.cpp.
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>

#include "app/services.h"
#include "callbook/lookup_window.h"
#include "maps/map_location_window.h"
#include "ui/base_window.h"
#include "ui/menu_opener.h"

// One for each window class.
enum class WindowKind { Lookup, LocationMap };

class Windows : public QObject {
  Q_OBJECT

 public:
  // menus: of all windows. mainWindow: above which the others stay.
  Windows(Services& services, MenuOpener& menus, QWidget* mainWindow);
  // Windows that are still open go before what they refer to.
  ~Windows() override;

  // Every kind that there is.
  static QList<WindowKind> Kinds();
  // The open window of a kind; nullptr where none is.
  BaseWindow* Find(WindowKind kind) const { return open_.value(kind); }
  // The open window of a kind, made now where there was none. It is not shown yet.
  BaseWindow& Get(WindowKind kind);

  // The wishes of Form1 and of the windows among each other.
  // Shows who a call is, beside what was clicked (pixels of the screen).
  Form12& LookUp(const QString& call, const QRect& beside);
  // Shows a place, in degrees, on the map that suits it best.
  void ShowOnMap(const QString& call, double lat, double lon);

  // Before a setup window opens, and before the tables that it shows are changed by others.
  void CloseSetupWindows();
  // Before the program ends: browser windows need the event loop for it.
  void CloseAll();

 private:
  struct Registration;
  static const QList<Registration>& Registrations();
  BaseWindow* MakeLookup();
  BaseWindow* MakeLocationMap();
  void RaiseMaps();

  Services& services_;
  MenuOpener& menus_;
  QWidget* mainWindow_;
  QHash<WindowKind, QPointer<BaseWindow>> open_;
};
