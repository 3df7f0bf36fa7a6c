// SPDX-License-Identifier: GPL-3.0-or-later
// The readers of callbook pages on texts as pages give them, line ends written as "\n" here. Persons are made up.

#include "callbook/page_reader.h"
#include "test_suite.h"

class TestPageReader : public QObject {
  Q_OBJECT

  enum Service { eHam = 1, QRZ, QRZCQ, Callook, HamCall };

  static QString Lines(const char* text) { return QString::fromUtf8(text).replace(u'\n', u"\r\n"_s); }
  static PageReader ReaderOf(const char* page, qint32 parsePos = 0) {
    PageReader reader;
    reader.PageText = Lines(page);
    reader.ParsePos = parsePos;
    return reader;
  }

 private Q_SLOTS:
  void ReadsWholePages() {
    // Expected are name, first and second line, country, class and birth.
    const auto check = [](int service, const char* page, const char* expected, double lat, double lon) {
      PageReader reader = ReaderOf(page);
      QStringList fields{reader.cName(service, u"ZZ9QX"_s).name};
      fields << reader.Add1(service) << reader.Add2(service) << reader.ctry(service);
      const QList<double> place{reader.Latitude(service), reader.Longitude(service)};
      fields << reader.Class(service) << reader.DateOfBirth(service) << reader.LastCall << reader.PrevCall(service);
      QCOMPARE(fields.join(u'|'), QString::fromUtf8(expected) + u"|ZZ9QX|"_s);
      QCOMPARE(place, QList<double>({lat, lon}));
    };
    check(eHam,
          "Home Logout\nSearch Results\nZZ9QX  \n  Zoë Example \n1 Mill Lane\nMill Town\nNowhere\nCountry: no\n"
          "Latitude:33.9 S\nLongitude:151.2 W\nLicense Class:Extra\nBorn 1961\n",
          "Zoë Example|1 Mill Lane|Mill Town|Nowhere|Extra|", 33.9, 151.2);
    check(QRZ,
          "Class of 1999 \nZZ9QX\nNowhere\n Zoë Example, trustee\n1 Mill Lane\nMill Town\nNowhere\nQRZ Record ZZ9QX\n"
          "Latitude\t-33.9 (south)\nLongitude 151.2 E\nClassExtra\nCodes HAI\nBorn1961\n",
          " Zoë Example|1 Mill Lane|Mill Town|Nowhere|Extra|1961", -33.9, 0);
    check(QRZCQ,
          "QRZCQ.com - calls\nZoë Example\n1 Mill Lane\nMill Town\nNowhere\nLatitude:33.9x south\nLongitude:-151.2 W\n"
          "Class: Extra\nBorn 1961\n",
          "Zoë Example|1 Mill Lane|Mill Town|Nowhere|Extra|", 33.9, -151.2);
    check(Callook,
          "ZZ9QX Show Map:Zoë Example \n1 Mill Lane\nMill Town\nLatitude:33.9\nLongitude:-118.25\nClass: Extra\n",
          "Zoë Example|1 Mill Lane|Mill Town|U.S.A.|Extra|", 33.9, -118.25);
    check(HamCall,
          "The callsign database!\n\nZoë Example, ZZ9QX\n1 Mill Lane\nMill Town ZZ\nNowhere\nLatitude:38.5 S, \n"
          "Longitude:77.1 W,\nLicense Class: Extra\nBirth Date: 7 May 1961\n",
          "Zoë Example|1 Mill Lane|Mill Town|Nowhere|Extra|1961", -38.5, -77.1);
    check(HamCall, "callsign database!\n\nZoë, x\nLatitude: 38.5 N,\nLongitude 77.1 E,", "Zoë|Latitude: 38.5 N,||||",
          38.5, 77.1);
    for (const int none : {0, 6, -1}) check(none, "ZZ9QX\nZoë, x\n", "|||||", 0, 0);
  }

