// SPDX-License-Identifier: GPL-3.0-or-later
// How much the reads of the program may take, and which of them goes first. Given to UrlNetwork by its maker and read
// by everything below it.
#pragma once

#include <QtGlobal>
#include <chrono>

// Limits that no server, and no number of servers, may exceed.
struct UrlLimits {
  std::chrono::milliseconds stall = std::chrono::seconds(60);     // without a byte; not counted while a read is paused
  std::chrono::milliseconds deadline = std::chrono::minutes(10);  // in all, against a slow drip
  std::chrono::milliseconds idle = std::chrono::seconds(30);      // of an open connection that nobody reads from
  qint64 maxBody = 64LL * 1024 * 1024;                            // unpacked bytes of one answer
  qint64 maxMemory = 256LL * 1024 * 1024;                         // of all bodies that are in memory at once
  int maxRedirects = 10;
  int maxReads = 24;  // at once
  int maxReadsPerHost = 6;
  int maxReadsBehind = 12;  // of UrlPriority::Behind
  int maxSockets = 40;
};

// User: a read for which a user is waiting. It begins before all others, and two of the reads at once are kept for such
// reads. Behind: it begins only while no read of the other kinds waits or has just begun, and gives its place to one
// that waits.
enum class UrlPriority { Behind, Page, User };

// What one read asks for beside its address. The limits hold beside those of all reads.
struct ReadOptions {
  UrlPriority priority = UrlPriority::Page;
  std::chrono::milliseconds opening{0};   // until the connection stands; 0: no limit of its own
  std::chrono::milliseconds deadline{0};  // in all; 0: that of UrlLimits
  qint64 maxBody = 0;                     // unpacked bytes; 0: that of UrlLimits
  bool firstPart = false;                 // of an answer whose parts replace each other, the first is the whole body
  bool successOnly = false;               // an answer with an HTTP status of 400 or more fails
};
