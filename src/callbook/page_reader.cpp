// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/page_reader.h"

#include <array>

#include "callbook/callbook_service.h"
#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace {

using Event = NameReading::Event;

enum Service { eHam = 1, QRZ, QRZCQ, Callook, HamCall };

constexpr auto kLineEnd = "\r\n"_L1;

// First place of `what` at `from` or later; 0: none. Also 0 if `from` lies beyond the end or below 1, as ParsePos does
// after a field whose end was not found.
template <typename Text>
qint32 PlaceOf(const QString& page, const Text& what, qint32 from = 1) {
  if (from < 1 || from > page.size()) return 0;
  return static_cast<qint32>(page.indexOf(what, from - 1) + 1);
}

// The last line end that begins at `from` or before; 0: none.
qint32 LineEndBefore(const QString& page, qint32 from) {
  return from < 1 ? 0 : static_cast<qint32>(page.lastIndexOf(kLineEnd, from - 1) + 1);
}

// `length` characters from `place` on, fewer at the end of the page. Empty for a place below 1 or a length below 0,
// which result from a mark that was not found.
QString Cut(const QString& page, qint32 place, qint32 length) {
  return place < 1 || length < 0 ? QString() : page.mid(place - 1, length);
}

// Removes blanks only: a tab between two table cells is part of a field.
QString Trimmed(const QString& text) {
  qsizetype begin = 0;
  qsizetype end = text.size();
  while (begin < end && text[begin] == u' ') ++begin;
  while (end > begin && text[end - 1] == u' ') --end;
  return text.mid(begin, end - begin);
}

NameReading Unknown() {
  return {.name = {}, .event = Event::CallNotFound};
}

// For services on whose pages a missing name means an unknown call.
NameReading Named(const QString& name) {
  return {.name = name, .event = name.isEmpty() ? Event::CallNotFound : Event::None};
}

NameReading eHamName(const QString& page, const QString& call, qint32& parsePos) {
  if (PlaceOf(page, "Country"_L1) == 0) return Unknown();
  qint32 p = PlaceOf(page, "Search Results"_L1);
  if (p == 0) return Unknown();
  // If the results do not repeat the call, p becomes 0, the search goes on from the top of the page, and the page's
  // second line is taken for the name.
  p = PlaceOf(page, call, p + 3);
  p = PlaceOf(page, kLineEnd, p + 3);
  parsePos = PlaceOf(page, kLineEnd, p + 3);
  return Named(Trimmed(Cut(page, p + 2, (parsePos - p) - 2)));
}

NameReading QrzName(const QString& page, const QString& call, qint32& parsePos) {
  if (PlaceOf(page, "produced no results"_L1) > 0) return Unknown();
  if (PlaceOf(page, "Login is required"_L1) > 0) return {.name = {}, .event = Event::LoginRequired};
  const qint32 p = PlaceOf(page, call);
  if (p == 0) return Unknown();
  parsePos = PlaceOf(page, ","_L1, p);
  const qint32 q = LineEndBefore(page, parsePos);
  return Named(Cut(page, q + 2, (parsePos - q) - 2));
}

// First place from `first` to `last` whose character sorts behind "@", that is a letter (digits, blanks and points are
// skipped); the place behind `last` if there is none.
qint32 LetterBetween(const QString& page, qint32 first, qint32 last) {
  qint32 i = first;
  while (i <= last && (i > page.size() || page[i - 1] <= u'@')) ++i;
  return i;
}

// The name is not trimmed, and an empty one does not mean an unknown call.
NameReading QrzcqName(const QString& page, const QString&, qint32& parsePos) {
  if (PlaceOf(page, "Error"_L1) > 0) return Unknown();
  const qint32 site = PlaceOf(page, "QRZCQ.com"_L1);
  if (site == 0) return Unknown();
  qint32 i = 0;
  // The page greets a user who is logged in ("Buddy") above the name.
  if (const qint32 b = PlaceOf(page, "Buddy"_L1); b > 0) {
    i = LetterBetween(page, b + 5, b + 20);
    parsePos = PlaceOf(page, kLineEnd, i + 5);
  } else {
    const qint32 p = PlaceOf(page, kLineEnd, site);
    i = LetterBetween(page, p + 2, p + 20);
    parsePos = PlaceOf(page, kLineEnd, i + 2);
  }
  return {.name = Cut(page, i, parsePos - i), .event = Event::None};
}

NameReading CallookName(const QString& page, const QString&, qint32& parsePos) {
  const qint32 p = PlaceOf(page, "Show Map"_L1);
  if (p == 0) return Unknown();
  parsePos = PlaceOf(page, kLineEnd, p + 3);
  return {.name = Trimmed(Cut(page, p + 9, (parsePos - p) - 9)), .event = Event::None};
}

// A page without "callsign database!" means an unknown call. A name is still returned then, cut from the start of the
// page to ParsePos; the caller has been told by the event that the call is unknown.
NameReading HamCallName(const QString& page, const QString&, qint32& parsePos) {
  qint32 p = PlaceOf(page, "callsign database!"_L1);
  const Event event = p == 0 ? Event::CallNotFound : Event::None;
  if (p > 0) {
    p = PlaceOf(page, kLineEnd, p + 3);
    if (p > 0) parsePos = PlaceOf(page, ","_L1, p + 3);
  }
  if (parsePos < 1) return {.name = {}, .event = event};
  return {.name = Trimmed(Cut(page, p + 4, (parsePos - p) - 4)), .event = event};
}

// How a field is found: its value begins `skip` characters after the start of the marker and ends at the terminator,
// which is searched for from `terminatorFrom` characters after the start of the marker. An empty marker: the service
// does not give the field.
struct Field {
  QLatin1String marker;
  QLatin1String terminator = {};
  qint32 terminatorFrom = 2;
  qint32 skip = 0;
  qint32 less = skip;  // number of characters by which the value is shorter than the distance from marker to terminator
};

