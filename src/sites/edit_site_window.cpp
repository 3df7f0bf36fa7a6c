// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/edit_site_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "sites/not_written.h"

using namespace Qt::StringLiterals;

Form7::Form7(const Dependencies& dependencies, QWidget* mainWindow)
    : SetupWindow(mainWindow),
      deps_(dependencies),
      drafts_(dependencies.form.lookUps.program.sites, dependencies.desk),
      lblCall(new QLabel(this)),
      picker_(new SitePicker(dependencies.form.lookUps.program, this)),
      form_(new SiteForm(dependencies.form, u"cmdGetQrz"_s, true, this)),
      state_(new QLabel(this)),
      save_(new QPushButton(this)),
      discard_(new QPushButton(this)),
      fault_(new QLabel(this)),
      cmdSave(new QPushButton(this)),
      cmdClose(new QPushButton(this)) {
  setObjectName(u"Form7"_s);
  lblCall->setObjectName(u"lblCall"_s);
  state_->setObjectName(u"lblState"_s);
  save_->setObjectName(u"cmdSaveOne"_s);
  discard_->setObjectName(u"cmdDiscard"_s);
  fault_->setObjectName(u"lblFault"_s);
  cmdSave->setObjectName(u"cmdSave"_s);
  cmdClose->setObjectName(u"cmdClose"_s);
  MakeLayout();
  SetDefaultButton(cmdSave);
  ConnectSignals();
  picker_->Fill();
  picker_->FocusSearch();
  ShowSite();
}

