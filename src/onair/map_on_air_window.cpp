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
    : MapWindow({u"frmMapOnAir"_s, u"cboMaps"_s, u"lstMaps"_s}, dependencies.ownProgram, dependencies.maps,
                dependencies.menus, opener),
      ownProgram_(dependencies.ownProgram),
      store_(dependencies.store),
      background_(dependencies.background),
      database_(dependencies.database),
      dialogs_(dependencies.dialogs),
      caption_(dependencies.caption),
      session_(dependencies, OnAirWindow::Map),
      picBand_(CheckPanel::BandNames(), session_.ckBand().Count(), this, this),
      picMode_(CheckPanel::ModeNames(), session_.ckMode().Count(), this, this),
      cmdOnAir_(u"cmdOnAir"_s, this),
      cmdPaste_(u"cmdPaste"_s, this),
      cmdHelp_(u"cmdHelp"_s, this),
      picList2_(this),
      lblList2_(u"lblList2"_s, &picList2_),
      List2_(dependencies.tool, &picList2_),
      lstInfo_(this),
      tip_(this) {
  MakeControls();
  ConnectSignals();
}

void frmMapOnAir::MakeControls() {
  for (QWidget* control :
       std::initializer_list<QWidget*>{&cmdOnAir_, picMode_.Button(), picBand_.Button(), &cmdPaste_, &cmdHelp_}) {
    AddToBar(control);
  }
  // Nothing can paste yet.
  cmdPaste_.setEnabled(false);
  picList2_.setObjectName(u"picList2"_s);
  picList2_.setFrameShape(QFrame::StyledPanel);
  picList2_.setAutoFillBackground(true);
  List2_.setObjectName(u"List2"_s);
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
  connect(&session_, &OnAirSession::Changed, this, &frmMapOnAir::ShowView);
  connect(&session_, &OnAirSession::FilterChanged, this, &frmMapOnAir::ShowFilter);
  connect(&session_.Feed(), &OnAirFeed::Failed, this,
          [this](const QString& message) { frmMsgBoxTimed::ShowMsg(this, message, kMessageTime); });
  connect(&caption_, &OnAirCaption::Changed, this, &frmMapOnAir::ShowCaptions);
  connect(&picBand_, &CheckPanel::Closed, &session_, &OnAirSession::SetBands);
  connect(&picMode_, &CheckPanel::Closed, &session_, &OnAirSession::SetModes);
  connect(&cmdOnAir_, &QToolButton::clicked, this, [this]() { ShowList(!picList2_.isVisible()); });
  connect(&lblList2_, &QToolButton::clicked, this, [this]() { ShowList(false); });
  connect(&cmdHelp_, &QToolButton::clicked, this,
          [this]() { dialogs_.Inform(this, program_.language[TextLine::kMapHelp].trimmed(), false); });
  connect(&View(), &MapView::LabelPointed, this, &frmMapOnAir::ShowInfoOf);
  connect(&List2_, &OnAirGrid::HeadClicked, this, [this](OnAirColumn head) {
    session_.SortBy(head);
    List2_.ShowOrder(session_.Order());
  });
  connect(&List2_, &OnAirGrid::RowPressed, this, [this](int row, bool byKeyboard) {
    tip_.ShowTip(TextOf(List2_.Model().Entries().at(row).call), List2_.RowPlace(row), !byKeyboard);
  });
  connect(&List2_, &OnAirGrid::Moved, &tip_, &QWidget::hide);
}

void frmMapOnAir::Open() {
  if (std::exchange(opened_, true)) {
    show();
    raise();
    activateWindow();
    return;
  }
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
  const QString close = language[TextLine::kCloseWord].trimmed();
  const QString& code = program_.config.OnAirCode;
  picBand_.SetTexts(BuiltInText(code, OnAirText::kBandPanel), OnAirSession::BandCaptions(), close);
  picMode_.SetTexts(BuiltInText(code, OnAirText::kModePanel), OnAirSession::ModeCaptions(), close);
  cmdPaste_.SetCaption(language[TextLine::kViewPasteTip].trimmed());
  cmdHelp_.SetCaption(language[TextLine::kSetupHelp].trimmed());
  const QString title = language[TextLine::kOnAirListTitle].trimmed();
  lblList2_.SetCaption(title + u"  -  "_s + language[TextLine::kOnAirListColumns].trimmed() + u"\r\n"_s +
                       language[TextLine::kOnAirListClose].trimmed());
  List2_.setAccessibleName(title);
  List2_.Model().ShowTexts();
  ShowFilter();
  ShowCaptions();
  if (opened_) session_.Rebuild();
  MapWindow::ShowTexts();
}

