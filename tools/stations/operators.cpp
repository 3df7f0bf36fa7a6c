// SPDX-License-Identifier: GPL-3.0-or-later
#include "operators.h"

#include <algorithm>

namespace {

constexpr auto kForSubscribers = u"G3QXR";

// Texts that are longer than any field of a record or line of a window.
constexpr auto kLongName =
    u"Bartholomew Maximilian Featherstonehaugh-Cholmondeley of the Far Western Islands and their Radio Society "
    u"for the Encouragement of Pictures sent by Amateurs over great Distances";
constexpr auto kLongStreet =
    u"The old Weather Station behind the Lighthouse at the End of the unmade Road along the northern Shore of the Bay";
constexpr auto kLongTown = u"Longwaterreachcumstonyharbouruponthewideningestuary by the Sea, without a Post Office";
constexpr auto kLongCountry =
    u"The United Federated Islands and dependent Reefs of the outer Southern Sea and its Shores";
constexpr auto kLongLicence = u"AdvancedWithEveryEndorsementThatThereHasEverBeen";

// Names have five letters at least: a shorter one runs into the street where QRZCQ is read.
const std::vector<Operator> kOperators{
    {u"ZZ9QX", u"Robin P.", u"Perch Lane 1", u"Fernbach", u"Germany", 50.1, 10.4, u"A", 1961},
    {u"DL0QPA", u"Club station", u"Am Funkturm 3", u"Hohenrode", u"Germany", 52.4, 9.7, u"A", 0, Filed::Whole,
     Portrait::None},
    {u"DK7QXB", u"Jürgen W.", u"Mühlweg 12", u"Altenlinde", u"Germany", 48.8, 9.2, u"A", 1968},
    {u"F4QYC", u"Hélène", u"4 rue du Moulin", u"Valclair", u"France", 45.8, 4.9, u"HAREC", 1984},
    {u"F8QZD", u"Luc A.", u"17 chemin des Vignes", u"Montfleury", u"France", 43.6, 1.4, u"HAREC", 1955, Filed::Whole,
     Portrait::NoPicture},
    {u"G0QBE", u"Harold T.", u"The Old Mill", u"Little Wexcombe", u"England", 51.6, -1.9, u"Full", 1947},
    {u"G4QVF", u"Judith", u"9 Orchard Close", u"Marlhampton", u"England", 53.4, -2.3, u"Full", 1959},
    {u"GM3QNG", u"Ewan M.", u"2 Harbour Road", u"Inverlarig", u"Scotland", 57.5, -4.2, u"Full", 1972, Filed::Not},
    {u"I2QRH", u"Carla B.", u"Via dei Tigli 8", u"Borgolago", u"Italy", 45.7, 9.3, u"A", 1966},
    {u"IK4QSJ", u"Renzo", u"Via del Ponte 21", u"Castelverde Alto", u"Italy", 44.5, 11.3},
    {u"EA3QTL", u"Núria", u"Carrer Nou 5", u"Vallserena", u"Spain", 41.5, 2.1},
    {u"EA7QVM", u"Paco R.", u"Calle del Olivo 14", u"Aguasblancas", u"Spain", 37.2, -4.8},
    {u"PA3QWN", u"Sjoerd", u"Dijkweg 40", u"Noorderzijl", u"Netherlands", 52.9, 5.8, u"Full", 1964},
    {u"ON5QXO", u"Griet V.", u"Kerkstraat 7", u"Oosterlede", u"Belgium", 51.0, 3.8},
    {u"OZ1QYP", u"Bent H.", u"Strandvej 33", u"Sønderhav", u"Denmark", 55.4, 10.4},
    {u"SM6QZQ", u"Åsa L.", u"Björkstigen 6", u"Västerlund", u"Sweden", 57.8, 12.9, u"HAREC", 1973, Filed::WithoutPlace},
    {u"LA8QBR", u"Torbjørn", u"Fjordveien 2", u"Nordvågen", u"Norway", 63.4, 10.4},
    {u"OH2QCS", u"Päivi K.", u"Koivutie 11", u"Hirvijärvi", u"Finland", 60.3, 24.9, u"", 0, Filed::Whole,
     Portrait::None},
    {u"SP9QDT", u"Marek", u"ul. Lipowa 3", u"Jasna Góra Dolna", u"Poland", 50.1, 19.9},
    {u"OK1QEU", u"Jitka H.", u"Na Vyhlidce 8", u"Horni Lesy", u"Czech Republic", 50.2, 14.3},
    {u"HA5QFV", u"Zsuzsa", u"Kossuth utca 19", u"Kisberek", u"Hungary", 47.5, 19.1},
    {u"HB9QHX", u"Urs Z.", u"Bergstrasse 5", u"Oberalp am See", u"Switzerland", 47.1, 8.4, u"HAREC", 1958},
    {u"S52QIY", u"Metka", u"Gozdna pot 4", u"Zelena Dolina", u"Slovenia", 46.2, 14.5},
    {u"9A4QJZ", u"Davor P.", u"Obala 22", u"Mali Porat", u"Croatia", 43.6, 16.3},
    {u"YO3QLA", u"Ioana", u"Strada Teilor 9", u"Valea Lunga Noua", u"Romania", 44.5, 26.1},
    {u"LZ2QMB", u"Plamen D.", u"Rozova 15", u"Gorna Reka", u"Bulgaria", 43.2, 25.6},
    {u"CT1QNC", u"Inês F.", u"Rua do Farol 10", u"Praia Velha", u"Portugal", 38.9, -9.3},
    {u"EI7QOD", u"Declan F.", u"Bog Road", u"Ballynacloch", u"Ireland", 52.7, -8.6},
    {u"K1QPE", u"Martha", u"88 Maple Street", u"East Harrow, ME", u"United States", 44.1, -70.2, u"Extra", 1951},
    {u"W2QRF", u"Gene S.", u"301 Canal Road", u"Lockport Falls, NY", u"United States", 43.1, -77.5, u"General", 1949,
     Filed::Not},
    {u"N3QSG", u"Walt D.", u"5 Quarry Lane", u"New Tamworth, PA", u"United States", 40.3, -76.0, u"Advanced", 1944},
    {u"KB4QTH", u"Loretta J.", u"77 Magnolia Drive", u"Cypress Bend, FL", u"United States", 28.6, -81.4, u"Technician",
     1970, Filed::WithoutPlace},
    {u"W5QUJ", u"Buck R.", u"Ranch Road 12", u"Dry Fork, TX", u"United States", 31.1, -97.7, u"Extra", 1957},
    {u"K6QVL", u"Sierra M.", u"42 Ocean View", u"Punta Clara, CA", u"United States", 36.6, -121.8, u"General", 1988},
    {u"N7QWM", u"Dale O.", u"P.O. Box 9", u"Sagebrush, NV", u"United States", 0, 0, u"Extra", 1963, Filed::WithoutPlace,
     Portrait::None},
    {u"WA8QXN", u"Norma K.", u"610 Lake Avenue", u"Harbor Pines, MI", u"United States", 44.8, -85.6, u"General", 1946},
    {u"N0QZP", u"Arlo B.", u"County Road 4", u"Plainview Junction, NE", u"United States", 41.2, -98.4, u"Advanced",
     1953},
    {u"VE3QBS", u"Gordon L.", u"15 Spruce Crescent", u"Loon Bay, ON", u"Canada", 44.4, -79.7, u"Advanced", 1960},
    {u"VE7QCT", u"Maxine", u"204 Cedar Way", u"Heron Inlet, BC", u"Canada", 49.2, -123.9},
    {u"JA1QDU", u"Haruko", u"2-4-6 Midori", u"Kawahara", u"Japan", 35.8, 139.6, u"First", 1975},
    {u"JH3QEV", u"Kenta S.", u"1-8-3 Sakura", u"Yamashiro", u"Japan", 34.7, 135.4},
    {u"VK2QFW", u"Shane", u"7 Wattle Street", u"Boorabin, NSW", u"Australia", -33.9, 151.2, u"Advanced", 1979},
    {u"VK5QGX", u"Beryl O.", u"19 Jetty Road", u"Port Wirra, SA", u"Australia", -34.9, 138.6, u"", 0,
     Filed::WithoutPlace},
    {u"ZL1QHY", u"Hemi T.", u"3 Kauri Road", u"Waimarua", u"New Zealand", -36.8, 174.8, u"General", 1969},
    {u"PY2QIZ", u"João C.", u"Rua das Palmeiras 50", u"Serra Azul do Sul", u"Brazil", -23.5, -46.9, u"A", 1980},
    {u"LU4QJA", u"Graciela", u"Calle 9 de Agosto 120", u"Pampa Chica", u"Argentina", -34.7, -58.6, u"", 0, Filed::Not},
    {u"ZS6QLB", u"Pieter N.", u"14 Jacaranda Avenue", u"Rooikrans", u"South Africa", -26.2, 28.0},
    {u"ZZ9BAY", u"Bay relay", u"Lighthouse", u"Bay Point", u"Nowhere", 50.9, 1.4, u"", 0, Filed::Whole, Portrait::None},
    // Senders that the database does not have.
    {u"OE6QGW", u"Gerda S.", u"Steinweg 2", u"Unterbergen am Wald", u"Austria", 47.1, 15.4, u"1", 1956, Filed::Not},
    {u"K9QYO", u"Lyle M.", u"1200 Prairie Road", u"Oakfield Station, IL", u"United States", 40.7, -89.6, u"Extra", 1942,
     Filed::Not},
    // Receiving stations in countries without a sender.
    {u"VU2QLR", u"Meera N.", u"14 Lake View Road", u"Chandanpura", u"India", 13.4, 77.8, u"General", 1977},
    {u"YB0QRC", u"Wayan S.", u"Jalan Melati 5", u"Kampung Baru Utara", u"Indonesia", -6.4, 106.9},
    // Calls to be looked up by hand, with unusual letters, lengths and gaps.
    {u"GW4QXL", u"Siân O’Hara & \"Taff\" <of the hills>", u"Tŷ Gwyn – Ffordd y Bryn", u"Llanfair-y-cwm & Bryn",
     u"Wales", 52.4, -3.6, u"Full", 1971, Filed::Not},
    {u"SP3QXZ", u"Łucja Żółkiewska", u"ul. Słoneczna 18", u"Zielona Dąbrowa", u"Poland", 52.3, 16.8, u"1", 1990,
     Filed::Not},
    {u"OK2QXS", u"Zdeněk Šťastný", u"Příčná 4", u"Žlutá Lhota", u"Czech Republic", 49.2, 16.6, u"A", 1965, Filed::Not},
    {u"G3QXR", u"Miles K.", u"1 Castle Mews", u"Upper Ferring", u"England", 50.8, -0.4, u"Full", 1938, Filed::Not,
     Portrait::None},
    {u"N8QXG", u"Dwight P.", u"9 Foundry Street", u"Iron Ridge, OH", u"United States", 40.9, -81.2, u"Extra", 1950,
     Filed::Not, Portrait::NoPicture},
    {u"W1QXM", u"Nobody Knowsplace", u"General Delivery", u"Gore Notch, VT", u"United States", 0, 0, u"Novice", 0,
     Filed::Not},
    {u"VK9QXL", kLongName, kLongStreet, kLongTown, kLongCountry, -29.1, 167.9, kLongLicence, 1974, Filed::Not}};

}  // namespace

const std::vector<Operator>& Operators() {
  return kOperators;
}

const Operator* FindOperator(const QString& call) {
  const auto at = std::find_if(kOperators.begin(), kOperators.end(), [&](const Operator& person) {
    return call.compare(person.call, Qt::CaseInsensitive) == 0;
  });
  return at == kOperators.end() ? nullptr : &*at;
}

bool IsForSubscribers(const Operator& person) {
  return person.call == QStringView(kForSubscribers);
}
