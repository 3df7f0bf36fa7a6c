// SPDX-License-Identifier: GPL-3.0-or-later
// Names and order of the 20 pages while Form5 edits them: which page stands in which row, what stands on it, and what
// the sites' places and the labels become when the window closes. Form5 shows it, PageMover carries it out.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "core/program.h"

// The 20 rows. Nothing of it touches the tables before the window closes: a poll that goes on behind the window stores
// its pictures by the page numbers of the tables.
class PageOrder {
 public:
  explicit PageOrder(const Program& program);

  const QString& Caption(int row) const { return captions_.at(row); }
  void Rename(int row, const QString& caption) { captions_[row] = caption; }

  // Exchanges two rows: the captions, and the pages with all that stands on them.
  void SwapPages(int row, int neighbour);

  // What a click on a row shows: the call in each slot of that row's page, ThumbCount of them, empty for a free slot.
  QStringList ShowPageSites(int row) const;

  // Index 1 to 20: the page that becomes this page. Index 0 is never used.
  const QList<int>& PageBefore() const { return pageBefore_; }
  bool IsMoved() const;
  // The labels 1 to 20, index 0 to 19: default labels are numbered anew from the top, the user's own stay.
  QStringList Labels() const;

  // The tables now have the new order, and the labels are those of Labels().
  void Applied();

 private:
  const Program& program_;
  QStringList captions_;
  QList<int> pageBefore_;
};

// Moves the places of a site in all layouts to the pages' new numbers: page pageBefore[p] becomes page p.
void MovePlaces(SiteRec& site, const QList<int>& pageBefore);
