// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/page_names_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

#include "ui/window_place.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kNumbers = 0;  // columns of the list
constexpr int kNames = 1;
constexpr int kPictureColumns = 5;
constexpr int kLongestName = 60;  // letters; a longer one would not fit into the bar or the menu of pages

}  // namespace

Form5::Form5(const Dependencies& dependencies, QWidget* mainWindow)
    : SetupWindow(mainWindow),
      program_(dependencies.program),
      mover_(dependencies.mover),
      order_(dependencies.program) {
  setObjectName(u"Form5"_s);
  MakeControls();
  ConnectSignals();
  ShowRows();
  SelectRow(0);
  lblList_->setFocus();
}

void Form5::MakeControls() {
  cmdClose_ = new QPushButton(this);
  cmdClose_->setObjectName(u"cmdClose"_s);
  cmdLeave_ = new QPushButton(this);
  cmdLeave_->setObjectName(u"cmdLeave"_s);
  cmdLeave_->hide();
  lblFailure_ = new QLabel(this);
  lblFailure_->setObjectName(u"lblFailure"_s);
  lblFailure_->setTextFormat(Qt::PlainText);
  lblFailure_->setWordWrap(true);
  lblFailure_->hide();

  auto* sides = new QHBoxLayout;
  sides->setSpacing(18);
  sides->addWidget(MakePagesSide());
  sides->addWidget(MakePictureSide(), 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdLeave_);
  buttons->addWidget(cmdClose_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(14, 14, 14, 12);
  column->setSpacing(12);
  column->addLayout(sides, 1);
  column->addWidget(lblFailure_);
  column->addLayout(buttons);
}

QWidget* Form5::MakePagesSide() {
  auto* side = new QWidget(this);
  Label1_ = new QLabel(side);
  Label1_->setObjectName(u"Label1"_s);
  picList_ = new QFrame(side);
  picList_->setObjectName(u"picList"_s);
  lblList_ = new QTableWidget(kDsstvPages, 2, picList_);
  lblList_->setObjectName(u"lblList"_s);
  lblList_->horizontalHeader()->hide();
  lblList_->verticalHeader()->hide();
  lblList_->setShowGrid(false);
  lblList_->setSelectionBehavior(QAbstractItemView::SelectRows);
  lblList_->setSelectionMode(QAbstractItemView::SingleSelection);
  lblList_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lblList_->setTabKeyNavigation(false);
  lblList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lblList_->horizontalHeader()->setSectionResizeMode(kNumbers, QHeaderView::ResizeToContents);
  lblList_->horizontalHeader()->setSectionResizeMode(kNames, QHeaderView::Stretch);
  const int rowHeight = lblList_->fontMetrics().height() + 6;
  lblList_->verticalHeader()->setMinimumSectionSize(rowHeight);
  lblList_->verticalHeader()->setDefaultSectionSize(rowHeight);
  for (int row = 0; row < kDsstvPages; ++row) {
    auto* lblPg = new QTableWidgetItem(QString::number(row + 1));
    lblPg->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblList_->setItem(row, kNumbers, lblPg);
    lblList_->setItem(row, kNames, new QTableWidgetItem);
  }
  lblList_->setMinimumWidth(lblList_->fontMetrics().averageCharWidth() * 34);
  auto* inFrame = new QVBoxLayout(picList_);
  inFrame->setContentsMargins(0, 0, 0, 0);
  inFrame->addWidget(lblList_);

  nameLabel_ = new QLabel(side);
  Text1_ = new QLineEdit(side);
  Text1_->setObjectName(u"Text1"_s);
  Text1_->setMaxLength(kLongestName);
  nameLabel_->setBuddy(Text1_);
  cmdUp_ = new QPushButton(side);
  cmdUp_->setObjectName(u"cmdUp"_s);
  cmdDown_ = new QPushButton(side);
  cmdDown_->setObjectName(u"cmdDown"_s);
  auto* steps = new QHBoxLayout;
  steps->addWidget(cmdUp_);
  steps->addWidget(cmdDown_);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(6);
  column->addWidget(Label1_);
  column->addSpacing(4);
  column->addWidget(picList_, 1);
  column->addSpacing(4);
  column->addWidget(nameLabel_);
  column->addWidget(Text1_);
  column->addLayout(steps);
  return side;
}

QWidget* Form5::MakePictureSide() {
  auto* side = new QWidget(this);
  lblFrame_ = new QGroupBox(side);
  lblFrame_->setObjectName(u"lblFrame"_s);
  auto* grid = new QGridLayout(lblFrame_);
  grid->setContentsMargins(10, 10, 10, 10);
  grid->setSpacing(4);
  const QSize cell(fontMetrics().averageCharWidth() * 13, fontMetrics().height() + 14);
  for (int slot = 0; slot < program_.page.ThumbCount; ++slot) {
    auto* lblPage = new QLabel(lblFrame_);
    lblPage->setObjectName(u"lblPage%1"_s.arg(slot));
    lblPage->setTextFormat(Qt::PlainText);
    lblPage->setAlignment(Qt::AlignCenter);
    lblPage->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    lblPage->setMinimumSize(cell);
    grid->addWidget(lblPage, slot / kPictureColumns, slot % kPictureColumns);
    lblPage_.append(lblPage);
  }
  Label2_ = new QLabel(side);
  Label2_->setObjectName(u"Label2"_s);
  Label2_->setWordWrap(true);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  column->addWidget(lblFrame_);
  column->addWidget(Label2_);
  column->addStretch(1);
  return side;
}

void Form5::ConnectSignals() {
  connect(lblList_, &QTableWidget::currentCellChanged, this, [this](int row) {
    if (row >= 0 && row != SelectedPageRow_) SelectRow(row);
  });
  connect(lblList_, &QTableWidget::cellDoubleClicked, this, [this]() {
    Text1_->setFocus();
    Text1_->selectAll();
  });
  connect(Text1_, &QLineEdit::textEdited, this, [this](const QString& text) {
    order_.Rename(SelectedPageRow_, text);
    lblList_->item(SelectedPageRow_, kNames)->setText(text);
  });
  connect(cmdUp_, &QPushButton::clicked, this, [this]() { MoveRow(-1); });
  connect(cmdDown_, &QPushButton::clicked, this, [this]() { MoveRow(1); });
  connect(cmdClose_, &QPushButton::clicked, this, &Form5::close);
  connect(cmdLeave_, &QPushButton::clicked, this, [this]() {
    closing_ = Closing::Done;
    close();
  });
}

void Form5::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  setWindowTitle(texts[TextLine::kSetupPageNames].trimmed());
  Label1_->setText(texts[TextLine::kPagesHelp1]);
  lblFrame_->setTitle(texts[TextLine::kPagesFrame].trimmed());
  Label2_->setText(texts[TextLine::kPagesNote1]);
  cmdUp_->setText(texts[TextLine::kUpWord].trimmed());
  cmdDown_->setText(texts[TextLine::kDownWord].trimmed());
  cmdClose_->setText(texts[TextLine::kCloseWord].trimmed());
  cmdLeave_->setText(tr("Close without saving"));
  nameLabel_->setText(tr("Name of the page"));
  // A button's text takes its shortcut away.
  cmdUp_->setShortcut(Qt::ALT | Qt::Key_Up);
  cmdDown_->setShortcut(Qt::ALT | Qt::Key_Down);
  for (QPushButton* button : {cmdUp_, cmdDown_}) {
    button->setToolTip(button->shortcut().toString(QKeySequence::NativeText));
  }
  NameControls();
}

