// SPDX-License-Identifier: GPL-3.0-or-later
// Which rows of the feed are shown and what is shown of them: the filter by band and mode, the look into the call
// database, the order. Plain functions, run beside the event loop by the sessions of On Air Now and of the on-air map.
#pragma once

#include <QHash>
#include <QList>
#include <optional>

#include "callbook/call_database.h"
#include "onair/check_boxes.h"
#include "onair/database_stamp.h"
#include "onair/on_air_row.h"

// One station as a row of gridOnAir, and as a point of the map.
struct OnAirEntry {
  QString call;       // plain zeros
  QString shownCall;  // with the glyph for zeros
  QString mode;
  QString frequency;  // MHz as shown, or the word that the source sent
  QString azimuth;    // degrees as shown, or the word for a missing location; empty for a call that is in no record
  QString extra;
  QString picture;                  // path of the operator's picture; empty: none is stored
  std::optional<double> kiloHertz;  // where the frequency is a number
  std::optional<double> degrees;    // where the azimuth is one
  double lat = 0;                   // of its record, in degrees; 0: unknown
  double lon = 0;

  bool operator==(const OnAirEntry&) const = default;
};

// What the texts of an entry follow.
struct OnAirSight {
  QString appDataDir;
  double myLat = 0;  // degrees
  double myLon = 0;
  QString missing;  // the language's word for a missing location
  QChar zeroGlyph = u'0';

  bool operator==(const OnAirSight&) const = default;
};

// Where a station is, and in which direction.
struct OnAirPlace {
  QString azimuth;
  std::optional<double> degrees;
  double lat = 0;
  double lon = 0;
};

// The look into the call database. Remembers what it has found until the file or what the texts follow is another, as
// nearly the same stations are on the air five minutes later. Serves one thread.
class OnAirPlaces {
 public:
  explicit OnAirPlaces(const CallReader& database) : database_(database) {}

  // Before the calls of a list are looked up.
  void Begin(const OnAirSight& sight);
  OnAirPlace Of(const QString& call);

 private:
  CallReader database_;
  OnAirSight sight_;
  DatabaseStamp stamp_;
  QHash<QString, OnAirPlace> known_;
};

// The columns of gridOnAir.
enum class OnAirColumn { Call, Mode, Frequency, Azimuth, Picture, Extra };
inline constexpr int kOnAirColumns = 6;

// The order in which entries stand; without a column that of the feed.
struct OnAirOrder {
  std::optional<OnAirColumn> column;
  bool descending = false;

  // The next one by a click on a column's head: up, down, none.
  OnAirOrder Clicked(OnAirColumn head) const;
};

// The rows that the ticked boxes let through, in the order of the feed; the frequency of some is put right. A row may
// come twice, as told in the source.
QList<OnAirRow> FilteredRows(const QList<OnAirRow>& rows, const CheckBoxes& ckBand, const CheckBoxes& ckMode,
                             const QStringList& lstBadCalls);
QList<OnAirEntry> EntriesOf(const QList<OnAirRow>& rows, const OnAirSight& sight, OnAirPlaces& places);
void SortEntries(QList<OnAirEntry>& entries, const OnAirOrder& order);

// kHz as MHz with three decimals and no zero before the point; none for 0 and for what is no finite number.
std::optional<double> KiloHertzOf(const QString& frequency);
QString FrequencyText(const QString& frequency);
