// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of sites in memory: the DSSTV table with its slot masks and lists, and the WX table. The poll looks slots
// up here; site maintenance changes them.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <vector>

inline constexpr int kDsstvPages = 20;
inline constexpr int kLayouts = 6;
inline constexpr int kLastSlot = 36;

// A site of either table; on the WX page Call is its title.
struct SiteRec {
  QString Call;                                 // plain zeros; empty: removed, but in the table until the next load
  QString Url;                                  // may hold "NoDelete"
  std::array<QString, kLayouts + 1> PageSlots;  // by ThumbLayout; index 0 is never used
  double Lat = 0;                               // degrees
  double Lon = 0;
  QString LastSeen;  // date and time of the newest picture, without seconds
  QString CamUrl;

  // What the file holds beyond that, to be written back.
  QString LatText;  // the field as read, if it is no number; otherwise empty
  QString LonText;
  QString MoreFields;  // fields behind the known ones, each with its "*" in front
};

// Both tables and the lists that are derived from them.
class SiteTable {
 public:
  QList<SiteRec> Sites;
  QList<SiteRec> WxSites;
  QStringList SitePosMask;  // parallel to Sites; 20 characters each
  QStringList lstCalls;     // index equals the index into Sites
  QStringList lstThumbPos;  // sorted; one place of a site on a page each: "PP-SS-NNN-CALL"
  QStringList lstCams;      // sorted; call and state mark "*Y", "*G" or "*R"

  // Sorts Sites and their masks by Call in character order, equal calls as comb sort leaves them; rebuilds lstCalls.
  // Both sorts return the former index of each record, in the new order.
  std::vector<int> SortSites();
  std::vector<int> SortWxSites();
  // Fills lstThumbPos and SitePosMask from PageSlots[layout].
  void BuildPageSlots(int layout);
  // Writes the masks back into PageSlots[layout], pages in rising order, followed by the tokens that do not fit into a
  // mask.
  void StorePageSlots(int layout);

  // 1-based slot of a site on a page 1 to 20; 0 for none and for the WX page.
  int GetSiteSlot(int siteIndex, int page) const;
  // Changes the mask only; lstThumbPos is changed by AddThumbPos and RemoveThumbPos.
  void SetSiteSlot(int siteIndex, int page, int slot);
  // Removed sites do not count.
  bool PageIsEmpty(int page) const;

  // First entry of lstThumbPos for a page and 1-based slot; empty when the slot is free.
  QString FindThumbPos(int page, int slot) const;
  void AddThumbPos(int page, int slot, int siteIndex);
  void RemoveThumbPos(int page, int slot, int siteIndex);

  // Index in lstCalls of a call, compared as a whole without regard to letter case; the first of several, or -1.
  int FindCall(const QString& call) const;
  // Adds each call with "*Y" (not yet polled) to lstCams.
  void AddCams(const QStringList& calls);
  // Empties lstCams and adds the sites that have a cam; with a page (1 to 20) only those that have a slot on it.
  void ListCams(int page = 0);
  // Writes a new state mark into the item of a call; nothing where no item is found.
  void SetCamMark(const QString& call, QChar mark);
  // State mark of a call's item: 'Y', 'G' or 'R'; null where no item is found.
  QChar CamMark(const QString& call) const;

 private:
  qsizetype FindCam(const QString& call) const;

  // Index by case-folded call, and the lstCalls that it was made from. The index is valid while the two lists share
  // their data.
  mutable QHash<QString, int> callIndex_;
  mutable QStringList indexedCalls_;
};

// The address without "NoDelete", which may be anywhere in it.
QString PlainUrl(const QString& url);
// The index into Sites in an entry of lstThumbPos; -1 if it has none.
int SiteOfThumbPos(const QString& entry);
