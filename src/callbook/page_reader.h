// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the fields of a station out of the text of a callbook page, by the words and line ends that each service
// prints. The lookup control fills PageText and hands the fields on; nothing is fetched here.
#pragma once

#include <QString>

// What cName found. A page of one service can tell that the call is unknown and have a name all the same.
struct NameReading {
  enum class Event { None, CallNotFound, LoginRequired };
  QString name;
  Event event = Event::None;
};

// Positions count characters from 1. database is the index of the service, 1 to 5; fields of any other are empty. No
// page is an error: where it lacks what a field is found by, the field is empty or 0.
class PageReader {
 public:
  QString PageText;
  // Where the last field ended, and where the next line is looked for; 0 where that end was not found. Nothing sets it
  // back, and a new page begins where the page before has left it.
  qint32 ParsePos = 0;
  QString LastCall;  // the call that cName was given last

  // False where the service's pages do not tell.
  bool LoggedIn(int database) const;

  // To be called in this order: each of the next three reads the line behind what was read before it.
  NameReading cName(int database, const QString& call);
  QString Add1(int database);
  QString Add2(int database);
  QString ctry(int database);
  // These move ParsePos too.
  double Latitude(int database);   // degrees, north positive
  double Longitude(int database);  // degrees, east positive
  QString Class(int database);
  QString DateOfBirth(int database);  // as printed, or the year
  QString PrevCall(int database) const;
  QString Grid(int database);
  QString WebAddress(int database);

 private:
  QString NextLine(qint32 behindStart = 2);
};
