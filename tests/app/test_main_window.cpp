// SPDX-License-Identifier: GPL-3.0-or-later
// The main window from its load to its closing sequence, on real files and a real band.
#include <QAccessible>
#include <QDirIterator>
#include <QLabel>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPushButton>

#include "page/tip_window.h"
#include "window_fixture.h"

namespace {

QStringList FilesBelow(const QString& folder) {
  QStringList names;
  const auto kinds = QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden;
  for (QDirIterator walk(folder, kinds, QDirIterator::Subdirectories); walk.hasNext();) names.append(walk.next());
  names.sort();
  return names;
}

}  // namespace

class TestMainWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void StopsWithAMessage() {
    const auto check = [](const QString& missing, bool anotherRuns, const QString& message) {
      WindowFixture f;
      if (!missing.isEmpty()) QVERIFY(QFile::remove(f.folder.filePath(missing)));
      const QStringList before = FilesBelow(f.folder.path());
      QVERIFY(!f.Start(anotherRuns));
      QCOMPARE(f.dialogs.told, QStringList{message});
      QCOMPARE(f.dialogs.exclamation, anotherRuns);
      QVERIFY(!f.form->isVisible());
      f.form.reset();
      if (anotherRuns) QCOMPARE(FilesBelow(f.folder.path()), before);
    };
    for (const QString& file : {u"Omni-Perch.cfg"_s, u"WXsites.lst"_s}) check(file, false, file + u" not found!"_s);
    check({}, true, u"Omni-Perch is already running!"_s);
  }

  void RunsAndWritesEverythingBack() {
    WindowFixture f;
    Station& one = f.AddSite(u"ZZ2BB"_s, 2);
    f.AddSite(u"ZZ1AA"_s, 1);
    f.Write("info.txt", "left over");
    QVERIFY(f.StartAndPoll());
    QTRY_VERIFY(f.HasPicture(1));
    QCOMPARE(f.band.FindHost(u"Time"_s)->Requests(u"cgi-bin/timer.pl"_s), 1);
    QString shown = f.form->windowTitle() + u'|' + f.State().page.txtActive;
    for (const char* label : {"lblPages", "lblRefresh"})
      shown += u'|' + f.form->findChild<QToolButton*>(QLatin1StringView(label))->text();
    QCOMPARE(shown, u"Omni-Perch  -  2 sites|START|  Page 1 |Refresh (auto 2 min) "_s);

    // The heights and dates that the poll has changed are written after it, not first at the closing.
    const QByteArray height = "1-1-" + QByteArray::number(one.Marker().height());
    QTRY_COMPARE(f.Read("images/dsstv/ckNewHeight.txt").split('\n').value(1).trimmed(), height);
    QVERIFY(f.Read("Omni-Perch.lst").contains("2026"));

    QLocalServer companion;
    QVERIFY(companion.listen(f.folder.filePath(u"tv-echo-form1"_s)));
    f.Close();
    QTRY_VERIFY(companion.hasPendingConnections());
    QLocalSocket* heard = companion.nextPendingConnection();
    QTRY_COMPARE(heard->bytesAvailable(), 7);
    QCOMPARE(heard->readAll(), QByteArray("Closed\n"));
    QVERIFY(f.dialogs.told.isEmpty());
    const QList<QByteArray> heights = f.Read("images/dsstv/ckNewHeight.txt").split('\n');
    QVERIFY(heights.size() == 721 && heights.at(1).trimmed() == height);
    QVERIFY(f.Read("Omni-Perch.lst").startsWith("ZZ1AA*0101*****0201*52.5*-1.25*"));
    QVERIFY(f.Read("Omni-Perch.cfg").startsWith("1\r\n1\r\n1\r\n2\r\n7\r\nEnglish\r\n52.5\r\n-1.25\r\n"));
    QCOMPARE(f.Read("Omni-Perch.cfg").count('\n'), 20);
    QVERIFY(f.Read("settings.ini").contains("Geometry\\showCmd=1") && !QFile::exists(f.folder.filePath(u"info.txt"_s)));
    QVERIFY(QDir(f.folder.path()).exists(u"images/last15"_s));

    // The next start shows the pictures on the disk and fetches none.
    QVERIFY(f.Start());
    QTRY_VERIFY(f.HasPicture(1));
    QTRY_VERIFY(f.form->isVisible() && !f.form->Logic().poll.Busy() && one.Requests(u"checknew.jpg"_s) == 2);
    QCOMPARE(one.Requests(u"image1"_s), 1);
  }

  // Left-over files go after the farewell has been seen, and a height file of any spelling goes with the thumbs.
  void CleansUpInItsOrder() {
    WindowFixture f;
    f.closingPause = 400ms;
    f.folder.PutFolder(u"images/dsstv"_s);
    f.Write("images/dsstv/cknewheight.txt", "1-0-300\r\n");
    QVERIFY(f.Start() && !QFile::exists(f.folder.filePath(u"images/dsstv/cknewheight.txt"_s)));
    QTRY_VERIFY(f.form->isVisible());
    f.Write("images/dsstv/.part-1", "half a picture");
    const QString part = f.folder.filePath(u"images/dsstv/.part-1"_s);
    QSignalSpy closed(f.form.get(), &Form1::Closed);
    f.form->CloseMe();
    const auto saysFarewell = [&f]() {
      const auto* label = f.form->findChild<QLabel*>(u"lblMsg"_s);
      return label != nullptr && label->text() == " 73 de ZZ9QX "_L1;
    };
    QTRY_VERIFY(saysFarewell());
    QVERIFY(QFile::exists(part));
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(!QFile::exists(part));
  }

  // A kernel without filters, then one with them: the picture was never at fault.
  void SaysThatNothingIsDecoded() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1).SetPicture(PlainPicture("AB1CD * EP snr -3 *03:15:2026 10:30"));
    f.decoder = QStringLiteral(HOSTILE_HELPER);
    QVERIFY(f.StartAndPoll());
    QTRY_VERIFY(f.CellOf(0).errorBox);
    const auto* view = f.form->findChild<PageView*>(u"picAll"_s);
    QSet<QString> said;
    for (qsizetype language = 0; language < f.State().lstLanguages.size(); ++language) {
      f.form->MnuLanguageClick(static_cast<int>(language));
      QTRY_VERIFY(!f.form->Logic().poll.Busy());
      const QString reason = view->CellAt(0)->Shown().boxReason;
      QVERIFY2(view->CellAt(0)->accessibleDescription().contains(reason), qPrintable(reason));
      said.insert(reason);
    }
    QCOMPARE(said.size(), 8);
    const auto* tip = f.form->findChild<TipWindow*>();
    view->CellAt(0)->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(tip->isVisible());
    QCOMPARE(tip->findChild<QLabel*>(u"lblToolTip"_s)->text().trimmed(), view->CellAt(0)->Shown().boxReason);
    f.Close();

    f.decoder = QStringLiteral(PICTURE_TOOL);
    f.band.FindHost(u"Connectivity"_s)->Misbehave({}, Behaviour::Reset);
    QVERIFY(f.Start());
    QTRY_VERIFY(f.HasPicture(0) && !f.CellOf(0).errorBox);
  }

  // What the running program has changed is on the disk when the session manager may end it, and not before its lists
  // have been read.
  void WritesWhatASessionWouldLose() {
    // Nobody looks into the manager that the toolkit passes along.
    alignas(8) std::array<char, 64> manager{};
    const auto sessionEnds = [&manager]() {
      return QMetaObject::invokeMethod(qGuiApp, "commitDataRequest", Qt::DirectConnection,
                                       QGenericArgument("QSessionManager&", manager.data()));
    };
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1);
    f.Start(true);
    const QByteArray list = f.Read("Omni-Perch.lst");
    QVERIFY(sessionEnds());
    QCOMPARE(f.Read("Omni-Perch.lst"), list);
    QVERIFY(f.StartAndPoll());
    f.State().sites.Sites[0].LastSeen = u"1/2/2026 10:00"_s;
    f.State().config.AutoRefreshMinutes = 5;
    f.form->Logic().heights.SetHeight(1, 0, 4321);
    f.State().nicknames.lstNicknames.append(u"ZZ2BB*Al"_s);
    QVERIFY(sessionEnds() && f.Read("Omni-Perch.lst").contains("1/2/2026 10:00"));
    QVERIFY(f.Read("images/dsstv/ckNewHeight.txt").startsWith("1-0-4321\r\n"));
    QVERIFY(f.Read("nicknames.txt").contains("ZZ2BB*Al") && f.form->isVisible());
  }

  // By its key, which a text box keeps to itself, and by the line below the page.
  void TakesARemovalBack() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1);
    QVERIFY(f.StartAndPoll());
    const auto* line = f.form->findChild<QWidget*>(u"undoLine"_s);
    auto* call = f.form->findChild<QLineEdit*>(u"txtCall"_s);
    auto* view = f.form->findChild<PageView*>(u"picAll"_s);
    for (const bool byKey : {true, false}) {
      f.State().page.SelectedSlot = 0;
      f.form->Logic().sites.RemoveSite();
      QVERIFY(line->isVisible() && line->findChild<QLabel*>()->text().contains(u"ZZ1AA"_s));
      QVERIFY(line->geometry().top() > view->geometry().bottom() && f.form->rect().contains(line->geometry()));
      call->setFocus();
      QTest::keyClick(call, Qt::Key_Z, Qt::ControlModifier);
      QTest::keyClick(f.form.get(), Qt::Key_Z, Qt::ControlModifier);
      QCOMPARE(f.State().sites.GetSiteSlot(0, 1), 0);
      view->CellAt(1)->setFocus();
      if (byKey) QTest::keyClick(view->CellAt(1), Qt::Key_Z, Qt::ControlModifier);
      if (!byKey) line->findChild<QPushButton*>()->click();
      QCOMPARE(f.State().sites.GetSiteSlot(0, 1), 1);
      QVERIFY(!line->isVisible());
      QTRY_VERIFY(!f.form->Logic().poll.Busy());
    }
  }

  void GoesOnWithoutAConnection() {
    WindowFixture f;
    Station& site = f.AddSite(u"ZZ1AA"_s, 1);
    f.band.FindHost(u"Connectivity"_s)->Misbehave({}, Behaviour::Reset);
    f.dialogs.retries = {true, true, false};
    QVERIFY(f.Start());
    QTRY_COMPARE(f.dialogs.asked, 3);
    QTRY_COMPARE(f.form->windowTitle(), u"Omni-Perch  Internet connection failed!"_s);
    f.form->ReloadPage();
    QTRY_COMPARE(f.band.FindHost(u"Time"_s)->Requests(u"cgi-bin/timer.pl"_s), 1);
    QVERIFY(f.form->isVisible() && !f.form->Logic().poll.Busy());
    QCOMPARE(site.TotalRequests(), 0);
    QVERIFY(!f.form->Logic().poll.Timer4.isActive());
    f.Close();
    QVERIFY(f.Read("Omni-Perch.lst").startsWith("ZZ1AA*"));
  }

  void WorksByKeyboardAndForReaders() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1).SetPicture(PlainPicture("AB1CD * EP snr -3 *03:15:2026 10:30"));
    QVERIFY(f.StartAndPoll());
    QTRY_VERIFY(f.HasPicture(0));
    auto* view = f.form->findChild<PageView*>(u"picAll"_s);
    ThumbCell* first = view->CellAt(0);
    QSignalSpy pressed(view, &PageView::CellPressed);
    QCOMPARE(first->accessibleName(), u"ZZ1AA"_s);
    const QString about = first->accessibleDescription();
    const QRegularExpression parts(u"From AB1CD.*EP snr -3.*3/15/2026 10:30 UTC"_s);
    QVERIFY2(about.contains(parts), qPrintable(about));
    QTest::keyClick(first, Qt::Key_Return);
    QCOMPARE(pressed.count(), 1);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_End);
    QCOMPARE(view->focusWidget(), view->CellAt(4));
    for (const QWidget* part : f.form->findChildren<QWidget*>()) {
      if (part->focusPolicy() == Qt::NoFocus || part->isHidden()) continue;
      const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(part));
      QVERIFY2(!spoken->text(QAccessible::Name).isEmpty(), qPrintable(part->objectName()));
    }
    QTest::keyClick(f.form.get(), Qt::Key_PageDown);
    QCOMPARE(f.State().page.CurrentPage, 2);
    QTest::keyClick(f.form.get(), Qt::Key_PageUp);
    QTest::keyClick(f.form.get(), Qt::Key_PageUp);
    QCOMPARE(f.State().page.CurrentPage, PageState::WxPage);
    QTRY_COMPARE(f.CellOf(0).lblCall, u"Radar"_s);
  }

  void ChangesLayoutsAndSizes() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1);
    QVERIFY(f.StartAndPoll());
    const QSize one = f.form->size();
    f.form->MnuThumbsClick(5);
    auto* view = f.form->findChild<PageView*>(u"picAll"_s);
    QVERIFY(view->CellAt(35) != nullptr && view->CellAt(36) == nullptr && f.form->height() > one.height());
    QCOMPARE(f.State().sites.GetSiteSlot(0, 2), 1);
    for (int layout = 1; layout <= 6; ++layout) {
      for (int mode = 0; mode <= 3; ++mode) {
        f.form->MnuThumbsClick(layout - 1);
        f.form->MnuGuiClick(mode);
        QVERIFY(QGuiApplication::primaryScreen()->availableSize().width() >= f.form->width());
        const int last = f.State().page.ThumbCount - 1;
        QVERIFY2(view->rect().contains(view->CellAt(last)->geometry()), "every cell lies in the window");
      }
    }
    f.form->MnuThumbsClick(0);
    QVERIFY(view->CellAt(5) == nullptr);
    f.Close();
    QVERIFY(f.Read("Omni-Perch.lst").startsWith("ZZ1AA*0101*****0201*"));
  }

  void StartsOnBrokenFiles() {
    const auto check = [](const char* what, const QByteArray& config, const QByteArray& list, const QByteArray& kept) {
      const TableRow row(what);
      WindowFixture f;
      f.Write("Omni-Perch.cfg", config);
      f.Write("Omni-Perch.lst", list);
      QVERIFY(f.Start());
      QTRY_VERIFY(f.form->isVisible());
      f.Close();
      QVERIFY2(f.Read("Omni-Perch.lst").contains(kept), f.Read("Omni-Perch.lst").constData());
    };
    check("empty", {}, {}, {});
    check("a layout that is none", "9\r\n99\r\n", "ZZ1AA*0101\r\nhttp://x/image1\r\n", "ZZ1AA*0101");
    const QByteArray keep = "http://127.0.0.1/keep";
    check("NULs", QByteArray(300, '\0'), "\0\0*\0\r\n"_ba + keep, keep);
    check("garbage", "\xff\xfe*\x81***\r\r\r\n", "*::*99*\x90\x81\r\n" + keep, "*::*99*\x90\x81");
    const QByteArray cyrillic = "http://127.0.0.1/\xD0\x96";
    check("UTF-8", "1\n1\n", "\xEF\xBB\xBFZZ\xC3\x98\x41\x41*0101\n" + cyrillic + '\n', cyrillic);
  }
};

OMNI_TEST(TestMainWindow)
#include "test_main_window.moc"
