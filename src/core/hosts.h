// SPDX-License-Identifier: GPL-3.0-or-later
// The addresses of all servers that the program asks. main reads them once at start.
#pragma once

#include <QString>

// Each address is scheme and authority without a trailing "/"; empty: there is no such server, and every request to it
// fails at once.
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
  QString Pictures;  // pictures of operators
  QString Maps;

  // The built-in addresses of public services, overridden by those in hosts.ini in the data folder. A value that is no
  // http or https address counts as empty.
  static Hosts Read(const QString& appDataDir);
};
