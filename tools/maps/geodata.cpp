// SPDX-License-Identifier: GPL-3.0-or-later
#include "geodata.h"

#include <zlib.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// The unpacked bytes of a file, also of one that is not packed; empty where it cannot be read.
QByteArray Unpack(const QString& path) {
  QByteArray bytes;
  gzFile file = gzopen(QFile::encodeName(path).constData(), "rb");
  if (file == nullptr) return bytes;
  QByteArray part(1 << 20, Qt::Uninitialized);
  for (int count = 1; count > 0;) {
    count = gzread(file, part.data(), static_cast<unsigned>(part.size()));
    if (count > 0) bytes.append(part.constData(), count);
  }
  gzclose(file);
  return bytes;
}

QJsonObject ReadJson(const QString& path) {
  return QJsonDocument::fromJson(Unpack(path)).object();
}

GeoPoint PointOf(const QJsonArray& pair) {
  return {pair.at(1).toDouble(), pair.at(0).toDouble()};
}

GeoLine LineOf(const QJsonArray& points) {
  GeoLine line;
  line.reserve(points.size());
  for (const auto& point : points) line.append(PointOf(point.toArray()));
  return line;
}

// Calls take with each single part of a geometry: LineString and Polygon have one, the Multi types have several.
template <typename Take>
void ForEachPart(const QJsonObject& geometry, const QString& coordinates, Take take) {
  const QJsonArray parts = geometry[coordinates].toArray();
  if (!geometry["type"_L1].toString().startsWith("Multi"_L1)) {
    take(parts);
    return;
  }
  for (const auto& part : parts) take(part.toArray());
}

// Slivers of leased or disputed ground, whose outlines would only be mistaken for borders on maps of this size.
bool HasBorders(const QString& country) {
  static const QSet<QString> without{
      u"Baikonur"_s, u"USNB Guantanamo Bay"_s, u"Cyprus U.N. Buffer Zone"_s, u"Siachen Glacier"_s, u"Dhekelia"_s,
      u"Akrotiri"_s};
  return !without.contains(country);
}

// Puts the countries of a TopoJSON atlas together from the arcs that neighbours share.
class TopologyReader {
 public:
  explicit TopologyReader(const QJsonObject& topology) { ReadArcs(topology); }

  Atlas Read(const QJsonArray& geometries) {
    for (const auto& value : geometries) {
      const QJsonObject geometry = value.toObject();
      country_ = Area{geometry["properties"_L1].toObject()["name"_L1].toString(), 0, {}};
      ForEachPart(geometry, u"arcs"_s, [this](const QJsonArray& rings) {
        for (const auto& ring : rings) country_.rings.append(JoinArcs(ring.toArray()));
      });
      atlas_.countries.append(country_);
    }
    SortArcs();
    return atlas_;
  }

 private:
  void ReadArcs(const QJsonObject& topology) {
    const QJsonObject transform = topology["transform"_L1].toObject();
    const GeoPoint scale = PointOf(transform["scale"_L1].toArray());
    const GeoPoint origin = PointOf(transform["translate"_L1].toArray());
    for (const auto& arc : topology["arcs"_L1].toArray()) {
      GeoLine line;
      GeoPoint sum;
      for (const auto& step : arc.toArray()) {
        const GeoPoint delta = PointOf(step.toArray());
        sum = {sum.lat + delta.lat, sum.lon + delta.lon};
        line.append({sum.lat * scale.lat + origin.lat, sum.lon * scale.lon + origin.lon});
      }
      arcs_.append(line);
    }
    users_.resize(arcs_.size());
  }

  // A negative number means the arc ~number, walked backwards. Neighbouring arcs share their end point.
  GeoLine JoinArcs(const QJsonArray& numbers) {
    GeoLine ring;
    for (const auto& value : numbers) {
      const int number = value.toInt();
      const qsizetype index = number < 0 ? ~number : number;
      if (index >= arcs_.size()) continue;
      GeoLine arc = arcs_[index];
      if (number < 0) std::reverse(arc.begin(), arc.end());
      if (!ring.isEmpty()) ring.removeLast();
      ring.append(arc);
      users_[index].insert(country_.name);
    }
    return ring;
  }

