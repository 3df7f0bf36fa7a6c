// SPDX-License-Identifier: GPL-3.0-or-later
// The text boxes that the setup windows share, typed into and pasted into as users do.
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>
#include <QTimer>

#include "test_suite.h"
#include "ui/call_field.h"
#include "ui/coordinate_field.h"
#include "ui/dialogs.h"
#include "ui/plain_tip.h"

using namespace Qt::StringLiterals;

class TestFields : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WritesCalls_data() {
    QTest::addColumn<QChar>("zero");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("stored");
    QTest::newRow("slashed") << QChar(u'Ø') << u"pa0abc/p"_s << u"PAØABC/P"_s << u"PA0ABC/P"_s;
    QTest::newRow("plain") << QChar(u'0') << u"pa0abc"_s << u"PA0ABC"_s << u"PA0ABC"_s;
    QTest::newRow("a typed slash") << QChar(u'0') << u"paøabc"_s << u"PAØABC"_s << u"PA0ABC"_s;
    QTest::newRow("one letter of two capitals") << QChar(u'Ø') << u"ß1a"_s << u"ß1A"_s << u"ß1A"_s;
  }

  void WritesCalls() {
    QFETCH(const QChar, zero);
    QFETCH(const QString, typed);
    QFETCH(const QString, shown);
    for (const bool pasted : {false, true}) {
      CallField field(u"txtCall"_s, zero, nullptr);
      field.SetRole(u"Callsign:"_s);
      QCOMPARE(field.accessibleName(), u"Callsign"_s);
      QSignalSpy changed(&field, &QLineEdit::textChanged);
      QApplication::clipboard()->setText(typed);
      if (pasted) {
        field.paste();
      } else {
        for (const QChar c : typed) {
          QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
          QApplication::sendEvent(&field, &press);
        }
      }
      QCOMPARE(field.text(), shown);
      QTEST(field.Call(), "stored");
      // Nobody hears of a text that is not the final one.
      QCOMPARE(changed.count(), pasted ? 1 : typed.size());
      QCOMPARE(changed.last().first().toString(), shown);
    }
  }

  void KeepsTheCaret() {
    CallField field(u"txtCall"_s, u'Ø', nullptr);
    field.setText(u"pa0c"_s);
    QCOMPARE(field.text(), u"PAØC"_s);
    field.setCursorPosition(2);
    QTest::keyClicks(&field, u"0b"_s);
    QCOMPARE(field.text(), u"PAØBØC"_s);
    QCOMPARE(field.cursorPosition(), 4);
    QTest::keyClick(&field, Qt::Key_Backspace);
    QCOMPARE(field.cursorPosition(), 3);
  }

  void TakesCoordinates_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<double>("degrees");
    QTest::newRow("point") << u"52.5"_s << u"52.5"_s << 52.5;
    QTest::newRow("comma") << u"-1,25"_s << u"-1,25"_s << -1.25;
    QTest::newRow("letters are not taken") << u"5a2N.5*"_s << QString() << 52.5;
    QTest::newRow("empty") << QString() << QString() << 0.0;
    QTest::newRow("no number yet") << u"-"_s << u"-"_s << 0.0;
    QTest::newRow("blanks and a minus of its own") << u"−7.5"_s << u" −7.5 "_s << -7.5;
    QTest::newRow("two commas") << u"1,2,3"_s << u"1,2,3"_s << 1.2;
  }

  void TakesCoordinates() {
    QFETCH(const QString, typed);
    QFETCH(const QString, pasted);
    CoordinateField field(u"txtLat"_s, nullptr);
    field.SetRole(u"Latitude："_s);
    QCOMPARE(field.accessibleName(), u"Latitude"_s);
    for (const QChar c : typed) {
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
      QApplication::sendEvent(&field, &press);
    }
    QTEST(field.Degrees(), "degrees");
    QVERIFY(!field.Stored().contains(u','));
    if (pasted.isEmpty()) return;
    field.clear();
    QApplication::clipboard()->setText(pasted);
    field.paste();
    QTEST(field.Degrees(), "degrees");
  }

  void NotesWhereACoordinateComesFrom() {
    QWidget window;
    CoordinateField lat(u"txtLat"_s, &window);
    CoordinateField lon(u"txtLon"_s, &window);
    CoordinateNote note(u"Label4"_s, &lat, &lon, &window);
    window.show();
    lat.SetCoordinate(51.5, true);
    lon.SetCoordinate(0);
    QCOMPARE(lat.text() + lon.text(), u"51.5*0"_s);
    QCOMPARE(lat.Degrees(), 51.5);
    QVERIFY(note.isVisible() && lat.IsDerived() && !lon.IsDerived());
    // The user's own number, typed behind the mark or in its place, has none.
    lat.end(false);
    QTest::keyClick(&lat, Qt::Key_Backspace);
    QVERIFY(!note.isVisible());
    lon.SetCoordinate(-7.25, true);
    QVERIFY(note.isVisible());
  }

  void ShowsTipsAsTheyStand_data() {
    QTest::addColumn<bool>("rich");
    QTest::newRow("Tom & Jerry's \"Club\"") << false;
    QTest::newRow("&amp; &lt;b&gt;") << true;
    QTest::newRow("<b>Hill</b>") << true;
    QTest::newRow("<img src=\"http://127.0.0.1/x\"> & more") << true;
    QTest::newRow("1 < 2") << false;
  }

  void ShowsTipsAsTheyStand() {
    QFETCH(const bool, rich);
    const QString text = QString::fromLatin1(QTest::currentDataTag());
    const QString tip = PlainTip(text);
    QCOMPARE(Qt::mightBeRichText(tip), rich);
    QTextDocument shown;
    if (rich) shown.setHtml(tip);
    QCOMPARE(rich ? shown.toPlainText() : tip, text);
  }

  // The desktop's own file dialog would speak the language of the desktop.
  void AsksForFilesInOneLanguage() {
    bool own = false;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&own]() {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      own = dialog->testOption(QFileDialog::DontUseNativeDialog);
      dialog->reject();
    });
    look.start(10);
    Dialogs dialogs;
    QCOMPARE(dialogs.AskSaveFile(nullptr, QDir::tempPath(), u"a.bmp"_s, u"bmp files (*.bmp)"_s), QString());
    QVERIFY(own);
  }
};

OMNI_TEST(TestFields)
#include "test_fields.moc"
