// SPDX-License-Identifier: GPL-3.0-or-later
// Adds, edits and removes sites: the checks, the record in the call database, the tables, and the message about what
// could not be done. Form3, Form7 and Form4 call it; Form1 owns the only one, so that a window may be closed meanwhile.
#pragma once

#include <QObject>
#include <QPair>
#include <functional>

#include "callbook/call_database.h"
#include "core/program.h"
#include "sites/site_changes.h"
#include "sites/site_fields.h"

// What a change came to.
struct SiteOutcome {
  QString duplicate;       // text of the message box: the site stands in the list already, nothing has changed
  QStringList notWritten;  // names of the files that could not be written; nothing has changed

  bool IsDone() const { return duplicate.isEmpty() && notWritten.isEmpty(); }
};

// The changes that the user makes by hand.
class SiteDesk : public QObject {
  Q_OBJECT

 public:
  using Then = std::function<void(const SiteOutcome& outcome)>;
  // Fields to be written into the record of an index.
  using Edit = QPair<int, SiteFields>;

  SiteDesk(Program& program, SiteChanges& changes, CallDatabase& database, QObject* parent = nullptr);

  // fields must be complete. then comes on the event loop, unless context is gone by then; the change goes on then.
  void Add(SiteTableKind list, const SiteFields& fields, QObject* context, const Then& then);
  // Edits of one or both tables at once, by the present indices.
  void Save(const QList<Edit>& dsstv, const QList<Edit>& wx, QObject* context, const Then& then);
  // Removes a site; the page's line offers to undo it.
  void Remove(SiteTableKind list, int index, QObject* context, const Then& then);

  // The place that the call database has for a call; 0, 0 without one.
  QPair<double, double> PlaceInDatabase(const QString& call);

 private:
  QString DuplicateOf(SiteTableKind list, const SiteFields& fields) const;
  QString DuplicateAmong(SiteTableKind list, const QList<Edit>& edits) const;
  // Whether a site with these fields gets a record in the database.
  bool IsForDatabase(SiteTableKind list, const SiteFields& fields) const;
  void SaveRecords(const QList<StationRecord>& records, QObject* context, const Then& then,
                   const std::function<void()>& next);
  void Change(const SiteChanges::Change& change, const ChangeOptions& options, QObject* context, const Then& then);
  // The record of a call with this place; nothing where there is none and none is to be made.
  std::optional<StationRecord> RecordWith(const SiteFields& fields, bool make);

  Program& program_;
  SiteChanges& changes_;
  CallDatabase& database_;
};
