// SPDX-License-Identifier: GPL-3.0-or-later
// The code page Windows-1252, in which the call database is stored and callbook pages are read.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// Windows-1252, one byte a character; an accent that the code page lacks is dropped, any other stranger becomes "?".
QByteArray AnsiBytes(const QString& text);
// The five bytes that the code page leaves undefined stand for themselves.
QString AnsiText(QByteArrayView bytes);
