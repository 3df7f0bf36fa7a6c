// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/picture_tool.h"

#include <QPointer>
#include <algorithm>
#include <utility>

#include "platform/picture/helper_process.h"
#include "platform/picture/picture_job.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kHeaderBytes = 256 * 1024;  // of a picture whose size is read

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
  std::shared_ptr<PictureAnswer> answer;  // of the present try
  const HelperProcess* helper = nullptr;  // while it runs
  bool overdue = false;
  bool cutOff = false;  // its helper is being killed, so that others can go first

  void Answer(const PictureAnswer& given) const {
    if (context && done) done(given);
  }
};

PictureTool::PictureTool(const QString& toolPath, const QString& dataDir, std::chrono::milliseconds patience,
                         QObject* parent)
    : QObject(parent), dataDir_(dataDir), patience_(patience) {
  for (auto& helper : helpers_) {
    helper = std::make_unique<HelperProcess>(toolPath, u"pictures"_s, &ready_);
    connect(helper.get(), &HelperProcess::Overdue, this, &PictureTool::OnOverdue);
    connect(helper.get(), &HelperProcess::Answered, this,
            [this](HelperProcess* answering, const HelperAnswer& answer, quint64 next) {
              OnAnswered(answering, answer.end, next);
            });
  }
}

PictureTool::~PictureTool() = default;

void PictureTool::WarmUp() {
  for (size_t i = 0; i < PictureTimes::kHelpers; ++i) helpers_[i]->Start();
}

void PictureTool::Measure(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options) {
  PictureTask task = Task(PictureVerb::Measure, {}, {}, {});
  // A body that is too large for the tool is sent as an empty one, which is no picture either.
  if (bytes.size() <= PictureLimits::kFileBytes) task.bytes = bytes;
  Add(std::move(task), context, std::move(done), options, PicturePriority::Usual);
}

void PictureTool::MakeThumb(const QString& source, const QString& target, QSize box, QObject* context, Done done,
                            const PictureOptions& options) {
  Add(Task(PictureVerb::Thumb, source, target, box), context, std::move(done), options, PicturePriority::Usual);
}

void PictureTool::Convert(const QString& source, const QString& target, QObject* context, Done done,
                          const PictureOptions& options) {
  const bool bmp = target.endsWith(".bmp"_L1, Qt::CaseInsensitive);
  Add(Task(bmp ? PictureVerb::ConvertToBmp : PictureVerb::Convert, source, target, {}), context, std::move(done),
      options, PicturePriority::Screen);
}

void PictureTool::Load(const QString& path, QSize box, QObject* context, Done done, const PictureOptions& options) {
  Add(Task(PictureVerb::Load, path, {}, box), context, std::move(done), options, PicturePriority::Screen);
}

void PictureTool::View(const QString& path, QSize box, QObject* context, Done done, const PictureOptions& options) {
  Add(Task(PictureVerb::View, path, {}, box), context, std::move(done), options, PicturePriority::Screen);
}

void PictureTool::Glance(const QByteArray& bytes, QSize box, QObject* context, Done done,
                         const PictureOptions& options) {
  PictureTask task = Task(PictureVerb::Glance, {}, {}, box);
  if (bytes.size() <= PictureLimits::kFileBytes) task.bytes = bytes;
  Add(std::move(task), context, std::move(done), options, PicturePriority::Screen);
}

void PictureTool::ReadSize(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options) {
  PictureTask task = Task(PictureVerb::Size, {}, {}, {});
  task.bytes = bytes.left(kHeaderBytes);
  Add(std::move(task), context, std::move(done), options, PicturePriority::Screen);
}

void PictureTool::Whole(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options) {
  AddBytes(PictureVerb::Whole, bytes, context, std::move(done), options);
}

void PictureTool::CountFrames(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options) {
  AddBytes(PictureVerb::Frames, bytes, context, std::move(done), options);
}

void PictureTool::ReadFacts(const QByteArray& bytes, QObject* context, Done done, const PictureOptions& options) {
  AddBytes(PictureVerb::Facts, bytes, context, std::move(done), options);
}

void PictureTool::AddBytes(PictureVerb verb, const QByteArray& bytes, QObject* context, Done done,
                           const PictureOptions& options) {
  PictureTask task = Task(verb, {}, {}, {});
  if (bytes.size() <= PictureLimits::kFileBytes) task.bytes = bytes;
  Add(std::move(task), context, std::move(done), options, PicturePriority::Screen);
}

void PictureTool::Suspect(const QString& host) {
  RecallReady();
  queue_.Suspect(host);
  HandOut();
}

QList<qint64> PictureTool::ProcessIds() const {
  QList<qint64> ids;
  for (const auto& helper : helpers_) {
    if (helper->ProcessId() > 0) ids.append(helper->ProcessId());
  }
  return ids;
}

