// SPDX-License-Identifier: GPL-3.0-or-later
// Fetches a station's coordinates from the chosen callbook service for a setup window: the fetch button's caption, the
// login state, the record in the call database, and what becomes of an answer that comes too late. Form3, Form7, Form11
// and Form26 own one each and show its FetchView.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>

#include "callbook/lookup_session.h"

// What a window wants otherwise than Form3 and Form7, for which these are the values.
struct FetchRules {
  TextLine caption = TextLine::kFetchButton;
  bool membersOnly = false;       // pages of eHam and QRZ, too, are read for a user who is logged in only
  bool usesSitePlace = false;     // a site's place stands in for coordinates that the service does not have
  bool keepsPicture = false;      // the operator's picture is stored
  bool statusInCaption = true;    // the fetch button's caption has the login state
  bool failureInCaption = false;  // the caption, too, tells what was not found
  // How long the answer of Callook waits before it is taken; nothing else waits meanwhile.
  std::chrono::milliseconds callookPause{0};
};

// What the controls around the fetch button show.
struct FetchView {
  QString caption;  // of the fetch button, may have several lines
  bool enabled = false;
  bool busy = false;
  QString status;   // login state at the service, as the last page showed it; empty before
  QString message;  // why the last fetch brought nothing; empty otherwise
};

// What a page tells of a station.
struct FoundStation {
  QString call;
  QString name;
  QString add1;
  QString add2;
  QString ctry;
  QString licenceClass;
  QString yearBorn;
  double lat = 0;  // degrees; exactly 0 is unknown
  double lon = 0;
  bool derived = false;  // the place is that of the site, not of the service

  bool IsPlaced() const { return lat != 0 && lon != 0; }
  // As the call database stores it.
  DbRec Record() const;
};

// The lookups of one setup window. A fetch ends with one of the signals Found, Failed and MembersOnly, or, if another
// call has been typed meanwhile, with none; its record is stored all the same.
class CoordinateFetch : public QObject {
  Q_OBJECT

 public:
  // What a fetch uses; all of it outlives the fetch.
  using Dependencies = LookupSession::Dependencies;

  CoordinateFetch(const Dependencies& dependencies, const FetchRules& rules, QObject* parent = nullptr);
  ~CoordinateFetch() override;

  // The text of the window's field for a call, as it is typed; another one ends what is said about the former.
  void SetCall(const QString& shown);
  // Reads the typed call from the chosen service. Does nothing without a call.
  void Fetch();
  // A row of cboDB, from 0, was chosen: reads from that service.
  void ChooseService(int listIndex);
  // Writes the view's texts anew after a change of language.
  void ShowTexts();
  // Ends the fetch under way; its answers are dropped.
  void End();

  const FetchView& View() const { return view_; }
  // Signing in to the chosen service; the call is fetched when the login page has been left.
  SignInSession& SignIn() { return signIn_; }
  // The note about coordinates that do not come from the service, for the window's CoordinateNote.
  QString DerivedNote() const;

 Q_SIGNALS:
  void Changed();
  // A page of the typed call was read. A station whose page has no place has 0 for both coordinates.
  void Found(const FoundStation& station);
  // The service does not have the call, or no page could be read. View().message says so.
  void Failed(const QString& call);
  // The service gives data to members only.
  void MembersOnly(const QString& call);
  // The login page has been left: the window is to begin a fetch.
  void FetchWanted();
  // The service wants a login; a beep is to be heard.
  void Beep();
  // The call database has a new or changed record of the call.
  void Stored(const QString& call);
  // The operator's picture of the call has been stored.
  void PictureStored(const QString& call);

 private:
  // Which text stands in the message.
  enum class Message { None, NoCall, NotFound, LoginNeeded };

  void MakeLookUp();
  void DropLookUp();
  void GotPage(const QString& call, bool loggedIn);
  FoundStation ReadStation(const QString& call);
  void Take(const FoundStation& station);
  void Save(const FoundStation& station);
  void GotPic(const QString& call);
  void Fail(Message message);
  void ForgetAnswer();
  void PointerNormal();
  // Whether the field still holds the call that is being read.
  bool IsTyped() const;
  void WriteTexts();
  QString MessageText() const;

  Dependencies deps_;
  const FetchRules rules_;
  FetchView view_;
  SignInSession signIn_;
  std::unique_ptr<ucLookUp> lookUp_;
  QTimer pause_;
  std::optional<FoundStation> paused_;  // read, and waiting for the end of the pause
  QString shown_;                       // the field's text
  QString call_;                        // call of the fetch under way or of the last one, as CleanCall leaves it
  QString service_;                     // its service's name
  std::optional<TextLine> statusLine_;
  Message message_ = Message::None;
  bool failed_ = false;  // CallNotFound or LoginRequired was raised for the page that is being read
};
