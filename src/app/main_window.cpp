// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QWindow>

#include "page/cell_tips.h"
#include "page/thumb_layout.h"
#include "platform/text/numbers.h"
#include "ui/language_change.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Show the window at the latest now, with or without the answer of the connection test.
constexpr std::chrono::milliseconds kShowAtLast = 250ms;
// Until the first poll begins: its requests are made in one stretch, and the window is to be painted before.
constexpr std::chrono::milliseconds kPaintFirst = 30ms;
// Write the state at the latest now, though the files of pages are still being moved.
constexpr std::chrono::milliseconds kMovedAtLast = 5s;
constexpr QSize kFrameGuess(2, 32);  // pixels; the real decoration is unknown before the first show
constexpr QColor kClosingGreen(0, 255, 0);

}  // namespace

Form1::Form1(Services& services)
    : services_(services),
      program_(services.program),
      dialogs_(services.dialogs),
      logic_(services.program, services.clock, services.network, services.tool, services.background),
      load_(services.program, services.translations, logic_.heights, services.store, services.clock),
      hover_(services.program, services.database),
      connectivity_(services.network, services.run.hosts.Connectivity),
      pic_(new MenuStrip(this)),
      picAll_(new PageView(program_, logic_.grid, this)),
      undoLine_(new UndoLine(logic_.sites, logic_.changes, dialogs_, this)),
      emptyPage_(new EmptyPage(services, logic_, this)),
      menus_(new WindowMenus(program_, services.commands, logic_, *pic_, *picAll_, this)) {
  windows_ = std::make_unique<Windows>(services, *menus_, lstRxOk_, logic_.cams, this);
  stations_ = new StationCalls({services, logic_, *pic_, *picAll_, *menus_, *windows_}, this);
  pictures_ = new PictureActions({services, logic_, *windows_, this});
  transfer_ = new PictureTransfer(services, *windows_, *pictures_, this);
  media_ = new MediaViews({services, *windows_, *pictures_, *transfer_, this});
  received_ = new ReceivedOk({services, logic_.poll, *pic_, *windows_, lstRxOk_}, this);
  cams_ = new MainCams({services, logic_, *pic_, *picAll_, *windows_}, this);
  setup_ = new SetupWindows({services, logic_, *menus_, *windows_, this, [this]() { received_->OpenMap(); },
                             [this]() { received_->ShowOwnLocation(); }, [this]() { pic_->txtCall->setFocus(); }});
  updates_ = new MainUpdates({services, logic_, *pic_, *windows_, setup_->Backups(), this});
  setObjectName(u"Form1"_s);
  setWindowTitle(Program::ProgVersion());
  setMinimumSize(480, 160);
  showTimer_.setSingleShot(true);
  showTimer_.setInterval(kShowAtLast);
  ConnectSignals();
  ConnectSiteChanges();
  RegisterCommands();
  ConnectHover();
}

Form1::~Form1() = default;

