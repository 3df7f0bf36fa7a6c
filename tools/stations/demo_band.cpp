// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo_band.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

struct Land {
  QLatin1StringView prefix;
  double lat;
  double lon;
};

const std::vector<Land> kEurope{
    {"DL3"_L1, 51.2, 9.9},  {"F4"_L1, 46.8, 2.4},   {"G7"_L1, 52.3, -1.4},  {"I2"_L1, 45.5, 9.4},
    {"EA4"_L1, 40.2, -3.9}, {"PA2"_L1, 52.2, 5.4},  {"ON4"_L1, 50.8, 4.5},  {"OZ6"_L1, 55.9, 9.6},
    {"SM5"_L1, 59.4, 16.8}, {"LA5"_L1, 60.6, 9.2},  {"OH6"_L1, 62.6, 24.2}, {"SP6"_L1, 51.3, 17.2},
    {"OK2"_L1, 49.3, 16.7}, {"OM3"_L1, 48.6, 19.1}, {"HA7"_L1, 47.3, 19.6}, {"OE3"_L1, 48.2, 15.6},
    {"HB9"_L1, 46.9, 8.0},  {"S57"_L1, 46.1, 14.8}, {"9A2"_L1, 45.6, 16.2}, {"YO8"_L1, 46.7, 26.6},
    {"LZ1"_L1, 42.3, 24.6}, {"SV2"_L1, 40.5, 22.6}, {"CT2"_L1, 39.2, -8.4}, {"EI4"_L1, 53.1, -7.6},
    {"GM4"_L1, 56.4, -3.9}, {"GW6"_L1, 52.1, -3.7}, {"ES3"_L1, 58.8, 24.6}, {"YL2"_L1, 56.8, 24.4},
    {"LY3"_L1, 55.2, 23.9}, {"LX1"_L1, 49.7, 6.2},  {"Z31"_L1, 41.7, 21.6}, {"YU1"_L1, 44.3, 20.6},
    {"E73"_L1, 44.2, 17.8}, {"IK7"_L1, 40.9, 16.6}, {"DK5"_L1, 48.7, 11.2}, {"F8"_L1, 43.8, 1.6}};
const std::vector<Land> kNorthAmerica{
    {"K1"_L1, 43.2, -71.6},   {"W2"_L1, 42.8, -75.4},   {"N3"_L1, 40.6, -77.2},   {"K4"_L1, 34.2, -83.6},
    {"W5"_L1, 32.4, -97.2},   {"N6"_L1, 36.9, -119.8},  {"K7"_L1, 44.6, -120.9},  {"W8"_L1, 40.3, -82.6},
    {"N9"_L1, 40.8, -88.9},   {"W0"_L1, 39.5, -104.2},  {"VE1"_L1, 45.2, -63.1},  {"VE2"_L1, 46.6, -72.4},
    {"VE3"_L1, 44.6, -79.8},  {"VE4"_L1, 50.1, -97.4},  {"VE5"_L1, 52.1, -106.3}, {"VE6"_L1, 52.4, -113.7},
    {"VE7"_L1, 49.6, -122.2}, {"XE2"_L1, 25.6, -100.4}, {"KB4"_L1, 28.4, -81.8},  {"WA6"_L1, 34.2, -117.6},
    {"KC8"_L1, 43.4, -84.2},  {"WB9"_L1, 44.4, -89.6},  {"KD0"_L1, 41.6, -93.6},  {"AC7"_L1, 33.6, -111.8}};
const std::vector<Land> kAsiaPacific{{"JA3"_L1, 34.8, 135.6}, {"VK3"_L1, -37.4, 144.6}, {"ZL2"_L1, -40.4, 175.4},
                                     {"HL2"_L1, 37.2, 127.6}, {"VU2"_L1, 13.4, 77.8},   {"YB0"_L1, -6.4, 106.9},
                                     {"JH8"_L1, 43.1, 141.9}, {"VK6"_L1, -32.2, 116.2}, {"BV2"_L1, 24.8, 121.2},
                                     {"HS0"_L1, 14.2, 100.7}};
