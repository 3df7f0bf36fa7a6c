// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/remove_site_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "sites/not_written.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int kAddressLetters = 50;
constexpr int kAddressLines = 2;
}  // namespace

Form4::Form4(const Program& program, SiteDesk& desk, QWidget* mainWindow)
    : SetupWindow(mainWindow),
      program_(program),
      desk_(desk),
      Label2(new QLabel(this)),
      picker_(new SitePicker(program, this)),
      urlLabel_(new QLabel(this)),
      lbl_Url(new QLabel(this)),
      fault_(new QLabel(this)),
      cmdRemove(new QPushButton(this)),
      cmdClose(new QPushButton(this)) {
  setObjectName(u"Form4"_s);
  Label2->setObjectName(u"Label2"_s);
  lbl_Url->setObjectName(u"lbl_Url"_s);
  fault_->setObjectName(u"lblFault"_s);
  cmdRemove->setObjectName(u"cmdRemove"_s);
  cmdClose->setObjectName(u"cmdClose"_s);
  MakeLayout();
  connect(picker_, &SitePicker::Picked, this, &Form4::ShowSite);
  connect(cmdRemove, &QPushButton::clicked, this, &Form4::Remove);
  connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
  picker_->Fill();
  picker_->FocusSearch();
}

void Form4::MakeLayout() {
  QFont heading = font();
  heading.setBold(true);
  Label2->setFont(heading);
  for (QLabel* label : {Label2, urlLabel_, lbl_Url, fault_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  lbl_Url->setMinimumSize(fontMetrics().averageCharWidth() * kAddressLetters, kAddressLines * fontMetrics().height());
  lbl_Url->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  lbl_Url->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  fault_->hide();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdRemove);
  buttons->addWidget(cmdClose);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(Label2);
  rows->addWidget(picker_, 1);
  rows->addWidget(urlLabel_);
  rows->addWidget(lbl_Url);
  rows->addWidget(fault_);
  rows->addLayout(buttons);
  const QList<QWidget*> chain = picker_->TabChain() << lbl_Url << cmdRemove << cmdClose;
  for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void Form4::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  setWindowTitle(texts[TextLine::kSetupRemoveSite].trimmed());
  setAccessibleName(windowTitle());
  picker_->ShowTexts(texts[TextLine::kRemoveHint]);
  urlLabel_->setText(texts[TextLine::kRemoveUrl]);
  cmdRemove->setText(texts[TextLine::kRemoveButton]);
  cmdClose->setText(texts[TextLine::kCloseWord].trimmed());
  for (QPushButton* button : {cmdRemove, cmdClose}) button->setAccessibleName(button->text());
  ShowSite();
}

void Form4::ShowSite() {
  const bool isWx = picker_->List() == SiteTableKind::Wx;
  Label2->setText(program_.language[isWx ? TextLine::kWxSites : TextLine::kDsstvSites]);
  const QList<SiteRec>& table = isWx ? program_.sites.WxSites : program_.sites.Sites;
  const int index = picker_->Index();
  lbl_Url->setText(index >= 0 && index < table.size() ? PlainUrl(table.at(index).Url) : QString());
  lbl_Url->setAccessibleName(urlLabel_->text() + u' ' + lbl_Url->text());
  cmdRemove->setEnabled(index >= 0 && !removing_);
  ShowNotWritten(fault_, notWritten_);
}

void Form4::Remove() {
  if (picker_->Index() < 0 || removing_) return;
  removing_ = true;
  picker_->setEnabled(false);
  ShowSite();
  desk_.Remove(picker_->List(), picker_->Index(), this, [this](const SiteOutcome& outcome) { Take(outcome); });
}

void Form4::Take(const SiteOutcome& outcome) {
  removing_ = false;
  picker_->setEnabled(true);
  notWritten_ = outcome.notWritten;
  if (outcome.IsDone()) {
    close();
  } else {
    ShowSite();
  }
}

void Form4::closeEvent(QCloseEvent* event) {
  // A removal that is done closes the window by itself, one that fails has to be told.
  if (removing_ && !mayClose_) {
    event->ignore();
    return;
  }
  SetupWindow::closeEvent(event);
}
