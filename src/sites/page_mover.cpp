// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/page_mover.h"

#include <QPointer>

PageMover::PageMover(Program& program, PollCycle& poll, SlotPictures& files, SiteChanges& changes)
    : program_(program), poll_(poll), files_(files), changes_(changes) {}

void PageMover::Apply(const PageOrder& order, QObject* context, const SiteChanges::Done& done) {
  if (!order.IsMoved()) return ChangePlaces(order, context, done);
  // Answers of the poll that is under way would be stored under the former numbers.
  poll_.EndPoll();
  files_.MovePages(order.PageBefore(),
                   [this, order, context = QPointer<QObject>(context), done]() { ChangePlaces(order, context, done); });
}

// Labels and places change in one step, so that whatever is saved in between has the former order of both.
void PageMover::ChangePlaces(const PageOrder& order, QObject* context, const SiteChanges::Done& done) {
  const QStringList labels = order.Labels();
  for (int page = 1; page <= kDsstvPages; ++page) program_.PageLabels[page] = labels.at(page - 1);
  const auto change = [pageBefore = order.PageBefore()](SiteEdit& edit) {
    for (int site = 0; site < edit.dsstv.Size(); ++site) MovePlaces(edit.dsstv.Change(site), pageBefore);
    edit.filesMoved = true;
  };
  ChangeOptions options;
  // The files have moved: places that went back would show each site with the pictures of another.
  options.keepUnsaved = true;
  changes_.ChangeSites(change, options, this,
                       [this, context = QPointer<QObject>(context), done](const QStringList& notWritten) {
                         Q_EMIT Applied();
                         if (context != nullptr) done(notWritten);
                       });
}
