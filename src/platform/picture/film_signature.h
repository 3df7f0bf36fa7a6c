// SPDX-License-Identifier: GPL-3.0-or-later
// Whether bytes are a film, by the signature that the format prescribes. The player and what hands a film to the
// desktop's own player ask it; which cells show a film is decided by file_type.
#pragma once

#include <QByteArray>
#include <QString>

// "avi", "mp4" or "mpg"; empty for anything else. first300: the first bytes of the file.
QString FilmSignature(const QByteArray& first300);
// The type by which a stored file is shown: that of file_type, but a film is one whatever words stand in its first
// bytes. A common coder of films writes "subme" there, in which file_type finds the "bm" of a bitmap.
QString ShownTypeOf(const QByteArray& first300);
