// SPDX-License-Identifier: GPL-3.0-or-later
// The editor of the call database, used as a user does.
#include "callbook/database_editor_window.h"
#include "lookup_fixture.h"

namespace {

struct AskedDialogs : Dialogs {
  QStringList asked;
  bool second = false;
  bool AskSecond(QWidget*, const QString& text, const QString&, const QString&) override {
    asked += text;
    return second;
  }
};

struct EditorFixture : LookupFixture {
  QWidget owner;
  AskedDialogs dialogs;
  QPointer<Form26> window;

  explicit EditorFixture(int service = 4) {
    Choose(service);
    for (const QString& call : {u"DL1AB"_s, u"K1QPE"_s, u"ZZ9QX"_s}) File(call, u"Robin"_s, u"51.5"_s, u"0.1"_s);
    program.nicknames.lstNicknames = QStringList{u"DL1ABC*Long"_s, u"DL1AB*Bo"_s};
  }
  void Open() {
    const SignInBrowser browser{[]() -> BrowserWindows* { return nullptr; }, [](const QUrl&) {}, dialogs};
    window = new Form26({Dependencies(), browser, dialogs}, &owner);
    window->show();
    QTRY_VERIFY(Calls() > 0);
  }
  template <typename Widget>
  Widget* Part(const QString& name) const {
    return window->findChild<Widget*>(name);
  }
  QListView* List() const { return Part<QListView>(u"lstCall"_s); }
  int Calls() const { return List()->model()->rowCount(); }
  QString Selected() const { return List()->currentIndex().data().toString(); }
  QString Text(const QString& box) const { return Part<QLineEdit>(box)->text(); }
  QPushButton* Button(const QString& name) const { return Part<QPushButton>(name); }
  void Press(const QString& name) const { Button(name)->click(); }
  void Pick(int row) const { List()->setCurrentIndex(List()->model()->index(row, 0)); }
  void Type(const QString& box, const QString& text) const {
    Part<QLineEdit>(box)->selectAll();
    QTest::keyClicks(Part<QLineEdit>(box), text);
  }
  QString Edits() const { return Part<ActionLine>(u"editLine"_s)->findChild<QLabel*>()->text(); }
  bool Close() {
    QTest::keyClick(window, Qt::Key_Escape);
    return QTest::qWaitFor([this]() { return window == nullptr; });
  }
};

}  // namespace

