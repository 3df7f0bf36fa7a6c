// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures made wrong on purpose. Hosts ask it when they are told to misbehave; tests of decoders may ask it too.
#pragma once

#include <QByteArray>

// The same file with a header that claims 60000x60000 pixels: JPEG, PNG, GIF, BMP, JPEG 2000. A file of another kind
// gives a PNG that claims as much.
QByteArray AsBomb(const QByteArray& picture);
