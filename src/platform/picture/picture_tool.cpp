// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/picture_tool.h"

#include <QPointer>
#include <QTimer>
#include <utility>

#include "platform/picture/picture_worker.h"

namespace {

PictureRequest Request(PictureVerb verb, const QString& source, const QString& target, QSize box) {
  PictureRequest request;
  request.verb = verb;
  request.source = source;
  request.target = target;
  request.box = box.expandedTo(QSize(0, 0)).boundedTo(QSize(PictureLimits::kBoxSide, PictureLimits::kBoxSide));
  return request;
}

}  // namespace

struct PictureTool::Job {
  PictureRequest request;
  QByteArray body;
  QPointer<QObject> context;
  Done done;

  // A job whose asker is gone still matters when it leaves a file behind.
  bool IsWanted() const { return context != nullptr || !request.target.isEmpty(); }
};

PictureTool::PictureTool(const QString& toolPath, const QString& dataDir, std::chrono::milliseconds patience,
                         QObject* parent)
    : QObject(parent) {
  for (auto& worker : workers_) {
    worker = std::make_unique<PictureWorker>(toolPath, dataDir, patience);
    connect(worker.get(), &PictureWorker::Answered, this, &PictureTool::OnAnswered);
  }
}

PictureTool::~PictureTool() = default;

void PictureTool::WarmUp() {
  // A start copies the page tables of a program full of pictures, some milliseconds each: one a turn.
  workers_[0]->Start();
  QTimer::singleShot(0, workers_[1].get(), &PictureWorker::Start);
}

void PictureTool::Measure(const QByteArray& bytes, QObject* context, Done done) {
  PictureRequest request = Request(PictureVerb::Measure, {}, {}, {});
  // More than the tool would take goes out as nothing, which is no picture either.
  const QByteArray body = bytes.size() > PictureLimits::kFileBytes ? QByteArray() : bytes;
  request.bodyBytes = body.size();
  Add(std::move(request), body, context, std::move(done));
}

void PictureTool::MakeThumb(const QString& source, const QString& target, QSize box, QObject* context, Done done) {
  Add(Request(PictureVerb::Thumb, source, target, box), {}, context, std::move(done));
}

void PictureTool::Convert(const QString& source, const QString& target, QObject* context, Done done) {
  Add(Request(PictureVerb::Convert, source, target, {}), {}, context, std::move(done));
}

void PictureTool::Load(const QString& path, QSize box, QObject* context, Done done) {
  Add(Request(PictureVerb::Load, path, {}, box), {}, context, std::move(done));
}

void PictureTool::View(const QString& path, QSize box, QObject* context, Done done) {
  Add(Request(PictureVerb::View, path, {}, box), {}, context, std::move(done));
}

QList<qint64> PictureTool::ProcessIds() const {
  QList<qint64> ids;
  for (const auto& worker : workers_) {
    if (worker->ProcessId() > 0) ids.append(worker->ProcessId());
  }
  return ids;
}

void PictureTool::Add(PictureRequest request, const QByteArray& body, QObject* context, Done done) {
  request.id = ++lastId_;
  auto job = std::make_unique<Job>();
  job->request = std::move(request);
  job->body = body;
  job->context = context;
  job->done = std::move(done);
  waiting_.push_back(std::move(job));
  HandOut();
}

// One job at a time for each process, so that one that dies takes no other job along. A running process is preferred
// to a start.
void PictureTool::HandOut() {
  while (!waiting_.empty()) {
    if (!waiting_.front()->IsWanted()) {
      waiting_.pop_front();
      continue;
    }
    size_t chosen = workers_.size();
    for (size_t i = 0; i < workers_.size(); ++i) {
      if (!workers_[i]->IsIdle()) continue;
      if (chosen == workers_.size() || (workers_[i]->IsRunning() && !workers_[chosen]->IsRunning())) chosen = i;
    }
    if (chosen == workers_.size()) return;
    running_[chosen] = std::move(waiting_.front());
    waiting_.pop_front();
    workers_[chosen]->Take(running_[chosen]->request, running_[chosen]->body);
  }
}

void PictureTool::OnAnswered(PictureWorker* worker, const PictureAnswer& answer) {
  std::unique_ptr<Job> job;
  for (size_t i = 0; i < workers_.size(); ++i) {
    if (workers_[i].get() == worker) job = std::move(running_[i]);
  }
  HandOut();  // first: the process works while the answer is looked at
  if (job && job->context && job->done) job->done(answer);
}
