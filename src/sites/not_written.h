// SPDX-License-Identifier: GPL-3.0-or-later
// The line of a setup window about files that could not be written. The windows that change sites show it.
#pragma once

#include <QLabel>
#include <QStringList>

// Shows the names of the files in the present language; without any the line is hidden.
void ShowNotWritten(QLabel* line, const QStringList& files);
