// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_now_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "callbook/call_database.h"
#include "onair/station_text.h"
#include "ui/msg_box_timed.h"
#include "ui/window_place.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kHeight = 373;        // 5595 twips
constexpr int kLeftOfMiddle = 123;  // 1845 twips left of the main window's middle
constexpr auto kMessageTime = 10s;

}  // namespace

frmOnAirNow::frmOnAirNow(const Dependencies& dependencies, QWidget* owner)
    : BaseWindow(owner),
      program_(dependencies.program),
      database_(dependencies.database),
      menus_(dependencies.menus),
      session_(dependencies, OnAirWindow::List),
      bar_(this),
      panels_(session_, program_, &bar_, this),
      lblRefresh_(u"lblRefresh"_s, &bar_),
      gridOnAir_(dependencies.tool, this),
      lblLeftOut_(this),
      tip_(this),
      picBig_(dependencies.tool, this),
      caption_(dependencies.caption) {
  setObjectName(u"frmOnAirNow"_s);
  MakeLayout();
  ConnectSignals();
}

void frmOnAirNow::MakeLayout() {
  lblLeftOut_.setObjectName(u"lblLeftOut"_s);
  lblLeftOut_.setTextFormat(Qt::PlainText);
  lblLeftOut_.setWordWrap(true);
  lblLeftOut_.setMargin(4);
  lblLeftOut_.hide();
  auto* row = new QHBoxLayout(&bar_);
  row->setContentsMargins(2, 2, 2, 2);
  row->setSpacing(4);
  row->addWidget(panels_.cmdBand());
  row->addWidget(panels_.cmdMode());
  row->addWidget(&lblRefresh_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(&bar_);
  column->addWidget(&gridOnAir_, 1);
  column->addWidget(&lblLeftOut_);
  setTabOrder(panels_.cmdBand(), panels_.cmdMode());
  setTabOrder(panels_.cmdMode(), &lblRefresh_);
  setTabOrder(&lblRefresh_, &gridOnAir_);
  gridOnAir_.setFocus();
}

void frmOnAirNow::ConnectSignals() {
  connect(&session_, &OnAirSession::Changed, this, &frmOnAirNow::ShowView);
  connect(&session_.Feed(), &OnAirFeed::Failed, this,
          [this](const QString& message) { frmMsgBoxTimed::ShowMsg(this, message, kMessageTime); });
  connect(&lblRefresh_, &BarLabel::clicked, &session_, &OnAirSession::Refresh);
  connect(&gridOnAir_, &OnAirGrid::HeadClicked, this, [this](OnAirColumn head) {
    session_.SortBy(head);
    gridOnAir_.ShowOrder(session_.Order());
  });
  connect(&gridOnAir_, &OnAirGrid::RowPressed, this, [this](int row, bool byKeyboard) {
    ShowStation(row, !byKeyboard);
    if (byKeyboard) ShowPicture(row, gridOnAir_.RowPlace(row).topRight());
  });
  connect(&gridOnAir_, &OnAirGrid::RowHovered, this, [this](int row) { ShowPicture(row, QCursor::pos()); });
  connect(&gridOnAir_, &OnAirGrid::MenuWanted, this, [this](int row, const QPoint& at, bool byKeyboard) {
    HideTips();
    menus_.OpenMenu(gridOnAir_.MenuOf(row, at, byKeyboard));
  });
  connect(&gridOnAir_, &OnAirGrid::Moved, this, &frmOnAirNow::HideTips);
}

void frmOnAirNow::ShowTexts() {
  const LanguageTexts& language = program_.language;
  menus_.CloseMenus();
  HideTips();
  panels_.ShowTexts();
  lblRefresh_.SetCaption(language[TextLine::kRefreshWord].trimmed());
  lblRefresh_.setToolTip(BuiltInText(program_.config.OnAirCode, OnAirText::kRefreshTip));
  gridOnAir_.Model().ShowTexts();
  gridOnAir_.setAccessibleName(language[TextLine::kOnAirListTitle].trimmed());
  // Until the first answer the window is called like the label that opens it, which has the count of its last opening.
  setWindowTitle(opened_ || caption_.isEmpty() ? language[TextLine::kOnAirText] : caption_);
  if (opened_) session_.Rebuild();
}

void frmOnAirNow::ShowView() {
  const OnAirView& view = session_.View();
  if (windowTitle() != view.title) setWindowTitle(view.title);
  gridOnAir_.Take(view.entries);
  if (lblLeftOut_.text() != view.leftOut) lblLeftOut_.setText(view.leftOut);
  lblLeftOut_.setVisible(!view.leftOut.isEmpty());
  Q_EMIT CaptionChanged(view.caption);
}

void frmOnAirNow::ShowStation(int row, bool byPointer) {
  const OnAirEntry& entry = gridOnAir_.Model().Entries().at(row);
  tip_.ShowTip(StationText(entry.shownCall, database_.Find(entry.call)), gridOnAir_.RowPlace(row), byPointer);
}

void frmOnAirNow::ShowPicture(int row, const QPoint& beside) {
  const QString path = row < 0 ? QString() : gridOnAir_.Model().Entries().at(row).picture;
  if (path.isEmpty()) return picBig_.Withdraw();
  picBig_.ShowPicture(path, beside);
}

void frmOnAirNow::HideTips() {
  tip_.hide();
  picBig_.Withdraw();
}

void frmOnAirNow::PlaceWindow() {
  layout()->activate();
  const int width = std::max(gridOnAir_.WantedWidth(), bar_.sizeHint().width());
  setMinimumWidth(width);
  resize(width, std::max(kHeight, kHeight * fontMetrics().height() / 13));
  const QWidget* main = parentWidget();
  if (main == nullptr) return BaseWindow::PlaceWindow();
  const QRect over = main->frameGeometry();
  const QRect place(QPoint(over.left() + over.width() / 2 - kLeftOfMiddle, over.top()), size() + FrameOf(this));
  move(KeptOnMonitor(place, over.center()).topLeft());
}

void frmOnAirNow::showEvent(QShowEvent* event) {
  BaseWindow::showEvent(event);
  if (std::exchange(opened_, true)) return;
  session_.Open();
}

void frmOnAirNow::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Refresh)) return session_.Refresh();
  if (event->key() == Qt::Key_Escape && (tip_.isVisible() || picBig_.isVisible())) return HideTips();
  BaseWindow::keyPressEvent(event);
}

void frmOnAirNow::closeEvent(QCloseEvent* event) {
  panels_.Close();
  HideTips();
  menus_.CloseMenus();
  BaseWindow::closeEvent(event);
}
