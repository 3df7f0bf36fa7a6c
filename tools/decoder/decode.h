// SPDX-License-Identifier: GPL-3.0-or-later
// From bytes to pixels of the size that is wanted, whatever the format; and back to the two formats that are written.
// Called by picture_role.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QSize>

#include "picture_header.h"

// A frame ready to be sent.
struct DecodedFrame {
  QImage image;   // RGB32, or ARGB32_Premultiplied where it has see-through parts
  int delay = 0;  // milliseconds until the next frame; 0 for a still
};

// Whether a picture that is smaller than its box is enlarged.
enum class Fit { DownOnly, Always };

// The size of picture within box, aspect kept, no side below 1. DownOnly leaves a picture that fits as it is.
QSize FitInto(QSize picture, QSize box, Fit fit);
// The picture (of an animation the first frame) at exactly size. Null where it cannot be decoded.
QImage DecodeStill(const QByteArray& bytes, const PictureHeader& header, QSize size);
// The frames of an animation, spread over its whole length: where all of them would be more than frameBytes of pixels
// (0: PictureLimits::kAnimationBytes) or more than PictureLimits::kFrames, some are left out and their delays go to the
// frame before them; likewise where scaling all of them would take too long. At least the first, as a still; one frame
// for any other picture.
QList<DecodedFrame> DecodeFrames(const QByteArray& bytes, const PictureHeader& header, QSize size, qint64 frameBytes);

// The frames of an animation, all of them that there is time to scale, each reduced until together they take no more
// than PictureLimits::kDecodedBytes; of any other picture one frame in full size, or in the largest whole reduction (a
// half, a third) within that.
QList<DecodedFrame> DecodeWhole(const QByteArray& bytes, const PictureHeader& header);

// The formats of files that are stored.
enum class WrittenFormat { Jpeg, Bmp };
// A file of 24 bits a pixel; see-through parts become white. Empty where it cannot be written.
QByteArray Encode24(const QImage& image, WrittenFormat format);
