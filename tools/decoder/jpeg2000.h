// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG 2000 through OpenJPEG, which no image plugin of the system reads. Called by decode once the header was judged.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include "picture_header.h"

// The picture at the lowest stored resolution that still covers wanted (pixels): as large as wanted or larger, the
// caller scales the rest. A truncated file gives the part that is there. Null where nothing could be decoded. RGB32, or
// ARGB32 with alpha.
QImage DecodeJpeg2000(const QByteArray& bytes, const PictureHeader& header, QSize wanted);
