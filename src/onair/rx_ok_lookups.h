// SPDX-License-Identifier: GPL-3.0-or-later
// The look-ups of frmMapRxOk: where the stations without a site are, from the call database or else from the callbook
// service, and their operators' pictures. One for each opening of the window.
#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <cmath>

#include "callbook/call_database.h"
#include "callbook/look_up.h"
#include "core/program.h"
#include "onair/database_stamp.h"
#include "platform/background.h"
#include "platform/picture/picture_tool.h"

// A place in degrees.
struct RxOkPlace {
  double lat = 0;
  double lon = 0;

  // A latitude of 0 is unknown, one beyond the poles or that is no number is none. A longitude of 0 is as good as any.
  bool IsKnown() const { return lat != 0 && std::abs(lat) <= 90 && std::abs(lon) <= 180; }
};

class RxOkLookups : public QObject {
  Q_OBJECT

 public:
  // What the look-ups use; all of it outlives them.
  struct Dependencies {
    Program& program;
    UrlNetwork& network;
    const Hosts& hosts;
    PageTextTool& pageText;
    PictureTool& tool;
    Background& background;
    CallDatabase& database;
  };
  // What the panel tells.
  enum class State { Idle, Asking, Failed };

  explicit RxOkLookups(const Dependencies& dependencies, QObject* parent = nullptr);
  ~RxOkLookups() override;

  // The known place of a call; unknown until the service has answered.
  RxOkPlace PlaceOf(const QString& call);
  // The database may have learned of calls that it did not have. Where its file is the same, none of a thousand calls
  // is looked up for nothing.
  void ReadDatabaseAgain();
  // The calls that are to be asked for, in this order, two at a time. Calls that were asked before are not asked again;
  // those that wait and are no longer among them are dropped.
  void Ask(const QStringList& calls);
  // Ends the look-ups of calls that are no longer listed. An empty list ends none: a change of the page empties it for
  // two seconds, and no call is to be asked for twice because of that.
  void Keep(const QSet<QString>& listed);
  // Drops everything that is under way.
  void Stop();
  State Shown() const { return state_; }

  // Runs from the last request until all are answered: after 10 s without an answer the panel tells that the connection
  // has failed. An answer that comes later still counts.
  QTimer Timer1;

 Q_SIGNALS:
  // The place of a call has become known.
  void Found();
  void StateChanged();

 private:
  void AskNext();
  void Begin(const QString& call);
  void GotPage(const QString& call);
  void PageNotFound(const QString& call);
  void AskPicture(const QString& call);
  void GotPic(const QString& call);
  void End(const QString& call);
  void Show(State state);

  const Dependencies deps_;
  QHash<QString, RxOkPlace> places_;
  QSet<QString> notInDatabase_;
  DatabaseStamp stamp_;  // of the file that lacks them
  QSet<QString> asked_;
  QStringList waiting_;
  // One for each call that is being asked for: a control reads its fields from the page that came last, and takes a
  // page for a picture once it has asked for one.
  QHash<QString, ucLookUp*> running_;
  bool unknownCall_ = false;  // CallNotFound was raised for the page that is being read
  bool failed_ = false;
  State state_ = State::Idle;
};
