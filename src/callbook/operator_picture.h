// SPDX-License-Identifier: GPL-3.0-or-later
// Where the pictures of operators lie. The lookup stores them, hover tips show them.
#pragma once

#include <QString>

// File of a call's picture. Of the call only letters and digits get into the name, 20 at the most; empty without any.
QString OperatorPicturePath(const QString& appDataDir, const QString& call);
