// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/check_boxes.h"

using namespace Qt::StringLiterals;

void CheckBoxes::Set(int index, bool checked) {
  if (index >= 0 && index < Count()) checked_[index] = checked;
}

void CheckBoxes::Settle() {
  if (!checked_.contains(true)) Set(0, true);
}

void CheckBoxes::Click(int index) {
  const bool checked = !IsChecked(index);
  if (checked && index == 0) return Choose(0);
  Set(index, checked);
  if (checked) Set(0, false);
  Settle();
}

void CheckBoxes::Choose(int index) {
  checked_.fill(false);
  Set(index, true);
  Settle();
}

int CheckBoxes::Single() const {
  return checked_.count(true) == 1 ? static_cast<int>(checked_.indexOf(true)) : 0;
}

QString CheckBoxes::Summary(const QStringList& captions) const {
  QStringList words;
  if (IsChecked(0)) return {};
  for (int i = 1; i < Count(); ++i) {
    if (IsChecked(i)) words.append(captions.value(i).section(u' ', 0, 0));
  }
  return words.join(u' ');
}

QString CutSummary(const QString& summary, const std::function<bool(const QString&)>& fits) {
  if (fits(summary)) return summary;
  QString rest = summary;
  while (rest.size() > 1) {
    const qsizetype blank = rest.lastIndexOf(u' ');
    rest.truncate(blank > 0 ? blank : rest.size() - 1);
    if (fits(rest + "..."_L1)) break;
  }
  return rest + "..."_L1;
}