class TestDatabaseEditor : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void SelectsWhatIsTypedAndLoadsWhatIsClicked() {
    EditorFixture f;
    f.Open();
    QCOMPARE(f.window->windowTitle() + f.Part<QLabel>(u"lblEntries"_s)->text(),
             u"Callsign database (3)Number of callsigns in database = 3"_s);
    QCOMPARE(f.Button(u"cmdAddNewSite"_s)->text(), u"Add callsign to the database"_s);
    QVERIFY(!f.Button(u"cmdAddNewSite"_s)->isEnabled() && !f.Button(u"cmdDeleteSite"_s)->isEnabled());
    f.Type(u"txtCall"_s, u"dl1a"_s);
    QVERIFY(f.Selected().isEmpty() && f.Text(u"txtNickName"_s).isEmpty() && !f.Button(u"cmdDeleteSite"_s)->isEnabled());
    QCOMPARE(f.Button(u"cmdAddNewSite"_s)->text(), u"Add DL1A to the database"_s);
    f.Type(u"txtCall"_s, u"dl1ab"_s);
    // Of the nicknames, that of exactly this call.
    QCOMPARE(f.Selected() + f.Text(u"txtNickName"_s) + f.Text(u"txtName"_s), u"DL1ABBo"_s);
    QCOMPARE(f.Button(u"cmdAddNewSite"_s)->text() + f.Button(u"cmdLookup"_s)->text(),
             u"Update DL1AB in the databaseLook up DL1AB on Callook"_s);
    QVERIFY(f.Button(u"cmdDeleteSite"_s)->isEnabled());
    QTest::keyClick(f.Part<QLineEdit>(u"txtCall"_s), Qt::Key_Return);
    QCOMPARE(f.Text(u"txtName"_s) + f.Text(u"txtLat"_s), u"Robin51.5"_s);
    QTest::keyClicks(f.List(), u"z"_s);
    QCOMPARE(f.Text(u"txtCall"_s) + f.Text(u"txtName"_s), u"ZZ9QXRobin"_s);
  }

  void AddsAndDeletes() {
    EditorFixture f;
    f.Open();
    f.Type(u"txtCall"_s, u"g3ab"_s);
    f.Type(u"txtName"_s, QString(40, u'x'));
    f.Type(u"txtLat"_s, u"50,5"_s);
    f.Press(u"cmdAddNewSite"_s);
    QTRY_COMPARE(f.Calls(), 4);
    QCOMPARE(f.Filed(u"G3AB"_s).section(u'*', 0, 1), QString(25, u'x') + u"*50.5"_s);
    QTRY_COMPARE(f.Selected() + f.Edits(), u"G3AB"_s);
    // Over a record that was never shown only with a Yes.
    f.Type(u"txtCall"_s, u"K1QPE"_s);
    f.Press(u"cmdAddNewSite"_s);
    QVERIFY(f.dialogs.asked.size() == 1 && f.Filed(u"K1QPE"_s).startsWith(u"Robin"_s));
    // A deletion asks nothing, and can be undone.
    f.Pick(2);
    f.Press(u"cmdDeleteSite"_s);
    QTRY_COMPARE(f.Calls(), 3);
    QVERIFY(f.Text(u"txtCall"_s).isEmpty() && f.Text(u"txtName"_s).isEmpty() && f.dialogs.asked.size() == 1);
    QCOMPARE(f.Part<ActionLine>(u"deletedLine"_s)->findChild<QLabel*>()->text(), u"K1QPE was deleted"_s);
    f.Press(u"undoButton"_s);
    QTRY_VERIFY(f.Calls() == 4 && !f.Part<ActionLine>(u"deletedLine"_s)->isVisible());
    QVERIFY(f.Filed(u"K1QPE"_s).startsWith(u"Robin*51.5"_s));
    // Every addition of a call that is too long makes a further record: all go, and all come back.
    f.Type(u"txtCall"_s, u"AA9QXAB"_s);
    for (const int calls : {5, 6}) {
      f.Press(u"cmdAddNewSite"_s);
      QTRY_COMPARE(f.Calls(), calls);
    }
    f.Pick(0);
    f.Press(u"cmdDeleteSite"_s);
    QTRY_COMPARE(f.Calls(), 4);
    f.Press(u"undoButton"_s);
    QTRY_COMPARE(f.Calls(), 6);
    QVERIFY(f.Close());
  }

  void KeepsEdits() {
    EditorFixture f;
    f.Open();
    f.Pick(0);
    f.Type(u"txtName"_s, u"Anna"_s);
    f.Pick(1);
    QCOMPARE(f.Text(u"txtName"_s) + f.Edits(), u"RobinEdited, not saved: DL1AB"_s);
    QVERIFY(f.List()->model()->index(0, 0).data().toString() == u"● DL1AB"_s);
    f.Type(u"txtClass"_s, u"A"_s);
    f.Pick(0);
    QCOMPARE(f.Text(u"txtName"_s) + f.Edits(), u"AnnaEdited, not saved: DL1AB, K1QPE"_s);
    f.Press(u"saveButton"_s);
    QTRY_COMPARE(f.Edits(), QString());
    QVERIFY(f.Filed(u"DL1AB"_s).startsWith(u"Anna*51.5"_s) && f.Filed(u"K1QPE"_s).section(u'*', 3, 3) == "A"_L1);
    f.Type(u"txtName"_s, u"Berta"_s);
    f.Press(u"discardButton"_s);
    QCOMPARE(f.Text(u"txtName"_s) + f.Edits(), u"Anna"_s);
    // Another call, typed into the box, takes neither the edit nor the boxes with it.
    f.Type(u"txtName"_s, u"Dora"_s);
    f.Type(u"txtCall"_s, u"zz9qx"_s);
    QCOMPARE(f.Edits(), u"Edited, not saved: DL1AB"_s);
    QTest::keyClick(f.Part<QLineEdit>(u"txtCall"_s), Qt::Key_Return);
    QCOMPARE(f.Text(u"txtName"_s) + f.Edits(), u"RobinEdited, not saved: DL1AB"_s);
    f.Type(u"txtCall"_s, u"dl1ab"_s);
    QTest::keyClick(f.Part<QLineEdit>(u"txtCall"_s), Qt::Key_Return);
    QCOMPARE(f.Text(u"txtName"_s), u"Dora"_s);
    f.Press(u"discardButton"_s);
    // Only closing asks.
    f.Type(u"txtName"_s, u"Carl"_s);
    QVERIFY(f.dialogs.asked.isEmpty());
    f.dialogs.second = true;
    QVERIFY(f.Close() && f.dialogs.asked.size() == 1 && f.Filed(u"DL1AB"_s).startsWith(u"Carl"_s));
  }

  void LooksUp() {
    EditorFixture f;
    f.Open();
    f.Service().SetLatency(100ms);
    f.Pick(1);
    f.Press(u"cmdLookup"_s);
    f.Type(u"txtClass"_s, u"mine"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.Text(u"txtName"_s), u"Martha"_s, 10'000);
    QCOMPARE(f.Text(u"txtLat"_s) + f.Text(u"txtClass"_s) + f.Edits(), u"44.1mineEdited, not saved: K1QPE"_s);
    QTRY_VERIFY(f.Filed(u"K1QPE"_s).startsWith(u"Martha*44.1"_s) && f.Part<QWidget>(u"Image1"_s)->isVisible());
    f.Press(u"discardButton"_s);
    // A new call is added; a site's place is marked, and stored without the mark.
    SiteRec site;
    site.Call = u"W1QXM"_s;
    site.Lat = 43.5;
    site.Lon = -72.25;
    f.program.sites.Sites.append(site);
    f.program.sites.SortSites();
    f.Type(u"txtCall"_s, u"w1qxm/p"_s);
    f.Press(u"cmdLookup"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.Text(u"txtLat"_s) + f.Text(u"txtCall"_s), u"43.5*W1QXM"_s, 10'000);
    QVERIFY(f.Part<QLabel>(u"Label4"_s)->isVisible());
    QTRY_COMPARE(f.Calls(), 4);
    f.Press(u"cmdAddNewSite"_s);
    f.Type(u"txtCall"_s, u"QQ7QQQ"_s);
    f.Press(u"cmdLookup"_s);
    QTRY_COMPARE(f.Part<QLabel>(u"lblInfo"_s)->text(), u"QQ7QQQ not found on Callook"_s);
    QCOMPARE(f.Filed(u"W1QXM"_s).section(u'*', 1, 2), u"43.5*-72.25"_s);
    // eHam shows its data to members only: all is blanked.
    QTest::keyClick(f.Part<QComboBox>(u"cboDB"_s), Qt::Key_Home);
    QTRY_COMPARE(f.Text(u"txtCall"_s) + f.Text(u"txtName"_s), QString());
    QCOMPARE(f.Part<QAbstractButton>(u"lblLogin"_s)->text(), u"Not logged in"_s);
  }

  void KeepsNicknames() {
    const auto check = [](const char* what, const QString& call, const QString& typed, const QStringList& left) {
      const TableRow row(what);
      EditorFixture f;
      f.Open();
      f.Type(u"txtCall"_s, call);
      f.Type(u"txtNickName"_s, typed);
      if (typed.isEmpty()) QTest::keyClick(f.Part<QLineEdit>(u"txtNickName"_s), Qt::Key_Delete);
      QVERIFY(f.program.nicknames.lstNicknames.size() == 2 && f.Close());
      QCOMPARE(f.program.nicknames.lstNicknames, left);
    };
    check("another", u"dl1ab"_s, u"B*o,b\"by"_s, {u"DL1ABC*Long"_s, u"DL1AB*Bobby"_s});
    check("none", u"dl1ab"_s, {}, {u"DL1ABC*Long"_s});
    check("a new one", u"g3ab"_s, u"Al"_s, {u"DL1ABC*Long"_s, u"DL1AB*Bo"_s, u"G3AB*Al"_s});
    check("no call", {}, u"Al"_s, {u"DL1ABC*Long"_s, u"DL1AB*Bo"_s});
  }

  void SaysWhatItCannotWrite() {
    EditorFixture f;
    f.Open();
    f.Pick(0);
    f.Type(u"txtName"_s, u"Anna"_s);
    const QString file = f.folder.filePath(u"Omni-Perch-DB.db"_s);
    QVERIFY(QFile::rename(file, file + u"-away"_s) && QDir().mkdir(file));
    f.Press(u"cmdAddNewSite"_s);
    auto* line = f.Part<ActionLine>(u"saveLine"_s);
    QTRY_VERIFY(line->isVisible());
    QVERIFY(f.Text(u"txtName"_s) == "Anna"_L1 && QDir().rmdir(file) && QFile::rename(file + u"-away"_s, file));
    line->Button(0)->click();
    QTRY_VERIFY(!line->isVisible());
    QVERIFY(f.Filed(u"DL1AB"_s).startsWith(u"Anna"_s));
    // What is tried again is the deletion of the call for which it failed, whatever has been chosen since.
    QVERIFY(QFile::rename(file, file + u"-away"_s) && QDir().mkdir(file));
    f.Press(u"cmdDeleteSite"_s);
    QTRY_VERIFY(line->isVisible());
    QVERIFY(QDir().rmdir(file) && QFile::rename(file + u"-away"_s, file));
    f.Type(u"txtCall"_s, u"zz9qx"_s);
    line->Button(0)->click();
    QTRY_VERIFY(!line->isVisible());
    QVERIFY(f.Filed(u"DL1AB"_s).isEmpty() && f.Filed(u"ZZ9QX"_s).startsWith(u"Robin"_s));
  }
};

OMNI_TEST(TestDatabaseEditor)
#include "test_database_editor.moc"
