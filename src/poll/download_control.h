// SPDX-License-Identifier: GPL-3.0-or-later
// The hidden download controls: UserControl1 delivers bytes (ucDnLoad of the main window, ucLast15 of a site's
// history), ucCkNew (ucCkNew1) the size of a marker picture. A new read under a pending key replaces the pending one;
// each control has keys of its own. The poll, the check, the intake and the history use them.
#pragma once

#include <QByteArray>
#include <QCache>
#include <QObject>
#include <QSize>
#include <QString>
#include <map>
#include <optional>

#include "platform/net/url_reader.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// How much of a picture has come, in percent; nothing once all of it has. max: bytes as announced, 0 if unknown.
std::optional<int> PercentRead(qint64 max, qint64 read);

// Reads pictures as bytes.
class UserControl1 : public QObject {
  Q_OBJECT

 public:
  explicit UserControl1(UrlNetwork& network, QObject* parent = nullptr, UrlPriority priority = UrlPriority::Page);

  // Begins to read a picture past any cache; one of the signals answers later under the key.
  void DownloadFile(const QString& url, const QString& key);
  // Ends a read, which then raises no signal.
  void Cancel(const QString& key) { reader_.Cancel(key); }
  void CancelAll() { reader_.CancelAll(); }

 Q_SIGNALS:
  // The whole body, whatever the server's status: error pages are recognised by their content.
  void PictureReady(const QString& key, const QByteArray& body);
  void NoImage(const QString& key);
  void Progress(const QString& key, qint64 max, qint64 read);

 private:
  UrlReader reader_;
  const UrlPriority priority_;
};

// Reads marker pictures and has them measured.
class ucCkNew : public QObject {
  Q_OBJECT

 public:
  ucCkNew(UrlNetwork& network, PictureTool& tool, QObject* parent = nullptr);

  void DownloadFile(const QString& url, const QString& key);
  // Ends all reads and drops their measures: none of them answers.
  void CancelAll();

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
