// SPDX-License-Identifier: GPL-3.0-or-later
// What the two simulated on-air sources answer: the reply of a script and a text file, both of made-up stations that
// the demo's call database knows for the most part. StationBand serves them; a test chooses the form.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QLatin1StringView>
#include <array>

// What a source does today.
enum class OnAirForm {
  Plain,     // lines, with entities and whatever callers write
  Html,      // the same lines as a page; of the text file, in a file that begins like one
  Empty,     // a heading and no station
  Many,      // 5,000 stations
  ErrorPage  // a page that says so, with status 200
};

// What a station sends and where.
struct Tuned {
  QLatin1StringView mode;
  int kiloHertz;
};

// Where stations that send pictures and digital modes are mostly heard.
inline constexpr std::array<Tuned, 16> kTuned{{{QLatin1StringView("EP"), 14233},
                                               {QLatin1StringView("EP"), 7173},
                                               {QLatin1StringView("EPH"), 14233},
                                               {QLatin1StringView("EP"), 3733},
                                               {QLatin1StringView("FT8"), 14074},
                                               {QLatin1StringView("EP"), 21340},
                                               {QLatin1StringView("JT"), 7076},
                                               {QLatin1StringView("EP"), 14240},
                                               {QLatin1StringView("PSK"), 10142},
                                               {QLatin1StringView("FT4"), 14080},
                                               {QLatin1StringView("JS8"), 7078},
                                               {QLatin1StringView("EPH"), 28680},
                                               {QLatin1StringView("EP"), 50510},
                                               {QLatin1StringView("FT8"), 18100},
                                               {QLatin1StringView("EP"), 144500},
                                               {QLatin1StringView("EP"), 433400}}};

QByteArray OnAirErrorPage();
// Lines "CALL-mode frequency text_rest". A few stations come and go by the minutes of now.
QByteArray OnAirReply(OnAirForm form, const QDateTime& now);
// Lines "CALL_mode_kHz_text".
QByteArray OnAirTextFile(OnAirForm form, const QDateTime& now);
