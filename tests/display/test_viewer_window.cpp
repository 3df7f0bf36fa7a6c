// SPDX-License-Identifier: GPL-3.0-or-later
// The viewer and the comparison as the user opens them from the page, and what may come in between.
#include <QApplication>

#include "page/still_pictures.h"
#include "sample_pictures.h"
#include "window_fixture.h"

namespace {

const QByteArray kTail = QByteArray(3, '\0') + QByteArray("AB1CD * EP snr -3 *03:15:2026 10:30").leftJustified(60, ' ');

// A page with a picture, a film, a large picture and one that holds a decoder.
struct ViewerFixture : WindowFixture {
  ViewerFixture() {
    AddSite(u"ZZ1AA"_s, 1).SetPicture(SamplePicture(u"jpg"_s, QSize(320, 240)) + kTail);
    AddSite(u"ZZ1BB"_s, 2).SetPicture(QByteArray("\0\0\0\x18", 4) + "ftypmp42" + QByteArray(900, 'x') + kTail);
    AddSite(u"ZZ1CC"_s, 3).SetPicture(SamplePicture(u"jpg"_s, QSize(3000, 1000)) + kTail);
  }
  bool Ready() {
    return StartAndPoll() && QTest::qWaitFor([this]() { return HasPicture(0) && HasPicture(1) && HasPicture(2); });
  }
  void Click(int slot, Qt::KeyboardModifiers with = {}) const {
    QTest::mouseClick(form->findChild<PageView*>()->CellAt(slot), Qt::LeftButton, with, QPoint(20, 20));
  }
  Form2* Viewer() const { return qobject_cast<Form2*>(form->AllWindows().Find(WindowKind::Viewer)); }
  bool Shows(const QString& title) const {
    return Viewer() != nullptr && Viewer()->isVisible() && Viewer()->windowTitle() == title;
  }
};

constexpr auto kFirst = "Omni-Perch  ZZ1AA   From AB1CD   EP snr -3   3/15/2026 10:30 UTC   320 × 240";
constexpr auto kLast = "Omni-Perch  ZZ1CC   From AB1CD   EP snr -3   3/15/2026 10:30 UTC   3000 × 1000";

}  // namespace

class TestViewerWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsAClickedPicture() {
    ViewerFixture f;
    QVERIFY(f.Ready());
    f.Click(0);
    QTRY_VERIFY(f.Shows(QString::fromUtf8(kFirst)));
    const auto* refresh = f.form->findChild<BarLabel*>(u"lblRefresh"_s);
    QVERIFY(refresh->accessibleDescription().contains(u"rests"_s));
    QVERIFY(!f.form->Logic().poll.Timer6.isActive());
    // To the next picture, over a film, which shows its mark, and back.
    QTest::keyClick(f.Viewer(), Qt::Key_PageDown);
    QTRY_VERIFY(f.Viewer()->windowTitle().contains(u"ZZ1BB"_s));
    QTest::keyClick(f.Viewer(), Qt::Key_PageDown);
    QTRY_VERIFY(f.Shows(QString::fromUtf8(kLast)));
    QTRY_VERIFY(f.Viewer()->Shown().IsWhole());
    QTest::keyClick(f.Viewer(), Qt::Key_PageDown);  // there is none
    f.form->MnuLanguageClick(static_cast<int>(f.State().lstLanguages.indexOf(u"German"_s)));
    QTRY_VERIFY(f.Viewer()->windowTitle().contains(u"Von AB1CD"_s));
    f.form->ReloadPage();
    QTRY_VERIFY(refresh->accessibleDescription().isEmpty());
    QTest::keyClick(f.Viewer(), Qt::Key_Return);
    QVERIFY(f.Viewer() == nullptr);
  }

  void ClosesByAClickAndNotByADrag() {
    ViewerFixture f;
    QVERIFY(f.Ready());
    const int usual = QApplication::doubleClickInterval();
    f.Click(0);
    QTRY_VERIFY(f.Shows(QString::fromUtf8(kFirst)));
    auto* canvas = f.Viewer()->findChild<PictureCanvas*>();
    QApplication::setDoubleClickInterval(3600 * 1000);  // the second click of a double-click
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(f.Viewer() != nullptr);
    QApplication::setDoubleClickInterval(0);
    QTest::mousePress(canvas, Qt::LeftButton, {}, QPoint(50, 50));
    QTest::mouseMove(canvas, QPoint(90, 90));
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(f.Viewer() != nullptr);
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(f.Viewer() == nullptr);
    QApplication::setDoubleClickInterval(usual);
  }

  void StandsWhatComesInBetween() {
    ViewerFixture f;
    QVERIFY(f.Ready());
    // A film opens no window.
    QSignalSpy film(&f.form->AllWindows(), &Windows::FilmFound);
    f.Click(1);
    QTRY_COMPARE(film.count(), 1);
    QVERIFY(f.Viewer() == nullptr);
    QCOMPARE(f.CellOf(1).frames.first().image.size(), imgMp4().size());
    // A second click and a change of the page while the first decode is out: the second picture comes, as it was.
    f.Click(0);
    f.Click(2);
    f.form->MnuPagesClick(4);
    QTRY_VERIFY(f.Shows(QString::fromUtf8(kLast)));
    // Other sites are on the screen by now, so that there is no step to their pictures; on the old page there is one.
    const QString file = f.Viewer()->ViewerFile();
    QTest::keyClick(f.Viewer(), Qt::Key_PageUp);
    QCOMPARE(f.Viewer()->ViewerFile(), file);
    f.form->MnuPagesClick(0);
    QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(1) && f.HasPicture(2));
    // The file goes, and closing with a decode under way brings no window back.
    QVERIFY(QFile::remove(f.folder.filePath(u"images/dsstv/1-1"_s)));
    QTest::keyClick(f.Viewer(), Qt::Key_PageUp);
    QTest::keyClick(f.Viewer(), Qt::Key_PageUp);
    QTRY_VERIFY(f.Viewer()->windowTitle().contains(u"ZZ1AA"_s));
    QVERIFY(!f.Viewer()->findChild<PictureCanvas*>()->HasPicture());
    QTest::keyClick(f.Viewer(), Qt::Key_PageDown);
    QPointer<Form2> viewer = f.Viewer();
    viewer->close();
    QTRY_VERIFY(viewer == nullptr);
    QVERIFY(f.Viewer() == nullptr);
  }

  void ComparesTwoMarkedPictures() {
    ViewerFixture f;
    QVERIFY(f.Ready());
    const auto marks = [&f]() { return QList({f.CellOf(0).compareMark > 0, f.CellOf(2).compareMark > 0}); };
    QTest::keyClick(f.form.get(), Qt::Key_D, Qt::ControlModifier);
    QVERIFY(f.form->AllWindows().Find(WindowKind::Comparison) == nullptr);
    f.Click(0, Qt::ControlModifier);
    QTest::keyClick(f.form->findChild<PageView*>()->CellAt(2), Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(marks(), QList({true, true}));
    QVERIFY(f.Viewer() == nullptr);
    QTest::keyClick(f.form.get(), Qt::Key_D, Qt::ControlModifier);
    const BaseWindow* window = f.form->AllWindows().Find(WindowKind::Comparison);
    QVERIFY(window != nullptr);
    const QList<PictureCanvas*> sides = window->findChildren<PictureCanvas*>();
    QCOMPARE(sides.size(), 2);
    QTRY_VERIFY(sides.first()->HasPicture() && sides.last()->HasPicture());
    QVERIFY(sides.first()->accessibleName().contains(u"ZZ1AA"_s));
    QVERIFY(sides.last()->accessibleName().contains(u"ZZ1CC"_s));
    // A picture that comes after the user has zoomed leaves the zoom alone.
    auto* late = window->findChildren<ViewerPicture*>().last();
    QTest::keyClick(sides.first(), Qt::Key_1);
    const QImage natural = sides.first()->grab().toImage();
    QVERIFY(QMetaObject::invokeMethod(late, &ViewerPicture::Shown));
    QVERIFY(sides.first()->grab().toImage() == natural);
    f.Click(1, Qt::ControlModifier);  // a third mark takes the place of the first
    QCOMPARE(marks(), QList({false, true}));
    f.form->MnuPagesClick(4);
    QCOMPARE(marks(), QList({false, false}));
  }
};

OMNI_TEST(TestViewerWindow)
#include "test_viewer_window.moc"
