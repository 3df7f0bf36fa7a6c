// SPDX-License-Identifier: GPL-3.0-or-later
// The call database's writer with a reader of its own, as the database has them on two threads, and records whose every
// field tells their version.
#pragma once

#include "callbook/database_file.h"

// Both on one folder.
struct Files : CallReader {
  DatabaseFile file;

  explicit Files(const QString& folder, const std::shared_ptr<DatabaseDisk>& disk = DatabaseDisk::Real())
      : Files(folder, disk, std::make_shared<SharedLayout>()) {}
  Files(const QString& folder, const std::shared_ptr<DatabaseDisk>& disk, const std::shared_ptr<SharedLayout>& layout)
      : CallReader(folder, layout), file(folder, layout, disk) {}
};

inline DbRec VersionOf(const QString& call, int version) {
  DbRec record;
  record.Call = call;
  const QString text = QStringLiteral("version %1").arg(version);
  record.Name = text;
  record.Add1 = text;
  record.Add2 = text;
  record.Ctry = text;
  record.Lat = text;
  record.Lon = text;
  record.Class = text;
  record.YearBorn = QString::number(version).right(4);
  return record;
}

// The version of a record; -1 for one that was never written as it is.
inline int Version(const DbRec& record) {
  const int version = record.Name.Text().section(QLatin1Char(' '), 1).toInt();
  const DbRec whole = VersionOf(record.Call.Text(), version);
  return std::memcmp(&whole, &record, sizeof whole) == 0 ? version : -1;
}