void Form1::ConnectSignals() {
  emptyPage_->FollowInTabOrder(pic_->lblSetup);
  connect(emptyPage_, &EmptyPage::AuthorListWanted, &updates_->Check(), &UpdateCheck::FetchList);
  connect(&updates_->Check(), &UpdateCheck::ListCame, emptyPage_, &EmptyPage::AuthorListCame);
  connect(&updates_->Check(), &UpdateCheck::ListFailed, emptyPage_, &EmptyPage::AuthorListFailed);
  connect(&logic_.mover, &PageMover::Applied, this, [this]() {
    if (closing_ == Closing::No) MnuPagesClick(0);
    // The change of the page has polled it.
    logic_.poll.Timer5.stop();
  });
  connect(&logic_.mover, &PageMover::Ended, this, [this]() {
    // Its window has stopped the refresh; where the pages were not moved no change of the page starts it again.
    if (closing_ == Closing::No && program_.config.AutoRefreshOn == 1) logic_.poll.StartRefreshTimer();
  });
  connect(&logic_.poll, &PollCycle::BusyChanged, this, &Form1::ShowBusy);
  connect(&logic_.poll, &PollCycle::RefreshCaptionChanged, this, &Form1::RefreshCaptions);
  connect(picAll_, &PageView::CellPressed, &logic_.click, &PageClick::Press);
  connect(picAll_, &PageView::MarkPressed, &logic_.click, &PageClick::Mark);
  connect(&logic_.click, &PageClick::ComparisonWanted, windows_.get(), &Windows::ShowComparison);
  connect(&logic_.click, &PageClick::ViewerWanted, windows_.get(), &Windows::ShowViewer);
  connect(windows_.get(), &Windows::HistoryPictureWanted, &logic_.poll, &PollCycle::Rest);
  connect(windows_.get(), &Windows::FilmFound, &logic_.click, &PageClick::MarkFilm);
  connect(picAll_, &PageView::DragWanted, this, [this](int slot) {
    hover_.Close();
    if (logic_.click.Opens(slot)) pictures_->Drag(logic_.click.PictureOf(slot), this);
  });
  connect(&logic_.poll, &PollCycle::RestChanged, this, &Form1::RefreshCaptions);
  connect(&logic_.poll, &PollCycle::PageChanged, this, &Form1::ShowPageLabel);
  connect(pic_->lblRefresh, &QToolButton::clicked, &logic_.poll, &PollCycle::RefreshClick);
  connect(windows_.get(), &Windows::OnAirCaptionChanged, pic_->lblOnAirNow, &BarLabel::SetCaption);
  connect(pic_->lblPropagation, &QToolButton::clicked, windows_.get(), &Windows::ShowPropagationMap);
  connect(undoLine_, &UndoLine::Changed, this, &Form1::PlaceChildren);
  connect(&connectivity_, &ConnectivityTest::Answered, this, &Form1::ConnectionAnswered);
  connect(&showTimer_, &QTimer::timeout, this, &Form1::ShowWindow);
  connect(windows_.get(), &Windows::HistoryFetching, this, [this]() {
    if (program_.config.AutoRefreshOn == 1) logic_.poll.StartRefreshTimer();
  });
  connect(windows_.get(), &Windows::PasteWanted, transfer_, &PictureTransfer::PasteImage);
  connect(&windows_->Paste(), &EasyPalPaste::RefreshTimerWanted, &logic_.poll, &PollCycle::StartRefreshTimer);
  connect(windows_.get(), &Windows::LookupStatusChanged, menus_, &WindowMenus::SetLookupStatus);
}

void Form1::ConnectSiteChanges() {
  logic_.changes.SaveAllState = [this](const SiteChanges::Done& saved) {
    const auto inform = [this](const QString& text) { dialogs_.Inform(this, text, false); };
    load_.SaveBeside(Placement(), inform, services_.background, this, saved);
  };
  // The index holds indices into the former tables.
  connect(&logic_.changes, &SiteChanges::Changed, this, [this]() { windows_->Close(WindowKind::SiteIndex); });
}

void Form1::RegisterCommands() {
  const auto does = [this](Command command, auto handler) {
    services_.commands.Register(command, this, [this, handler](const MenuChoice& choice) { handler(*this, choice); });
  };
  does(Command::ShowPage, [](Form1& form, const MenuChoice& choice) { form.MnuPagesClick(choice.index); });
  does(Command::FindOnPage, [](Form1& form, const MenuChoice& choice) { form.MnuAlphaClick(choice.index); });
  does(Command::SetThumbs, [](Form1& form, const MenuChoice& choice) { form.MnuThumbsClick(choice.index); });
  does(Command::SetWindowSize, [](Form1& form, const MenuChoice& choice) { form.MnuGuiClick(choice.index); });
  does(Command::SetLanguage, [](Form1& form, const MenuChoice& choice) { form.MnuLanguageClick(choice.index); });
  does(Command::SetRefreshRate, [](Form1& form, const MenuChoice& choice) { form.MnuRateClick(choice.index); });
  does(Command::ReloadPicture, [](Form1& form, const MenuChoice&) { form.logic_.sites.ReloadSlot(); });
  does(Command::ReloadPage, [](Form1& form, const MenuChoice&) { form.ReloadPage(); });
  does(Command::CompactPage, [](Form1& form, const MenuChoice&) { form.logic_.sites.CompactPage(); });
  does(Command::RemoveFromPage, [](Form1& form, const MenuChoice&) { form.logic_.sites.RemoveSite(); });
  does(Command::RemoveAllFromPage, [](Form1& form, const MenuChoice&) { form.logic_.sites.RemoveAllSites(); });
  does(Command::PressBarLabel, [](Form1& form, const MenuChoice& choice) { form.pic_->PressMoved(choice.index); });
}

