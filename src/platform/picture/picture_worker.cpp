// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/picture_worker.h"

#include <QFile>
#include <QProcessEnvironment>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLastWaitMs = 100;         // for a killed process while the program closes
constexpr qint64 kWriteChunk = 1 << 18;  // of a large body, so that no single write holds the event loop

// Nothing of the user's environment decides how a stranger's picture is decoded, except where Qt lives.
QProcessEnvironment ToolEnvironment() {
  const QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
  QProcessEnvironment result;
  for (const QString& name : {u"PATH"_s, u"LD_LIBRARY_PATH"_s, u"QT_PLUGIN_PATH"_s, u"LC_ALL"_s, u"LANG"_s}) {
    if (own.contains(name)) result.insert(name, own.value(name));
  }
  return result;
}

}  // namespace

PictureWorker::PictureWorker(const QString& toolPath, const QString& dataDir, std::chrono::milliseconds patience,
                             QObject* parent)
    : QObject(parent), toolPath_(toolPath), dataDir_(dataDir), patience_(patience) {
  patienceTimer_.setSingleShot(true);
  connect(&patienceTimer_, &QTimer::timeout, this, &PictureWorker::OnPatienceOver);
}

PictureWorker::~PictureWorker() {
  DropProcess();
  for (QProcess* process : findChildren<QProcess*>()) {
    // One that is stuck in the kernel is left to itself: its own destructor would wait half a minute for it.
    if (process->state() != QProcess::NotRunning && !process->waitForFinished(kLastWaitMs)) process->setParent(nullptr);
  }
}

void PictureWorker::Start() {
  if (process_ != nullptr && process_->state() == QProcess::NotRunning) DropProcess();  // its end is on the way
  if (process_ != nullptr) return;
  process_ = new QProcess(this);
  process_->setProcessEnvironment(ToolEnvironment());
  process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  connect(process_, &QProcess::errorOccurred, this, &PictureWorker::OnErrorOccurred);
  connect(process_, &QProcess::finished, this, &PictureWorker::OnProcessEnded);
  connect(process_, &QProcess::readyReadStandardOutput, this, &PictureWorker::OnReadyRead);
  connect(process_, &QProcess::bytesWritten, this, &PictureWorker::OnBytesWritten);
  process_->start(toolPath_, {dataDir_});
  if (process_ != nullptr) pid_ = process_->processId();  // it is gone already where it could not be forked
}

void PictureWorker::Take(const PictureRequest& request, const QByteArray& body) {
  Start();
  request_ = request;
  body_ = body;
  bodyWritten_ = 0;
  reply_.reset();
  answer_ = {};
  inFrame_ = false;
  if (process_ == nullptr) {
    patienceTimer_.start(0);  // nobody to wait for, yet the answer comes from the event loop like any other
    return;
  }
  patienceTimer_.start(patience_);
  process_->write(WriteRequest(request));
  WriteSome();
}

void PictureWorker::WriteSome() {
  if (!request_ || process_ == nullptr || bodyWritten_ >= body_.size()) return;
  const qint64 count = std::min<qint64>(kWriteChunk, body_.size() - bodyWritten_);
  bodyWritten_ += count;
  process_->write(body_.constData() + bodyWritten_ - count, count);
}

void PictureWorker::OnBytesWritten() {
  if (process_ != nullptr && process_->bytesToWrite() == 0) WriteSome();
}

void PictureWorker::OnReadyRead() {
  if (!request_) {  // it spoke without being asked
    DropProcess();
    return;
  }
  if (!reply_ && !ReadReplyLine()) return;
  if (!ReadFrames()) {
    Fail();
  } else if (payloadLeft_ == 0) {
    if (process_->bytesAvailable() > 0) DropProcess();  // whatever follows would be taken for the next job's answer
    Finish(reply_->ok);
  }
}

// True once the answer's line is there; a line that breaks the protocol fails the job.
bool PictureWorker::ReadReplyLine() {
  if (!process_->canReadLine()) {
    if (process_->bytesAvailable() > PictureLimits::kReplyLine) Fail();
    return false;
  }
  reply_ = ReadReply(process_->readLine(PictureLimits::kReplyLine));
  if (!reply_ || reply_->id != request_->id) {
    Fail();
    return false;
  }
  answer_.type = reply_->type;
  answer_.size = reply_->size;
  answer_.depth = reply_->depth;
  payloadLeft_ = reply_->payloadBytes;
  return true;
}

// Pixels go straight from the pipe into their picture as they come, so that a large one is not copied in one go.
bool PictureWorker::ReadFrames() {
  while (payloadLeft_ > 0 && process_->bytesAvailable() > 0) {
    if (!inFrame_) {
      PictureFrameHead head;
      constexpr qint64 kHead = sizeof(head);
      if (payloadLeft_ < kHead) return false;
      if (process_->bytesAvailable() < kHead) return true;
      process_->read(reinterpret_cast<char*>(&head), kHead);
      payloadLeft_ -= kHead;
      if (!BeginFrame(head)) return false;
    }
    QImage& image = answer_.frames.last().image;
    const qint64 missing = image.sizeInBytes() - frameFilled_;
    if (missing > payloadLeft_) return false;
    const qint64 count = process_->read(reinterpret_cast<char*>(image.bits()) + frameFilled_, missing);
    if (count < 0) return false;
    frameFilled_ += count;
    payloadLeft_ -= count;
    inFrame_ = frameFilled_ < image.sizeInBytes();
  }
  return payloadLeft_ > 0 || (!inFrame_ && answer_.frames.size() == reply_->frames);
}

bool PictureWorker::BeginFrame(const PictureFrameHead& head) {
  const qint64 bytes = qint64{head.width} * head.height * 4;
  if (head.width < 1 || head.height < 1 || head.delay < 0 || bytes > payloadLeft_ ||
      answer_.frames.size() >= reply_->frames) {
    return false;
  }
  QImage image(head.width, head.height, head.opaque != 0 ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return false;
  answer_.frames.append({std::move(image), std::chrono::milliseconds(head.delay)});
  frameFilled_ = 0;
  inFrame_ = true;
  return true;
}

void PictureWorker::OnErrorOccurred(QProcess::ProcessError error) {
  if (error != QProcess::Crashed) OnProcessEnded();  // behind a crash the end itself follows
}

void PictureWorker::OnProcessEnded() {
  if (request_) {
    Fail();
  } else {
    DropProcess();
  }
}

void PictureWorker::OnPatienceOver() {
  Fail();
}

// The process goes with its job: what state it is in after a failure that it did not report is anyone's guess.
void PictureWorker::Fail() {
  DropProcess();
  answer_.frames.clear();
  Finish(false);
}

void PictureWorker::Finish(bool ok) {
  patienceTimer_.stop();
  request_.reset();
  body_.clear();
  answer_.ok = ok;
  const PictureAnswer answer = std::exchange(answer_, {});
  Q_EMIT Answered(this, answer);
}

void PictureWorker::DropProcess() {
  QProcess* process = std::exchange(process_, nullptr);
  if (process == nullptr) return;
  process->disconnect(this);
  const QString part = request_ && !request_->target.isEmpty() ? PartFileName(request_->target, pid_) : QString();
  if (process->state() == QProcess::NotRunning) {
    if (!part.isEmpty()) QFile::remove(part);
    process->deleteLater();
    return;
  }
  // Only when it has really ended can it write no more.
  connect(process, &QProcess::finished, process, [process, part]() {
    if (!part.isEmpty()) QFile::remove(part);
    process->deleteLater();
  });
  process->kill();
}
