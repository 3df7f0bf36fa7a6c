// SPDX-License-Identifier: GPL-3.0-or-later
// Changes which sites are in which slots of the page: adds, reloads and removes a single site, closes the gaps, and
// undoes the last of these changes. The menu handlers of the main window and the site windows call it.
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

// A change of places that can be undone.
struct PlacesChange {
  enum class Kind { SiteRemoved, AllRemoved, Compacted };

  Kind kind = Kind::SiteRemoved;
  QString call;  // call of the removed site; on the WX page its title
};

// The changes of the page on the screen.
class PageSites : public QObject {
  Q_OBJECT

 public:
  PageSites(Program& program, ThumbGrid& grid, SlotPictures& files, PollCycle& poll, ucCkNew& check,
            UserControl1& download, QObject* parent = nullptr);

  // Puts a site (index into Sites, on the WX page into WxSites) into SelectedSlot and asks it for its picture at once.
  void AddSiteToSlot(int site);
  // Fetches the picture of SelectedSlot again, without asking for the marker.
  void ReloadSlot();
  // Moves the page's sites, in the order of List1, together without gaps; their files move with them. Then reloads the
  // page.
  void CompactPage();
  // Takes the site of SelectedSlot, or every site, off the page.
  void RemoveSite();
  void RemoveAllSites();

  // The last change, unless another change of places has followed it; nothing: there is none to undo.
  std::optional<PlacesChange> Undoable() const;
  // Undoes the last change: its sites return to their slots, even if another page is shown by now.
  void Undo();
  // To be called by whoever else changes places, for instance the site windows.
  void ForgetUndo();

 Q_SIGNALS:
  void UndoableChanged();
  // A site has been given another slot, or has been taken off the page.
  void PlacesTouched();

 private:
  // The slots of one page's sites before a change. WX sites are identified by address, the others by call.
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
  // Keeps the places before a change that has just been made, for Undo.
  void Remember(const Places& before);
  void UndoDsstv(const Places& places);
  void UndoWx(const Places& places);
  // Stores the masks in the records, and builds the lists of slots from the records.
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
