// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/feed_reader.h"

#include "onair/html_entities.h"
#include "platform/picture/page_text_protocol.h"
#include "platform/text/ansi_text.h"

namespace {

std::optional<FeedRows> RowsOf(FeedSource source, const QString& raw, const QString& decoded,
                               const QStringList& lstBadCalls) {
  if (HasFailed(decoded)) return std::nullopt;
  // The text file is tested as decoded and read as it came, entities and all.
  return source == FeedSource::Cgi ? ParseCgiReply(decoded, FeedLoop::ToLastButOne, lstBadCalls)
                                   : ParseTextFile(raw, FeedLoop::ToLastButOne, lstBadCalls);
}

// Whether some of the reply's end was not read. Of a page less is rendered than of a list of lines is read.
bool IsCut(FeedSource source, qsizetype bytes, const QString& decoded) {
  if (source == FeedSource::TextFile || decoded.isEmpty()) return bytes > kMostFeedCharacters;
  return bytes > PageTextLimits::kPageBytes || decoded.size() >= PageTextLimits::kTextCharacters;
}

}  // namespace

FeedReader::FeedReader(PageTextTool& pageText, Background& background, QObject* parent)
    : QObject(parent), pageText_(pageText), background_(background) {}

void FeedReader::Cancel(FeedSource source) {
  Reading& reading = readings_[source];
  reading.wanted.Withdraw();
  pageText_.Cancel(std::exchange(reading.page, 0));
}

void FeedReader::Read(FeedSource source, const QByteArray& body, const QStringList& lstBadCalls, Done done) {
  Cancel(source);
  struct Expanded {
    QString raw;
    bool hasTags = false;
  };
  const auto expand = [body]() {
    Expanded expanded{AnsiText(QByteArrayView(body).first(std::min(body.size(), kMostFeedCharacters))), false};
    expanded.hasTags = HasTags(expanded.raw);
    return expanded;
  };
  Step step{source, body, {}, lstBadCalls, std::move(done), readings_[source].wanted.Ask()};
  background_.Run<Expanded>(this, expand, [this, step = std::move(step)](const Expanded& expanded) mutable {
    if (!step.token.StillWanted()) return;
    step.raw = expanded.raw;
    if (expanded.hasTags) {
      Render(step);
    } else {
      Parse(step, {});
    }
  });
}

// In a process of its own, as every stranger's page.
void FeedReader::Render(const Step& step) {
  readings_[step.source].page = pageText_.Read(step.body, this, [this, step](const std::optional<QString>& text) {
    if (!step.token.StillWanted()) return;
    readings_[step.source].page = 0;
    if (text && !text->isEmpty()) {
      Parse(step, *text);
    } else {
      step.done(std::nullopt);
    }
  });
}

// decoded: a page's text; empty for a reply without tags, whose entities are decoded here.
void FeedReader::Parse(const Step& step, const QString& decoded) {
  const auto parse = [source = step.source, raw = step.raw, decoded, lstBadCalls = step.lstBadCalls,
                      cut = IsCut(step.source, step.body.size(), decoded)]() {
    std::optional<FeedRows> rows =
        RowsOf(source, raw, decoded.isEmpty() ? WithEntitiesDecoded(raw) : decoded, lstBadCalls);
    if (rows) rows->cut = cut;
    return rows;
  };
  background_.Run<std::optional<FeedRows>>(this, parse, [step](const std::optional<FeedRows>& rows) {
    if (step.token.StillWanted()) step.done(rows);
  });
}
