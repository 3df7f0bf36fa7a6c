// SPDX-License-Identifier: GPL-3.0-or-later
// Fields of a delimited text, as the nicknames and the marker heights are stored: a line's end or a comma ends a field.
#pragma once

#include <QString>
#include <QStringList>

// All fields, empty ones included. Blanks in front of a field go, and so do quotes around it; a comma within quotes
// belongs to the field. A quote that is not closed ends with its line.
QStringList SplitFields(const QString& text);
