// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/site_table.h"

#include <algorithm>
#include <numeric>

#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLastLetterSlot = 26;  // slots up to here are the letters A to Z in a mask
constexpr int kLetterOffset = 64;
constexpr int kFurtherOffset = 70;  // slots from 27 on go on with "a"

QString EmptyMask() {
  return QString(kDsstvPages, u'0');
}

bool IsDsstvPage(int page) {
  return page >= 1 && page <= kDsstvPages;
}
bool IsSlot(int slot) {
  return slot >= 1 && slot <= kLastSlot;
}
bool IsLayout(int layout) {
  return layout >= 1 && layout <= kLayouts;
}

QChar CharOfSlot(int slot) {
  return QChar(static_cast<char16_t>(slot + (slot <= kLastLetterSlot ? kLetterOffset : kFurtherOffset)));
}

int SlotOfChar(QChar character) {
  if (character == u'0') {
    return 0;
  }
  const int code = character.unicode();
  const int slot = code - (code <= kLastLetterSlot + kLetterOffset ? kLetterOffset : kFurtherOffset);
  return IsSlot(slot) ? slot : 0;
}

QString TwoDigits(int value) {
  return QString::number(value).rightJustified(2, u'0');
}

QString ThumbPosEntry(const QString& page, const QString& slot, int siteIndex, const QString& call) {
  return page + u'-' + slot + u'-' + QString::number(siteIndex).rightJustified(3, u'0') + u'-' + call;
}

// A token PPSS (page and slot) of PageSlots. Its digits are kept as texts too, because entries of lstThumbPos repeat
// them.
struct Place {
  explicit Place(const QString& token)
      : pageText(token.left(2)),
        slotText(token.right(2)),
        page(WholeNumber(Val(pageText))),
        slot(WholeNumber(Val(slotText))) {}
  // True if a mask can hold it; other tokens are only kept for the file.
  bool Fits() const { return IsDsstvPage(page) && IsSlot(slot); }

  QString pageText;
  QString slotText;
  int page;
  int slot;
};

char16_t Folded(QChar character) {
  const char16_t code = character.unicode();
  if (code < 0x80) {
    return code >= u'A' && code <= u'Z' ? static_cast<char16_t>(code + (u'a' - u'A')) : code;
  }
  return character.toCaseFolded().unicode();
}

// The order of a sorted list box: letter case does not count; texts that are equal so are ordered by character.
// QString's own comparison is several times slower, which shows in a list of 100,000.
bool ListBoxLess(const QString& a, const QString& b) {
  const qsizetype common = std::min(a.size(), b.size());
  for (qsizetype i = 0; i < common; ++i) {
    const char16_t left = Folded(a.at(i));
    const char16_t right = Folded(b.at(i));
    if (left != right) {
      return left < right;
    }
  }
  return a.size() != b.size() ? a.size() < b.size() : a < b;
}

// Ranks of the calls in character order (equal calls have equal ranks), so that the sort compares numbers.
std::vector<int> RanksOf(const QList<SiteRec>& records) {
  const auto count = static_cast<std::size_t>(records.size());
  std::vector<int> byCall(count);
  std::iota(byCall.begin(), byCall.end(), 0);
  std::sort(byCall.begin(), byCall.end(), [&](int a, int b) { return records.at(a).Call < records.at(b).Call; });
  std::vector<int> ranks(count);
  int rank = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0 && records.at(byCall[i - 1]).Call < records.at(byCall[i]).Call) {
      ++rank;
    }
    ranks[static_cast<std::size_t>(byCall[i])] = rank;
  }
  return ranks;
}

