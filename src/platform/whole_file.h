// SPDX-License-Identifier: GPL-3.0-or-later
// Files that can be fetched or made again: written plainly, without waiting for the disk as the user's lists are, yet
// never left torn. The intake, the cells and whoever stores a stranger's picture use it.
#pragma once

#include <QByteArray>
#include <QString>

// Write, flush and close are checked. False: there was no room, and nothing is left under the name.
bool WriteWhole(const QString& path, const QByteArray& bytes);
// A hidden name of its own beside path, to be written first and put in place once it is known to be wanted. What a
// crash leaves there is removed when the program closes.
QString PartPath(const QString& path);
// Gives the file part the name path, over any file of that name. False: path stays as it was and part is removed.
bool PutInPlace(const QString& part, const QString& path);
