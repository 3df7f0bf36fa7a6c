// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/save_state.h"

void SaveAllState(const Program& program, SiteListFile& lists, SettingsStore& store,
                  const std::optional<WindowPlacement>& placement,
                  const std::function<void(const QString&)>& showMessage) {
  const int map = program.config.MapIndex;
  program.config.SaveConfig(program.AppDataDir, program.MapLeft.value(map), program.MapTop.value(map));
  const QStringList messages = lists.SaveSiteLists(program.config.ThumbLayout);
  for (const QString& message : messages) {
    showMessage(message);
  }
  StoredSettings settings(store);
  if (placement) {
    settings.StorePlacement(*placement);
  }
  settings.StorePageLabels(program.PageLabels);
  settings.SetText(Setting::SaveDir, 0, program.SaveDir);
  settings.StoreBlockList(program.lstBlock);
  settings.Save();
}
