// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/map_on_air_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "onair/on_air_drawing.h"
#include "onair/station_text.h"
#include "station/callsign.h"
#include "ui/msg_box_timed.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kMessageTime = 10s;
constexpr int kGap = 4;
constexpr int kListShare = 2;  // the list takes one part in two of the window's height

}  // namespace

frmMapOnAir::frmMapOnAir(const Dependencies& dependencies, QWidget* opener)
    : CallMapWindow({u"frmMapOnAir"_s, u"cmdMaps"_s, u"cboMaps"_s}, dependencies.ownProgram, dependencies.maps,
                    dependencies.menus, opener),
      store_(dependencies.store),
      background_(dependencies.background),
      database_(dependencies.database),
      dialogs_(dependencies.dialogs),
      caption_(dependencies.caption),
      session_(dependencies, OnAirWindow::Map),
      panels_(session_, program_, this, this),
      cmdOnAir_(u"cmdOnAir"_s, this),
      cmdPaste_(u"cmdPaste"_s, this),
      cmdHelp_(u"cmdHelp"_s, this),
      picList2_(this),
      lblList2_(&picList2_),
      List2_(dependencies.tool, &picList2_),
      lstInfo_(this),
      tip_(this) {
  MakeControls();
  ConnectSignals();
}

void frmMapOnAir::MakeControls() {
  for (QWidget* control :
       std::initializer_list<QWidget*>{&cmdOnAir_, panels_.cmdMode(), panels_.cmdBand(), &cmdPaste_, &cmdHelp_}) {
    AddToBar(control);
  }
  picList2_.setObjectName(u"picList2"_s);
  picList2_.setFrameShape(QFrame::StyledPanel);
  picList2_.setAutoFillBackground(true);
  lblList2_.setObjectName(u"lblList2"_s);
  lblList2_.setAutoRaise(true);
  lblList2_.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  List2_.setObjectName(u"List2"_s);
  List2_.Model().ModeSide = Qt::AlignRight;
  for (const OnAirColumn column : {OnAirColumn::Azimuth, OnAirColumn::Picture, OnAirColumn::Extra}) {
    List2_.setColumnHidden(static_cast<int>(column), true);
  }
  auto* list = new QVBoxLayout(&picList2_);
  list->setContentsMargins(0, 0, 0, 0);
  list->setSpacing(0);
  list->addWidget(&lblList2_);
  list->addWidget(&List2_, 1);
  picList2_.hide();
  lstInfo_.setObjectName(u"lstInfo"_s);
  lstInfo_.setTextFormat(Qt::PlainText);
  lstInfo_.setMargin(4);
  lstInfo_.setFrameShape(QFrame::StyledPanel);
  lstInfo_.setAutoFillBackground(true);
  // The map can be dragged through it.
  lstInfo_.setAttribute(Qt::WA_TransparentForMouseEvents);
  lstInfo_.hide();
}

void frmMapOnAir::ConnectSignals() {
  connect(&cmdPaste_, &QToolButton::clicked, this, [this]() { Q_EMIT PasteWanted(Seen()); });
  connect(&session_, &OnAirSession::Changed, this, &frmMapOnAir::ShowView);
  connect(&session_.Feed(), &OnAirFeed::Failed, this,
          [this](const QString& message) { frmMsgBoxTimed::ShowMsg(this, message, kMessageTime); });
  connect(&caption_, &OnAirCaption::Changed, this, &frmMapOnAir::ShowCaptions);
  connect(&cmdOnAir_, &QToolButton::clicked, this, [this]() { ShowList(!picList2_.isVisible()); });
  connect(&lblList2_, &QToolButton::clicked, this, [this]() { ShowList(false); });
  connect(&cmdHelp_, &QToolButton::clicked, this,
          [this]() { dialogs_.Inform(this, program_.language[TextLine::kMapHelp].trimmed(), false); });
  connect(&View(), &MapView::LabelPointed, this, &frmMapOnAir::ShowInfoOf);
  // The map has been moved under the open text, by the keys or by a drag that began at the label.
  connect(&View(), &MapView::Panned, this, [this]() {
    if (lstInfo_.isVisible()) PlaceInfoOf(LabelOf(infoCall_));
  });
  connect(&List2_, &OnAirGrid::HeadClicked, this, [this](OnAirColumn head) {
    session_.SortBy(head);
    List2_.ShowOrder(session_.Order());
  });
  connect(&List2_, &OnAirGrid::RowPressed, this, [this](int row, bool byKeyboard) {
    tip_.ShowTip(TextOf(List2_.Model().Entries().at(row).call), List2_.RowPlace(row), !byKeyboard);
  });
  connect(&List2_, &OnAirGrid::MenuWanted, this, [this](int row, const QPoint& at, bool byKeyboard) {
    tip_.hide();
    menus_.OpenMenu(List2_.MenuOf(row, at, byKeyboard));
  });
  connect(&List2_, &OnAirGrid::Moved, &tip_, &QWidget::hide);
}

void frmMapOnAir::Open() {
  if (BringToFront()) return;
  // A number that is no map shows the first one.
  const int stored = StoredSettings(store_).Number(Setting::OnAirMapIndex);
  SetMapIndex(stored >= 0 && stored < program_.lstMap.size() ? stored : 0);
  Redraw_Map();
  session_.Open();
}

