// SPDX-License-Identifier: GPL-3.0-or-later
// The propagation map as a user meets it: what it shows through refreshes, choices, slow and failing servers.
#include <QComboBox>
#include <QMouseEvent>
#include <QTableView>

#include "feed_fixture.h"
#include "onair/propagation_window.h"
#include "recording_menus.h"

namespace {

const QString kPath = QStringLiteral("zz9qx/Files/PropagationPaths.txt");

// A report, so many minutes old.
QByteArray Report(const char* text, int minutes) {
  const QDateTime at = QDateTime::currentDateTimeUtc().addSecs(-60 * minutes);
  return QByteArray(text) + "_599_" + at.toString(QStringLiteral("yyyyMMddhhmmss")).toLatin1() + ".txt\r\n";
}

struct PropagationFixture : FeedFixture {
  QWidget owner;
  RecordingMenus menus;
  MapStore maps{folder.path()};
  Clock clock;
  int PeriodMinutes = 60;
  QPointer<frmMapPropagation> window;

  PropagationFixture() {
    QDir(folder.path()).mkpath(QStringLiteral("Maps"));
    QImage picture(2800, 1412, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.save(folder.filePath(QStringLiteral("Maps/World Map.jpg")), "JPG");
    program.lstMap = {QStringLiteral("World Map.jpg")};
    Station(QStringLiteral("ZZ1QA"), QStringLiteral("52.5"), QStringLiteral("-1.25"));
    Station(QStringLiteral("ZZ2QB"), QStringLiteral("40"), QStringLiteral("20"));
    Station(QStringLiteral("ZZ3QC"), QStringLiteral("35"), QStringLiteral("139"));
  }
  ~PropagationFixture() { delete window; }

  void Serve(const QByteArray& lines) const {
    Text().SetAnswer(kPath, {200, "text/plain", "head\r\n" + lines + "not read\r\n", {}});
  }
  void Open() {
    window = new frmMapPropagation(
        {{program, network, background, hosts, store, clock, database, PeriodMinutes}, maps, menus}, &owner);
    window->Open();
    QTRY_VERIFY(window->isVisible());
  }
  MapView& View() const { return *window->findChild<MapView*>(); }
  QString Calls() const {
    QStringList calls;
    for (const MapOverlay::Label& label : View().Labels()) calls << label.id;
    return calls.join(u' ');
  }
  QString Info() const { return window->findChild<QLabel*>(QStringLiteral("lblMapInfo1"))->text(); }
  void Choose(const QString& list, int index) const {
    auto* box = window->findChild<QComboBox*>(list);
    box->setCurrentIndex(index);
    Q_EMIT box->activated(index);
  }
  void Point(const QPoint& at) const {
    QMouseEvent move(QEvent::MouseMove, at, View().mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &move);
  }
};

}  // namespace

class TestPropagationWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FollowsTheFileAndTheChoice() {
    PropagationFixture f;
    f.Serve(Report("ZZ1QA_ZZ2QB_EP_14233", 5) + Report("ZZ2QB_ZZ3QC_FT8_18100", 40) +
            Report("ZZ1QA_ZZ3QC_EP_1296200", 90));
    f.Open();
    QTRY_COMPARE(f.Calls(), u"ZZ1QA ZZ2QB ZZ3QC"_s);
    QCOMPARE(f.Info(), u"Paths shown: 2"_s);
    f.Choose(u"cboPropagation"_s, 0);  // 15 minutes
    QTRY_COMPARE(f.Calls(), u"ZZ1QA ZZ2QB"_s);
    QCOMPARE(f.PeriodMinutes, 15);
    f.Choose(u"cboPropagation"_s, 3);  // 2 hours
    f.Choose(u"cboBand"_s, 11);        // 23 cm
    QTRY_COMPARE(f.Calls(), u"ZZ1QA ZZ3QC"_s);
    // What was chosen is on the disk at once, and is what the next window shows.
    const auto stored = [&f]() {
      QFile file(f.folder.filePath(u"settings.ini"_s));
      return file.open(QIODevice::ReadOnly) && file.readAll().contains("TX\\band=11");
    };
    QTRY_VERIFY(stored());
    f.window->close();
    QTRY_VERIFY(f.window.isNull());
    f.Open();
    QTRY_COMPARE(f.Calls(), u"ZZ1QA ZZ3QC"_s);
    QCOMPARE(f.window->findChild<QComboBox*>(u"cboPropagation"_s)->currentIndex(), 3);
    // A server that answers nothing changes nothing.
    f.Text().SetAnswer(kPath, {200, "text/plain", {}, {}});
    const int asked = f.Text().Requests(kPath);
    f.Choose(u"cboPropagation"_s, 4);
    QTRY_VERIFY(f.Text().Requests(kPath) > asked);
    QCOMPARE(f.Calls(), u"ZZ1QA ZZ3QC"_s);
    // All reports are too old.
    f.Serve(Report("ZZ1QA_ZZ3QC_EP_1296200", 300));
    f.Choose(u"cboPropagation"_s, 1);
    QTRY_COMPARE(f.Info(), u"Paths shown: 0\nThe newest report is older than this period"_s);
  }

