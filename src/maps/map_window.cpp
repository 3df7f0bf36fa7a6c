// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "maps/label_layout.h"
#include "maps/map_geometry.h"
#include "maps/map_list.h"
#include "maps/map_projection.h"
#include "station/locator.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSmallest(360, 220);  // a tiny picture leaves room for the bar
constexpr int kInfoGap = 4;           // between bar and info panel
constexpr int kInfoRoom = 40;         // the info panel is that much wider than its text

}  // namespace

MapWindow::MapWindow(const Names& names, Program& program, MapStore& store, MenuOpener& menus, QWidget* opener)
    : BaseWindow(opener, Qt::Window),
      program_(program),
      menus_(menus),
      store_(store),
      picOuter_(new MapView(this)),
      imgMenuBar_(this),
      bar_(new QHBoxLayout(&imgMenuBar_)),
      maps_(names.mapsButton, names.mapsList, &imgMenuBar_, this),
      Shape1_(&imgMenuBar_),
      lblHelp_(&imgMenuBar_),
      Shape2_(&imgMenuBar_),
      lblCopy_(u"lblCopy"_s, &imgMenuBar_),
      lblSave_(u"lblSave"_s, &imgMenuBar_),
      cmdClose_(u"cmdClose"_s, &imgMenuBar_),
      picInfo_(this),
      lblMapInfo1_(&picInfo_),
      lblPointer_(this) {
  setObjectName(names.window);
  setMinimumSize(kSmallest);
  MakeBar();
  picInfo_.setObjectName(u"picInfo"_s);
  picInfo_.setFrameShape(QFrame::StyledPanel);
  picInfo_.setAutoFillBackground(true);
  // Mouse events pass through the panel, so that the map below it can be dragged.
  picInfo_.setAttribute(Qt::WA_TransparentForMouseEvents);
  lblMapInfo1_.setObjectName(u"lblMapInfo1"_s);
  lblMapInfo1_.setTextFormat(Qt::PlainText);
  lblMapInfo1_.setAlignment(Qt::AlignCenter);
  lblPointer_.setObjectName(u"lblPointer"_s);
  lblPointer_.setTextFormat(Qt::PlainText);
  lblPointer_.setAlignment(Qt::AlignCenter);
  lblPointer_.setAutoFillBackground(true);
  lblPointer_.setAttribute(Qt::WA_TransparentForMouseEvents);
  lblPointer_.hide();

  connect(&maps_, &MapChooser::Chosen, this, &MapWindow::ChooseMap);
  connect(&maps_, &MapChooser::Dismissed, this, [this]() { picOuter_->setFocus(); });
  connect(&lblCopy_, &QToolButton::clicked, this, [this]() { Q_EMIT CopyWanted(Seen()); });
  connect(&lblSave_, &QToolButton::clicked, this, [this]() { Q_EMIT SaveWanted(Seen()); });
  connect(&cmdClose_, &QToolButton::clicked, this, &QWidget::close);
  connect(picOuter_, &MapView::Panned, this, &MapWindow::StoreOffsets);
  connect(picOuter_, &MapView::PointerMoved, this, &MapWindow::ShowPointer);
  connect(picOuter_, &MapView::LabelClicked, this,
          [this](const QString& name, const QPoint& at, bool byKeyboard) { LabelPressed(name, at, byKeyboard); });
  picOuter_->setFocus();
}

void MapWindow::MakeBar() {
  imgMenuBar_.setObjectName(u"imgMenuBar"_s);
  imgMenuBar_.setAutoFillBackground(true);
  lblHelp_.setObjectName(u"lblHelp"_s);
  lblHelp_.setTextFormat(Qt::PlainText);
  // A long help text is cut off instead of forcing the window's width.
  lblHelp_.setMinimumWidth(1);
  Shape1_.setObjectName(u"Shape1"_s);
  Shape2_.setObjectName(u"Shape2"_s);
  for (QFrame* shape : {&Shape1_, &Shape2_}) {
    shape->setFrameShape(QFrame::VLine);
    shape->setFrameShadow(QFrame::Sunken);
  }
  bar_->setContentsMargins(6, 0, 2, 0);
  bar_->setSpacing(4);
  bar_->addWidget(&maps_);
  bar_->addWidget(&Shape1_);
  bar_->addWidget(&lblHelp_, 1);
  bar_->addWidget(&Shape2_);
  bar_->addWidget(&lblCopy_);
  bar_->addWidget(&lblSave_);
  bar_->addWidget(&cmdClose_);
}

void MapWindow::AddToBar(QWidget* control) {
  bar_->insertWidget(bar_->indexOf(&lblHelp_), control);
}

void MapWindow::ShowTexts() {
  const LanguageTexts& language = program_.language;
  maps_.SetTexts(language[TextLine::kMapsWord].trimmed());
  lblHelp_.setText(language[TextLine::kMapHelp].trimmed());
  lblHelp_.setToolTip(lblHelp_.text());
  lblCopy_.SetCaption(language[TextLine::kViewCopy].trimmed());
  lblSave_.SetCaption(language[TextLine::kViewSave].trimmed());
  cmdClose_.SetCaption(language[TextLine::kCloseWord].trimmed());
  if (!isVisible()) return;
  RedrawOverlay();
  PlaceInfo();
}

