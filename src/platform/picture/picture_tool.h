// SPDX-License-Identifier: GPL-3.0-or-later
// Drives omni-perch-decoder, the small program that decodes what strangers sent. Two of them run, started at need; one
// that dies or takes too long is replaced and costs its own job and nothing else.
#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QSize>
#include <QString>
#include <array>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>

#include "platform/picture/picture_protocol.h"

class PictureWorker;

struct PictureFrame {
  QImage image;
  std::chrono::milliseconds delay{0};  // until the next frame; 0 for a still
};

struct PictureAnswer {
  bool ok = false;
  QString type;   // by content, as GetFileType says
  QSize size;     // pixels of the picture itself, before any scaling
  int depth = 0;  // colour depth as the converter reports it (JPEG and JPEG 2000: bits a pixel; PNG, BMP: 8); 0 unknown
  QList<PictureFrame> frames;  // of Load and View, scaled to fit their box; more than one for an animation
};

class PictureTool : public QObject {
  Q_OBJECT

 public:
  using Done = std::function<void(const PictureAnswer&)>;

  // toolPath: the program; dataDir: the only folder below which it may write; patience: what one job may take.
  PictureTool(const QString& toolPath, const QString& dataDir,
              std::chrono::milliseconds patience = std::chrono::seconds(5), QObject* parent = nullptr);
  ~PictureTool() override;

  // Starts the processes ahead of the first job.
  void WarmUp();

  // Every call answers later through done, once, unless context is gone by then. Files are read and written by the
  // tool.

  // Decodes bytes of a marker picture; answers type and size.
  void Measure(const QByteArray& bytes, QObject* context, Done done);
  // Decodes source and writes a 24-bit JPEG that fits into box (aspect kept, enlarged too when smaller) to target,
  // whole or not at all.
  void MakeThumb(const QString& source, const QString& target, QSize box, QObject* context, Done done);
  // Converts source to 24 bits a pixel into target (JPEG or, by the name's end ".bmp", BMP), full size; may be the same
  // file.
  void Convert(const QString& source, const QString& target, QObject* context, Done done);
  // What the thumbnail cell's picture control can load: GIF with all its frames, BMP, and JPEG of 24 bits. Anything
  // else that decodes fails with type, size and depth told, so that the caller can repair it. Scaled down to fit box.
  void Load(const QString& path, QSize box, QObject* context, Done done);
  // Any picture that decodes, scaled down to fit box.
  void View(const QString& path, QSize box, QObject* context, Done done);

  // Of the processes that run now, for whoever watches them; at most two.
  QList<qint64> ProcessIds() const;

 private:
  struct Job;

  void Add(PictureRequest request, const QByteArray& body, QObject* context, Done done);
  void HandOut();
  void OnAnswered(PictureWorker* worker, const PictureAnswer& answer);

  std::array<std::unique_ptr<PictureWorker>, 2> workers_;
  std::deque<std::unique_ptr<Job>> waiting_;
  std::array<std::unique_ptr<Job>, 2> running_;  // by worker
  quint64 lastId_ = 0;
};
