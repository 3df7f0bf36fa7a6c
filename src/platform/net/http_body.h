// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the body of an HTTP answer out of what comes in: finds its end, joins chunks, unpacks. Works in small steps, so
// that url_transfer can stop in between: a few packed bytes may hold gigabytes.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <memory>

#include "platform/net/http_head.h"

// The body of one answer.
class HttpBody {
 public:
  // More: something is missing yet; Broken: the body is malformed or cut off.
  enum class State { More, Whole, Broken };
  static constexpr qsizetype kStep = 64LL * 1024;  // the most that one step adds

  explicit HttpBody(const HttpHead& head);
  ~HttpBody();
  Q_DISABLE_COPY_MOVE(HttpBody)

  // Takes bytes of input, appends what they hold (unpacked) to out, and returns how many were taken. A step may take
  // none and still have appended something: call it until all of input is taken and IsPending is false, or the body is
  // whole or broken.
  qsizetype Step(QByteArrayView input, QByteArray& out);
  // True if the unpacker holds more than the last step could add.
  bool IsPending() const { return isPending_; }
  State Now() const { return state_; }
  // Takes note that the server has closed the connection, and returns the state that the body has then.
  State End();

 private:
  class Unpacker;
  // The part of a chunked body to which the next byte belongs.
  enum class At { Size, SizeRest, Data, DataEnd, Trailer };

  qsizetype TakeFrame(QByteArrayView input);
  bool TakeDataEndByte(char byte);
  bool TakeSizeByte(char byte);
  bool TakeTrailerByte(char byte);
  qsizetype Add(QByteArrayView input, QByteArray& out);
  void Finish();
  void Break() { state_ = State::Broken; }

  State state_ = State::More;
  bool isChunked_;
  bool isUntilClose_;
  qint64 left_;  // bytes left of the body, or of the present chunk
  At at_ = At::Size;
  int digits_ = 0;
  int lineSize_ = 0;  // of the present line of framing
  int trailerLine_ = 0;
  int trailerSize_ = 0;  // of all lines behind the last chunk
  bool isPending_ = false;
  std::unique_ptr<Unpacker> unpacker_;
};