void frmMapOnAir::ShowFilter() {
  picBand_.SetBoxes(session_.ckBand());
  picMode_.SetBoxes(session_.ckMode());
  picBand_.SetSummary(session_.BandSummary());
  picMode_.SetSummary(session_.ModeSummary());
}

void frmMapOnAir::ShowCaptions() {
  const QString count = u" ("_s + QString::number(drawn_.size()) + u')';
  const QString title = program_.language[TextLine::kOnAirText] + count;
  if (windowTitle() != title) setWindowTitle(title);
  setAccessibleName(title);
  cmdOnAir_.SetCaption(caption_.Text() + count);
}

void frmMapOnAir::ShowView() {
  const QList<OnAirEntry>& entries = session_.View().entries;
  List2_.Take(entries);
  if (entries == drawn_) return;
  drawn_ = entries;
  ShowCaptions();
  RedrawOverlay();
}

MapDrawing frmMapOnAir::BuildDrawing(const MapSurface& surface) {
  MapDrawing drawing = BuildOnAirDrawing(program_, drawn_, surface);
  drawing.info = session_.View().leftOut;
  return drawing;
}

QString frmMapOnAir::TextOf(const QString& call) {
  return StationText(ShownCall(call, program_.ZeroGlyph), database_.Find(call));
}

void frmMapOnAir::ShowInfoOf(qsizetype label) {
  if (label < 0 || label >= View().Labels().size() || View().Labels().at(label).id.isEmpty()) return lstInfo_.hide();
  lstInfo_.setText(TextOf(View().Labels().at(label).id).remove(u'\r'));
  lstInfo_.setAccessibleName(lstInfo_.text().simplified());
  lstInfo_.adjustSize();
  // Beside the label, on its other side where there is no room.
  const QRect place = View().LabelRect(label).translated(View().pos());
  QPoint at = place.bottomRight() + QPoint(kGap, kGap);
  if (at.x() + lstInfo_.width() > width()) at.setX(place.left() - kGap - lstInfo_.width());
  if (at.y() + lstInfo_.height() > height()) at.setY(place.top() - kGap - lstInfo_.height());
  lstInfo_.move(std::max(0, at.x()), std::max(0, at.y()));
  lstInfo_.show();
  lstInfo_.raise();
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
  MapWindow::resizeEvent(event);
  if (picList2_.isVisible()) PlaceList();
}

qsizetype frmMapOnAir::LabelNamed(const QString& name) const {
  const QList<MapOverlay::Label>& labels = const_cast<frmMapOnAir*>(this)->View().Labels();
  const auto found = std::find_if(labels.begin(), labels.end(), [&](const auto& label) { return label.name == name; });
  return found == labels.end() ? -1 : found - labels.begin();
}

void frmMapOnAir::LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) {
  const qsizetype label = LabelNamed(name);
  if (label < 0) return;
  menuCall_ = View().Labels().at(label).id;
  MenuRequest request;
  request.menu = MenuId::MapCall;
  request.subject.caller = menuCall_;
  request.subject.placed = true;
  request.owner = this;
  request.name = menuCall_;
  request.at = at;
  request.byKeyboard = byKeyboard;
  menus_.OpenMenu(request);
}

void frmMapOnAir::MnuPopupClick(int index) {
  if (index != 0) return;  // the satellite views have no window yet
  QRect place(View().rect().center(), QSize(1, 1));
  // The feed may have changed while the menu was open.
  for (qsizetype i = 0; i < View().Labels().size(); ++i) {
    if (View().Labels().at(i).id == menuCall_) place = View().LabelRect(i);
  }
  Q_EMIT LookupWanted(menuCall_, QRect(View().mapToGlobal(place.topLeft()), place.size()));
}

void frmMapOnAir::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Refresh)) return session_.Refresh();
  if (event->key() == Qt::Key_Escape && tip_.isVisible()) return tip_.hide();
  if (event->key() == Qt::Key_Escape && picList2_.isVisible()) return ShowList(false);
  MapWindow::keyPressEvent(event);
}

void frmMapOnAir::closeEvent(QCloseEvent* event) {
  // What was ticked in an open panel counts.
  picBand_.Close();
  picMode_.Close();
  tip_.hide();
  menus_.CloseMenus();
  MapWindow::closeEvent(event);
}