const std::vector<Land> kSouth{{"PY2"_L1, -23.1, -47.2}, {"LU6"_L1, -34.2, -60.4}, {"CE3"_L1, -33.6, -70.9},
                               {"HK3"_L1, 4.8, -74.3},   {"CX4"_L1, -33.8, -56.4}, {"ZS6"_L1, -26.1, 28.2},
                               {"CN8"_L1, 33.4, -7.2},   {"5Z4"_L1, -1.2, 36.9},   {"V51"_L1, -22.4, 17.2},
                               {"PY7"_L1, -8.2, -35.2}};
const std::vector<Land> kIslands{{"KH6"_L1, 21.3, -157.8},
                                 {"TF3"_L1, 64.2, -21.4},
                                 {"EA8"_L1, 28.2, -16.6},
                                 {"CT3"_L1, 32.7, -17.0},
                                 {"VP8"_L1, -51.7, -58.4}};

struct Failing {
  QLatin1StringView call;
  Behaviour behaviour;
};

constexpr std::array kWorkbench{
    Failing{"ZZ9SRV"_L1, Behaviour::ServerError},  Failing{"ZZ9EMP"_L1, Behaviour::EmptyBody},
    Failing{"ZZ9SHO"_L1, Behaviour::ShortBody},    Failing{"ZZ9TRU"_L1, Behaviour::Truncated},
    Failing{"ZZ9END"_L1, Behaviour::Endless},      Failing{"ZZ9STA"_L1, Behaviour::Stall},
    Failing{"ZZ9MID"_L1, Behaviour::StallMidBody}, Failing{"ZZ9DRI"_L1, Behaviour::Drip},
    Failing{"ZZ9RST"_L1, Behaviour::Reset},        Failing{"ZZ9REF"_L1, Behaviour::Refuse},
    Failing{"ZZ9LOP"_L1, Behaviour::RedirectLoop}, Failing{"ZZ9FIL"_L1, Behaviour::RedirectToFile},
    Failing{"ZZ9TYP"_L1, Behaviour::WrongType},    Failing{"ZZ9BIG"_L1, Behaviour::Bomb},
    Failing{"ZZ9HED"_L1, Behaviour::EndlessHead}};

constexpr qint64 kHour = 3600;
constexpr qint64 kDay = 24 * kHour;
constexpr auto kBlocked = "ZZ9FOX"_L1;
constexpr auto kMyCall = "ZZ9QX"_L1;

// Suffixes that begin with Q are given to nobody; no letter K, which with the Q would name a mode.
QString CallOf(const Land& land, int index) {
  constexpr auto kLetters = "ABCDEFGHIJLMNOPRSTUVWXYZ"_L1;
  const auto letter = [&](int n) { return QChar(kLetters.at(n % kLetters.size())); };
  return land.prefix.toString() + u'Q' + letter(index * 5 + 2) + letter(index * 11 + 7);
}

// How long ago the newest picture of a site came in: hours for most, days for some, over a month for a few.
qint64 AgeOf(int index) {
  if (index % 12 == 7) return kDay * (33 + 11 * (index % 15));
  if (index % 8 == 4) return kDay * (2 + index % 23);
  return kHour / 4 + (index * 37 % 60) * 1200;
}

PictureType TypeOf(int index) {
  using enum PictureType;
  switch (index) {
    case 3:
    case 44:
      return AnimatedGif;
    case 5:
    case 47:
      return Png;
    case 9:
      return Bmp;
    case 11:
      return Gif;
    case 13:
      return J2kCodestream;
    case 17:
      return Mp4;
    default:
      return index % 5 < 2 ? Jp2 : Jpeg;
  }
}

PictureRecipe RecipeOf(int index, const QDateTime& now) {
  const QStringList scenes = SceneNames();
  PictureRecipe recipe;
  recipe.seed = static_cast<quint32>(index) * 7919U + 11U;
  recipe.type = TypeOf(index);
  // All scenes but the last, which is for weather sites, follow one another in steps that meet each of them.
  recipe.scene = scenes.at(index * 5 % static_cast<int>(scenes.size() - 1));
  recipe.sent = now.addSecs(-AgeOf(index));
  return recipe;
}

