// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/http_body.h"

#include <zlib.h>

#include <algorithm>
#include <utility>

namespace {

constexpr int kMostSizeDigits = 15;
constexpr int kMostLine = 4096;
constexpr int kMostTrailer = 16384;
constexpr int kAnyWrapping = 15 + 32;  // zlib finds out whether the data is in gzip's or its own format
constexpr int kNoWrapping = -15;       // bare deflate data

int DigitOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

// Unpacks gzip and deflate a step at a time.
class HttpBody::Unpacker {
 public:
  explicit Unpacker(bool isDeflate) : mayLackWrapping_(isDeflate) {
    isSound_ = inflateInit2(&stream_, kAnyWrapping) == Z_OK;
  }
  ~Unpacker() { inflateEnd(&stream_); }
  Q_DISABLE_COPY_MOVE(Unpacker)

  // Returns how much of the input was used. isPending: the step was too small for all output, the rest is still in
  // zlib.
  qsizetype Step(QByteArrayView input, QByteArray& out, bool& isPending) {
    isPending = false;
    if (isWhole_) return input.size();  // padding behind the packed data
    const qsizetype before = out.size();
    out.resize(before + kStep);
    Run(input, out.data() + before);
    // Servers disagree on what "deflate" is: zlib's format, or the bare data in it.
    if (!isSound_ && mayLackWrapping_ && stream_.total_out == 0) {
      isSound_ = inflateReset2(&stream_, kNoWrapping) == Z_OK;
      Run(input, out.data() + before);
    }
    mayLackWrapping_ = false;
    const auto unused = static_cast<qsizetype>(stream_.avail_in);
    isPending = isSound_ && !isWhole_ && stream_.avail_out == 0;
    out.resize(before + kStep - static_cast<qsizetype>(stream_.avail_out));
    return isWhole_ ? input.size() : input.size() - unused;
  }
  bool IsSound() const { return isSound_; }
  bool IsWhole() const { return isWhole_; }
  bool IsUntouched() const { return stream_.total_in == 0; }

 private:
  void Run(QByteArrayView input, char* out) {
    if (!isSound_ && !mayLackWrapping_) return;
    stream_.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(input.data()));
    stream_.avail_in = static_cast<uInt>(input.size());
    stream_.next_out = reinterpret_cast<Bytef*>(out);
    stream_.avail_out = kStep;
    const int result = inflate(&stream_, Z_NO_FLUSH);
    isWhole_ = result == Z_STREAM_END;
    isSound_ = isWhole_ || result == Z_OK || result == Z_BUF_ERROR;
  }

  z_stream stream_ = {};
  bool isSound_ = false;
  bool isWhole_ = false;
  bool mayLackWrapping_;
};

HttpBody::HttpBody(const HttpHead& head)
    : isChunked_(head.isChunked),
      isUntilClose_(!head.isChunked && head.length < 0),
      left_(head.isChunked ? 0 : head.length) {
  if (head.packing != HttpHead::Packing::None)
    unpacker_ = std::make_unique<Unpacker>(head.packing == HttpHead::Packing::Deflate);
  if (!isChunked_ && left_ == 0) Finish();
}

HttpBody::~HttpBody() = default;

qsizetype HttpBody::Step(QByteArrayView input, QByteArray& out) {
  if (state_ != State::More) return 0;
  const bool isData = !isChunked_ || at_ == At::Data;
  if (!isData) return TakeFrame(input);
  if (!isUntilClose_) input = input.first(std::min<qint64>(input.size(), left_));
  const qsizetype taken = Add(input.first(std::min(input.size(), kStep)), out);
  if (isUntilClose_ || state_ != State::More) return taken;
  left_ -= taken;
  if (left_ > 0 || isPending_) return taken;
  if (isChunked_) {
    at_ = At::DataEnd;
    lineSize_ = 0;
  } else {
    Finish();
  }
  return taken;
}

qsizetype HttpBody::Add(QByteArrayView input, QByteArray& out) {
  if (!unpacker_) {
    out += input;
    return input.size();
  }
  const qsizetype taken = unpacker_->Step(input, out, isPending_);
  if (!unpacker_->IsSound()) Break();
  return taken;
}

// Reads the framing of a chunked body, up to the next byte of data.
qsizetype HttpBody::TakeFrame(QByteArrayView input) {
  qsizetype taken = 0;
  while (taken < input.size() && state_ == State::More && at_ != At::Data) {
    const char byte = input[taken++];
    bool isSound = ++lineSize_ <= kMostLine;
    if (isSound && at_ == At::Trailer) {
      isSound = TakeTrailerByte(byte);
    } else if (isSound && at_ == At::DataEnd) {
      isSound = TakeDataEndByte(byte);
    } else if (isSound) {
      isSound = TakeSizeByte(byte);
    }
    if (!isSound) Break();
  }
  return taken;
}

// Reads the line end behind a chunk's data.
bool HttpBody::TakeDataEndByte(char byte) {
  if (byte == '\n') {
    at_ = At::Size;
    digits_ = 0;
    lineSize_ = 0;
  }
  return byte == '\n' || byte == '\r';
}

bool HttpBody::TakeSizeByte(char byte) {
  if (byte == '\n') {
    if (digits_ == 0) return false;
    at_ = left_ == 0 ? At::Trailer : At::Data;
    lineSize_ = 0;
    return true;
  }
  const int digit = at_ == At::Size ? DigitOf(byte) : -1;
  if (digit < 0) {
    // Behind the size there may be extensions, which nobody asked for.
    at_ = At::SizeRest;
    return digits_ > 0;
  }
  left_ = digits_ == 0 ? digit : left_ * 16 + digit;
  return ++digits_ <= kMostSizeDigits;
}

bool HttpBody::TakeTrailerByte(char byte) {
  if (byte == '\r') return true;
  if (byte != '\n') {
    ++trailerLine_;
    return ++trailerSize_ <= kMostTrailer;
  }
  if (std::exchange(trailerLine_, 0) == 0) Finish();
  lineSize_ = 0;
  return true;
}

HttpBody::State HttpBody::End() {
  if (state_ == State::More) {
    if (isUntilClose_) {
      Finish();
    } else {
      Break();
    }
  }
  return state_;
}

// Packed data that was cut off makes the body broken even where its announced length was reached. An empty body has
// nothing to unpack.
void HttpBody::Finish() {
  const bool isCutOff = unpacker_ && !unpacker_->IsWhole() && !unpacker_->IsUntouched();
  state_ = isCutOff ? State::Broken : State::Whole;
}
