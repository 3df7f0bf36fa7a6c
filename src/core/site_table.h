// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of sites in memory: the DSSTV table with its slot masks and lists, and the WX table. The poll looks slots
// up here; site maintenance changes them.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <array>

inline constexpr int kDsstvPages = 20;
inline constexpr int kLayouts = 6;
inline constexpr int kLastSlot = 36;

struct SiteRec {
  QString Call;                                 // plain zeros; empty: removed, a hole until the next load
  QString Url;                                  // may hold "NoDelete"
  std::array<QString, kLayouts + 1> PageSlots;  // by ThumbLayout; index 0 is never used
  double Lat = 0;                               // degrees
  double Lon = 0;
  QString LastSeen;  // date and time of the newest picture, without seconds
  QString CamUrl;

  // What the file held beyond that and goes back into it.
  QString LatText;  // the field as it stood, where it was no number; empty otherwise
  QString LonText;
  QString MoreFields;  // fields behind those known, each with its "*" in front
};

class SiteTable {
 public:
  QList<SiteRec> Sites;
  QList<SiteRec> WxSites;
  QStringList SitePosMask;  // parallel to Sites; 20 characters each
  QStringList lstCalls;     // index equals the index into Sites
  QStringList lstThumbPos;  // sorted; one place of a site on a page each: "PP-SS-NNN-CALL"
  QStringList lstCams;      // sorted; call and state mark "*Y", "*G" or "*R"

  // Comb sort of Sites with their masks by Call in character order; rebuilds lstCalls.
  void SortSites();
  void SortWxSites();
  // Fills lstThumbPos and SitePosMask from PageSlots[layout].
  void BuildPageSlots(int layout);
  // The masks back into PageSlots[layout], pages in rising order, behind them the tokens that no mask can hold.
  void StorePageSlots(int layout);

  // 1-based slot of a site on a page 1 to 20; 0 for none and for the WX page.
  int GetSiteSlot(int siteIndex, int page) const;
  // Changes the mask only; lstThumbPos has AddThumbPos and RemoveThumbPos.
  void SetSiteSlot(int siteIndex, int page, int slot);
  // Removed sites do not count.
  bool PageIsEmpty(int page) const;

  // First entry of lstThumbPos for a page and 1-based slot; empty when the slot is free.
  QString FindThumbPos(int page, int slot) const;
  void AddThumbPos(int page, int slot, int siteIndex);
  void RemoveThumbPos(int page, int slot, int siteIndex);

  // Index of an exact call in lstCalls without regard to letter case, or -1; the first of several.
  int FindCall(const QString& call) const;
  // Adds each call with "*Y" (not yet polled) to lstCams.
  void AddCams(const QStringList& calls);

 private:
  // Index of folded call, and the list that it was made from: as long as that shares its data with lstCalls, it holds.
  mutable QHash<QString, int> callIndex_;
  mutable QStringList indexedCalls_;
};

// Url with "NoDelete" taken out, wherever it stands.
QString PlainUrl(const QString& url);
// Index into Sites of an entry of lstThumbPos; -1 where it is none.
int SiteOfThumbPos(const QString& entry);
