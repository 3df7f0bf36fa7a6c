// SPDX-License-Identifier: GPL-3.0-or-later
// What the setup menu and an empty page do in the whole program: names and order of the pages, backups, putting a lost
// list back.
#include <QLineEdit>
#include <QPushButton>

#include "app/empty_page.h"
#include "no_room.h"
#include "sites/page_names_window.h"
#include "window_fixture.h"

namespace {

// Chooses an entry of the setup menu.
void Choose(const WindowFixture& f, Command command, int index) {
  MenuChoice choice;
  choice.command = command;
  choice.index = index;
  f.services->commands.Do(choice);
}

Form5* OpenPages(const WindowFixture& f) {
  Choose(f, Command::EditPageNames, 3);
  return qobject_cast<Form5*>(f.form->AllWindows().Find(WindowKind::PageNames));
}

}  // namespace

class TestSetup : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // By keyboard: page 1 gets a name and goes down by one. Page 1 is shown then, and each of its sites is asked once.
  void NamesAndMovesAPage() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1);
    QVERIFY(f.StartAndPoll());
    f.form->MnuPagesClick(4);
    QPointer<Form5> pages = OpenPages(f);
    QVERIFY(pages != nullptr && pages->isVisible());
    QTest::keyClick(pages.data(), Qt::Key_F2);
    QTest::keyClicks(pages->findChild<QLineEdit*>(u"Text1"_s), u"Europe"_s);
    pages->findChild<QPushButton*>(u"cmdDown"_s)->click();
    QCOMPARE(pages->SelectedPageRow(), 1);
    QVERIFY(!pages->findChild<QPushButton*>(u"cmdLeave"_s)->isVisible());
    QTest::keyClick(pages.data(), Qt::Key_Escape);
    QTRY_VERIFY(pages == nullptr);
    QCOMPARE(f.State().page.CurrentPage, 1);
    QCOMPARE(f.State().PageLabels.mid(1, 3), (QStringList{u"Page 1"_s, u"Europe"_s, u"Page 3"_s}));
    QCOMPARE(f.State().sites.GetSiteSlot(0, 2), 1);
    QVERIFY(f.Read("settings.ini").contains("LABELS\\2=Europe"));
    QVERIFY(f.Read("Omni-Perch.lst").startsWith("ZZ1AA*0201*****"));
    QVERIFY(!f.form->Logic().poll.Timer5.isActive());
  }

  // The window names the file and stays open with what was typed; the second way out leaves it.
  void StaysOpenOnAFullDisk() {
    WindowFixture f;
    for (int slot = 1; slot <= 20; ++slot) f.AddSite(u"ZZ%1LONGCALLSIGN"_s.arg(slot), 1);
    QVERIFY(f.StartAndPoll());
    QPointer<Form5> pages = OpenPages(f);
    QTest::keyClick(pages.data(), Qt::Key_F2);
    QTest::keyClicks(pages->findChild<QLineEdit*>(u"Text1"_s), u"Asia"_s);
    auto* failure = pages->findChild<QLabel*>(u"lblFailure"_s);
    WithoutRoom([&]() {
      pages->close();
      return QTest::qWaitFor([&]() { return pages == nullptr || failure->isVisible(); });
    });
    QVERIFY(pages != nullptr && pages->isVisible());
    QVERIFY(failure->text().contains(u"Omni-Perch.lst"_s));
    QCOMPARE(pages->findChild<QLineEdit*>(u"Text1"_s)->text(), u"Asia"_s);
    pages->findChild<QPushButton*>(u"cmdLeave"_s)->click();
    QTRY_VERIFY(pages == nullptr);
    // The program ends, as by a signal, while the window is open over it.
    pages = OpenPages(f);
    f.Close();
    QVERIFY(f.Read("settings.ini").contains("LABELS\\1=Asia"));
  }

  // The program ends, as by a signal, while a page has been moved: files, heights and places have one order.
  void EndsWithAMovedPage() {
    WindowFixture f;
    Station& site = f.AddSite(u"ZZ1AA"_s, 1);
    QVERIFY(f.StartAndPoll());
    QTRY_VERIFY(f.HasPicture(0));
    OpenPages(f)->findChild<QPushButton*>(u"cmdDown"_s)->click();
    f.Close();
    QVERIFY(f.Read("Omni-Perch.lst").startsWith("ZZ1AA*0201*****"));
    QVERIFY(QFile::exists(f.folder.filePath(u"images/dsstv/2-1"_s)));
    const QByteArray height = "2-0-" + QByteArray::number(site.Marker().height());
    QVERIFY(f.Read("images/dsstv/ckNewHeight.txt").contains(height + "\r\n"));
  }

  // The program ends, as by a signal, while the own location is open and changed: what was typed is stored, and nothing
  // else of the configuration is lost by the window's own way of writing.
  void EndsWithTheOwnLocationOpen() {
    WindowFixture f;
    QVERIFY(f.StartAndPoll());
    f.State().config.CallbookIndex = 3;
    f.State().config.MyLat = 52.5;
    Choose(f, Command::SetLocation, 1);
    const BaseWindow* window = f.form->AllWindows().Find(WindowKind::OwnLocation);
    QVERIFY(window != nullptr);
    window->findChild<QLineEdit*>(u"txtCall"_s)->setText(u"DL7AA"_s);
    f.Close();
    Config stored;
    QVERIFY(stored.ReadConfig(f.State().AppDataDir));
    QCOMPARE(stored.MyCall, u"DL7AA"_s);
    QCOMPARE(stored.MyLat, 52.5);
    QCOMPARE(stored.CallbookIndex, 3);
    QVERIFY(f.services->database.Finish() && f.services->database.Find(u"DL7AA"_s));
  }

  // Each button of the empty page opens its own window.
  void AnEmptyPageLeadsOn() {
    WindowFixture f;
    QVERIFY(f.StartAndPoll());
    for (const auto& [button, kind] :
         {std::pair("locationButton", WindowKind::OwnLocation), std::pair("addSiteButton", WindowKind::AddSite)}) {
      f.form->findChild<EmptyPage*>()->findChild<QPushButton*>(QString::fromLatin1(button))->click();
      QVERIFY(f.form->AllWindows().Find(kind) != nullptr);
    }
  }

  // What is in memory is in the copy; a No copies nothing.
  void MakesABackup() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1);
    QVERIFY(f.StartAndPoll());
    f.State().config.MyCall = u"ZZ9NEW"_s;
    const QString copy = f.folder.filePath(u"Backups/Omni-Perch.cfg"_s);
    Choose(f, Command::MakeBackup, 14);
    QCOMPARE(f.dialogs.told.value(0).section(u'\n', 1, 1), f.folder.filePath(u"Backups"_s));
    QVERIFY(!QFile::exists(copy));
    f.dialogs.second = true;
    Choose(f, Command::MakeBackup, 14);
    QTRY_VERIFY(f.folder.Bytes(u"Backups/Omni-Perch.cfg"_s).contains("ZZ9NEW"));
    QTRY_VERIFY(QFile::exists(f.folder.filePath(u"Backups/2026-03-15-120000/Nicknames.txt"_s)));
  }

  // A list that is empty comes back from its newest copy with its places, and the notice goes.
  void PutsALostListBack() {
    WindowFixture f;
    Station& site = f.AddSite(u"ZZ1AA"_s, 3);
    f.folder.PutFolder(u"Backups/2026-03-01-120000"_s);
    QVERIFY(QFile::rename(f.folder.filePath(u"Omni-Perch.lst"_s),
                          f.folder.filePath(u"Backups/2026-03-01-120000/Omni-Perch.lst"_s)));
    f.Write("Backups/Omni-Perch.lst", "");
    QVERIFY(f.StartAndPoll());
    auto* notice = f.form->findChild<EmptyPage*>();
    auto* putBack = notice->findChild<QPushButton*>(u"putBackButton"_s);
    QTRY_VERIFY(putBack->isVisible());
    QVERIFY(!notice->findChild<QPushButton*>(u"siteIndexButton"_s)->isEnabled());
    f.form->MnuPagesClick(20);
    QTRY_VERIFY(!notice->isVisible());
    f.form->MnuPagesClick(0);
    QTRY_VERIFY(putBack->isVisible());
    // By keyboard, from the bar past the buttons that can be pressed, on a page of the least height.
    f.form->resize(500, 160);
    QVERIFY(notice->geometry().bottom() <= f.form->height());
    auto* setup = f.form->findChild<QWidget*>(u"lblSetup"_s);
    setup->setFocus();
    for (int tabs = 0; tabs < 5 && QApplication::focusWidget() != putBack; ++tabs) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QTRY_VERIFY(!notice->isVisible());
    QCOMPARE(f.State().sites.GetSiteSlot(0, 1), 3);
    QTRY_COMPARE(site.Requests(u"checknew.jpg"_s), 1);
    QTRY_VERIFY(f.Read("Omni-Perch.lst").startsWith("ZZ1AA*0103*"));
  }
};

OMNI_TEST(TestSetup)
#include "test_setup.moc"
