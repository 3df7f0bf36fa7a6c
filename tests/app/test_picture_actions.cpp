// SPDX-License-Identifier: GPL-3.0-or-later
// The actions of the pictures' menus in the program's own windows, with what may come in between.
#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>

#include "callbook/operator_picture.h"
#include "core/page_files.h"
#include "plain_picture.h"
#include "window_fixture.h"

namespace {

// The main window with two pictures on its page.
struct ActionFixture : WindowFixture {
  Station& station = AddSite(u"ZZ1AA"_s, 1);
  Station& other = AddSite(u"ZZ2BB"_s, 2);

  ActionFixture() {
    station.SetPicture(PlainPicture("AB1CD * EP snr -3 *11:22:2026 12:34", QSize(320, 240)));
    other.SetPicture(PlainPicture("AB2CD * EP snr -3 *11:22:2026 12:35", QSize(160, 120)));
  }
  void Choose(Command command, int slot) {
    MenuChoice choice;
    choice.command = command;
    choice.subject.source = {PictureSource::Window::Page, slot};
    choice.owner = form.get();
    services->commands.Do(choice);
  }
  QByteArray Stored(int slot) const { return ReadFileBytes(PicturePath(folder.path(), 1, slot)).value_or("none"_ba); }
  static QByteArray Held() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data == nullptr ? QByteArray() : data->data(u"image/jpeg"_s);
  }
};

}  // namespace

class TestPictureActions : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheClickedPictureIsCopiedWhateverComes() {
    const auto check = [](const char* what, const std::function<void(ActionFixture&)>& between) {
      const TableRow row(what);
      ActionFixture f;
      QVERIFY(f.StartAndPoll());
      const QByteArray clicked = f.Stored(0);
      QVERIFY(clicked.size() > 300);
      f.Choose(Command::CopyPicture, 0);
      between(f);
      QTRY_COMPARE(ActionFixture::Held(), clicked);
      QGuiApplication::clipboard()->clear();
    };
    check("a change of the page", [](ActionFixture& f) { f.form->MnuPagesClick(1); });
    check("the picture is another", [](ActionFixture& f) {
      QVERIFY(QFile::remove(PicturePath(f.folder.path(), 1, 0)));
      QVERIFY(QFile::rename(PicturePath(f.folder.path(), 1, 1), PicturePath(f.folder.path(), 1, 0)));
    });
    check("the site is removed", [](ActionFixture& f) {
      f.State().page.SelectedSlot = 0;
      f.Choose(Command::RemoveFromPage, 0);
    });
  }

  void SavesUnderANameAndWhole() {
    ActionFixture f;
    QVERIFY(f.StartAndPoll());
    f.folder.PutFolder(u"saved"_s);
    f.dialogs.path = f.folder.filePath(u"saved/mine.jpg"_s);
    f.Choose(Command::SavePictureAs, 0);
    QTRY_COMPARE(f.Read("saved/mine.jpg"), f.Stored(0));
    QCOMPARE(f.dialogs.told.last(), u"AB1CD 2026_11_22 12_34.jpg|jpg files (*.jpg)"_s);
    QCOMPARE(f.State().SaveDir, f.folder.filePath(u"saved"_s));
    // A name that is asked about and cannot be written is told of, and keeps its file.
    f.dialogs.path = f.folder.filePath(u"none/mine.jpg"_s);
    f.Choose(Command::SavePictureAs, 0);
    const auto told = [&f]() { return f.form->findChild<QLabel*>(u"lblMsg"_s); };
    QTRY_VERIFY(told() != nullptr && told()->text().contains(u"none/mine.jpg"_s));
    // What has vanished ends the action without a word.
    const qsizetype asked = f.dialogs.told.size();
    QVERIFY(QFile::remove(PicturePath(f.folder.path(), 1, 1)));
    f.Choose(Command::SavePictureAs, 1);
    f.dialogs.path = f.folder.filePath(u"saved/last.jpg"_s);
    f.Choose(Command::SavePictureAs, 0);
    QTRY_COMPARE(f.dialogs.told.size(), asked + 1);
  }

  void SavesAllOfAPage() {
    ActionFixture f;
    QVERIFY(f.StartAndPoll());
    f.folder.PutFolder(u"all"_s);
    f.dialogs.path = f.folder.filePath(u"all"_s);
    const QStringList names{u"AB1CD 2026_11_22 12_34.jpg"_s, u"AB2CD 2026_11_22 12_35.jpg"_s};
    const auto files = [&f]() { return QDir(f.dialogs.path).entryList(QDir::Files, QDir::Name); };
    QTest::keyClick(f.form.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(files(), names);
    QCOMPARE(f.Read("all/AB2CD 2026_11_22 12_35.jpg"), f.Stored(1));
    QTRY_VERIFY(f.form->findChild<QWidget*>(u"saveAllLine"_s) == nullptr);
    QTest::keyClick(f.form.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(files().size(), 4);  // with a number each
  }

  void TellsOfAPictureAndSavesTheOperators() {
    ActionFixture f;
    QVERIFY(f.StartAndPoll());
    f.Choose(Command::ShowPictureInfo, 0);
    Windows& windows = f.form->AllWindows();
    const auto text = [&windows]() {
      const auto* box = windows.Get(WindowKind::Information).findChild<QPlainTextEdit*>();
      return box->toPlainText();
    };
    QTRY_VERIFY(text().contains(u"Number of unique colors = "_s));
    QVERIFY(text().startsWith(u"File name = 1-1\n"_s) && text().contains(u"File date/time = 11/22/2026 12:34"_s));

    const QString path = OperatorPicturePath(f.folder.path(), u"ZZ1AA"_s);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()) && WriteOperatorPicture(path, PlainImage(QSize(240, 180))));
    MenuChoice choice;
    choice.owner = &windows.LookUp(u"ZZ1AA"_s, QRect(100, 100, 50, 20));
    choice.command = Command::CopyOperatorPicture;
    f.services->commands.Do(choice);
    QTRY_COMPARE(ActionFixture::Held(), PlainImage(QSize(240, 180)));
    choice.command = Command::SaveOperatorPictureAs;
    choice.index = 3;
    f.dialogs.path = f.folder.filePath(u"operator.bmp"_s);
    f.services->commands.Do(choice);
    QTRY_COMPARE(QImage(f.dialogs.path, "BMP").size(), QSize(240, 180));
    QCOMPARE(f.dialogs.told.last(), u"ZZ1AA.bmp|bmp files (*.bmp)"_s);
  }
};

OMNI_TEST(TestPictureActions)
#include "test_picture_actions.moc"