void PictureTool::Add(PictureTask task, QObject* context, Done done, const PictureOptions& options,
                      PicturePriority usual) {
  task.request.id = ++lastId_;
  task.request.frameBytes = std::clamp<qint64>(options.frameBytes, 0, PictureLimits::kDecodedBytes);
  task.dataDir = dataDir_;
  QueuedPicture queued;
  queued.id = task.request.id;
  queued.priority = options.priority.value_or(usual);
  queued.origin = options.host.isEmpty() ? task.source : options.host;
  queued.target = task.target;
  queued.wanted = [asker = QPointer<QObject>(context), wanted = options.wanted]() {
    return asker != nullptr && (!wanted || wanted());
  };
  auto job = std::make_unique<Job>();
  job->task = std::move(task);
  job->context = context;
  job->done = std::move(done);
  jobs_.emplace(queued.id, std::move(job));
  queue_.Add(std::move(queued), std::chrono::steady_clock::now());
  HandOut();
}

// One job at a time goes to each process, so that one that dies takes no other job along. Those that come next are made
// ready, so that no process waits for the event loop.
void PictureTool::HandOut() {
  if (queue_.HasUnwantedAhead()) RecallReady();
  DropUnwanted();
  for (size_t helper = FreeHelper(); helper < helpers_.size(); helper = FreeHelper()) {
    const std::optional<quint64> id = queue_.Begin(std::chrono::steady_clock::now());
    if (!id) break;
    Begin(helper, *id);
  }
  while (const std::optional<quint64> id = queue_.BeginAhead(std::chrono::steady_clock::now())) {
    ready_.Put(Prepare(*id, 0));  // such a job stores nothing, so no two write the same unfinished file
  }
}

// The queue decides anew about jobs that no process has begun.
void PictureTool::RecallReady() {
  queue_.PutBack(ready_.Recall());
}

// Prefers a process that runs to starting another one.
size_t PictureTool::FreeHelper() const {
  size_t chosen = helpers_.size();
  for (size_t i = 0; i < helpers_.size(); ++i) {
    if (!helpers_[i]->IsIdle()) continue;
    if (chosen == helpers_.size() || (helpers_[i]->ProcessId() > 0 && helpers_[chosen]->ProcessId() == 0)) chosen = i;
  }
  return chosen;
}

void PictureTool::Begin(size_t helper, quint64 id) {
  HelperJob given = Prepare(id, static_cast<int>(helper));
  jobs_.at(id)->helper = helpers_[helper].get();
  helpers_[helper]->Take(std::move(given));
}

HelperJob PictureTool::Prepare(quint64 id, int part) {
  Job& job = *jobs_.at(id);
  job.answer = std::make_shared<PictureAnswer>();
  job.overdue = false;
  job.cutOff = false;
  HelperJob prepared = MakeHelperJob(job.task, part, job.answer);
  prepared.overdueAfter = PictureTimes::kFirstTry;
  prepared.patience = patience_;
  return prepared;
}

void PictureTool::DropUnwanted() {
  const PictureQueue::Dropped dropped = queue_.DropUnwanted();
  for (const quint64 id : dropped.running) {
    Job& job = *jobs_.at(id);
    if (std::exchange(job.cutOff, true)) continue;
    for (const auto& helper : helpers_) {
      if (helper.get() == job.helper) helper->Kill();
    }
  }
  if (dropped.waiting.empty()) return;
  std::vector<std::shared_ptr<Job>> gone;
  for (const quint64 id : dropped.waiting) gone.emplace_back(std::move(jobs_.extract(id).mapped()));
  // From the event loop like any other answer, never from within the caller's call.
  QMetaObject::invokeMethod(
      this,
      [gone]() {
        PictureAnswer answer;
        answer.dropped = true;
        for (const auto& job : gone) job->Answer(answer);
      },
      Qt::QueuedConnection);
}

PictureTool::Job* PictureTool::JobOf(const HelperProcess* helper) const {
  for (const auto& [id, job] : jobs_) {
    if (job->helper == helper) return job.get();
  }
  return nullptr;
}

void PictureTool::OnOverdue(HelperProcess* helper) {
  Job* job = JobOf(helper);
  if (job == nullptr) return;
  job->overdue = true;
  RecallReady();  // a third process may do some of them
  if (queue_.CutsOff(job->task.request.id)) {
    job->cutOff = true;
    helper->Kill();
  } else {
    HandOut();  // another helper may begin now
  }
}

void PictureTool::OnAnswered(HelperProcess* helper, HelperEnd end, quint64 next) {
  Job* running = JobOf(helper);
  if (running == nullptr) return;
  running->helper = nullptr;
  if (next != 0) {
    jobs_.at(next)->helper = helper;
    queue_.Begun(next);
  } else {
    RecallReady();  // one may have been made ready just after this process had looked
  }
  const quint64 id = running->task.request.id;
  if (running->cutOff && end == HelperEnd::Killed) {
    queue_.PutLast(id, std::chrono::steady_clock::now());
    HandOut();
    return;
  }
  queue_.End(id, end == HelperEnd::Answered && !running->overdue);
  const std::unique_ptr<Job> job = std::move(jobs_.extract(id).mapped());
  HandOut();  // before the answer, so that the process has its next job already
  // The third process is worth its memory only while something is slow.
  if (jobs_.empty() && helpers_.back()->ProcessId() > 0) helpers_.back()->Kill();
  job->Answer(*job->answer);
}
