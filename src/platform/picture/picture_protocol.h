// SPDX-License-Identifier: GPL-3.0-or-later
// The meaning of the fields of a frame (platform/picture/helper_frame) in the helper's role `pictures`. picture_job in
// the program and the helper itself both use this module, so that neither has a spelling of its own.
#pragma once

#include <QByteArray>
#include <QSize>
#include <optional>

// What is to be done with a picture.
enum class PictureVerb { Measure, Thumb, Convert, ConvertToBmp, Load, View, Glance, Whole, Size, Frames, Facts };

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

// The head in front of each frame's pixels.
struct PictureFrameHead {
  qint32 width = 0;
  qint32 height = 0;
  qint32 delay = 0;   // milliseconds; 0 for a still
  qint32 opaque = 1;  // 1: RGB32; 0: ARGB32, premultiplied
};

// The limits that both sides keep.
namespace PictureLimits {
inline constexpr qint64 kFileBytes = 64LL * 1024 * 1024;            // of a source or a measured body
inline constexpr qint64 kPixels = 64LL * 1000 * 1000;               // the most that a header may claim
inline constexpr qint64 kDecodedBytes = 128LL * 1024 * 1024;        // of one picture in memory
inline constexpr int kFrames = 200;                                 // of one animation in a cell
inline constexpr int kWholeFrames = 10'000;                         // of one animation that is played whole
inline constexpr qint64 kAnimationBytes = 16LL * 1024 * 1024;       // scaled pixels of one animation
inline constexpr qint64 kPayloadBytes = kDecodedBytes + (1 << 20);  // of one answer
inline constexpr int kBoxSide = 16384;                              // of the box that a caller may ask for
inline constexpr qint64 kFactsBytes = 10LL * 1024 * 1024;           // of what is told about a picture
inline constexpr int kSide = 64 * 1000 * 1000;                      // of a frame: one row of kPixels
}  // namespace PictureLimits

// The line of a request, with its LF.
QByteArray WriteRequest(const PictureRequest& request);
// line: with or without its LF. Returns nothing where it is malformed.
std::optional<PictureRequest> ReadRequest(const QByteArray& line);
QByteArray WriteReply(const PictureReply& reply);
std::optional<PictureReply> ReadReply(const QByteArray& line);
