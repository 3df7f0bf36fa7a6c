// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/helper_frame.h"

QByteArray FrameLine(const QList<QByteArray>& fields, qint64 bodyBytes) {
  return fields.join('\t') + '\t' + QByteArray::number(bodyBytes) + '\n';
}

qint64 FrameBodyBytes(const QByteArray& line) {
  const qsizetype tab = line.lastIndexOf('\t');
  bool ok = false;
  const qint64 bytes = line.mid(tab + 1).trimmed().toLongLong(&ok);
  return tab >= 0 && ok && bytes >= 0 && bytes <= HelperLimits::kBodyBytes ? bytes : -1;
}

QByteArray ReadyLine() {
  return FrameLine({"ready"}, 0);
}

// Trimming takes no empty field away: every line ends with a number.
FieldReader::FieldReader(const QByteArray& line, qsizetype count) : fields_(line.trimmed().split('\t')) {
  good_ = fields_.size() == count;
}

QByteArray FieldReader::Text() {
  return good_ && next_ < fields_.size() ? fields_.at(next_++) : QByteArray();
}

qint64 FieldReader::Number(qint64 low, qint64 high) {
  bool ok = false;
  const qint64 number = Text().toLongLong(&ok);
  good_ = good_ && ok && number >= low && number <= high;
  return good_ ? number : 0;
}
