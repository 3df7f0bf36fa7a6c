// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo_folder.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QSaveFile>

#include "demo_database.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray Lines(const QStringList& lines) {
  return lines.join("\r\n"_L1).toLatin1() + "\r\n";
}

QString DateOf(const QDateTime& when) {
  return when.isValid() ? QLocale::c().toString(when, u"M/d/yyyy hh:mm"_s) : QString();
}

QByteArray Configuration(const Demo& demo, const QDateTime& now) {
  return Lines({u"2"_s,  // window size class
                u"5"_s,  // 35 thumbnails
                u"1"_s,
                u"1"_s,  // automatic, every minute
                u"0"_s,
                u"English"_s,  //
                u"50.1"_s,
                u"10.4"_s,
                u"0"_s,  // own place, kilometres
                u"0"_s,
                u"1"_s,       // cams: all, every five minutes
                demo.MyCall,  //
                u"2"_s,
                u"0"_s,
                u"0"_s,
                u"0"_s,  // the map of Europe, its offsets, cam view
                demo.MyCall,
                u"1"_s,                             //
                u"0*"_s + DateOf(now.addDays(-1)),  // received-OK list
                u"0"_s});
}

QByteArray SiteList(const Demo& demo) {
  QStringList lines;
  for (const DemoSite& site : demo.sites) {
    QStringList fields{site.call};
    for (const QString& place : site.places) fields << place;
    fields << QString::number(site.lat) << QString::number(site.lon) << DateOf(site.lastSeen) << site.camUrl;
    lines << fields.join(u'*') << site.url;
  }
  return Lines(lines);
}

QByteArray WeatherList(const Demo& demo) {
  QStringList lines;
  for (const DemoWxSite& site : demo.wxSites) {
    QStringList fields{site.title};
    for (const int slot : site.places) fields << QString::number(slot);
    lines << fields.join(u'*') << site.url;
  }
  return Lines(lines);
}

QByteArray Settings(const Demo& demo) {
  QByteArray text = "[Omni-Perch]\nBlock\\0=" + demo.blockedSender.toLatin1() + '\n';
  // The whole world, where all of the demo's stations are.
  text += "Map\\index=8\n";
  for (qsizetype i = 0; i < demo.pageLabels.size(); ++i) {
    text += "LABELS\\" + QByteArray::number(i + 1) + '=' + demo.pageLabels.at(i).toLatin1() + '\n';
  }
  return text;
}

bool Write(const QString& path, const QByteArray& text) {
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
}

}  // namespace

bool SeedFolder(const QString& folder, const StationBand& band, const Demo& demo, const QDateTime& now) {
  const QDir dir(folder);
  const bool fresh = !dir.exists(u"Omni-Perch.lst"_s) && !dir.exists(u"Omni-Perch.cfg"_s);
  bool done = dir.mkpath(u"Languages"_s) && dir.mkpath(u"Maps"_s);
  if (fresh) {
    done = Write(dir.filePath(u"Omni-Perch.lst"_s), SiteList(demo)) && done;
    done = Write(dir.filePath(u"WXsites.lst"_s), WeatherList(demo)) && done;
    done = Write(dir.filePath(u"nicknames.txt"_s),
                 Lines({u"ZZ9QX*Home"_s, u"DL0QPA*Hilltop club"_s, u"G0QBE*Old Mill"_s})) &&
           done;
    done = Write(dir.filePath(u"Omni-Perch-DB.db"_s), DemoDatabase(demo.sites)) && done;
    done = Write(dir.filePath(u"settings.ini"_s), Settings(demo)) && done;
    done = Write(dir.filePath(u"Omni-Perch.cfg"_s), Configuration(demo, now)) && done;
  }
  return Write(dir.filePath(u"hosts.ini"_s), band.HostsIni()) && done;
}
