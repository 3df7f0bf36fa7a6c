// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that the program itself puts into a cell, painted by code: the film strip that stands for a video
// (imgMp4) and the camera of a site without pictures (imgCamOnly).
#pragma once

#include <QImage>
#include <QString>

const QImage& imgMp4();
const QImage& imgCamOnly();
// Writes a still as JPEG, whatever the end of the name is; the whole file or none.
bool WriteStill(const QImage& picture, const QString& path);
