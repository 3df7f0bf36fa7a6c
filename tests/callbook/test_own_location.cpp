// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the own location and the fetch of coordinates that it shares with the other setup windows.
#include "callbook/own_location_window.h"
#include "lookup_fixture.h"
#include "platform/text/text_file.h"

namespace {

constexpr int kEham = 1;
constexpr int kCallook = 4;
constexpr int kHamCall = 5;

struct LocationFixture : LookupFixture {
  QWidget owner;
  Dialogs dialogs;
  QPointer<Form11> window;

  explicit LocationFixture(int service = kCallook) {
    folder.Put(u"Omni-Perch.cfg"_s, {});
    program.config.MyCall = u"ZZ9QX"_s;
    Choose(service);
  }
  void Open() {
    const SignInBrowser browser{[]() -> BrowserWindows* { return nullptr; }, [](const QUrl&) {}, dialogs};
    window = new Form11({Dependencies(), browser}, &owner);
    window->show();
  }
  template <typename Widget = QLineEdit>
  Widget* Part(const QString& name) const {
    return window->findChild<Widget*>(name);
  }
  QString Place() const { return Part(u"txtLat"_s)->text() + u'|' + Part(u"txtLon"_s)->text(); }
  void Type(const QString& box, const QString& text) const {
    Part(box)->selectAll();
    QTest::keyClicks(Part(box), text);
  }
  void Fetch(const QString& call) const {
    Type(u"txtCall"_s, call);
    QTest::mouseClick(Part<QPushButton>(u"cmdGetLatLon"_s), Qt::LeftButton);
  }
  QString FetchText() const { return Part<QPushButton>(u"cmdGetLatLon"_s)->text(); }
  bool IsRead() const { return window->cursor().shape() != Qt::BusyCursor; }
  bool Close() {
    QTest::keyClick(window, Qt::Key_Escape);
    return QTest::qWaitFor([this]() { return window == nullptr; });
  }
};

}  // namespace

