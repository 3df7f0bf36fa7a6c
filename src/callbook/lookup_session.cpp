// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/lookup_session.h"

#include <QFileInfo>

#include "callbook/call_entry.h"
#include "station/callsign.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kUnitsWide = 57;
constexpr double kUnitsHigh = 39;
// Height divided by width; flatter pictures are scaled by their width, others by their height.
constexpr double kFlatShape = 0.75;

}  // namespace

QSizeF PictureUnits(QSize pixels) {
  if (pixels.isEmpty()) return {};
  const QSizeF size(pixels);
  // A picture between the two shapes (0.68 to 0.75) comes out a little higher than 39 units.
  const bool flat = size.height() / size.width() < kFlatShape;
  return size / (flat ? size.width() / kUnitsWide : size.height() / kUnitsHigh);
}

LookupSession::LookupSession(const Dependencies& dependencies, QObject* parent)
    : QObject(parent),
      deps_(dependencies),
      signIn_(deps_.program.config, deps_.hosts, deps_.cookies, [this]() { return view_.busy; }) {
  connect(&signIn_, &SignInSession::ReadWanted, this, &LookupSession::Update);
  connect(&signIn_, &SignInSession::SignedOut, this, [this]() {
    // Update() does nothing without a call, but the offer has changed in any case.
    Q_EMIT Changed();
    Update();
  });
}

LookupSession::~LookupSession() = default;

// Makes a new ucLookUp for each call, so that reads for the former call are dropped with the former control, and the
// position in its last page too.
void LookupSession::MakeLookUp() {
  DropLookUp();
  lookUp_ = std::make_unique<ucLookUp>(deps_.network, deps_.hosts, deps_.pageText);
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
  // A signal of this very control may have led here, so it must not be deleted before the event loop turns.
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
  WriteTexts();
  Q_EMIT Changed();

  LookupCall = CutAtFirstOther(LookupCall.replace(u'Ø', u'0'));
  // Without a call the window keeps the progress text.
  if (LookupCall.isEmpty()) return;
  call_ = LookupCall;
  call_ = CleanCall(call_);
  if (call_.isEmpty()) {
    // No service is asked about a text that is no call.
    NotFound(LookupCall);
    return;
  }
  view_.busy = true;
  const std::optional<FoundRecord> found = deps_.database.Find(call_);
  if (found && !found->record.Name.Text().isEmpty() && found->record.Lat.Text() != "0"_L1) {
    ShowDbRecord(found->record);
  } else {
    BeginRead();
  }
}

void LookupSession::EndLookup() {
  DropLookUp();
  shown_.Withdraw();
  if (view_.busy) PointerNormal();
}

void LookupSession::BeginRead() {
  if (!lookUp_ || call_.isEmpty()) return;
  view_.busy = true;
  serviceName_ = deps_.program.config.CallbookName;
  lookUp_->Database = deps_.program.config.CallbookIndex;
  Q_EMIT Changed();
  lookUp_->GetPage(call_);
}

void LookupSession::ChooseService(int listIndex) {
  if (!ChooseCallbook(deps_.program.config, listIndex + 1, ServiceSpelling::Lookup)) return;
  signIn_.ServiceChanged();
  statusLine_.reset();
  WriteTexts();
  view_.picture = QImage();
  shown_.Withdraw();
  Q_EMIT Changed();
  BeginRead();
}

void LookupSession::Update() {
  if (!lookUp_ || call_.isEmpty()) return;
  BlankFields();
  ShowCallLine(CallLine::Progress);
  shown_.Withdraw();
  BeginRead();
}

