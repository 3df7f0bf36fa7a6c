// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_location_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSmallest(360, 220);  // a tiny picture leaves room for the bar
constexpr int kInfoGap = 4;           // between bar and info panel
constexpr int kInfoRoom = 40;         // the info panel is that much wider than its text
constexpr int kMostMapsShown = 12;    // rows of lstMaps before it scrolls

// Entries of the menu on lblCall.
enum PopupEntry { kLookup, kViewAddress, kViewCoordinates };

}  // namespace

frmMapLoc::frmMapLoc(Program& program, MapStore& store, QWidget* owner)
    : QWidget(owner, Qt::Window),
      program_(program),
      store_(store),
      owner_(owner),
      picOuter_(new MapView(this)),
      imgMenuBar_(this),
      lblMaps_(&imgMenuBar_),
      cmdMaps_(u"cmdMaps"_s, &imgMenuBar_),
      Shape1_(&imgMenuBar_),
      lblHelp_(&imgMenuBar_),
      Shape2_(&imgMenuBar_),
      cmdClose_(u"cmdClose"_s, &imgMenuBar_),
      picInfo_(this),
      lblMapInfo1_(&picInfo_),
      lstMaps_(this),
      menu_(this) {
  setObjectName(u"frmMapLoc"_s);
  setMinimumSize(kSmallest);
  MakeBar();

  picInfo_.setObjectName(u"picInfo"_s);
  picInfo_.setFrameShape(QFrame::StyledPanel);
  picInfo_.setAutoFillBackground(true);
  // The map can be dragged through it.
  picInfo_.setAttribute(Qt::WA_TransparentForMouseEvents);
  lblMapInfo1_.setObjectName(u"lblMapInfo1"_s);
  lblMapInfo1_.setTextFormat(Qt::PlainText);
  lblMapInfo1_.setAlignment(Qt::AlignCenter);

  // Were it to take the focus, a click on it would close the list by that, and open it again.
  cmdMaps_.setFocusPolicy(Qt::TabFocus);
  lstMaps_.setObjectName(u"lstMaps"_s);
  lstMaps_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lstMaps_.hide();
  lstMaps_.installEventFilter(this);

  connect(&cmdMaps_, &QToolButton::clicked, this, &frmMapLoc::ToggleMaps);
  connect(&cmdClose_, &QToolButton::clicked, this, &QWidget::close);
  connect(&lstMaps_, &QListWidget::itemClicked, this, [this]() { ChooseMap(lstMaps_.currentRow()); });
  connect(picOuter_, &MapView::Panned, this, &frmMapLoc::StoreOffsets);
  connect(picOuter_, &MapView::LabelClicked, this,
          [this](const QString&, const QPoint& at, bool byKeyboard) { OpenPopup(at, byKeyboard); });
  connect(&menu_, &frmMenu::Chosen, this, [this](const MenuEntry& entry) { MnuPopupClick(entry.index); });
  FillTexts();
  picOuter_->setFocus();
}

void frmMapLoc::MakeBar() {
  imgMenuBar_.setObjectName(u"imgMenuBar"_s);
  imgMenuBar_.setAutoFillBackground(true);
  lblMaps_.setObjectName(u"lblMaps"_s);
  lblMaps_.installEventFilter(this);
  lblHelp_.setObjectName(u"lblHelp"_s);
  // Cut off rather than keep the window wide.
  lblHelp_.setMinimumWidth(1);
  for (QLabel* label : {&lblMaps_, &lblHelp_}) label->setTextFormat(Qt::PlainText);
  Shape1_.setObjectName(u"Shape1"_s);
  Shape2_.setObjectName(u"Shape2"_s);
  for (QFrame* shape : {&Shape1_, &Shape2_}) {
    shape->setFrameShape(QFrame::VLine);
    shape->setFrameShadow(QFrame::Sunken);
  }
  auto* row = new QHBoxLayout(&imgMenuBar_);
  row->setContentsMargins(6, 0, 2, 0);
  row->setSpacing(4);
  row->addWidget(&lblMaps_);
  row->addWidget(&cmdMaps_);
  row->addWidget(&Shape1_);
  row->addWidget(&lblHelp_, 1);
  row->addWidget(&Shape2_);
  row->addWidget(&cmdClose_);
}

void frmMapLoc::SetTexts() {
  FillTexts();
  if (!isVisible()) return;
  Draw();
  PlaceInfo();
}

