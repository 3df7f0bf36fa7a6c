// SPDX-License-Identifier: GPL-3.0-or-later
// The list of all calls of the database. It never makes widgets or items of them, so that 100,000 calls open at once
// and scroll as a few do. Form26 has it as lstCall.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <functional>

#include "callbook/call_database.h"

// The calls as rows.
class CallListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  // zeroGlyph: how a zero is shown. isEdited: whether a call is marked.
  CallListModel(QChar zeroGlyph, std::function<bool(const QString&)> isEdited, QObject* parent);

  void Take(const CallList& calls);
  const CallList& Calls() const { return calls_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const QChar zeroGlyph_;
  const std::function<bool(const QString&)> isEdited_;
  CallList calls_;
};

// The list itself. Typing selects the first call that begins so.
class CallListView : public QListView {
  Q_OBJECT

 public:
  CallListView(CallListModel* model, QWidget* parent);

  // Selects a row, or none for -1, without a signal, and scrolls to it. near: the row to scroll to without a selection.
  void Select(int row, int near);
  // Shows other calls, with the same row at the top.
  void Take(const CallList& calls);
  void keyboardSearch(const QString& search) override;

 Q_SIGNALS:
  // The user has chosen a row by click or key.
  void Chosen(int row);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void Announce(const QModelIndex& index);

  CallListModel* model_;
  bool selecting_ = false;  // the program moves the selection
  int announced_ = -1;      // the row that Chosen told of last, while it is selected
  QString typed_;           // what has been typed in one go
  qint64 typedAt_ = 0;      // when, in milliseconds
};
