// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the maps, read from the user's folder beside the event loop. All map windows share one store, so that
// a map that has been shown is still in memory when it is asked for again.
#pragma once

#include <QDateTime>
#include <QObject>

#include "maps/map_file.h"
#include "platform/background.h"

// Reads the pictures of maps and keeps the last ones in memory.
class MapStore : public QObject {
  Q_OBJECT

 public:
  explicit MapStore(QString appDataDir, QObject* parent = nullptr);

  // Calls then with the picture of a file in Maps: at once where the picture is in memory and its file unchanged, else
  // when it has been read, unless context has been destroyed by then. A file that can no longer be read fails, with the
  // picture that was read from it before where that is still in memory. Answers keep the order of the calls only among
  // files that have to be read.
  void Read(const QString& fileName, QObject* context, std::function<void(const MapPicture&)> then);

 private:
  // A picture in memory, with size and time of its file just before the read.
  struct Kept {
    QString fileName;
    QString path;
    qint64 size = 0;
    QDateTime changed;
    MapPicture picture;
  };
  static Kept Load(const QString& appDataDir, const QString& fileName);
  MapPicture Keep(Kept&& read);

  QString appDataDir_;
  QList<Kept> kept_;  // the last used one in front
  Background background_;
};
