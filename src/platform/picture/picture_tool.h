// SPDX-License-Identifier: GPL-3.0-or-later
// Drives omni-perch-decoder in its role `pictures`, in which all pictures of strangers are decoded. Two processes of it
// run, started at need; one that dies or takes too long is replaced and costs its own job and nothing else. The intake,
// the cells, the tips and the lookup call it.
#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSize>
#include <QString>
#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/picture/picture_answer.h"
#include "platform/picture/picture_options.h"
#include "platform/picture/picture_queue.h"
#include "platform/picture/ready_jobs.h"

class HelperProcess;
struct HelperJob;
enum class HelperEnd;
enum class PictureVerb;
struct PictureTask;

// The queue of picture jobs and the processes that do them.
class PictureTool : public QObject {
  Q_OBJECT

 public:
  using Done = std::function<void(const PictureAnswer&)>;

  // toolPath: the program; dataDir: the folder below which MakeThumb and Convert may store; patience: what one job may
  // take.
  PictureTool(const QString& toolPath, const QString& dataDir,
              std::chrono::milliseconds patience = std::chrono::seconds(5), QObject* parent = nullptr);
  ~PictureTool() override;

  // Starts the processes ahead of the first job.
  void WarmUp();

  // Every call answers later through done, once, unless context is gone by then (which also says that the job is no
  // longer wanted). Files are read when the job's turn has come, and written, beside the event loop.

  // Decodes bytes of a marker picture; answers type and size.
  void Measure(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options = {});
  // Decodes source and writes a 24-bit JPEG that fits into box (aspect kept, enlarged too when smaller) to target,
  // whole or not at all.
  void MakeThumb(const QString& source, const QString& target, QSize box, QObject* context, Done done,
                 const PictureOptions& options = {});
  // Converts source to 24 bits a pixel into target (JPEG or, by the name's end ".bmp", BMP), full size; may be the same
  // file.
  void Convert(const QString& source, const QString& target, QObject* context, Done done,
               const PictureOptions& options = {});
  // Loads what the thumbnail cell's picture control can load: GIF with all its frames, BMP, and JPEG of 24 bits. Any
  // other picture fails even if it decodes; its answer has type, size and depth, so that the caller can convert it.
  // Scaled down to fit box (pixels).
  void Load(const QString& path, QSize box, QObject* context, Done done, const PictureOptions& options = {});
  // Loads any picture that decodes, scaled down to fit box (pixels).
  void View(const QString& path, QSize box, QObject* context, Done done, const PictureOptions& options = {});

  // Reads the size that the bytes claim, without decoding them. Fails, too, where it stands behind 256 KiB of other
  // things; a window that opens ahead of its picture then waits for the picture.
  void ReadSize(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options = {});
  // Like View, of bytes in memory, and of an animation the first frame alone.
  void Glance(const QByteArray& bytes, QSize box, QObject* context, Done done, const PictureOptions& options = {});
  // Decodes bytes in full resolution: a still of more than 128 MB of pixels in the largest whole reduction below that
  // (a half, a third), an animation with all its frames, each reduced so that together they stay below it.
  void Whole(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options = {});

  // Counts the frames of an animation, without decoding them; 1 for any other picture.
  void CountFrames(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options = {});
  // Reads what can be told about a picture, one fact a line of UTF-8: "dpi" and two numbers (left out where the file
  // tells none), "depth" and the bits a pixel, "colors" and how many different ones there are, and the words "comment"
  // and "creator" with a text each.
  void ReadFacts(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options = {});

  // The host has flooded a read, or done worse: its pictures wait behind all others until one of them was done quickly.
  void Suspect(const QString& host);

  // Ids of the processes that run now, by which a test can watch them.
  QList<qint64> ProcessIds() const;

 private:
  struct Job;

  void AddBytes(PictureVerb verb, const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options);
  void Add(PictureTask task, QObject* context, Done done, const PictureOptions& options, PicturePriority usual);
  void HandOut();
  void Begin(size_t helper, quint64 id);
  HelperJob Prepare(quint64 id, int part);
  void RecallReady();
  void DropUnwanted();
  size_t FreeHelper() const;
  // The job that this helper has in hand; null where it has none.
  Job* JobOf(const HelperProcess* helper) const;
  void OnOverdue(HelperProcess* helper);
  void OnAnswered(HelperProcess* helper, HelperEnd end, quint64 next);

  const QString dataDir_;
  const std::chrono::milliseconds patience_;
  ReadyJobs ready_;
  std::array<std::unique_ptr<HelperProcess>, PictureTimes::kHelpersWhileSlow> helpers_;
  PictureQueue queue_;
  std::unordered_map<quint64, std::unique_ptr<Job>> jobs_;  // waiting and running, by id
  quint64 lastId_ = 0;
};
