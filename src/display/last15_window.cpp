// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/last15_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>

#include "callbook/call_entry.h"
#include "page/thumb_layout.h"
#include "station/callsign.h"
#include "ui/window_place.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int kFiveColumns = 3;  // a layout of the page with as many columns and rows as are in sight here
constexpr int kGap = 6;          // between the parts of the strip, in pixels
}  // namespace

Form15::Form15(const Dependencies& dependencies, QWidget* opener)
    : BaseWindow(opener),
      program_(dependencies.program),
      menus_(dependencies.menus),
      history_(dependencies),
      view_(history_, program_.language, this),
      hover_(program_, dependencies.database, [this](int slot) { return history_.TipSubjectOf(slot); }),
      lblCap_(this),
      lblCap2_(this),
      picProgress_(this) {
  setObjectName(u"Form15"_s);
  lblCap_.setObjectName(u"lblCap"_s);
  lblCap2_.setObjectName(u"lblCap2"_s);
  picProgress_.setObjectName(u"picProgress"_s);
  lblCap_.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  lblCap_.hide();
  setFont(opener != nullptr ? opener->font() : font());
  new CellTips(view_.Cells(), hover_, dependencies.tool, this);
  ConnectParts();
}

void Form15::ConnectParts() {
  connect(&history_, &History::Progressed, this, &Form15::ShowProgress);
  connect(&view_.Cells(), &HistoryCells::MenuWanted, this, &Form15::OpenMenu);
  connect(&view_.Cells(), &HistoryCells::SenderPressed, this, &Form15::SenderPressed);
  connect(&view_.Cells(), &HistoryCells::MarkPressed, &history_, &History::ToggleMark);
  connect(&view_.Cells(), &HistoryCells::CellPressed, this, [this](int slot) {
    const PictureList list = history_.Pictures(slot);
    if (list.Holds(list.at)) Q_EMIT ViewWanted(list);
  });
  connect(&view_.Cells(), &HistoryCells::DragWanted, this, [this](int slot) {
    hover_.Close();
    const PictureList list = history_.Pictures(slot);
    if (list.Holds(list.at)) Q_EMIT DragWanted(list.pictures.at(list.at));
  });
  // The cells move under an open tip.
  connect(&view_.ScrollBar1, &QScrollBar::valueChanged, &hover_, &HoverTip::Close);
}

void Form15::Open(const HistoryOrigin& origin) {
  hover_.Close();
  menus_.CloseMenus();
  // An open window keeps the size that the user has given it, as long as it has as many rows.
  const bool keepsSize = isVisible() && origin.TxMode == history_.TxMode();
  history_.Open(origin);
  if (!keepsSize) SetUsualSize();
  if (isVisible()) ShowTexts();
  show();
  raise();
  activateWindow();
  view_.FocusFirst();
  ShowProgress();
  Q_EMIT Fetching();
}

// The width of the page's window with as many columns, and the rows that are in sight.
void Form15::SetUsualSize() {
  const QScreen* monitor = parentWidget() != nullptr ? parentWidget()->screen() : screen();
  const int twips = TwipsPerPixel(monitor->logicalDotsPerInchX());
  const long high = static_cast<long>(monitor->size().height()) * TwipsPerPixel(monitor->logicalDotsPerInchY());
  const int width = ClientSize(kFiveColumns, program_.config.GuiMode, high, 0, twips).width();
  const QSize grid = view_.SizeFor(width, FontPixelsOf(CellFontPoints(program_.config.GuiMode, high)));
  resize(QSize(grid.width(), grid.height() + StripHeight()).boundedTo(monitor->availableSize() - FrameOf(this)));
  PlaceParts();
}

int Form15::StripHeight() const {
  return fontMetrics().height() + 2 * kGap;
}

void Form15::resizeEvent(QResizeEvent* event) {
  BaseWindow::resizeEvent(event);
  PlaceParts();
}

void Form15::PlaceParts() {
  const int strip = StripHeight();
  const QRect line(kGap, height() - strip, width() - 2 * kGap, strip);
  view_.setGeometry(0, 0, width(), height() - strip);
  const int half = line.width() / 2;
  lblCap2_.setGeometry(line.left(), line.top(), half - kGap, strip);
  lblCap_.setGeometry(line.left() + half, line.top(), line.width() - half, strip);
  picProgress_.setGeometry(lblCap_.geometry().adjusted(0, kGap / 2, 0, -kGap / 2));
}

void Form15::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  const TextLine title = history_.TxMode() ? TextLine::kTxTitle : TextLine::kHistoryTitle;
  setWindowTitle(QString(texts[title]).replace("??"_L1, ShownCall(history_.Site(), program_.ZeroGlyph)));
  setAccessibleName(windowTitle());
  hover_.Close();
  history_.TakeLanguage();
  view_.Cells().TakeLanguage();
  view_.Cells().setAccessibleName(windowTitle());
  view_.ScrollBar1.setAccessibleName(tr("Rows of pictures"));
  ShowProgress();
}

// The bar has one step for each picture, whether it came or not; the words tell how many came.
void Form15::ShowProgress() {
  const int count = history_.Count();
  const bool done = history_.Answered() == count;
  const QString words = tr("%1 of %2 pictures").arg(history_.Found()).arg(count);
  lblCap2_.setText(program_.language[done ? TextLine::kHistoryDone : TextLine::kHistoryProgress]);
  lblCap_.setText(words);
  picProgress_.setRange(0, count);
  picProgress_.setValue(history_.Answered());
  picProgress_.setFormat(words);
  picProgress_.setAccessibleName(lblCap2_.text());
  picProgress_.setAccessibleDescription(words);
  picProgress_.setVisible(!done);
  lblCap_.setVisible(done);
}

void Form15::OpenMenu(int slot, QPoint at, bool byKeyboard) {
  hover_.Close();
  menuSlot_ = slot;
  MenuSubject subject;
  subject.source = {PictureSource::Window::History, slot};
  subject.site = history_.Site();
  subject.caller = history_.FieldsOf(slot).Caller;
  subject.empty = false;
  subject.senderPlace = view_.Cells().SenderPlace(slot);
  menus_.OpenMenu({.menu = MenuId::History,
                   .subject = subject,
                   .owner = this,
                   .name = history_.Cells().at(slot).lblCall,
                   .at = at,
                   .byKeyboard = byKeyboard});
}

void Form15::MnuPopupClick(int index) {
  if (index == 0) history_.ReloadSlot(menuSlot_);
}

void Form15::SenderPressed(int slot) {
  const QString call = CallOfCaption(history_.FieldsOf(slot).Caller, program_.lstBadCalls);
  if (!call.isEmpty()) Q_EMIT LookupWanted(call, view_.Cells().SenderPlace(slot));
}

void Form15::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_PageDown) return view_.StepScreen(1);
  if (event->key() == Qt::Key_PageUp) return view_.StepScreen(-1);
  if (event->key() == Qt::Key_D && event->modifiers() == Qt::ControlModifier) {
    const PictureList pair = history_.Marked();
    if (pair.pictures.size() == 2) Q_EMIT ComparisonWanted(pair);
    return;
  }
  if (event->key() == Qt::Key_S && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
    return Q_EMIT SaveAllWanted(history_.Pictures(-1));
  }
  if (event->key() == Qt::Key_Escape && hover_.Close()) return;
  BaseWindow::keyPressEvent(event);
}

void Form15::closeEvent(QCloseEvent* event) {
  history_.Stop();
  hover_.Close();
  menus_.CloseMenus();
  BaseWindow::closeEvent(event);
}
