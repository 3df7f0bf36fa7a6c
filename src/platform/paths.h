// SPDX-License-Identifier: GPL-3.0-or-later
// File names of any letter case: users' folders come from systems where nicknames.txt and Nicknames.txt are one file.
#pragma once

#include <QString>

// The data folder: the generic data location of the user and "/Omni-Perch", without a trailing "/".
QString DefaultAppDataDir();
// folder + "/" + relative, each part looked up without regard to case. Where several match, the exact spelling wins;
// where none does, the name as given. relative uses "/".
QString ResolvePath(const QString& folder, const QString& relative);
