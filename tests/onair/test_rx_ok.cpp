// SPDX-License-Identifier: GPL-3.0-or-later
// Who received the user's picture: the list from the thumbnails and the companion's reports, what is drawn of it, and
// the look-ups of stations without a place.
#include "feed_fixture.h"
#include "onair/rx_ok_map.h"
#include "station/date_text.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// A page of three sites of which the first two show a picture of the user's.
struct Page {
  Program program;
  RxOkList list;

  Page() {
    program.config.MyCall = u"zz0me"_s;
    program.lstBadCalls = BuiltInBadCalls();
    program.page.ThumbCount = 4;
    AddSite(u"ZZ1AA"_s, u"ZZ0ME JT65"_s);
    AddSite(u"ZZ2BB"_s, u"ZZØME"_s);
    AddSite(u"ZZ3CC"_s, u"ZZ4DD"_s);
  }
  void AddSite(const QString& call, const QString& sender) {
    const auto slot = static_cast<int>(program.sites.Sites.size());
    SiteRec site;
    site.Call = call;
    site.Lat = 52.5;
    site.Lon = -1.25;
    program.sites.Sites.append(site);
    program.page.Field(slot, SlotSite) = QString::number(slot);
    program.page.Field(slot, Caller) = sender;
    program.page.Field(slot, ModeText) = u"EP snr 12"_s;
    program.page.Field(slot, SentTime) = u"11/22/2026 10:0%1"_s.arg(slot);
  }
  // The rows for a text of the companion: call, "+" for a green label, date.
  QStringList RowsFor(const QString& reports) {
    list.SetReports(reports, program.lstBadCalls);
    list.BuildRxOkList(program);
    QStringList rows;
    for (const RxOkRow& row : list.Rows()) rows.append(row.call + (list.IsOfLastImage(row) ? u"+"_s : u"-"_s));
    return rows;
  }
};

QSizeF Measure(const QString& text) {
  return QSizeF(static_cast<double>(8 * text.size()), 20);
}

// The plainest of the maps: its pixels can be turned back into degrees.
RxOkPlace Netherlands(const QPointF& pixel) {
  return {52.184 + (584 - pixel.y()) / 386.36, 3.828 + (pixel.x() + 14) / 240.16};
}

// A thing that was drawn, with its point to ten pixels.
QString At(const QString& what, const QPointF& point) {
  return u"%1 %2,%3"_s.arg(what).arg(std::lround(point.x() / 10)).arg(std::lround(point.y() / 10));
}

struct LookupFixture : FeedFixture {
  LookupFixture() {
    hosts.eHam = band.HostUrl(u"eHam"_s);
    hosts.Pictures = band.HostUrl(u"Pictures"_s);
    program.config.CallbookIndex = 1;
  }
  RxOkLookups lookUps{{program, network, hosts, pageText, tool, background, database}};
  Host& EHam() const { return *band.FindHost(u"eHam"_s); }
  void Page(const QString& call, const QByteArray& lat) const {
    EHam().SetAnswer(u"callbook/"_s + call,
                     {200,
                      "text/html",
                      "Country<br>Search Results<br>" + call.toLatin1() +
                          "<br>Robin<br>Lane 1<br>Fernbach<br>Germany<br>Latitude " + lat + "<br>Longitude 10.5<br>",
                      {}});
  }
};

}  // namespace

