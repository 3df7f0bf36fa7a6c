// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/coordinate_fetch.h"

#include <utility>

#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kCallook = 4;
constexpr int kHamCall = 5;
constexpr qsizetype kLongestShown = 30;  // letters of a call, or of a weather site's title, in a caption

// A text as a call, with plain zeros; empty if it holds none.
QString CallOf(QString text) {
  return CleanCall(text);
}

// Without a login HamCall shows nothing of a station; eHam and QRZ show a part of it.
bool ReadsPage(int service, bool loggedIn, bool membersOnly) {
  if (loggedIn) return true;
  const CallbookService* found = FindCallbookService(service);
  return found != nullptr && (membersOnly ? !found->needsLogin : service != kHamCall);
}

}  // namespace

DbRec FoundStation::Record() const {
  DbRec record;
  record.Call = call;
  record.Name = name;
  record.Add1 = add1;
  record.Add2 = add2;
  record.Ctry = ctry;
  record.Lat = CoordinateText(lat);
  record.Lon = CoordinateText(lon);
  record.Class = licenceClass;
  record.YearBorn = yearBorn;
  return record;
}

CoordinateFetch::CoordinateFetch(const Dependencies& dependencies, const FetchRules& rules, QObject* parent)
    : QObject(parent),
      deps_(dependencies),
      rules_(rules),
      signIn_(deps_.program.config, deps_.hosts, deps_.cookies, [this]() { return view_.busy; }) {
  connect(&signIn_, &SignInSession::ReadWanted, this, &CoordinateFetch::FetchWanted);
  connect(&signIn_, &SignInSession::SignedOut, this, &CoordinateFetch::ForgetAnswer);
  pause_.setSingleShot(true);
  pause_.setInterval(rules.callookPause);
  connect(&pause_, &QTimer::timeout, this, [this]() {
    const std::optional<FoundStation> station = paused_;
    paused_.reset();
    if (station) Take(*station);
  });
}

CoordinateFetch::~CoordinateFetch() = default;

// Makes a new ucLookUp for each fetch, so that the answers of the former are dropped with the former control.
void CoordinateFetch::MakeLookUp() {
  DropLookUp();
  lookUp_ = std::make_unique<ucLookUp>(deps_.network, deps_.hosts, deps_.pageText);
  connect(lookUp_.get(), &ucLookUp::GotPage, this, &CoordinateFetch::GotPage);
  connect(lookUp_.get(), &ucLookUp::PageNotFound, this, [this]() { Fail(Message::NotFound); });
  connect(lookUp_.get(), &ucLookUp::CallNotFound, this, [this]() { Fail(Message::NotFound); });
  connect(lookUp_.get(), &ucLookUp::LoginRequired, this, [this]() {
    // From now on the window offers to sign in, whatever the page says about the login.
    signIn_.TakeLogin(lookUp_->Database, false);
    Fail(Message::LoginNeeded);
    Q_EMIT Beep();
  });
  connect(lookUp_.get(), &ucLookUp::PointerNormal, this, &CoordinateFetch::PointerNormal);
  connect(lookUp_.get(), &ucLookUp::GotPic, this, &CoordinateFetch::GotPic);
  connect(lookUp_.get(), &ucLookUp::NoPic, this, [this]() {
    if (rules_.failureInCaption) Fail(Message::NotFound);
  });
}

void CoordinateFetch::DropLookUp() {
  pause_.stop();
  paused_.reset();
  if (!lookUp_) return;
  lookUp_->disconnect(this);
  // A signal of this very control may have led here, so it must not be deleted before the event loop turns.
  lookUp_.release()->deleteLater();
}

bool CoordinateFetch::IsTyped() const {
  return !call_.isEmpty() && CallOf(shown_) == call_;
}

void CoordinateFetch::SetCall(const QString& shown) {
  if (shown == shown_) return;
  const bool another = CallOf(shown) != CallOf(std::exchange(shown_, shown));
  // Beside the caption the state is that of the service, whatever the call.
  if (rules_.statusInCaption) statusLine_.reset();
  if (another) {
    message_ = Message::None;
    view_.busy = false;
  }
  WriteTexts();
  Q_EMIT Changed();
}

void CoordinateFetch::Fetch() {
  if (shown_.isEmpty()) return;
  MakeLookUp();
  message_ = Message::None;
  statusLine_.reset();
  call_ = CallOf(shown_);
  service_ = deps_.program.config.CallbookName;
  failed_ = false;
  // No service is asked about a text that is no call.
  if (call_.isEmpty()) return Fail(Message::NoCall);
  view_.busy = true;
  WriteTexts();
  Q_EMIT Changed();
  lookUp_->Database = deps_.program.config.CallbookIndex;
  lookUp_->GetPage(call_);
}

void CoordinateFetch::ChooseService(int listIndex) {
  if (!ChooseCallbook(deps_.program.config, listIndex + 1, ServiceSpelling::Setup)) return;
  signIn_.ServiceChanged();
  End();
  ForgetAnswer();
  Fetch();
}

void CoordinateFetch::ForgetAnswer() {
  statusLine_.reset();
  message_ = Message::None;
  WriteTexts();
  Q_EMIT Changed();
}

void CoordinateFetch::End() {
  DropLookUp();
  view_.busy = false;
}