void Form1::ConnectHover() {
  new CellTips(*picAll_, hover_, services_.tool, this);
  hover_.MenuIsOpen = [this]() { return menus_->IsOpen(); };
  connect(menus_, &WindowMenus::AboutToOpen, &hover_, &HoverTip::Close);
  connect(&logic_.poll, &PollCycle::HoverForgotten, &hover_, &HoverTip::Close);
}

void Form1::ReadScreen() {
  const QScreen* monitor = QGuiApplication::primaryScreen();
  if (monitor == nullptr) return;
  twipsX_ = TwipsPerPixel(monitor->logicalDotsPerInchX());
  twipsY_ = TwipsPerPixel(monitor->logicalDotsPerInchY());
  screenHTwips_ = static_cast<long>(monitor->size().height()) * twipsY_;
}

bool Form1::Load(bool anotherRuns) {
  ReadScreen();
  if (const LoadStop stop = load_.ReadSettings(anotherRuns)) {
    dialogs_.Inform(nullptr, stop.message, stop.exclamation);
    return false;
  }
  if (!load_.LanguageMessage().isEmpty()) dialogs_.Inform(nullptr, load_.LanguageMessage(), false);
  setFont(QApplication::font("QMenu"));
  pic_->setFont(font());
  ShowTexts();
  pic_->lblMap->hide();
  if (const LoadStop stop = load_.ReadLists()) {
    dialogs_.Inform(nullptr, stop.message, stop.exclamation);
    return false;
  }
  services_.database.Begin();
  logic_.cams.ListsRead();
  emptyPage_->Steps().ListsRead();
  logic_.grid.MakeGrid(program_.config.ThumbLayout);
  ApplyLayout();
  ApplyPlacement();
  // Show the page from the disk at once, without waiting for the connection test.
  logic_.poll.ShowStoredPage();
  connectivity_.Run();
  showTimer_.start();
  received_->Start();
  // Not before all has been read: an end of the session must not write back what is still empty.
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &Form1::SessionEnds);
  return true;
}

void Form1::ShowWindow() {
  showTimer_.stop();
  if (isVisible()) return;
  const std::optional<WindowPlacement> placement = load_.StoredPlacement();
  if (placement && placement->IsMaximized()) {
    showMaximized();
  } else {
    show();
  }
  pic_->txtCall->setFocus();
}

void Form1::ConnectionAnswered(bool reached) {
  if (closing_ != Closing::No) return;
  if (!reached) {
    // If the test fails at once, the question comes before the window shows; a test that takes long does not hold the
    // window back.
    repaint();
    if (dialogs_.AskRetry(isVisible() ? this : nullptr, program_.language[TextLine::kConnectivityQuestion])) {
      connectivity_.Run();
      return;
    }
  }
  program_.page.Online = reached;
  setWindowTitle(reached ? u"Omni-Perch  -  %1 sites"_s.arg(program_.sites.Sites.size())
                         : u"Omni-Perch  Internet connection failed!"_s);
  ShowWindow();
  QTimer::singleShot(kPaintFirst, this, &Form1::StartWork);
}

void Form1::StartWork() {
  if (closing_ != Closing::No) return;
  PageState& page = program_.page;
  updates_->AskTime();
  page.SelectedSlot = -1;
  logic_.poll.StopRefreshTimers();
  logic_.poll.FirstPoll();
  if (program_.config.CamMode < 2) page.txtActive = u"START"_s;
  page.UpdateCheckDue = true;
  pic_->txtCall->setFocus();
  Q_EMIT Loaded();
  AskLocation();
}

void Form1::AskLocation() {
  // Without a position nothing on the maps or in the tips has a distance.
  const bool isKnown = program_.config.MyLat != 0 || program_.config.MyLon != 0;
  if (isKnown || closing_ != Closing::No || windows_->Find(WindowKind::OwnLocation) != nullptr) return;
  const BaseWindow* open = windows_->OpenSetupWindow();
  if (open == nullptr) return setup_->Open(WindowKind::OwnLocation);
  // Queued: the menu closes one setup window to open another.
  connect(open, &BaseWindow::Closed, this, &Form1::AskLocation, Qt::QueuedConnection);
}

