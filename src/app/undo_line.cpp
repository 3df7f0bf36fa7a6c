// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/undo_line.h"

#include <QEvent>
#include <QHBoxLayout>

UndoLine::UndoLine(QWidget* parent) : QFrame(parent), text_(new QLabel(this)), undo_(new QPushButton(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 2, 8, 2);
  row->addWidget(text_, 1);
  row->addWidget(undo_);
  setObjectName(QStringLiteral("undoLine"));
  undo_->setObjectName(QStringLiteral("undoButton"));
  text_->setTextFormat(Qt::PlainText);
  setAutoFillBackground(true);
  hide();
  ShowTexts();
  connect(undo_, &QPushButton::clicked, this, &UndoLine::Pressed);
}

void UndoLine::SetChange(const std::optional<PlacesChange>& change) {
  change_ = change;
  ShowTexts();
  setVisible(change_.has_value());
}

void UndoLine::ShowTexts() {
  undo_->setText(tr("Undo"));
  undo_->setAccessibleName(tr("Undo"));
  if (!change_) return;
  QString text = tr("The page was compacted");
  if (change_->kind == PlacesChange::Kind::SiteRemoved) text = tr("%1 was removed from the page").arg(change_->call);
  if (change_->kind == PlacesChange::Kind::AllRemoved) text = tr("All sites were removed from the page");
  text_->setText(text);
  undo_->setAccessibleDescription(text);
}

void UndoLine::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) ShowTexts();
}
