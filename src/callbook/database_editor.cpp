// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/database_editor.h"

#include <utility>

#include "platform/text/numbers.h"
#include "station/nicknames.h"

using namespace Qt::StringLiterals;

namespace {

QString& At(BoxTexts& boxes, Box box) {
  return boxes[static_cast<std::size_t>(box)];
}

const QString& At(const BoxTexts& boxes, Box box) {
  return boxes[static_cast<std::size_t>(box)];
}

BoxTexts BoxesOf(const DbRec& record) {
  return {record.Name.Text(), record.Add1.Text(), record.Add2.Text(),  record.Ctry.Text(),
          record.Lat.Text(),  record.Lon.Text(),  record.Class.Text(), record.YearBorn.Text()};
}

// A coordinate as the database stores it: a point for a comma, without the mark of a derived place.
QString StoredCoordinate(QString text) {
  return text.replace(u',', u'.').remove(u'*').trimmed();
}

DbRec RecordOf(const QString& call, const BoxTexts& boxes) {
  DbRec record;
  record.Call = call;
  record.Name = At(boxes, Box::Name);
  record.Add1 = At(boxes, Box::Add1);
  record.Add2 = At(boxes, Box::Add2);
  record.Ctry = At(boxes, Box::Ctry);
  record.Lat = StoredCoordinate(At(boxes, Box::Lat));
  record.Lon = StoredCoordinate(At(boxes, Box::Lon));
  record.Class = At(boxes, Box::Class);
  record.YearBorn = At(boxes, Box::YearBorn);
  return record;
}

}  // namespace

DatabaseEditor::DatabaseEditor(Program& program, CallDatabase& database, QObject* parent)
    : QObject(parent), program_(program), database_(database) {}

void DatabaseEditor::Refresh() {
  database_.FillCallList(this, [this](const CallList& calls) {
    calls_ = calls;
    Q_EMIT CallsChanged();
    Q_EMIT Changed();
  });
}

int DatabaseEditor::RowOf(const QString& call) const {
  if (call.isEmpty()) return -1;
  const int row = calls_.FirstNotBefore(call);
  return row < calls_.Count() && calls_.Call(row) == call ? row : -1;
}

QMap<QString, DatabaseEditor::Edit> DatabaseEditor::AllEdits() const {
  QMap<QString, Edit> edits = edits_;
  if (IsDirty()) edits.insert(call_, {boxes_, baseline_, loadedCall_ == call_});
  return edits;
}

QStringList DatabaseEditor::Edited() const {
  return AllEdits().keys();
}

bool DatabaseEditor::IsEdited(const QString& call) const {
  return edits_.contains(call) || (call == call_ && IsDirty());
}

QStringList DatabaseEditor::Overwritten() const {
  QStringList calls;
  const QMap<QString, Edit> edits = AllEdits();
  for (auto edit = edits.begin(); edit != edits.end(); ++edit) {
    if (!edit->loaded && RowOf(edit.key()) >= 0) calls += edit.key();
  }
  return calls;
}

QString DatabaseEditor::Deleted() const {
  return removed_.isEmpty() ? QString() : removedCall_;
}

void DatabaseEditor::TypeCall(const QString& shown) {
  const QString call = QString(shown).replace(u'Ø', u'0').trimmed();
  if (call == call_) return;
  // The boxes keep showing the record, but from now on they are not its edit.
  if (IsDirty() && loadedCall_ == call_) {
    KeepEdit();
    baseline_ = boxes_;
    typedAway_ = true;
  }
  call_ = call;
  if (call_ == loadedCall_ && std::exchange(typedAway_, false) && edits_.contains(call_)) {
    baseline_ = edits_.take(call_).baseline;
  }
  ShowNickname();
  Q_EMIT Changed();
}

void DatabaseEditor::TypeBox(Box box, const QString& text) {
  At(boxes_, box) = text;
  typedSince_.insert(static_cast<int>(box));
  Q_EMIT Changed();
}