class TestRxOk : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FindsTheStations_data() {
    QTest::addColumn<QString>("reports");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("newest");
    QTest::newRow("thumbnails alone are pink") << QString() << u"ZZ1AA- ZZ2BB-"_s << QString();
    QTest::newRow("no tab, no report") << u"ZZ5EE*ZZ6FF"_s << u"ZZ1AA- ZZ2BB-"_s << QString();
    QTest::newRow("newest date in the middle; two minutes are pink, seconds do not count")
        << u"zz5ee/p\tok\t11/22/2026 10:01:59* ZZ6FF\tok\t11/22/2026 10:03:01*ZZ7GG\tok\t11/22/2026 10:02"_s
        << u"ZZ1AA- ZZ2BB- ZZ5EE- ZZ6FF+ ZZ7GG+"_s << u"11/22/2026 10:03"_s;
    QTest::newRow("a station on the page keeps its row; a call that a longer one begins with counts as listed")
        << u"ZZ1AA\tok\t11/22/2026 10:02*ZZ5EEX\t\t*ZZ5EE\t\t"_s << u"ZZ1AA- ZZ2BB+ ZZ5EEX-"_s << u"11/22/2026 10:02"_s;
    QTest::newRow("what is no date changes nothing, what is no call is passed over, a bad call's date counts")
        << u"ZZ5EE\tok\t11/22/2026 10:00*ZZ6FF\tok\tsoon*\tx\t1/1/2027*N0CALL\t\t11/22/2026 10:01*"_s
        << u"ZZ1AA+ ZZ2BB+ ZZ5EE+ ZZ6FF-"_s << u"11/22/2026 10:01"_s;
    QTest::newRow("missing fields") << u"ZZ5EE*ZZ6FF\tok"_s << u"ZZ1AA- ZZ2BB- ZZ5EE- ZZ6FF-"_s << QString();
    QTest::newRow("year 0 and 4,000 letters")
        << u"ZZ5EE\tok\t0/0/0 10:00*"_s + QString(4000, u'Z') + u"9\tok\t1/1/2026*ZZ6FF\t\t"_s + QString(4000, u'1')
        << u"ZZ1AA- ZZ2BB- ZZ5EE- ZZ6FF-"_s << QString();
  }

  void FindsTheStations() {
    QFETCH(QString, reports);
    QFETCH(QString, rows);
    QFETCH(QString, newest);
    Page page;
    QCOMPARE(page.RowsFor(reports).join(u' '), rows);
    QCOMPARE(DateText(page.list.LastRxReport()), newest);
    QCOMPARE(DateText(page.program.config.LastRxOkTime), newest);
  }

  // The list is built anew every other second: a map that follows it must not be drawn anew for nothing.
  void TellsOnlyOfChanges() {
    Page page;
    QSignalSpy changed(&page.list, &RxOkList::Changed);
    const QString reports = u"ZZ5EE\tok\t11/22/2026 10:00"_s;
    QCOMPARE(page.RowsFor(reports).size(), 3);
    QCOMPARE(page.RowsFor(reports).size(), 3);
    QCOMPARE(changed.size(), 1);
    page.program.page.Field(2, Caller) = u"ZZ0ME"_s;
    QCOMPARE(page.RowsFor(reports).size(), 4);
    QCOMPARE(changed.size(), 2);
    page.program.lstBadCalls.append(u"ZZ5EE"_s);
    page.list.BuildRxOkList(page.program);
    QCOMPARE(page.list.Rows().size(), 3);
    page.program.config.MyCall = u"/"_s;  // cleans to nothing
    QCOMPARE(page.RowsFor(reports).size(), 0);
    QVERIFY(!page.list.LastRxReport().isValid());
  }

  void DrawsTheStations_data() {
    QTest::addColumn<QPointF>("own");
    QTest::addColumn<QPointF>("station");
    QTest::addColumn<QString>("drawn");
    const QPointF middle(500, 500);
    const QPointF above(500, 300);
    // Labels of stubs are 2 pixels off the end; "centre" is that of the label.
    QTest::newRow("both on the picture") << middle << above
                                         << u"lblMe 50,48|lblCall(0)=ZZ1AA 50,30|line 2 50,50|to 50,30"_s;
    QTest::newRow("station above the picture")
        << middle << QPointF(500, -900)
        << u"lblMe 50,48|lblFrom(0)~ To ZZ1AA  403 km   0°  50,45|lblCall(0)= To ZZ1AA  403 km   0°  50,39|line 2 50,50|to 50,40"_s;
    QTest::newRow("station below it: the label hangs below the stub")
        << middle << QPointF(500, 1900)
        << u"lblMe 50,48|lblFrom(0)~ To ZZ1AA  403 km   180°  50,55|lblCall(0)= To ZZ1AA  403 km   180°  50,61|line 2 50,50|to 50,60"_s;
    QTest::newRow("own position off it: the station is named, and the stub points back")
        << QPointF(500, -900) << above << u"lblCall(0)=ZZ1AA 50,30|lblFrom(0)= From Me  50,19|line 3 50,30|to 50,20"_s;
    QTest::newRow("both off") << QPointF(500, -900) << QPointF(500, 1900) << u"not drawn: ZZ1AA"_s;
  }

  void DrawsTheStations() {
    QFETCH(QPointF, own);
    QFETCH(QPointF, station);
    Program program;
    program.ZeroGlyph = u'0';
    program.config.MyLat = Netherlands(own).lat;
    program.config.MyLon = Netherlands(own).lon;
    RxOkStation row{{u"ZZ1AA"_s, 0, 0, u"fine"_s, u"11/22/2026 10:00"_s, {}}, Netherlands(station), true, true};
    const MapDrawing map = BuildRxOkMap(program, {row}, {MapName::NNederland, QSize(1010, 1180), Measure});
    QStringList drawn;
    for (const MapOverlay::Label& label : map.overlay.labels) {
      const QPointF point = label.anchor.value_or(label.place.center());
      const QString text = (label.dot ? u'~' : u'=') + label.text;  // of a dot it is the tool text
      drawn.append(At(label.name + (label.name == "lblMe"_L1 ? QString() : text), point));
      if (label.name == "lblMe"_L1 || label.dot) continue;
      QVERIFY(label.tip.startsWith("fine   "_L1) && label.tip.endsWith(u"° \r\n 11/22/2026 10:00 UTC "_s));
      QCOMPARE(label.back, label.clickable ? QColor(140, 255, 140) : QColor());
    }
    for (const MapOverlay::Line& line : map.overlay.lines) {
      drawn.append({At(u"line %1"_s.arg(line.width), line.from), At(u"to"_s, line.to)});
      QCOMPARE(line.colour, QColor(0, 0, 255));
    }
    if (!map.spoken.isEmpty()) drawn.append(u"not drawn: "_s + map.spoken);
    QTEST(drawn.join(u'|'), "drawn");
  }

  // Two stubs in one direction: the first label has its given place, the second is laid out around the same end.
  void LabelsOfStubsDoNotCoverEachOther() {
    Program program;
    const RxOkPlace own = Netherlands({500, 500});
    program.config.MyLat = own.lat;
    program.config.MyLon = own.lon;
    const RxOkStation station{{u"ZZ1AA"_s, 0, 0, {}, {}, {}}, Netherlands({500, -900}), false, false};
    const MapDrawing map = BuildRxOkMap(program, {station, station}, {MapName::NNederland, QSize(1010, 1180), Measure});
    QCOMPARE(map.overlay.labels.size(), 5);  // and the own, and the spots on both stubs
    QVERIFY(!map.overlay.labels.at(2).anchor);
    QCOMPARE(map.overlay.labels.at(4).anchor, std::optional(map.overlay.lines.at(1).to));
  }

  // The service keeps its answers back, so that the test sees how many are asked at a time.
  void LooksUpTwoAtATime() {
    LookupFixture f;
    QStringList calls;
    for (int i = 0; i < 5; ++i) {
      calls.append(i == 0 ? u"VE7QCT"_s : u"ZZ%1AA"_s.arg(i));  // the store has a picture of the first
      f.Page(calls.last(), i == 3 ? "0" : "51.5");
    }
    f.Station(u"ZZ9DB"_s, u"48.5"_s, u"2"_s);
    QCOMPARE(f.lookUps.PlaceOf(u"ZZ9DB"_s).lat, 48.5);
    QCOMPARE(f.lookUps.PlaceOf(u"ZZ8DB"_s).lat, 0.0);
    f.Station(u"ZZ8DB"_s, u"47.5"_s, u"2"_s);
    QCOMPARE(f.lookUps.PlaceOf(u"ZZ8DB"_s).lat, 0.0);
    f.lookUps.ReadDatabaseAgain();
    QCOMPARE(f.lookUps.PlaceOf(u"ZZ8DB"_s).lat, 47.5);
    QSignalSpy found(&f.lookUps, &RxOkLookups::Found);
    f.EHam().SetLatency(std::chrono::milliseconds(150));
    f.lookUps.Ask(calls);
    QVERIFY(f.lookUps.Timer1.isActive());
    QTRY_COMPARE(f.EHam().TotalRequests(), 2);
    // The list has lost a station that still waits, and another one has come before it.
    calls.removeAt(2);
    f.lookUps.Ask(calls);
    QTRY_COMPARE(f.lookUps.Shown(), RxOkLookups::State::Idle);
    QCOMPARE(f.EHam().TotalRequests(), 4);
    QCOMPARE(found.size(), 3);
    QCOMPARE(f.lookUps.PlaceOf(u"ZZ4AA"_s).lon, 10.5);
    QCOMPARE(f.lookUps.PlaceOf(u"ZZ3AA"_s).lat, 0.0);
    QVERIFY(!f.lookUps.Timer1.isActive());
    QCOMPARE(f.band.FindHost(u"Pictures"_s)->TotalRequests(), 4);
    QTRY_VERIFY(QFile::exists(f.folder.filePath(u"images/qrzImages/VE7QCT.jpg"_s)));
    // Once an opening: neither what was found nor what the service does not know is asked for again.
    f.lookUps.Ask(calls);
    QCOMPARE(f.lookUps.Shown(), RxOkLookups::State::Idle);
  }

  // A service that cannot be reached, a body that is no picture, and a window that closes in the middle.
  void TellsOfFailuresAndStops() {
    LookupFixture f;
    f.lookUps.Timer1.setInterval(0);
    Hosts noService = f.hosts;
    noService.eHam.clear();
    RxOkLookups offline({f.program, f.network, noService, f.pageText, f.tool, f.background, f.database});
    offline.Timer1.setInterval(0);
    offline.Ask({u"ZZ1AA"_s, u"ZZ2AA"_s, u"ZZ3AA"_s});
    QTRY_COMPARE(f.band.FindHost(u"Pictures"_s)->TotalRequests(), 3);
    QTRY_COMPARE(offline.Shown(), RxOkLookups::State::Failed);

    f.Page(u"ZZ4AA"_s, "51.5");
    f.EHam().SetLatency(std::chrono::milliseconds(150));
    f.lookUps.Ask({u"ZZ4AA"_s, u"ZZ5AA"_s, u"ZZ6AA"_s});
    QTRY_COMPARE(f.lookUps.Shown(), RxOkLookups::State::Failed);
    // The answer comes after all, and counts.
    QTRY_COMPARE(f.lookUps.PlaceOf(u"ZZ4AA"_s).lat, 51.5);
    QTRY_COMPARE(f.EHam().TotalRequests(), 3);
    f.lookUps.Ask({u"ZZ7AA"_s, u"ZZ8AA"_s});
    f.lookUps.Stop();
    QSignalSpy changed(&f.lookUps, &RxOkLookups::StateChanged);
    QTRY_VERIFY(f.lookUps.findChildren<ucLookUp*>().isEmpty());
    QVERIFY(!f.lookUps.Timer1.isActive() && changed.isEmpty());
  }

  // The service is silent. A station that leaves the list makes way for the next, and is asked for again once it is
  // back; an empty list is that of a page change and ends nothing.
  void EndsTheLookUpOfARemovedStation() {
    LookupFixture f;
    UrlNetwork patient;
    RxOkLookups lookUps({f.program, patient, f.hosts, f.pageText, f.tool, f.background, f.database});
    f.EHam().SetLatency(std::chrono::minutes(10));
    const auto list = [&lookUps](const QStringList& calls) {
      lookUps.Keep(QSet<QString>(calls.cbegin(), calls.cend()));
      lookUps.Ask(calls);
    };
    list({u"ZZ1AA"_s, u"ZZ2AA"_s, u"ZZ3AA"_s});
    QTRY_COMPARE(f.EHam().TotalRequests(), 2);
    list({});
    list({u"ZZ2AA"_s, u"ZZ3AA"_s});
    QTRY_COMPARE(f.EHam().Requests(u"callbook/ZZ3AA"_s), 1);
    list({u"ZZ3AA"_s, u"ZZ1AA"_s});
    QTRY_COMPARE(f.EHam().Requests(u"callbook/ZZ1AA"_s), 2);
    QCOMPARE(f.EHam().TotalRequests(), 4);
  }
};

OMNI_TEST(TestRxOk)
#include "test_rx_ok.moc"
