// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/update_file.h"

#include <QSet>
#include <QUrl>
#include <algorithm>
#include <array>

#include "core/site_table.h"
#include "platform/text/numbers.h"
#include "platform/text/text_file.h"
#include "station/date_text.h"
#include "station/picture_date.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kSectionEnd = "/////5\r\n";
constexpr auto kSectionEndText = "/////5\r\n"_L1;
constexpr qsizetype kLongestHeader = 200;  // bytes
constexpr int kOldestDays = 30;
constexpr qsizetype kSections = 7;
constexpr qsizetype kMostSites = 5'000;
constexpr qsizetype kMostLines = 100'000;  // of the other sections
constexpr qsizetype kLongestCall = 40;
constexpr qsizetype kLongestAddress = 2'000;

// Size and age. Tested before anything is decoded: most files that are none fail here.
bool IsFresh(const QByteArray& bytes, QDate today) {
  const qsizetype end = QByteArrayView(bytes).first(std::min(bytes.size(), kLongestHeader)).indexOf(kSectionEnd);
  if (end < 0) return false;
  const QStringList header = DecodeText(bytes.first(end)).split(u'*');
  if (header.size() < 2 || Val(header.at(0)) != static_cast<double>(bytes.size())) return false;
  const QDateTime date = ReadDate(NormaliseDate(header.at(1)).trimmed());
  return date.isValid() && date.date().daysTo(today) <= kOldestDays;
}

// Degrees up to a limit, with a point or a comma.
std::optional<double> DegreesOf(QStringView text, double limit) {
  const QString number = text.trimmed().toString().replace(u',', u'.');
  const double degrees = Val(number);
  return IsPlainNumber(number) && qAbs(degrees) <= limit ? std::optional(degrees) : std::nullopt;
}

std::optional<GivenPlace> PlaceOf(QStringView lat, QStringView lon) {
  if (lat.trimmed().isEmpty() && lon.trimmed().isEmpty()) return GivenPlace();
  const std::optional<double> north = DegreesOf(lat, 90);
  const std::optional<double> east = DegreesOf(lon, 180);
  if (!north || !east) return std::nullopt;
  return GivenPlace{true, *north, *east};
}

QString CallOf(QStringView text) {
  return text.trimmed().toString().replace(u'Ø', u'0');
}

bool IsCall(const QString& call) {
  return !call.isEmpty() && call.size() <= kLongestCall &&
         std::all_of(call.cbegin(), call.cend(), [](QChar c) { return c.isPrint(); });
}

// A site without pictures says so in place of its address.
bool IsAddress(const QString& url) {
  if (url.size() > kLongestAddress || std::any_of(url.cbegin(), url.cend(), [](QChar c) { return c < u' '; }))
    return false;
  if (url.contains("cam only"_L1, Qt::CaseInsensitive)) return true;
  const QUrl address(url);
  return (address.scheme() == "http"_L1 || address.scheme() == "https"_L1) && !address.host().isEmpty();
}

// The fields of a line, at most as many as are used; the rest stays with the last.
QList<QStringView> FieldsOf(QStringView line) {
  QList<QStringView> fields;
  for (int i = 0; i < 4; ++i) {
    const qsizetype star = line.indexOf(u'*');
    fields.append(star < 0 ? line : line.first(star));
    if (star < 0) break;
    line = line.sliced(star + 1);
  }
  return fields;
}

// Lines behind the first of a section, without the empty one behind the last line end.
QList<QStringView> LinesOf(QStringView section) {
  QList<QStringView> lines = section.split(u'\n');
  lines.removeFirst();
  if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  return lines;
}

QList<ListedStation> StationsIn(QStringView section) {
  QList<ListedStation> stations;
  for (const QStringView line : LinesOf(section)) {
    const QList<QStringView> fields = FieldsOf(line);
    if (fields.size() < 3) continue;
    const QString call = CallOf(fields.at(0));
    const std::optional<GivenPlace> place = PlaceOf(fields.at(1), fields.at(2));
    if (IsCall(call) && place && place->isGiven) stations.append({call, *place});
  }
  return stations;
}

QList<ChangedCall> CallsIn(QStringView section) {
  QList<ChangedCall> calls;
  for (const QStringView line : LinesOf(section)) {
    const QList<QStringView> fields = FieldsOf(line);
    if (fields.size() != 2) continue;
    const ChangedCall changed{CallOf(fields.at(0)), CallOf(fields.at(1))};
    if (IsCall(changed.before) && IsCall(changed.after)) calls.append(changed);
  }
  return calls;
}

ListedSite SiteOf(QStringView first, QStringView second) {
  const QList<QStringView> fields = FieldsOf(first);
  ListedSite site;
  site.call = CallOf(fields.at(0));
  // The mark is the user's; the author cannot set it.
  site.url = PlainUrl(second.trimmed().toString());
  if (fields.size() > 3) site.camUrl = fields.at(3).trimmed().toString();
  const std::optional<GivenPlace> place = fields.size() < 3 ? std::nullopt : PlaceOf(fields.at(1), fields.at(2));
  if (place) site.place = *place;
  site.isUsable = place && IsCall(site.call) && IsAddress(site.url) && !site.camUrl.contains(u'*') &&
                  (site.camUrl.isEmpty() || IsAddress(site.camUrl));
  return site;
}

// Two lines a site, from the first line of the section on.
std::optional<QList<ListedSite>> SitesIn(QStringView section) {
  const QList<QStringView> lines = section.split(u"\r\n");
  if (lines.size() / 2 > kMostSites) return std::nullopt;
  QList<ListedSite> sites;
  QSet<QString> seen;
  for (qsizetype i = 0; i + 1 < lines.size(); i += 2) {
    const ListedSite site = SiteOf(lines.at(i), lines.at(i + 1));
    const QString key = site.call.toCaseFolded();
    if (site.call.isEmpty() || seen.contains(key)) continue;
    seen.insert(key);
    sites.append(site);
  }
  // A list without any site would take every site of the user away.
  if (sites.isEmpty()) return std::nullopt;
  return sites;
}

}  // namespace

std::optional<UpdateFile> ReadUpdateFile(const QByteArray& bytes, QDate today) {
  if (!IsFresh(bytes, today)) return std::nullopt;
  const QString text = DecodeText(bytes);
  QStringView rest(text);
  std::array<QStringView, kSections> sections;
  for (qsizetype i = 0; i < kSections; ++i) {
    const qsizetype end = rest.indexOf(kSectionEndText);
    if (end < 0 && i + 1 < kSections) return std::nullopt;
    sections.at(static_cast<std::size_t>(i)) = end < 0 ? rest : rest.first(end);
    if (end >= 0) rest = rest.sliced(end + kSectionEndText.size());
  }
  // Counted before the lines become lists, which take several times the file's memory.
  for (const std::size_t i : {2U, 4U, 6U}) {
    if (sections.at(i).count(u'\n') > kMostLines) return std::nullopt;
  }
  const std::optional<QList<ListedSite>> sites = SitesIn(sections[6]);
  if (!sites) return std::nullopt;
  return UpdateFile{StationsIn(sections[2]), CallsIn(sections[4]), *sites};
}
