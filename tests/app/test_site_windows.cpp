// SPDX-License-Identifier: GPL-3.0-or-later
// The windows that edit and remove sites, by keyboard, while what they store is on its way to the disk, and at the end
// of the program.
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "sites/site_desk.h"
#include "window_fixture.h"

namespace {

BaseWindow* Open(const WindowFixture& f, int index, WindowKind kind) {
  MenuChoice choice;
  choice.command = MenuTables::SetupCommand(index);
  f.services->commands.Do(choice);
  return f.form->AllWindows().Find(kind);
}

// The call database has a record of ZZ5BB, so that an edit of this site waits for the database.
bool StartWithSites(WindowFixture& f) {
  int slot = 0;
  for (const QString& call : {u"ZZ1AA"_s, u"ZZ5BB"_s, u"ZZ7CC"_s}) f.AddSite(call, ++slot);
  if (!f.StartAndPoll()) return false;
  DbRec record;
  record.Call = u"ZZ5BB"_s;
  f.services->database.SaveStation(u"ZZ5BB"_s, record);
  return f.services->database.Finish();
}

}  // namespace

class TestSiteWindows : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Return in the search goes on to what was found, which is shown then; only the button removes it.
  void FindsASiteAndRemovesIt() {
    WindowFixture f;
    QVERIFY(StartWithSites(f));
    QPointer<BaseWindow> window = Open(f, 6, WindowKind::DeleteSite);
    QVERIFY(window != nullptr);
    QTRY_COMPARE(QApplication::focusWidget(), window->findChild<QWidget*>(u"txtSearch"_s));
    QTest::keyClicks(QApplication::focusWidget(), u"zz5"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), window->findChild<QWidget*>(u"List1"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(f.State().sites.Sites.size(), 3);
    QVERIFY(window->findChild<QLabel*>(u"lbl_Url"_s)->text().contains(u"image1"_s));
    QTest::keyClick(window->findChild<QPushButton*>(u"cmdRemove"_s), Qt::Key_Space);
    QTRY_VERIFY(window == nullptr);
    QCOMPARE(f.State().sites.FindCall(u"ZZ5BB"_s), -1);
  }

  // While one entry is being saved no other can be picked, and the window stays; the unsaved edit of another one is
  // still there afterwards. The end of the program asks nothing about it.
  void KeepsAnEditWhileAnotherIsSaved() {
    WindowFixture f;
    QVERIFY(StartWithSites(f));
    QPointer<BaseWindow> window = Open(f, 5, WindowKind::EditSite);
    QVERIFY(window != nullptr);
    auto* list = window->findChild<QListWidget*>(u"List1"_s);
    auto* cam = window->findChild<QLineEdit*>(u"txtCamUrl"_s);
    for (const int row : {0, 1}) {
      list->setCurrentRow(row);
      cam->setText(u"cam%1"_s.arg(row));
    }
    window->findChild<QPushButton*>(u"cmdSaveOne"_s)->click();
    QVERIFY(!list->isEnabled() && !cam->isEnabled());
    window->close();
    QVERIFY(f.dialogs.told.isEmpty());
    QTRY_COMPARE(f.State().sites.Sites.at(1).CamUrl, u"cam1"_s);
    // It closes now, if the user does not mind the other edit.
    QTRY_COMPARE(f.dialogs.told.size(), 1);
    QVERIFY(window != nullptr && window->isVisible() && list->isEnabled());
    list->setCurrentRow(0);
    QCOMPARE(cam->text(), u"cam0"_s);
    QVERIFY(f.State().sites.Sites.at(0).CamUrl.isEmpty());
    f.Close();
    QCOMPARE(f.dialogs.told.size(), 1);
  }

  // The database answers when the sites have other indices already.
  void SavesTheSiteThatWasMeant() {
    WindowFixture f;
    QVERIFY(StartWithSites(f));
    SiteChanges& changes = f.form->Logic().changes;
    SiteDesk desk(f.State(), changes, f.services->database);
    SiteFields fields = FieldsOf(f.State().sites.Sites.at(1), SiteTableKind::Dsstv);
    fields.camUrl = u"cam"_s;
    bool saved = false;
    desk.Save({{1, fields}}, {}, &desk, [&saved](const SiteOutcome& outcome) { saved = outcome.IsDone(); });
    changes.ChangeSites([](SiteEdit& edit) { edit.dsstv.Remove(0); }, {}, &desk, {});
    QVERIFY(!saved);
    QTRY_VERIFY(saved);
    QCOMPARE(f.State().sites.Sites.at(0).Call, u"ZZ5BB"_s);
    QCOMPARE(f.State().sites.Sites.at(0).CamUrl, u"cam"_s);
    QCOMPARE(f.State().sites.Sites.at(1).Call, u"ZZ7CC"_s);
    QVERIFY(f.State().sites.Sites.at(1).CamUrl.isEmpty());
  }
};

OMNI_TEST(TestSiteWindows)
#include "test_site_windows.moc"
