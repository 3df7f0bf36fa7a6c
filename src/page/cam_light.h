// SPDX-License-Identifier: GPL-3.0-or-later
// The status light of a cam: which light a site has, how it is painted and what a screen reader says. Cells of the page
// and the windows of cams show it.
#pragma once

#include <QPainter>

#include "core/program.h"
#include "page/cell.h"

// The three lights of a cell.
inline constexpr CamLight imgCamY = CamLight::Yellow;
inline constexpr CamLight imgCamG = CamLight::Green;
inline constexpr CamLight imgCamR = CamLight::Red;

// The light by the state mark of an item of lstCams; gray for any other mark.
CamLight LightOfMark(QChar mark);
// The light of a site that has a cam: by lstCams, or else by ActiveCamNames, or else yellow.
CamLight LightOfSite(const Program& program, const QString& call);
// Paints a light into a square. They differ by shape too: a ring while the cam is tested, a full disc, a crossed one,
// and a dot for gray.
void PaintCamLight(QPainter& painter, const QRectF& place, CamLight light, const QColor& outline);
// In words, in the present language; empty for a hidden light.
QString CamLightName(CamLight light);
