// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/page_order.h"

#include <algorithm>
#include <numeric>

#include "platform/text/numbers.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

PageOrder::PageOrder(const Program& program) : program_(program), pageBefore_(kDsstvPages + 1) {
  captions_ = program.PageLabels.mid(1, kDsstvPages);
  captions_.resize(kDsstvPages);
  std::iota(pageBefore_.begin(), pageBefore_.end(), 0);
}

void PageOrder::SwapPages(int row, int neighbour) {
  captions_.swapItemsAt(row, neighbour);
  pageBefore_.swapItemsAt(row + 1, neighbour + 1);
}

QStringList PageOrder::ShowPageSites(int row) const {
  QStringList calls(program_.page.ThumbCount);
  const int page = pageBefore_.at(row + 1);
  for (int site = 0; site < program_.sites.Sites.size(); ++site) {
    const int slot = program_.sites.GetSiteSlot(site, page);
    if (slot < 1 || slot > calls.size()) continue;
    calls[slot - 1] = ShownCall(program_.sites.Sites.at(site).Call, program_.ZeroGlyph);
  }
  return calls;
}

bool PageOrder::IsMoved() const {
  return !std::is_sorted(pageBefore_.cbegin(), pageBefore_.cend());
}

// Any label with the word for page in it counts as a default label, wherever the word stands: this is wanted. A page
// without a name could not be chosen in the menu of pages, so it gets the default one.
QStringList PageOrder::Labels() const {
  const QString& word = program_.language[TextLine::kPageWord];
  QStringList labels = captions_;
  for (qsizetype row = 0; row < labels.size(); ++row) {
    QString& label = labels[row];
    const bool isDefault = !word.isEmpty() && label.contains(word);
    if (isDefault || label.trimmed().isEmpty()) label = word + QString::number(row + 1);
  }
  return labels;
}

void PageOrder::Applied() {
  captions_ = Labels();
  std::iota(pageBefore_.begin(), pageBefore_.end(), 0);
}

void MovePlaces(SiteRec& site, const QList<int>& pageBefore) {
  for (QString& places : site.PageSlots) {
    if (places.isEmpty()) continue;
    QStringList tokens = places.split(u':');
    for (QString& token : tokens) {
      const qsizetype now = pageBefore.indexOf(static_cast<int>(Val(token.left(2))));
      // A token of no page stays as the list has it.
      if (now > 0) token.replace(0, 2, QString::number(100 + now).right(2));
    }
    places = tokens.join(u':');
  }
}