// Gives single stations something of their own: a sender, a fault, another tail.
void MakeParticular(int index, PictureRecipe& recipe, Station& station) {
  switch (index) {
    case 6:
      recipe.caller = u"N0CALL"_s;
      break;
    case 15:
      recipe.caller = kBlocked.toString();
      break;
    case 2:
    case 18:
    case 25:
    case 38:  // has received the user's own picture
      recipe.caller = kMyCall.toString();
      recipe.tail = TailStyle::Full;
      break;
    case 21:
      station.Misbehave({}, Behaviour::NotFound);
      break;
    case 27:
      station.Misbehave({}, Behaviour::RedirectOk);
      break;
    case 29:
      recipe.tail = TailStyle::Stars;
      break;
    case 30:
      recipe.tail = TailStyle::Short;
      break;
    case 33:
      recipe.tail = TailStyle::None;
      break;
    case 40:  // a station of the old kind, without a marker
      station.Misbehave(u"checknew.jpg"_s, Behaviour::NotFound);
      break;
    default:
      break;
  }
}

// The address of a station's cam, of which each kind is there: still pictures for most.
QString CamOf(Station& station, int kind) {
  const QString still = station.Base() + u"/cam.jpg"_s;
  switch (kind % 9) {
    case 1:
      return station.Base() + u"/cam.mjpg"_s;
    case 3:
      station.Misbehave(u"cam.jpg"_s, Behaviour::WrongType);
      return still;
    case 4:
      station.SetLatency(u"cam.jpg"_s, std::chrono::seconds(3));
      return still;
    case 6:
      station.Misbehave(u"cam.jpg"_s, Behaviour::Stall);
      return still;
    case 7:
      return QString(still).replace(u"http://"_s, u"http://shack:perch@"_s).replace(u"/cam"_s, u"/private/cam"_s);
    default:
      return still;
  }
}

// Region r stands on page r + 1 as far as the layout has room; the rest fills the pages behind the last region.
void GivePlaces(std::vector<DemoSite>& sites, const std::vector<int>& regionSizes) {
  for (std::size_t layout = 0; layout < kDemoLayouts; ++layout) {
    const int count = kDemoLayoutCounts.at(layout);
    int over = 0;
    std::size_t site = 0;
    for (std::size_t region = 0; region < regionSizes.size(); ++region) {
      for (int slot = 1; slot <= regionSizes.at(region); ++slot, ++site) {
        int page = static_cast<int>(region) + 1;
        int place = slot;
        if (slot > count) {
          page = static_cast<int>(regionSizes.size()) + 1 + over / count;
          place = over % count + 1;
          ++over;
        }
        sites.at(site).places.at(layout) = u"%1%2"_s.arg(page, 2, 10, QChar(u'0')).arg(place, 2, 10, QChar(u'0'));
      }
    }
  }
}

// Stations have been on the air for different times, and some are slow with single pictures.
void GiveHistory(int index, Station& station) {
  if (index % 3 == 1) {
    for (const int old : {23, 28, 29, 30}) station.Misbehave(u"image%1"_s.arg(old), Behaviour::NotFound);
  }
  if (index % 2 == 1) {
    for (const int late : {3, 12, 17}) {
      station.SetLatency(u"image%1"_s.arg(late), std::chrono::milliseconds(400 * late));
    }
  }
  const int sent = 1 + index % 5;  // of TX1.jpg to TX5.jpg
  for (int none = sent + 1; none <= 5; ++none) station.Misbehave(u"TX%1.jpg"_s.arg(none), Behaviour::NotFound);
}

