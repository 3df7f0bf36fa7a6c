// SPDX-License-Identifier: GPL-3.0-or-later
// Writes GIF files, still or animated, which Qt can only read. band_pictures and the tests of decoding call it.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

// All frames at the size of the first; hundredths: time of each frame in 1/100 s. One frame gives a still picture.
QByteArray WriteGif(const QList<QImage>& frames, const QList<int>& hundredths = {});
