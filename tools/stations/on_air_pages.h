// SPDX-License-Identifier: GPL-3.0-or-later
// What the two simulated on-air sources answer: the reply of a script and a text file, both of made-up stations that
// the demo's call database knows for the most part. StationBand serves them; a test chooses the form.
#pragma once

#include <QByteArray>
#include <QDateTime>

// What a source does today.
enum class OnAirForm {
  Plain,     // lines, with entities and whatever callers write
  Html,      // the same lines as a page; of the text file, in a file that begins like one
  Empty,     // a heading and no station
  Many,      // 5,000 stations
  ErrorPage  // a page that says so, with status 200
};

// Lines "CALL-mode frequency text_rest". A few stations come and go by the minutes of now.
QByteArray OnAirReply(OnAirForm form, const QDateTime& now);
// Lines "CALL_mode_kHz_text".
QByteArray OnAirTextFile(OnAirForm form, const QDateTime& now);
