// SPDX-License-Identifier: GPL-3.0-or-later
// Form12, the lookup window, tells who a callsign is. The main window, the maps and the lists open it beside the call
// that was clicked; while it is open it serves them all, one call after the other. LookupSession decides, this window
// shows.
#pragma once

#include <QPointer>
#include <functional>

#include "callbook/lookup_session.h"
#include "callbook/lookup_widgets.h"
#include "callbook/operator_picture_window.h"
#include "callbook/service_chooser.h"
#include "callbook/sign_in_page.h"
#include "ui/bar_label.h"
#include "ui/base_window.h"
#include "ui/commands.h"
#include "ui/dialogs.h"
#include "ui/menu_opener.h"

// The lookup window.
class Form12 : public BaseWindow {
  Q_OBJECT

 public:
  // What the window uses; all of it outlives the window.
  struct Dependencies : LookupSession::Dependencies {
    SignInBrowser browser;
    Dialogs& dialogs;
    Commands& commands;
    MenuOpener& menus;
  };

  // owner: the main window, above which this one stays.
  Form12(const Dependencies& dependencies, QWidget* owner);

  // Looks a call up, as its caller spells it, and shows the window beside besideGlobal, the rectangle that was clicked
  // (pixels of the screen).
  void Open(const QString& lookupCall, const QRect& besideGlobal);
  // Places the window below the rectangle that was clicked, or above it, whole on its monitor. The second form takes
  // the rectangle of the control of that name on the calling window.
  void PositionMe(const QRect& besideGlobal);
  void PositionMe(const QWidget* caller, const QString& controlName);
  // Puts the pointer into the window; for callers whose call came from a menu or a key.
  void CentrePointer();
  void ShowTexts() override;
  // The call that is shown, and the path of the operator's picture, which need not be there.
  QString Call() const { return session_.Call(); }
  QString PicturePath() const { return session_.PicturePath(); }

  // Handler of menu 11, by the index of its entries. Those of menu 12 are in app/picture_actions.
  void MnuMapsClick(int index);

 Q_SIGNALS:
  // The location picker is wanted for a call and its place, in degrees.
  void MapWanted(const QString& call, double TargetLat, double TargetLon);
  // A page about the call's place is wanted: its address, "*" and the call.
  void PageViewWanted(const QString& PageViewUrl);
  // The login state is shown; it outlives the window in the main window's menus.
  void LookupStatusChanged(const QString& status);
  // The database has a new or changed record of the call.
  void Stored(const QString& call);

 protected:
  void PlaceWindow() override { PositionMe(beside_); }
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void MakeLayout();
  void ConnectSignals();
  void ShowView();
  void DescribeView();
  MenuRequest Request(MenuId menu, const QString& name, const QPoint& at);
  void OpenMapsMenu();
  void OpenPictureMenu(const QPoint& at, bool byKeyboard);
  void OpenPicture();
  void StatusClicked();

  Dependencies deps_;
  LookupSession session_;
  FieldLabel* lblCall;
  FieldLabel* lblName;
  FieldLabel* lblAdd1;
  FieldLabel* lblAdd2;
  FieldLabel* lblCtry;
  FieldLabel* lblDxAz;
  PictureButton* Image1;
  ServiceChooser* service_;  // cboDB, cmdUpdate, lblStatus
  BarLabel* lblMaps;
  QPointer<Form13> picture_;
  SignInPage signIn_;
  QRect beside_;  // the rectangle that was clicked, in pixels of the screen
};
