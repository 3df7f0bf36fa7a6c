// SPDX-License-Identifier: GPL-3.0-or-later
// One picture job as picture_tool keeps it, and what happens to it beside the event loop: its source is read when its
// turn has come, the helper's answer becomes images, or the file that is to be stored.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

#include "platform/picture/helper_job.h"
#include "platform/picture/picture_answer.h"
#include "platform/picture/picture_protocol.h"

// One job: what is to be done, the file to read (or its bytes) and, of a job that makes a file, the file to write.
struct PictureTask {
  PictureRequest request;
  QString source;
  QByteArray bytes;  // instead of a source
  QString target;
  QString dataDir;  // a target must be below it
};

// The job for a helper in the role `pictures`. The answer is complete when the helper emits Answered. part tells apart
// the unfinished files of helpers that work at the same time.
HelperJob MakeHelperJob(const PictureTask& task, int part, const std::shared_ptr<PictureAnswer>& answer);
