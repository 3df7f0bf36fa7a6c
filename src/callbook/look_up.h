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

  // Index of the service, 1 to 5; set before every read. Any other keeps the address of the page read before, and all
  // fields empty.
  int Database = 0;
  // Body of the read completed last; within GotPic the picture.
  QByteArray LookupBytes;

  // Begin a read under the call, spelled as given, as its key; one pending under the same key is cancelled. Nothing is
  // answered before they return, but for a read that cannot be started.
  void GetPage(const QString& call);
  void GetPicture(const QString& call);
  void IsLoggedIn(const QString& key);
  void CheckUpdates();

  // Fields of the page, to be read within GotPage and in this order; empty or 0 where the page does not have them.
  // cName may raise CallNotFound or LoginRequired before it returns.
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
  // A page read could not be started: the pointer is to be set back to normal.
  void PointerNormal();

 private:
  enum class CurrentOp { None, CheckUpdates, IsLoggedIn, GetPage, GetPicture };
  // A page whose text is being made, and what it was read for.
  struct Decode {
    quint64 read = 0;  // of the page text tool
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
  CurrentOp currentOp_ = CurrentOp::None;  // of the operation begun last; what completes is taken for one of its kind
  QUrl pageAddress_;
  // PendingReads are the keys of the two: those on the network, and those that have come and are not text yet.
  UrlReader reads_;
  QHash<QString, Decode> decodes_;
};
