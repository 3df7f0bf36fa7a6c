// SPDX-License-Identifier: GPL-3.0-or-later
// The print window and the pages that come out of it.
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QSlider>
#include <QTcpServer>

#include "display/print_size.h"
#include "display/print_window.h"
#include "no_room.h"
#include "sample_pictures.h"
#include "window_fixture.h"

namespace {

// Prints to a file on the paper that a test has chosen.
class PrintingDialogs : public Dialogs {
 public:
  QString file;
  bool accepts = true;
  bool across = false;  // as the page was suggested
  QString named;        // as the file was

  bool PrintDialog(QWidget*, QPrinter& printer) override {
    across = printer.pageLayout().orientation() == QPageLayout::Landscape;
    named = printer.docName();
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
    return accepts;
  }
};

struct PrintFixture {
  TestFolder folder;
  Program program;
  PictureTool tool{QStringLiteral(PICTURE_TOOL), folder.path()};
  Background background;
  SettingsStore store{folder.filePath(u"settings.ini"_s)};
  PrintingDialogs dialogs;
  PrintJobs jobs{tool};
  QSignalSpy ended{&jobs, &PrintJobs::Ended};
  QPointer<Form21> window;

  PrintFixture() {
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), u"English"_s, 8, Program::ProgVersion(), program.language);
    program.config.LanguageName = u"English"_s;
    dialogs.file = folder.filePath(u"page.pdf"_s);
  }
  ~PrintFixture() { delete window; }
  Q_DISABLE_COPY_MOVE(PrintFixture)

  template <typename Widget>
  Widget* Find(const QString& name) const {
    return window->findChild<Widget*>(name);
  }
  QString Size() const { return Find<QLabel>(u"lblSize"_s)->text(); }
  QString State() const { return Find<QLabel>(u"lblState"_s)->text(); }
  // Opens the window and waits for its picture.
  bool Open(const QByteArray& bytes) {
    window = new Form21({program, tool, background, store, dialogs, jobs}, nullptr);
    window->Open({bytes, u"../ZZ1AA/P 2026_03_15 10_30"_s});
    return QTest::qWaitFor([this]() { return !Waits() && (!Size().isEmpty() || !State().isEmpty()); });
  }
  bool Waits() const { return State().contains(u"being read"_s) || State().contains(u"Waiting"_s); }
  void Print() const { QTest::keyClick(window.data(), Qt::Key_Return); }
  PrintEnd End() {
    if (!QTest::qWaitFor([this]() { return !ended.isEmpty(); })) return PrintEnd::NotPrinted;
    return ended.takeFirst().at(1).value<PrintEnd>();
  }
  // Names of all files that a print has left.
  QStringList Pages() const { return QDir(folder.path()).entryList({u"*.pdf*"_s}, QDir::Files | QDir::Hidden); }
};

QStringList LastLineOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  process.waitForFinished();
  return QString::fromLatin1(process.readAllStandardOutput()).trimmed().section(u'\n', -1).simplified().split(u' ');
}

// Width and height on the paper of the only picture in a file, in millimetres, as well as whole pixels an inch tell.
QSizeF PrintedMm(const QString& file) {
  const QStringList row = LastLineOf(u"pdfimages"_s, {u"-list"_s, file});
  const auto mm = [&row](int pixels, int perInch) {
    return row.value(pixels).toDouble() / row.value(perInch).toDouble();
  };
  return QSizeF(mm(3, 12), mm(4, 13)) * 25.4;
}

// The page as it looks, at one dot a millimetre.
QImage PageOf(const QString& file) {
  const QString base = file.chopped(4);
  LastLineOf(u"pdftoppm"_s, {u"-r"_s, u"25.4"_s, u"-png"_s, u"-singlefile"_s, file, base});
  return QImage(base + u".png"_s);
}