void LookupSession::ShowDbRecord(const DbRec& record) {
  const Program& program = deps_.program;
  ShowCallLine(CallLine::FromDatabase, call_);
  view_.name = NameWithNickname(record.Name.Text(), call_);
  view_.add1 = record.Add1.Text();
  view_.add2 = record.Add2.Text();
  view_.ctry = record.Ctry.Text();
  const double lat = Coordinate(record.Lat.Text());
  const double lon = Coordinate(record.Lon.Text());
  ShowPlace(IsKnownPosition(lat, lon) ? PlaceLine::Known : PlaceLine::NotInRecord, lat, lon);
  // An empty file counts as no picture.
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
  deps_.tool.View(PicturePath(), pictureBox_, this, [this, token = shown_.Present()](const PictureAnswer& answer) {
    if (!token.StillWanted() || !answer.ok || answer.frames.isEmpty()) return;
    view_.picture = answer.frames.first().image;
    view_.pictureUnits = PictureUnits(answer.size);
    Q_EMIT Changed();
  });
}

void LookupSession::GotPage(const QString& call, bool loggedIn) {
  if (call != call_) return;
  signIn_.TakeLogin(lookUp_->Database, loggedIn);
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
  WriteTexts();
}

void LookupSession::ShowTexts() {
  WriteTexts();
  Q_EMIT Changed();
}

// Writes all texts of the view that are in the user's language.
void LookupSession::WriteTexts() {
  const Program& program = deps_.program;
  view_.title = QString(program.language[TextLine::kLookupTitle]).replace("??"_L1, titleCall_);
  view_.updateCaption =
      QString(program.language[TextLine::kLookupUpdate]).replace("***"_L1, program.config.CallbookName);
  view_.call = CallText();
  view_.dxAz = PlaceText();
  view_.status = statusLine_ ? program.language[*statusLine_] : QString();
  if (statusLine_) Q_EMIT LookupStatusChanged(view_.status);
}

void LookupSession::ShowCallLine(CallLine line, const QString& call) {
  callLine_ = line;
  lineCall_ = call;
  lineService_ = line == CallLine::Progress ? deps_.program.config.CallbookName : serviceName_;
  view_.call = CallText();
}

QString LookupSession::CallText() const {
  const LanguageTexts& texts = deps_.program.language;
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
  const LanguageTexts& texts = deps_.program.language;
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
  const Program& program = deps_.program;
  ShowCallLine(CallLine::FromService, call);
  unknownCall_ = false;
  const QString name = lookUp_->cName(call);
  view_.busy = false;
  view_.name.clear();
  // For one service cName returns a name even if the page says that the call is unknown; that name is neither shown nor
  // stored.
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

void LookupSession::SaveRecord(const QString& call, const DbRec& record) {
  deps_.database.SaveStation(call, record, this, [this, call](bool durable) {
    if (durable) Q_EMIT Stored(call);
  });
}

// The body may be an error page, so it is measured first: only a picture replaces the stored one.
void LookupSession::GotPic(const QString& call) {
  if (call != call_) return;
  const QByteArray bytes = lookUp_->LookupBytes;
  const QString path = PicturePath();
  deps_.tool.Measure(bytes, this, [this, bytes, path, token = shown_.Present()](const PictureAnswer& answer) {
    const auto show = [this, token](bool) {
      if (token.StillWanted()) ShowPicture();
    };
    if (!answer.ok) return show(false);
    deps_.background.Run<bool>(
        this, [path, bytes]() { return WriteOperatorPicture(path, bytes); }, show);
  });
}

void LookupSession::NotFound(const QString& call) {
  unknownCall_ = true;
  ShowCallLine(CallLine::NotFound, call);
  PointerNormal();
}

void LookupSession::LoginRequired(const QString& call) {
  Q_UNUSED(call)
  // From now on the window offers to sign in, whatever the page says about the login.
  signIn_.TakeLogin(lookUp_->Database, false);
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
  const QString nickname = Nickname(deps_.program.nicknames.lstNicknames, call).value_or(QString());
  return nickname.isEmpty() ? name : nickname + "  ("_L1 + name + u')';
}

QString LookupSession::DistanceText(double lat, double lon) const {
  const Config& config = deps_.program.config;
  if (!IsKnownPosition(config.MyLat, config.MyLon)) {
    return deps_.program.language[TextLine::kSetLocation].trimmed();
  }
  return DistAzText(config.MyLat, config.MyLon, lat, lon, config.DistUnit);
}
