// SPDX-License-Identifier: GPL-3.0-or-later
// ChangeSites, the one operation behind all changes of the site tables: additions, edits, renames, removals, the
// author's list, the order of the pages. It ends the poll and the cam round first, because their answers carry indices
// into the tables. The windows that change sites call it; the page's line offers to undo what it did last.
#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "core/program.h"
#include "page/thumb_grid.h"
#include "platform/background.h"
#include "poll/height_table.h"
#include "poll/poll_cycle.h"
#include "poll/slot_pictures.h"
#include "sites/site_edit.h"
#include "sites/site_fields.h"

// What the page's line says of a change that can be undone.
struct SiteNews {
  QStringList removed;  // calls and titles; the line names a single one
  int added = 0;

  bool operator==(const SiteNews&) const = default;
};

// How a change ends.
struct ChangeOptions {
  // With a value the change can be undone until the next change of sites or places.
  std::optional<SiteNews> news;
  // Otherwise the tables are as before when a list could not be written, so that the user can try again.
  bool keepUnsaved = false;
};

// The changes of the tables.
class SiteChanges : public QObject {
  Q_OBJECT

 public:
  // What is told and moved by a change; all outlive this object.
  struct Dependencies {
    Program& program;
    ThumbGrid& grid;
    HeightTable& heights;
    SlotPictures& files;
    PollCycle& poll;
    Background& background;
  };
  using Change = std::function<void(SiteEdit& edit)>;
  // notWritten: names of the files that could not be written; empty: all is saved. Of a change that is taken back where
  // a list cannot be written, the lists alone; the rest is told by NotWritten.
  using Done = std::function<void(const QStringList& notWritten)>;

  explicit SiteChanges(const Dependencies& deps, QObject* parent = nullptr);

  // Applies a change at once, as a whole: sorts, builds the slots anew, clears the cells that have lost their site, and
  // puts captions, cam lights and lists right. Saves the state beside the event loop, then polls anew and calls done,
  // unless context is gone by then.
  void ChangeSites(const Change& change, const ChangeOptions& options, QObject* context, const Done& done);
  // The same for a change of thousands of sites, which would hold the event loop for several frames: the tables are
  // made beside it, and take effect as a whole when they are ready. The change may refer to nothing but its own values.
  void ChangeManySites(const Change& change, const ChangeOptions& options, QObject* context, const Done& done);

  // The last change, unless it cannot be undone or another change has followed.
  std::optional<SiteNews> Undoable() const;
  // By the index before the last change: where each site of a table is now; -1: removed.
  const TableEdit::NewIndex& Moved(SiteTableKind list) const {
    return list == SiteTableKind::Wx ? former_.newWxIndex : former_.newIndex;
  }
  // Puts the tables back as they were; pictures that have been taken since keep their dates.
  void Undo(QObject* context, const Done& done);
  // To be called by whoever else changes places.
  void ForgetUndo();

  // Writes the state beside the event loop and calls its argument with the files that could not be written. The main
  // window sets it; without one nothing is written.
  std::function<void(const Done&)> SaveAllState;

 Q_SIGNALS:
  // The tables are about to change; whoever waits for answers with indices into them ends that.
  void AboutToChange();
  // They have changed; indices kept from before mean nothing any more.
  void Changed();
  void UndoableChanged();
  // The change stands, but these files could not be written with it.
  void NotWritten(const QStringList& files);

 private:
  // The tables before a change, and where their records are now.
  struct Former {
    QList<SiteRec> sites;
    QList<SiteRec> wxSites;
    TableEdit::NewIndex newIndex;
    TableEdit::NewIndex newWxIndex;
    std::optional<SiteNews> news;
  };

  // The tables as a change leaves them.
  struct Made {
    SiteTable table;
    Former former;
    QHash<int, int> before;  // site of each place before the change
    QStringList masks;       // of the sites before it
    bool filesMoved = false;
    bool dropsFilesOfNew = false;
  };

  static Made Make(const SiteTable& table, int layout, const Change& change);
  void BeginChange();
  void Apply(const Change& change);
  void Take(const Made& made);
  // Carries over what a poll has written since the tables were made; false where anything else has changed.
  bool FollowPoll(Made& made) const;
  void Save(const ChangeOptions& options, QObject* context, const Done& done);
  static void TakeBack(const Former& former, SiteEdit& edit);
  void Saved(quint64 number, const ChangeOptions& options, const QStringList& notWritten);
  // Site of each taken place, by page * 100 + slot, from 0.
  static QHash<int, int> SitesOfPlaces(const SiteTable& sites);
  void DropFiles(const QHash<int, int>& before, bool ofNew);
  void ShowDsstvCells(const QHash<int, int>& before);
  void ShowWxCells();
  void ListCams(const QStringList& formerCams);
  void EmptyCell(int slot);

  Program& program_;
  ThumbGrid& grid_;
  HeightTable& heights_;
  SlotPictures& files_;
  PollCycle& poll_;
  Background& background_;
  Former former_;       // of the last change
  quint64 number_ = 0;  // of changes so far
  bool undoable_ = false;
};
