// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/page_text_tool.h"

#include <algorithm>
#include <utility>

#include "platform/picture/page_text_protocol.h"

using namespace Qt::StringLiterals;

struct PageTextTool::Job {
  quint64 id = 0;
  QByteArray page;
  Done done;  // empty once it is cancelled
  QMetaObject::Connection untilGone;
  std::shared_ptr<std::optional<QString>> text = std::make_shared<std::optional<QString>>();

  ~Job() { disconnect(untilGone); }
};

PageTextTool::PageTextTool(const QString& program, QObject* parent) : PageTextTool(program, Patience(), parent) {}

PageTextTool::PageTextTool(const QString& program, const Patience& patience, QObject* parent)
    : QObject(parent), patience_(patience), process_(program, u"text"_s) {
  connect(&process_, &HelperProcess::Answered, this, &PageTextTool::OnAnswered);
  idle_.setSingleShot(true);
  connect(&idle_, &QTimer::timeout, &process_, &HelperProcess::Kill);
}

PageTextTool::~PageTextTool() = default;

void PageTextTool::WarmUp() {
  if (running_) return;
  process_.Start();
  idle_.start(patience_.idle);
}

quint64 PageTextTool::Read(const QByteArray& page, QObject* context, Done done) {
  auto job = std::make_unique<Job>();
  job->id = ++lastId_;
  job->page = page.left(PageTextLimits::kPageBytes);
  job->done = std::move(done);
  job->untilGone = connect(context, &QObject::destroyed, this, [this, id = job->id]() { Cancel(id); });
  waiting_.push_back(std::move(job));
  HandOut();
  return lastId_;
}

void PageTextTool::Cancel(quint64 read) {
  if (running_ && running_->id == read && running_->done) {
    running_->done = nullptr;
    process_.Kill();
    process_.Start();
  }
  std::erase_if(waiting_, [read](const std::unique_ptr<Job>& job) { return job->id == read; });
}

void PageTextTool::HandOut() {
  if (running_ || waiting_.empty()) return;
  idle_.stop();
  running_ = std::move(waiting_.front());
  waiting_.pop_front();
  HelperJob job;
  job.id = running_->id;
  job.patience = patience_.job;
  job.mostBytes = PageTextLimits::kTextBytes;
  job.make = [id = running_->id, page = running_->page]() {
    return HelperJob::Frame{WritePageJob(id, page.size()), page};
  };
  job.then = [id = running_->id, text = running_->text](const HelperAnswer& answer) {
    if (answer.end != HelperEnd::Answered) return;
    const std::optional<PageTextReply> reply = ReadPageReply(answer.line);
    if (reply && reply->isDone && reply->id == id) *text = QString::fromUtf8(answer.body);
  };
  process_.Take(std::move(job));
}

void PageTextTool::OnAnswered() {
  const std::unique_ptr<Job> job = std::exchange(running_, nullptr);
  idle_.start(patience_.idle);
  HandOut();
  // Called last, because it may begin another read or destroy this object.
  if (job->done) job->done(*job->text);
}