void frmMapOnAir::StoreMapIndex(int index) {
  StoredSettings(store_).SetNumber(Setting::OnAirMapIndex, index);
  store_.SaveLater(background_);
}

void frmMapOnAir::ShowTexts() {
  const LanguageTexts& language = program_.language;
  menus_.CloseMenus();
  tip_.hide();
  lstInfo_.hide();
  panels_.ShowTexts();
  cmdPaste_.SetCaption(language[TextLine::kViewPasteTip].trimmed());
  cmdHelp_.SetCaption(language[TextLine::kSetupHelp].trimmed());
  const QString title = language[TextLine::kOnAirListTitle].trimmed();
  lblList2_.setText(title + u"  -  "_s + language[TextLine::kOnAirListColumns].trimmed() + u'\n' +
                    language[TextLine::kOnAirListClose].trimmed());
  lblList2_.setAccessibleName(lblList2_.text().simplified());
  List2_.setAccessibleName(title);
  List2_.Model().ShowTexts();
  ShowCaptions();
  if (IsOpened()) session_.Rebuild();
  CallMapWindow::ShowTexts();
}

void frmMapOnAir::ShowCaptions() {
  const QString title = TitleOn({});
  if (windowTitle() != title) setWindowTitle(title);
  setAccessibleName(title);
  cmdOnAir_.SetCaption(caption_.Text() + CountText());
}

QString frmMapOnAir::TitleOn(const QString& map) const {
  Q_UNUSED(map)
  return program_.language[TextLine::kOnAirText] + CountText();
}

QString frmMapOnAir::CountText() const {
  return u" ("_s + QString::number(drawn_.size()) + u')';
}

void frmMapOnAir::ShowView() {
  const OnAirView& view = session_.View();
  List2_.Take(view.entries);
  if (view.entries == drawn_ && view.leftOut == leftOut_) return;
  drawn_ = view.entries;
  leftOut_ = view.leftOut;
  ShowCaptions();
  RedrawOverlay();
  PlaceInfo();
}

MapDrawing frmMapOnAir::BuildDrawing(const MapSurface& surface) {
  MapDrawing drawing = BuildOnAirDrawing(program_, drawn_, surface);
  drawing.info = leftOut_;
  return drawing;
}

QString frmMapOnAir::TextOf(const QString& call) {
  return StationText(ShownCall(call, program_.ZeroGlyph), database_.Find(call));
}

void frmMapOnAir::ShowInfoOf(qsizetype label) {
  infoCall_ = label < 0 ? QString() : View().Labels().value(label).id;
  if (infoCall_.isEmpty()) return lstInfo_.hide();
  lstInfo_.setText(TextOf(infoCall_).remove(u'\r'));
  lstInfo_.setAccessibleName(lstInfo_.text().simplified());
  lstInfo_.adjustSize();
  PlaceInfoOf(label);
  lstInfo_.show();
  lstInfo_.raise();
}

void frmMapOnAir::PlaceInfoOf(qsizetype label) {
  // Beside the label, on its other side where there is no room.
  const QRect place = View().LabelRect(label).translated(View().pos());
  QPoint at = place.bottomRight() + QPoint(kGap, kGap);
  if (at.x() + lstInfo_.width() > width()) at.setX(place.left() - kGap - lstInfo_.width());
  if (at.y() + lstInfo_.height() > height()) at.setY(place.top() - kGap - lstInfo_.height());
  lstInfo_.move(std::max(0, at.x()), std::max(0, at.y()));
}

void frmMapOnAir::ShowList(bool shown) {
  tip_.hide();
  picList2_.setVisible(shown);
  if (!shown) return View().setFocus();
  PlaceList();
  picList2_.raise();
  List2_.setFocus();
}

void frmMapOnAir::PlaceList() {
  const QPoint below = cmdOnAir_.mapTo(this, QPoint(0, cmdOnAir_.height()));
  const int wide = std::max(List2_.WantedWidth(), lblList2_.sizeHint().width());
  picList2_.setGeometry(std::clamp(below.x(), 0, std::max(0, width() - wide)), below.y(), std::min(wide, width()),
                        (height() - below.y()) / kListShare);
}

void frmMapOnAir::resizeEvent(QResizeEvent* event) {
  CallMapWindow::resizeEvent(event);
  if (picList2_.isVisible()) PlaceList();
}

bool frmMapOnAir::ShowCall(const QString& call) {
  const qsizetype label = LabelOf(call);
  if (label < 0) return false;
  ShowList(false);
  View().FocusLabel(label);
  return true;
}

QRect frmMapOnAir::ListPlace() const {
  return {picList2_.mapToGlobal(QPoint(0, 0)), picList2_.size()};
}

void frmMapOnAir::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Refresh)) return session_.Refresh();
  if (event->key() == Qt::Key_Escape && tip_.isVisible()) return tip_.hide();
  if (event->key() == Qt::Key_Escape && picList2_.isVisible()) return ShowList(false);
  CallMapWindow::keyPressEvent(event);
}

void frmMapOnAir::closeEvent(QCloseEvent* event) {
  panels_.Close();
  tip_.hide();
  menus_.CloseMenus();
  CallMapWindow::closeEvent(event);
}
