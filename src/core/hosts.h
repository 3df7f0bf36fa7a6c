// SPDX-License-Identifier: GPL-3.0-or-later
// The servers of the outside world. main reads them once; whoever asks one of them gets its address from here.
#pragma once

#include <QString>

// Each is scheme and authority without a trailing "/", or empty: there is none, and every request to it fails at once.
struct Hosts {
  QString Connectivity;  // its root page is the start-up test
  QString Author;        // version page, updates, bad calls
  QString Time;
  QString OnAirCgi;
  QString OnAirText;  // on-air text file and propagation paths
  QString eHam;
  QString QRZ;
  QString QRZCQ;
  QString Callook;
  QString HamCall;
  QString Pictures;  // pictures of stations
  QString Maps;

  // The built-in ones, with what hosts.ini in the data folder sets in their place. A value that is no http or https
  // address counts as none.
  static Hosts Read(const QString& appDataDir);
};