// Comb sort with shrink factor 0.65. It is not stable, and the order that it gives equal calls decides which of two
// duplicates survives a save; so exactly this sort is run over the ranks. Its last passes, with a gap of one, are a
// bubble sort; they would take seconds for a large table, and a stable sort gives the same order.
std::vector<int> CombOrder(const QList<SiteRec>& records) {
  const std::vector<int> ranks = RanksOf(records);
  std::vector<int> order(ranks.size());
  std::iota(order.begin(), order.end(), 0);
  const auto rankAt = [&](std::size_t place) { return ranks[static_cast<std::size_t>(order[place])]; };
  for (std::size_t gap = order.size() * 65 / 100; gap > 1; gap = (gap + 1) * 65 / 100) {
    for (std::size_t i = 0; i + gap < order.size(); ++i) {
      if (rankAt(i) > rankAt(i + gap)) {
        std::swap(order[i], order[i + gap]);
      }
    }
  }
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
    return ranks[static_cast<std::size_t>(a)] < ranks[static_cast<std::size_t>(b)];
  });
  return order;
}

template <typename T>
void Reorder(QList<T>& list, const std::vector<int>& order) {
  QList<T> sorted;
  sorted.reserve(list.size());
  for (const int index : order) {
    sorted.append(std::move(list[index]));
  }
  list.swap(sorted);
}

}  // namespace

std::vector<int> SiteTable::SortSites() {
  while (SitePosMask.size() < Sites.size()) {
    SitePosMask.append(EmptyMask());
  }
  SitePosMask.resize(Sites.size());
  std::vector<int> order = CombOrder(Sites);
  Reorder(Sites, order);
  Reorder(SitePosMask, order);
  lstCalls.clear();
  lstCalls.reserve(Sites.size());
  for (const SiteRec& site : std::as_const(Sites)) {
    lstCalls.append(site.Call);
  }
  return order;
}

std::vector<int> SiteTable::SortWxSites() {
  std::vector<int> order = CombOrder(WxSites);
  Reorder(WxSites, order);
  return order;
}

void SiteTable::BuildPageSlots(int layout) {
  lstThumbPos.clear();
  SitePosMask.fill(EmptyMask(), Sites.size());
  if (!IsLayout(layout)) {
    return;
  }
  for (int i = 0; i < Sites.size(); ++i) {
    const SiteRec& site = Sites.at(i);
    const QString& tokens = site.PageSlots[static_cast<std::size_t>(layout)];
    if (site.Call.isEmpty() || tokens.isEmpty()) {
      continue;
    }
    for (const QString& token : tokens.split(u':')) {
      const Place place(token);
      if (place.Fits()) {
        SitePosMask[i][place.page - 1] = CharOfSlot(place.slot);
        lstThumbPos.append(ThumbPosEntry(place.pageText, place.slotText, i, site.Call));
      }
    }
  }
  std::sort(lstThumbPos.begin(), lstThumbPos.end(), ListBoxLess);
}

void SiteTable::StorePageSlots(int layout) {
  if (!IsLayout(layout)) {
    return;
  }
  const qsizetype count = std::min(Sites.size(), SitePosMask.size());
  for (int i = 0; i < count; ++i) {
    QString& tokens = Sites[i].PageSlots[static_cast<std::size_t>(layout)];
    QStringList kept;
    for (int page = 1; page <= kDsstvPages; ++page) {
      if (const int slot = GetSiteSlot(i, page); slot > 0) {
        kept.append(TwoDigits(page) + TwoDigits(slot));
      }
    }
    for (const QString& token : tokens.split(u':', Qt::SkipEmptyParts)) {
      if (!Place(token).Fits()) {
        kept.append(token);
      }
    }
    tokens = kept.join(u':');
  }
}

int SiteTable::GetSiteSlot(int siteIndex, int page) const {
  if (siteIndex < 0 || siteIndex >= SitePosMask.size() || !IsDsstvPage(page)) {
    return 0;
  }
  const QString& mask = SitePosMask.at(siteIndex);
  return page <= mask.size() ? SlotOfChar(mask.at(page - 1)) : 0;
}

void SiteTable::SetSiteSlot(int siteIndex, int page, int slot) {
  if (siteIndex < 0 || siteIndex >= SitePosMask.size() || !IsDsstvPage(page)) {
    return;
  }
  QString& mask = SitePosMask[siteIndex];
  if (mask.size() != kDsstvPages) {
    mask = mask.leftJustified(kDsstvPages, u'0', true);
  }
  mask[page - 1] = IsSlot(slot) ? CharOfSlot(slot) : QChar(u'0');
}

