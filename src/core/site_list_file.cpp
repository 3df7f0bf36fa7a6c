// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/site_list_file.h"

#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <optional>

#include "platform/paths.h"
#include "platform/text/numbers.h"
#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kOldLayouts = 4;
constexpr int kShortWxFields = 5;     // a line with fewer fields is from before the fourth layout
constexpr int kRecordStars = 4;       // a line with this many "*" is the first line of a record
constexpr int kShortestLastSeen = 8;  // characters; a shorter text is a time without a date

// Numbers of the fields in the first line of a record.
struct DsstvFields {
  int lastLayout = kLayouts;
  int lat = 7;
  int lon = 8;
  int lastSeen = 9;
  int camUrl = 10;
};
constexpr DsstvFields kNewFields;
constexpr DsstvFields kOldFields{kOldLayouts, 5, 6, 7, 8};

bool IsRecordLine(const QString& line) {
  return line.count(u'*') >= kRecordStars && !line.section(u'*', 0, 0).contains("://"_L1);
}

// True for an address in the place of a record's first line, which means that that first line is lost.
bool IsStrayAddress(const QString& line) {
  return !line.contains(u'*') && (line.contains("://"_L1) || line.contains("NoDelete"_L1));
}

bool IsBlankCall(QString call) {
  return call.remove(QChar(u'\0')).trimmed().isEmpty();
}

// Cuts off the seconds, by the place of the first ":". A date without a time stays as it is.
QString CutLastSeen(const QString& text) {
  const qsizetype colon = text.indexOf(u':');
  const QString cut = colon < 0 ? text : text.left(colon + 3);
  return cut.size() < kShortestLastSeen ? QString() : cut;
}

QString WithPlainZeros(QString call) {
  return call.replace(u'Ø', u'0');
}

QString MoreFields(const QStringList& fields, int known) {
  return fields.size() > known ? u'*' + fields.mid(known).join(u'*') : QString();
}

// Expands the runs of zeros that old lists packed into a letter: "a" is one zero, "t" are twenty.
QString Unpacked(const QString& packed) {
  QString unpacked;
  for (const QChar character : packed) {
    const bool isRun = character >= u'a' && character <= u't';
    unpacked += isRun ? QString(character.unicode() - u'a' + 1, u'0') : QString(character);
  }
  return unpacked;
}

// Page and slot tokens from an old list, which had one character a page: a digit or capital letter for the slot.
QString TokensOfOldLayout(const QString& packed) {
  const QString slotChars = Unpacked(packed).left(kDsstvPages);
  const auto lastTwoDigits = [](int value) { return QString::number(100 + value).right(2); };
  QStringList tokens;
  for (int page = 1; page <= slotChars.size(); ++page) {
    const int code = slotChars.at(page - 1).unicode();
    const int slot = code - (code < u'A' ? 48 : 55);
    if (slot > 0) {
      tokens.append(lastTwoDigits(page) + lastTwoDigits(slot));
    }
  }
  return tokens.join(u':');
}

SiteRec DsstvRecord(const QStringList& fields, const DsstvFields& places) {
  SiteRec site;
  site.Call = WithPlainZeros(fields.value(0));
  for (int layout = 1; layout <= places.lastLayout; ++layout) {
    site.PageSlots[static_cast<std::size_t>(layout)] = fields.value(layout);
  }
  const QString lat = fields.value(places.lat);
  const QString lon = fields.value(places.lon);
  site.Lat = Val(lat);
  site.Lon = Val(lon);
  site.LatText = IsPlainNumber(lat) ? QString() : lat;
  site.LonText = IsPlainNumber(lon) ? QString() : lon;
  site.LastSeen = CutLastSeen(fields.value(places.lastSeen));
  site.CamUrl = fields.value(places.camUrl);
  site.MoreFields = MoreFields(fields, places.camUrl + 1);
  return site;
}

SiteRec OldRecord(const QStringList& fields) {
  SiteRec site = DsstvRecord(fields, kOldFields);
  for (std::size_t layout = 1; layout <= kOldLayouts; ++layout) {
    site.PageSlots[layout] = TokensOfOldLayout(site.PageSlots[layout]);
  }
  return site;
}

SiteRec WxRecord(QStringList fields) {
  if (fields.size() < kShortWxFields) {
    fields.append(u"0"_s);
  }
  SiteRec site;
  site.Call = fields.at(0);
  for (int layout = 1; layout <= kLayouts && layout < fields.size(); ++layout) {
    const bool mayBeMissing = layout >= kShortWxFields;
    const QString& slot = fields.at(layout);
    site.PageSlots[static_cast<std::size_t>(layout)] = mayBeMissing && slot.isEmpty() ? u"0"_s : slot;
  }
  site.MoreFields = MoreFields(fields, kLayouts + 1);
  return site;
}

