// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor of the call database shows and does: the list of calls, the boxes of one record, edits that have been
// left without saving, nicknames, and the deletion that can be undone. Form26 owns one and shows it.
#pragma once

#include <QHash>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>

#include "callbook/call_database.h"
#include "callbook/coordinate_fetch.h"
#include "core/program.h"

// The boxes of a record, but for its call.
enum class Box : int { Name, Add1, Add2, Ctry, Lat, Lon, Class, YearBorn };
inline constexpr std::size_t kBoxes = 8;

// Their texts.
using BoxTexts = std::array<QString, kBoxes>;
// How many characters a record keeps of each.
inline constexpr std::array<int, kBoxes> kBoxWidths = {25, 30, 30, 30, 15, 15, 12, 4};

// The editor of one Form26.
class DatabaseEditor : public QObject {
  Q_OBJECT

 public:
  // Both outlive the editor.
  DatabaseEditor(Program& program, CallDatabase& database, QObject* parent = nullptr);

  // Reads the list of calls anew; CallsChanged tells when it is there.
  void Refresh();
  const CallList& Calls() const { return calls_; }
  // Row of a call in the list; -1 if it is not there.
  int RowOf(const QString& call) const;

  // The call in the box, with plain zeros.
  const QString& Call() const { return call_; }
  // The call that the last lookup was about.
  const QString& LookedUp() const { return lookedUp_; }
  const BoxTexts& Boxes() const { return boxes_; }
  const QString& Nickname() const { return nickname_; }
  bool Exists() const { return RowOf(call_) >= 0; }
  // The calls whose edits are not saved, that in the boxes too.
  QStringList Edited() const;
  bool IsEdited(const QString& call) const;
  // Those of them whose record would be replaced although it was never shown.
  QStringList Overwritten() const;
  // The call whose deletion can be undone; empty without one.
  QString Deleted() const;
  // Path of the file that could not be written last; empty while all is well.
  const QString& FailedPath() const { return failedPath_; }

  // What the user types. A new call does not load its record.
  void TypeCall(const QString& shown);
  void TypeBox(Box box, const QString& text);
  void TypeNickname(const QString& text);
  // Shows the record of a row of the list; an edit that was left there comes back.
  void Choose(int row);

  // A lookup has begun, has found the typed call, or could not because the service wants a login.
  void BeginFetch();
  void Take(const FoundStation& station);
  void TakeMembersOnly();

  // Whether Add would replace a record that the boxes were not loaded from.
  bool ReplacesUnseen() const;
  // Writes the boxes to the database.
  void Add();
  // Removes every record of the call; Undo puts them back.
  void Delete();
  void Undo();
  // Saves all edits; then gets whether all of them are on the disk.
  void SaveEdits(const std::function<void(bool saved)>& then);
  void DiscardEdits();
  // Does again what could not be written.
  void Retry();
  // Writes the typed nicknames into lstNicknames; at closing.
  void WriteNicknames();

 Q_SIGNALS:
  // The list of calls is another.
  void CallsChanged();
  // The boxes are to be filled anew.
  void BoxesChanged();
  // Anything else that the window shows.
  void Changed();
  // A record has been written, replaced or removed.
  void Stored();

 private:
  // An edit that was left.
  struct Edit {
    BoxTexts boxes;
    BoxTexts baseline;
    bool loaded = false;  // made on the call's own record
  };

  bool IsDirty() const { return boxes_ != baseline_ && !call_.isEmpty(); }
  void KeepEdit();
  QMap<QString, Edit> AllEdits() const;
  void ShowNickname();
  void Blank();
  void Save(const QString& call, const BoxTexts& boxes);
  void RemoveEdit(const QString& call, const QList<BoxTexts>& saved);
  void Remove(const QString& call);
  void Restore(const QString& call, const QList<DbRec>& removed);
  void TakeSaved(bool durable, const std::function<void()>& retry);

  Program& program_;
  CallDatabase& database_;
  CallList calls_;
  QString call_;
  BoxTexts boxes_;
  BoxTexts baseline_;       // the boxes as they were loaded or saved last
  QString loadedCall_;      // whose record the boxes were loaded from
  bool typedAway_ = false;  // the edit of loadedCall_ was kept when another call was typed
  QString lookedUp_;        // the call that the last lookup was about
  QSet<int> typedSince_;    // boxes typed into since the last lookup began
  QMap<QString, Edit> edits_;
  QString nickname_;
  QHash<QString, QString> nicknames_;  // as typed, by call
  QList<DbRec> removed_;
  QString removedCall_;
  QString failedPath_;
  std::function<void()> retry_;  // what could not be written
};
