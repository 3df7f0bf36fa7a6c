// SPDX-License-Identifier: GPL-3.0-or-later
// CkNewHeight: the marker height last seen of each slot of each DSSTV page, kept across runs in ckNewHeight.txt. The
// new-image check compares with it.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

// The heights of 20 pages of 36 slots.
class HeightTable {
 public:
  HeightTable();  // all heights unknown

  // Reads images/dsstv/ckNewHeight.txt below the data folder. A missing file, or one of the former format, wipes that
  // folder's pictures (the thumbs' folder stays) and gives a table of unknown heights. A file that is there but cannot
  // be read leaves the pictures alone.
  void Read(const QString& appDataDir);
  // Writes all 720 entries. On a failure the old file stays as it was and false is returned.
  bool Write(const QString& appDataDir) const;

  // All 720 entries, as the file has them.
  QStringList CkNewHeight() const;

  // The stored height of a page 1 to 20 and a 0-based slot; 0 where none is known.
  int Height(int page, int slot) const;
  void SetHeight(int page, int slot, int height);

 private:
  void Take(const QStringList& fields);

  std::array<std::array<QString, 36>, 21> entries_;
};