void Form1::ApplyPlacement() {
  const std::optional<WindowPlacement> placement = load_.StoredPlacement();
  if (!placement) return;
  const QPoint corner = placement->normal.topLeft();
  const QScreen* monitor = QGuiApplication::screenAt(corner + QPoint(40, 10));
  if (monitor == nullptr) return;  // the monitor of the stored place is gone
  // A window that was placed on a larger screen is moved until all of it can be seen.
  const QRect room = monitor->availableGeometry();
  const QSize whole = size() + kFrameGuess;
  move(std::max(room.left(), std::min(corner.x(), room.right() + 1 - whole.width())),
       std::max(room.top(), std::min(corner.y(), room.bottom() + 1 - whole.height())));
}

void Form1::ApplyLayout() {
  const int bar = pic_->BarHeight();
  const QSize wanted = ClientSize(program_.config.ThumbLayout, program_.config.GuiMode, screenHTwips_, bar, twipsX_);
  if (wanted.isEmpty()) return;  // an unknown layout leaves the window as it is
  const QScreen* monitor = screen() != nullptr ? screen() : QGuiApplication::primaryScreen();
  QSize room = wanted;
  if (monitor != nullptr) {
    const QSize frame = isVisible() ? frameGeometry().size() - size() : kFrameGuess;
    room = monitor->availableGeometry().size() - frame;
  }
  if (!isMaximized()) resize(wanted.boundedTo(room));
  picAll_->Arrange(bar, QSize(wanted.width(), wanted.height() - bar),
                   CellFontPoints(program_.config.GuiMode, screenHTwips_));
}

void Form1::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceChildren();
}

void Form1::PlaceChildren() {
  const int bar = pic_->BarHeight();
  const int line = undoLine_->IsWanted() ? undoLine_->sizeHint().height() : 0;
  pic_->setGeometry(0, 0, width(), bar);
  picAll_->setGeometry(0, bar, width(), height() - bar - line);
  undoLine_->setGeometry(0, height() - line, width(), line);
  emptyPage_->SetPage(picAll_->geometry());
}

void Form1::ShowBusy(bool busy) {
  pic_->imgRefresh->setVisible(busy);
  pic_->lblRefresh->SetLit(busy);
  if (!busy) load_.SaveAfterPoll(services_.background, this);
}

void Form1::SessionEnds() {
  if (closing_ == Closing::No) load_.WriteNow(Placement());
}

void Form1::RefreshCaptions() {
  pic_->lblRefresh->SetCaption(logic_.poll.RefreshCaption());
  pic_->lblRefresh->SetNote(logic_.poll.Resting() ? tr("Automatic refresh rests because a picture was opened. "
                                                       "It goes on after the next refresh or change of page.")
                                                  : QString());
}

void Form1::ShowPageLabel() {
  pic_->lblPages->SetCaption(u"  "_s + program_.PageLabels.value(program_.page.CurrentPage) + u" "_s);
}

void Form1::MnuPagesClick(int index) {
  const int page = index + 1;
  if (page < 1 || page > PageState::WxPage) return;
  received_->LeavePage();
  menus_->CloseMenus();
  windows_->Close(WindowKind::History);
  logic_.poll.PageChange(page);
  cams_->PageChanged();
}

void Form1::MnuAlphaClick(int index) {
  // The last two characters of the entry are its slot, from 1.
  const QString entry = program_.page.List1.value(index);
  logic_.grid.Flash(static_cast<int>(Val(entry.right(2))) - 1);
}

void Form1::MnuThumbsClick(int index) {
  load_.SaveAllState(Placement(), [this](const QString& text) { dialogs_.Inform(this, text, false); });
  program_.config.ThumbLayout = index + 1;
  program_.sites.BuildPageSlots(program_.config.ThumbLayout);
  logic_.grid.MakeGrid(program_.config.ThumbLayout);
  ApplyLayout();
  logic_.poll.LayoutChange();
  cams_->PageChanged();
}

void Form1::MnuGuiClick(int index) {
  program_.config.GuiMode = index;
  RefreshCaptions();
  ApplyLayout();
}

void Form1::MnuLanguageClick(int index) {
  const QString name = program_.lstLanguages.value(index);
  if (name.isEmpty()) return;
  const QString message = load_.ChangeLanguage(name);
  if (!message.isEmpty()) dialogs_.Inform(this, message, false);
  windows_->LanguageLoaded();
  SendLanguageChange();
  logic_.poll.LanguageChange();
}