  // The pointer and the keyboard open the grid; the sign takes a label away until the file comes again.
  void TellsOfAStation() {
    PropagationFixture f;
    f.program.ZeroGlyph = QChar(u'0');
    f.Serve(Report("ZZ1QA_ZZ2QB_EP_14233", 5) + Report("ZZ1QA_ZZ3QC_FT8_500", 700));
    f.Open();
    QTRY_COMPARE(f.Calls(), u"ZZ1QA ZZ2QB"_s);
    f.View().FocusLabel(0);
    QTest::keyClick(&f.View(), Qt::Key_Period);
    QTRY_COMPARE(f.View().Labels().value(f.View().FocusedLabel()).id, u"ZZ2QB"_s);
    QTRY_COMPARE(f.View().Overlay().lines.last().width, 5);
    const auto* picRx = f.window->findChild<QWidget*>(u"picRx"_s);
    const auto* gridRx = picRx->findChild<QTableView*>(u"gridRx"_s);
    QVERIFY(picRx->isVisible());
    QCOMPARE(gridRx->model()->rowCount(), 0);  // it has received nothing
    // A refresh with other rows, none of them of this station: its grid stays as the user has turned it.
    QSignalSpy reset(gridRx->model(), &QAbstractItemModel::modelReset);
    f.Serve(Report("ZZ1QA_ZZ2QB_EP_14233", 5) + Report("ZZ1QA_ZZ2QB_EP_7100", 6) + Report("ZZ1QA_ZZ3QC_FT8_500", 700));
    f.Choose(u"cboPropagation"_s, 0);
    QTRY_COMPARE(f.Info(), u"Paths shown: 2"_s);
    QVERIFY(picRx->isVisible() && reset.isEmpty());
    f.Point(f.View().LabelRect(0).center());
    QCOMPARE(picRx->findChild<QLabel*>(u"lblGrid"_s)->text(), u"Received in last 12 hours (ZZ1QA  )"_s);
    QCOMPARE(gridRx->model()->rowCount(), 3);
    QCOMPARE(gridRx->model()->index(2, 2).data().toString(), u".500"_s);
    QVERIFY(f.window->rect().contains(picRx->geometry()));
    QTest::keyClick(&f.View(), Qt::Key_Escape);
    QVERIFY(!picRx->isVisible() && f.window->isVisible());
    QTest::mouseClick(&f.View(), Qt::LeftButton, {}, f.View().LabelRect(0).center());
    QCOMPARE(f.menus.wanted.last().subject.caller, u"ZZ1QA"_s);
    f.View().FocusLabel(0);
    QTest::keyClick(&f.View(), Qt::Key_Delete);
    QTRY_COMPARE(f.Calls(), u"ZZ2QB"_s);
    f.Choose(u"cboMode"_s, 1);
    QTRY_COMPARE(f.Calls(), u"ZZ1QA ZZ2QB"_s);
  }
};

OMNI_TEST(TestPropagationWindow)
#include "test_propagation_window.moc"
