// SPDX-License-Identifier: GPL-3.0-or-later
// Carries out a new order of the pages: the files of all pages move beside the event loop, then the places of the sites
// change with them. Form5 calls it when it closes; PageLogic owns the only one.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

#include "core/program.h"
#include "poll/poll_cycle.h"
#include "poll/slot_pictures.h"
#include "sites/page_order.h"
#include "sites/site_changes.h"

// Works for one order at a time.
class PageMover : public QObject {
  Q_OBJECT

 public:
  // moved: the new order holds in this run, and notWritten names the files that could not be written. Not moved: all is
  // as it was, and notWritten names the folder whose pictures could not be moved.
  using Done = std::function<void(bool moved, const QStringList& notWritten)>;

  PageMover(Program& program, PollCycle& poll, SlotPictures& files, SiteChanges& changes);

  // Moves the pages, takes the labels, and saves. done is called on the event loop of context, unless that is gone by
  // then; the order is carried out to its end either way.
  void Apply(const PageOrder& order, QObject* context, const Done& done);
  // An order is being carried out: what is written now has files and places of different orders.
  bool IsBusy() const { return isBusy_; }

 Q_SIGNALS:
  // An order has been carried out: page 1 is to be shown.
  void Applied();
  // Nothing of an order is under way any more, whether it has been carried out or not.
  void Ended();

 private:
  void ChangePlaces(const PageOrder& order, const Done& tell);

  Program& program_;
  PollCycle& poll_;
  SlotPictures& files_;
  SiteChanges& changes_;
  bool isBusy_ = false;
};
