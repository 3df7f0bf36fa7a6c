// SPDX-License-Identifier: GPL-3.0-or-later
// A program on a temporary folder whose lookups go to the simulated callbook services and their picture store.
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>

#include "callbook/lookup_session.h"
#include "callbook_host.h"
#include "plain_picture.h"
#include "station_band.h"
#include "test_folder.h"

struct LookupFixture {
  TestFolder folder;
  StationBand band;
  Hosts hosts;
  Program program;
  Background background;
  PictureTool tool{QStringLiteral(PICTURE_TOOL), folder.path()};
  PageTextTool pageText{QStringLiteral(PICTURE_TOOL)};
  CookieStore cookies{folder.path()};
  CallDatabase database{folder.path()};
  UrlNetwork network{{.stall = std::chrono::milliseconds(400), .deadline = std::chrono::seconds(20)}};

  LookupFixture() {
    hosts.eHam = band.HostUrl(QStringLiteral("eHam"));
    hosts.QRZ = band.HostUrl(QStringLiteral("QRZ"));
    hosts.QRZCQ = band.HostUrl(QStringLiteral("QRZCQ"));
    hosts.Callook = band.HostUrl(QStringLiteral("Callook"));
    hosts.HamCall = band.HostUrl(QStringLiteral("HamCall"));
    hosts.Pictures = band.HostUrl(QStringLiteral("Pictures"));
    hosts.Maps = QStringLiteral("https://maps.example");
    network.SetCookies(cookies);
    program.AppDataDir = folder.path();
    program.SaveDir = folder.path();
    program.ZeroGlyph = QChar(u'0');
    program.config.LanguageName = QStringLiteral("English");
    program.config.MyLat = 40;
    program.config.MyLon = -75;
    program.lstBadCalls = QStringList{QStringLiteral("N0CALL")};
    Choose(1);
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), QStringLiteral("English"), 8, Program::ProgVersion(), program.language);
  }

  LookupSession::Dependencies Dependencies() {
    return {program, network, tool, pageText, background, hosts, cookies, database};
  }

  void Choose(int service) {
    program.config.CallbookIndex = service;
    program.config.CallbookName = CallbookNameOf(service);
  }
  Host& Service() const { return *band.FindHost(CallbookNameOf(program.config.CallbookIndex)); }

  // Does as the browser window: posts the service's form, and keeps the cookie that the answer brings.
  void SignIn() {
    QNetworkAccessManager browser;
    QNetworkRequest request(LoginUrl(*FindCallbookService(program.config.CallbookIndex), hosts));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/x-www-form-urlencoded"));
    QNetworkReply* reply = browser.post(request, QByteArray("user=me&password=") + kCallbookPassword);
    QTRY_VERIFY(reply->isFinished());
    for (const QNetworkCookie& cookie :
         reply->header(QNetworkRequest::SetCookieHeader).value<QList<QNetworkCookie>>()) {
      cookies.Add(cookie, request.url().host());
    }
  }

  void File(const QString& call, const QString& name, const QString& lat, const QString& lon) {
    DbRec record;
    record.Call = call;
    record.Name = name;
    record.Add1 = QStringLiteral("1 Mill Lane");
    record.Ctry = QStringLiteral("Nowhere");
    record.Lat = lat;
    record.Lon = lon;
    database.SaveStation(call, record);
    QVERIFY(database.Finish());
  }
  // Name, latitude, longitude, class, the address in three lines and year of a record; empty where there is none.
  QString Filed(const QString& call) {
    const std::optional<FoundRecord> found = database.Find(call);
    if (!found) return {};
    const DbRec& record = found->record;
    return QStringList{record.Name.Text(), record.Lat.Text(),  record.Lon.Text(),  record.Class.Text(),
                       record.Add1.Text(), record.Add2.Text(), record.Ctry.Text(), record.YearBorn.Text()}
        .join(u'*');
  }
  int Records() const { return database.RecordCount(); }

  QString PicturePath(const QString& call) const { return OperatorPicturePath(folder.path(), call); }
  void WritePicture(const QString& call, const QByteArray& bytes) const {
    folder.PutFolder(u"images/qrzImages"_s);
    folder.Put(u"images/qrzImages/%1.jpg"_s.arg(call), bytes);
  }
  QByteArray Picture(const QString& call) const { return ReadFileBytes(PicturePath(call)).value_or(QByteArray()); }
  int PictureRequests() const { return band.FindHost(QStringLiteral("Pictures"))->TotalRequests(); }
};

// A lookup on that program, by default at Callook, which shows its records to everybody.
struct SessionFixture : LookupFixture {
  LookupSession session{Dependencies()};
  const LookupView& view = session.View();
  QString LookupStatus;

  explicit SessionFixture(int service = 4) {
    Choose(service);
    const auto keep = [this](const QString& status) { LookupStatus = status; };
    QObject::connect(&session, &LookupSession::LookupStatusChanged, &session, keep);
  }

  void Look(const QString& call) { session.StartLookup(call); }
  // Reads a call to the end, its record included.
  void LookToTheEnd(const QString& call) {
    Look(call);
    QTRY_VERIFY_WITH_TIMEOUT(!view.busy, 10'000);
    Settle();
  }
  void UpdateToTheEnd() {
    session.Update();
    QTRY_VERIFY_WITH_TIMEOUT(!view.busy, 10'000);
    Settle();
  }
  // Returns when the background thread and the database have done all that they were given before.
  void Settle() {
    bool done = false;
    background.Run<bool>(
        &session, [] { return true; }, [&done](bool) { done = true; });
    QTRY_VERIFY(done);
    database.Finish();
    QCoreApplication::processEvents();
  }
  QString Text(TextLine line) const { return program.language[line]; }
  // All that the window shows of a record: call, name, three lines of the address, distance.
  QString Shown() const {
    return QStringList{view.call, view.name, view.add1, view.add2, view.ctry, view.dxAz}.join(u'|');
  }
};
