// SPDX-License-Identifier: GPL-3.0-or-later
// Judges and stores the body of a picture's answer: one operation for every download control. Runs beside the event
// loop; whoever calls it puts the files in place afterwards, if they are still wanted.
#pragma once

#include <QByteArray>
#include <QString>

// What has come of a body.
struct StoredBody {
  bool usable = false;        // long enough, and no error page
  bool written = false;       // false: no room on the disk, and no file is left
  QString type;               // by content, as GetFileType says
  QString tail;               // for ParseTailFromDownload
  bool thumbWritten = false;  // a GIF's copy or a video's film strip; a thumb of any other picture has to be made
};

// Writes a usable body to picture; with a thumb's name, also a thumb that needs no decoder.
StoredBody StoreBody(const QByteArray& body, const QString& picture, const QString& thumb);
