// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stored_settings.h"

#include <algorithm>
#include <array>

#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1String kOwn("Omni-Perch");
constexpr QLatin1String kCompanion("TV Echo");

enum class Type { Number, Check, Text };
enum class Keys { One, Indexed };  // an indexed key has the index behind its name

struct Row {
  Setting setting;
  QLatin1String application;
  QLatin1String section;
  QLatin1String key;
  Keys keys;
  Type type;
  int fallback;
};

constexpr std::array<Row, 21> kRows = {{
    {Setting::PlacementFlags, kOwn, "Geometry"_L1, "flags"_L1, Keys::One, Type::Number, 0},
    {Setting::PlacementShowCmd, kOwn, "Geometry"_L1, "showCmd"_L1, Keys::One, Type::Number, WindowPlacement::kRestored},
    {Setting::PlacementMinX, kOwn, "Geometry"_L1, "MinX"_L1, Keys::One, Type::Number, 100},
    {Setting::PlacementMinY, kOwn, "Geometry"_L1, "MinY"_L1, Keys::One, Type::Number, 100},
    {Setting::PlacementLeft, kOwn, "Geometry"_L1, "Left"_L1, Keys::One, Type::Number, 0},
    {Setting::PlacementTop, kOwn, "Geometry"_L1, "Top"_L1, Keys::One, Type::Number, 0},
    {Setting::PlacementRight, kOwn, "Geometry"_L1, "Right"_L1, Keys::One, Type::Number, 100},
    {Setting::PlacementBottom, kOwn, "Geometry"_L1, "Bottom"_L1, Keys::One, Type::Number, 100},
    {Setting::MapLeft, kOwn, "MapLeft"_L1, ""_L1, Keys::Indexed, Type::Number, 0},
    {Setting::MapTop, kOwn, "MapTop"_L1, ""_L1, Keys::Indexed, Type::Number, 0},
    {Setting::PageLabel, kOwn, "LABELS"_L1, ""_L1, Keys::Indexed, Type::Text, 0},
    {Setting::SaveDir, kOwn, "SAVEDIR"_L1, "1"_L1, Keys::One, Type::Text, 0},
    {Setting::Block, kOwn, "Block"_L1, ""_L1, Keys::Indexed, Type::Text, 0},
    {Setting::PrintSize, kOwn, "Print"_L1, "Size"_L1, Keys::One, Type::Number, 5},
    {Setting::OnAirMapIndex, kOwn, "Map"_L1, "index"_L1, Keys::One, Type::Number, 6},
    {Setting::TxBand, kOwn, "TX"_L1, "band"_L1, Keys::One, Type::Number, 0},
    {Setting::TxMode, kOwn, "TX"_L1, "mode"_L1, Keys::One, Type::Number, 0},
    {Setting::OnAirBandCheck, kCompanion, "TX"_L1, "band"_L1, Keys::Indexed, Type::Check, 0},
    {Setting::OnAirModeCheck, kCompanion, "TX"_L1, "mode"_L1, Keys::Indexed, Type::Check, 0},
    {Setting::MapBandCheck, kCompanion, "TX"_L1, "MapBand"_L1, Keys::Indexed, Type::Check, 0},
    {Setting::MapModeCheck, kCompanion, "TX"_L1, "MapMode"_L1, Keys::Indexed, Type::Check, 0},
}};

const Row& RowOf(Setting setting) {
  return *std::find_if(kRows.begin(), kRows.end(), [&](const Row& row) { return row.setting == setting; });
}

QString KeyOf(const Row& row, int index) {
  return row.keys == Keys::Indexed ? row.key + QString::number(index) : QString(row.key);
}

// The section of the vertical offsets is written as "Maptop"; the store ignores letter case when it reads.
QString WrittenSection(const Row& row) {
  return row.setting == Setting::MapTop ? u"Maptop"_s : QString(row.section);
}

// Offsets of the nine maps that come with the program, in the order of lstMap, until the user drags them.
constexpr std::array<int, StoredSettings::kMaps> kFirstLeft = {0, 0, 0, 0, 0, 0, 0, 0, -303};
constexpr std::array<int, StoredSettings::kMaps> kFirstTop = {0, -1, -294, -109, -140, 0, -103, -267, -78};

int NumberOr(const QString& text, int fallback) {
  return HasLeadingNumber(text) ? WholeNumber(Val(text)) : fallback;
}

// Show states of a minimized window.
constexpr int kShowMinimized = 2;
constexpr int kMinimize = 6;

