// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/config.h"

#include <QFileInfo>
#include <algorithm>
#include <array>
#include <variant>

#include "platform/paths.h"
#include "platform/text/text_file.h"
#include "station/date_text.h"

using namespace Qt::StringLiterals;

namespace {

// The lines of the file in their order. Empty fields are lines that do not hold one plain value; they are read and
// written separately.
using Field = std::variant<std::monostate, int Config::*, double Config::*, QString Config::*>;
constexpr std::array<Field, 20> kFields = {
    &Config::GuiMode,     &Config::ThumbLayout,   &Config::AutoRefreshOn, &Config::AutoRefreshMinutes,
    &Config::DiskChoice,  &Config::LanguageName,  &Config::MyLat,         &Config::MyLon,
    &Config::DistUnit,    &Config::CamMode,       &Config::AutoPollCams,  &Config::MyCall,
    &Config::MapIndex,    std::monostate(),       std::monostate(),       &Config::CamView,
    &Config::MyCallTyped, &Config::CallbookIndex, std::monostate(),       &Config::MenuStyle};
// Written for earlier versions; this program reads the offsets from the stored settings.
constexpr int kMapLeftLine = 14;
constexpr int kMapTopLine = 15;
constexpr int kReportLine = 19;
constexpr int kSetupLines = 17;  // written by the window of the own location

struct Language {
  QLatin1String name;
  QLatin1String onAirCode;
};

// In the order of the digits that older files hold in place of a name. Japanese gets the code of English although the
// built-in texts have a block for Japanese; users know it so.
constexpr std::array<Language, 8> kLanguages = {{{"English"_L1, "0"_L1},
                                                 {"Spanish"_L1, "8"_L1},
                                                 {"German"_L1, "2"_L1},
                                                 {"French"_L1, "1"_L1},
                                                 {"Dutch"_L1, "5"_L1},
                                                 {"Polish"_L1, "7"_L1},
                                                 {"Japanese"_L1, "0"_L1},
                                                 {"Russian"_L1, "9"_L1}}};
constexpr int kLastLanguageDigit = 6;

constexpr std::array<QLatin1String, 5> kCallbooks = {"eHam"_L1, "QRZ"_L1, "QRZCQ"_L1, "Callook"_L1, "HamCall"_L1};

int ReadInteger(const QString& line) {
  return WholeNumber(Val(line));
}

void Take(Config&, std::monostate, const QString&) {}

void Take(Config& config, int Config::*member, const QString& line) {
  config.*member = ReadInteger(line);
}

void Take(Config& config, double Config::*member, const QString& line) {
  config.*member = Val(line);
}

void Take(Config& config, QString Config::*member, const QString& line) {
  config.*member = line;
}

// Removes line ends, which would shift every line behind.
QString OneLine(QString text) {
  return text.remove(u'\r').remove(u'\n');
}

QString TextOf(const Config&, std::monostate) {
  return {};
}

QString TextOf(const Config& config, int Config::*member) {
  return QString::number(config.*member);
}

QString TextOf(const Config& config, double Config::*member) {
  return NumberText(config.*member);
}

QString TextOf(const Config& config, QString Config::*member) {
  return OneLine(config.*member);
}

}  // namespace

QString OnAirLanguageCode(const QString& languageName, const QString& fallback) {
  const auto* const found =
      std::find_if(kLanguages.begin(), kLanguages.end(), [&](const Language& row) { return row.name == languageName; });
  return found != kLanguages.end() ? QString(found->onAirCode) : fallback;
}

void Config::Read(const QStringList& lines) {
  const qsizetype count = std::min(lines.size(), static_cast<qsizetype>(kFields.size()));
  for (qsizetype i = 0; i < count; ++i) {
    std::visit([&](auto member) { Take(*this, member, lines.at(i)); }, kFields[static_cast<std::size_t>(i)]);
  }
  if (count >= kReportLine) {
    ReadReportLine(lines.at(kReportLine - 1));
  }
  if (LanguageName.size() == 1) {
    const int digit = LanguageName.at(0).unicode() - u'0';
    if (digit >= 0 && digit <= kLastLanguageDigit) {
      LanguageName = kLanguages[static_cast<std::size_t>(digit)].name;
    }
  }
  OnAirCode = OnAirLanguageCode(LanguageName, OnAirCode);
  CallbookIndex = std::max(CallbookIndex, 1);
  CallbookName = CallbookNameOf(CallbookIndex);
  AutoPollCams = std::min(AutoPollCams, 1);
  GuiMode = std::clamp(GuiMode, 0, 3);
  AutoRefreshMinutes = std::clamp(AutoRefreshMinutes, 1, 5);
}

QString CallbookNameOf(int index) {
  const auto service = static_cast<std::size_t>(index - 1);
  return service < kCallbooks.size() ? QString(kCallbooks[service]) : QString();
}

void Config::ReadReportLine(const QString& line) {
  const QStringList parts = line.split(u'*');
  const int first = parts.size() == 3 ? 1 : 0;
  SpareFlag = ReadInteger(parts.at(first));
  if (const QDateTime time = ReadDate(parts.value(first + 1)); time.isValid()) {
    LastRxOkTime = time;
  }
}

QStringList Config::Lines(int mapLeft, int mapTop) const {
  QStringList lines;
  for (const Field& field : kFields) {
    lines.append(std::visit([&](auto member) { return TextOf(*this, member); }, field));
  }
  lines[kMapLeftLine - 1] = QString::number(mapLeft);
  lines[kMapTopLine - 1] = QString::number(mapTop);
  lines[kReportLine - 1] = QString::number(SpareFlag) + u'*' + DateText(LastRxOkTime);
  return lines;
}

bool Config::ReadConfig(const QString& appDataDir) {
  const QString path = Path(appDataDir);
  unreadable_ = false;
  if (!QFileInfo::exists(path)) {
    return false;
  }
  const std::optional<QString> text = ReadTextFile(path);
  unreadable_ = !text.has_value();
  Read(SplitLines(text.value_or(QString())));
  return true;
}

bool Config::SaveConfig(const QString& appDataDir, int mapLeft, int mapTop) const {
  return Write(appDataDir, Lines(mapLeft, mapTop));
}

bool Config::SaveSetupLines(const QString& appDataDir, int mapLeft, int mapTop) const {
  QStringList lines = Lines(mapLeft, mapTop);
  std::fill(lines.begin() + kSetupLines, lines.end(), QString());
  return Write(appDataDir, lines);
}

QString Config::Path(const QString& appDataDir) {
  return ResolvePath(appDataDir, u"Omni-Perch.cfg"_s);
}

bool Config::Write(const QString& appDataDir, const QStringList& lines) const {
  const QString path = Path(appDataDir);
  if (unreadable_ && QFileInfo::exists(path)) {
    return false;
  }
  return WriteTextLines(path, lines);
}
