// SPDX-License-Identifier: GPL-3.0-or-later
// The file of reception reports that the simulated band serves: receiving stations of the demo report the demo's
// senders, who stand in its call database for the most part. A test chooses the form.
#pragma once

#include <QStringList>

#include "on_air_pages.h"

// Lines "RECEIVER_SENDER_mode_kHz_text_YYYYMMDDhhmmss.txt", the oldest first. The reports of a day come at the same
// minutes of every day, so that some pass out of a period while others come in. Html gives the same as Plain.
QByteArray PropagationFile(OnAirForm form, const QStringList& receivers, const QDateTime& now);
