// SPDX-License-Identifier: GPL-3.0-or-later
// What a picture claims to be, read from its first bytes without any decoder: the claims are judged before a library
// allocates for them. Every job of the tool begins here.
#pragma once

#include <QByteArray>
#include <QSize>

enum class PictureKind { Unknown, Jpeg, Jpeg2000, Png, Gif, Bmp };

struct Jpeg2000Facts {
  bool boxed = false;  // a JP2 file; else a bare codestream
  qint64 tiles = 0;
  int components = 0;
  int precision = 0;  // bits of the deepest component
  int levels = 0;     // times that the size can be halved by leaving data out
};

struct PictureHeader {
  PictureKind kind = PictureKind::Unknown;
  QSize size;     // empty where the header does not tell it
  int depth = 0;  // bits a pixel for JPEG and JPEG 2000; 8 for PNG and BMP, whatever they hold; 0 else
  Jpeg2000Facts jpeg2000;
};

// By the content's own marks; neither the name nor the type by substring has a say here.
PictureHeader ReadPictureHeader(const QByteArray& bytes);
// False where the claims are beyond what the tool decodes.
bool WithinLimits(const PictureHeader& header);