void DatabaseEditor::TypeNickname(const QString& text) {
  nickname_ = text;
  if (!call_.isEmpty()) nicknames_.insert(call_, text.trimmed());
}

void DatabaseEditor::ShowNickname() {
  const auto typed = nicknames_.constFind(call_);
  nickname_ = typed != nicknames_.cend() ? *typed : WholeNickname(program_.nicknames.lstNicknames, call_);
}

void DatabaseEditor::KeepEdit() {
  if (IsDirty()) edits_.insert(call_, {boxes_, baseline_, loadedCall_ == call_});
}

void DatabaseEditor::Choose(int row) {
  if (row < 0 || row >= calls_.Count()) return;
  KeepEdit();
  call_ = calls_.Call(row);
  const std::optional<FoundRecord> found = database_.Find(call_);
  baseline_ = BoxesOf(found ? found->record : DbRec());
  boxes_ = baseline_;
  // Only what was typed stands over the record; an edit may have begun on another one's boxes.
  if (const Edit edit = edits_.value(call_); edits_.remove(call_)) {
    for (std::size_t i = 0; i < kBoxes; ++i) {
      if (edit.boxes[i] != edit.baseline[i]) boxes_[i] = edit.boxes[i];
    }
  }
  loadedCall_ = call_;
  typedAway_ = false;
  typedSince_.clear();
  ShowNickname();
  Q_EMIT BoxesChanged();
  Q_EMIT Changed();
}

void DatabaseEditor::BeginFetch() {
  typedSince_.clear();
  lookedUp_ = call_;
}

// What was typed before the lookup began is kept as an edit; what was typed since stays in its box.
void DatabaseEditor::Take(const FoundStation& station) {
  KeepEdit();
  call_ = station.call;
  loadedCall_ = station.call;
  typedAway_ = false;
  // The lookup has stored the call anew, and what was deleted must not replace that.
  if (removedCall_ == call_) removed_.clear();
  const QString mark = station.derived ? u"*"_s : QString();
  BoxTexts found = {station.name.isEmpty() ? At(boxes_, Box::Name) : station.name,
                    station.add1,
                    station.add2,
                    station.ctry,
                    NumberText(station.lat),
                    NumberText(station.lon),
                    station.licenceClass,
                    station.yearBorn};
  for (std::size_t i = 0; i < kBoxes; ++i) found[i] = found[i].simplified().left(kBoxWidths[i]);
  At(found, Box::Lat) += mark;
  At(found, Box::Lon) += mark;
  baseline_ = found;
  for (const int box : std::as_const(typedSince_)) {
    found[static_cast<std::size_t>(box)] = boxes_[static_cast<std::size_t>(box)];
  }
  boxes_ = found;
  ShowNickname();
  Q_EMIT BoxesChanged();
  Q_EMIT Changed();
}

// All boxes are blanked, as was always so where the service shows its data to members only.
void DatabaseEditor::TakeMembersOnly() {
  if (!typedSince_.isEmpty()) return;
  KeepEdit();
  Blank();
}

void DatabaseEditor::Blank() {
  call_.clear();
  boxes_.fill({});
  baseline_ = boxes_;
  loadedCall_.clear();
  typedAway_ = false;
  ShowNickname();
  Q_EMIT BoxesChanged();
  Q_EMIT Changed();
}

bool DatabaseEditor::ReplacesUnseen() const {
  return Exists() && loadedCall_ != call_;
}

void DatabaseEditor::TakeSaved(bool durable, const std::function<void()>& retry) {
  failedPath_ = durable ? QString() : database_.Path();
  retry_ = durable ? nullptr : retry;
  Refresh();
  Q_EMIT Changed();
  if (durable) Q_EMIT Stored();
}

void DatabaseEditor::Add() {
  if (!call_.isEmpty()) Save(call_, boxes_);
}

