// SPDX-License-Identifier: GPL-3.0-or-later
// Changes which sites stand where on the page: adding, reloading and removing a single one, closing the gaps. The menu
// handlers of the main window and the site windows call it.
#pragma once

#include <QObject>

#include "core/program.h"
#include "page/thumb_grid.h"
#include "poll/download_control.h"
#include "poll/poll_cycle.h"

class PageSites : public QObject {
  Q_OBJECT

 public:
  PageSites(Program& program, ThumbGrid& grid, PollCycle& poll, ucCkNew& check, UserControl1& download,
            QObject* parent = nullptr);

  // Puts a site (index into Sites, on the WX page into WxSites) into SelectedSlot and asks it at once.
  void AddSiteToSlot(int site);
  // Asks the picture of SelectedSlot anew, without a check.
  void ReloadSlot();
  // The page's sites in the order of List1 without gaps; the page is then reloaded.
  void CompactPage();
  // Takes the site of SelectedSlot, or every site, off the page.
  void RemoveSite();
  void RemoveAllSites();

 private:
  bool OnWxPage() const { return !program_.page.OnDsstvPage(); }
  void EmptySlot(int slot);
  void AddWxSite(int slot, int site);
  void RemoveFrom(int slot);
  // The masks into the records, and the records into the lists of slots.
  void RebuildSlots();
  QString& WxSlot(SiteRec& site) const;

  Program& program_;
  ThumbGrid& grid_;
  PollCycle& poll_;
  ucCkNew& check_;
  UserControl1& download_;
};
