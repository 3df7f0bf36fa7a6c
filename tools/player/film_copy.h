// SPDX-License-Identifier: GPL-3.0-or-later
// The player's own copy of the film, in memory. The program may write another picture over the file while the film
// plays, and behind the sandbox no file of the user can be opened any more. main makes the only one.
#pragma once

#include <QByteArray>
#include <QString>

// A film that can be read, by whoever is in this process, at its path until the process ends.
struct FilmCopy {
  QString path;     // empty: there is no such file, or no memory for it
  QByteArray head;  // the first bytes, in which its signature stands
};

FilmCopy CopyFilm(const QString& file);
