// SPDX-License-Identifier: GPL-3.0-or-later
// The text boxes that the setup windows share, typed into and pasted into as users do.
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QTextDocument>
#include <QTimer>

#include "test_suite.h"
#include "ui/call_field.h"
#include "ui/clean_field.h"
#include "ui/coordinate_field.h"
#include "ui/dialogs.h"
#include "ui/plain_tip.h"

using namespace Qt::StringLiterals;

namespace {

// Key by key; unlike keyClicks it takes any letter.
void Type(QLineEdit& field, const QString& text) {
  for (const QChar c : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
    QApplication::sendEvent(&field, &press);
  }
}

}  // namespace

class TestFields : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WritesCalls() {
    const auto check = [](const char* what, QChar zero, const QString& typed, const QString& shown,
                          const QString& stored) {
      const TableRow row(what);
      for (const bool pasted : {false, true}) {
        CallField field(u"txtCall"_s, zero, nullptr);
        field.SetRole(u"Callsign:"_s);
        QCOMPARE(field.accessibleName(), u"Callsign"_s);
        QSignalSpy changed(&field, &QLineEdit::textChanged);
        QApplication::clipboard()->setText(typed);
        if (pasted) field.paste();
        if (!pasted) Type(field, typed);
        QCOMPARE(field.text(), shown);
        QCOMPARE(field.Call(), stored);
        // textChanged carries the final text only, never the one before it was put into capitals.
        QCOMPARE(changed.count(), pasted ? 1 : typed.size());
        QCOMPARE(changed.last().first().toString(), shown);
      }
    };
    check("slashed", QChar(u'Ø'), u"pa0abc/p"_s, u"PAØABC/P"_s, u"PA0ABC/P"_s);
    check("plain", QChar(u'0'), u"pa0abc"_s, u"PA0ABC"_s, u"PA0ABC"_s);
    check("a typed slash", QChar(u'0'), u"paøabc"_s, u"PAØABC"_s, u"PA0ABC"_s);
    check("one letter of two capitals", QChar(u'Ø'), u"ß1a"_s, u"ß1A"_s, u"ß1A"_s);
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

  // Letters that the field spells its own way must not end the history of what was typed.
  void UndoesWhatItHasSpelled() {
    const auto check = [](QLineEdit& field, const QString& all) {
      QApplication::clipboard()->setText(u"x*0"_s);
      Type(field, u"pa*0"_s);
      QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
      QCOMPARE(field.text(), all);
      QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
      QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
      QVERIFY2(field.text().size() < all.size() - 2, qPrintable(field.text()));
      QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
      QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
      QCOMPARE(field.text(), all);
    };
    CallField call(u"txtCall"_s, u'Ø', nullptr);
    check(call, u"PAØXØ"_s);
    CleanField clean(u"txtCall"_s, {4, true}, nullptr);
    clean.SetSpelling(CleanField::Spelling::Call, u'Ø');
    check(clean, u"PAØX"_s);
    Type(clean, u"y"_s);
    QVERIFY(clean.text().size() == 4 && clean.Note().contains(u'4'));
    Type(clean, u"*"_s);
    QVERIFY(clean.Note().contains(u'*'));
  }

  void TakesCoordinates() {
    const auto check = [](const char* what, const QString& typed, const QString& pasted, double degrees) {
      const TableRow row(what);
      CoordinateField field(u"txtLat"_s, nullptr);
      field.SetRole(u"Latitude："_s);
      QCOMPARE(field.accessibleName(), u"Latitude"_s);
      Type(field, typed);
      QCOMPARE(field.Degrees(), degrees);
      QVERIFY(!field.Stored().contains(u','));
      if (pasted.isEmpty()) return;
      field.clear();
      QApplication::clipboard()->setText(pasted);
      field.paste();
      QCOMPARE(field.Degrees(), degrees);
    };
    check("point", u"52.5"_s, u"52.5"_s, 52.5);
    check("comma", u"-1,25"_s, u"-1,25"_s, -1.25);
    check("letters are not taken", u"5a2N.5*"_s, {}, 52.5);
    check("empty", {}, {}, 0.0);
    check("no number yet", u"-"_s, u"-"_s, 0.0);
    check("blanks and a minus of its own", u"−7.5"_s, u" −7.5 "_s, -7.5);
    check("two commas", u"1,2,3"_s, u"1,2,3"_s, 1.2);
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
    // A number that the user has typed is not marked as derived, nor is one whose mark the user has deleted.
    lat.end(false);
    QTest::keyClick(&lat, Qt::Key_Backspace);
    QVERIFY(!note.isVisible());
    lon.SetCoordinate(-7.25, true);
    QVERIFY(note.isVisible());
  }

  void ShowsTipsAsTheyStand() {
    const auto check = [](const char* what, bool rich) {
      const TableRow row(what);
      const QString text = QString::fromLatin1(what);
      const QString tip = PlainTip(text);
      QCOMPARE(Qt::mightBeRichText(tip), rich);
      QTextDocument shown;
      if (rich) shown.setHtml(tip);
      QCOMPARE(rich ? shown.toPlainText() : tip, text);
    };
    check("Tom & Jerry's \"Club\"", false);
    check("&amp; &lt;b&gt;", true);
    check("<b>Hill</b>", true);
    check("<img src=\"http://127.0.0.1/x\"> & more", true);
    check("1 < 2", false);
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
