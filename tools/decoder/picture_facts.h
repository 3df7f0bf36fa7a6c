// SPDX-License-Identifier: GPL-3.0-or-later
// What can be told about a picture beside its pixels: resolution, colour depth, number of colours, and the comments and
// the creator that its bytes name. Called by picture_role for the information window.
#pragma once

#include <QByteArray>

#include "picture_header.h"

// The facts as lines (see PictureTool::ReadFacts); those of its pixels are missing where it cannot be decoded. Linear
// in the bytes and the pixels.
QByteArray ReadFacts(const QByteArray& bytes, const PictureHeader& header);
