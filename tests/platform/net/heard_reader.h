// SPDX-License-Identifier: GPL-3.0-or-later
// A URL reader that notes what it says, for the tests of reads.
#pragma once

#include "platform/net/url_reader.h"
#include "test_suite.h"

// How long a test waits for what must come: a slow machine is no fault.
inline constexpr int kPatienceMs = 20'000;

class HeardReader : public UrlReader {
 public:
  explicit HeardReader(UrlNetwork& network) : UrlReader(network) {
    connect(this, &UrlReader::Done, this, [this](const QString& key, const QByteArray& body) {
      bodies[key] = body;
      said += key + u" done"_s;
    });
    connect(this, &UrlReader::Failed, this, [this](const QString& key) { said += key + u" failed"_s; });
    connect(this, &UrlReader::Progress, this, [this](const QString& key, qint64, qint64 count) { read[key] = count; });
  }

  QStringList said;                   // "key done" or "key failed", in order
  QHash<QString, QByteArray> bodies;  // by key, the last one of each
  QHash<QString, qint64> read;        // bytes of each key, by the last report of progress
};