void Form7::MakeLayout() {
  QFont heading = font();
  heading.setBold(true);
  lblCall->setFont(heading);
  for (QLabel* label : {lblCall, state_, fault_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  fault_->hide();
  auto* state = new QHBoxLayout;
  state->addWidget(state_, 1);
  state->addWidget(save_);
  state->addWidget(discard_);
  auto* right = new QVBoxLayout;
  right->addWidget(lblCall);
  right->addWidget(form_);
  right->addLayout(state);
  right->addStretch(1);
  auto* halves = new QHBoxLayout;
  halves->addWidget(picker_, 1);
  halves->addLayout(right, 2);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdSave);
  buttons->addWidget(cmdClose);
  auto* rows = new QVBoxLayout(this);
  rows->addLayout(halves, 1);
  rows->addWidget(fault_);
  rows->addLayout(buttons);
  // The line keeps its place while it is hidden, so that the boxes do not jump under the hands of who types.
  for (QWidget* part : {static_cast<QWidget*>(state_), static_cast<QWidget*>(save_), static_cast<QWidget*>(discard_)}) {
    QSizePolicy policy = part->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    part->setSizePolicy(policy);
  }
  const QList<QWidget*> chain = picker_->TabChain() + form_->TabChain() << save_ << discard_ << cmdSave << cmdClose;
  for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void Form7::ConnectSignals() {
  picker_->IsMarked = [this](SiteTableKind list, int index) { return drafts_.IsEdited(list, index); };
  connect(picker_, &SitePicker::Picked, this, &Form7::ShowSite);
  connect(form_, &SiteForm::Edited, this, &Form7::Edited);
  connect(save_, &QPushButton::clicked, this, &Form7::SaveOne);
  connect(discard_, &QPushButton::clicked, this, &Form7::Discard);
  connect(cmdSave, &QPushButton::clicked, this, &Form7::SaveAll);
  connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

void Form7::ShowTexts() {
  const LanguageTexts& texts = deps_.form.lookUps.program.language;
  setWindowTitle(texts[TextLine::kSetupEditSite].trimmed());
  setAccessibleName(windowTitle());
  picker_->ShowTexts(texts[TextLine::kEditHint]);
  save_->setText(tr("Save"));
  discard_->setText(tr("Discard"));
  cmdSave->setText(texts[TextLine::kSaveChanges]);
  cmdClose->setText(texts[TextLine::kCloseWord].trimmed());
  for (QPushButton* button : {save_, discard_, cmdSave, cmdClose}) button->setAccessibleName(button->text());
  form_->ShowTexts();
  ShowState();
}

void Form7::ShowSite() {
  form_->SetList(picker_->List());
  const int index = picker_->Index();
  form_->SetFields(index < 0 ? SiteFields() : drafts_.Shown(picker_->List(), index));
  if (index >= 0 && !drafts_.IsEdited(picker_->List(), index)) {
    drafts_.SetBoxes(picker_->List(), index, form_->Fields());
  }
  form_->setEnabled(index >= 0);
  ShowState();
}

void Form7::ShowState() {
  const LanguageTexts& texts = deps_.form.lookUps.program.language;
  const bool isDsstv = picker_->List() == SiteTableKind::Dsstv;
  lblCall->setText(texts[isDsstv ? TextLine::kEditDsstvSite : TextLine::kEditWxSite]);
  const int index = picker_->Index();
  const bool isEdited = index >= 0 && drafts_.IsEdited(picker_->List(), index);
  const bool isComplete = index >= 0 && form_->Fields().IsComplete();
  state_->setText(isComplete ? tr("This entry is changed and not saved yet.")
                             : tr("Callsign and address must not be empty."));
  for (QWidget* part : {static_cast<QWidget*>(state_), static_cast<QWidget*>(save_), static_cast<QWidget*>(discard_)}) {
    part->setVisible(isEdited);
  }
  save_->setEnabled(isComplete && !saving_);
  discard_->setEnabled(!saving_);
  cmdSave->setEnabled(isComplete && !saving_);
  ShowNotWritten(fault_, notWritten_);
}

void Form7::Edited() {
  if (picker_->Index() < 0) return;
  drafts_.Keep(picker_->List(), picker_->Index(), form_->Fields());
  picker_->ShowMarks();
  ShowState();
}

void Form7::Discard() {
  drafts_.Discard(picker_->List(), picker_->Index());
  picker_->ShowMarks();
  ShowSite();
}

QList<SiteDesk::Edit> Form7::EditsOf(SiteTableKind list) const {
  QList<SiteDesk::Edit> edits = drafts_.EditsOf(list);
  // The selected site is written even where nothing has been changed in its boxes.
  const int index = picker_->Index();
  if (list == picker_->List() && index >= 0 && !drafts_.IsEdited(list, index)) {
    edits.append({index, drafts_.Stored(list, index, form_->Fields())});
  }
  return edits;
}

void Form7::SaveOne() {
  const int index = picker_->Index();
  const QList<SiteDesk::Edit> edit{{index, drafts_.Stored(picker_->List(), index, form_->Fields())}};
  const bool isDsstv = picker_->List() == SiteTableKind::Dsstv;
  Begin(isDsstv ? edit : QList<SiteDesk::Edit>(), isDsstv ? QList<SiteDesk::Edit>() : edit, false);
}

void Form7::SaveAll() {
  if (!form_->Fields().IsComplete()) return;
  if (const auto [list, index] = drafts_.FirstIncomplete(); index >= 0) return picker_->Show(list, index);
  Begin(EditsOf(SiteTableKind::Dsstv), EditsOf(SiteTableKind::Wx), true);
}

// Until the answer is there nothing is typed or picked: it belongs to what was shown when the button was pressed.
void Form7::SetSaving(bool saving) {
  saving_ = saving;
  if (saving) {
    form_->EndLooking();
    focused_ = focusWidget();
  }
  picker_->setEnabled(!saving);
  form_->setEnabled(!saving && picker_->Index() >= 0);
  ShowState();
  if (!saving && focused_ != nullptr) focused_->setFocus();
}

void Form7::Begin(const QList<SiteDesk::Edit>& dsstv, const QList<SiteDesk::Edit>& wx, bool closes) {
  if (saving_ || picker_->Index() < 0) return;
  savedList_ = picker_->List();
  savedIndex_ = picker_->Index();
  SetSaving(true);
  deps_.desk.Save(dsstv, wx, this, [this, closes](const SiteOutcome& outcome) { Take(outcome, closes); });
}

void Form7::Take(const SiteOutcome& outcome, bool closes) {
  notWritten_ = outcome.notWritten;
  SetSaving(false);
  const bool closeWanted = std::exchange(closeWanted_, false);
  if (!outcome.duplicate.isEmpty()) deps_.dialogs.Inform(this, outcome.duplicate, false);
  if (!outcome.IsDone()) return;
  if (closes) {
    mayClose_ = true;
    close();
    return;
  }
  drafts_.Discard(savedList_, savedIndex_);
  drafts_.Move(SiteTableKind::Dsstv, deps_.changes.Moved(SiteTableKind::Dsstv));
  drafts_.Move(SiteTableKind::Wx, deps_.changes.Moved(SiteTableKind::Wx));
  picker_->Fill();
  picker_->Select(deps_.changes.Moved(savedList_).value(savedIndex_, -1));
  ShowSite();
  if (closeWanted) close();
}

void Form7::closeEvent(QCloseEvent* event) {
  if (!mayClose_ && saving_) {
    closeWanted_ = true;
    event->ignore();
    return;
  }
  if (!mayClose_ && drafts_.Count() > 0) {
    const QString question =
        tr("Entries with changes that are not saved: %1. Close all the same?").arg(drafts_.Count());
    if (!deps_.dialogs.AskSecond(this, question, tr("Go back"), tr("Discard"))) {
      event->ignore();
      return;
    }
  }
  form_->EndLooking();
  SetupWindow::closeEvent(event);
}
