// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo_database.h"

#include <QString>
#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Sender {
  QLatin1StringView call;
  QStringView name;
  QStringView street;
  QStringView town;
  QStringView country;
  double lat;  // degrees; 0: unknown
  double lon;
};

constexpr std::array kSenders{
    Sender{"ZZ9QX"_L1, u"Robin P.", u"Perch Lane 1", u"Fernbach", u"Germany", 50.1, 10.4},
    Sender{"DL0QPA"_L1, u"Club station", u"Am Funkturm 3", u"Hohenrode", u"Germany", 52.4, 9.7},
    Sender{"DK7QXB"_L1, u"Jürgen W.", u"Mühlweg 12", u"Altenlinde", u"Germany", 48.8, 9.2},
    Sender{"F4QYC"_L1, u"Hélène", u"4 rue du Moulin", u"Valclair", u"France", 45.8, 4.9},
    Sender{"F8QZD"_L1, u"Luc A.", u"17 chemin des Vignes", u"Montfleury", u"France", 43.6, 1.4},
    Sender{"G0QBE"_L1, u"Harold T.", u"The Old Mill", u"Little Wexcombe", u"England", 51.6, -1.9},
    Sender{"G4QVF"_L1, u"Judith", u"9 Orchard Close", u"Marlhampton", u"England", 53.4, -2.3},
    Sender{"GM3QNG"_L1, u"Ewan M.", u"2 Harbour Road", u"Inverlarig", u"Scotland", 57.5, -4.2},
    Sender{"I2QRH"_L1, u"Carla B.", u"Via dei Tigli 8", u"Borgolago", u"Italy", 45.7, 9.3},
    Sender{"IK4QSJ"_L1, u"Renzo", u"Via del Ponte 21", u"Castelverde Alto", u"Italy", 44.5, 11.3},
    Sender{"EA3QTL"_L1, u"Núria", u"Carrer Nou 5", u"Vallserena", u"Spain", 41.5, 2.1},
    Sender{"EA7QVM"_L1, u"Paco R.", u"Calle del Olivo 14", u"Aguasblancas", u"Spain", 37.2, -4.8},
    Sender{"PA3QWN"_L1, u"Sjoerd", u"Dijkweg 40", u"Noorderzijl", u"Netherlands", 52.9, 5.8},
    Sender{"ON5QXO"_L1, u"Griet V.", u"Kerkstraat 7", u"Oosterlede", u"Belgium", 51.0, 3.8},
    Sender{"OZ1QYP"_L1, u"Bent", u"Strandvej 33", u"Sønderhav", u"Denmark", 55.4, 10.4},
    Sender{"SM6QZQ"_L1, u"Åsa L.", u"Björkstigen 6", u"Västerlund", u"Sweden", 0, 0},
    Sender{"LA8QBR"_L1, u"Torbjørn", u"Fjordveien 2", u"Nordvågen", u"Norway", 63.4, 10.4},
    Sender{"OH2QCS"_L1, u"Päivi K.", u"Koivutie 11", u"Hirvijärvi", u"Finland", 60.3, 24.9},
    Sender{"SP9QDT"_L1, u"Marek", u"ul. Lipowa 3", u"Jasna Góra Dolna", u"Poland", 50.1, 19.9},
    Sender{"OK1QEU"_L1, u"Jitka H.", u"Na Vyhlidce 8", u"Horni Lesy", u"Czech Republic", 50.2, 14.3},
    Sender{"HA5QFV"_L1, u"Zsuzsa", u"Kossuth utca 19", u"Kisberek", u"Hungary", 47.5, 19.1},
    Sender{"HB9QHX"_L1, u"Urs Z.", u"Bergstrasse 5", u"Oberalp am See", u"Switzerland", 47.1, 8.4},
    Sender{"S52QIY"_L1, u"Metka", u"Gozdna pot 4", u"Zelena Dolina", u"Slovenia", 46.2, 14.5},
    Sender{"9A4QJZ"_L1, u"Davor P.", u"Obala 22", u"Mali Porat", u"Croatia", 43.6, 16.3},
    Sender{"YO3QLA"_L1, u"Ioana", u"Strada Teilor 9", u"Valea Lunga Noua", u"Romania", 44.5, 26.1},
    Sender{"LZ2QMB"_L1, u"Plamen D.", u"Rozova 15", u"Gorna Reka", u"Bulgaria", 43.2, 25.6},
    Sender{"CT1QNC"_L1, u"Inês", u"Rua do Farol 10", u"Praia Velha", u"Portugal", 38.9, -9.3},
    Sender{"EI7QOD"_L1, u"Declan F.", u"Bog Road", u"Ballynacloch", u"Ireland", 52.7, -8.6},
    Sender{"K1QPE"_L1, u"Martha", u"88 Maple Street", u"East Harrow, ME", u"United States", 44.1, -70.2},
    Sender{"W2QRF"_L1, u"Gene S.", u"301 Canal Road", u"Lockport Falls, NY", u"United States", 43.1, -77.5},
    Sender{"N3QSG"_L1, u"Walt", u"5 Quarry Lane", u"New Tamworth, PA", u"United States", 40.3, -76.0},
    Sender{"KB4QTH"_L1, u"Loretta J.", u"77 Magnolia Drive", u"Cypress Bend, FL", u"United States", 28.6, -81.4},
    Sender{"W5QUJ"_L1, u"Buck", u"Ranch Road 12", u"Dry Fork, TX", u"United States", 31.1, -97.7},
    Sender{"K6QVL"_L1, u"Sierra M.", u"42 Ocean View", u"Punta Clara, CA", u"United States", 36.6, -121.8},
    Sender{"N7QWM"_L1, u"Dale", u"P.O. Box 9", u"Sagebrush, NV", u"United States", 0, 0},
    Sender{"WA8QXN"_L1, u"Norma K.", u"610 Lake Avenue", u"Harbor Pines, MI", u"United States", 44.8, -85.6},
    Sender{"N0QZP"_L1, u"Arlo", u"County Road 4", u"Plainview Junction, NE", u"United States", 41.2, -98.4},
    Sender{"VE3QBS"_L1, u"Gordon L.", u"15 Spruce Crescent", u"Loon Bay, ON", u"Canada", 44.4, -79.7},
    Sender{"VE7QCT"_L1, u"Maxine", u"204 Cedar Way", u"Heron Inlet, BC", u"Canada", 49.2, -123.9},
    Sender{"JA1QDU"_L1, u"Haruko", u"2-4-6 Midori", u"Kawahara", u"Japan", 35.8, 139.6},
    Sender{"JH3QEV"_L1, u"Kenta S.", u"1-8-3 Sakura", u"Yamashiro", u"Japan", 34.7, 135.4},
    Sender{"VK2QFW"_L1, u"Shane", u"7 Wattle Street", u"Boorabin, NSW", u"Australia", -33.9, 151.2},
    Sender{"VK5QGX"_L1, u"Beryl O.", u"19 Jetty Road", u"Port Wirra, SA", u"Australia", -34.9, 138.6},
    Sender{"ZL1QHY"_L1, u"Hemi", u"3 Kauri Road", u"Waimarua", u"New Zealand", -36.8, 174.8},
    Sender{"PY2QIZ"_L1, u"João C.", u"Rua das Palmeiras 50", u"Serra Azul do Sul", u"Brazil", -23.5, -46.9},
    Sender{"LU4QJA"_L1, u"Graciela", u"Calle 9 de Agosto 120", u"Pampa Chica", u"Argentina", -34.7, -58.6},
    Sender{"ZS6QLB"_L1, u"Pieter N.", u"14 Jacaranda Avenue", u"Rooikrans", u"South Africa", -26.2, 28.0},
    Sender{"ZZ9BAY"_L1, u"Bay relay", u"Lighthouse", u"Bay Point", u"Nowhere", 50.9, 1.4}};

QByteArray Record(const Sender& sender) {
  const auto field = [](QStringView text, qsizetype width) { return text.toLatin1().leftJustified(width, ' ', true); };
  const auto degrees = [&field](double value) { return field(QString::number(value), 15); };
  return field(QString(sender.call), 6) + field(sender.name, 25) + field(sender.street, 30) + field(sender.town, 30) +
         field(sender.country, 30) + degrees(sender.lat) + degrees(sender.lon) + field(u"", 12) + field(u"", 4);
}

}  // namespace

QByteArray DemoDatabase() {
  std::vector<QByteArray> records;
  records.reserve(kSenders.size());
  for (const Sender& sender : kSenders) records.push_back(Record(sender));
  std::sort(records.begin(), records.end());
  QByteArray file;
  for (const QByteArray& record : records) file += record;
  return file;
}
