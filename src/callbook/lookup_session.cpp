// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/lookup_session.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include "callbook/call_entry.h"
#include "station/callsign.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr double kUnitsWide = 57;
constexpr double kUnitsHigh = 39;
constexpr double kFlatShape = 0.75;  // height to width, below which the width decides

// A sign-in page sets several cookies, and a page that is read between two of them would know nothing of it yet.
constexpr std::chrono::milliseconds kCookiePause = 400ms;
// A cookie that comes during a read may belong to the sign-in, or be one that the service gives with every page. It is
// worth one more read; a read after each of them would never end.
constexpr int kReadsForCookies = 2;

bool WritePicture(const QString& path, const QByteArray& bytes) {
  if (!QDir().mkpath(QFileInfo(path).path())) return false;
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

}  // namespace

QSizeF PictureUnits(QSize pixels) {
  if (pixels.isEmpty()) return {};
  const QSizeF size(pixels);
  // Between the two shapes a picture comes out a little higher than the others.
  const bool flat = size.height() / size.width() < kFlatShape;
  return size / (flat ? size.width() / kUnitsWide : size.height() / kUnitsHigh);
}

LookupSession::LookupSession(const Parts& parts, QObject* parent) : QObject(parent), parts_(parts) {
  cookieTimer_.setSingleShot(true);
  cookieTimer_.setInterval(kCookiePause);
  connect(&cookieTimer_, &QTimer::timeout, this, &LookupSession::CookiesSettled);
  connect(&parts_.cookies, &CookieStore::Changed, this, &LookupSession::CookiesChanged);
}

LookupSession::~LookupSession() = default;

// Each call gets a control of its own, as each window had: what the former one still reads is lost with it, and so is
// the place in its last page.
void LookupSession::MakeLookUp() {
  DropLookUp();
  lookUp_ = std::make_unique<ucLookUp>(parts_.network, parts_.hosts, parts_.pageText);
  connect(lookUp_.get(), &ucLookUp::GotPage, this, &LookupSession::GotPage);
  connect(lookUp_.get(), &ucLookUp::PageNotFound, this, &LookupSession::NotFound);
  connect(lookUp_.get(), &ucLookUp::CallNotFound, this, &LookupSession::NotFound);
  connect(lookUp_.get(), &ucLookUp::GotPic, this, &LookupSession::GotPic);
  connect(lookUp_.get(), &ucLookUp::LoginRequired, this, &LookupSession::LoginRequired);
  connect(lookUp_.get(), &ucLookUp::PointerNormal, this, &LookupSession::PointerNormal);
}

void LookupSession::DropLookUp() {
  if (!lookUp_) return;
  lookUp_->disconnect(this);
  // It may be one of its own signals that brought us here.
  lookUp_.release()->deleteLater();
}

void LookupSession::StartLookup(const QString& lookupCall) {
  EndLookup();
  MakeLookUp();
  call_.clear();
  view_ = LookupView();
  LookupCall = lookupCall;
  titleCall_ = lookupCall;
  statusLine_.reset();
  placeLine_ = PlaceLine::Blank;
  ShowCallLine(CallLine::Progress);
  TellTexts();
  Q_EMIT Changed();

  LookupCall = CutAtFirstOther(LookupCall.replace(u'Ø', u'0'));
  // Nothing to look up: the window is left with the progress text.
  if (LookupCall.isEmpty()) return;
  call_ = LookupCall;
  call_ = CleanCall(call_);
  if (call_.isEmpty()) {
    // No service is asked about a text that is no call.
    NotFound(LookupCall);
    return;
  }
  view_.busy = true;
  const std::optional<FoundRecord> found = parts_.database.Find(call_);
  if (found && !found->record.Name.Text().isEmpty() && found->record.Lat.Text() != "0"_L1) {
    ShowDbRecord(found->record);
  } else {
    BeginRead();
  }
}

void LookupSession::EndLookup() {
  DropLookUp();
  ++generation_;
  if (view_.busy) PointerNormal();
}

void LookupSession::BeginRead() {
  if (!lookUp_ || call_.isEmpty()) return;
  view_.busy = true;
  serviceName_ = parts_.program.config.CallbookName;
  lookUp_->Database = parts_.program.config.CallbookIndex;
  Q_EMIT Changed();
  lookUp_->GetPage(call_);
}

void LookupSession::ChooseService(int listIndex) {
  if (!ChooseCallbook(parts_.program.config, listIndex + 1, ServiceSpelling::Lookup)) return;
  awaitingSignIn_ = false;
  statusLine_.reset();
  TellTexts();
  view_.picture = QImage();
  ++generation_;
  Q_EMIT Changed();
  BeginRead();
}

void LookupSession::Update() {
  if (!lookUp_ || call_.isEmpty()) return;
  BlankFields();
  ShowCallLine(CallLine::Progress);
  ++generation_;
  BeginRead();
}

