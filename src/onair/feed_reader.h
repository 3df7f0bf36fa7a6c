// SPDX-License-Identifier: GPL-3.0-or-later
// From the bytes of a source's reply to its rows: HTMLDecode, the test for failure and the parser, step by step beside
// the event loop. The feed owns one and hands it every reply that arrives.
#pragma once

#include <QObject>
#include <functional>
#include <map>

#include "onair/feed_parser.h"
#include "platform/background.h"
#include "platform/picture/page_text_tool.h"
#include "platform/wanted.h"

// Reads one reply of each source at a time.
class FeedReader : public QObject {
 public:
  // The rows; nothing for a reply that failed.
  using Done = std::function<void(const std::optional<FeedRows>&)>;

  FeedReader(PageTextTool& pageText, Background& background, QObject* parent = nullptr);

  // Answers later, once, unless it is overtaken or cancelled by then.
  void Read(FeedSource source, const QByteArray& body, const QStringList& lstBadCalls, Done done);
  // What is being read of that source says nothing any more.
  void Cancel(FeedSource source);

 private:
  // What one reply is on its way with.
  struct Step {
    FeedSource source;
    QByteArray body;
    QString raw;  // as much of the bytes as is read, expanded to characters
    QStringList lstBadCalls;
    Done done;
    Wanted::Token token;
  };
  struct Reading {
    Wanted wanted;
    quint64 page = 0;  // of the page text tool
  };

  void Render(const Step& step);
  void Parse(const Step& step, const QString& decoded);

  PageTextTool& pageText_;
  Background& background_;
  std::map<FeedSource, Reading> readings_;
};
