// SPDX-License-Identifier: GPL-3.0-or-later
// What the fields of a frame (platform/picture/helper_frame) mean in the helper's role `pictures`. picture_job in the
// program and the helper itself both use these, so that neither has a spelling of its own.
//
// A job:  verb  id  width  height  frame-bytes  bytes, then that many bytes: the picture's file as it came.
// Its answer:  id  outcome  width  height  depth  frames  bytes, then that many bytes: of a thumb or a conversion the
// file to be stored; of a load or a view per frame a PictureFrameHead and its rows of 32-bit pixels without padding,
// all in the machine's byte order. Fields that a verb has no use for are 0.
#pragma once

#include <QByteArray>
#include <QSize>
#include <optional>

// What is to be done with a picture.
enum class PictureVerb { Measure, Thumb, Convert, ConvertToBmp, Load, View };

// A job's line.
struct PictureRequest {
  PictureVerb verb = PictureVerb::Measure;
  quint64 id = 0;
  QSize box{0, 0};
  qint64 frameBytes = 0;  // of an animation's pixels together; 0: PictureLimits::kAnimationBytes
  qint64 bodyBytes = 0;
};

// How a job went.
enum class PictureOutcome { Failed, Done, NoSandbox };

// An answer's line.
struct PictureReply {
  quint64 id = 0;
  PictureOutcome outcome = PictureOutcome::Failed;
  QSize size{0, 0};
  int depth = 0;
  int frames = 0;
  qint64 payloadBytes = 0;
};

// What stands in front of each frame's pixels.
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
}  // namespace PictureLimits

// With its LF.
QByteArray WriteRequest(const PictureRequest& request);
// line with or without its LF; nothing where it is malformed.
std::optional<PictureRequest> ReadRequest(const QByteArray& line);
QByteArray WriteReply(const PictureReply& reply);
std::optional<PictureReply> ReadReply(const QByteArray& line);
