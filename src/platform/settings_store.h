// SPDX-License-Identifier: GPL-3.0-or-later
// The keyed store settings.ini: application, section, key, all texts. Names meet whatever their letter case.
#pragma once

#include <QHash>
#include <QList>
#include <QString>

class SettingsStore {
 public:
  // Reads the file at once; a missing or unreadable one is an empty store.
  explicit SettingsStore(const QString& path);

  // The stored text, or fallback where the key is missing.
  QString Value(const QString& application, const QString& section, const QString& key, const QString& fallback) const;
  // Changes memory only; Save() writes.
  void SetValue(const QString& application, const QString& section, const QString& key, const QString& value);
  // Writes the whole store, or leaves the old file as it was and returns false. Nothing changed: nothing written. A
  // file that is there but could not be read is never written over.
  bool Save();

 private:
  // The file as it stands, so that comments and what other hands wrote come back out unchanged.
  struct Line {
    QString text;
    QString id;  // of an entry: folded application and path; else empty
  };
  struct Group {
    QString header;  // "[...]" as it stands; empty for what precedes the first
    QString application;
    QList<Line> lines;
  };

  void Read(const QString& text);
  void DropOlderSpellings();
  Group& GroupOf(const QString& application);

  QString path_;
  QList<Group> groups_;
  QHash<QString, QString> values_;
  bool changed_ = false;
  bool unreadable_ = false;
};