  void SortArcs() {
    for (qsizetype i = 0; i < arcs_.size(); ++i) {
      const QSet<QString>& users = users_[i];
      if (users.size() == 1) atlas_.coasts.append(arcs_[i]);
      if (users.size() == 2 && std::all_of(users.begin(), users.end(), HasBorders)) atlas_.borders.append(arcs_[i]);
    }
  }

  QList<GeoLine> arcs_;
  QList<QSet<QString>> users_;
  Area country_;
  Atlas atlas_;
};

bool ReadAtlas(const QString& path, Atlas& atlas) {
  const QJsonObject topology = ReadJson(path);
  const QJsonObject countries = topology["objects"_L1].toObject()["countries"_L1].toObject();
  atlas = TopologyReader(topology).Read(countries["geometries"_L1].toArray());
  return !atlas.countries.isEmpty();
}

// Calls take(properties, geometry) with each feature; false when the layer has none.
template <typename Take>
bool ReadLayer(const QString& path, Take take) {
  const QJsonArray features = ReadJson(path)["features"_L1].toArray();
  for (const auto& value : features) {
    const QJsonObject feature = value.toObject();
    take(feature["properties"_L1].toObject(), feature["geometry"_L1].toObject());
  }
  return !features.isEmpty();
}

bool ReadAreas(const QString& path, QList<Area>& areas) {
  return ReadLayer(path, [&areas](const QJsonObject& properties, const QJsonObject& geometry) {
    Area area{properties["name"_L1].toString(), properties["scalerank"_L1].toInt(), {}};
    ForEachPart(geometry, u"coordinates"_s, [&area](const QJsonArray& rings) {
      for (const auto& ring : rings) area.rings.append(LineOf(ring.toArray()));
    });
    areas.append(area);
  });
}

bool ReadCourses(const QString& path, QList<Course>& courses) {
  return ReadLayer(path, [&courses](const QJsonObject& properties, const QJsonObject& geometry) {
    const int rank = static_cast<int>(properties["scalerank"_L1].toDouble());
    ForEachPart(geometry, u"coordinates"_s, [&](const QJsonArray& line) { courses.append({rank, LineOf(line)}); });
  });
}

bool ReadTowns(const QString& path, QList<Town>& towns) {
  return ReadLayer(path, [&towns](const QJsonObject& properties, const QJsonObject& geometry) {
    const QString kind = properties["featurecla"_L1].toString();
    if (kind.endsWith("ific station"_L1) || kind.endsWith("ical Station"_L1) || kind.startsWith("Historic"_L1)) return;
    towns.append({properties["name"_L1].toString(), PointOf(geometry["coordinates"_L1].toArray()),
                  properties["scalerank"_L1].toInt(), properties["pop_max"_L1].toInt(),
                  kind.startsWith("Admin-0 capital"_L1)});
  });
}

}  // namespace

QString ReadGeodata(const QString& atlasFolder, const QString& layerFolder, Geodata& data) {
  const auto layer = [&](QLatin1String name) { return layerFolder + u"/ne_"_s + name + u".geojson.gz"_s; };
  QStringList missing;
  const auto need = [&missing](bool found, const char* what) {
    if (!found) missing.append(QString::fromLatin1(what));
  };
  need(ReadAtlas(atlasFolder + u"/countries-10m.json"_s, data.fine), "countries-10m.json");
  need(ReadAtlas(atlasFolder + u"/countries-50m.json"_s, data.coarse), "countries-50m.json");
  need(ReadAreas(layer("10m_lakes"_L1), data.lakes), "lakes");
  need(ReadAreas(layer("10m_lakes_europe"_L1), data.smallLakes), "lakes of Europe");
  need(ReadCourses(layer("10m_rivers_lake_centerlines"_L1), data.rivers), "rivers");
  need(ReadCourses(layer("10m_rivers_europe"_L1), data.smallRivers), "rivers of Europe");
  need(ReadCourses(layer("50m_admin_1_states_provinces_lines"_L1), data.stateLines), "state lines");
  need(ReadTowns(layer("10m_populated_places_simple"_L1), data.towns), "towns");
  return missing.join(u", "_s);
}
