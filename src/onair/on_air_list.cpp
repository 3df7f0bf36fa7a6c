// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_list.h"

#include <QDirIterator>
#include <QFileInfo>
#include <cmath>

#include "onair/bands.h"
#include "platform/paths.h"
#include "station/callsign.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestCell = 100;   // characters of a stranger's text in a cell
constexpr qsizetype kMostKnown = 50'000;  // calls that strangers have sent
constexpr auto kPeanut = "PEANUT"_L1;
constexpr auto kPeanutCode = "123"_L1;  // stands for it among the numbers

// Which boxes a row has to pass, by the steps of the list.
class Filter {
 public:
  Filter(const CheckBoxes& ckBand, const CheckBoxes& ckMode) : ckBand_(ckBand), ckMode_(ckMode) {}

  // How often a row of that band index and mode is shown. A row that no band claims yet has index 0, which is also the
  // box of all bands: with that box and its mode ticked it is found by both walks over the modes, and shown twice.
  int TimesShown(int band, const QString& mode) const {
    if (ckBand_.IsChecked(0) && ckMode_.IsChecked(0)) return 1;
    int times = 0;
    const bool modeTicked = HasTickedCaption(mode);
    if (ckBand_.IsChecked(0) && modeTicked) ++times;
    if (ckBand_.IsChecked(band) && modeTicked) ++times;
    if (ckMode_.IsChecked(0) && ckBand_.IsChecked(band)) ++times;
    return times;
  }

 private:
  // The sources pad their modes with blanks.
  bool HasTickedCaption(const QString& mode) const {
    const QString word = mode.trimmed();
    for (std::size_t i = 0; i < kModes.size(); ++i) {
      if (word == kModes[i]) return ckMode_.IsChecked(static_cast<int>(i) + 1);
    }
    return false;
  }

  const CheckBoxes& ckBand_;
  const CheckBoxes& ckMode_;
};

QString Cell(const QString& text) {
  return text.left(kLongestCell);
}

// The pictures of operators that are stored, by the name of their file in lower case.
QHash<QString, QString> StoredPictures(const QString& appDataDir) {
  QHash<QString, QString> pictures;
  QDirIterator files(ResolvePath(appDataDir, u"images/qrzImages"_s), {u"*.jpg"_s}, QDir::Files);
  while (files.hasNext()) {
    const QFileInfo file = files.nextFileInfo();
    // A lookup that failed leaves an empty file.
    if (file.size() > 0) pictures.insert(file.completeBaseName().toLower(), file.filePath());
  }
  return pictures;
}

// Whether the database holds a number there. The look-up reads anything else as 0, which is a coordinate like any
// other.
bool IsCoordinate(const QString& text) {
  bool ok = false;
  return std::isfinite(QString(text).replace(u',', u'.').trimmed().toDouble(&ok)) && ok;
}

bool IsNothing(const QString& text) {
  return text.isEmpty();
}

bool IsNothing(const std::optional<double>& number) {
  return !number.has_value();
}

int CompareTexts(const QString& a, const QString& b) {
  return a.compare(b, Qt::CaseInsensitive);
}

int CompareNumbers(const std::optional<double>& a, const std::optional<double>& b) {
  if (a == b) return 0;
  return *a < *b ? -1 : 1;
}

// What is empty comes last, whatever the direction; equals stay as they stood.
template <typename Value, typename Compare>
void SortBy(QList<OnAirEntry>& entries, bool descending, const Value& valueOf, const Compare& compare) {
  std::stable_sort(entries.begin(), entries.end(), [&](const OnAirEntry& left, const OnAirEntry& right) {
    const auto& a = valueOf(left);
    const auto& b = valueOf(right);
    const bool noA = IsNothing(a);
    const bool noB = IsNothing(b);
    if (noA || noB) return !noA && noB;
    return descending ? compare(b, a) < 0 : compare(a, b) < 0;
  });
}

}  // namespace

void OnAirPlaces::Begin(const OnAirSight& sight) {
  if (stamp_.HasChanged(sight.appDataDir) || sight != sight_ || known_.size() > kMostKnown) known_.clear();
  sight_ = sight;
}

