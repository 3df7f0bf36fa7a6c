// SPDX-License-Identifier: GPL-3.0-or-later
// A program on a temporary folder whose on-air sources are those of the simulated band.
#pragma once

#include "core/language_file.h"
#include "onair/on_air_session.h"
#include "platform/picture/picture_tool.h"
#include "station/callsign.h"
#include "station_band.h"
#include "test_suite.h"

struct FeedFixture {
  QTemporaryDir folder;
  StationBand band;
  Hosts hosts;
  Program program;
  SettingsStore store{folder.filePath(QStringLiteral("settings.ini"))};
  Background background;
  PictureTool tool{QStringLiteral(PICTURE_TOOL), folder.path()};
  PageTextTool pageText{QStringLiteral(PICTURE_TOOL)};
  CallDatabase database{folder.path()};
  UrlNetwork network{{.stall = std::chrono::milliseconds(400), .deadline = std::chrono::seconds(20)}};

  FeedFixture() {
    hosts.OnAirCgi = band.HostUrl(QStringLiteral("OnAirCgi"));
    hosts.OnAirText = band.HostUrl(QStringLiteral("OnAirText"));
    program.AppDataDir = folder.path();
    program.ZeroGlyph = QChar(u'0');
    program.config.LanguageName = QStringLiteral("English");
    program.config.MyLat = 40;
    program.config.MyLon = -75;
    program.lstBadCalls = BuiltInBadCalls();
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), QStringLiteral("English"), 8, Program::ProgVersion(), program.language);
    Answer("head\n", "head\r\n");
  }

  OnAirSession::Dependencies AllDependencies() {
    return {{program, network, hosts, pageText, background}, store, database};
  }

  Host& Cgi() const { return *band.FindHost(QStringLiteral("OnAirCgi")); }
  Host& Text() const { return *band.FindHost(QStringLiteral("OnAirText")); }
  static QString CgiPath() { return QStringLiteral("cgi-bin/call.cgi"); }
  static QString TextPath() { return QStringLiteral("zz9qx/Files/OnAirNow.txt"); }
  // What the two answer from now on.
  void Answer(const QByteArray& cgi, const QByteArray& text) const {
    Cgi().SetAnswer(CgiPath(), {200, "text/html", cgi, {}});
    Text().SetAnswer(TextPath(), {200, "text/plain", text, {}});
  }
  void Station(const QString& call, const QString& lat, const QString& lon) {
    DbRec record;
    record.Call = call;
    record.Name = QStringLiteral("Robin");
    record.Add1 = QStringLiteral("Perch Lane 1");
    record.Add2 = QStringLiteral("Fernbach");
    record.Ctry = QStringLiteral("Germany");
    record.Lat = lat;
    record.Lon = lon;
    database.SaveStation(call, record);
    QVERIFY(database.Finish());
  }
};