  void ReadsNames() {
    using Event = NameReading::Event;
    int service = eHam;
    const auto row = [&service](const char* what, const char* page, const char* name, Event event = Event::None,
                                qint32 before = 0) {
      PageReader reader = ReaderOf(page, before);
      const NameReading reading = reader.cName(service, u"ZZ9QX"_s);
      QVERIFY2(reading.name == Lines(name) && reading.event == event, what);
    };
    const Event unknown = Event::CallNotFound;
    row("no country", "Search Results\nZZ9QX\nZoë\n", "", unknown);
    row("no results", "Country\nZZ9QX\nZoë\n", "", unknown);
    row("name of blanks", "Country\nSearch Results\nZZ9QX\n   \nMill Lane\n", "", unknown);
    row("empty line in between", "Country\nSearch Results\nZZ9QX\n\nZoë\n", "\nZoë");
    row("call above the results", "ZZ9QX\nCountry\nSearch Results\nZZ9QX\nZoë\n", "Zoë");
    row("call not repeated", "Country\nHome\nSearch Results\nZZ0QX\nZoë\n", "Home");
    row("cut in the name", "Country\nSearch Results\nZZ9QX\nZo", "", unknown);
    row("nothing", "", "", unknown);
    service = QRZ;
    row("no results", "ZZ9QX produced no results\nZoë, x", "", unknown);
    row("login", "ZZ9QX\nZoë, x\nLogin is required", "", Event::LoginRequired);
    row("no results, login", "Login is required\nproduced no results", "", unknown);
    row("other call", "ZZ0QX\nZoë, x", "", unknown);
    row("no comma behind the call", "A, b\nZZ9QX\nZoë", "", unknown);
    row("comma in the first line", "ZZ9QX, x", "Z9QX");
    row("comma first in its line", "ZZ9QX\n, Town", "", unknown);
    service = QRZCQ;
    row("error", "QRZCQ.com\nError\nZoë Example\n", "", unknown);
    row("no site name", "qrzcq.com\nZoë Example\n", "", unknown);
    row("marks before the name", "QRZCQ.com\n 12. @\n-Zoë Example \n", "Zoë Example ");
    row("no letter near", "QRZCQ.com\n01234567890123456789 Zoë\n", "9 Zoë");
    row("no line end at all", "QRZCQ.com", "");
    row("greeting", "QRZCQ.com Buddy: 7\nZoë Example\n", "Zoë Example");
    row("greeting, short name", "QRZCQ.com Buddy\nZoë\nMill Lane\n", "Zoë\nMill Lane");
    row("greeting, no letter near", "QRZCQ.com Buddy0123456789012345678901234\n", "678901234");
    row("greeting at the end", "QRZCQ.com Buddy", "");
    service = Callook;
    row("no map", "Show map Zoë\n", "", unknown);
    row("no line end", "Show Map Zoë", "", Event::None, 7);
    row("nothing behind", "Show Map\nZoë\n", "", Event::None);
    service = HamCall;
    row("no marker", "0123456789ABCDEF", "", unknown);
    row("no marker, left at 3", "0123456789ABCDEF", "", unknown, 3);
    row("no marker, left at 11", "012 45678 ABCDEF", "45678", unknown, 11);
    row("no line behind the marker", "012345 callsign database!", "345", Event::None, 7);
    row("comma first in its line", "callsign database!\n,xZoë, x\n", "Zoë");
    row("no comma", "callsign database!\n\nZoë\n", "", Event::None, 9);
  }

  void ReadsLines() {
    const auto check = [](int service, const char* page, qint32 from, const QString& expected) {
      PageReader reader = ReaderOf(page, from);
      QStringList lines{reader.Add1(service)};
      lines << reader.Add2(service) << reader.ctry(service);
      QCOMPARE(lines.join(u'|'), expected);
    };
    const char* const page = "x\n One \nTwo 99\n\nFour\n";
    for (const int service : {eHam, QRZ, QRZCQ}) check(service, page, 1, u" One |Two 99|"_s);
    check(Callook, page, 1, u" One |Two 99|U.S.A."_s);
    check(HamCall, page, 1, u" One |Two|"_s);
    check(HamCall, "\n1\nAbcd\nZ\n", 1, u"1|A|Z"_s);
    check(HamCall, "\n1\nAb\nZ\n", 1, u"1||Z"_s);
    check(eHam, page, 0, u"||"_s);
    check(Callook, page, 0, u"||U.S.A."_s);
    check(eHam, page, 1000, u"||"_s);
    check(eHam, "x\nOne\nTwo", 1, u"One||"_s);
  }

  void ReadsOtherFields() {
    const char* const page = "Class x\nGrid Square: JN58td\nWeb Page: zz9qx.example\nClass y\nBorn";
    PageReader reader = ReaderOf(page);
    QString told;
    for (int service = eHam; service <= HamCall; ++service) {
      told += reader.Grid(service) + u'|' + reader.WebAddress(service) + u'/';
    }
    // Callook's grid square begins behind the others and takes the end of its line along.
    QCOMPARE(told, u"|/: JN58td|: zz9qx.example/|/JN58td\r\n|/|/"_s);
    QCOMPARE(reader.Class(QRZ), QString());  // its words do not count before the record
    reader = ReaderOf("QRZ Record\nClass\tExtra\nExp 2030");
    QCOMPARE(reader.Class(QRZ), u"\tExtra"_s);
    QCOMPARE(ReaderOf("Birth Date: 61\n").DateOfBirth(HamCall), u"61"_s);
  }

  // Each field that is looked for leaves its end as the place where the next line begins, and a missing end as none.
  void MovesOnWithEveryField() {
    const char* const page = "A\nB\nLatitude: 1\nC\nLicense Class: E\nD\nLongitude: 2";
    PageReader reader = ReaderOf(page, 1);
    QCOMPARE(reader.Latitude(eHam), 1.0);
    QStringList told{reader.Add1(eHam)};
    told << reader.DateOfBirth(HamCall);  // no marker, no move
    told << reader.Add1(eHam) << reader.Class(eHam) << reader.Add1(eHam);
    QCOMPARE(told.join(u'|'), u"C||License Class: E| E|D"_s);
    QVERIFY(reader.Longitude(eHam) == 0 && reader.ParsePos == 0 && reader.Add1(eHam).isEmpty());

    // A page of another service goes on where this one ended.
    QCOMPARE(reader.Latitude(eHam), 1.0);
    reader.PageText = u"no such call in the book"_s;
    QCOMPARE(reader.cName(HamCall, u"ZZ9QX"_s).name, u"such call in t"_s);
  }

  void TellsLogins() {
    QString told;
    for (int service = 0; service <= 6; ++service) {
      for (const char* page : {"x Logout", "x logout", "Logged in: x", "Log Out", ""}) {
        told += ReaderOf(page).LoggedIn(service) ? u'1' : u'0';
      }
      told += u' ';
    }
    QCOMPARE(told, u"00000 10000 10000 00100 00000 00010 00000 "_s);
  }
};

OMNI_TEST(TestPageReader)
#include "test_page_reader.moc"