// Edges beyond this are garbage; their differences still fit an int.
constexpr int kFarthestEdge = 1'000'000;

}  // namespace

int StoredSettings::Number(Setting setting, int index) const {
  const Row& row = RowOf(setting);
  const QString text = store_.Value(row.application, row.section, KeyOf(row, index), QString());
  const int value = NumberOr(text, row.fallback);
  return row.type == Type::Check ? static_cast<int>(value != 0) : value;
}

void StoredSettings::SetNumber(Setting setting, int index, int value) {
  SetText(setting, index, QString::number(value));
}

QString StoredSettings::Text(Setting setting, int index, const QString& fallback) const {
  const Row& row = RowOf(setting);
  return store_.Value(row.application, row.section, KeyOf(row, index), fallback);
}

void StoredSettings::SetText(Setting setting, int index, const QString& value) {
  const Row& row = RowOf(setting);
  store_.SetValue(row.application, WrittenSection(row), KeyOf(row, index), value);
}

std::optional<WindowPlacement> StoredSettings::ReadPlacement() const {
  if (Text(Setting::PlacementShowCmd, 0, {}).isEmpty() && Text(Setting::PlacementLeft, 0, {}).isEmpty()) {
    return std::nullopt;
  }
  const auto edge = [&](Setting setting) { return std::clamp(Number(setting), -kFarthestEdge, kFarthestEdge); };
  const int left = edge(Setting::PlacementLeft);
  const int top = edge(Setting::PlacementTop);
  WindowPlacement placement;
  placement.flags = Number(Setting::PlacementFlags);
  placement.showCmd = Number(Setting::PlacementShowCmd);
  placement.minimized = {edge(Setting::PlacementMinX), edge(Setting::PlacementMinY)};
  placement.normal = {left, top, edge(Setting::PlacementRight) - left, edge(Setting::PlacementBottom) - top};
  return placement;
}

void StoredSettings::StorePlacement(const WindowPlacement& placement) {
  const bool isMinimized = placement.showCmd == kShowMinimized || placement.showCmd == kMinimize;
  SetNumber(Setting::PlacementFlags, placement.flags);
  SetNumber(Setting::PlacementShowCmd, isMinimized ? WindowPlacement::kNormal : placement.showCmd);
  SetNumber(Setting::PlacementMinX, placement.minimized.x());
  SetNumber(Setting::PlacementMinY, placement.minimized.y());
  SetNumber(Setting::PlacementLeft, placement.normal.x());
  SetNumber(Setting::PlacementTop, placement.normal.y());
  SetNumber(Setting::PlacementRight, placement.normal.x() + placement.normal.width());
  SetNumber(Setting::PlacementBottom, placement.normal.y() + placement.normal.height());
}

QList<int> StoredSettings::ReadMapOffsets(Setting mapSide) const {
  const auto& first = mapSide == Setting::MapLeft ? kFirstLeft : kFirstTop;
  QList<int> offsets;
  for (int map = 0; map < kMaps; ++map) {
    offsets.append(NumberOr(Text(mapSide, map, {}), first[static_cast<std::size_t>(map)]));
  }
  return offsets;
}

void StoredSettings::StoreMapOffsets(const QList<int>& mapLeft, const QList<int>& mapTop) {
  for (int map = 0; map < kMaps; ++map) {
    SetNumber(Setting::MapLeft, map, mapLeft.value(map));
    SetNumber(Setting::MapTop, map, mapTop.value(map));
  }
}

QStringList StoredSettings::ReadPageLabels(const QString& pageWord, const QString& wxPageName) const {
  QStringList labels = {QString()};
  for (int page = 1; page <= kPages; ++page) {
    labels.append(Text(Setting::PageLabel, page, pageWord + QString::number(page)));
  }
  labels.append(wxPageName);
  return labels;
}

void StoredSettings::StorePageLabels(const QStringList& labels) {
  for (int page = 1; page <= kPages && page < labels.size(); ++page) {
    SetText(Setting::PageLabel, page, labels.at(page));
  }
}

QStringList StoredSettings::ReadBlockList() const {
  QStringList calls;
  for (int i = 0; i < kBlocked; ++i) {
    calls.append(Text(Setting::Block, i, {}));
  }
  calls.removeAll(QString());
  return calls;
}

void StoredSettings::StoreBlockList(const QStringList& calls) {
  for (int i = 0; i < kBlocked; ++i) {
    SetText(Setting::Block, i, calls.value(i));
  }
}
