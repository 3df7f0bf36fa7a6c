// SPDX-License-Identifier: GPL-3.0-or-later
// What the window of the own location takes and stores: call, position and unit of the user's station. Form11 owns one.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "callbook/call_database.h"
#include "core/program.h"

// The own station while Form11 is open.
class OwnLocation : public QObject {
  Q_OBJECT

 public:
  // Both outlive the object.
  OwnLocation(Program& program, CallDatabase& database, QObject* parent = nullptr);

  // Takes the position as it is typed, in degrees.
  void SetPlace(double lat, double lon);
  void SetUnit(bool miles);
  // The text of lblGrid; empty for a position that is none.
  QString GridText() const;
  int RecordCount() const { return database_.RecordCount(); }
  // Whether a typed text is a callsign. An empty one is none, and not wrong either.
  static bool IsWrongCall(const QString& typed);

  // Takes the call over and has its record written, without an answer: the program's end writes the configuration.
  void SaveAtEnd(const QString& typedCall, const QString& lat, const QString& lon);
  // Stores the station: its record in the call database, the own call, and the configuration. lat and lon are the texts
  // of the boxes, with points. then gets the paths of the files that could not be written; empty: all is on the disk.
  void Save(const QString& typedCall, const QString& lat, const QString& lon,
            const std::function<void(const QString& failedPath)>& then);

 private:
  // The call of a typed text, which becomes the own one; empty if it is none.
  QString TakeCall(const QString& typedCall);
  void SaveRecord(const QString& call, const QString& lat, const QString& lon, const CallDatabase::Saved& then);

  Program& program_;
  CallDatabase& database_;
};
