// SPDX-License-Identifier: GPL-3.0-or-later
// Who is on the air, from both sources: asks them, merges their rows, and says what could not be had. On Air Now and
// the on-air map own one each.
#pragma once

#include <QObject>
#include <QTimer>

#include "core/hosts.h"
#include "core/program.h"
#include "onair/feed_reader.h"
#include "platform/net/url_reader.h"

// The merged list of one window, and its refreshing.
class OnAirFeed : public QObject {
  Q_OBJECT

 public:
  // What a feed is made from.
  struct Dependencies {
    const Program& program;
    UrlNetwork& network;
    const Hosts& hosts;
    PageTextTool& pageText;
    Background& background;
  };

  // missingLetter: this window's message about the first source lacks its first letter.
  OnAirFeed(const Dependencies& dependencies, bool missingLetter, QObject* parent = nullptr);

  // Asks both sources anew; what is under way is given up. List1 stays until the first of them has answered.
  void GetOnAirList();
  // Asks at once, and from then on every fifth minute.
  void Start();

  // Rows of both sources in the order in which they answered.
  const QList<OnAirRow>& List1() const { return list1_; }
  // Of the answers that List1 was made from.
  qsizetype LeftOut() const { return leftOut_; }
  bool IsCut() const { return cut_; }

  QTimer Timer1;  // minutes; every fifth refreshes

 Q_SIGNALS:
  // A reply has been read; with both sources answering this comes twice.
  void ListChanged();
  // To be shown for ten seconds.
  void Failed(const QString& message);

 private:
  void Ask(FeedSource source, const QString& host, QLatin1StringView path);
  void TakeBody(const QString& key, const QByteArray& body);
  void TakeRows(const FeedRows& rows);
  void TakeFailure(FeedSource source);
  QString FailureText() const;
  void ForgetFormer();

  const Program& program_;
  const Hosts hosts_;
  const bool missingLetter_;
  UrlReader ucGetList;
  FeedReader reader_;
  QList<OnAirRow> list1_;
  qsizetype leftOut_ = 0;
  bool cut_ = false;
  bool former_ = false;  // the rows are those of the refresh before
  // Both are set before the requests go out; a reply that failed clears that of its source.
  bool GotList1 = true;
  bool GotList2 = true;
  int minutes_ = 0;
};
