// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/undo_line.h"

#include <QEvent>
#include <QHBoxLayout>

UndoLine::UndoLine(PageSites& places, SiteChanges& sites, Dialogs& dialogs, QWidget* parent)
    : QFrame(parent),
      places_(places),
      sites_(sites),
      dialogs_(dialogs),
      text_(new QLabel(this)),
      undo_(new QPushButton(this)) {
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
  connect(undo_, &QPushButton::clicked, this, &UndoLine::Undo);
  connect(&places_, &PageSites::UndoableChanged, this, &UndoLine::ShowChange);
  connect(&sites_, &SiteChanges::UndoableChanged, this, &UndoLine::ShowChange);
  connect(&sites_, &SiteChanges::NotWritten, this, &UndoLine::Tell);
}

// A change of places forgets that of the sites, and the other way round: there is one at most.
void UndoLine::Undo() {
  if (places_.Undoable()) return places_.Undo();
  sites_.Undo(this, [this](const QStringList& notWritten) {
    if (!notWritten.isEmpty()) Tell(notWritten);
  });
}

void UndoLine::Tell(const QStringList& notWritten) {
  dialogs_.Inform(window(), tr("%1 could not be written.").arg(notWritten.join(QStringLiteral(", "))), true);
}

void UndoLine::ShowChange() {
  ShowTexts();
  setVisible(IsWanted());
  Q_EMIT Changed();
}

QString UndoLine::Text() const {
  if (const std::optional<PlacesChange> places = places_.Undoable()) {
    if (places->kind == PlacesChange::Kind::SiteRemoved) return tr("%1 was removed from the page").arg(places->call);
    if (places->kind == PlacesChange::Kind::AllRemoved) return tr("All sites were removed from the page");
    return tr("The page was compacted");
  }
  const std::optional<SiteNews> sites = sites_.Undoable();
  if (!sites) return {};
  const qsizetype removed = sites->removed.size();
  if (removed == 1 && sites->added == 0) return tr("%1 was removed from the list of sites").arg(sites->removed.at(0));
  if (removed == 0 && sites->added == 0) return tr("The list of sites was changed");
  return tr("Sites added: %1, removed: %2").arg(sites->added).arg(removed);
}

void UndoLine::ShowTexts() {
  undo_->setText(tr("Undo"));
  undo_->setAccessibleName(tr("Undo"));
  text_->setText(Text());
  undo_->setAccessibleDescription(text_->text());
}

void UndoLine::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) ShowTexts();
}
