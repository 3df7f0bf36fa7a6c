// SPDX-License-Identifier: GPL-3.0-or-later
// Reads what a picture claims to be from its first bytes, without any decoder: the claims are judged before a library
// allocates memory for them. Every job of the role `pictures` begins here.
#pragma once

#include <QByteArray>
#include <QSize>

// The formats that the helper decodes.
enum class PictureKind { Unknown, Jpeg, Jpeg2000, Png, Gif, Bmp };

// What only the header of a JPEG 2000 picture tells.
struct Jpeg2000Facts {
  bool boxed = false;  // a JP2 file; else a bare codestream
  qint64 tiles = 0;
  int components = 0;
  int precision = 0;  // bits of the deepest component
  int levels = 0;     // times that the size can be halved by leaving data out
};

// The claims of one picture.
struct PictureHeader {
  PictureKind kind = PictureKind::Unknown;
  QSize size;     // empty where the header does not tell it
  int depth = 0;  // bits a pixel for JPEG and JPEG 2000; 8 for PNG and BMP, whatever they hold; 0 else
  Jpeg2000Facts jpeg2000;
};

// Reads the header of the format whose signature the bytes begin with. Neither the file's name nor GetFileType decides
// here.
PictureHeader ReadPictureHeader(const QByteArray& bytes);
// The frames of a GIF as far as its blocks are whole; nothing is decoded for it.
qint64 CountGifFrames(const QByteArray& content);
// False where the claims are beyond what the helper decodes.
bool WithinLimits(const PictureHeader& header);