void AddRegion(StationBand& band, Demo& demo, const QString& region, const std::vector<Land>& lands,
               const QDateTime& now) {
  for (const Land& land : lands) {
    const int index = static_cast<int>(demo.sites.size());
    Station& station = band.AddStation(CallOf(land, index));
    PictureRecipe recipe = RecipeOf(index, now);
    MakeParticular(index, recipe, station);
    station.SetRecipe(recipe);
    GiveHistory(index, station);
    station.SetOnAir(index % 4 == 1);
    DemoSite site;
    site.call = station.Call();
    site.url = station.Url();
    site.region = region;
    if (index % 3 == 2) site.camUrl = CamOf(station, index / 3);
    if (index == 21) site.lastSeen = now.addDays(-12);
    if (index == 50) site.url.prepend(u"NoDelete"_s);
    if (index == 76) {
      site.url = u"Cam only"_s;
      site.camUrl = station.Base() + u"/cam.jpg"_s;
    }
    // Scattered over the land, to a hundredth of a degree.
    site.lat = std::round((land.lat + 0.9 * std::sin(index * 12.9)) * 100) / 100;
    site.lon = std::round((land.lon + 0.9 * std::cos(index * 7.3)) * 100) / 100;
    if (index != 21 && index != 76) demo.healthy.push_back(&station);
    demo.sites.push_back(site);
  }
}

void AddWorkbench(StationBand& band, Demo& demo, const QDateTime& now) {
  for (const Failing& failing : kWorkbench) {
    const int index = static_cast<int>(demo.sites.size());
    Station& station = band.AddStation(failing.call.toString());
    station.SetRecipe(RecipeOf(index, now));
    station.Misbehave(u"image1"_s, failing.behaviour);
    DemoSite site;
    site.call = station.Call();
    site.url = station.Url();
    site.lat = 50.1 + 0.03 * (index % 5);
    site.lon = 10.4 + 0.03 * (index % 7);
    site.lastSeen = now.addDays(index % 3 == 0 ? -45 : -index % 9);
    demo.sites.push_back(site);
  }
}

void AddWeather(StationBand& band, Demo& demo, const QDateTime& now) {
  const std::array titles{u"Rain radar"_s,   u"Pressure chart"_s, u"Satellite view"_s,
                          u"Ice and snow"_s, u"Sea chart"_s,      u"Mountain cam"_s};
  const std::array scenes{u"weather"_s, u"weather"_s, u"satellite"_s, u"snow"_s, u"weather"_s, u"mountains"_s};
  for (std::size_t i = 0; i < titles.size(); ++i) {
    Station& station = band.AddStation(titles.at(i));
    PictureRecipe recipe;
    recipe.seed = 4000U + static_cast<quint32>(i);
    recipe.type = PictureType::Jpeg;
    recipe.size = QSize(640, 480);
    recipe.scene = scenes.at(i);
    recipe.tail = TailStyle::None;
    recipe.sent = now;
    station.SetRecipe(recipe);
    DemoWxSite site{titles.at(i), station.Base() + u"/latest.jpg"_s, {}};
    const int slot = static_cast<int>(i) + 1;
    for (std::size_t layout = 0; layout < kDemoLayouts; ++layout) {
      site.places.at(layout) = slot <= kDemoLayoutCounts.at(layout) ? slot : 0;
    }
    demo.wxSites.push_back(site);
  }
}

}  // namespace

Demo BuildDemo(StationBand& band, const QDateTime& now) {
  Demo demo;
  std::vector<int> regionSizes;
  demo.pageLabels = QStringList{u"Europe"_s,  u"North America"_s, u"Asia and Pacific"_s, u"South America and Africa"_s,
                                u"Islands"_s, u"Workbench"_s};
  for (const std::vector<Land>* lands : {&kEurope, &kNorthAmerica, &kAsiaPacific, &kSouth, &kIslands}) {
    AddRegion(band, demo, demo.pageLabels.at(static_cast<qsizetype>(regionSizes.size())), *lands, now);
    regionSizes.push_back(static_cast<int>(lands->size()));
  }
  AddWorkbench(band, demo, now);
  regionSizes.push_back(static_cast<int>(kWorkbench.size()));
  GivePlaces(demo.sites, regionSizes);
  AddWeather(band, demo, now);
  demo.blockedSender = kBlocked.toString();
  demo.MyCall = kMyCall.toString();
  return demo;
}
