// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the fields of a station out of the text of a callbook page, by the words and line ends that each service
// prints. The lookup control fills PageText and hands the fields on; nothing is fetched here.
#pragma once

#include <QString>

// What cName found. A page of HamCall can say that the call is unknown and still give a name.
struct NameReading {
  enum class Event { None, CallNotFound, LoginRequired };
  QString name;
  Event event = Event::None;
};

// Reads one page after the other. Positions count characters from 1. database: index of the service, 1 to 5; for any
// other all fields are empty. No page is an error: a field whose words the page lacks is empty or 0.
class PageReader {
 public:
  QString PageText;
  // Where the last field ended and the search for the next line begins; 0 if that end was not found. Never set back: a
  // new page begins where the page before was left.
  qint32 ParsePos = 0;
  QString LastCall;  // the call last given to cName

  // True if the page is one for a user who is logged in; false for a service whose pages do not show that.
  bool LoggedIn(int database) const;

  // To be called in this order: Add1, Add2 and ctry each read the line after the one read before.
  NameReading cName(int database, const QString& call);
  QString Add1(int database);
  QString Add2(int database);
  QString ctry(int database);
  // These, too, set ParsePos.
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
