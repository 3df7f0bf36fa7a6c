// SPDX-License-Identifier: GPL-3.0-or-later
// The frames (helper_frame) that pass between page_text_tool in the program and the decoder's role `text`.
#pragma once

#include <QByteArray>
#include <optional>

// How much of a page and of its text is read.
namespace PageTextLimits {
inline constexpr qint64 kPageBytes = 2 * 1024 * 1024;  // of a longer page the beginning is read
// Of a text: it is searched some twenty times within one handler, so that a longer one, which no service has, would
// hold the event loop. Its beginning counts.
inline constexpr qint64 kTextCharacters = 1024 * 1024;
inline constexpr qint64 kTextBytes = 3 * kTextCharacters;
}  // namespace PageTextLimits

// The line in front of an answer's text.
struct PageTextReply {
  quint64 id = 0;
  bool isDone = false;
};

QByteArray WritePageJob(quint64 id, qint64 bytes);
// The job's id; nothing where the line is malformed.
std::optional<quint64> ReadPageJob(const QByteArray& line);
QByteArray WritePageReply(const PageTextReply& reply, qint64 bytes);
std::optional<PageTextReply> ReadPageReply(const QByteArray& line);
