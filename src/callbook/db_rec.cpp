// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/db_rec.h"

#include "platform/text/numbers.h"

QByteArrayView BlanksTrimmed(QByteArrayView bytes) {
  while (bytes.startsWith(' ')) bytes = bytes.sliced(1);
  while (bytes.endsWith(' ')) bytes.chop(1);
  return bytes;
}

QString CoordinateText(double degrees) {
  return NumberText(degrees);
}

double Coordinate(const QString& text) {
  return Val(QString(text).replace(u',', u'.'));
}
