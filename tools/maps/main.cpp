// SPDX-License-Identifier: GPL-3.0-or-later
// omni-perch-maps draws the map pictures: omni-perch-maps --atlas DIR --geodata DIR --out DIR [MAP...].
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImageWriter>
#include <cstdio>

#include "geodata.h"
#include "map_painter.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kQuality = 90;

// Baseline, which decodes fastest; the optimized tables cost nothing at reading.
bool Write(const QImage& picture, const QString& path) {
  QImageWriter writer(path, "jpeg");
  writer.setQuality(kQuality);
  writer.setOptimizedWrite(true);
  return writer.write(picture);
}

int DrawMaps(const QStringList& wanted, const Geodata& data, const QString& folder) {
  for (const MapSheet& sheet : MapSheets()) {
    if (!wanted.isEmpty() && !wanted.contains(sheet.name, Qt::CaseInsensitive)) continue;
    QElapsedTimer timer;
    timer.start();
    const QString path = QDir(folder).filePath(sheet.name + u".jpg"_s);
    if (!Write(DrawMap(sheet, data), path)) {
      std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
      return 1;
    }
    std::printf("%s: %lld ms, %lld bytes\n", qPrintable(sheet.name), timer.elapsed(), QFileInfo(path).size());
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  QCommandLineParser parser;
  const QCommandLineOption atlas(u"atlas"_s, u"Folder with countries-10m.json and countries-50m.json."_s, u"folder"_s);
  const QCommandLineOption layers(u"geodata"_s, u"Folder with the packed lakes, rivers and towns."_s, u"folder"_s);
  const QCommandLineOption out(u"out"_s, u"Folder for the pictures."_s, u"folder"_s);
  parser.addOptions({atlas, layers, out});
  parser.addHelpOption();
  parser.addPositionalArgument(u"map"_s, u"Maps to draw, such as \"UK Map\"; all nine when none is given."_s,
                               u"[map...]"_s);
  parser.process(application);
  if (!parser.isSet(atlas) || !parser.isSet(layers) || !parser.isSet(out)) parser.showHelp(2);

  Geodata data;
  const QString missing = ReadGeodata(parser.value(atlas), parser.value(layers), data);
  if (!missing.isEmpty()) {
    std::fprintf(stderr, "cannot read: %s\n", qPrintable(missing));
    return 1;
  }
  QDir().mkpath(parser.value(out));
  return DrawMaps(parser.positionalArguments(), data, parser.value(out));
}
