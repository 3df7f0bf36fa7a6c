// SPDX-License-Identifier: GPL-3.0-or-later
// The hidden download controls of the main window: UserControl1 (ucDnLoad) delivers bytes, ucCkNew (ucCkNew1) the size
// of a marker picture. A new read under a pending key replaces the pending one. The poll, the check and the intake use
// them.
#pragma once

#include <QByteArray>
#include <QCache>
#include <QObject>
#include <QSize>
#include <QString>
#include <map>

#include "platform/net/url_reader.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// Reads pictures as bytes.
class UserControl1 : public QObject {
  Q_OBJECT

 public:
  explicit UserControl1(UrlNetwork& network, QObject* parent = nullptr);

  // Begins to read a picture past any cache; one of the signals answers later under the key.
  void DownloadFile(const QString& url, const QString& key);

 Q_SIGNALS:
  // The whole body, whatever the server's status: error pages are recognised by their content.
  void PictureReady(const QString& key, const QByteArray& body);
  void NoImage(const QString& key);
  void Progress(const QString& key, qint64 max, qint64 read);

 private:
  UrlReader reader_;
};

// Reads marker pictures and has them measured.
class ucCkNew : public QObject {
  Q_OBJECT

 public:
  ucCkNew(UrlNetwork& network, PictureTool& tool, QObject* parent = nullptr);

  void DownloadFile(const QString& url, const QString& key);

 Q_SIGNALS:
  void PictureReady(const QString& key, QSize marker);
  // The read failed, or what came is no picture.
  void NoImage(const QString& key);

 private:
  void Measure(const QString& key, const QByteArray& body);

  UrlReader reader_;
  PictureTool& tool_;
  // The latest read under a key; the measure of an earlier one is dropped.
  struct Read {
    Wanted wanted;
    QString host;
  };
  std::map<QString, Read> reads_;
  // Sizes of markers, by their bytes: an unchanged station sends the very same ones again, and 36 of them would cost 36
  // trips to the decoder at each poll.
  QCache<QByteArray, QSize> measured_;
};
