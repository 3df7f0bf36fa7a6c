// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that tests make, and what they measure in those that the program paints.
#pragma once

#include <QBuffer>
#include <QImage>

// A picture of plain colour as the bytes of a file.
inline QByteArray PlainImage(QSize size, const char* format = "JPG") {
  QImage image(size, QImage::Format_RGB32);
  image.fill(QColor(40, 90, 160));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes;
}

// The same with a tail behind it, as stations send it: three NULs and 60 characters.
inline QByteArray PlainPicture(const QByteArray& tail, QSize size = QSize(320, 240), const char* format = "JPG") {
  return PlainImage(size, format) + QByteArray(3, '\0') + tail.leftJustified(60, ' ');
}

// The grey value of the brightest pixel within a part of a picture, 0 to 255.
inline int Brightest(const QImage& image, const QRect& part) {
  int most = 0;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) most = std::max(most, qGray(image.pixel(x, y)));
  }
  return most;
}
