// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of maps for the tests that read real picture files.
#pragma once

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

// The data folder with its maps.
struct MapFolder {
  QTemporaryDir folder;
  MapFolder() { QDir(folder.path()).mkpath(QStringLiteral("maps")); }  // the letter case is the user's

  void Save(const QString& name, const QSize& size, const QColor& colour = Qt::cyan, const char* type = "JPG") const {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    if (!picture.save(folder.filePath(QStringLiteral("maps/") + name), type, 90)) qFatal("no picture saved");
  }
  void Write(const QString& name, const QByteArray& bytes) const {
    QFile file(folder.filePath(QStringLiteral("maps/") + name));
    if (!file.open(QIODevice::WriteOnly)) qFatal("no file written");
    file.write(bytes);
  }
};
