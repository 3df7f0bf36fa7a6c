// SPDX-License-Identifier: GPL-3.0-or-later
// A list of thousands of texts, with or without check marks: each of the four lists of Form6 is one.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QSet>
#include <functional>

// Rows whose texts are made when they are painted.
class ChangeListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  // Fixed: every row is marked, and the user cannot change that.
  enum class Marks { None, Fixed, Free };

  ChangeListModel(Marks marks, QObject* parent) : QAbstractListModel(parent), marks_(marks) {}

  void Take(int count, const std::function<QString(int row)>& textOf);
  QString TextOf(int row) const { return textOf_(row); }
  // Rows whose mark the user has taken away.
  const QSet<int>& Unmarked() const { return unmarked_; }
  void MarkAll(bool marked);
  void Unmark(const QSet<int>& rows);
  // All rows are as large as this, in pixels.
  void SetRowSize(QSize size);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const Marks marks_;
  int count_ = 0;
  std::function<QString(int)> textOf_;
  QSet<int> unmarked_;
  QSize rowSize_;
};

// The view of such a list. It can be scrolled sideways to the end of its longest text.
class ChangeList : public QListView {
  Q_OBJECT

 public:
  ChangeList(const QString& name, ChangeListModel::Marks marks, QWidget* parent);

  void Take(int count, const std::function<QString(int row)>& textOf);
  ChangeListModel& Model() { return model_; }
  const ChangeListModel& Model() const { return model_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Measure();

  ChangeListModel model_;
};
