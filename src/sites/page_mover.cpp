// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/page_mover.h"

#include <QPointer>

using namespace Qt::StringLiterals;

PageMover::PageMover(Program& program, PollCycle& poll, SlotPictures& files, SiteChanges& changes)
    : program_(program), poll_(poll), files_(files), changes_(changes) {}

void PageMover::Apply(const PageOrder& order, QObject* context, const Done& done) {
  isBusy_ = true;
  const Done tell = [this, context = QPointer<QObject>(context), done](bool moved, const QStringList& notWritten) {
    isBusy_ = false;
    if (moved) Q_EMIT Applied();
    if (context != nullptr) done(moved, notWritten);
    Q_EMIT Ended();
  };
  if (!order.IsMoved()) return ChangePlaces(order, tell);
  // Answers of the poll that is under way would be stored under the former numbers.
  poll_.EndPoll();
  files_.MovePages(order.PageBefore(), [this, order, tell](bool allMoved) {
    if (allMoved) return ChangePlaces(order, tell);
    tell(false, {program_.AppDataDir + u"/images/dsstv"_s});
  });
}

// Labels and places change in one step, so that whatever is saved in between has the former order of both.
void PageMover::ChangePlaces(const PageOrder& order, const Done& tell) {
  const QStringList labels = order.Labels();
  for (int page = 1; page <= kDsstvPages; ++page) program_.PageLabels[page] = labels.at(page - 1);
  const auto change = [pageBefore = order.PageBefore()](SiteEdit& edit) {
    for (int site = 0; site < edit.dsstv.Size(); ++site) MovePlaces(edit.dsstv.Change(site), pageBefore);
    edit.filesMoved = true;
  };
  ChangeOptions options;
  // The files have moved: places that went back would show each site with the pictures of another.
  options.keepUnsaved = true;
  changes_.ChangeSites(change, options, this, [tell](const QStringList& notWritten) { tell(true, notWritten); });
}
