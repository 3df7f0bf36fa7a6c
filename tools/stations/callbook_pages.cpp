// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook_pages.h"

#include <cmath>

#include "page_html.h"

using namespace Qt::StringLiterals;

namespace {

// The frame of a page made of tables, as they were written in the nineties.
QByteArray OldPage(const QByteArray& title, const QByteArray& links, const QByteArray& body) {
  return "<HTML>\n<HEAD>\n<TITLE>" + title +
         "</TITLE>\n<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=windows-1252\">\n</HEAD>\n"
         "<BODY BGCOLOR=\"#fffff4\" TEXT=\"#202020\" LINK=\"#003399\">\n"
         "<TABLE WIDTH=\"100%\" CELLPADDING=4 BGCOLOR=\"#d8e4f0\"><TR>\n<TD><FONT SIZE=\"+2\"><B>" +
         title + "</B></FONT></TD>\n<TD ALIGN=RIGHT>" + links + "</TD>\n</TR></TABLE>\n<BR>\n" + body +
         "<HR>\n<FONT SIZE=\"-1\">A service of radio amateurs. No warranty.</FONT>\n</BODY>\n</HTML>\n";
}

// The frame of a page made of boxes that a style sheet places.
QByteArray NewPage(const QByteArray& title, const QByteArray& links, const QByteArray& body) {
  return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"windows-1252\"><title>" + title +
         "</title>\n<style>\nbody{font:15px/1.5 sans-serif;margin:0;color:#223;background:#f3f5f8}\n"
         "header{display:flex;justify-content:space-between;background:#24476b;color:#fff;padding:12px 24px}\n"
         "header a{color:#cfe3ff}\nmain{max-width:640px;margin:24px auto;padding:20px 28px;background:#fff;"
         "border-radius:8px}\nfooter{text-align:center;font-size:12px}\n.big{font-size:28px;font-weight:bold}\n.row "
         "span{display:inline-block;min-width:9em}\n"
         "</style>\n<script>var shown = \"Class, Born, Latitude\";</script></head>\n<body>\n<header><div>" +
         title + "</div><div>" + links + "</div></header>\n<main>\n" + body +
         "</main>\n<footer>Data without warranty.</footer>\n</body></html>\n";
}

QByteArray Link(const QByteArray& target, const QByteArray& text) {
  return "<a href=\"" + target + "\">" + text + "</a>";
}

QByteArray Frame(Callbook service, bool signedIn, const QByteArray& body) {
  const auto links = [signedIn](const QByteArray& in, const QByteArray& out) {
    return signedIn ? Link("/logout", out) : Link("/login", in);
  };
  switch (service) {
    case Callbook::eHam:
      return OldPage("eHam callbook", "[" + Link("/", "Home") + "] [" + links("Login", "Logout") + "]", body);
    case Callbook::QRZ:
      return NewPage("QRZ", Link("/", "Database") + " " + links("Login", "Logout"), body);
    case Callbook::QRZCQ:
      return NewPage("Database of radio amateurs",
                     signedIn ? "Logged in &middot; " + Link("/logout", "leave") : Link("/login", "Sign in"), body);
    case Callbook::Callook:
      return NewPage("Callook: US licences", Link("/", "Search"), body);
    case Callbook::HamCall:
      return OldPage("HamCall", Link("/call", "New search") + " | " + links("Log In", "Log Out"), body);
  }
  return {};
}

// A reader of eHam's pages takes the place from table cells: the value begins one character, the tab between cells,
// behind its word.
QByteArray EhamRow(const QByteArray& word, const QByteArray& value) {
  return value.isEmpty() ? QByteArray() : "<TR><TD>" + word + "</TD><TD>" + value + "</TD></TR>\n";
}

QByteArray EhamPerson(const Operator& person) {
  QByteArray table = "<TABLE BORDER=0>\n" + EhamRow("License Class", PlainHtml(person.licence));
  if (person.lat != 0) {
    table += EhamRow("Latitude", Degrees(person.lat, 4)) + EhamRow("Longitude", Degrees(person.lon, 4)) +
             EhamRow("Grid", LocatorOf(person.lat, person.lon));
  }
  return "<TABLE BORDER=1 CELLPADDING=6>\n<TR><TH>Callsign, Name, Address, Country</TH></TR>\n<TR><TD><B>" +
         PlainHtml(person.call) + "</B><BR>\n" + PlainHtml(person.name) + "<BR>\n" + PlainHtml(person.street) +
         "<BR>\n" + PlainHtml(person.town) + "<BR>\n" + PlainHtml(person.country) + "\n</TD></TR>\n</TABLE>\n<BR>\n" +
         table + "</TABLE>\n";
}

QByteArray Eham(const QString& call, const Operator* person, bool signedIn) {
  QByteArray body = "<CENTER>\n<H3>Callbook Search Results</H3>\n";
  if (!signedIn) {
    body += "<P>Please <A HREF=\"/login\">log in</A> to see what we have.\n";
  } else if (person == nullptr) {
    body += "<P>Nothing was found for " + PlainHtml(call) + ".\n";
  } else {
    body += EhamPerson(*person);
  }
  return Frame(Callbook::eHam, signedIn, body + "</CENTER>\n");
}

// No blank between the word and its value: the style sheet parts them.
QByteArray QrzRow(const QByteArray& word, const QByteArray& value) {
  return "<div class=\"row\"><span>" + word + "</span><span>" + value + "</span></div>\n";
}

QByteArray QrzPerson(const Operator& person) {
  // The name ends with the first comma behind the call.
  QByteArray body = "<div class=\"big\">" + Html(person.call) + "</div>\n<div><b>" + Html(person.name) +
                    "</b>, on the air since " + QByteArray::number(1996 + person.call.size() * 2) + "</div>\n<div>" +
                    Html(person.street) + "</div>\n<div>" + Html(person.town) + "</div>\n<div>" + Html(person.country) +
                    "</div>\n<h3>QRZ Record</h3>\n";
  if (!person.licence.isEmpty()) body += QrzRow("Class", Html(person.licence));
  if (person.lat != 0) {
    const auto inWords = [](double value, const char* above, const char* below) {
      return Degrees(value, 6) + " (" + Degrees(std::abs(value), 1) + "&deg; " + (value < 0 ? below : above) + ")";
    };
    body += QrzRow("Latitude", inWords(person.lat, "N", "S")) + QrzRow("Longitude", inWords(person.lon, "E", "W")) +
            QrzRow("Grid Square", LocatorOf(person.lat, person.lon));
  }
  if (person.born > 0) body += QrzRow("Born", QByteArray::number(person.born));
  return body + QrzRow("QSL", "by the bureau or direct");
}

QByteArray Qrz(const QString& call, const Operator* person, bool signedIn) {
  QByteArray body = "<div><input aria-label=\"Call\" readonly value=\"" + Html(call) + "\"></div>\n";
  if (person == nullptr) {
    body += "<p>The search for <b>" + Html(call) + "</b> produced no results.</p>\n";
  } else if (!signedIn) {
    body += "<div class=\"big\">" + Html(call) + "</div>\n<p>Login is required for further details.</p>\n";
  } else if (IsForSubscribers(*person)) {
    body += "<div class=\"big\">" + Html(call) + "</div>\n<p>Login is required with a subscriber's account.</p>\n";
  } else {
    body += QrzPerson(*person);
  }
  return Frame(Callbook::QRZ, signedIn, body);
}

QByteArray QrzcqPerson(const Operator& person, bool signedIn) {
  QByteArray body = "<div>Call data of " + Html(person.call) + " at QRZCQ.com</div>\n";
  // Between this word and the name there may be no letter and no square bracket, by which readers find the name.
  if (signedIn) body += "<div>Buddy (+) 12</div>\n";
  body += "<div class=\"big\">" + Html(person.name) + "</div>\n<div>" + Html(person.street) + "</div>\n<div>" +
          Html(person.town) + "</div>\n<div>" + Html(person.country) + "</div>\n<table>\n";
  // For readers the value ends with the next blank here, so it has a cell of its own, with a unit behind it.
  if (person.lat != 0) {
    body += "<tr><td>Latitude</td><td>" + Degrees(person.lat, 3) + " deg</td></tr>\n<tr><td>Longitude</td><td>" +
            Degrees(person.lon, 3) + " deg</td></tr>\n<tr><td>Locator</td><td>" + LocatorOf(person.lat, person.lon) +
            "</td></tr>\n";
  }
  body += "</table>\n";
  if (!person.licence.isEmpty()) body += "<p>Class: " + Html(person.licence) + "</p>\n";
  return body;
}

QByteArray Qrzcq(const QString& call, const Operator* person, bool signedIn) {
  return Frame(Callbook::QRZCQ, signedIn,
               person == nullptr ? "<div>Error: " + Html(call) + " is not in the database.</div>\n"
                                 : QrzcqPerson(*person, signedIn));
}

QByteArray Callook(const QString& call, const Operator* person) {
  if (person == nullptr || person->country != u"United States") {
    return Frame(Callbook::Callook, false, "<p>There is no licence for <b>" + Html(call) + "</b>.</p>\n");
  }
  QByteArray body = "<div class=\"big\">" + Html(call) + "</div>\n<div><a href=\"#map\">Show Map</a> <b>" +
                    Html(person->name) + "</b></div>\n<div>" + Html(person->street) + "</div>\n<div>" +
                    Html(person->town) + "</div>\n<h3>Licence</h3>\n";
  const auto row = [&body](const QByteArray& word, const QByteArray& value) {
    body += "<div><b>" + word + ":</b> " + value + "</div>\n";
  };
  if (!person->licence.isEmpty()) row("Class", Html(person->licence));
  row("Status", "valid");
  if (person->lat != 0) {
    row("Latitude", Degrees(person->lat, 5));
    row("Longitude", Degrees(person->lon, 5));
    row("Grid Square", LocatorOf(person->lat, person->lon));
  }
  return Frame(Callbook::Callook, false, body);
}

QByteArray HamcallPerson(const Operator& person) {
  // The name begins a paragraph and ends with a comma. A mark of three characters follows the town.
  QByteArray body = "<P>" + Html(person.name) + ", " + Html(person.call) + "<BR>\n" + Html(person.street) + "<BR>\n" +
                    Html(person.town) + "<A HREF=\"#map\">[m]</A><BR>\n" + Html(person.country) + "</P>\n<P>\n";
  if (!person.licence.isEmpty()) body += "License Class: " + Html(person.licence) + "<BR>\n";
  if (person.lat != 0) {
    body += "Latitude: " + Degrees(std::abs(person.lat), 4) + (person.lat < 0 ? " S" : " N") +
            ", Longitude: " + Degrees(std::abs(person.lon), 4) + (person.lon < 0 ? " W" : " E") +
            ", Grid: " + LocatorOf(person.lat, person.lon) + "<BR>\n";
  }
  if (person.born > 0) body += "Birth Date: Jan 24, " + QByteArray::number(person.born) + "<BR>\n";
  return body + "</P>\n";
}

QByteArray Hamcall(const QString& call, const Operator* person, bool signedIn) {
  QByteArray body = "<TABLE CELLPADDING=8><TR><TD>\n";
  if (!signedIn) {
    body += "<P>Call data are shown to members. <A HREF=\"/login\">Log In</A></P>\n";
  } else if (person == nullptr) {
    body += "<P>" + Html(call) + " is in none of our files.</P>\n";
  } else {
    body += "<P>Found in the world's callsign database!</P>\n" + HamcallPerson(*person);
  }
  return Frame(Callbook::HamCall, signedIn, body + "</TD></TR></TABLE>\n");
}

}  // namespace

