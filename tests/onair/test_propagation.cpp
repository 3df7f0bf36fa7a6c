// SPDX-License-Identifier: GPL-3.0-or-later
// The file of reception reports, the paths that are shown of it, and the grid of a station.
#include <QRandomGenerator>

#include "onair/propagation_map.h"
#include "test_suite.h"

namespace {

// 2026-03-15 12:00:30 UTC.
constexpr qint64 kNow = 1773576030;

// Lines between the heading and the two elements that are not read.
QByteArray File(const QByteArrayList& lines, const QByteArray& end = "\r\n") {
  QByteArrayList all = lines;
  all.prepend("From_To_Mode_kHz_Report_Time");
  all.append("ZZ9ZZ_ZZ8ZZ_EP_14233_never read_20260315120000.txt");
  return all.join(end) + end;
}

std::optional<StationSpot> Known(const QString& call) {
  if (call.startsWith(u"ZZ1"_s)) return StationSpot{52.5, -1.25};
  if (call.startsWith(u"ZZ2"_s)) return StationSpot{40, 20};
  if (call == u"ZZ3EQ"_s) return StationSpot{0, 20};
  if (call == u"ZZ3NAN"_s) return StationSpot{qQNaN(), 20};
  return std::nullopt;
}

}  // namespace

class TestPropagation : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReadsTheFile() {
    const PropagationReports reports = ReadPropagationFile(
        File({"de zz1aa/p_ZZ2BB_EP _14233_5/9_plain20260315115959.txt",
              "NOCALL1234_ZZ2BB_EP_14233_x_20260315115959.txt", "ZZ1AA_Ab_EP_14233_x_20260315115959.txt", "ZZ1AA_ZZ2BB",
              "ZZ1AA_ZZ2BB_FT8_12x_<b>_00000315115959.txt", "ZZ1AA_ZZ2BB_FT8_nan_\xfc_20260231115959.TXT"}));
    QCOMPARE(reports.rows.size(), 4u);
    const PropagationRow& row = reports.rows.front();
    QCOMPARE(row.from + row.to + row.mode + row.text, u"ZZ1AAZZ2BBEP5/9"_s);
    QCOMPARE(row.kHz, 14233);
    QCOMPARE(ReportDateText(row.date), u"2026/03/15 11:59:59"_s);
    QCOMPARE(reports.newest, row.date);
    // What a short line lacks is empty; year 0, a 31st of February and "nan" are none.
    QCOMPARE(reports.rows[1].mode, QString());
    for (std::size_t i = 1; i < 4; ++i) {
      QCOMPARE(reports.rows[i].date, kNoDate);
      QVERIFY(reports.rows[i].kHz < 0);
    }
    QCOMPARE(reports.rows[3].text, u"ü"_s);
    // Line feeds alone part the lines too; a file of heading and end holds nothing.
    QCOMPARE(ReadPropagationFile(File({"ZZ1AA_ZZ2BB_EP_14233_x_20260315115959.txt"}, "\n")).rows.size(), 1u);
    for (const char* file : {"", "a", "a\r\nb\r\nc", "\r\n\r\n\r\n"}) QVERIFY(ReadPropagationFile(file).rows.empty());
  }

  // A flood keeps the newest, in the order of the file.
  void KeepsTheNewest() {
    QByteArrayList lines;
    for (int i = 0; i < 5000; ++i) {
      lines.append("ZZ1AA_ZZ2BB_EP_" + QByteArray::number(i) + "_x_2026031511" + QByteArray::number(10 + i * 7 % 50) +
                   "00.txt");
    }
    const PropagationReports reports = ReadPropagationFile(File(lines), 100);
    QCOMPARE(reports.rows.size(), 100u);
    QCOMPARE(reports.leftOut, 4900);
    for (std::size_t i = 0; i < 100; ++i) {
      QCOMPARE(reports.rows[i].date, reports.newest);
      QVERIFY(i == 0 || reports.rows[i].kHz > reports.rows[i - 1].kHz);
    }
  }

  void Filters() {
    const auto count = [](const QByteArray& line, const PropagationChoice& choice) {
      return ShownPaths(ReadPropagationFile(File({line})), choice, kNow, {u"ZZ1BAD"_s}, Known).pathCount;
    };
    const auto check = [&](const char* line, const PropagationChoice& choice, int expected) {
      QVERIFY2(count(line, choice) == expected, line);
    };
    // By minutes as they are shown: 11:01:00 is 59 minutes back, whatever the seconds; a clock that is late as well.
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315110059.txt", {60, 0, 0}, 0);
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315110100.txt", {60, 0, 0}, 1);
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315125959.txt", {60, 0, 0}, 1);
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315130000.txt", {60, 0, 0}, 0);
    // Band and mode, alone and together; no band is none of the bands.
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315115900.txt", {60, 5, 0}, 1);
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315115900.txt", {60, 4, 0}, 0);
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315115900.txt", {60, 5, 1}, 1);
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315115900.txt", {60, 5, 2}, 0);
    check("ZZ1AA_ZZ2BB_EP_14233_x_20260315115900.txt", {60, 0, 4}, 0);
    check("ZZ1AA_ZZ2BB_EP_18100_x_20260315115900.txt", {60, 0, 1}, 1);
    check("ZZ1AA_ZZ2BB_EP_18100_x_20260315115900.txt", {60, 5, 1}, 0);
    check("ZZ1AA_ZZ2BB_EP_1296200_x_20260315115900.txt", {60, 11, 0}, 1);
    // Both ends must be known by both coordinates, and neither refused.
    check("ZZ1AA_ZZ9BB_EP_14233_x_20260315115900.txt", {60, 0, 0}, 0);
    check("ZZ3EQ_ZZ1AA_EP_14233_x_20260315115900.txt", {60, 0, 0}, 0);
    check("ZZ1AA_ZZ3NAN_EP_14233_x_20260315115900.txt", {60, 0, 0}, 0);
    check("ZZ1BAD_ZZ2BB_EP_14233_x_20260315115900.txt", {60, 0, 0}, 0);
    check("ZZ2BB_ZZ1BAD_EP_14233_x_20260315115900.txt", {60, 0, 0}, 0);
    QCOMPARE(PeriodMinutesOf(u"12 hours"_s), 720);
    QCOMPARE(PeriodMinutesOf(u"15 minutes"_s), 15);
    QCOMPARE(PeriodMinutesOf(u"1 hour"_s), 60);
    QVERIFY(IsOlderThan(kNow - 3600, 60, kNow) && !IsOlderThan(kNow - 3000, 60, kNow) &&
            !IsOlderThan(kNoDate, 60, kNow));
  }

  // The grid covers twelve hours whatever is chosen, and only what the station itself received.
  void FillsTheGrid() {
    const PropagationReports reports = ReadPropagationFile(
        File({"ZZ1AA_ZZ2BB_EP_14233_5/9_20260315000100.txt", "ZZ1AA_ZZ2CC_EP_14233_x_20260315000059.txt",
              "ZZ2BB_ZZ1AA_EP_14233_x_20260315115900.txt", "ZZ1AA_ZZ9CC_FT8_500.6_x_20260315115900.txt"}));
    const QList<ReceivedRow> rows = ReceivedIn12Hours(reports, u" ZZ1AA "_s, kNow);
    const QString day = QLocale().toString(QDate(2026, 3, 15), QLocale::ShortFormat);
    QCOMPARE(rows, (QList<ReceivedRow>{{u"ZZ2BB"_s, u"EP"_s, u"14.233"_s, u"5/9"_s, day + u" 00:01:00 utc"_s},
                                       {u"ZZ9CC"_s, u"FT8"_s, u".501"_s, u"x"_s, day + u" 11:59:00 utc"_s}}));
    QVERIFY(ReceivedIn12Hours(reports, u"ZZ9CC"_s, kNow).isEmpty());
  }

  // The same two stations twice are one line and count twice; an end off the picture has neither dot nor label.
  void Draws() {
    Program program;
    program.ZeroGlyph = u'0';
    const PropagationPaths paths = ShownPaths(ReadPropagationFile(File({"ZZ1AA_ZZ2BB_EP_14233_x_20260315115900.txt",
                                                                        "ZZ1AA_ZZ2BB_FT8_7040_x_20260315115900.txt",
                                                                        "ZZ2BB_ZZ1CC_EP_14233_x_20260315115900.txt"})),
                                              {60, 0, 0}, kNow, {}, Known);
    QCOMPARE(paths.pathCount, 3);
    QCOMPARE(paths.calls, (QStringList{u"ZZ1AA"_s, u"ZZ2BB"_s, u"ZZ1CC"_s}));
    const LabelMeasure measure = [](const QString& text) { return QSizeF(7.0 * double(text.size()), 18); };
    const auto drawn = [&](MapName map, const QSize& size, const PropagationLook& look) {
      return BuildPropagationMap(program, paths, look, {map, size, measure});
    };
    const MapDrawing world = drawn(MapName::World, QSize(2800, 1412), {});
    QCOMPARE(world.overlay.lines.size(), 2);
    QCOMPARE(world.overlay.labels.size(), 3);
    QCOMPARE(world.overlay.labels.first().text, u" ZZ1AA "_s);
    const MapDrawing uk = drawn(MapName::Uk, QSize(1090, 1300), {{u"ZZ1CC"_s}, u"ZZ1AA"_s, u"ZZ2BB"_s, false, 3});
    QCOMPARE(uk.info, u"3 older report(s) were left out."_s);
    QCOMPARE(uk.overlay.labels.size(), 1);
    QCOMPARE(uk.overlay.lines.size(), 4);
    QVERIFY(uk.overlay.lines.last().width > 2);
    QVERIFY(uk.spoken.contains(u"ZZ1AA - ZZ2BB"_s));
    QCOMPARE(NextPartner(paths, u"ZZ2BB"_s, u"ZZ1AA"_s, 1), u"ZZ1CC"_s);
    QCOMPARE(NextPartner(paths, u"ZZ2BB"_s, u"ZZ1AA"_s, -1), u"ZZ1CC"_s);
    QCOMPARE(NextPartner(paths, u"ZZ2BB"_s, QString(), 1), u"ZZ1AA"_s);
  }
};

OMNI_TEST(TestPropagation)
#include "test_propagation.moc"
