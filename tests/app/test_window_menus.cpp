// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's menus and tips as a user meets them: by mouse and by keyboard, in any language.

#include "open_menu.h"
#include "page/tip_window.h"
#include "window_fixture.h"

class TestWindowMenus : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The count of the list stands beside the label that it was opened from, until the language is read anew.
  void OpensTheListOfStationsOnTheAir() {
    WindowFixture f;
    f.hosts.OnAirText = f.band.HostUrl(u"OnAirText"_s);
    f.band.FindHost(u"OnAirText"_s)
        ->SetAnswer(u"zz9qx/Files/OnAirNow.txt"_s, {200, "text/plain", "head\r\nZZ1QX_EP_14233_\r\n", {}});
    QVERIFY(f.Start());
    QTRY_VERIFY(f.form->isVisible());
    auto* label = f.form->findChild<BarLabel*>(u"lblOnAirNow"_s);
    label->setFocus();
    QTest::keyClick(label, Qt::Key_Space);
    QTRY_VERIFY(OpenMenu() != nullptr);
    QTest::keyClick(OpenMenu(), Qt::Key_Return);
    BaseWindow* list = f.form->AllWindows().Find(WindowKind::OnAirNow);
    QVERIFY(list != nullptr && list->isVisible());
    QTRY_COMPARE(label->text(), u"On Air Now (1)"_s);
    list->close();
    QCOMPARE(label->text(), u"On Air Now (1)"_s);
  }

  void OpensTheCellsMenu() {
    WindowFixture f;
    Station& site = f.AddSite(u"ZZ1AA"_s, 1);
    QVERIFY(f.StartAndPoll());
    QTRY_COMPARE(site.Requests(u"image1"_s), 1);
    const auto openMenuOf = [&f](int slot, QContextMenuEvent::Reason reason) {
      QContextMenuEvent event(reason, QPoint(5, 5), QPoint(50, 50));
      QApplication::sendEvent(f.form->findChild<PageView*>()->CellAt(slot), &event);
      QTRY_VERIFY(OpenMenu() != nullptr);
    };
    openMenuOf(0, QContextMenuEvent::Keyboard);
    QCOMPARE(f.State().page.SelectedSlot, 0);
    QVERIFY(!EntryThat(OpenMenu(), u"Site and sender"_s)->isEnabled());
    QTest::keyClick(OpenMenu(), Qt::Key_Return);
    QTRY_COMPARE(site.Requests(u"image1"_s), 2);
    QVERIFY(OpenMenu() == nullptr);

    // A cell without a site offers nothing but the page.
    openMenuOf(3, QContextMenuEvent::Mouse);
    QVERIFY(!EntryThat(OpenMenu(), u"Remove this site"_s)->isEnabled());
    QTest::keyClick(OpenMenu(), Qt::Key_Escape);
    QTRY_VERIFY(OpenMenu() == nullptr);
  }

  void FindsAndTurnsPages() {
    WindowFixture f;
    f.AddSite(u"ZZ2BB"_s, 2);
    f.AddSite(u"ZZ1AA"_s, 4);
    QVERIFY(f.StartAndPoll());
    auto* find = f.form->findChild<BarLabel*>(u"lblFind"_s);
    QTest::keyClick(find, Qt::Key_Return);
    QTRY_VERIFY(OpenMenu() != nullptr);
    QCOMPARE(OpenMenu()->accessibleName(), find->accessibleName());
    QVERIFY(OpenMenu()->actions().at(0)->text().startsWith(u"ZZ1AA"_s));
    QTest::keyClick(OpenMenu(), Qt::Key_Return);
    QTRY_VERIFY(f.CellOf(3).flash);
    QTest::mouseClick(f.form->findChild<BarLabel*>(u"lblPages"_s), Qt::LeftButton);
    QTRY_VERIFY(OpenMenu() != nullptr);
    QCOMPARE(OpenMenu()->actions().size(), 21);
    QVERIFY(EntryThat(OpenMenu(), u"Page 7"_s)->text().contains(u"(empty)"_s));
    EntryThat(OpenMenu(), u"Weather"_s)->trigger();
    QVERIFY(OpenMenu() == nullptr);
    QTRY_COMPARE(f.State().page.CurrentPage, PageState::WxPage);
  }

  void SpeaksEveryLanguage() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1);
    QVERIFY(f.StartAndPoll());
    f.State().PageLabels[2] = u"My own page"_s;
    QVERIFY(f.State().lstLanguages.size() == 8 && f.State().lstLanguages.last() == u"English");  // that is written back
    QSet<QString> refresh;
    for (int language = 0; language < 8; ++language) {
      f.form->MnuLanguageClick(language);
      QCOMPARE(f.State().config.LanguageName, f.State().lstLanguages.at(language));
      const QString caption = f.form->findChild<BarLabel*>(u"lblRefresh"_s)->text();
      QVERIFY2(caption.contains(u"(auto 2 min)"_s), qPrintable(caption));
      refresh.insert(caption);
      QVERIFY(f.form->findChild<BarLabel*>(u"lblPages"_s)->text().contains(f.State().language[TextLine::kPageWord]));
      QCOMPARE(f.State().PageLabels.at(2), u"My own page"_s);
      QCOMPARE(f.State().PageLabels.at(21), f.State().language[TextLine::kWxPageName]);
    }
    QVERIFY2(refresh.size() >= 7, "the languages are different ones");
    f.Close();
    QVERIFY(f.Read("Omni-Perch.cfg").contains("\r\nEnglish\r\n"));
  }

  void WarnsOfAWrongVersion() {
    WindowFixture f;
    QByteArray english = f.Read("Languages/Omni-Perch_English.Language");
    f.Write("Languages/Omni-Perch_English.Language", english.replace("Omni-Perch  6.50", "Omni-Perch  6.49"));
    QVERIFY(f.StartAndPoll());
    QCOMPARE(f.dialogs.told, QStringList{u"Wrong language file version."_s});
    QCOMPARE(f.form->findChild<BarLabel*>(u"lblSetup"_s)->text(), u"Setup"_s);
    QVERIFY(f.form->findChild<BarLabel*>(u"lblFind"_s)->text().contains(u"Find"_s));
  }

  void TipsByKeyboard() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1).SetPicture(PlainPicture("AB1CD * EP snr -3 *03:15:2026 10:30"));
    QVERIFY(f.StartAndPoll());
    QTRY_VERIFY(f.HasPicture(0));
    ThumbCell* cell = f.form->findChild<PageView*>()->CellAt(0);
    auto* tip = f.form->findChild<TipWindow*>(u"picToolTip"_s);
    f.form->activateWindow();
    cell->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY_WITH_TIMEOUT(tip->isVisible(), 6000);
    QVERIFY(tip->findChild<QLabel*>(u"lblToolTip"_s)->text().contains(u"AB1CD"_s));
    QVERIFY(cell->accessibleDescription().contains(u"not in the callsign database"_s));
    QVERIFY(f.form->rect().contains(tip->geometry()));
    QTest::keyClick(cell, Qt::Key_Escape);
    QVERIFY(!tip->isVisible());
  }
};

OMNI_TEST(TestWindowMenus)
#include "test_window_menus.moc"
