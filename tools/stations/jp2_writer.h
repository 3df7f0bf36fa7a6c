// SPDX-License-Identifier: GPL-3.0-or-later
// Writes JPEG 2000 through OpenJPEG. band_pictures and the tests of decoding call it.
#pragma once

#include <QByteArray>
#include <QImage>

// How the pixels go into a file.
struct Jp2Form {
  float ratio = 38;             // how many times smaller than the raw pixels
  bool codestreamOnly = false;  // no ".jp2" file around it
  int components = 3;           // 1: grey
  int precision = 8;            // bits of a component
  int colourStep = 1;           // 2: brightness in full, the two colour components at half the size
};

// Empty when it failed.
QByteArray WriteJp2(const QImage& image, const Jp2Form& form = {});