// What a screen reader says.
void Form5::NameControls() {
  lblList_->setAccessibleName(windowTitle());
  Text1_->setAccessibleName(nameLabel_->text());
  for (QPushButton* button : {cmdUp_, cmdDown_, cmdLeave_, cmdClose_}) button->setAccessibleName(button->text());
  lblFrame_->setAccessibleName(lblFrame_->title());
  ShowPageSites(SelectedPageRow_);
}

void Form5::ShowRows() {
  for (int row = 0; row < kDsstvPages; ++row) lblList_->item(row, kNames)->setText(order_.Caption(row));
}

void Form5::SelectRow(int row) {
  SelectedPageRow_ = row;
  lblList_->setCurrentCell(row, kNames);
  cmdUp_->setEnabled(row > 0);
  cmdDown_->setEnabled(row < kDsstvPages - 1);
  Text1_->setText(order_.Caption(row));
  ShowPageSites(row);
}

void Form5::ShowPageSites(int row) {
  const QStringList calls = order_.ShowPageSites(row);
  QStringList heard;
  for (qsizetype slot = 0; slot < lblPage_.size(); ++slot) {
    const QString call = calls.value(slot);
    const QString& empty = program_.language[TextLine::kEmptyCellName];
    lblPage_.at(slot)->setText(call);
    lblPage_.at(slot)->setAccessibleName(QString::number(slot + 1) + u' ' + (call.isEmpty() ? empty : call));
    if (!call.isEmpty()) heard.append(call);
  }
  // With the row a screen reader says what stands on its page.
  lblList_->setAccessibleDescription(lblFrame_->title() + u": "_s + heard.join(u", "_s));
}

