// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that an operator shows in a callbook: somebody with headphones before a wall of radios. The picture store
// asks for it.
#pragma once

#include <QByteArray>
#include <QString>

// A JPEG file of 400x300 or 300x400 pixels, always the same for the same call. Safe on any thread.
QByteArray PaintPortrait(const QString& call);