void LookupSession::ShowDbRecord(const DbRec& record) {
  const Program& program = parts_.program;
  ShowCallLine(CallLine::FromDatabase, call_);
  view_.name = NameWithNickname(record.Name.Text(), call_);
  view_.add1 = record.Add1.Text();
  view_.add2 = record.Add2.Text();
  view_.ctry = record.Ctry.Text();
  const double lat = Coordinate(record.Lat.Text());
  const double lon = Coordinate(record.Lon.Text());
  ShowPlace(IsKnownPosition(lat, lon) ? PlaceLine::Known : PlaceLine::NotInRecord, lat, lon);
  // A picture that came empty counts as none.
  if (QFileInfo(PicturePath()).size() > 0) {
    ShowPicture();
  } else {
    lookUp_->Database = program.config.CallbookIndex;
    lookUp_->GetPicture(call_);
  }
  view_.busy = false;
  Q_EMIT Changed();
  Q_EMIT FrontWanted();
}

void LookupSession::ShowPicture() {
  if (!QFileInfo::exists(PicturePath())) return;
  parts_.tool.View(PicturePath(), pictureBox_, this, [this, generation = generation_](const PictureAnswer& answer) {
    if (generation != generation_ || !answer.ok || answer.frames.isEmpty()) return;
    view_.picture = answer.frames.first().image;
    view_.pictureUnits = PictureUnits(answer.size);
    Q_EMIT Changed();
  });
}

void LookupSession::GotPage(const QString& call, bool loggedIn) {
  if (call != call_) return;
  loggedIn_ = loggedIn;
  toldBy_ = lookUp_->Database;
  if (loggedIn) awaitingSignIn_ = false;
  ShowStatus(loggedIn);
  const CallbookService* service = FindCallbookService(lookUp_->Database);
  if (!loggedIn && (service == nullptr || service->needsLogin)) {
    BlankFields();
    view_.busy = false;
  } else {
    ReadPage(call);
  }
  Q_EMIT Changed();
}

void LookupSession::ShowStatus(bool loggedIn) {
  statusLine_ = LoginLine(lookUp_->Database, loggedIn);
  TellTexts();
}

void LookupSession::ShowTexts() {
  TellTexts();
  Q_EMIT Changed();
}

// All of the view that is said in the user's language.
void LookupSession::TellTexts() {
  Program& program = parts_.program;
  view_.title = QString(program.language[TextLine::kLookupTitle]).replace("??"_L1, titleCall_);
  view_.updateCaption =
      QString(program.language[TextLine::kLookupUpdate]).replace("***"_L1, program.config.CallbookName);
  view_.call = CallText();
  view_.dxAz = PlaceText();
  view_.status = statusLine_ ? program.language[*statusLine_] : QString();
  // The menus of the main window go on showing it when this window has been closed.
  if (statusLine_) program.LookupStatus = view_.status;
}

void LookupSession::ShowCallLine(CallLine line, const QString& call) {
  callLine_ = line;
  lineCall_ = call;
  lineService_ = line == CallLine::Progress ? parts_.program.config.CallbookName : serviceName_;
  view_.call = CallText();
}

QString LookupSession::CallText() const {
  const LanguageTexts& texts = parts_.program.language;
  switch (callLine_) {
    case CallLine::Blank:
      break;
    case CallLine::Progress:
      return QString(texts[TextLine::kLookupProgress]).replace("***"_L1, lineService_) + ". . ."_L1;
    case CallLine::FromDatabase:
      return lineCall_ + "  ("_L1 + texts[TextLine::kFromLocal] + u')';
    case CallLine::FromService:
      return lineCall_ + "  ("_L1 + texts[TextLine::kFromWord] + lineService_ + u')';
    case CallLine::NotFound:
      return texts[TextLine::kNotFoundText] + lineCall_;
  }
  return {};
}

void LookupSession::ShowPlace(PlaceLine line, double lat, double lon) {
  placeLine_ = line;
  lat_ = lat;
  lon_ = lon;
  view_.dxAz = PlaceText();
}

QString LookupSession::PlaceText() const {
  const LanguageTexts& texts = parts_.program.language;
  switch (placeLine_) {
    case PlaceLine::Blank:
      break;
    case PlaceLine::Known:
      return DistanceText(lat_, lon_);
    case PlaceLine::NotInRecord:
      return texts[TextLine::kNoPosition].trimmed();
    case PlaceLine::NotAtService:
      return QString(texts[TextLine::kNoCoordinates]).replace("???"_L1, lineService_);
  }
  return {};
}

void LookupSession::ReadPage(const QString& call) {
  const Program& program = parts_.program;
  ShowCallLine(CallLine::FromService, call);
  unknownCall_ = false;
  const QString name = lookUp_->cName(call);
  view_.busy = false;
  view_.name.clear();
  // One service's reader gives a name even for a call that it has just called unknown. That is no name to show, and
  // still less one to keep.
  if (name.isEmpty() || unknownCall_) return;
  view_.name = NameWithNickname(name, call);
  view_.add1 = lookUp_->Add1();
  view_.add2 = lookUp_->Add2();
  view_.ctry = lookUp_->ctry();
  double lat = lookUp_->Latitude();
  double lon = lookUp_->Longitude();
  const int site = program.sites.FindCall(call);
  if ((lat == 0 || lon == 0) && site >= 0) {
    lat = program.sites.Sites.at(site).Lat;
    lon = program.sites.Sites.at(site).Lon;
  }
  ShowPlace(IsKnownPosition(lat, lon) ? PlaceLine::Known : PlaceLine::NotAtService, lat, lon);
  DbRec record;
  record.Call = call;
  record.Name = name;
  record.Add1 = view_.add1;
  record.Add2 = view_.add2;
  record.Ctry = view_.ctry;
  record.Lat = CoordinateText(lat);
  record.Lon = CoordinateText(lon);
  record.Class = lookUp_->Class();
  record.YearBorn = lookUp_->DateOfBirth();
  SaveRecord(call, record);
  lookUp_->GetPicture(call);
}

