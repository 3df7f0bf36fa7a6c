// SPDX-License-Identifier: GPL-3.0-or-later
// Position and length of a film as lblTime shows them.
#pragma once

#include <QLocale>
#include <QString>
#include <chrono>

// A time within a film of this length, as "h:mm:ss"; in the locale's notation once the film is longer than an hour.
QString FilmTime(std::chrono::milliseconds time, std::chrono::milliseconds length, const QLocale& locale);