// A coordinate that was no number is written back as it was read, unless it has been given a new value.
QString CoordinateText(double value, const QString& asRead) {
  return !asRead.isEmpty() && Val(asRead) == value ? asRead : NumberText(value);
}

// Removes line ends: one inside a field would split the line of a record.
QString OneLine(QString text) {
  return text.remove(u'\r').remove(u'\n');
}

// Removes the separator, which a title that a user has typed may contain.
QString WithoutStars(QString text) {
  return text.remove(u'*');
}

QString SlotFields(const SiteRec& site) {
  QString text;
  for (std::size_t layout = 1; layout <= kLayouts; ++layout) {
    text += u'*' + site.PageSlots[layout];
  }
  return text;
}

QString DsstvLine(const SiteRec& site) {
  return OneLine(WithoutStars(WithPlainZeros(site.Call)) + SlotFields(site) + u'*' +
                 CoordinateText(site.Lat, site.LatText) + u'*' + CoordinateText(site.Lon, site.LonText) + u'*' +
                 site.LastSeen + u'*' + site.CamUrl + site.MoreFields);
}

QString WxLine(const SiteRec& site) {
  return OneLine(WithoutStars(site.Call) + SlotFields(site) + site.MoreFields);
}

template <typename LineOf>
bool WriteRecords(const QString& path, const QList<SiteRec>& records, LineOf lineOf, const QStringList& unusedLines) {
  QStringList lines;
  lines.reserve(2 * records.size() + unusedLines.size());
  for (const SiteRec& site : records) {
    if (!site.Call.isEmpty()) {
      lines.append(lineOf(site));
      lines.append(OneLine(site.Url));
    }
  }
  return WriteTextLines(path, lines + unusedLines);
}

QString DuplicateText(QLatin1String list, const SiteRec& site) {
  return "Duplicate removed from "_L1 + list + " list\n"_L1 + site.Call + "  "_L1 + site.Url;
}

// Of equal calls the first one stays. The messages come in the order of those that stay.
QStringList DropDsstvDuplicates(QList<SiteRec>& sites) {
  QHash<QString, qsizetype> firstOfCall;
  firstOfCall.reserve(sites.size());
  QMultiMap<qsizetype, qsizetype> duplicates;  // by the first of their call
  for (qsizetype i = 0; i < sites.size(); ++i) {
    const QString& call = std::as_const(sites).at(i).Call;
    if (call.isEmpty()) {
      continue;
    }
    const auto first = firstOfCall.constFind(call);
    if (first == firstOfCall.cend()) {
      firstOfCall.insert(call, i);
    } else {
      duplicates.insert(duplicates.upperBound(*first), *first, i);
    }
  }
  QStringList messages;
  for (const qsizetype place : std::as_const(duplicates)) {
    SiteRec& duplicate = sites[place];
    messages.append(DuplicateText("DSSTV"_L1, duplicate));
    duplicate.Call.clear();
  }
  return messages;
}

// Compares each record's address with the titles of the records before it, deliberately not with their addresses: two
// WX records with one address are both wanted, and only a title that equals a later record's address drops that record.
QStringList DropWxDuplicates(QList<SiteRec>& sites) {
  QHash<QString, QList<qsizetype>> placesOfUrl;
  for (qsizetype i = 0; i < sites.size(); ++i) {
    placesOfUrl[sites.at(i).Url].append(i);
  }
  QStringList messages;
  for (qsizetype i = 0; i < sites.size(); ++i) {
    const auto places = sites.at(i).Call.isEmpty() ? placesOfUrl.end() : placesOfUrl.find(sites.at(i).Call);
    if (places == placesOfUrl.end()) {
      continue;
    }
    const auto behind = std::upper_bound(places->cbegin(), places->cend(), i);
    for (auto place = behind; place != places->cend(); ++place) {
      SiteRec& duplicate = sites[*place];
      if (!duplicate.Call.isEmpty()) {
        messages.append(DuplicateText("WX"_L1, duplicate));
        duplicate.Call.clear();
      }
    }
    places->resize(behind - places->cbegin());
  }
  return messages;
}

}  // namespace

bool SiteListFile::Source::Exists() const {
  return QFileInfo::exists(path);
}

bool SiteListFile::Source::MayWrite() const {
  return !unreadable || !Exists();
}

