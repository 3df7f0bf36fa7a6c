// SPDX-License-Identifier: GPL-3.0-or-later
// Form1, the main window: owns the page's logic, connects it with the bar and the cells, runs the load and the closing
// sequence. main makes the only one; closing it ends the program.
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

#include "app/connectivity.h"
#include "app/empty_page.h"
#include "app/load_sequence.h"
#include "app/main_cams.h"
#include "app/main_updates.h"
#include "app/media_views.h"
#include "app/menu_strip.h"
#include "app/page_logic.h"
#include "app/picture_transfer.h"
#include "app/received_ok.h"
#include "app/services.h"
#include "app/setup_windows.h"
#include "app/station_calls.h"
#include "app/undo_line.h"
#include "app/window_menus.h"
#include "app/windows.h"
#include "page/hover_tip.h"
#include "page/page_view.h"
#include "ui/show_msg_window.h"

// The main window.
class Form1 : public QWidget {
  Q_OBJECT

 public:
  explicit Form1(Services& services);
  ~Form1() override;

  // Runs the load sequence. False if it has stopped with a message and the program has to end. The window shows itself
  // after the connection test has been started.
  bool Load(bool anotherRuns);
  // Starts the closing sequence, also while a setup window is open, over which Qt ignores close().
  void CloseMe();

  void MnuPagesClick(int index);
  void MnuAlphaClick(int index);
  void MnuThumbsClick(int index);
  void MnuGuiClick(int index);
  void MnuLanguageClick(int index);
  void MnuRateClick(int index) { logic_.poll.MnuRateClick(index); }
  void ReloadPage() { logic_.poll.ReloadPage(); }

  PageLogic& Logic() { return logic_; }
  MainUpdates& Updates() { return *updates_; }
  Windows& AllWindows() { return *windows_; }

 Q_SIGNALS:
  // The first poll has been started, or there is no connection for one.
  void Loaded();
  // The closing sequence is over.
  void Closed();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ConnectSignals();
  void ConnectSiteChanges();
  void RegisterCommands();
  void ConnectHover();
  // Shows every text of the bar and the page in the present language.
  void ShowTexts();
  void ReadScreen();
  // Sizes the window for the layout and the window size, within the screen.
  void ApplyLayout();
  void ApplyPlacement();
  void ShowWindow();
  void ConnectionAnswered(bool reached);
  void StartWork();
  // Places bar, page, and UndoLine, the last only while there is a change to undo.
  void PlaceChildren();
  void ShowBusy(bool busy);
  // The desktop's session is ending and may kill the program without further notice: writes the state back.
  void SessionEnds();
  void ShowPageLabel();
  void RefreshCaptions();
  void StepPage(int step);
  std::optional<WindowPlacement> Placement() const;
  // Opens the own location where no position is stored, but not over a setup window that the user has opened.
  void AskLocation();
  void FirstClosingStep();
  void SecondClosingStep();
  void ThirdClosingStep();
  void LastClosingStep();

  Services& services_;
  Program& program_;
  Dialogs& dialogs_;
  PageLogic logic_;
  LoadSequence load_;
  HoverTip hover_;
  ConnectivityTest connectivity_;
  MenuStrip* pic_;
  PageView* picAll_;
  UndoLine* undoLine_;
  EmptyPage* emptyPage_;
  WindowMenus* menus_;
  StationCalls* stations_ = nullptr;
  PictureActions* pictures_ = nullptr;
  PictureTransfer* transfer_ = nullptr;
  MediaViews* media_ = nullptr;
  ReceivedOk* received_ = nullptr;
  MainCams* cams_ = nullptr;
  MainUpdates* updates_ = nullptr;
  SetupWindows* setup_ = nullptr;
  std::unique_ptr<frmShowMsg> message_;
  QTimer showTimer_;
  int twipsX_ = 15;
  int twipsY_ = 15;
  long screenHTwips_ = 0;
  RxOkList lstRxOk_;
  std::unique_ptr<Windows> windows_;  // destroyed first, because open windows refer to the members above
  enum class Closing { No, Waiting, Running, Done } closing_ = Closing::No;
};
