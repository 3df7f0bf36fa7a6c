// SPDX-License-Identifier: GPL-3.0-or-later
// The hidden download controls of the main window: UserControl1 delivers bytes (ucDnLoad), ucCkNew a marker picture's
// size (ucCkNew1). A new read under a pending key takes the old one's place.
#pragma once

#include <QByteArray>
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

  // Always a fresh copy, past any cache. Answers later.
  void DownloadFile(const QString& url, const QString& key);

 Q_SIGNALS:
  // The whole body, whatever the server's status: an error page has to be told by its content.
  void PictureReady(const QString& key, const QByteArray& body);
  void NoImage(const QString& key);
  void Progress(const QString& key, qint64 max, qint64 read);

 private:
  UrlReader reader_;
};

// Reads markers, and measures them.
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
  // What was asked last under a key: a measure that was overtaken says nothing.
  struct Read {
    Wanted wanted;
    QString host;
  };
  std::map<QString, Read> reads_;
};
