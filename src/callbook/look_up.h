// SPDX-License-Identifier: GPL-3.0-or-later
// ucLookUp asks a public callbook service about a call and reads name, address, place and licence out of the text of
// its page. Each window that looks calls up owns one; the windows decide what to do with what it finds.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <QUrl>

#include "callbook/page_reader.h"
#include "core/hosts.h"
#include "platform/net/url_reader.h"
#include "platform/picture/page_text_tool.h"

// One window's lookups.
class ucLookUp : public QObject {
  Q_OBJECT

 public:
  ucLookUp(UrlNetwork& network, const Hosts& hosts, PageTextTool& pageText, QObject* parent = nullptr);

  // Index of the service, 1 to 5; to be set before every read. With any other index the address of the page read before
  // is kept, and all fields are empty.
  int Database = 0;
  // Body of the read that completed last; within GotPic it is the picture.
  QByteArray LookupBytes;

  // Each begins a read whose key is the call as given; a pending read under the same key is cancelled. The answer comes
  // after the routine has returned, except when the read cannot be started.
  void GetPage(const QString& call);
  void GetPicture(const QString& call);
  void IsLoggedIn(const QString& key);
  void CheckUpdates();

  // Fields of the page, to be read within GotPage and in this order; empty or 0 if the page does not have them. cName
  // may raise CallNotFound or LoginRequired before it returns.
  QString cName(const QString& call);
  QString Add1();
  QString Add2();
  QString ctry();
  double Latitude();   // degrees, north positive
  double Longitude();  // degrees, east positive
  QString Class();
  QString DateOfBirth();
  QString PrevCall();
  QString Grid();
  QString WebAddress();

 Q_SIGNALS:
  void LoginChecked(const QString& key, bool loggedIn);
  void SiteNotFound(const QString& key);
  void GotPage(const QString& call, bool loggedIn);
  void PageNotFound(const QString& call);
  void CallNotFound(const QString& call);
  void GotPic(const QString& call);
  void NoPic(const QString& call);
  void LoginRequired(const QString& call);
  void UpdateFound(const QString& text);
  void UpdatesNotFound();
  // A page could not be read: the window has to set the pointer back to normal.
  void PointerNormal();

 private:
  enum class CurrentOp { None, CheckUpdates, IsLoggedIn, GetPage, GetPicture };
  // A page that is being turned into text, and the operation that it was read for.
  struct Decode {
    quint64 read = 0;  // number of the job at the page text tool
    CurrentOp op = CurrentOp::None;
  };

  bool Start(const QString& key, const QUrl& address);
  void TakeBody(const QString& key, const QByteArray& body);
  void TakeFailure(const QString& key);
  void Fail(CurrentOp op, const QString& key);
  void BeginDecode(const QString& key, const QByteArray& body);
  void TakeText(const QString& key, const std::optional<QString>& text);

  const Hosts hosts_;
  PageTextTool& pageText_;
  PageReader page_;
  CurrentOp currentOp_ = CurrentOp::None;  // operation begun last; a body that arrives is taken for an answer to it,
                                           // whatever it was asked for
  QUrl pageAddress_;
  // Reads on the network, and pages that have arrived and are being turned into text; both by key.
  UrlReader reads_;
  QHash<QString, Decode> decodes_;
};
