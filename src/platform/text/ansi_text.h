// SPDX-License-Identifier: GPL-3.0-or-later
// The code page Windows-1252, in which the call database is stored and callbook pages are read.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// The text in Windows-1252, one byte a character. An accented letter that the code page lacks loses its accent; any
// other character that it lacks becomes "?".
QByteArray AnsiBytes(const QString& text);
// The text of bytes in Windows-1252. The five bytes that it does not define become the characters of the same number.
QString AnsiText(QByteArrayView bytes);
