// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/film_signature.h"

#include "platform/picture/file_type.h"

using namespace Qt::StringLiterals;

QString FilmSignature(const QByteArray& first300) {
  if (first300.startsWith("RIFF") && first300.mid(8, 4) == "AVI ") return u"avi"_s;
  // Still pictures of newer cameras are boxed like films.
  const QByteArray brand = first300.mid(8, 4);
  const bool still = brand.startsWith("hei") || brand.startsWith("avi") || brand == "mif1";
  if (first300.mid(4, 4) == "ftyp" && !still) return u"mp4"_s;
  const QByteArray start = first300.left(4);
  if (start == QByteArray("\0\0\1\xba", 4) || start == QByteArray("\0\0\1\xb3", 4)) return u"mpg"_s;
  // A transport stream: packets of 188 bytes, each of which begins with this sign. A GIF may have it there by chance.
  const bool isGif = first300.startsWith("GIF8");
  if (first300.startsWith('G') && first300.mid(188, 1) == "G" && !isGif) return u"mpg"_s;
  return {};
}

QString ShownTypeOf(const QByteArray& first300) {
  const QString film = FilmSignature(first300);
  return film.isEmpty() ? FileTypeOf(first300) : film;
}
