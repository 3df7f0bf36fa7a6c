// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/list_changes_window.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kWantedSize(960, 640);
constexpr int kScreenMargin = 60;

}  // namespace

// A window on its own: one above the main window would be hidden with it.
Form6::Form6(const Program& program)
    : BaseWindow(nullptr, Qt::Window),
      program_(program),
      plan_(std::make_shared<const SiteListPlan>()),
      hint_(new QLabel(this)),
      addFrame_(new QGroupBox(this)),
      removeFrame_(new QGroupBox(this)),
      callsFrame_(new QGroupBox(this)),
      doneFrame_(new QGroupBox(this)),
      List1(new ChangeList(u"List1"_s, ChangeListModel::Marks::Fixed, this)),
      List2(new ChangeList(u"List2"_s, ChangeListModel::Marks::Free, this)),
      List3(new ChangeList(u"List3"_s, ChangeListModel::Marks::None, this)),
      List4(new ChangeList(u"List4"_s, ChangeListModel::Marks::None, this)),
      markAll_(new QPushButton(this)),
      markNone_(new QPushButton(this)),
      lblFailure_(new QLabel(this)),
      cmdLeave_(new QPushButton(this)),
      cmdCancel(new QPushButton(this)) {
  setObjectName(u"Form6"_s);
  hint_->setObjectName(u"lblHint"_s);
  cmdCancel->setObjectName(u"cmdCancel"_s);
  markAll_->setObjectName(u"markAll"_s);
  markNone_->setObjectName(u"markNone"_s);
  lblFailure_->setObjectName(u"lblFailure"_s);
  lblFailure_->setTextFormat(Qt::PlainText);
  cmdLeave_->setObjectName(u"cmdLeave"_s);
  for (QLabel* label : {hint_, lblFailure_}) label->setWordWrap(true);
  lblFailure_->hide();
  cmdLeave_->hide();

  auto* grid = new QGridLayout;
  grid->addWidget(Framed(addFrame_, List1), 0, 0);
  grid->addWidget(Framed(removeFrame_, List2), 0, 1);
  grid->addWidget(Framed(callsFrame_, List3), 1, 0);
  grid->addWidget(Framed(doneFrame_, List4), 1, 1);
  grid->setRowStretch(0, 3);
  grid->setRowStretch(1, 2);
  for (const int column : {0, 1}) grid->setColumnStretch(column, 1);
  auto* marks = new QHBoxLayout;
  marks->addWidget(markAll_);
  marks->addWidget(markNone_);
  marks->addStretch(1);
  static_cast<QVBoxLayout*>(removeFrame_->layout())->addLayout(marks);
  auto* foot = new QHBoxLayout;
  foot->addStretch(1);
  foot->addWidget(cmdLeave_);
  foot->addWidget(cmdCancel);
  auto* column = new QVBoxLayout(this);
  column->addWidget(hint_);
  column->addLayout(grid, 1);
  column->addWidget(lblFailure_);
  column->addLayout(foot);

  connect(cmdCancel, &QPushButton::clicked, this, &Form6::close);
  connect(cmdLeave_, &QPushButton::clicked, this, [this]() {
    plan_ = std::make_shared<const SiteListPlan>();
    close();
  });
  connect(markAll_, &QPushButton::clicked, this, [this]() { List2->Model().MarkAll(true); });
  connect(markNone_, &QPushButton::clicked, this, [this]() { List2->Model().MarkAll(false); });
  SetDefaultButton(cmdCancel);
}

QWidget* Form6::Framed(QGroupBox* frame, ChangeList* list) {
  auto* column = new QVBoxLayout(frame);
  column->addWidget(list, 1);
  return frame;
}

void Form6::Take(const SiteListPlan& plan) {
  plan_ = std::make_shared<const SiteListPlan>(plan);
  List1->Take(static_cast<int>(plan.additions.size()), [p = plan_](int row) { return p->additions.at(row).Text(); });
  List2->Take(static_cast<int>(plan.removals.size()), [p = plan_](int row) { return p->removals.at(row).Text(); });
  List3->Take(static_cast<int>(plan.calls.size()), [p = plan_](int row) { return ChangedCallText(p->calls.at(row)); });
  List4->Take(static_cast<int>(plan.log.size()), [p = plan_](int row) { return p->log.at(row); });
  ShowTexts();
}

void Form6::TakeFailure(const QSet<int>& kept, const QStringList& notWritten) {
  notWritten_ = notWritten;
  List2->Model().Unmark(kept);
  lblFailure_->show();
  cmdLeave_->show();
  ShowTexts();
}

void Form6::ShowHeading(QGroupBox* frame, ChangeList* list, TextLine heading) {
  const QString text = program_.language[heading].trimmed() + u" (%1)"_s.arg(list->Model().rowCount());
  frame->setTitle(text);
  list->setAccessibleName(text);
}

void Form6::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  setWindowTitle(u"Omni-Perch  "_s + texts[TextLine::kChangesTitle].trimmed());
  hint_->setText(texts[TextLine::kChangesHint].trimmed());
  ShowHeading(addFrame_, List1, TextLine::kChangesAdd);
  ShowHeading(removeFrame_, List2, TextLine::kChangesRemove);
  ShowHeading(callsFrame_, List3, TextLine::kChangesCalls);
  ShowHeading(doneFrame_, List4, TextLine::kChangesDone);
  cmdCancel->setText(texts[TextLine::kChangesApply].trimmed());
  cmdCancel->setAccessibleName(cmdCancel->text());
  lblFailure_->setText(tr("The changes were not made, as these files could not be written:") + u' ' +
                       notWritten_.join(u", "_s));
  cmdLeave_->setText(tr("Close without saving"));
  cmdLeave_->setAccessibleName(cmdLeave_->text());
  markAll_->setText(tr("Remove all"));
  markNone_->setText(tr("Keep all"));
  const bool hasRemovals = List2->Model().rowCount() > 0;
  for (QPushButton* button : {markAll_, markNone_}) {
    button->setAccessibleName(button->text());
    button->setEnabled(hasRemovals);
  }
}

void Form6::PlaceWindow() {
  const QScreen* monitor = screen();
  const QSize room = monitor == nullptr ? kWantedSize : monitor->availableSize() - QSize(kScreenMargin, kScreenMargin);
  resize(kWantedSize.expandedTo(minimumSizeHint()).boundedTo(room));
  BaseWindow::PlaceWindow();
  List1->setFocus();
}

void Form6::closeEvent(QCloseEvent* event) {
  if (!std::exchange(decided_, true)) Q_EMIT Decided(*plan_, List2->Model().Unmarked());
  BaseWindow::closeEvent(event);
}
