// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of sites in memory: the DSSTV table with its slot masks and lists, and the WX table. The poll looks slots up
// here; site maintenance changes them.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <array>

inline constexpr int kDsstvPages = 20;
inline constexpr int kLayouts = 6;

struct SiteRec {
  QString Call;                                 // plain zeros; empty: removed, a hole until the next load
  QString Url;                                  // may hold "NoDelete"
  std::array<QString, kLayouts + 1> PageSlots;  // by ThumbLayout; index 0 is never used
  double Lat = 0;                               // degrees
  double Lon = 0;
  QString LastSeen;  // date and time of the newest picture, without seconds
  QString CamUrl;
};

// One place of a site on a page, as lstThumbPos lists it: "PP-SS-NNN-CALL".
class SiteTable {
 public:
  QList<SiteRec> Sites;
  QList<SiteRec> WxSites;
  QStringList SitePosMask;  // parallel to Sites; 20 characters each
  QStringList lstCalls;     // index equals the index into Sites
  QStringList lstThumbPos;  // sorted
  QStringList lstCams;      // sorted

  // Comb sort of Sites with their masks by Call in character order; rebuilds lstCalls.
  void SortSites();
  void SortWxSites();
  // Fills lstThumbPos and SitePosMask from PageSlots[layout].
  void BuildPageSlots(int layout);
  // The masks back into PageSlots[layout], pages in rising order.
  void StorePageSlots(int layout);

  // 1-based slot of a site on a page 1 to 20; 0 for none and for the WX page.
  int GetSiteSlot(int siteIndex, int page) const;
  void SetSiteSlot(int siteIndex, int page, int slot);
  bool PageIsEmpty(int page) const;

  // First entry of lstThumbPos for a page and 1-based slot; empty when the slot is free.
  QString FindThumbPos(int page, int slot) const;
  // Index of an exact call in lstCalls without regard to letter case, or -1.
  int FindCall(const QString& call) const;
};

// Url with "NoDelete" taken out, wherever it stands.
QString PlainUrl(const QString& url);
