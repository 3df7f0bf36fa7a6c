// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the maps, read from the user's folder beside the event loop. All map windows share one store, so that
// a map that has been shown is at hand when it is asked for again.
#pragma once

#include <QDateTime>
#include <QObject>

#include "maps/map_file.h"
#include "platform/background.h"

class MapStore : public QObject {
  Q_OBJECT

 public:
  explicit MapStore(QString appDataDir, QObject* parent = nullptr);

  // Hands over the picture of a file in Maps: at once where it is at hand and its file is still the same, else when it
  // has been read, unless context is gone by then. A file that can no longer be read fails with the picture that was
  // read from it before, if that is still at hand. Answers come in the order of the questions only among files that
  // have to be read.
  void Read(const QString& fileName, QObject* context, std::function<void(const MapPicture&)> then);

 private:
  // A picture that was read, and what its file was like just before.
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