void MapWindow::Redraw_Map() {
  ShowTexts();
  maps_.SetMaps(program_.lstMap, mapIndex_);
  store_.Read(program_.lstMap.value(mapIndex_), this, [this, token = picture_.Ask()](const MapPicture& picture) {
    if (token.StillWanted()) Display_Map(picture);
  });
  if (!testAttribute(Qt::WA_WState_Polished)) PrepareFirstShow();
}

// Does while the picture is being read what the first show would have to wait for: styles, fonts, sizes. The native
// window is not made yet, because an existing one would be placed without its decoration.
void MapWindow::PrepareFirstShow() {
  ensurePolished();
  const QList<QWidget*> controls = findChildren<QWidget*>();
  for (const QWidget* control : controls) control->ensurePolished();
  bar_->activate();
  const QWidget* on = parentWidget() != nullptr ? parentWidget() : this;
  picOuter_->Prepare(on->screen()->availableGeometry().size());
}

void MapWindow::Display_Map(const MapPicture& picture) {
  // Where the file cannot be read, the picture that is shown stays.
  failed_ = picture.failed;
  if (!picture.pixels.isNull()) {
    picOuter_->SetPicture(picture.pixels, picture.size);
    shownFile_ = program_.lstMap.value(mapIndex_);
  }
  const QString title = MapTitle(program_.lstMap, mapIndex_);
  const QString maps = program_.language[TextLine::kMapsWord].trimmed();
  const QString map = title.isEmpty() ? Program::Title() + u"  "_s + maps : title;
  setWindowTitle(TitleOn(map));
  picOuter_->setAccessibleName(map);
  RedrawOverlay();
  picOuter_->SetHome(keep_, kMapBottomRoom);
  PlaceOnScreen();
  // The window opens with the focus on the map, not on a button of its bar.
  if (!isVisible()) picOuter_->setFocus();
  show();
  raise();
  activateWindow();
}

// Makes the window as large as the picture, where the screen allows it, and puts it into the middle of the screen.
void MapWindow::PlaceOnScreen() {
  // show() would leave a minimized window minimized.
  setWindowState(windowState() & ~Qt::WindowMinimized);
  const QWidget* on = isVisible() || parentWidget() == nullptr ? this : parentWidget();
  const QRect room = on->screen()->availableGeometry();
  const QSize allowance = FrameAllowance();
  const QSize outer =
      MapWindowSize(picOuter_->PictureSize(), allowance, room.size()).expandedTo(minimumSize() + allowance);
  const bool sized = size() == outer - allowance;
  resize(outer - allowance);
  move(room.topLeft() + QPoint((room.width() - outer.width()) / 2, (room.height() - outer.height()) / 2));
  if (sized || !isVisible()) PlaceControls();
}

void MapWindow::RedrawOverlay() {
  const QString file = program_.lstMap.value(mapIndex_);
  const MapSurface surface{MapOfName(MapTitle(program_.lstMap, mapIndex_)), picOuter_->PictureSize(),
                           [this](const QString& text) { return picOuter_->LabelSize(text); }};
  MapDrawing drawing = BuildDrawing(surface);
  // The picture of another map is still shown: points by this map's formula would lie in wrong places on it.
  if (shownFile_ != file) {
    drawing.overlay = {};
    drawing.keep.reset();
  }
  ShowOverlay(drawing.overlay);
  info_ = drawing.info;
  spoken_ = drawing.spoken;
  keep_ = drawing.keep;
  ShowInfo();
}

// Labels that have no place yet get one beside the event loop; until then the view keeps what it shows, except on
// another map, where nothing of it would be right.
void MapWindow::ShowOverlay(const MapOverlay& overlay) {
  const Wanted::Token token = layoutWanted_.Ask();
  const auto placeless = [](const MapOverlay::Label& label) { return label.anchor.has_value(); };
  const bool placed = std::none_of(overlay.labels.begin(), overlay.labels.end(), placeless);
  if (placed || overlayFile_ != shownFile_) {
    MapOverlay now = overlay;
    now.labels.removeIf(placeless);
    picOuter_->SetOverlay(now);
    overlayFile_ = shownFile_;
  }
  if (placed) return;
  const auto layOut = [overlay, size = picOuter_->PictureSize()]() {
    MapOverlay laidOut = overlay;
    LayOutLabels(laidOut, size);
    return laidOut;
  };
  layout_.Run<MapOverlay>(this, layOut, [this, token](const MapOverlay& laidOut) {
    if (token.StillWanted()) picOuter_->SetOverlay(laidOut);
  });
}