// The database may hold 100,000 stations: sorting a new one in takes longer than a window may stand still.
void LookupSession::SaveRecord(const QString& call, const DbRec& record) {
  parts_.background.Run<bool>(
      this, [&database = parts_.database, call, record]() { return database.SaveStation(call, record); },
      [this, call](bool written) {
        if (written) Q_EMIT Stored(call);
      });
}

// What comes may be an error page: only a picture takes the place of the one that is there.
void LookupSession::GotPic(const QString& call) {
  if (call != call_) return;
  const QByteArray bytes = lookUp_->LookupBytes;
  const QString path = PicturePath();
  parts_.tool.Measure(bytes, this, [this, bytes, path, generation = generation_](const PictureAnswer& answer) {
    const auto show = [this, generation](bool) {
      if (generation == generation_) ShowPicture();
    };
    if (!answer.ok) return show(false);
    parts_.background.Run<bool>(
        this, [path, bytes]() { return WritePicture(path, bytes); }, show);
  });
}

void LookupSession::NotFound(const QString& call) {
  unknownCall_ = true;
  ShowCallLine(CallLine::NotFound, call);
  PointerNormal();
}

void LookupSession::LoginRequired(const QString& call) {
  Q_UNUSED(call)
  // Whatever else the page says, signing in is what is to be offered now.
  loggedIn_ = false;
  PointerNormal();
  Q_EMIT Beep();
}

void LookupSession::PointerNormal() {
  view_.busy = false;
  Q_EMIT Changed();
}

void LookupSession::BlankFields() {
  view_.picture = QImage();
  for (QString* text : {&view_.name, &view_.add1, &view_.add2, &view_.ctry}) text->clear();
  ShowCallLine(CallLine::Blank);
  ShowPlace(PlaceLine::Blank);
}

QString LookupSession::NameWithNickname(const QString& name, const QString& call) const {
  const QString nickname = Nickname(parts_.program.nicknames.lstNicknames, call).value_or(QString());
  return nickname.isEmpty() ? name : nickname + "  ("_L1 + name + u')';
}

QString LookupSession::DistanceText(double lat, double lon) const {
  const Config& config = parts_.program.config;
  if (!IsKnownPosition(config.MyLat, config.MyLon)) {
    return parts_.program.language[TextLine::kSetLocation].trimmed();
  }
  return DistAzText(config.MyLat, config.MyLon, lat, lon, config.DistUnit);
}

SignInOffer LookupSession::Offer() const {
  const QString signIn = tr("Sign in to %1").arg(parts_.program.config.CallbookName);
  const QUrl url = SignInUrl();
  if (!url.isValid()) return {SignInOffer::Kind::None, signIn};
  // Until a page has told, cookies of the service stand for a sign-in.
  const bool told = loggedIn_.has_value() && toldBy_ == parts_.program.config.CallbookIndex;
  const bool in = told ? *loggedIn_ : !ServiceCookies().isEmpty();
  if (!in) return {SignInOffer::Kind::SignIn, signIn};
  return {SignInOffer::Kind::SignOut, tr("Sign out of %1").arg(parts_.program.config.CallbookName)};
}

QUrl LookupSession::SignInUrl() const {
  const CallbookService* service = Service();
  return service == nullptr ? QUrl() : LoginUrl(*service, parts_.hosts);
}

void LookupSession::AwaitSignIn() {
  awaitingSignIn_ = true;
  readsForCookies_ = 0;
  cookiesSeen_ = ServiceCookies();
}

void LookupSession::CookiesChanged() {
  if (!awaitingSignIn_) return;
  if (!view_.busy) readsForCookies_ = 0;
  cookieTimer_.start();
}

void LookupSession::CookiesSettled() {
  if (!awaitingSignIn_ || ServiceCookies() == cookiesSeen_) return;
  if (view_.busy) {
    cookieTimer_.start();
    return;
  }
  cookiesSeen_ = ServiceCookies();
  if (readsForCookies_ == kReadsForCookies) return;
  ++readsForCookies_;
  Update();
}

void LookupSession::SignInClosed() {
  if (!awaitingSignIn_) return;
  awaitingSignIn_ = false;
  cookieTimer_.stop();
  Update();
}

void LookupSession::SignOut() {
  const QUrl url = SignInUrl();
  if (!url.isValid()) return;
  awaitingSignIn_ = false;
  parts_.cookies.RemoveOf(url);
  loggedIn_.reset();
  // There may be no call to read again.
  Q_EMIT Changed();
  Update();
}
