// SPDX-License-Identifier: GPL-3.0-or-later
// Writes back what the program must remember: the configuration, the site lists and the stored settings. The closing
// sequence calls it, and so do those who change the source of the site tables (the layout, the lists).
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "core/program.h"
#include "core/site_list_file.h"
#include "core/stored_settings.h"

// placement is missing while the main window is not visible; the stored placement stays then. showMessage shows a
// message about a duplicate site; it is called after the lists and before the settings are written. A file that cannot
// be written stays as it was. Returns the names of those files.
QStringList SaveAllState(const Program& program, SiteListFile& lists, SettingsStore& store,
                         const std::optional<WindowPlacement>& placement,
                         const std::function<void(const QString&)>& showMessage);

// A function that writes the same from copies of the present state, to be called on another thread. Duplicates are
// dropped from the tables and shown here.
std::function<QStringList()> SaveAllStateLater(const Program& program, SiteListFile& lists, SettingsStore& store,
                                               const std::optional<WindowPlacement>& placement,
                                               const std::function<void(const QString&)>& showMessage);