void frmMapLoc::FillTexts() {
  const LanguageTexts& language = program_.language;
  const QString maps = language[TextLine::kMapsWord].trimmed();
  lblMaps_.setText(maps);
  lblHelp_.setText(language[TextLine::kMapHelp].trimmed());
  lblHelp_.setToolTip(lblHelp_.text());
  cmdClose_.SetCaption(language[TextLine::kCloseWord].trimmed());
  lstMaps_.setAccessibleName(maps);
  const QStringList names = MapListNames(program_.lstMap);
  const QString name = names.value(program_.config.MapIndex);
  cmdMaps_.SetCaption(name + u" ▾"_s);
  cmdMaps_.setAccessibleName((maps + u' ' + name).trimmed());
  lstMaps_.clear();
  lstMaps_.addItems(names);
  lstMaps_.setCurrentRow(program_.config.MapIndex);
}

void frmMapLoc::PickMapForTarget(const QString& callsign) {
  target_ = {callsign, program_.TargetLat, program_.TargetLon};
  program_.config.MapIndex = BestMapIndex(program_.lstMap, target_.lat, target_.lon);
  Redraw_Map();
}

void frmMapLoc::Redraw_Map() {
  FillTexts();
  store_.Read(program_.lstMap.value(program_.config.MapIndex), this, [this, read = ++reads_](const QImage& picture) {
    if (read == reads_) Display_Map(picture);
  });
  // While the picture is read, what the first show takes: styles, fonts, sizes. The native window has to wait, as one
  // that is there already is placed without its decoration.
  if (testAttribute(Qt::WA_WState_Polished)) return;
  ensurePolished();
  const QList<QWidget*> parts = findChildren<QWidget*>();
  for (const QWidget* part : parts) part->ensurePolished();
  imgMenuBar_.layout()->activate();
  picOuter_->Prepare((owner_ == nullptr ? this : owner_)->screen()->availableGeometry().size());
}

void frmMapLoc::Display_Map(const QImage& picture) {
  // A file that cannot be shown leaves the picture of the map before.
  if (!picture.isNull()) picOuter_->SetPicture(picture);
  const QString title = MapTitle(program_.lstMap, program_.config.MapIndex);
  setWindowTitle(title.isEmpty() ? Program::Title() + u"  "_s + lblMaps_.text() : title);
  picOuter_->setAccessibleName(windowTitle());

  // A minimized window would stay where nobody sees it.
  setWindowState(windowState() & ~Qt::WindowMinimized);
  const QRect screenRoom = (isVisible() || owner_ == nullptr ? this : owner_)->screen()->availableGeometry();
  const QSize allowance = FrameAllowance();
  const QSize outer =
      MapWindowSize(picOuter_->Picture().size(), allowance, screenRoom.size()).expandedTo(minimumSize() + allowance);
  const bool sized = size() == outer - allowance;
  resize(outer - allowance);
  move(screenRoom.topLeft() +
       QPoint((screenRoom.width() - outer.width()) / 2, (screenRoom.height() - outer.height()) / 2));
  Draw();
  if (sized) PlaceParts();
  // A window that was closed by its bar would come back with the focus on the button that closed it.
  if (!isVisible()) picOuter_->setFocus();
  show();
  raise();
  activateWindow();
}

void frmMapLoc::Draw() {
  const LocationMap map = BuildLocationMap(program_, target_, picOuter_->Picture().size(),
                                           [this](const QString& text) { return picOuter_->LabelSize(text); });
  picOuter_->SetOverlay(map.overlay);
  picOuter_->setAccessibleDescription(map.info);
  lblMapInfo1_.setText(map.info);
  keep_ = map.keep;
}

void frmMapLoc::PlaceParts() {
  const int menuBarHeight = std::max(kMapBottomRoom, imgMenuBar_.sizeHint().height());
  imgMenuBar_.setGeometry(0, 0, width(), menuBarHeight);
  picOuter_->FitMapToWindow(size(), menuBarHeight);
  if (keep_) picOuter_->KeepInView(*keep_, kMapBottomRoom);
  PlaceInfo();
  lstMaps_.hide();
}

void frmMapLoc::PlaceInfo() {
  const QSize text = lblMapInfo1_.sizeHint();
  picInfo_.setVisible(!lblMapInfo1_.text().isEmpty());
  picInfo_.resize(text.width() + kInfoRoom, text.height() + 2 * kInfoGap);
  picInfo_.move((width() - picInfo_.width()) / 2, imgMenuBar_.height() + kInfoGap);
  lblMapInfo1_.setGeometry(picInfo_.rect());
}

