// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/hover_tip.h"

#include <QFileInfo>
#include <optional>

#include "callbook/call_entry.h"
#include "callbook/operator_picture.h"
#include "callbook/station_place.h"
#include "station/callsign.h"
#include "station/date_text.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kTipDelay = 3000ms;
constexpr qsizetype kTimeLength = 5;  // "hh:mm" at the end of a sent time
constexpr auto kLineEnd = "\r\n"_L1;

// The station that a tip is about.
struct Operator {
  bool inDatabase = false;
  QString name;
  QString address;
  QString country;
  double lat = 0;
  double lon = 0;
};

// The sender's call. Empty if there is no picture, or if the picture is one that the site itself has transmitted (its
// caller is the name of the file, "TX...").
QString SenderOf(const TipSubject& subject) {
  const QString& caller = subject.caller;
  if (caller.startsWith("TX"_L1) || caller == "Not found"_L1) return {};
  return QString(caller).replace(u'Ø', u'0');
}

QString FirstWord(const QString& name) {
  return name.left(name.indexOf(u' '));
}

// The place comes from the call database, and from the site list for a call that the database does not place.
Operator LookUp(const Program& program, CallDatabase& database, const QString& sender) {
  const QString call = CutAtFirstOther(sender);
  const TargetLocation target = PlaceOf(program, database, call);
  Operator result{target.InDatabase, {}, {}, {}, target.TargetLat, target.TargetLon};
  if (result.inDatabase) {
    result.name = target.Name;
    result.address = target.Add1;
    result.country = target.Ctry;
  } else {
    result.address =
        u' ' +
        QString(program.language[TextLine::kNotInDatabase]).replace("???"_L1, ShownCall(call, program.ZeroGlyph));
  }
  const std::optional<QString> nickname = Nickname(program.nicknames.lstNicknames, call);
  result.name = nickname.value_or(FirstWord(result.name));
  return result;
}

// " 5,704 km 50° "; zeros for a station whose place is not known.
QString DistanceOf(const Program& program, const Operator& station) {
  const Config& config = program.config;
  const QLocale locale = LanguageLocale(config.LanguageName);
  if (!IsKnownPosition(station.lat, station.lon)) return DistAzText(DistAz(), config.DistUnit, locale);
  return DistAzText(config.MyLat, config.MyLon, station.lat, station.lon, config.DistUnit, locale);
}

QString OperatorLines(const Operator& station) {
  return station.name + u' ' + kLineEnd + u' ' + station.address + u' ' + kLineEnd + u' ' + station.country + u' ' +
         kLineEnd + kLineEnd + u' ';
}

QString SentText(const QString& sentTime, const QLocale& locale) {
  // A sent time that is no date is shown as the picture's tail had it.
  const QDateTime when = ReadDate(sentTime);
  const QString date = when.isValid() ? ShownDate(when.date(), locale) : sentTime.section(u' ', 0, 0);
  return u' ' + date + u"  "_s + sentTime.right(kTimeLength) + (sentTime.isEmpty() ? u" "_s : u" UTC  "_s);
}

}  // namespace

QString TipTexts::Shown() const {
  if (HoverText.isEmpty() || imgTip.isEmpty()) return HoverText + imgTip;
  return HoverText + kLineEnd + u' ' + imgTip + u' ';
}

std::optional<TipSubject> TipSubjectOf(const Program& program, int slot) {
  const PageState& page = program.page;
  if (!page.OnDsstvPage()) return std::nullopt;
  return TipSubject{page.Field(slot, Caller), page.Field(slot, ModeText), page.Field(slot, SentTime),
                    page.Field(slot, SlotCall)};
}

TipTexts PictureTip(const Program& program, CallDatabase& database, const std::optional<TipSubject>& subject) {
  const QString sender = subject ? SenderOf(*subject) : QString();
  if (CutAtFirstOther(sender).isEmpty()) return {};
  TipTexts tip;
  tip.call = CutAtFirstOther(sender);
  const QString shownCall = ShownCall(tip.call, program.ZeroGlyph);
  if (!IsKnownPosition(program.config.MyLat, program.config.MyLon)) {
    tip.imgTip = program.language[TextLine::kSetLocation];
    return tip;
  }
  const Operator station = LookUp(program, database, sender);
  if (!IsKnownPosition(station.lat, station.lon)) {
    tip.imgTip = QString(program.language[TextLine::kNoLocation]).replace("??"_L1, shownCall);
  }
  tip.HoverText = u' ' + shownCall + u"  "_s + OperatorLines(station) + subject->modeText + u"   "_s +
                  DistanceOf(program, station) + kLineEnd +
                  SentText(subject->sentTime, LanguageLocale(program.config.LanguageName));
  return tip;
}

