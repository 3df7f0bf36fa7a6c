// SPDX-License-Identifier: GPL-3.0-or-later
// Who received the user's picture: the list from the thumbnails and the companion's reports.
#include "onair/rx_ok_list.h"
#include "station/callsign.h"
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
    list.SetReports(reports);
    list.BuildRxOkList(program);
    QStringList rows;
    for (const RxOkRow& row : list.Rows()) rows.append(row.call + (list.IsOfLastImage(row) ? u"+"_s : u"-"_s));
    return rows;
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
    QCOMPARE(page.RowsFor(reports).size(), 3);
    page.program.config.MyCall = u"/"_s;  // cleans to nothing
    QCOMPARE(page.RowsFor(reports).size(), 0);
    QVERIFY(!page.list.LastRxReport().isValid());
  }
};

OMNI_TEST(TestRxOk)
#include "test_rx_ok.moc"