void DatabaseEditor::Save(const QString& call, const BoxTexts& boxes) {
  database_.SaveStation(call, RecordOf(call, boxes), this,
                        [this, call, boxes, kept = edits_.value(call).boxes](bool durable) {
                          if (durable) {
                            RemoveEdit(call, {boxes, kept});
                            if (removedCall_ == call) removed_.clear();
                            if (call_ == call) {
                              // What has been typed meanwhile is an edit of the new record.
                              baseline_ = boxes;
                              loadedCall_ = call;
                              typedAway_ = false;
                            }
                          }
                          TakeSaved(durable, [this, call, boxes]() { Save(call, boxes); });
                        });
}

// Another edit than those may have been left there while they were written.
void DatabaseEditor::RemoveEdit(const QString& call, const QList<BoxTexts>& saved) {
  if (saved.contains(edits_.value(call).boxes)) edits_.remove(call);
}

void DatabaseEditor::Delete() {
  if (!call_.isEmpty()) Remove(call_);
}

void DatabaseEditor::Remove(const QString& call) {
  database_.DeleteRecord(call, this, [this, call](const Deletion& deletion) {
    if (deletion.durable) {
      edits_.remove(call);
      removed_ = deletion.removed;
      removedCall_ = call;
      if (call_ == call) Blank();
    }
    TakeSaved(deletion.durable, [this, call]() { Remove(call); });
  });
}

void DatabaseEditor::Undo() {
  // A copy, since restoring empties the list.
  const QList<DbRec> removed = removed_;
  if (!removed.isEmpty()) Restore(removedCall_, removed);
}

void DatabaseEditor::Restore(const QString& call, const QList<DbRec>& removed) {
  // A second press must not add them twice.
  if (removedCall_ == call) removed_.clear();
  database_.PutBack(removed, this, [this, call, removed](bool durable) {
    TakeSaved(durable, [this, call, removed]() { Restore(call, removed); });
  });
}

void DatabaseEditor::SaveEdits(const std::function<void(bool saved)>& then) {
  const QMap<QString, Edit> edits = AllEdits();
  if (edits.isEmpty()) return then(true);
  QList<StationRecord> stations;
  for (auto edit = edits.begin(); edit != edits.end(); ++edit) {
    stations += {edit.key(), RecordOf(edit.key(), edit->boxes)};
  }
  database_.SaveStations(stations, this, [this, edits, then, kept = edits_, sent = boxes_](bool durable) {
    if (durable) {
      for (auto edit = edits.begin(); edit != edits.end(); ++edit) {
        RemoveEdit(edit.key(), {edit->boxes, kept.value(edit.key()).boxes});
        if (edit.key() == removedCall_) removed_.clear();
        if (edit.key() != call_) continue;
        baseline_ = edit->boxes;
        loadedCall_ = call_;
        typedAway_ = false;
        // What has been typed meanwhile stays in the boxes.
        if (boxes_ == sent) boxes_ = edit->boxes;
        Q_EMIT BoxesChanged();
      }
    }
    TakeSaved(durable, [this, then]() { SaveEdits(then); });
    then(durable);
  });
}

void DatabaseEditor::DiscardEdits() {
  if (std::exchange(typedAway_, false) && edits_.contains(loadedCall_)) baseline_ = edits_.value(loadedCall_).baseline;
  edits_.clear();
  boxes_ = baseline_;
  failedPath_.clear();
  Q_EMIT BoxesChanged();
  Q_EMIT Changed();
}

void DatabaseEditor::Retry() {
  if (const std::function<void()> retry = std::exchange(retry_, nullptr)) retry();
}

void DatabaseEditor::WriteNicknames() {
  for (auto typed = nicknames_.begin(); typed != nicknames_.end(); ++typed) {
    SetNickname(program_.nicknames.lstNicknames, typed.key(), typed.value());
  }
  nicknames_.clear();
}
