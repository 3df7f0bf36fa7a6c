// SPDX-License-Identifier: GPL-3.0-or-later
// One process of omni-perch-decoder and the one job that it has in hand. picture_tool owns two of them and keeps the
// queue; whatever goes wrong with the process ends in an answer that is not ok.
#pragma once

#include <QObject>
#include <QProcess>
#include <QTimer>
#include <chrono>
#include <optional>

#include "platform/picture/picture_protocol.h"
#include "platform/picture/picture_tool.h"

class PictureWorker : public QObject {
  Q_OBJECT

 public:
  PictureWorker(const QString& toolPath, const QString& dataDir, std::chrono::milliseconds patience,
                QObject* parent = nullptr);
  ~PictureWorker() override;  // kills the process; waits a tenth of a second for its end at the most

  // Starts the process where none runs.
  void Start();
  bool IsIdle() const { return !request_.has_value(); }
  bool IsRunning() const { return process_ != nullptr; }
  // 0 where none runs.
  qint64 ProcessId() const { return process_ == nullptr ? 0 : pid_; }
  // Only while idle. Ends in Answered, never before it returns.
  void Take(const PictureRequest& request, const QByteArray& body);

 Q_SIGNALS:
  void Answered(PictureWorker* worker, const PictureAnswer& answer);

 private:
  void OnReadyRead();
  void OnBytesWritten();
  void OnErrorOccurred(QProcess::ProcessError error);
  void OnProcessEnded();
  void OnPatienceOver();

  bool ReadReplyLine();
  bool ReadFrames();
  bool BeginFrame(const PictureFrameHead& head);
  void WriteSome();
  void Fail();
  void Finish(bool ok);
  void DropProcess();

  QString toolPath_;
  QString dataDir_;
  std::chrono::milliseconds patience_;
  QTimer patienceTimer_;
  QProcess* process_ = nullptr;
  qint64 pid_ = 0;

  std::optional<PictureRequest> request_;
  QByteArray body_;
  qint64 bodyWritten_ = 0;

  std::optional<PictureReply> reply_;  // once its line has come
  PictureAnswer answer_;
  qint64 payloadLeft_ = 0;
  qint64 frameFilled_ = 0;  // bytes of the last frame that have come
  bool inFrame_ = false;
};
