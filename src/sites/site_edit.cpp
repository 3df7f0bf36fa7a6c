// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/site_edit.h"

TableEdit::TableEdit(const QList<SiteRec>& records)
    : records_(records),
      removed_(static_cast<std::size_t>(records.size()), false),
      formerSize_(static_cast<int>(records.size())) {}

int TableEdit::Add(const SiteRec& site) {
  records_.append(site);
  removed_.push_back(false);
  return Size() - 1;
}

QList<SiteRec> TableEdit::Left(std::vector<int>& former) const {
  QList<SiteRec> left;
  left.reserve(records_.size());
  former.clear();
  former.reserve(removed_.size());
  for (int index = 0; index < Size(); ++index) {
    if (IsRemoved(index)) continue;
    left.append(records_.at(index));
    former.push_back(index);
  }
  return left;
}
