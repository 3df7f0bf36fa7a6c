// SPDX-License-Identifier: GPL-3.0-or-later
// The paste into EasyPal, a window on a screen of its own, and the way to the print window, from the menus of pictures.
#include <QClipboard>
#include <QLabel>
#include <QMimeData>

#include "foreign_desktop.h"
#include "sample_pictures.h"
#include "window_fixture.h"

namespace {

// A page with a still, an animation above 25,000 bytes and one below, and EasyPal's window.
struct TransferFixture : WindowFixture {
  ForeignDesktop desktop;

  TransferFixture() {
    const QByteArray animation = AnimatedGif(QSize(64, 48), {{qRgb(200, 0, 0), 20}, {qRgb(0, 0, 200), 20}});
    AddSite(u"ZZ1AA"_s, 1).SetPicture(PlainPicture("AB1CD * EP snr -3 *03:15:2026 10:30"));
    AddSite(u"ZZ1BB"_s, 2).SetPicture(animation + QByteArray(30'000, 'x'));
    AddSite(u"ZZ1CC"_s, 3).SetPicture(animation);
    QVERIFY(StartAndPoll());
    QTRY_VERIFY(HasPicture(0) && HasPicture(1) && HasPicture(2));
  }
  void Choose(Command command, int slot) const {
    services->commands.Do({command, 0, {}, form->findChild<WindowMenus*>()->SubjectOf(slot), form.get()});
  }
  void Paste(int slot) const { Choose(Command::PasteToEasyPal, slot); }
  bool Pastes() const { return form->AllWindows().Paste().Busy(); }
  static QSize Held() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data == nullptr ? QSize() : QImage::fromData(data->data(u"image/bmp"_s)).size();
  }
};

}  // namespace

class TestPictureTransfer : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The picture is on the clipboard when the key comes; one key a paste; then the refresh goes on. Only a large
  // animation is asked about.
  void PastesIntoEasyPal() {
    TransferFixture f;
    f.desktop.Open("EasyPal");
    f.State().config.AutoRefreshOn = 1;
    f.form->Logic().poll.StopRefreshTimers();
    f.Paste(0);
    QTRY_VERIFY(f.Pastes());
    f.Paste(2);                         // not now
    f.Choose(Command::CopyPicture, 2);  // later
    QTRY_COMPARE(f.desktop.Keys().size(), 1);
    QCOMPARE(f.Held(), QSize(320, 240));
    QVERIFY(!f.form->Logic().poll.Timer6.isActive());
    QTRY_VERIFY(!f.Pastes());
    QVERIFY(f.form->Logic().poll.Timer6.isActive());
    QTRY_COMPARE(f.Held(), QSize(64, 48));
    f.Paste(1);
    QTRY_COMPARE(f.dialogs.told.size(), 1);
    QVERIFY2(f.dialogs.told.first().contains(u"31,"_s), qPrintable(f.dialogs.told.first()));
    QVERIFY(!f.Pastes());
    f.dialogs.second = true;
    f.Paste(1);
    QTRY_COMPARE(f.desktop.Keys().size(), 2);
    QTRY_VERIFY(!f.Pastes());
    f.Paste(2);
    QTRY_COMPARE(f.desktop.Keys().size(), 3);
    QCOMPARE(f.dialogs.told.size(), 2);
    QTRY_VERIFY(!f.Pastes());
    Q_EMIT f.form->AllWindows().PasteWanted(QImage(QSize(7, 5), QImage::Format_RGB32), f.form.get());
    QTRY_COMPARE(f.Held(), QSize(7, 5));
    // The program ends between the copy and the key.
    f.form.reset();
    f.services.reset();
    QVERIFY(!QTest::qWaitFor([&f]() { return f.desktop.Keys().size() > 3; }, 1000));
  }

  void TellsWhatIsLeftToDo() {
    TransferFixture f;
    const auto message = [&f]() {
      const auto* box = f.form->findChild<QFrame*>(u"frmMsgBoxTimed"_s);
      return box == nullptr ? QString() : box->accessibleName();
    };
    f.Paste(0);
    QTRY_VERIFY(f.Pastes());
    QTRY_VERIFY(!f.Pastes());
    QCOMPARE(message(), QString());  // without EasyPal nothing is said
    f.desktop.Open("EasyPal", false);
    f.Paste(0);
    QTRY_VERIFY(message().contains(u"press F7"_s));
    f.Choose(Command::PrintPicture, 0);
    Windows& windows = f.form->AllWindows();
    QTRY_VERIFY(windows.Find(WindowKind::Print) != nullptr);
    const auto* size = windows.Find(WindowKind::Print)->findChild<QLabel*>(u"lblSize"_s);
    QTRY_VERIFY(size->text().contains(u"5.00 x 3.75 cm"_s));
  }
};

OMNI_TEST(TestPictureTransfer)
#include "test_picture_transfer.moc"