bool SiteTable::PageIsEmpty(int page) const {
  for (int i = 0; i < Sites.size(); ++i) {
    if (!Sites.at(i).Call.isEmpty() && GetSiteSlot(i, page) > 0) {
      return false;
    }
  }
  return true;
}

QString SiteTable::FindThumbPos(int page, int slot) const {
  const QString prefix = TwoDigits(page) + u'-' + TwoDigits(slot) + u'-';
  const auto found = std::lower_bound(lstThumbPos.cbegin(), lstThumbPos.cend(), prefix, ListBoxLess);
  return found != lstThumbPos.cend() && found->startsWith(prefix) ? *found : QString();
}

void SiteTable::AddThumbPos(int page, int slot, int siteIndex) {
  if (siteIndex >= 0 && siteIndex < Sites.size()) {
    const QString entry = ThumbPosEntry(TwoDigits(page), TwoDigits(slot), siteIndex, Sites.at(siteIndex).Call);
    const auto behind = std::upper_bound(lstThumbPos.cbegin(), lstThumbPos.cend(), entry, ListBoxLess);
    lstThumbPos.insert(behind - lstThumbPos.cbegin(), entry);
  }
}

void SiteTable::RemoveThumbPos(int page, int slot, int siteIndex) {
  if (siteIndex >= 0 && siteIndex < Sites.size()) {
    lstThumbPos.removeOne(ThumbPosEntry(TwoDigits(page), TwoDigits(slot), siteIndex, Sites.at(siteIndex).Call));
  }
}

int SiteTable::FindCall(const QString& call) const {
  if (call.isEmpty()) {
    return -1;
  }
  if (!indexedCalls_.isSharedWith(lstCalls)) {
    indexedCalls_ = lstCalls;
    callIndex_.clear();
    callIndex_.reserve(lstCalls.size());
    for (int i = static_cast<int>(lstCalls.size()) - 1; i >= 0; --i) {
      callIndex_.insert(lstCalls.at(i).toCaseFolded(), i);
    }
  }
  return callIndex_.value(call.toCaseFolded(), -1);
}

void SiteTable::AddCams(const QStringList& calls) {
  for (const QString& call : calls) {
    lstCams.append(call + "*Y"_L1);
  }
  std::sort(lstCams.begin(), lstCams.end(), ListBoxLess);
}

void SiteTable::ListCams(int page) {
  QStringList calls;
  for (int site = 0; site < Sites.size(); ++site) {
    const bool isMeant = page == 0 || GetSiteSlot(site, page) > 0;
    if (isMeant && !Sites.at(site).CamUrl.isEmpty() && !Sites.at(site).Call.isEmpty()) {
      calls.append(Sites.at(site).Call);
    }
  }
  lstCams.clear();
  AddCams(calls);
}

// The first item that begins with the call, so a call without an item of its own can find that of a longer call which
// begins like it. This is wanted.
qsizetype SiteTable::FindCam(const QString& call) const {
  if (call.isEmpty()) {
    return -1;
  }
  const auto found = std::lower_bound(lstCams.cbegin(), lstCams.cend(), call, ListBoxLess);
  return found != lstCams.cend() && found->startsWith(call, Qt::CaseInsensitive) ? found - lstCams.cbegin() : -1;
}

void SiteTable::SetCamMark(const QString& call, QChar mark) {
  const qsizetype at = FindCam(call);
  if (at < 0) {
    return;
  }
  const QString item = call + u'*' + mark;
  lstCams.removeAt(at);
  lstCams.insert(std::lower_bound(lstCams.cbegin(), lstCams.cend(), item, ListBoxLess) - lstCams.cbegin(), item);
}

QChar SiteTable::CamMark(const QString& call) const {
  const qsizetype at = FindCam(call);
  return at < 0 ? QChar() : lstCams.at(at).back();
}

QString PlainUrl(const QString& url) {
  return QString(url).remove("NoDelete"_L1);
}

int SiteOfThumbPos(const QString& entry) {
  bool isNumber = false;
  const int index = entry.section(u'-', 2, 2).toInt(&isNumber);
  return isNumber ? index : -1;
}
