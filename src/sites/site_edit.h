// SPDX-License-Identifier: GPL-3.0-or-later
// The site tables while ChangeSites changes them. Indices stay as they were before the change: a removed record keeps
// its index until the end, and a new one gets an index behind the others. The windows that change sites fill it.
#pragma once

#include <QList>
#include <vector>

#include "core/site_table.h"

// One table during a change.
class TableEdit {
 public:
  // Where the records of a table have gone, by their former index; -1: removed.
  using NewIndex = QList<int>;

  explicit TableEdit(const QList<SiteRec>& records);

  // Records, with the removed and the new ones.
  int Size() const { return static_cast<int>(records_.size()); }
  // Records before the change; those from here on are new.
  int FormerSize() const { return formerSize_; }
  const SiteRec& At(int index) const { return records_.at(index); }
  bool IsRemoved(int index) const { return removed_[static_cast<std::size_t>(index)]; }
  // For edits and renames of any field. PageSlots counts, not SitePosMask: the masks of this run are in it.
  SiteRec& Change(int index) { return records_[index]; }
  // Returns the index that the record has during this change.
  int Add(const SiteRec& site);
  void Remove(int index) { removed_[static_cast<std::size_t>(index)] = true; }

  // The records that are left, in their order, and the index of each before.
  QList<SiteRec> Left(std::vector<int>& former) const;

 private:
  QList<SiteRec> records_;
  std::vector<bool> removed_;
  int formerSize_;
};

// Both tables during a change.
struct SiteEdit {
  TableEdit dsstv;
  TableEdit wx;
  // The pictures, thumbs and heights of the slots have been moved by whoever makes this change. Otherwise the files of
  // a slot that goes to another site are removed.
  bool filesMoved = false;
  // Whatever lies under a slot that was vacant is another site's: sites from a copy may have other places than those of
  // the last run.
  bool dropsFilesOfNew = false;
};
