// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/picture_tool.h"

#include <QPointer>
#include <utility>

#include "platform/picture/helper_process.h"
#include "platform/picture/picture_job.h"

using namespace Qt::StringLiterals;

namespace {

PictureTask Task(PictureVerb verb, const QString& source, const QString& target, QSize box) {
  PictureTask task;
  task.request.verb = verb;
  task.request.box = box.expandedTo(QSize(0, 0)).boundedTo(QSize(PictureLimits::kBoxSide, PictureLimits::kBoxSide));
  task.source = source;
  task.target = target;
  return task;
}

}  // namespace

struct PictureTool::Job {
  PictureTask task;
  QPointer<QObject> context;
  Done done;
  std::shared_ptr<PictureAnswer> answer = std::make_shared<PictureAnswer>();

  // A job whose asker is gone still matters when it leaves a file behind.
  bool IsWanted() const { return context != nullptr || !task.target.isEmpty(); }
};

PictureTool::PictureTool(const QString& toolPath, const QString& dataDir, std::chrono::milliseconds patience,
                         QObject* parent)
    : QObject(parent), dataDir_(dataDir), patience_(patience) {
  for (auto& helper : helpers_) {
    helper = std::make_unique<HelperProcess>(toolPath, u"pictures"_s);
    connect(helper.get(), &HelperProcess::Answered, this, &PictureTool::OnAnswered);
  }
}

PictureTool::~PictureTool() = default;

void PictureTool::WarmUp() {
  for (const auto& helper : helpers_) helper->Start();
}

void PictureTool::Measure(const QByteArray& bytes, QObject* context, Done done) {
  PictureTask task = Task(PictureVerb::Measure, {}, {}, {});
  // More than the tool would take goes out as nothing, which is no picture either.
  if (bytes.size() <= PictureLimits::kFileBytes) task.bytes = bytes;
  Add(std::move(task), context, std::move(done));
}

void PictureTool::MakeThumb(const QString& source, const QString& target, QSize box, QObject* context, Done done) {
  Add(Task(PictureVerb::Thumb, source, target, box), context, std::move(done));
}

void PictureTool::Convert(const QString& source, const QString& target, QObject* context, Done done) {
  const bool bmp = target.endsWith(".bmp"_L1, Qt::CaseInsensitive);
  Add(Task(bmp ? PictureVerb::ConvertToBmp : PictureVerb::Convert, source, target, {}), context, std::move(done));
}

void PictureTool::Load(const QString& path, QSize box, QObject* context, Done done) {
  Add(Task(PictureVerb::Load, path, {}, box), context, std::move(done));
}

void PictureTool::View(const QString& path, QSize box, QObject* context, Done done) {
  Add(Task(PictureVerb::View, path, {}, box), context, std::move(done));
}

QList<qint64> PictureTool::ProcessIds() const {
  QList<qint64> ids;
  for (const auto& helper : helpers_) {
    if (helper->ProcessId() > 0) ids.append(helper->ProcessId());
  }
  return ids;
}

void PictureTool::Add(PictureTask task, QObject* context, Done done) {
  auto job = std::make_unique<Job>();
  task.request.id = ++lastId_;
  task.dataDir = dataDir_;
  job->task = std::move(task);
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
    size_t chosen = helpers_.size();
    for (size_t i = 0; i < helpers_.size(); ++i) {
      if (!helpers_[i]->IsIdle()) continue;
      if (chosen == helpers_.size() || (helpers_[i]->ProcessId() > 0 && helpers_[chosen]->ProcessId() == 0)) chosen = i;
    }
    if (chosen == helpers_.size()) return;
    running_[chosen] = std::move(waiting_.front());
    waiting_.pop_front();
    const Job& job = *running_[chosen];
    HelperJob given = MakeHelperJob(job.task, static_cast<int>(chosen), job.answer);
    given.patience = patience_;
    helpers_[chosen]->Take(std::move(given));
  }
}

void PictureTool::OnAnswered(HelperProcess* helper) {
  std::unique_ptr<Job> job;
  for (size_t i = 0; i < helpers_.size(); ++i) {
    if (helpers_[i].get() == helper) job = std::move(running_[i]);
  }
  HandOut();  // first: the process works while the answer is looked at
  if (job && job->context && job->done) job->done(*job->answer);
}
