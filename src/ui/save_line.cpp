// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/save_line.h"

#include <QDir>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

SaveLine::SaveLine(QWidget* parent)
    : QFrame(parent), text_(new QLabel(this)), retry_(new QPushButton(this)), discard_(new QPushButton(this)) {
  setObjectName(u"saveLine"_s);
  text_->setObjectName(u"saveText"_s);
  retry_->setObjectName(u"retryButton"_s);
  discard_->setObjectName(u"closeAnywayButton"_s);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  setFrameShape(QFrame::StyledPanel);
  auto* row = new QHBoxLayout(this);
  row->addWidget(text_, 1);
  row->addWidget(retry_);
  row->addWidget(discard_);
  hide();
  connect(retry_, &QPushButton::clicked, this, &SaveLine::RetryWanted);
  connect(discard_, &QPushButton::clicked, this, &SaveLine::DiscardWanted);
}

void SaveLine::SetFailure(const QString& path) {
  path_ = path;
  ShowTexts();
  setVisible(!path.isEmpty());
  if (!path.isEmpty()) retry_->setFocus();
}

void SaveLine::ShowTexts() {
  text_->setText(path_.isEmpty() ? QString()
                                 : tr("%1 could not be written. What you have entered is still here.")
                                       .arg(QDir::toNativeSeparators(path_)));
  retry_->setText(tr("Try again"));
  discard_->setText(tr("Close without saving"));
  for (QPushButton* button : {retry_, discard_}) {
    button->setAccessibleName(button->text());
    button->setAccessibleDescription(text_->text());
  }
}