TipTexts CaptionTip(const Program& program, CallDatabase& database, const std::optional<TipSubject>& subject,
                    TipPart part) {
  if (!subject) return {};
  const QString sender = part == TipPart::Call ? QString() : SenderOf(*subject);
  const QString whose = sender.isEmpty() ? subject->site : sender;
  TipTexts tip;
  tip.call = CutAtFirstOther(whose);
  if (tip.call.isEmpty()) return tip;
  if (!IsKnownPosition(program.config.MyLat, program.config.MyLon)) {
    tip.HoverText = program.language[TextLine::kSetLocation];
    return tip;
  }
  const Operator station = LookUp(program, database, whose);
  if (IsKnownPosition(station.lat, station.lon)) {
    tip.HoverText = u' ' + OperatorLines(station) + DistanceOf(program, station);
  } else {
    tip.HoverText = station.inDatabase ? program.language[TextLine::kNoPosition] : station.address.trimmed();
  }
  return tip;
}

HoverTip::HoverTip(const Program& program, CallDatabase& database, QObject* parent)
    : HoverTip(
          program, database, [&program](int slot) { return TipSubjectOf(program, slot); }, parent) {}

HoverTip::HoverTip(const Program& program, CallDatabase& database, const SubjectOf& subjectOf, QObject* parent)
    : QObject(parent), program_(program), database_(database), subjectOf_(subjectOf) {
  for (QTimer* timer : {&Timer7, &Timer8}) {
    timer->setSingleShot(true);
    timer->setInterval(kTipDelay);
  }
  connect(&Timer7, &QTimer::timeout, this, &HoverTip::Timer7Tick);
  connect(&Timer8, &QTimer::timeout, this, &HoverTip::Timer8Tick);
}

void HoverTip::Enter(int slot, TipPart part) {
  under_ = {slot, part};
  if (under_ == shown_) {
    Timer8.stop();
    return;
  }
  // A tip that is about to go by itself stays while the pointer crosses to the next cell.
  if (!Timer8.isActive()) HideTip();
  Timer7.stop();
  const QString reason = BoxReason && part == TipPart::Picture ? BoxReason(slot) : QString();
  if (!reason.isEmpty()) {
    texts_ = {{}, {}, reason};
  } else if (part == TipPart::Picture) {
    texts_ = PictureTip(program_, database_, subjectOf_(slot));
  } else {
    texts_ = CaptionTip(program_, database_, subjectOf_(slot), part);
  }
  // The cell's description has the reason already, and keeps it when the pointer has left.
  Q_EMIT Built(slot, reason.isEmpty() ? texts_.Shown() : QString());
  if (texts_.Shown().isEmpty()) return;
  // No tip opens while a poll runs.
  if (program_.page.SitesDone >= program_.page.SitesOnPage) Timer7.start();
}

void HoverTip::Leave() {
  under_ = {};
  if (shown_.slot >= 0 && !Timer8.isActive()) Timer8.start();
}

void HoverTip::Focus(int slot) {
  if (slot < 0) {
    Leave();
  } else {
    Enter(slot, TipPart::Picture);
  }
}

bool HoverTip::Close() {
  Timer7.stop();
  Timer8.stop();
  const bool stood = shown_.slot >= 0;
  under_ = {};
  HideTip();
  return stood;
}

void HoverTip::Timer7Tick() {
  if (under_.slot < 0 || (MenuIsOpen && MenuIsOpen())) return;
  shown_ = under_;
  Q_EMIT Show(shown_.slot, texts_.Shown(), PicturePath());
}

void HoverTip::Timer8Tick() {
  if (under_ != shown_) HideTip();
}

void HoverTip::HideTip() {
  if (shown_.slot < 0) return;
  shown_ = {};
  Q_EMIT Hide();
}

QString HoverTip::PicturePath() const {
  const QString path = OperatorPicturePath(program_.AppDataDir, texts_.call);
  // A lookup that failed leaves an empty file.
  const QFileInfo file(path);
  return file.isFile() && file.size() > 0 ? path : QString();
}
