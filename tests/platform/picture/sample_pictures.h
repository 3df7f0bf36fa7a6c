// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of every type that the tool reads, made on the spot, and headers that claim more than they hold.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

// Four quarters: red, green, blue, white.
QImage Quarters(QSize size);
// As "jpg" (24 bits), "grey.jpg" (8), "cmyk.jpg" (32), "png", "clear.png" (see-through), "bmp", "gif" (one frame),
// "upside.bmp" (rows from the top down), "jp2" and "j2k" (codestream alone), "grey.jp2", "deep.jp2" (12 bits),
// "ycc.jp2" (colour at half the size).
QByteArray SamplePicture(const QString& kind, QSize size);
// An animation of full frames in one colour each, delays in hundredths of a second.
QByteArray AnimatedGif(QSize size, const QList<QPair<QRgb, int>>& frames);
// The start of a file of the kind ("jpg", "png", "bmp", "gif", "jp2", "j2k") that claims this size.
QByteArray Claim(const QString& kind, quint32 width, quint32 height, quint32 tileSide = 1024);
// A JPEG of 24 bits and a few hundred kB that holds a decoder for many seconds.
QByteArray SlowJpeg();
