// SPDX-License-Identifier: GPL-3.0-or-later
// Carries out a new order of the pages: the files of all pages move beside the event loop, then the places of the sites
// change with them. Form5 calls it when it closes; PageLogic owns the only one.
#pragma once

#include <QObject>

#include "core/program.h"
#include "poll/poll_cycle.h"
#include "poll/slot_pictures.h"
#include "sites/page_order.h"
#include "sites/site_changes.h"

// Works for one order at a time.
class PageMover : public QObject {
  Q_OBJECT

 public:
  PageMover(Program& program, PollCycle& poll, SlotPictures& files, SiteChanges& changes);

  // Moves the pages, takes the labels, and saves. done gets the names of the files that could not be
  // written: the new order holds in this run all the same. It is called on the event loop of context, unless that is
  // gone by then; the order is carried out to its end either way.
  void Apply(const PageOrder& order, QObject* context, const SiteChanges::Done& done);

 Q_SIGNALS:
  // An order has been carried out: page 1 is to be shown.
  void Applied();

 private:
  void ChangePlaces(const PageOrder& order, QObject* context, const SiteChanges::Done& done);

  Program& program_;
  PollCycle& poll_;
  SlotPictures& files_;
  SiteChanges& changes_;
};