using Fields = std::array<Field, kCallbookServices>;  // by service

constexpr Fields kLatitude = {{
    {"Latitude"_L1, kLineEnd, 3, 9},
    {"Latitude"_L1, " "_L1, 2, 8},
    {"Latitude"_L1, " "_L1, 2, 9},
    {"Latitude"_L1, kLineEnd, 2, 9},
    {"Latitude"_L1, ","_L1, 2, 9},
}};

constexpr Fields kLongitude = {{
    {"Longitude"_L1, kLineEnd, 3, 10},
    {"Longitude"_L1, " "_L1, 2, 9},
    {"Longitude"_L1, " "_L1, 2, 10},
    {"Longitude"_L1, kLineEnd, 2, 10},
    {"Longitude"_L1, ","_L1, 2, 10},
}};

constexpr Fields kClass = {{
    {"License Class"_L1, kLineEnd, 2, 14},
    {"Class"_L1, " "_L1, 2, 5},
    {"Class"_L1, kLineEnd, 2, 7},
    {"Class"_L1, kLineEnd, 2, 7},
    {"License Class"_L1, kLineEnd, 2, 15},
}};

constexpr Fields kDateOfBirth = {{
    {},
    {"Born"_L1, kLineEnd, 2, 4},
    {},
    {},
    {"Birth Date"_L1, kLineEnd, 2, 12},
}};

constexpr Fields kGrid = {{
    {},
    {"Grid Square"_L1, kLineEnd, 2, 11},
    {},
    // Begins two characters later than QRZ's but is no shorter, so that it includes the line end.
    {"Grid Square"_L1, kLineEnd, 2, 13, 11},
    {},
}};

constexpr Fields kWebAddress = {{
    {},
    {"Web Page"_L1, kLineEnd, 2, 8},
    {},
    {},
    {},
}};

// Reads a field of a service, searching from a place on. parsePos becomes the place of the terminator, 0 if there is
// none.
QString Read(const QString& page, qint32& parsePos, const Fields& fields, int database, qint32 from = 1) {
  if (FindCallbookService(database) == nullptr) return {};
  const Field& field = fields[static_cast<std::size_t>(database - 1)];
  if (field.marker.isEmpty()) return {};
  const qint32 p = PlaceOf(page, field.marker, from);
  if (p == 0) return {};
  parsePos = PlaceOf(page, field.terminator, p + field.terminatorFrom);
  return Cut(page, p + field.skip, (parsePos - p) - field.less);
}

// On HamCall's pages a value that ends in "S" or "W" is negative.
double Degrees(const QString& text, int database, QChar negative) {
  const double value = Val(text);
  return database == HamCall && text.endsWith(negative) ? -value : value;
}

}  // namespace

bool PageReader::LoggedIn(int database) const {
  const CallbookService* service = FindCallbookService(database);
  return service != nullptr && !service->loginText.isEmpty() && PageText.contains(service->loginText);
}

// behindStart: number of characters by which the line is shorter than the distance between the two line ends.
QString PageReader::NextLine(qint32 behindStart) {
  const qint32 p = PlaceOf(PageText, kLineEnd, ParsePos);
  if (p == 0) return {};
  ParsePos = PlaceOf(PageText, kLineEnd, p + 2);
  return Cut(PageText, p + 2, (ParsePos - p) - behindStart);
}

NameReading PageReader::cName(int database, const QString& call) {
  LastCall = call;
  switch (database) {
    case eHam:
      return eHamName(PageText, call, ParsePos);
    case QRZ:
      return QrzName(PageText, call, ParsePos);
    case QRZCQ:
      return QrzcqName(PageText, call, ParsePos);
    case Callook:
      return CallookName(PageText, call, ParsePos);
    case HamCall:
      return HamCallName(PageText, call, ParsePos);
    default:
      return {};
  }
}

QString PageReader::Add1(int database) {
  return FindCallbookService(database) == nullptr ? QString() : NextLine();
}

QString PageReader::Add2(int database) {
  if (FindCallbookService(database) == nullptr) return {};
  // HamCall ends the line with three characters that are not part of the town.
  return NextLine(database == HamCall ? 5 : 2);
}

QString PageReader::ctry(int database) {
  // Callook has the calls of one country only, and does not print its name.
  if (database == Callook) return u"U.S.A."_s;
  return FindCallbookService(database) == nullptr ? QString() : NextLine();
}

double PageReader::Latitude(int database) {
  return Degrees(Read(PageText, ParsePos, kLatitude, database), database, u'S');
}

double PageReader::Longitude(int database) {
  return Degrees(Read(PageText, ParsePos, kLongitude, database), database, u'W');
}

QString PageReader::Class(int database) {
  if (database != QRZ) return Read(PageText, ParsePos, kClass, database);
  // QRZ has the word "Class" in its menus too, so search behind "QRZ Record"; and the blank that ends the value may
  // come lines later.
  const QString text = Read(PageText, ParsePos, kClass, database, PlaceOf(PageText, "QRZ Record"_L1));
  return text.left(text.indexOf(kLineEnd));
}

QString PageReader::DateOfBirth(int database) {
  const QString text = Read(PageText, ParsePos, kDateOfBirth, database);
  return database == HamCall ? text.right(4) : text;
}

// Always empty: the former call could be read only from the page's source, which is not kept.
QString PageReader::PrevCall(int) const {
  return {};
}

QString PageReader::Grid(int database) {
  return Read(PageText, ParsePos, kGrid, database);
}

QString PageReader::WebAddress(int database) {
  return Read(PageText, ParsePos, kWebAddress, database);
}
