// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/picture_store.h"

#include "page/still_pictures.h"
#include "platform/picture/file_type.h"
#include "platform/picture/film_signature.h"
#include "platform/whole_file.h"
#include "poll/caption.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype kLeastBytes = 101;
constexpr qsizetype kTypeBytes = 300;
}  // namespace

StoredBody StoreBody(const QByteArray& body, const QString& picture, const QString& thumb) {
  StoredBody stored;
  stored.usable = body.size() >= kLeastBytes && !(body.contains("404") && body.contains("html"));
  if (!stored.usable) return stored;
  stored.tail = TailOfDownload(body);
  stored.type = ShownTypeOf(body.left(kTypeBytes));
  stored.written = WriteWhole(picture, body);
  if (!stored.written || thumb.isEmpty()) return stored;
  if (stored.type == "gif"_L1) {
    // The thumb is the GIF itself, although its name ends in ".jpg", so that the animation plays in the cell.
    stored.thumbWritten = WriteWhole(thumb, body);
  } else if (IsVideoType(stored.type)) {
    stored.thumbWritten = WriteStill(imgMp4(), thumb);
  }
  return stored;
}