class TestOwnLocation : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TakesWhatIsTyped() {
    LocationFixture f;
    f.program.config.DistUnit = 1;
    f.Open();
    const auto* lblGrid = f.Part<QLabel>(u"lblGrid"_s);
    QCOMPARE(f.Place() + lblGrid->text(), u"40|-75Grid:   FN20la"_s);
    f.Type(u"txtLat"_s, u"4x0,5"_s);
    f.Type(u"txtLon"_s, u"-75.2"_s);
    QCOMPARE(QString::number(f.program.config.MyLat) + lblGrid->text(), u"40.5Grid:   FN20jm"_s);
    f.Type(u"txtLat"_s, u"91"_s);
    QCOMPARE(QString::number(f.program.config.MyLat) + lblGrid->text(), u"91"_s);
    QVERIFY(f.Part<QRadioButton>(u"optMiKm1"_s)->isChecked());
    f.Part<QRadioButton>(u"optMiKm0"_s)->click();
    QCOMPARE(f.program.config.DistUnit, 0);
    f.Type(u"txtCall"_s, u"g3ab"_s);
    QCOMPARE(f.FetchText(), u"Get coordinates of G3AB from Callook"_s);
    f.Part(u"txtCall"_s)->clear();
    QVERIFY(!f.Part<QPushButton>(u"cmdGetLatLon"_s)->isEnabled());
  }

  // What closing writes, by what stands in the field for the call.
  void StoresAtClosing() {
    const auto check = [](const char* what, const QString& typed, const QString& lat, const QString& MyCall,
                          const QString& filed) {
      const TableRow row(what);
      LocationFixture f;
      f.File(u"K1QPE"_s, u"Robin"_s, u"51.5"_s, u"0.1"_s);
      f.program.config.CallbookIndex = 3;
      f.program.config.DistUnit = 1;
      f.Open();
      QSignalSpy saved(f.window, &Form11::LocationSaved);
      f.Part(u"txtCall"_s)->clear();
      f.Type(u"txtCall"_s, typed);
      f.Type(u"txtLat"_s, lat);
      QVERIFY(f.Close() && saved.count() == 1);
      QCOMPARE(f.program.config.MyCall, MyCall);
      QCOMPARE(f.Filed(u"K1QPE"_s).section(u'*', 0, 2), filed);
      QCOMPARE(f.Records(), MyCall == "G3AB"_L1 ? 2 : 1);
      const QStringList lines = SplitLines(*ReadTextFile(f.folder.filePath(u"Omni-Perch.cfg"_s)));
      QCOMPARE(lines.mid(6, 3), (QStringList{QString(lat).replace(u',', u'.'), u"-75"_s, u"1"_s}));
      QCOMPARE(lines.mid(11, 1) + lines.mid(17, 3), (QStringList{MyCall, {}, {}, {}}));
      QVERIFY(f.program.config.CallbookIndex == 3);
    };
    check("a record that is there", u"k1qpe/p"_s, u"50,25"_s, u"K1QPE"_s, u"Robin*50.25*-75"_s);
    check("no place", u"K1QPE"_s, u"0"_s, u"K1QPE"_s, u"Robin*51.5*0.1"_s);
    check("a new one", u"G3AB"_s, u"50"_s, u"G3AB"_s, u"Robin*51.5*0.1"_s);
    check("no call", {}, u"50"_s, u"ZZ9QX"_s, u"Robin*51.5*0.1"_s);
    check("a word", u"HELLO"_s, u"50"_s, u"ZZ9QX"_s, u"Robin*51.5*0.1"_s);
  }

  void StaysWithWhatCannotBeWritten() {
    LocationFixture f;
    QFile::remove(f.folder.filePath(u"Omni-Perch.cfg"_s));
    f.folder.PutFolder(u"Omni-Perch.cfg"_s);
    f.Open();
    f.Type(u"txtLat"_s, u"12"_s);
    QTest::keyClick(f.window, Qt::Key_Escape);
    auto* line = f.Part<ActionLine>(u"saveLine"_s);
    QTRY_VERIFY(line->isVisible());
    QVERIFY(line->findChild<QLabel*>()->text().contains(u"Omni-Perch.cfg"_s) && f.Place() == "12|-75"_L1);
    QDir(f.folder.path()).rmdir(u"Omni-Perch.cfg"_s);
    line->Button(0)->click();
    QTRY_VERIFY(f.window == nullptr);
    QVERIFY(f.folder.Bytes(u"Omni-Perch.cfg"_s).contains("12\r\n-75"));
  }

  void FetchesThePlace() {
    LocationFixture f;
    f.Open();
    f.Fetch(u"k1qpe"_s);
    QTRY_VERIFY_WITH_TIMEOUT(f.Place().startsWith(u"44.1|"_s), 10'000);
    QCOMPARE(f.FetchText(), u"Get coordinates of K1QPE from Callook\r\n(No login needed)"_s);
    QTRY_VERIFY(f.Filed(u"K1QPE"_s).startsWith(u"Martha*44.1"_s) && !f.Picture(u"K1QPE"_s).isEmpty());
    // The page has no place: 0, 0, and Ctrl+Z brings the former back. The record's place is kept.
    f.File(u"W1QXM"_s, u"Robin"_s, u"51.5"_s, u"0.1"_s);
    f.Fetch(u"W1QXM"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.Place(), u"0|0"_s, 10'000);
    QTest::keyClick(f.Part(u"txtLat"_s), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY2(f.Place() == "44.1|0"_L1 && f.program.config.MyLat == 44.1, qPrintable(f.Place()));
    QTRY_COMPARE(f.Filed(u"W1QXM"_s).section(u'*', 0, 2), u"Nobody Knowsplace*51.5*0.1"_s);
    // A site's place stands in for it.
    SiteRec site;
    site.Call = u"W1QXM"_s;
    site.Lat = 43.5;
    site.Lon = -72.25;
    f.program.sites.Sites.append(site);
    f.program.sites.SortSites();
    f.Fetch(u"W1QXM"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.Place(), u"43.5|-72.25"_s, 10'000);
    // What is not found leaves the place alone.
    f.Fetch(u"QQ7QQQ"_s);
    QTRY_VERIFY(f.FetchText().endsWith(u"QQ7QQQ not found on Callook"_s));
    QCOMPARE(f.Place(), u"43.5|-72.25"_s);
  }

  // An answer that comes when something else has been typed is stored, and not shown.
  void OverwritesNothingTyped() {
    LocationFixture f;
    f.Open();
    f.Service().SetLatency(100ms);
    f.Fetch(u"K1QPE"_s);
    f.Type(u"txtLat"_s, u"12"_s);
    QTRY_VERIFY_WITH_TIMEOUT(f.Part<QLabel>(u"lblMsg"_s)->text().contains(u"44.1"_s), 10'000);
    QCOMPARE(f.Place(), u"12|-75"_s);
    f.Fetch(u"W5QUJ"_s);
    f.Type(u"txtCall"_s, u"ZZ9QX"_s);
    QTRY_VERIFY_WITH_TIMEOUT(!f.Filed(u"W5QUJ"_s).isEmpty(), 10'000);
    QCOMPARE(f.Place() + f.FetchText(), u"12|-75Get coordinates of ZZ9QX from Callook"_s);
    // Closed with a read in flight: nothing comes.
    f.Fetch(u"K6QVL"_s);
    QVERIFY(f.Close());
    QVERIFY(!f.Filed(u"K6QVL"_s).startsWith(u"K"_s));
  }

  // HamCall shows nothing without a login, eHam and QRZ are read all the same.
  void KnowsTheLoginStates() {
    LocationFixture f(kHamCall);
    f.Open();
    f.Fetch(u"K1QPE"_s);
    QTRY_COMPARE(f.FetchText(), u"Get coordinates of K1QPE from HamCall\r\n(Not logged in)"_s);
    QTRY_VERIFY(f.IsRead());
    QVERIFY(f.Place() == "40|-75"_L1 && f.Records() == 0);
    QTest::keyClick(f.Part<QComboBox>(u"cboDB"_s), Qt::Key_Home);
    QTRY_VERIFY(f.IsRead() && f.FetchText().startsWith(u"Get coordinates of K1QPE from eHam\r\n(Not logged in)"_s));
    QVERIFY(f.program.config.CallbookIndex == kEham && f.Place() == "40|-75"_L1);
  }
};

OMNI_TEST(TestOwnLocation)
#include "test_own_location.moc"