QRect InkOf(const QImage& page) {
  QRect ink;
  for (int y = 0; y < page.height(); ++y) {
    for (int x = 0; x < page.width(); ++x) {
      if (qGray(page.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

QByteArray DarkPicture(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::black);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "JPG");
  return bytes;
}

}  // namespace

class TestPrint : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TellsTheSize() {
    const auto tells = [](QSize picture, const QString& locale, const QString& expected) {
      QCOMPARE(PrintSizeText(PrintedSize(12, picture), QLocale(locale)), expected);
    };
    tells({640, 480}, u"en_US"_s, u"  (12.00 x 9.00 cm)\n  (4.72 x 3.54 in)"_s);
    tells({480, 640}, u"de_DE"_s, u"  (12,00 x 16,00 cm)\n  (4,72 x 6,30 in)"_s);
    tells({1200, 75}, u"en_US"_s, u"  (12.00 x .75 cm)\n  (4.72 x .30 in)"_s);
  }

  // In the chosen size, in the middle of what the margins leave, and not beyond it; the size stands on the told
  // colours, and its letters can be read on either.
  void PrintsInTheChosenSize() {
    const auto prints = [](const char* row, QSize pixels, int cm, QSize page, QRect inked, const QString& words) {
      const TableRow name(row);
      PrintFixture f;
      StoredSettings(f.store).SetNumber(Setting::PrintSize, cm - 1);
      QVERIFY(f.Open(DarkPicture(pixels)));
      QTest::keyClick(f.Find<QSlider>(u"Slider1"_s), Qt::Key_Right);
      QVERIFY2(f.Size().contains(u"(%1.00 x"_s.arg(cm)) && f.Size().endsWith(words), qPrintable(f.Size()));
      QCOMPARE(f.Find<QSlider>(u"Slider1"_s)->accessibleDescription(), f.Size().simplified());
      f.Print();
      QCOMPARE(f.End(), PrintEnd::Printed);
      QCOMPARE(f.dialogs.across, pixels.width() > pixels.height());
      QCOMPARE(f.dialogs.named, u"_ZZ1AA_P 2026_03_15 10_30"_s);
      const QSizeF printed = PrintedMm(f.dialogs.file);
      QVERIFY2(std::abs(printed.width() - cm * 10) < cm * 0.1, qPrintable(QString::number(printed.width())));
      QVERIFY2(std::abs(printed.height() - cm * 10.0 * pixels.height() / pixels.width()) < cm * 0.1,
               qPrintable(QString::number(printed.height())));
      const QImage sheet = PageOf(f.dialogs.file);
      QVERIFY((sheet.size() - page).width() * (sheet.size() - page).height() <= 1);
      // A dot more or less on each side.
      const QRect ink = InkOf(sheet);
      QVERIFY(inked.adjusted(-1, -1, 1, 1).contains(ink) && ink.contains(inked.adjusted(1, 1, -1, -1)));
      const QPalette colours = f.Find<QLabel>(u"lblSize"_s)->palette();
      QCOMPARE(colours.color(QPalette::Window), words.startsWith(u'F') ? QColor(128, 255, 128) : QColor(0, 64, 0));
      QVERIFY(std::abs(qGray(colours.color(QPalette::WindowText).rgb()) -
                       qGray(colours.color(QPalette::Window).rgb())) > 120);
      f.window->close();
      QCOMPARE(StoredSettings(f.store).Number(Setting::PrintSize), cm);
      QCOMPARE(f.Pages(), QStringList{u"page.pdf"_s});
    };
    prints("across", {1600, 1200}, 12, {297, 210}, {88, 60, 120, 90}, u"Fits on the page"_s);
    prints("upright", {1200, 1600}, 9, {210, 297}, {60, 88, 90, 120}, u"Fits on the page"_s);
    prints("larger than the page", {1200, 1600}, 30, {210, 297}, {20, 20, 170, 257}, u"Larger than the page"_s);
  }

  void WhatComesInBetween() {
    PrintFixture f;
    QVERIFY(f.Open(DarkPicture({1600, 1200})));
    f.Print();
    QTest::keyClick(f.Find<QPushButton>(u"cmdCancel"_s), Qt::Key_Space);
    QCOMPARE(f.End(), PrintEnd::Cancelled);
    QVERIFY(f.State().contains(u"cancelled"_s));
    QCOMPARE(f.Pages(), QStringList());

    const PrintEnd full = WithoutRoom([&f]() {
      f.Print();
      return f.End();
    });
    QCOMPARE(full, PrintEnd::NotWritten);
    QVERIFY(f.State().contains(u"page.pdf"_s));
    QCOMPARE(f.Pages(), QStringList());

    f.dialogs.accepts = false;
    f.Print();
    QVERIFY(f.ended.isEmpty());
    f.dialogs.accepts = true;
    f.Print();
    f.window->close();
    QCOMPARE(f.End(), PrintEnd::Printed);
    QCOMPARE(f.Pages(), QStringList{u"page.pdf"_s});

    QVERIFY(f.Open("no picture"));
    QVERIFY(f.State().contains(u"cannot be decoded"_s));
    QVERIFY(!f.Find<QPushButton>(u"cmdPrint"_s)->isEnabled());
  }

  // A print server that hangs holds up no other print, and the window says what it waits for.
  void WaitsForNoPrintServer() {
    PrintFixture f;
    const QByteArray picture = DarkPicture({1600, 1200});
    QVERIFY(f.Open(picture));
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    qputenv("CUPS_SERVER", "127.0.0.1:" + QByteArray::number(server.serverPort()));
    const auto restore = qScopeGuard([]() { qunsetenv("CUPS_SERVER"); });
    Form21 waiting({f.program, f.tool, f.background, f.store, f.dialogs, f.jobs}, nullptr);
    waiting.Open({picture, {}});
    QTRY_COMPARE(waiting.findChild<QLabel*>(u"lblState"_s)->text(), u"Waiting for the printer ..."_s);
    QTRY_VERIFY(server.hasPendingConnections());
    f.Print();
    QCOMPARE(f.End(), PrintEnd::Printed);
  }
};

OMNI_TEST(TestPrint)
#include "test_print.moc"
