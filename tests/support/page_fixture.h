// SPDX-License-Identifier: GPL-3.0-or-later
// A program on a temporary folder, a band of stations on loopback, and the logic of a page between them: what the tests
// of the poll and of the windows stand on.
#pragma once

#include "app/page_logic.h"
#include "core/program.h"
#include "plain_picture.h"
#include "platform/clock.h"
#include "station_band.h"
#include "test_folder.h"

// A clock that stands where a test puts it.
class StandingClock : public Clock {
 public:
  QDateTime now = QDateTime(QDate(2026, 3, 15), QTime(12, 0));
  QDateTime Now() const override { return now; }
};

// Readers give up quickly, so that a test of a dead site is short.
inline UrlLimits QuickLimits() {
  UrlLimits limits;
  limits.stall = std::chrono::milliseconds(400);
  limits.deadline = std::chrono::milliseconds(1500);
  limits.maxBody = 4 * 1024 * 1024;
  return limits;
}

struct PageFixture {
  TestFolder folder;
  StandingClock clock;
  Program program;
  StationBand band;
  UrlNetwork network;
  PictureTool tool{QStringLiteral(PICTURE_TOOL), folder.path()};
  Background background;
  std::unique_ptr<PageLogic> logic;

  explicit PageFixture(const UrlLimits& limits = QuickLimits()) : network(limits) {
    program.AppDataDir = folder.path();
    program.ZeroGlyph = QChar(u'0');
    program.config.ThumbLayout = 2;
    program.page.Online = true;
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), QStringLiteral("English"), 8, Program::ProgVersion(), program.language);
    for (const QString& sub : {u"images/dsstv/thumbs"_s, u"images/wx"_s}) folder.PutFolder(sub);
    folder.Put(u"images/dsstv/ckNewHeight.txt"_s, "1-0-x\r\n");
  }

  // A station of the band as a site in the next free slot of a page; the picture carries its caller and a date.
  Station& AddSite(const QString& call, int page = 1, int slot = 0, const QString& urlEnd = {}) {
    Station& station = band.AddStation(call);
    station.SetMarker(QSize(2, 300));
    SiteRec site;
    site.Call = call;
    site.Url = urlEnd.isEmpty() ? station.Url() : station.Base() + urlEnd;
    site.PageSlots.fill(PlaceText(page, slot));
    program.sites.Sites.append(site);
    return station;
  }
  // A page and a slot as a list of sites has them.
  static QString PlaceText(int page, int slot) {
    return u"%1%2"_s.arg(page, 2, 10, QLatin1Char('0')).arg(slot + 1, 2, 10, QLatin1Char('0'));
  }
  // A site in a slot of the weather page; slot 0: on the list alone.
  void AddWeatherSite(const QString& title, const QString& url, int slot) {
    SiteRec site;
    site.Call = title;
    site.Url = url;
    site.PageSlots.fill(QString::number(slot));
    program.sites.WxSites.append(site);
  }

  // Makes the logic anew, as a start of the program does; the heights come from the disk.
  void Start() {
    logic.reset();
    program.page.EraseThumbFields();
    program.sites.SortSites();
    program.sites.BuildPageSlots(program.config.ThumbLayout);
    logic = std::make_unique<PageLogic>(program, clock, network, tool, background);
    logic->heights.Read(program.AppDataDir);
    logic->grid.MakeGrid(program.config.ThumbLayout);
  }

  void StartAndPoll() {
    Start();
    logic->poll.FirstPoll();
  }
  // A poll to its end, as the user's click on Refresh begins it.
  void Refresh() const {
    logic->poll.RefreshClick();
    QTRY_VERIFY(!logic->poll.Busy());
  }

  const Cell& CellOf(int slot) const { return logic->grid.Cells().at(slot); }
  QString Picture(int page, int slot) const { return folder.filePath(PictureName(page, slot)); }
  static QString PictureName(int page, int slot) { return u"images/dsstv/%1-%2"_s.arg(page).arg(slot + 1); }
  QString Thumb(int page, int slot) const {
    return folder.filePath(u"images/dsstv/thumbs/%1-%2.jpg"_s.arg(page).arg(slot + 1));
  }
  // The two lines of a cell's error box in the present language.
  QString BoxFirst(int slot) const { return CellOf(slot).box.first.Text(program.language); }
  QString BoxSecond(int slot) const { return CellOf(slot).box.second.Text(program.language); }
  bool HasPicture(int slot) const { return !CellOf(slot).frames.isEmpty() && !CellOf(slot).errorBox; }
};
