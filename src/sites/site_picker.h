// SPDX-License-Identifier: GPL-3.0-or-later
// The list of the sites of one table, with the choice of the table and a box that searches by typing. Form7 and Form4
// have one.
#pragma once

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QWidget>
#include <functional>

#include "core/program.h"
#include "sites/site_fields.h"

// optList, the search box and List1. A row carries its index in the table; sites without a call are not listed.
class SitePicker : public QWidget {
  Q_OBJECT

 public:
  SitePicker(const Program& program, QWidget* parent);

  SiteTableKind List() const { return list_; }
  // Index in the table of the selected row; -1: none.
  int Index() const;
  void Select(int index);
  // Shows one of the tables and selects a site of it.
  void Show(SiteTableKind list, int index);
  // Lists the sites anew; the selected one stays selected if it is still there.
  void Fill();
  // Shows by each row whether IsMarked says so.
  void ShowMarks();
  // heading: above the list.
  void ShowTexts(const QString& heading);
  void FocusSearch() { search_->setFocus(); }
  QList<QWidget*> TabChain() const;

  // Whether a row has an edit that is not saved. Without a function none has.
  std::function<bool(SiteTableKind list, int index)> IsMarked;

 Q_SIGNALS:
  // Another row, or none, is selected.
  void Picked();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ChooseList(int id);
  const QList<SiteRec>& Table() const;
  bool Matches(const SiteRec& site, const QString& wanted) const;
  void ShowRow(QListWidgetItem* row) const;

  const Program& program_;
  SiteTableKind list_ = SiteTableKind::Dsstv;
  QButtonGroup* optList;
  QRadioButton* dsstv_;
  QRadioButton* wx_;
  QLabel* heading_;
  QLineEdit* search_;
  QListWidget* List1;
};
