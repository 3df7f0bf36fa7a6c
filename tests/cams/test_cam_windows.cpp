// SPDX-License-Identifier: GPL-3.0-or-later
// The two windows of cams in the running main window, and what a press in them does.
#include <QDesktopServices>
#include <QScrollBar>
#include <csignal>

#include "cams/cam_grid.h"
#include "open_menu.h"
#include "window_fixture.h"

namespace {

// Takes what would go to the desktop's browser.
class Browser : public QObject {
  Q_OBJECT

 public:
  Browser() {
    for (const QString& scheme : kSchemes) QDesktopServices::setUrlHandler(scheme, this, "Take");
  }
  ~Browser() override {
    for (const QString& scheme : kSchemes) QDesktopServices::unsetUrlHandler(scheme);
  }
  Q_INVOKABLE void Take(const QUrl& url) { opened << url.toString(); }

  QStringList opened;

 private:
  inline static const QStringList kSchemes{u"http"_s, u"https"_s, u"file"_s, u"rtsp"_s};
};

// The viewers that run, by the files that they have written beside themselves.
QStringList ViewersOf(const QStringList& files) {
  QStringList pids;
  for (const QString& name : files) {
    const QString pid = name.section(u"Omni-Lens."_s, 1);
    // A process that has ended may wait for its parent still.
    const QByteArray state = ReadFileBytes(u"/proc/%1/stat"_s.arg(pid)).value_or(QByteArray());
    if (!pid.isEmpty() && !state.isEmpty() && !state.contains(") Z ")) pids << pid;
  }
  return pids;
}

CamGrid& GridOf(BaseWindow& window) {
  return *window.findChild<CamGrid*>();
}

QModelIndex PlaceOf(CamGrid& grid, const QString& call) {
  const QList<CamCell>& cells = grid.Model().Cells();
  const auto found = std::find_if(cells.begin(), cells.end(), [&](const CamCell& cell) { return cell.call == call; });
  const auto at = static_cast<int>(found - cells.begin());
  return grid.model()->index(at / kCamColumns, at % kCamColumns);
}

}  // namespace

