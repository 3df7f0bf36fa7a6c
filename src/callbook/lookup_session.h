// SPDX-License-Identifier: GPL-3.0-or-later
// The logic of the lookup window: which call is shown, from the local database or a callbook service, what is written
// to the database, whose picture is shown, and what the user's sign-in changes. Form12 owns it and shows its
// LookupView.
#pragma once

#include <QImage>
#include <QObject>
#include <QSizeF>
#include <QString>
#include <memory>
#include <optional>

#include "callbook/call_database.h"
#include "callbook/callbook_service.h"
#include "callbook/look_up.h"
#include "callbook/operator_picture.h"
#include "callbook/sign_in.h"
#include "core/hosts.h"
#include "core/program.h"
#include "platform/background.h"
#include "platform/net/cookie_store.h"
#include "platform/net/url_reader.h"
#include "platform/picture/page_text_tool.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// All that the window shows.
struct LookupView {
  QString title;
  QString call;  // lblCall: the call and its source, or the progress text
  QString name;
  QString add1;
  QString add2;
  QString ctry;
  QString dxAz;
  QString status;         // login state at the service
  QString updateCaption;  // caption of cmdUpdate
  QImage picture;         // Image1; null: empty
  QSizeF pictureUnits;    // size of Image1: 57 by 39 units, or a little higher
  bool busy = false;      // the busy pointer
};

// Size of a picture in the lookup window, in that window's units; small pictures are enlarged. Empty for an empty size.
QSizeF PictureUnits(QSize pixels);

// The lookups of one Form12.
class LookupSession : public QObject {
  Q_OBJECT

 public:
  // What a session uses; all of it outlives the session.
  struct Dependencies {
    Program& program;
    UrlNetwork& network;
    PictureTool& tool;
    PageTextTool& pageText;
    Background& background;
    const Hosts& hosts;
    CookieStore& cookies;
    CallDatabase& database;
  };

  explicit LookupSession(const Dependencies& dependencies, QObject* parent = nullptr);
  ~LookupSession() override;

  // Looks a call up, as its caller spells it; what is under way for another call is dropped.
  void StartLookup(const QString& lookupCall);
  // The window closes: reads in flight are dropped.
  void EndLookup();

  // A row of cboDB, from 0, was chosen: reads from that service. A row outside the list changes nothing.
  void ChooseService(int listIndex);
  // cmdUpdate was pressed: reads again from the service.
  void Update();
  // Writes the view's texts anew after a change of language.
  void ShowTexts();

  const LookupView& View() const { return view_; }
  // The call that is shown, as CleanCall leaves it; empty if the window was given no call.
  QString Call() const { return call_; }
  QString PicturePath() const { return OperatorPicturePath(deps_.program.AppDataDir, call_); }
  // Pixels that a picture of 57 by 43 units takes on the screen; pictures are scaled to it beside the event loop.
  void SetPictureBox(QSize pixels) { pictureBox_ = pixels; }
  // The call's place in the database; both coordinates 0 if the database does not have it.
  TargetLocation Target() { return deps_.database.LookupTargetLocation(call_); }

  // Signing in to the chosen service; the call is read again when that has changed something.
  SignInSession& SignIn() { return signIn_; }

 Q_SIGNALS:
  void Changed();
  // The window is to be raised.
  void FrontWanted();
  void Beep();
  // The login state is shown; LookupStatus of the main window's menus, which outlives the lookup window.
  void LookupStatusChanged(const QString& status);
  // The local database has a new or changed record of the call.
  void Stored(const QString& call);

 private:
  void BeginRead();
  void MakeLookUp();
  void DropLookUp();
  void ShowDbRecord(const DbRec& record);
  void ShowPicture();
  void GotPage(const QString& call, bool loggedIn);
  void ReadPage(const QString& call);
  void GotPic(const QString& call);
  void NotFound(const QString& call);
  void LoginRequired(const QString& call);
  void PointerNormal();

  // Which text lblCall shows; kept so that it can be written in another language.
  enum class CallLine { Blank, Progress, FromDatabase, FromService, NotFound };
  // Which text lblDxAz shows.
  enum class PlaceLine { Blank, Known, NotInRecord, NotAtService };

  void BlankFields();
  void WriteTexts();
  void ShowStatus(bool loggedIn);
  void ShowCallLine(CallLine line, const QString& call = {});
  void ShowPlace(PlaceLine line, double lat = 0, double lon = 0);
  QString CallText() const;
  QString PlaceText() const;
  QString NameWithNickname(const QString& name, const QString& call) const;
  QString DistanceText(double lat, double lon) const;
  void SaveRecord(const QString& call, const DbRec& record);

  Dependencies deps_;
  LookupView view_;
  QString LookupCall;  // as the caller spelled it, then cut at the first character that belongs to no call
  QString call_;       // as CleanCall leaves it
  QString titleCall_;
  CallLine callLine_ = CallLine::Blank;
  QString lineCall_;     // call in lblCall
  QString lineService_;  // service in lblCall and lblDxAz
  PlaceLine placeLine_ = PlaceLine::Blank;
  double lat_ = 0;
  double lon_ = 0;
  std::optional<TextLine> statusLine_;
  std::unique_ptr<ucLookUp> lookUp_;
  QString serviceName_;       // service of the read under way
  bool unknownCall_ = false;  // CallNotFound was raised for the page that is being read
  Wanted shown_;              // the call shown; answers for a former one are dropped
  QSize pictureBox_{142, 108};
  SignInSession signIn_;
};
