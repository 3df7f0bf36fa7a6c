// SPDX-License-Identifier: GPL-3.0-or-later
// Judges and stores the body of a picture's answer. Runs beside the event loop; SlotPictures calls it, and puts the
// files in place afterwards if they are still wanted.
#pragma once

#include <QByteArray>
#include <QString>

// What StoreBody has done with a body.
struct StoredBody {
  bool usable = false;   // long enough, and no error page
  bool written = false;  // false: the disk is full, and no file is left
  QString type;          // by content, as GetFileType says
  QString tail;          // for ParseTailFromDownload
  // A GIF's copy or a video's film strip; for any other type the decoder has to make a thumb.
  bool thumbWritten = false;
};

// Writes a usable body to the file `picture` and, unless `thumb` is empty, also a thumb that needs no decoder.
StoredBody StoreBody(const QByteArray& body, const QString& picture, const QString& thumb);