QByteArray CallPage(Callbook service, const QString& call, const Operator* person, bool signedIn) {
  switch (service) {
    case Callbook::eHam:
      return Eham(call, person, signedIn);
    case Callbook::QRZ:
      return Qrz(call, person, signedIn);
    case Callbook::QRZCQ:
      return Qrzcq(call, person, signedIn);
    case Callbook::Callook:
      return Callook(call, person);
    case Callbook::HamCall:
      return Hamcall(call, person, signedIn);
  }
  return {};
}

QByteArray FrontPage(Callbook service, bool signedIn) {
  if (service == Callbook::Callook) return Frame(service, false, "<p>Enter a call behind this page's address.</p>\n");
  return Frame(service, signedIn,
               signedIn ? "<p>Welcome back. You may close this window now and look calls up.</p>\n"
                        : "<p>Welcome. To see all call data, " + Link("/login", "sign in") + ".</p>\n");
}

QByteArray LoginPage(Callbook service, bool failed) {
  const QByteArray message =
      failed ? "<p role=\"alert\" style=\"color:#a00\">User name or password is wrong.</p>\n" : QByteArray();
  return Frame(service, false,
               "<h2>Sign in to " + Html(CallbookName(service)) + "</h2>\n" + message +
                   "<form method=\"post\" action=\"/login\" style=\"line-height:2.2\">\n"
                   "<label for=\"user\">User name</label><br>\n"
                   "<input id=\"user\" name=\"user\" autocomplete=\"username\" autofocus size=\"28\"><br>\n"
                   "<label for=\"password\">Password</label><br>\n"
                   "<input id=\"password\" name=\"password\" type=\"password\" autocomplete=\"current-password\" "
                   "size=\"28\"><br>\n<button type=\"submit\" style=\"margin-top:12px;padding:4px 18px\">Sign in"
                   "</button>\n</form>\n<p><small>This service is made up: any name will do, and the password is "
                   "<b>perch</b>.</small></p>\n");
}

QString CallbookName(Callbook service) {
  switch (service) {
    case Callbook::eHam:
      return u"eHam"_s;
    case Callbook::QRZ:
      return u"QRZ"_s;
    case Callbook::QRZCQ:
      return u"QRZCQ"_s;
    case Callbook::Callook:
      return u"Callook"_s;
    case Callbook::HamCall:
      return u"HamCall"_s;
  }
  return {};
}
