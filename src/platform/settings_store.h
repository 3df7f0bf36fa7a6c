// SPDX-License-Identifier: GPL-3.0-or-later
// The keyed store settings.ini: application, section, key; all values are texts. Names are compared without regard to
// letter case. The services own one; core/stored_settings reads and writes the program's settings through it.
#pragma once

#include <QHash>
#include <QList>
#include <QMutex>
#include <QString>
#include <atomic>
#include <functional>
#include <memory>

class Background;

// The store in memory, with the file that it comes from.
class SettingsStore {
 public:
  // Reads the file at once; a missing or unreadable one is an empty store.
  explicit SettingsStore(const QString& path);

  // The stored text, or fallback where the key is missing.
  QString Value(const QString& application, const QString& section, const QString& key, const QString& fallback) const;
  // Changes memory only; Save() writes.
  void SetValue(const QString& application, const QString& section, const QString& key, const QString& value);
  // Writes the whole store if anything has changed. False: it could not be written, and the old file is as it was. A
  // file that exists but could not be read is never overwritten.
  bool Save();
  // A function that writes the store as it is now, to be called on another thread, even when the store is gone. A
  // write that is still waiting when a later one begins is passed over. False as by Save().
  std::function<bool()> Writer();
  // Writes beside the event loop, for a choice that is kept as soon as it is made; a write that fails is made up for by
  // the next.
  void SaveLater(Background& background);

 private:
  // The lines of the file are kept, so that comments and the entries of others are written back unchanged. This is one
  // of them.
  struct Line {
    QString text;
    QString id;  // folded application, section and key of an entry; empty for other lines
  };
  // A [header] line and the lines up to the next one.
  struct Group {
    QString header;  // as it is written; empty for the lines in front of the first one
    QString application;
    QList<Line> lines;
  };

  // Which write is the newest, for those that wait, and how many changes are in the file; one at a time has the file.
  struct Writing {
    QMutex mutex;
    std::atomic<quint64> newest = 0;
    std::atomic<quint64> saved = 0;
  };

  void Read(const QString& text);
  QByteArray Text() const;
  void DropOlderSpellings();
  Group& GroupOf(const QString& application);

  QString path_;
  QList<Group> groups_;
  QHash<QString, QString> values_;
  std::shared_ptr<Writing> writing_ = std::make_shared<Writing>();
  quint64 changes_ = 0;  // so far
  bool unreadable_ = false;
};
