// SPDX-License-Identifier: GPL-3.0-or-later
// What the lookup window decides: which call is shown, from the local database or from a callbook service, what is
// written back, whose picture is shown, and what the user's sign-in changes. Form12 shows its LookupView.
#pragma once

#include <QImage>
#include <QNetworkCookie>
#include <QObject>
#include <QSizeF>
#include <QString>
#include <QTimer>
#include <QUrl>
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

// All that the window shows.
struct LookupView {
  QString title;
  QString call;  // lblCall: call and source, or what goes on
  QString name;
  QString add1;
  QString add2;
  QString ctry;
  QString dxAz;
  QString status;         // login state at the service
  QString updateCaption;  // of cmdUpdate
  QImage picture;         // Image1; null: empty
  QSizeF pictureUnits;    // its size: 57 by 39 units, or a little higher
  bool busy = false;      // the busy pointer
};

// Size of a picture in the lookup window, in its units, enlarged too; empty for an empty one.
QSizeF PictureUnits(QSize pixels);

class LookupSession : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    Program& program;
    UrlNetwork& network;
    PictureTool& tool;
    PageTextTool& pageText;
    Background& background;
    const Hosts& hosts;
    CookieStore& cookies;
    CallDatabase& database;
  };

  explicit LookupSession(const Parts& parts, QObject* parent = nullptr);
  ~LookupSession() override;

  // Begins with a call as its caller spells it; whatever was under way for another call is dropped.
  void StartLookup(const QString& lookupCall);
  // The window closes: reads in flight are dropped.
  void EndLookup();

  // cboDB, from 0: always reads again. A place outside the list is passed over.
  void ChooseService(int listIndex);
  // cmdUpdate.
  void Update();
  // The language has changed: the view says the same in the present one.
  void ShowTexts();

  const LookupView& View() const { return view_; }
  // The call that is shown, cleaned; empty where there was none.
  QString Call() const { return call_; }
  QString PicturePath() const { return OperatorPicturePath(parts_.program.AppDataDir, call_); }
  // Pixels that a picture of 57 by 43 units takes on the screen; pictures are scaled to it beside the event loop.
  void SetPictureBox(QSize pixels) { pictureBox_ = pixels; }
  // Where the database has the call; both coordinates 0 where it does not.
  TargetLocation Target() { return parts_.database.LookupTargetLocation(call_); }

  // What can be done about the login at the chosen service.
  SignInOffer Offer() const;
  // The service's own login page; invalid without one.
  QUrl SignInUrl() const;
  // Its page is open now: as soon as it has left other cookies, and once when it is closed, the call that is shown then
  // is read again.
  void AwaitSignIn();
  void SignInClosed();
  // The browser has forgotten the service already.
  void SignOut();

 Q_SIGNALS:
  void Changed();
  void FrontWanted();
  void Beep();
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
  void CookiesChanged();
  void CookiesSettled();

  // What lblCall says, so that it can be said in another language.
  enum class CallLine { Blank, Progress, FromDatabase, FromService, NotFound };
  // What lblDxAz says.
  enum class PlaceLine { Blank, Known, NotInRecord, NotAtService };

  void BlankFields();
  void TellTexts();
  void ShowStatus(bool loggedIn);
  void ShowCallLine(CallLine line, const QString& call = {});
  void ShowPlace(PlaceLine line, double lat = 0, double lon = 0);
  QString CallText() const;
  QString PlaceText() const;
  QString NameWithNickname(const QString& name, const QString& call) const;
  QString DistanceText(double lat, double lon) const;
  void SaveRecord(const QString& call, const DbRec& record);
  const CallbookService* Service() const { return FindCallbookService(parts_.program.config.CallbookIndex); }
  QList<QNetworkCookie> ServiceCookies() const { return parts_.cookies.CookiesFor(SignInUrl()); }

  Parts parts_;
  LookupView view_;
  QString LookupCall;  // as the caller spelled it, then cut
  QString call_;       // cleaned
  QString titleCall_;
  CallLine callLine_ = CallLine::Blank;
  QString lineCall_;     // in lblCall
  QString lineService_;  // in lblCall and lblDxAz
  PlaceLine placeLine_ = PlaceLine::Blank;
  double lat_ = 0;
  double lon_ = 0;
  std::optional<TextLine> statusLine_;
  std::unique_ptr<ucLookUp> lookUp_;
  QString serviceName_;           // of the read under way
  bool unknownCall_ = false;      // CallNotFound was raised for the page that is being read
  std::optional<bool> loggedIn_;  // as the last page told
  int toldBy_ = 0;                // the service of that page
  int generation_ = 0;            // of the call shown; answers of a former one are dropped
  QSize pictureBox_{142, 108};
  bool awaitingSignIn_ = false;
  int readsForCookies_ = 0;  // since the browser has last changed one
  QList<QNetworkCookie> cookiesSeen_;
  QTimer cookieTimer_;
};
