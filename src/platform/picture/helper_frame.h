// SPDX-License-Identifier: GPL-3.0-or-later
// The framing of all that passes between the program and omni-perch-decoder, whatever the helper's role: a line of tab
// separated fields, of which the last tells how many bytes follow the line's LF. helper_process writes and reads such
// frames in the program, the helper's main does in the helper; what the fields mean is the role's business.
#pragma once

#include <QByteArray>
#include <QList>
#include <optional>

namespace HelperLimits {
inline constexpr qint64 kLine = 4096;                      // characters of a line with its LF
inline constexpr qint64 kBodyBytes = 256LL * 1024 * 1024;  // the most that a line may announce
}  // namespace HelperLimits

// The line with its LF. No field may hold a tab or a line end.
QByteArray FrameLine(const QList<QByteArray>& fields, qint64 bodyBytes);
// Bytes of the body that follows this line (with or without its LF); -1 where the line is malformed.
qint64 FrameBodyBytes(const QByteArray& line);

// The line that the helper writes once, when it is ready for its first job; it has no body.
QByteArray ReadyLine();

// Reads the fields of a line one after the other, and remembers whether each of them was as expected.
class FieldReader {
 public:
  // count: how many fields the line must have, with the count of bytes at its end.
  FieldReader(const QByteArray& line, qsizetype count);
  bool Good() const { return good_; }
  QByteArray Text();
  qint64 Number(qint64 low, qint64 high);
  int Int(qint64 low, qint64 high) { return static_cast<int>(Number(low, high)); }

 private:
  QList<QByteArray> fields_;
  qsizetype next_ = 0;
  bool good_ = false;
};
