// SPDX-License-Identifier: GPL-3.0-or-later
// How large a picture is printed and where it stands on the page, as values. The print window shows these figures, the
// print job paints by them.
#pragma once

#include <QLocale>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <QString>

// Bounds of the slider and the size of a first print; all of them the width in whole centimetres.
struct PrintWidths {
  static constexpr int kSmallest = 3;
  static constexpr int kLargest = 30;
};

// Centimetres on the paper of a picture that is printed at this width; empty for an empty picture.
QSizeF PrintedSize(int widthCm, QSize picture);
// Two lines, the size in centimetres and in inches: "  (12.00 x 9.00 cm)" and "  (4.72 x 3.54 in)".
QString PrintSizeText(const QSizeF& cm, const QLocale& locale);
// room: what the printer can reach of the page, in centimetres.
bool FitsOn(const QSizeF& cm, const QSizeF& room);
// The middle of the room, also for a picture that is larger than it.
QRectF PlaceInMiddle(const QSizeF& picture, const QSizeF& room);
