// SPDX-License-Identifier: GPL-3.0-or-later
// Writes files that can be fetched or made again: without waiting for the disk, as QSaveFile does for the user's lists,
// yet never leaving a torn file. The intake, the cells and whoever stores a stranger's picture use it.
#pragma once

#include <QByteArray>
#include <QString>

// Writes bytes to path and checks write, flush and close. False: the disk was full or the file could not be opened, and
// no file of that name is left.
bool WriteWhole(const QString& path, const QByteArray& bytes);
// A hidden, unique file name beside path. Write to it first, and call PutInPlace() once the file is known to be still
// wanted. Files that a crash leaves under such names are removed when the program closes.
QString PartPath(const QString& path);
// Gives the file part the name path, over any file of that name. False: path stays as it was and part is removed.
bool PutInPlace(const QString& part, const QString& path);
