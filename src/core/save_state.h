// SPDX-License-Identifier: GPL-3.0-or-later
// Writes back what the program must remember: the configuration, the site lists and the stored settings. The closing
// sequence runs it, and whoever changes what the tables are built from.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "core/program.h"
#include "core/site_list_file.h"
#include "core/stored_settings.h"

// Does not depend on the program being about to end. placement is missing while the main window is not visible, and the
// stored one stays then; showMessage shows a duplicate message, titled "Omni-Perch", and comes between the lists and
// the settings. Files that cannot be written stay as they were, without a word.
void SaveAllState(const Program& program, SiteListFile& lists, SettingsStore& store,
                  const std::optional<WindowPlacement>& placement,
                  const std::function<void(const QString&)>& showMessage);
