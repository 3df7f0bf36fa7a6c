// SPDX-License-Identifier: GPL-3.0-or-later
// Form26, the editor of the call database: looks through the records, changes, adds and deletes them, fetches them from
// a callbook service, and keeps nicknames. The setup menu opens it. DatabaseEditor decides, this window shows.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include "callbook/call_list_view.h"
#include "callbook/database_editor.h"
#include "callbook/lookup_widgets.h"
#include "callbook/operator_picture_window.h"
#include "callbook/record_boxes.h"
#include "callbook/service_chooser.h"
#include "callbook/sign_in_page.h"
#include "platform/wanted.h"
#include "ui/action_line.h"
#include "ui/save_line.h"
#include "ui/setup_window.h"

// The window of the database editor.
class Form26 : public SetupWindow {
  Q_OBJECT

 public:
  // What the window uses; all of it outlives the window.
  struct Dependencies : CoordinateFetch::Dependencies {
    SignInBrowser browser;
    Dialogs& dialogs;
  };

  Form26(const Dependencies& dependencies, QWidget* mainWindow);

  void ShowTexts() override;
  // Edits that are not saved are lost.
  void ProgramEnds() override;

 Q_SIGNALS:
  // The call database has changed; lists and maps are to be made anew.
  void Stored();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeLayout();
  void ConnectEditor();
  void ConnectFetch();
  void ConnectButtons();
  void ShowState();
  void ShowButtons();
  void ShowLines();
  void ShowFetch();
  void ShowCalls();
  void TypeCall(const QString& shown);
  void Choose(int row);
  void Lookup();
  void FetchAfterSignIn();
  void Add();
  void ShowPicture();
  void OpenPicture();
  bool AskAboutEdits();
  void SaveAndClose();
  QString Shown(const QString& call) const;
  QString Caption(TextLine line) const;

  Dependencies deps_;
  CoordinateFetch fetch_;
  DatabaseEditor editor_;
  SignInPage signIn_;
  CallListModel model_;
  CallListView* lstCall;
  QLabel* lblEntries;
  PictureButton* Image1;
  RecordBoxes* boxes_;
  QGroupBox* frame_;
  ServiceChooser* service_;  // cboDB, cmdLookup, lblLogin
  QLabel* lblInfo;
  ActionLine* edits_;
  ActionLine* deleted_;
  SaveLine* failure_;
  QPushButton* cmdAddNewSite;
  QPushButton* cmdDeleteSite;
  QPushButton* cmdClose;
  QPointer<Form13> picture_;
  Wanted shownPicture_;
  QString pictureCall_;
  enum class Closing { No, Saving, Done } closing_ = Closing::No;
};
