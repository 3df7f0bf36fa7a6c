// SPDX-License-Identifier: GPL-3.0-or-later
// What each verb of the protocol does. Called by the tool's main, one job after the other.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "decode.h"
#include "platform/picture/picture_protocol.h"

struct JobResult {
  PictureReply reply;
  QList<DecodedFrame> frames;
};

// body: the picture of a measure job. dataDir: without links in it; targets elsewhere are refused.
JobResult RunJob(const PictureRequest& request, const QByteArray& body, const QString& dataDir);
