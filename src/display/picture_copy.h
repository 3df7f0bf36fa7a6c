// SPDX-License-Identifier: GPL-3.0-or-later
// Puts a picture on the clipboard as an image, never as a file: PNG and BMP for all programs, and beside them a GIF's
// or JPEG's own bytes. All of it is made beside the event loop before another program asks, and belongs to the
// clipboard from then on, so that it outlives every window. The copy and paste actions call it.
#pragma once

#include <QClipboard>
#include <QImage>
#include <QObject>
#include <functional>

#include "display/source_file.h"
#include "platform/background.h"
#include "platform/loose_background.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// How a copy has ended.
enum class CopyResult {
  Copied,      // the clipboard holds the picture
  Vanished,    // there is no file any more
  NotDecoded,  // the bytes are no picture that can be decoded; the clipboard is empty
  Superseded   // a newer copy has been asked for
};

// One copy at a time; a newer one ends the one under way.
class PictureCopy : public QObject {
  Q_OBJECT

 public:
  // What it works with; both outlive it. appDataDir: where paste.gif is kept.
  struct Dependencies {
    PictureTool& tool;
    Background& background;
    QString appDataDir;
  };
  using Done = std::function<void(CopyResult)>;

  explicit PictureCopy(const Dependencies& services, QObject* parent = nullptr);

  // done is called once, later, unless this object is gone by then; it may be empty.
  void CopyPicture(const SourceFile& file, const Done& done);
  // The same for an image that a window shows and that has no file.
  void CopyImage(const QImage& image, const Done& done);

 private:
  // The copy under way: what it is about, and what has been made of it.
  struct Offer;

  void Begin(const Done& done);
  void End(CopyResult result);
  void KeepPasteGif(const SourceFile& file);
  void Decode(const SourceFile& file);
  void Offered(const QImage& image, const QString& ownFormat, const QByteArray& ownBytes);
  void PutOnClipboard(const Offer& offer);

  Dependencies services_;
  LooseBackground bmp_;  // a large picture takes a tenth of a second in each format; they are made at the same time
  LooseBackground png_;
  Wanted wanted_;
  Done done_;  // of the copy under way
};
