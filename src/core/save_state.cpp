// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/save_state.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kConfigFile("Omni-Perch.cfg");
constexpr QLatin1StringView kSettingsFile("settings.ini");

void SetSettings(const Program& program, StoredSettings& settings, const std::optional<WindowPlacement>& placement) {
  if (placement) {
    settings.StorePlacement(*placement);
  }
  settings.StorePageLabels(program.PageLabels);
  settings.SetText(Setting::SaveDir, 0, program.SaveDir);
  settings.StoreBlockList(program.lstBlock);
}

}  // namespace

QStringList SaveAllState(const Program& program, SiteListFile& lists, SettingsStore& store,
                         const std::optional<WindowPlacement>& placement,
                         const std::function<void(const QString&)>& showMessage) {
  QStringList notWritten;
  const int map = program.config.MapIndex;
  if (!program.config.SaveConfig(program.AppDataDir, program.MapLeft.value(map), program.MapTop.value(map))) {
    notWritten.append(kConfigFile);
  }
  const SiteListFile::Saved saved = lists.SaveSiteLists(program.config.ThumbLayout);
  notWritten += saved.notWritten;
  for (const QString& message : saved.messages) {
    showMessage(message);
  }
  StoredSettings settings(store);
  SetSettings(program, settings, placement);
  if (!settings.Save()) {
    notWritten.append(kSettingsFile);
  }
  return notWritten;
}

std::function<QStringList()> SaveAllStateLater(const Program& program, SiteListFile& lists, SettingsStore& store,
                                               const std::optional<WindowPlacement>& placement,
                                               const std::function<void(const QString&)>& showMessage) {
  for (const QString& message : lists.DropDuplicates()) {
    showMessage(message);
  }
  StoredSettings settings(store);
  SetSettings(program, settings, placement);
  const int map = program.config.MapIndex;
  return [config = program.config, folder = program.AppDataDir, left = program.MapLeft.value(map),
          top = program.MapTop.value(map), saveLists = lists.SaveLater(program.config.ThumbLayout),
          saveSettings = store.Writer()]() {
    QStringList notWritten;
    if (!config.SaveConfig(folder, left, top)) {
      notWritten.append(kConfigFile);
    }
    notWritten += saveLists();
    if (!saveSettings()) {
      notWritten.append(kSettingsFile);
    }
    return notWritten;
  };
}
