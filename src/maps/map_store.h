// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the maps, read from the user's folder beside the event loop. All map windows share one store, so that
// a map that has been shown is at hand when it is asked for again.
#pragma once

#include <QDateTime>
#include <QImage>
#include <QObject>

#include "platform/background.h"

class MapStore : public QObject {
  Q_OBJECT

 public:
  explicit MapStore(QString appDataDir, QObject* parent = nullptr);

  // Hands over the picture of a file in Maps, 32 bits a pixel: at once where it is at hand and its file is still the
  // same, else when it has been read, unless context is gone by then. A null picture: the file is not there or cannot
  // be shown. Answers come in the order of the questions only among files that have to be read.
  void Read(const QString& fileName, QObject* context, std::function<void(const QImage&)> then);

 private:
  struct Kept {
    QString fileName;
    QString path;
    qint64 size = 0;
    QDateTime changed;
    QImage picture;
  };
  static Kept Decode(const QString& appDataDir, const QString& fileName);
  void Keep(Kept&& kept);

  QString appDataDir_;
  QList<Kept> kept_;  // the last used one in front
  Background background_;
};
