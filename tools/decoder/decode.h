// SPDX-License-Identifier: GPL-3.0-or-later
// From bytes to pixels of the size that is wanted, whatever the format; and back to the two formats that are written.
// Called by jobs.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QSize>

#include "picture_header.h"

struct DecodedFrame {
  QImage image;   // RGB32, or ARGB32_Premultiplied where it has see-through parts
  int delay = 0;  // milliseconds until the next frame; 0 for a still
};

enum class Fit { DownOnly, Always };

// The size of picture within box, aspect kept, no side below 1. DownOnly leaves a picture that fits as it is.
QSize FitInto(QSize picture, QSize box, Fit fit);
// The picture (of an animation the first frame) at exactly size. Null where it cannot be decoded.
QImage DecodeStill(const QByteArray& bytes, const PictureHeader& header, QSize size);
// As many frames of an animation as stay within the limits, at least the first; one frame for any other picture.
QList<DecodedFrame> DecodeFrames(const QByteArray& bytes, const PictureHeader& header, QSize size);

enum class WrittenFormat { Jpeg, Bmp };
// A file of 24 bits a pixel; see-through parts become white. Empty where it cannot be written.
QByteArray Encode24(const QImage& image, WrittenFormat format);
