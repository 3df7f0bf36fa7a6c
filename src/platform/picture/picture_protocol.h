// SPDX-License-Identifier: GPL-3.0-or-later
// What passes between the program and omni-perch-decoder over the tool's standard input and output. The driver
// (platform/picture_tool) and the tool itself both use these, so that neither has a spelling of its own.
//
// A job is one line of tab separated fields, ended by LF:
//   verb  id  source  target  width  height  bytes
// Paths are UTF-8, percent-encoded; fields that a verb has no use for are empty or 0. A measure job is followed by that
// many bytes of the picture. Each job has one answer, in the order of the jobs:
//   id  ok  type  width  height  depth  frames  bytes
// ended by LF and followed by that many bytes: per frame a PictureFrameHead and its rows of 32-bit pixels without
// padding, all in the machine's byte order. Nothing else is ever written to standard output.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <optional>

enum class PictureVerb { Measure, Thumb, Convert, Load, View };

struct PictureRequest {
  PictureVerb verb = PictureVerb::Measure;
  quint64 id = 0;
  QString source;
  QString target;
  QSize box{0, 0};
  qint64 bodyBytes = 0;
};

struct PictureReply {
  quint64 id = 0;
  bool ok = false;
  QString type;
  QSize size{0, 0};
  int depth = 0;
  int frames = 0;
  qint64 payloadBytes = 0;
};

struct PictureFrameHead {
  qint32 width = 0;
  qint32 height = 0;
  qint32 delay = 0;   // milliseconds; 0 for a still
  qint32 opaque = 1;  // 1: RGB32; 0: ARGB32, premultiplied
};

namespace PictureLimits {
inline constexpr qint64 kFileBytes = 64LL * 1024 * 1024;            // of a source or a measured body
inline constexpr qint64 kPixels = 64LL * 1000 * 1000;               // that a header may claim
inline constexpr qint64 kDecodedBytes = 128LL * 1024 * 1024;        // of one picture in memory
inline constexpr int kFrames = 200;                                 // of one animation
inline constexpr qint64 kAnimationBytes = 16LL * 1024 * 1024;       // scaled pixels of one animation
inline constexpr qint64 kPayloadBytes = kDecodedBytes + (1 << 20);  // of one answer
inline constexpr int kBoxSide = 16384;                              // of the box that a caller may ask for
inline constexpr qint64 kReplyLine = 4096;                          // characters of an answer line
}  // namespace PictureLimits

// With its LF.
QByteArray WriteRequest(const PictureRequest& request);
// line with or without its LF; nothing where it is malformed.
std::optional<PictureRequest> ReadRequest(const QByteArray& line);
QByteArray WriteReply(const PictureReply& reply);
std::optional<PictureReply> ReadReply(const QByteArray& line);

// The hidden file beside target that process pid writes before it takes target's name. The driver removes what a
// killed tool left there.
QString PartFileName(const QString& target, qint64 pid);