OnAirPlace OnAirPlaces::Of(const QString& call) {
  const auto known = known_.constFind(call);
  if (known != known_.cend()) return *known;
  OnAirPlace place;
  const TargetLocation target = database_.LookupTargetLocation(call);
  // What lies beyond the poles or once around the world was never a position.
  const bool onEarth = std::abs(target.TargetLat) <= 90 && std::abs(target.TargetLon) <= 180;
  // Only both coordinates at 0 are no place here: a station on the prime meridian has a direction.
  const bool hasPlace = (target.TargetLat != 0 || target.TargetLon != 0) &&
                        IsCoordinate(database_.DbCurrent.Lat.Text()) && IsCoordinate(database_.DbCurrent.Lon.Text());
  if (target.InDatabase && onEarth && hasPlace) {
    place.lat = target.TargetLat;
    place.lon = target.TargetLon;
    if (sight_.myLat != 0 || sight_.myLon != 0) {
      place.degrees = GetDistAz(sight_.myLat, sight_.myLon, place.lat, place.lon, 0).azimuth;
      place.azimuth = QString::number(*place.degrees, 'f', 0) + u'°';
    }
  } else if (target.InDatabase) {
    place.azimuth = sight_.missing;
  }
  return *known_.insert(call, place);
}

std::optional<double> KiloHertzOf(const QString& frequency) {
  bool ok = false;
  const double number = frequency.trimmed().toDouble(&ok);
  return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

QString FrequencyText(const QString& frequency) {
  const std::optional<double> kiloHertz = KiloHertzOf(frequency);
  if (!kiloHertz) return Cell(frequency.trimmed());
  if (*kiloHertz == 0) return {};
  QString text = QString::number(*kiloHertz / 1000, 'f', 3);
  if (text.startsWith("0."_L1)) text.remove(0, 1);
  return Cell(text);
}

OnAirOrder OnAirOrder::Clicked(OnAirColumn head) const {
  if (column != head) return {head, false};
  return descending ? OnAirOrder() : OnAirOrder{head, true};
}

QList<OnAirRow> FilteredRows(const QList<OnAirRow>& rows, const CheckBoxes& ckBand, const CheckBoxes& ckMode,
                             const QStringList& lstBadCalls) {
  const Filter filter(ckBand, ckMode);
  QList<OnAirRow> shown;
  // A row whose frequency lies in no band counts with the band of the row before it.
  int band = 0;
  for (OnAirRow row : rows) {
    if (row.frequency == kPeanut) row.frequency = kPeanutCode;
    if (IsBadCall(row.call, lstBadCalls)) continue;
    if (const std::optional<double> kiloHertz = KiloHertzOf(row.frequency)) {
      band = BandOf(*kiloHertz, kFeedBands).value_or(band);
    }
    // A source that sent the code itself as its frequency is taken for the network too.
    if (row.frequency == kPeanutCode) {
      band = kPeanutBand;
      row.frequency = kPeanut;
    }
    for (int times = filter.TimesShown(band, row.mode); times > 0; --times) shown.append(row);
  }
  return shown;
}

QList<OnAirEntry> EntriesOf(const QList<OnAirRow>& rows, const OnAirSight& sight, OnAirPlaces& places) {
  const QHash<QString, QString> pictures = StoredPictures(sight.appDataDir);
  places.Begin(sight);
  QList<OnAirEntry> entries;
  entries.reserve(rows.size());
  for (const OnAirRow& row : rows) {
    const OnAirPlace place = places.Of(row.call);
    const QString frequency = FrequencyText(row.frequency);
    const std::optional<double> kiloHertz = frequency.isEmpty() ? std::nullopt : KiloHertzOf(row.frequency);
    entries.append({row.call, ShownCall(row.call, sight.zeroGlyph), Cell(row.mode.trimmed()), frequency, place.azimuth,
                    Cell(row.extra), pictures.value(row.call.toLower()), kiloHertz, place.degrees, place.lat,
                    place.lon});
  }
  return entries;
}

void SortEntries(QList<OnAirEntry>& entries, const OnAirOrder& order) {
  const auto byText = [&](QString OnAirEntry::*text) {
    SortBy(
        entries, order.descending, [text](const OnAirEntry& e) -> const QString& { return e.*text; }, CompareTexts);
  };
  const auto byNumber = [&](std::optional<double> OnAirEntry::*number) {
    SortBy(
        entries, order.descending, [number](const OnAirEntry& e) -> const auto& { return e.*number; }, CompareNumbers);
  };
  if (!order.column) return;
  switch (*order.column) {
    case OnAirColumn::Call:
      return byText(&OnAirEntry::call);
    case OnAirColumn::Mode:
      return byText(&OnAirEntry::mode);
    case OnAirColumn::Frequency:
      return byNumber(&OnAirEntry::kiloHertz);
    case OnAirColumn::Azimuth:
      return byNumber(&OnAirEntry::degrees);
    case OnAirColumn::Picture:
      return byText(&OnAirEntry::picture);
    case OnAirColumn::Extra:
      return byText(&OnAirEntry::extra);
  }
}
