// SPDX-License-Identifier: GPL-3.0-or-later
// Writes JPEG 2000 through OpenJPEG. band_pictures calls it.
#pragma once

#include <QByteArray>
#include <QImage>

// A ".jp2" file, or the bare codestream. ratio: how many times smaller than the raw pixels. Empty when it failed.
QByteArray WriteJp2(const QImage& image, bool codestreamOnly, float ratio);