void Form5::MoveRow(int step) {
  const int row = SelectedPageRow_;
  const int neighbour = row + step;
  if (neighbour < 0 || neighbour >= kDsstvPages) return;
  order_.SwapPages(row, neighbour);
  ShowRows();
  SelectRow(neighbour);
}

// The site index beside this window may have put a site on a page meanwhile.
void Form5::changeEvent(QEvent* event) {
  SetupWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) ShowPageSites(SelectedPageRow_);
}

void Form5::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F2) {
    Text1_->setFocus();
    Text1_->selectAll();
    return;
  }
  SetupWindow::keyPressEvent(event);
}

// At the right of the main window, or as near to there as the screen has room.
void Form5::PlaceWindow() {
  layout()->activate();
  const int rows = lblList_->verticalHeader()->defaultSectionSize() * kDsstvPages + 2 * lblList_->frameWidth();
  const int others = sizeHint().height() - lblList_->sizeHint().height();
  const QWidget* main = parentWidget();
  if (main == nullptr) return BaseWindow::PlaceWindow();
  const QRect over = main->frameGeometry();
  // All 20 rows without scrolling, where the screen is high enough.
  const int room = MonitorAt(over.center()).height() - FrameOf(this).height();
  resize(sizeHint().width(), std::min(room, std::max(sizeHint().height(), rows + others)));
  const QRect place(QPoint(over.right() + 1, over.top()), size() + FrameOf(this));
  move(KeptOnMonitor(place, over.center()).topLeft());
}

void Form5::closeEvent(QCloseEvent* event) {
  if (closing_ == Closing::Done) return SetupWindow::closeEvent(event);
  event->ignore();
  if (closing_ == Closing::No) Apply();
}

void Form5::Apply() {
  closing_ = Closing::Applying;
  setEnabled(false);
  mover_.Apply(order_, this, [this](bool moved, const QStringList& notWritten) { Applied(moved, notWritten); });
}

void Form5::Applied(bool moved, const QStringList& notWritten) {
  if (moved) order_.Applied();
  setEnabled(true);
  if (notWritten.isEmpty()) {
    closing_ = Closing::Done;
    close();
    return;
  }
  closing_ = Closing::No;
  ShowRows();
  SelectRow(SelectedPageRow_);
  const QString text = moved ? tr("These files could not be written: %1. The new names and places hold as long as the "
                                  "program runs; when it closes it tries again.")
                             : tr("The pictures in this folder could not be moved, so nothing has been changed: %1");
  lblFailure_->setText(text.arg(notWritten.join(u", "_s)));
  lblFailure_->show();
  cmdLeave_->show();
  cmdClose_->setFocus();
}