// Reads pairs of lines. A lost or an additional line costs only its own record; a reader that merely counted lines
// would take every later address for a callsign.
QList<SiteRec> SiteListFile::Source::Read(Shape shape) {
  unusedLines.clear();
  const std::optional<QString> text = ReadTextFile(path);
  unreadable = !text.has_value() && Exists();
  const QStringList lines = SplitLines(text.value_or(QString()));
  QList<SiteRec> records;
  records.reserve(lines.size() / 2);
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const QString& line = lines.at(i);
    if (line.trimmed().isEmpty()) {
      continue;
    }
    if (IsStrayAddress(line)) {
      unusedLines.append(line);
      continue;
    }
    const bool hasUrl = i + 1 < lines.size() && !IsRecordLine(lines.at(i + 1));
    const QString url = hasUrl ? lines.at(++i) : QString();
    const QStringList fields = line.split(u'*');
    if (IsBlankCall(fields.at(0))) {
      // Keep a pair even without an address: in the next run a single line would take the line after it for its
      // address.
      unusedLines.append(line);
      unusedLines.append(url);
      continue;
    }
    records.append(shape == Shape::Wx      ? WxRecord(fields)
                   : shape == Shape::Older ? OldRecord(fields)
                                           : DsstvRecord(fields, kNewFields));
    records.last().Url = url;
  }
  return records;
}

SiteListFile::SiteListFile(SiteTable& sites, const QString& appDataDir)
    : sites_(sites),
      dsstv_{ResolvePath(appDataDir, u"Omni-Perch.lst"_s), {}},
      wx_{ResolvePath(appDataDir, u"WXsites.lst"_s), {}},
      older_{ResolvePath(appDataDir, u"OmniPerch.lst"_s), {}} {}

bool SiteListFile::HasSiteList() const {
  return dsstv_.Exists();
}

bool SiteListFile::HasWxSiteList() const {
  return wx_.Exists();
}

void SiteListFile::ConvertOldSiteList() {
  if (!older_.Exists()) {
    return;
  }
  sites_.Sites = older_.Read(Shape::Older);
  AddCamsOfSites();
  if (older_.unreadable) {
    return;
  }
  dsstv_.unusedLines = older_.unusedLines;
  WriteSites();
}

void SiteListFile::ReadSiteList(int layout) {
  if (dsstv_.Exists()) {
    sites_.Sites = dsstv_.Read(Shape::Dsstv);
    AddCamsOfSites();
  }
  sites_.SortSites();
  sites_.BuildPageSlots(layout);
}

void SiteListFile::ReadWxSiteList() {
  sites_.WxSites = wx_.Read(Shape::Wx);
  sites_.SortWxSites();
}

QStringList SiteListFile::DropDuplicates() {
  return DropDsstvDuplicates(sites_.Sites) + DropWxDuplicates(sites_.WxSites);
}

SiteListFile::Saved SiteListFile::SaveSiteLists(int layout) {
  Saved saved;
  saved.messages = DropDsstvDuplicates(sites_.Sites);
  sites_.StorePageSlots(layout);
  // Write no new list while an old one waits to be converted: once a new one exists, the old one is never tried again.
  const bool mayWrite = dsstv_.MayWrite() && !older_.unreadable;
  if (!mayWrite || !WriteSites()) {
    saved.notWritten.append(u"Omni-Perch.lst"_s);
  }
  saved.messages += DropWxDuplicates(sites_.WxSites);
  if (!wx_.MayWrite() || !WriteRecords(wx_.path, sites_.WxSites, WxLine, wx_.unusedLines)) {
    saved.notWritten.append(u"WXsites.lst"_s);
  }
  return saved;
}

SiteListFile::SiteListFile(SiteTable& sites, const SiteListFile& sources)
    : sites_(sites), dsstv_(sources.dsstv_), wx_(sources.wx_), older_(sources.older_) {}

std::function<QStringList()> SiteListFile::SaveLater(int layout) const {
  return [sites = sites_, sources = *this, layout]() mutable {
    return SiteListFile(sites, sources).SaveSiteLists(layout).notWritten;
  };
}

void SiteListFile::AddCamsOfSites() {
  QStringList calls;
  for (const SiteRec& site : std::as_const(sites_.Sites)) {
    if (!site.CamUrl.isEmpty()) {
      calls.append(site.Call);
    }
  }
  sites_.AddCams(calls);
}

bool SiteListFile::WriteSites() const {
  return WriteRecords(dsstv_.path, sites_.Sites, DsstvLine, dsstv_.unusedLines);
}