void Form1::ShowTexts() {
  pic_->SetTexts(program_.language);
  cams_->ShowLabel();
  menus_->BuildMenuTables();
  RefreshCaptions();
  ShowPageLabel();
  picAll_->TakeLanguage();
  emptyPage_->ShowTexts();
  media_->ShowTexts();
}

void Form1::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  // An open tip is in the former language.
  hover_.Close();
  ShowTexts();
}

void Form1::StepPage(int step) {
  const int pages = PageState::WxPage;
  MnuPagesClick((program_.page.CurrentPage - 1 + step + pages) % pages);
}

void Form1::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_PageDown) return StepPage(1);
  if (event->key() == Qt::Key_PageUp) return StepPage(-1);
  if (event->key() == Qt::Key_F1) return setup_->ShowHelp();
  if (event->matches(QKeySequence::Refresh)) return logic_.poll.RefreshClick();
  if (event->key() == Qt::Key_F5 && event->modifiers() == Qt::ControlModifier) return ReloadPage();
  // In a text box the same keys undo the typing.
  const bool typing = qobject_cast<QLineEdit*>(focusWidget()) != nullptr;
  if (event->matches(QKeySequence::Undo) && !typing) return undoLine_->Undo();
  if (event->key() == Qt::Key_D && event->modifiers() == Qt::ControlModifier && logic_.click.Compare()) return;
  if (event->key() == Qt::Key_S && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
    return pictures_->SaveAllPictures(logic_.click.Pictures(-1), this);
  }
  if (event->key() == Qt::Key_Escape && hover_.Close()) return;
  QWidget::keyPressEvent(event);
}

std::optional<WindowPlacement> Form1::Placement() const {
  if (!isVisible()) return std::nullopt;
  WindowPlacement placement;
  const QRect normal = isMaximized() || isMinimized() || isFullScreen() ? normalGeometry() : geometry();
  placement.normal = QRect(normal.topLeft() - (geometry().topLeft() - frameGeometry().topLeft()), normal.size());
  placement.showCmd = isMaximized() ? WindowPlacement::kMaximized : WindowPlacement::kNormal;
  return placement;
}

void Form1::closeEvent(QCloseEvent* event) {
  if (closing_ == Closing::Done) {
    event->accept();
    return;
  }
  event->ignore();
  CloseMe();
}

void Form1::CloseMe() {
  if (closing_ != Closing::No) return;
  closing_ = Closing::Waiting;
  showTimer_.stop();
  // What an open setup window holds belongs to the state that is written now.
  windows_->ProgramEnds();
  if (!logic_.mover.IsBusy()) return FirstClosingStep();
  // Pictures that stand under their new numbers already belong to places that are not in the state yet.
  connect(&logic_.mover, &PageMover::Ended, this, &Form1::FirstClosingStep);
  QTimer::singleShot(kMovedAtLast, this, &Form1::FirstClosingStep);
}

void Form1::FirstClosingStep() {
  if (closing_ != Closing::Waiting) return;
  closing_ = Closing::Running;
  const auto sendClosed = [this]() { received_->SendClosed(); };
  load_.WriteState(Placement(), sendClosed, [this](const QString& text) { dialogs_.Inform(this, text, false); });
  cams_->Stop();
  updates_->Stop();
  message_ = std::make_unique<frmShowMsg>(program_.config.GuiMode, this);
  message_->ShowMsg(u" "_s + program_.language[TextLine::kClosingText] + u" "_s, kClosingGreen);
  QTimer::singleShot(services_.run.closingPause, this, &Form1::SecondClosingStep);
}

void Form1::SecondClosingStep() {
  repaint();
  message_->ShowMsg(u" 73 de ZZ9QX "_s, kClosingGreen);
  QTimer::singleShot(services_.run.closingPause * 2, this, &Form1::ThirdClosingStep);
}

void Form1::ThirdClosingStep() {
  load_.CleanTemporaryFiles();
  // Half a second for work that is still under way.
  QTimer::singleShot(services_.run.closingPause / 2, this, &Form1::LastClosingStep);
}

void Form1::LastClosingStep() {
  message_.reset();
  closing_ = Closing::Done;
  media_->CloseAll();
  windows_->CloseAll();
  const QWidgetList windows = QApplication::topLevelWidgets();
  for (QWidget* window : windows) {
    if (window != this) window->close();
  }
  hide();
  Q_EMIT Closed();
}