void MapWindow::ShowInfo() {
  QString text = info_;
  const QString file = program_.lstMap.value(mapIndex_);
  if (failed_ && !file.isEmpty()) {
    const QString name = lblMapInfo1_.fontMetrics().elidedText(file, Qt::ElideMiddle, kSmallest.width() / 2);
    if (!text.isEmpty()) text += u'\n';
    text += tr("%1 cannot be read").arg(name);
  }
  picOuter_->setAccessibleDescription(spoken_.isEmpty() ? text : text + u'\n' + spoken_);
  lblMapInfo1_.setText(text);
}

void MapWindow::PlaceControls() {
  const int menuBarHeight = std::max(kMapBottomRoom, imgMenuBar_.sizeHint().height());
  imgMenuBar_.setGeometry(0, 0, width(), menuBarHeight);
  maps_.FitToWindow(width());
  picOuter_->FitMapToWindow(size(), menuBarHeight);
  PlaceInfo();
  PlacePointer();
  maps_.CloseList();
}

namespace {

// "52.50° N  1.25° W  IO92jm"
QString PlaceText(const MapDegrees& place) {
  const auto degrees = [](double value) { return QString::number(std::abs(value), 'f', 2); };
  const QString north = place.lat < 0 ? MapWindow::tr("%1° S") : MapWindow::tr("%1° N");
  const QString east = place.lon < 0 ? MapWindow::tr("%1° W") : MapWindow::tr("%1° E");
  return north.arg(degrees(place.lat)) + u"  "_s + east.arg(degrees(place.lon)) + u"  "_s +
         MakeGridLocator(place.lat, place.lon);
}

}  // namespace

void MapWindow::ShowPointer(const std::optional<QPointF>& point) {
  std::optional<MapDegrees> place;
  const QString file = program_.lstMap.value(mapIndex_);
  if (point && shownFile_ == file) {
    place = PixelToLatLon(MapOfName(MapTitle(program_.lstMap, mapIndex_)), {point->x(), point->y()});
  }
  lblPointer_.setVisible(place.has_value());
  if (place) lblPointer_.setText(PlaceText(*place));
}

// As wide as the widest text, so that a moving pointer repaints nothing beside it.
void MapWindow::PlacePointer() {
  const QSize text = lblPointer_.fontMetrics().size(0, PlaceText({-88.88, -168.88}) + u"WW"_s);
  const QSize size = text + QSize(2 * kInfoGap, 2 * kInfoGap);
  lblPointer_.setGeometry(QRect(QPoint(kInfoGap, height() - size.height() - kInfoGap), size));
}

void MapWindow::PlaceInfo() {
  const QSize text = lblMapInfo1_.sizeHint();
  picInfo_.setVisible(!lblMapInfo1_.text().isEmpty());
  picInfo_.resize(text.width() + kInfoRoom, text.height() + 2 * kInfoGap);
  picInfo_.move((width() - picInfo_.width()) / 2, imgMenuBar_.height() + kInfoGap);
  lblMapInfo1_.setGeometry(picInfo_.rect());
}

// Width and height of the window manager's decoration. It is known once the window has been shown; until then the
// decoration of the opener serves.
QSize MapWindow::FrameAllowance() {
  const QWidget* shown = isVisible() ? this : parentWidget();
  if (shown != nullptr && shown->isVisible()) frameAllowance_ = shown->frameGeometry().size() - shown->size();
  return frameAllowance_;
}

void MapWindow::ChooseMap(int index) {
  picOuter_->setFocus();
  mapIndex_ = index;
  StoreMapIndex(index);
  Redraw_Map();
}

void MapWindow::StoreOffsets(int left, int top) {
  const bool known = mapIndex_ >= 0 && shownFile_ == program_.lstMap.value(mapIndex_);
  if (known && picOuter_->Fit().PanX && mapIndex_ < program_.MapLeft.size()) program_.MapLeft[mapIndex_] = left;
  if (known && picOuter_->Fit().PanY && mapIndex_ < program_.MapTop.size()) program_.MapTop[mapIndex_] = top;
}

void MapWindow::resizeEvent(QResizeEvent* event) {
  BaseWindow::resizeEvent(event);
  PlaceControls();
}

void MapWindow::changeEvent(QEvent* event) {
  BaseWindow::changeEvent(event);
  // The places of labels and the bar's height depend on the font.
  if (event->type() != QEvent::FontChange || !isVisible()) return;
  RedrawOverlay();
  PlaceControls();
}

// The frame reaches below the window's edge, and the picture need not fill it.
QImage MapWindow::Seen() {
  return picOuter_->grab(picOuter_->rect() & picOuter_->picInner() & rect().translated(-picOuter_->pos())).toImage();
}

void MapWindow::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return Q_EMIT CopyWanted(Seen());
  if (event->matches(QKeySequence::Save)) return Q_EMIT SaveWanted(Seen());
  BaseWindow::keyPressEvent(event);
}

void MapWindow::closeEvent(QCloseEvent* event) {
  // A picture that is still being read would show the closed window again before it is deleted.
  picture_.Withdraw();
  BaseWindow::closeEvent(event);
}
