// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a small film that players play: JPEG pictures in an MP4 file. The simulated band sends one where other
// stations send a picture.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

// A film of the frames, shown over and over: all have one size, each is shown for a fifth of a second, rounds times
// all.
QByteArray WriteFilm(const QList<QImage>& frames, int rounds);
