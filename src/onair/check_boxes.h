// SPDX-License-Identifier: GPL-3.0-or-later
// The check boxes of a filter panel, ckBand or ckMode, as values: box 0 stands for all. The windows of the feed hold
// one for the bands and one for the modes, and filter by them.
#pragma once

#include <QList>
#include <QStringList>
#include <functional>

// Never without a ticked box once it has been settled.
class CheckBoxes {
 public:
  explicit CheckBoxes(int count) : checked_(count, false) {}

  int Count() const { return static_cast<int>(checked_.size()); }
  bool IsChecked(int index) const { return checked_.value(index, false); }
  // As it was stored; to be settled when all are set.
  void Set(int index, bool checked);
  // Nothing ticked is everything ticked.
  void Settle();
  // The user's click: box 0 and the others drive each other out.
  void Click(int index);
  // Ticks this one only.
  void Choose(int index);
  // The only ticked box; 0 for several.
  int Single() const;
  // The first word of each ticked caption, in their order; empty while box 0 is ticked.
  QString Summary(const QStringList& captions) const;

  bool operator==(const CheckBoxes&) const = default;

 private:
  QList<bool> checked_;
};

// The summary of ticked boxes as a button shows it: whole where it fits, else cut behind a whole word, with "..."
// behind it. fits: whether a text is narrow enough for the button. A single word that is too wide is cut within.
QString CutSummary(const QString& summary, const std::function<bool(const QString&)>& fits);