// What the window manager adds. Known once the window has been shown; until then its owner's is as good.
QSize frmMapLoc::FrameAllowance() {
  const QWidget* shown = isVisible() ? this : owner_;
  if (shown != nullptr && shown->isVisible()) frameAllowance_ = shown->frameGeometry().size() - shown->size();
  return frameAllowance_;
}

void frmMapLoc::ToggleMaps() {
  if (lstMaps_.isVisible()) {
    ChooseMap(-1);
    return;
  }
  if (lstMaps_.count() == 0) return;
  const int rows = std::min(lstMaps_.count(), kMostMapsShown);
  const int edge = 2 * lstMaps_.frameWidth();
  const QPoint place = cmdMaps_.mapTo(this, QPoint(0, cmdMaps_.height()));
  lstMaps_.setGeometry(
      place.x(), place.y(),
      std::max(cmdMaps_.width(), lstMaps_.sizeHintForColumn(0) + edge + lstMaps_.fontMetrics().height()),
      std::min(rows * lstMaps_.sizeHintForRow(0) + edge, height() - place.y()));
  lstMaps_.show();
  lstMaps_.raise();
  lstMaps_.setFocus();
}

void frmMapLoc::ChooseMap(int index) {
  lstMaps_.hide();
  picOuter_->setFocus();
  if (index < 0) return;
  program_.config.MapIndex = index;
  Redraw_Map();
}

void frmMapLoc::OpenPopup(const QPoint& at, bool byKeyboard) {
  QList<MenuEntry> entries;
  for (const TextLine line : MenuLines::kMapCall) {
    MenuEntry entry;
    entry.text =
        QString(program_.language[line]).replace("***"_L1, program_.config.CallbookName).replace("??"_L1, target_.call);
    entry.index = static_cast<int>(entries.size());
    // The satellite views have no window yet.
    entry.enabled = entry.index == kLookup;
    entries.append(entry);
  }
  menu_.setAccessibleName(target_.call);
  menu_.MakeMenu(entries);
  menu_.OpenAt(at, byKeyboard ? frmMenu::Opener::Keyboard : frmMenu::Opener::Pointer);
}

void frmMapLoc::MnuPopupClick(int index) {
  if (index != kLookup) return;
  QRect label;
  for (qsizetype i = 0; i < picOuter_->Overlay().labels.size(); ++i) {
    if (picOuter_->Overlay().labels.at(i).clickable) label = picOuter_->LabelRect(i);
  }
  Q_EMIT LookupWanted(target_.call, QRect(picOuter_->mapToGlobal(label.topLeft()), label.size()));
}

void frmMapLoc::StoreOffsets(int left, int top) {
  const int map = program_.config.MapIndex;
  if (picOuter_->Fit().PanX && map >= 0 && map < program_.MapLeft.size()) program_.MapLeft[map] = left;
  if (picOuter_->Fit().PanY && map >= 0 && map < program_.MapTop.size()) program_.MapTop[map] = top;
}

void frmMapLoc::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceParts();
}

void frmMapLoc::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // The places of labels, and the bar's height, go by the size of the letters.
  if (event->type() != QEvent::FontChange || !isVisible()) return;
  Draw();
  PlaceParts();
}

void frmMapLoc::closeEvent(QCloseEvent* event) {
  // A picture that is still being read would bring the window back.
  ++reads_;
  QWidget::closeEvent(event);
}

void frmMapLoc::keyPressEvent(QKeyEvent* event) {
  auto* button = qobject_cast<QToolButton*>(focusWidget());
  switch (event->key()) {
    case Qt::Key_Escape:
      close();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // Not all desktops let it press a button.
      if (button != nullptr) button->click();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

bool frmMapLoc::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &lblMaps_ && event->type() == QEvent::MouseButtonRelease) ToggleMaps();
  if (watched != &lstMaps_) return QWidget::eventFilter(watched, event);
  if (event->type() == QEvent::FocusOut) lstMaps_.hide();
  if (event->type() != QEvent::KeyPress) return false;
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
      ChooseMap(-1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      ChooseMap(lstMaps_.currentRow());
      return true;
    default:
      return false;
  }
}
