// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/look_up.h"

#include "callbook/callbook_service.h"

using namespace Qt::StringLiterals;

namespace {

// Key of the read that asks for the version; no call is spelled like it.
QString UpdatesKey() {
  return u"CheckUpdates"_s;
}

// Addresses are spelled with plain zeros.
QString WithPlainZeros(QString call) {
  return call.replace(u'Ø', u'0');
}

// Escapes whatever would end the path, begin a query or add to one, so that a call can only ever name a page; an
// ordinary call stays as it is, with its "/".
QByteArray InAddress(const QString& call) {
  return call.toUtf8().toPercentEncoding("/");
}

bool HasDotSegment(const QUrl& url) {
  const QStringList segments = url.path(QUrl::FullyEncoded).split(u'/');
  return segments.contains(u"."_s) || segments.contains(u".."_s);
}

// Invalid without a host, and for a call such as "../x" that would lead out of the folder of the pages.
QUrl AddressOf(const QString& host, const QByteArray& path) {
  if (host.isEmpty()) return {};
  const QUrl url = QUrl::fromEncoded(host.toUtf8() + path);
  return HasDotSegment(url) ? QUrl() : url;
}

bool CanBeRead(const QUrl& url) {
  return url.isValid() && !url.host().isEmpty() && (url.scheme() == "http"_L1 || url.scheme() == "https"_L1);
}

}  // namespace

ucLookUp::ucLookUp(UrlNetwork& network, const Hosts& hosts, PageTextTool& pageText, QObject* parent)
    : QObject(parent), hosts_(hosts), pageText_(pageText), reads_(network) {
  connect(&reads_, &UrlReader::Done, this, &ucLookUp::TakeBody);
  connect(&reads_, &UrlReader::Failed, this, &ucLookUp::TakeFailure);
}

void ucLookUp::GetPage(const QString& call) {
  currentOp_ = CurrentOp::GetPage;
  page_.PageText.clear();
  if (const CallbookService* service = FindCallbookService(Database)) {
    pageAddress_ = AddressOf(hosts_.*service->host, service->pagePath.latin1() + InAddress(WithPlainZeros(call)));
  }
  if (!Start(call, pageAddress_)) Q_EMIT PointerNormal();
}

void ucLookUp::GetPicture(const QString& call) {
  currentOp_ = CurrentOp::GetPicture;
  // The folder is the last letter of the call as written, in lower case: a slashed zero at the end stays slashed here.
  const QByteArray folder = InAddress(call.right(1).toLower());
  const QByteArray plain = InAddress(WithPlainZeros(call).toLower());
  const QUrl address = AddressOf(hosts_.Pictures, '/' + folder + '/' + plain + '/' + plain + ".jpg");
  if (!Start(call, address)) Q_EMIT NoPic(call);
}

void ucLookUp::IsLoggedIn(const QString& key) {
  currentOp_ = CurrentOp::IsLoggedIn;
  page_.PageText.clear();
  const CallbookService* service = FindCallbookService(Database);
  const QUrl address = service == nullptr ? QUrl() : AddressOf(hosts_.*service->host, service->rootPath.latin1());
  if (!Start(key, address)) Q_EMIT SiteNotFound(key);
}

void ucLookUp::CheckUpdates() {
  currentOp_ = CurrentOp::CheckUpdates;
  if (!Start(UpdatesKey(), AddressOf(hosts_.Author, "/"))) Q_EMIT UpdatesNotFound();
}

bool ucLookUp::Start(const QString& key, const QUrl& address) {
  reads_.Cancel(key);
  pageText_.Cancel(decodes_.take(key).read);
  if (!CanBeRead(address)) return false;
  reads_.Start(key, address, UrlPriority::User);
  // Start the process that turns pages into text while the page is on its way.
  if (currentOp_ != CurrentOp::GetPicture) pageText_.WarmUp();
  return true;
}

// currentOp_ stands for all reads of this object: a page that arrives after a picture was asked for is taken for a
// picture.
void ucLookUp::TakeBody(const QString& key, const QByteArray& body) {
  LookupBytes = body;
  if (currentOp_ == CurrentOp::GetPicture) {
    Q_EMIT GotPic(key);
  } else {
    BeginDecode(key, body);
  }
}

void ucLookUp::TakeFailure(const QString& key) {
  Fail(currentOp_, key);
}

void ucLookUp::Fail(CurrentOp op, const QString& key) {
  switch (op) {
    case CurrentOp::GetPage:
      Q_EMIT PageNotFound(key);
      break;
    case CurrentOp::GetPicture:
      Q_EMIT NoPic(key);
      break;
    case CurrentOp::IsLoggedIn:
      Q_EMIT SiteNotFound(key);
      break;
    case CurrentOp::CheckUpdates:
      Q_EMIT UpdatesNotFound();
      break;
    case CurrentOp::None:
      break;
  }
}

// Turns a page into text in a process of its own, because a stranger's page may be of any size and shape.
void ucLookUp::BeginDecode(const QString& key, const QByteArray& body) {
  const quint64 read =
      pageText_.Read(body, this, [this, key](const std::optional<QString>& text) { TakeText(key, text); });
  decodes_.insert(key, {read, currentOp_});
}

void ucLookUp::TakeText(const QString& key, const std::optional<QString>& text) {
  const Decode decode = decodes_.take(key);
  if (!text) {
    Fail(decode.op, key);
    return;
  }
  page_.PageText = *text;
  // Emit the signals last: a receiver may read again, or close the window that owns this object.
  switch (decode.op) {
    case CurrentOp::GetPage:
      Q_EMIT GotPage(key, page_.LoggedIn(Database));
      break;
    case CurrentOp::IsLoggedIn:
      Q_EMIT LoginChecked(key, page_.LoggedIn(Database));
      break;
    case CurrentOp::CheckUpdates:
      Q_EMIT UpdateFound(QString(page_.PageText));
      break;
    case CurrentOp::GetPicture:
    case CurrentOp::None:
      break;
  }
}

QString ucLookUp::cName(const QString& call) {
  const NameReading reading = page_.cName(Database, call);
  if (reading.event == NameReading::Event::CallNotFound) Q_EMIT CallNotFound(call);
  if (reading.event == NameReading::Event::LoginRequired) Q_EMIT LoginRequired(call);
  return reading.name;
}

QString ucLookUp::Add1() {
  return page_.Add1(Database);
}

QString ucLookUp::Add2() {
  return page_.Add2(Database);
}

QString ucLookUp::ctry() {
  return page_.ctry(Database);
}

double ucLookUp::Latitude() {
  return page_.Latitude(Database);
}

double ucLookUp::Longitude() {
  return page_.Longitude(Database);
}

QString ucLookUp::Class() {
  return page_.Class(Database);
}

QString ucLookUp::DateOfBirth() {
  return page_.DateOfBirth(Database);
}

QString ucLookUp::PrevCall() {
  return page_.PrevCall(Database);
}

QString ucLookUp::Grid() {
  return page_.Grid(Database);
}

QString ucLookUp::WebAddress() {
  return page_.WebAddress(Database);
}
