// SPDX-License-Identifier: GPL-3.0-or-later
// A decoded picture as the bytes that other programs take from the clipboard, made beside the event loop before they
// ask. PictureCopy calls it.
#pragma once

#include <QByteArray>
#include <QImage>

// A BMP of 24 bits a pixel; see-through parts become white.
QByteArray BmpOf(const QImage& image);
// A PNG; a large one is stored rather than compressed, because compressing it would take longer than a user waits.
QByteArray PngOf(const QImage& image);
