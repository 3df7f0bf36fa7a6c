// SPDX-License-Identifier: GPL-3.0-or-later
// The signs on the player's buttons, drawn in the colour of the buttons' text, so that they can be seen on dark
// desktops.
#pragma once

#include <QColor>
#include <QIcon>

// What a button does.
enum class FilmSign { imgPlay, imgPause, Back, Forward, Loud, Muted, FullScreen, Window };

QIcon FilmIcon(FilmSign sign, const QColor& colour, const QColor& disabled);