void CoordinateFetch::GotPage(const QString& call, bool loggedIn) {
  signIn_.TakeLogin(lookUp_->Database, loggedIn);
  if (IsTyped()) {
    statusLine_ = LoginLine(lookUp_->Database, loggedIn);
    WriteTexts();
  }
  if (!ReadsPage(lookUp_->Database, loggedIn, rules_.membersOnly)) {
    PointerNormal();
    if (IsTyped()) Q_EMIT MembersOnly(call);
    return;
  }
  const FoundStation station = ReadStation(call);
  // A name that cName cuts out of a page that does not have the call is neither shown nor stored.
  if (failed_) return;
  if (lookUp_->Database == kCallook && rules_.callookPause.count() > 0) {
    paused_ = station;
    pause_.start();
  } else {
    Take(station);
  }
}

FoundStation CoordinateFetch::ReadStation(const QString& call) {
  FoundStation station;
  station.call = call;
  // In this order: each reader begins where the one before has ended.
  station.name = lookUp_->cName(call);
  station.add1 = lookUp_->Add1();
  station.add2 = lookUp_->Add2();
  station.ctry = lookUp_->ctry();
  station.lat = lookUp_->Latitude();
  station.lon = lookUp_->Longitude();
  station.licenceClass = lookUp_->Class();
  station.yearBorn = lookUp_->DateOfBirth();
  const SiteTable& sites = deps_.program.sites;
  const int site = rules_.usesSitePlace && !station.IsPlaced() ? sites.FindCall(call) : -1;
  if (site >= 0) {
    station.lat = sites.Sites.at(site).Lat;
    station.lon = sites.Sites.at(site).Lon;
    station.derived = station.IsPlaced();
  }
  if (!station.IsPlaced()) station.lat = station.lon = 0;
  return station;
}

// Stores the station whatever has been typed meanwhile: its record is as true as before.
void CoordinateFetch::Take(const FoundStation& station) {
  Save(station);
  lookUp_->GetPicture(station.call);
  PointerNormal();
  // Last, because the receiver may begin another fetch.
  if (IsTyped()) Q_EMIT Found(station);
}

// A record keeps its place if the page has none, and the rest of it if the page has no name.
void CoordinateFetch::Save(const FoundStation& station) {
  if (station.name.isEmpty() && !station.IsPlaced()) return;
  const std::optional<FoundRecord> old = deps_.database.Find(station.call);
  DbRec record = station.Record();
  if (old && !station.IsPlaced()) {
    record.Lat = old->record.Lat;
    record.Lon = old->record.Lon;
  }
  if (old && station.name.isEmpty()) {
    record = old->record;
    record.Lat = CoordinateText(station.lat);
    record.Lon = CoordinateText(station.lon);
  }
  deps_.database.SaveStation(station.call, record, this, [this, call = station.call](bool durable) {
    if (durable) Q_EMIT Stored(call);
  });
}

// The body may be an error page, so it is measured first: only a picture is stored.
void CoordinateFetch::GotPic(const QString& call) {
  // Form3 and Form7 have always asked for the picture, and never taken it.
  if (!rules_.keepsPicture) return;
  const QByteArray bytes = lookUp_->LookupBytes;
  const QString path = OperatorPicturePath(deps_.program.AppDataDir, call);
  deps_.tool.Measure(bytes, this, [this, bytes, path, call](const PictureAnswer& answer) {
    if (!answer.ok) return;
    deps_.background.Run<bool>(
        this, [path, bytes]() { return WriteOperatorPicture(path, bytes); },
        [this, call](bool written) {
          if (written) Q_EMIT PictureStored(call);
        });
  });
}

void CoordinateFetch::Fail(Message message) {
  failed_ = true;
  // Nothing is said about a call that is no longer in the field.
  if (message == Message::NoCall || IsTyped()) message_ = message;
  PointerNormal();
  if (message_ != Message::None) Q_EMIT Failed(call_);
}

void CoordinateFetch::PointerNormal() {
  view_.busy = false;
  WriteTexts();
  Q_EMIT Changed();
}

void CoordinateFetch::ShowTexts() {
  WriteTexts();
  Q_EMIT Changed();
}

// Writes all texts of the view that are in the user's language.
void CoordinateFetch::WriteTexts() {
  const Program& program = deps_.program;
  view_.status = statusLine_ ? program.language[*statusLine_].trimmed() : QString();
  view_.message = MessageText();
  const QString call =
      shown_.isEmpty() ? program.language[TextLine::kCallsignWord].trimmed() : shown_.left(kLongestShown);
  const QString status = rules_.statusInCaption ? view_.status : QString();
  view_.caption = FetchCaption(program.language[rules_.caption], call, program.config.CallbookName, status);
  if (rules_.failureInCaption && message_ != Message::None && message_ != Message::NoCall) {
    view_.caption += "\r\n"_L1 + view_.message;
  }
  view_.enabled = !shown_.isEmpty();
}

QString CoordinateFetch::MessageText() const {
  switch (message_) {
    case Message::None:
      break;
    case Message::NoCall:
      return tr("This is no callsign.");
    case Message::NotFound:
      return tr("%1 not found on %2").arg(call_, service_);
    case Message::LoginNeeded:
      return deps_.program.language[TextLine::kLoginNeeded].trimmed();
  }
  return {};
}

QString CoordinateFetch::DerivedNote() const {
  return tr("* Coordinates not available from %1\n    Derived from address or zipcode.")
      .arg(deps_.program.config.CallbookName);
}
