// SPDX-License-Identifier: GPL-3.0-or-later
// The keyed store settings.ini: application, section, key, all texts. Names meet whatever their letter case.
#pragma once

#include <QMap>
#include <QString>

class SettingsStore {
 public:
  // Reads the file at once; a missing or unreadable one is an empty store.
  explicit SettingsStore(const QString& path);

  // The stored text, or fallback where the key is missing.
  QString Value(const QString& application, const QString& section, const QString& key, const QString& fallback) const;
  // Changes memory only; Save() writes.
  void SetValue(const QString& application, const QString& section, const QString& key, const QString& value);
  // Writes the whole store, or leaves the old file as it was and returns false. Nothing changed: nothing written.
  bool Save();
};
