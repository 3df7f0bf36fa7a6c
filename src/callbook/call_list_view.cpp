// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/call_list_view.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <utility>

#include "station/callsign.h"

using namespace Qt::StringLiterals;

CallListModel::CallListModel(QChar zeroGlyph, std::function<bool(const QString&)> isEdited, QObject* parent)
    : QAbstractListModel(parent), zeroGlyph_(zeroGlyph), isEdited_(std::move(isEdited)) {}

void CallListModel::Take(const CallList& calls) {
  beginResetModel();
  calls_ = calls;
  endResetModel();
}

int CallListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : calls_.Count();
}

QVariant CallListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= calls_.Count()) return {};
  const bool wanted = role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::FontRole;
  if (!wanted) return {};
  const QString call = calls_.Call(index.row());
  const bool edited = isEdited_(call);
  if (role == Qt::FontRole) {
    QFont font;
    font.setBold(edited);
    return edited ? QVariant(font) : QVariant();
  }
  const QString shown = ShownCall(call, zeroGlyph_);
  if (!edited) return shown;
  return role == Qt::DisplayRole ? u"● "_s + shown : tr("%1, edited").arg(shown);
}

CallListView::CallListView(CallListModel* model, QWidget* parent) : QListView(parent), model_(model) {
  setObjectName(u"lstCall"_s);
  setModel(model);
  setUniformItemSizes(true);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // A row that typing has selected is chosen by a click or Return.
  connect(this, &QAbstractItemView::clicked, this, &CallListView::Announce);
  connect(this, &QAbstractItemView::activated, this, &CallListView::Announce);
}

void CallListView::Announce(const QModelIndex& index) {
  if (index.isValid() && index.row() != std::exchange(announced_, index.row())) Q_EMIT Chosen(index.row());
}

void CallListView::Select(int row, int near) {
  const QScopedValueRollback<bool> selecting(selecting_, true);
  if (row != announced_) announced_ = -1;
  if (row >= 0) {
    setCurrentIndex(model_->index(row));
    scrollTo(model_->index(row));
    return;
  }
  clearSelection();
  setCurrentIndex({});
  if (near >= 0 && near < model_->rowCount()) scrollTo(model_->index(near), PositionAtTop);
}

void CallListView::Take(const CallList& calls) {
  const QScopedValueRollback<bool> selecting(selecting_, true);
  announced_ = -1;
  const int top = verticalScrollBar()->value();
  model_->Take(calls);
  doItemsLayout();
  verticalScrollBar()->setValue(top);
}

// Qt's own search asks the model for every row in turn.
void CallListView::keyboardSearch(const QString& search) {
  const qint64 now = QDeadlineTimer::current().deadline();
  const bool goesOn = now - typedAt_ < QApplication::keyboardInputInterval();
  typedAt_ = now;
  typed_ = (goesOn ? typed_ : QString()) + search.toUpper().replace(u'Ø', u'0');
  const int row = model_->Calls().FirstNotBefore(typed_);
  if (row < model_->rowCount() && model_->Calls().Call(row).startsWith(typed_)) setCurrentIndex(model_->index(row));
}

void CallListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  if (!selecting_) Announce(current);
}
