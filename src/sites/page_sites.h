// SPDX-License-Identifier: GPL-3.0-or-later
// Changes which sites stand where on the page: adding, reloading and removing a single one, closing the gaps, and
// taking the last of these changes back. The menu handlers of the main window and the site windows call it.
#pragma once

#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <optional>

#include "core/program.h"
#include "page/thumb_grid.h"
#include "poll/download_control.h"
#include "poll/poll_cycle.h"
#include "poll/slot_pictures.h"

// A change of places that can be taken back.
struct PlacesChange {
  enum class Kind { SiteRemoved, AllRemoved, Compacted };

  Kind kind = Kind::SiteRemoved;
  QString call;  // of the one site that was removed; on the WX page its title
};

class PageSites : public QObject {
  Q_OBJECT

 public:
  PageSites(Program& program, ThumbGrid& grid, SlotPictures& files, PollCycle& poll, ucCkNew& check,
            UserControl1& download, QObject* parent = nullptr);

  // Puts a site (index into Sites, on the WX page into WxSites) into SelectedSlot and asks it at once.
  void AddSiteToSlot(int site);
  // Asks the picture of SelectedSlot anew, without a check.
  void ReloadSlot();
  // The page's sites in the order of List1 without gaps; their files move with them, and the page is then reloaded.
  void CompactPage();
  // Takes the site of SelectedSlot, or every site, off the page.
  void RemoveSite();
  void RemoveAllSites();

  // The last change, as long as no other change of places has followed it; nothing: there is none to take back.
  std::optional<PlacesChange> Undoable() const;
  // Takes it back: the sites stand where they stood, on whichever page that was.
  void Undo();
  // For whoever changes places by other ways, as the site windows do.
  void ForgetUndo();

 Q_SIGNALS:
  void UndoableChanged();

 private:
  // Where the sites of one page stood before a change. WX sites are told by address, the others by call.
  struct Places {
    PlacesChange change;
    int page = 0;
    QList<QPair<QString, int>> slots;  // 1-based
  };

  bool OnWxPage() const { return !program_.page.OnDsstvPage(); }
  void EmptySlot(int slot);
  void TakeDsstvSlot(int slot, int site);
  void AddWxSite(int slot, int site);
  void RemoveFrom(int slot);
  QString NameAt(int slot) const;
  Places PlacesNow(PlacesChange::Kind kind, const QString& call) const;
  // The change has been made: it can be taken back, and no earlier one.
  void Remember(const Places& before);
  void UndoDsstv(const Places& places);
  void UndoWx(const Places& places);
  // The masks into the records, and the records into the lists of slots.
  void RebuildSlots();
  QString& WxSlot(SiteRec& site) const;

  Program& program_;
  ThumbGrid& grid_;
  SlotPictures& files_;
  PollCycle& poll_;
  ucCkNew& check_;
  UserControl1& download_;
  std::optional<Places> undo_;
};
