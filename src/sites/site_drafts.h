// SPDX-License-Identifier: GPL-3.0-or-later
// The edits of Form7 that are not saved yet, by table and index: what is shown for a site, which sites are marked, and
// what is to be saved.
#pragma once

#include <QMap>
#include <QPair>

#include "sites/site_desk.h"

// The edits of one window.
class SiteDrafts {
 public:
  SiteDrafts(const SiteTable& sites, SiteDesk& desk) : sites_(sites), desk_(desk) {}

  // The edit of a site, or else the site itself; a DSSTV site without a place has that of the call database.
  SiteFields Shown(SiteTableKind list, int index);
  // What the boxes make of a site that has just been shown and is not edited: they may show less than the list has.
  void SetBoxes(SiteTableKind list, int index, const SiteFields& fields) { boxes_.insert({list, index}, fields); }
  // What the boxes say of a site now; an edit that has been taken back by hand is none.
  void Keep(SiteTableKind list, int index, const SiteFields& fields);
  void Discard(SiteTableKind list, int index) { edits_.remove({list, index}); }
  bool IsEdited(SiteTableKind list, int index) const { return edits_.contains({list, index}); }
  int Count() const { return static_cast<int>(edits_.size()); }
  // What is to be stored where the boxes hold these fields: a box that has not been edited changes nothing.
  SiteFields Stored(SiteTableKind list, int index, const SiteFields& fields) const;
  QList<SiteDesk::Edit> EditsOf(SiteTableKind list) const;
  // An edit that cannot be saved because its call or its address is empty; index -1: none.
  QPair<SiteTableKind, int> FirstIncomplete() const;
  // The sites of one table have other indices now.
  void Move(SiteTableKind list, const TableEdit::NewIndex& newIndex);

 private:
  using Place = QPair<SiteTableKind, int>;

  const SiteTable& sites_;
  SiteDesk& desk_;
  QMap<Place, SiteFields> shown_;  // before any edit, as it was shown first
  QMap<Place, SiteFields> boxes_;  // the same, as the boxes hold it
  QMap<Place, SiteFields> edits_;
};