class TestCamWindows : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Five columns, filled row by row; the scroll bar comes with the twenty-first row and widens the grid.
  void Rows() {
    CamGrid grid(nullptr);
    const auto take = [&grid](int count) {
      QList<CamCell> cells;
      for (int i = 0; i < count; ++i)
        cells.append({.site = i, .call = QString::number(i), .lblGrid = {}, .lblPage = {}});
      grid.Model().Take(cells);
      return grid.WantedSize();
    };
    const QSize one = take(5);
    QCOMPARE(grid.model()->rowCount(), 1);
    QCOMPARE(take(6).height(), 2 * one.height());
    QCOMPARE(grid.model()->flags(grid.model()->index(1, 1)), Qt::NoItemFlags);
    QCOMPARE(take(100), QSize(one.width(), 20 * one.height()));
    QCOMPARE(take(101), QSize(one.width() + grid.verticalScrollBar()->sizeHint().width(), 20 * one.height()));
    QCOMPARE(grid.model()->rowCount(), 21);
    grid.resize(grid.WantedSize());
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    QTRY_COMPARE(grid.verticalScrollBar()->maximum(), one.height());
    grid.setCurrentIndex(grid.model()->index(19, 0));
    QTest::keyClick(&grid, Qt::Key_Down);
    QCOMPARE(grid.Model().CellAt(grid.currentIndex())->call, u"100"_s);
  }

  // The lights follow the rounds; a press starts the viewer with one argument, or opens the address without a password.
  void StatusOfAllCams() {
    WindowFixture f;
    f.Write("Omni-Perch.cfg", "1\r\n1\r\n1\r\n2\r\n7\r\nEnglish\r\n52.5\r\n-1.25\r\n0\r\n0\r\n1\r\nZZ9QX\r\n");
    const QString base = f.AddSite(u"ZZ0AA"_s, 1).Base();
    f.AddSite(u"ZZ2BB"_s, 2);
    QByteArray list = f.Read("Omni-Perch.lst");
    list.replace("-1.25***\r\n" + base.toLatin1(), "-1.25**" +
                                                       base.toLatin1().replace("//", "//shack:a;b&$(touch x)@") +
                                                       "/private/cam.jpg\r\n" + base.toLatin1());
    list.replace("-1.25***", "-1.25**file:///etc/passwd");
    f.Write("Omni-Perch.lst", list);
    QVERIFY(f.StartAndPoll());
    auto* lblCam = f.form->findChild<BarLabel*>(u"lblCam"_s);
    QTRY_COMPARE_WITH_TIMEOUT(f.CellOf(1).imgCam, CamLight::Red, 20000);
    lblCam->click();
    BaseWindow& window = *f.form->AllWindows().Find(WindowKind::CamStatus);
    CamGrid& grid = GridOf(window);
    QTRY_COMPARE(grid.Model().Cells().size(), 2);
    QCOMPARE(grid.Model().Cells().at(0).lblGrid, QString(u"ZZ0AA"_s).replace(u'0', f.State().ZeroGlyph));
    QVERIFY(grid.Model().Cells().at(0).isOnPage);
    QVERIFY(grid.model()
                ->data(grid.model()->index(0, 1), Qt::AccessibleTextRole)
                .toString()
                .startsWith(u"ZZ2BB, cam does not answer"_s));

    const Browser browser;
    const auto press = [&grid](int column) {
      grid.setCurrentIndex(grid.model()->index(0, column));
      QTest::keyClick(&grid, Qt::Key_Return);
    };
    press(0);
    press(1);
    QCOMPARE(browser.opened, QStringList{base + u"/private/cam.jpg"_s});

    // Each viewer writes its argument beside itself and runs on; with one window for all cams the former one is ended.
    f.Write("Omni-Lens", "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" >\"$0.$$\"\nexec sleep 60\n");
    QVERIFY(QFile::setPermissions(f.folder.filePath(u"Omni-Lens"_s),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const auto viewers = [&f]() { return ViewersOf(f.folder.Files()); };
    press(0);
    QTRY_COMPARE(viewers().size(), 1);
    const QString first = viewers().value(0);
    QTRY_VERIFY(f.Read(qPrintable(u"Omni-Lens."_s + first)).endsWith("*ZZ0AA"));
    QCOMPARE(f.Read(qPrintable(u"Omni-Lens."_s + first)),
             "1|" + f.State().sites.Sites.at(0).CamUrl.toUtf8() + "*ZZ0AA");
    press(1);
    QTRY_COMPARE(viewers().size(), 2);
    f.State().config.CamView = 1;
    press(1);
    QTRY_VERIFY(viewers().size() == 2 && viewers().contains(first));
    f.Close();
    for (const QString& pid : viewers()) ::kill(pid.toInt(), SIGTERM);
  }

  // A site that is pressed goes into the empty cell for which the index was opened; from any other cell, and once the
  // page is another, it does not.
  void SiteIndex() {
    WindowFixture f;
    f.AddSite(u"ZZ1AA"_s, 1);
    f.AddSite(u"ZZ2BB"_s, 40);
    QVERIFY(f.StartAndPoll());
    Windows& windows = f.form->AllWindows();
    const auto openFor = [&](int slot) {
      MenuChoice choice;
      choice.command = Command::OpenSiteIndex;
      choice.subject.source = {PictureSource::Window::Page, slot};
      choice.subject.empty = f.CellOf(slot).lblCall.isEmpty();
      f.services->commands.Do(choice);
      return GridOf(*windows.Find(WindowKind::SiteIndex)).window();
    };
    const auto press = [&](const QString& call) {
      CamGrid& grid = GridOf(*windows.Find(WindowKind::SiteIndex));
      grid.setCurrentIndex(PlaceOf(grid, call));
      QTest::keyClick(&grid, Qt::Key_Space);
    };
    const QWidget* window = openFor(2);
    QCOMPARE(window->windowTitle(), u"Omni-Perch       Site index     p = page, blue = on this page"_s);
    QCOMPARE(GridOf(*windows.Find(WindowKind::SiteIndex)).Model().Cells().at(0).lblPage, u"p1"_s);
    QVERIFY(GridOf(*windows.Find(WindowKind::SiteIndex)).Model().Cells().at(0).isOnPage);
    press(u"ZZ2BB"_s);
    QTRY_COMPARE(f.CellOf(2).lblDisk, u"ZZ2BB"_s);
    QVERIFY(windows.Find(WindowKind::SiteIndex) == nullptr && windows.Find(WindowKind::History) == nullptr);

    openFor(0);
    press(u"ZZ2BB"_s);
    QTRY_VERIFY(windows.Find(WindowKind::History) != nullptr);
    QCOMPARE(f.CellOf(0).lblDisk, u"ZZ1AA"_s);

    // It opens where it was.
    SiteRec further;
    for (int i = 0; i < 200; ++i) {
      further.Call = u"ZZ3%1"_s.arg(i);
      f.State().sites.Sites.append(further);
    }
    openFor(0);
    QScrollBar& bar = *GridOf(*windows.Find(WindowKind::SiteIndex)).verticalScrollBar();
    bar.setValue(3 * bar.singleStep());
    QTest::keyClick(windows.Find(WindowKind::SiteIndex), Qt::Key_Escape);
    openFor(0);
    const CamGrid& again = GridOf(*windows.Find(WindowKind::SiteIndex));
    QCOMPARE(again.verticalScrollBar()->value(), 3 * again.verticalScrollBar()->singleStep());
    QCOMPARE(again.currentIndex().row(), 4);

    openFor(3);
    f.form->MnuPagesClick(1);
    QVERIFY(windows.Find(WindowKind::SiteIndex) == nullptr);
    f.form->MnuPagesClick(PageState::WxPage - 1);
    QTRY_VERIFY(!f.CellOf(0).lblCall.isEmpty());
    openFor(0);
    QCOMPARE(GridOf(*windows.Find(WindowKind::SiteIndex)).Model().Cells().at(0).call, u"Radar"_s);
    press(u"Radar"_s);
    QTRY_COMPARE(f.State().sites.WxSites.at(0).PageSlots[1], u"1"_s);
  }
};

OMNI_TEST(TestCamWindows)
#include "test_cam_windows.moc"
