// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that operators put over their pictures: call, CQ, report, name and place, date. band_pictures calls it
// after the scene is painted.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

#include "paint_tools.h"

// What the texts say.
struct OverlayWords {
  QString caller;
  QString partner;  // the station spoken to
  QDateTime sent;
  int snr = 0;  // dB
};

// inset paints a small picture, as in a reply that shows what was received; called at most once.
void PaintOverlay(Canvas& c, const OverlayWords& words, const std::function<QImage(QSize)>& inset);
