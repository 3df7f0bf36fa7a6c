// SPDX-License-Identifier: GPL-3.0-or-later
// The lookup window as a user meets it: by mouse and keyboard, with its menus, the picture and the sign-in.
#include <QApplication>
#include <QClipboard>
#include <QLayout>
#include <QScreen>

#include "callbook/lookup_window.h"
#include "core/translations.h"
#include "lookup_fixture.h"
#include "recording_menus.h"
#include "ui/language_change.h"
#include "ui/plain_tip.h"

namespace {

class RecordingBrowser : public BrowserWindows {
 public:
  QStringList done;
  void OpenPage(const QString& title, const QUrl& url) override { done += title + u' ' + url.path(); }
  void Forget(const QUrl& url) override { done += u"forget "_s + url.host(); }
  void CloseAll() override {}
  void OpenView(const QUrl&, const PageViewTexts&) override {}
  void SetViewTexts(const PageViewTexts&) override {}
};

struct ScriptedAnswers : Dialogs {
  QStringList told;
  QString savePath;
  void Inform(QWidget*, const QString& text, bool) override { told += text; }
  QString AskSaveFile(QWidget*, const QString& folder, const QString& name, const QString&) override {
    told += folder + u'/' + name;
    return savePath;
  }
};

struct FormFixture : LookupFixture {
  QWidget owner;
  RecordingBrowser windows;
  bool hasBrowser = true;
  ScriptedAnswers dialogs;
  Commands commands;
  RecordingMenus menus;
  QPointer<Form12> window;
  int closed = 0;

  FormFixture() { Choose(4); }
  // The window that is open; a new one where the former has been closed.
  Form12& Form() {
    if (window == nullptr) {
      const auto browser = [this]() -> BrowserWindows* { return hasBrowser ? &windows : nullptr; };
      const auto forget = [this](const QUrl& url) { windows.Forget(url); };
      window = new Form12({Dependencies(), {browser, forget, dialogs}, dialogs, commands, menus}, &owner);
      QObject::connect(window, &BaseWindow::Closed, &owner, [this]() {
        ++closed;
        window.clear();
      });
    }
    return *window;
  }
  bool IsOpen() const { return window != nullptr && window->isVisible(); }
  void Open(const QString& call) {
    Form().Open(call, QRect(100, 100, 60, 20));
    QTRY_VERIFY(Form().cursor().shape() != Qt::BusyCursor);
  }
  // Opens the window for a call whose database record and picture are there.
  PictureButton* OpenWithPicture(const QString& call, const QSize& size) {
    WritePicture(call, PlainImage(size));
    File(call, u"Robin"_s, u"51.5"_s, u"-0.1"_s);
    Open(call);
    auto* image = Part<PictureButton>(u"Image1"_s);
    return QTest::qWaitFor([image]() { return image->isVisible(); }) ? image : nullptr;
  }
  template <typename Widget>
  Widget* Part(const QString& name) const {
    return window->findChild<Widget*>(name);
  }
  QString Text(const QString& name) const { return Part<FieldLabel>(name)->text(); }
  void ChooseCallook() const {
    auto* chooser = Part<QComboBox>(u"cboDB"_s);
    chooser->setFocus();
    while (chooser->currentIndex() < 3) QTest::keyClick(chooser, Qt::Key_Down);
  }
  MenuId Wanted() const { return menus.wanted.isEmpty() ? MenuId::None : menus.wanted.last().menu; }
};

}  // namespace

class TestLookupWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsACall() {
    FormFixture f;
    f.program.config.CallbookIndex = 3;
    const PictureButton* image = f.OpenWithPicture(u"VK9QXL"_s, QSize(400, 300));
    QVERIFY(image != nullptr);
    const QStringList texts{f.Form().windowTitle(), f.Text(u"lblCall"_s), f.Part<QComboBox>(u"cboDB"_s)->currentText()};
    QCOMPARE(texts.join(u'|'), u"Callsign VK9QXL|VK9QXL  (from the local database)|QRZCQ.com"_s);
    QVERIFY(f.Form().size() == QSize(350, 200) && image->height() - 4 == 98);  // 39 units
    const auto showsPicture = [&f, image]() {
      const QColor middle = f.Form().grab().toImage().pixelColor(image->geometry().center());
      return std::abs(middle.blue() - 160) < 12 && std::abs(middle.red() - 40) < 12;
    };
    QTRY_VERIFY(showsPicture());

    QTest::keyClick(&f.Form(), Qt::Key_F5);
    QTRY_VERIFY(f.Text(u"lblName"_s).startsWith(u"Bartholomew"_s));
    auto* name = f.Part<FieldLabel>(u"lblName"_s);
    QVERIFY(name->ShownText() != name->text() && name->ShownText().endsWith(u'…'));
    QVERIFY(name->accessibleName() == u"Name"_s && name->toolTip().contains(u"Maximilian"_s));
    const QList<QWidget*> parts = f.Form().findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (const QWidget* part : parts) {
      if (part->isVisible()) QVERIFY2(!part->accessibleName().isEmpty(), qPrintable(part->objectName()));
    }
  }

  // A screen reader says the answer: it is the description of the update button, which has the focus at the opening.
  void IsHeard() {
    FormFixture f;
    f.Choose(1);
    f.Open(u"K1QPE"_s);
    QWidget* focus = f.Form().focusWidget();
    QCOMPARE(focus->objectName() + u'|' + focus->accessibleDescription(), u"cmdUpdate|Not logged in"_s);
    // A screen reader names an empty field, too.
    for (const FieldLabel* label : f.Form().findChildren<FieldLabel*>()) {
      QVERIFY2(!label->accessibleName().isEmpty() && label->text().isEmpty(), qPrintable(label->objectName()));
    }
    f.Service().SetLatency(std::chrono::milliseconds(100));
    QTest::keyClick(focus, Qt::Key_Return);
    QCOMPARE(focus->accessibleDescription(), u"Reading eHam. . ., Not logged in"_s);
    f.ChooseCallook();
    QTRY_COMPARE(f.Text(u"lblName"_s), u"Martha"_s);
    const QString said = f.Part<QComboBox>(u"cboDB"_s)->accessibleDescription();
    QVERIFY2(said.startsWith(u"K1QPE  (From Callook.info), Martha, 88 Maple Street, East Harrow"_s), qPrintable(said));
    QVERIFY2(said.endsWith(u", U.S.A., 604 km 39°, No login needed"_s), qPrintable(said));
  }

  void WorksByKeyboard() {
    FormFixture f;
    PictureButton* image = f.OpenWithPicture(u"K1QPE"_s, QSize(240, 180));
    QVERIFY(image != nullptr);
    QTest::keyClick(image, Qt::Key_Return);
    const QPointer<Form13> whole = f.Form().findChild<Form13*>();
    QTRY_VERIFY(whole->isVisible());
    QVERIFY(whole->size() == QSize(260, 200) && whole->windowTitle().contains(u"K1QPE"_s));
    QTest::keyClick(whole, Qt::Key_Escape);
    QTRY_VERIFY(whole == nullptr);
    QVERIFY(f.IsOpen());
    // The large picture does not come when the lookup has been closed before it was decoded.
    QTest::keyClick(image, Qt::Key_Return);
    f.Part<BarLabel>(u"lblMaps"_s)->setFocus();
    f.Form().close();
    int decoded = 0;
    for (int i = 0; i < 3; ++i) {
      f.tool.View(f.PicturePath(u"K1QPE"_s), QSize(9, 9), &f.owner, [&](const PictureAnswer&) { ++decoded; });
    }
    QTRY_COMPARE(decoded, 3);
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      QVERIFY(!window->isVisible() || qobject_cast<const Form13*>(window) == nullptr);
    }
    QCOMPARE(f.closed, 1);
    image = f.OpenWithPicture(u"K1QPE"_s, QSize(240, 180));
    QVERIFY(image != nullptr && f.Form().focusWidget() == f.Part<QWidget>(u"cmdUpdate"_s));

    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(50, 50));
    QApplication::sendEvent(image, &byKey);
    QCOMPARE(f.Wanted(), MenuId::LookupPicture);

    // A page that is still being read when the window closes is neither shown later nor filed.
    f.Service().SetLatency(std::chrono::milliseconds(100));
    QTest::keyClick(&f.Form(), Qt::Key_F5);
    QTRY_COMPARE(f.Service().TotalRequests(), 1);
    QTest::keyClick(f.Part<QWidget>(u"cmdUpdate"_s), Qt::Key_Escape);
    QVERIFY(f.closed == 2 && !f.IsOpen());
    f.Open(u"W5QUJ"_s);
    QCOMPARE(f.Text(u"lblName"_s), u"Buck R."_s);
    QCOMPARE(f.Filed(u"K1QPE"_s).section(u'*', 0, 0), u"Robin"_s);
  }

  void OpensMaps() {
    FormFixture f;
    QSignalSpy maps(&f.Form(), &Form12::MapWanted);
    QSignalSpy views(&f.Form(), &Form12::PageViewWanted);
    f.File(u"K1QPE"_s, u"Robin"_s, u"51.5"_s, u"-0.1"_s);
    f.Open(u"K1QPE"_s);
    QTest::keyClick(f.Part<BarLabel>(u"lblMaps"_s), Qt::Key_Space);
    QCOMPARE(f.Wanted(), MenuId::LookupMaps);
    QVERIFY(f.menus.wanted.last().subject.placed);
    f.commands.Do({Command::ShowCallOnMap, 0, {}, {}, {}});
    QCOMPARE(maps.first(), QVariantList({u"K1QPE"_s, 51.5, -0.1}));
    f.Form().MnuMapsClick(1);
    QVERIFY(views.value(0).value(0).toString().startsWith(u"https://maps.example/maps/place/51.5,-0.1/@"_s));
    QVERIFY(!f.IsOpen());

    f.Open(u"W1QXM"_s);
    for (const int index : {0, 1, 2}) f.Form().MnuMapsClick(index);
    QCOMPARE(maps.count() + views.count(), 2);
    QTest::keyClick(f.Part<BarLabel>(u"lblMaps"_s), Qt::Key_Space);
    QVERIFY(f.IsOpen() && !f.menus.wanted.last().subject.placed);
  }

  // The large picture: whole on the monitor whatever its size, and gone with a click or with the next call.
  void ShowsTheWholePicture() {
    FormFixture f;
    const QRect monitor = f.Form().screen()->availableGeometry();
    QPointer<Form13> whole;
    for (const QString& call : {u"K1QPE"_s, u"W5QUJ"_s}) {
      const bool first = call == "K1QPE"_L1;
      PictureButton* image = f.OpenWithPicture(call, first ? monitor.size() * 2 : monitor.size() / 2);
      QVERIFY(image != nullptr);
      QTRY_VERIFY(whole == nullptr);
      QTest::mouseClick(image, Qt::LeftButton);
      whole = f.Form().findChild<Form13*>();
      QTRY_VERIFY(whole->isVisible());
      QVERIFY2(monitor.contains(whole->frameGeometry()), qPrintable(call));
    }
    QTest::mouseClick(whole, Qt::LeftButton);
    QTRY_VERIFY(whole == nullptr);
  }

  void SignsInAndOut() {
    FormFixture f;
    f.Choose(1);
    f.Open(u"K1QPE"_s);
    auto* status = f.Part<StatusLink>(u"lblStatus"_s);
    QCOMPARE(status->accessibleDescription(), u"Sign in to eHam"_s);
    f.hasBrowser = false;
    status->setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) QTest::keyClick(status, key);
    QVERIFY(f.dialogs.told.size() == 3 && !f.dialogs.told.first().isEmpty());
    f.hasBrowser = true;
    QTest::mouseClick(status, Qt::LeftButton);
    QCOMPARE(f.windows.done, QStringList{u"eHam /login"_s});
    f.SignIn();
    QTRY_COMPARE(f.Text(u"lblName"_s), u"Martha"_s);
    QCOMPARE(status->text(), u"Logged in"_s);

    QTest::keyClick(status, Qt::Key_Space);
    QCOMPARE(f.Wanted(), MenuId::SignIn);
    QCOMPARE(f.menus.wanted.last().subject.offer, u"Sign out of eHam"_s);
    f.commands.Do({Command::SignInOrOut, 0, {}, {}, {}});
    QTRY_COMPARE(status->text(), u"Not logged in"_s);
    QVERIFY(f.windows.done.last().startsWith(u"forget "_s) && f.Text(u"lblName"_s).isEmpty());

    // The key beside the chooser does the same; a window that is closed without a sign-in reads the page once more.
    auto* key = f.Part<QToolButton>(u"cmdSignIn"_s);
    QTest::mouseClick(key, Qt::LeftButton);
    const int asked = f.Service().TotalRequests();
    Q_EMIT f.windows.Closed(u"another page"_s);
    Q_EMIT f.windows.Closed(u"eHam"_s);
    Q_EMIT f.windows.Closed(u"eHam"_s);
    QTRY_COMPARE(f.Service().TotalRequests(), asked + 1);

    f.ChooseCallook();
    QTRY_COMPARE(f.Text(u"lblCall"_s), u"K1QPE  (From Callook.info)"_s);
    QVERIFY(!key->isEnabled() && !status->isEnabled());
    QCOMPARE(f.Part<QPushButton>(u"cmdUpdate"_s)->text(), u"Update from Callook.info"_s);
  }

  // A field is one line of plain text, in its tip too, though the page has line ends and tags in it.
  void ShowsFieldsAsOneLine() {
    QWidget window;
    FieldLabel label(u"lblName"_s, &window);
    label.resize(40, 20);
    label.SetField(u" Zoë\tof the\r\n<b>Hill</b> "_s, u"Name"_s);
    QCOMPARE(label.text() + label.toolTip(), u"Zoë of the  <b>Hill</b>"_s + PlainTip(label.text()));
  }

  // Each of the six texts is reached by Tab and copied whole, also where the window shows only a part.
  void CopiesFieldsByKeyboard() {
    FormFixture f;
    f.Open(u"K1QPE"_s);
    QTRY_VERIFY(!f.Text(u"lblDxAz"_s).isEmpty());
    QStringList reached;
    for (int i = 0; i < 20; ++i) {
      QTest::keyClick(f.Form().focusWidget(), Qt::Key_Tab);
      const auto* field = qobject_cast<FieldLabel*>(f.Form().focusWidget());
      if (field == nullptr) continue;
      if (reached.contains(field->objectName())) break;
      reached += field->objectName();
      QTest::keyClick(f.Form().focusWidget(), Qt::Key_C, Qt::ControlModifier);
      QCOMPARE(QApplication::clipboard()->text(), field->text());
      QTest::keyClick(f.Form().focusWidget(), Qt::Key_Home);
      QTest::keyClick(f.Form().focusWidget(), Qt::Key_Right, Qt::ShiftModifier);
      QCOMPARE(field->selectedText(), field->text().left(1));
      QTest::keyClick(f.Form().focusWidget(), Qt::Key_X);
      QVERIFY(!field->text().isEmpty());
    }
    QCOMPARE(reached,
             (QStringList{u"lblCall"_s, u"lblName"_s, u"lblAdd1"_s, u"lblAdd2"_s, u"lblCtry"_s, u"lblDxAz"_s}));
  }

  // An open window shows all its texts in the new language: with a record of the database, one of the service, and
  // none.
  void FollowsTheLanguage() {
    FormFixture f;
    Translations translations;
    f.File(u"K1QPE"_s, u"Robin"_s, u"51.5"_s, u"0.1"_s);
    f.Choose(1);
    const auto texts = [&f]() {
      // A label whose text is cut gets its tip when the layout has given it its width.
      f.Form().layout()->activate();
      QStringList all{f.Form().windowTitle(), f.Form().accessibleName()};
      for (const QWidget* part : f.Form().findChildren<QWidget*>()) {
        if (part->window() != f.window || !part->isVisible()) continue;
        if (const auto* button = qobject_cast<const QAbstractButton*>(part)) all += button->text();
        all += part->accessibleName() + u'|' + part->toolTip() + u'|' + part->accessibleDescription();
      }
      return all + QStringList{f.Text(u"lblCall"_s), f.Text(u"lblDxAz"_s), f.Part<StatusLink>(u"lblStatus"_s)->text()};
    };
    for (const QString& call : {u"K1QPE"_s, u"W1QXM"_s, u"ZZ9SUN"_s}) {
      QSet<QStringList> seen;
      f.Open(call);
      const QStringList languages = ListLanguages(QDir(QStringLiteral(LANGUAGES_DIR)).entryList(QDir::Files));
      for (const QString& language : languages) {
        f.program.config.LanguageName = language;
        LoadLanguage(QStringLiteral(LANGUAGES_DIR), language, 8, Program::ProgVersion(), f.program.language);
        translations.Take(language);
        SendLanguageChange();
        const QStringList shown = texts();
        seen += shown;
        // A window that opens in this language says the same.
        f.Form().close();
        f.Open(call);
        if (call == u"K1QPE"_s) QCOMPARE(shown, texts());
      }
      QCOMPARE(seen.size(), 8);
    }
  }

  // Some desktops have a dark window and a dark blue for links.
  void WritesLinksThatCanBeRead() {
    StatusLink status(u"lblStatus"_s, nullptr);
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0, 0, 160));
    status.setPalette(dark);
    status.SetStatus(u"Not logged in"_s, u"Sign in"_s);
    const QImage drawn = status.grab().toImage();
    QCOMPARE_GT(Brightest(drawn, drawn.rect()), 200);
  }

  // Some languages have long words for a login: a label that is a little too narrow does not cut them.
  void CutsTheStatusLate() {
    // percent: width of the label, of the width that it asks for.
    const auto check = [](const char* what, int percent, bool whole) {
      const TableRow row(what);
      const QString text = u"Niet aangemeld, gegevens mogelijk onvolledig"_s;
      QWidget window;
      StatusLink status(u"lblStatus"_s, &window);
      window.show();
      status.SetStatus(text, u"Aanmelden"_s);
      QVERIFY(status.isVisible());
      status.resize(status.sizeHint().width() * percent / 100, status.height());
      QVERIFY((status.ShownText() == text) == whole && status.ShownText().endsWith(u'…') == !whole);
      // Nothing of the text is cut at the label's edge: the last column stays empty.
      QImage drawn = status.grab().toImage().convertToFormat(QImage::Format_RGB32);
      const QRgb back = drawn.pixel(0, 0);
      for (int y = 0; y < drawn.height(); ++y) QCOMPARE(drawn.pixel(drawn.width() - 1, y), back);
      status.SetStatus(QString(), QString());
      QVERIFY(!status.isVisible());
    };
    check("wide enough", 100, true);
    check("a little narrow", 88, true);
    check("too narrow", 60, false);
  }

  void StandsBesideTheCall() {
    // control: its place in percent of the monitor, its size in pixels.
    const auto check = [](const char* what, QRect control, bool below) {
      const TableRow row(what);
      FormFixture f;
      const QRect monitor = f.Form().screen()->availableGeometry();
      const QPoint corner(monitor.width() * control.x() / 100, monitor.height() * control.y() / 100);
      const QRect beside(monitor.topLeft() + corner, control.size());
      f.Form().Open(u"K1QPE"_s, beside);
      const QRect place = f.Form().frameGeometry();
      QVERIFY2(monitor.contains(place), qPrintable(QDebug::toString(place) + QDebug::toString(monitor)));
      QCOMPARE(place.top() > beside.bottom(), below);
      QCOMPARE(place.bottom() < beside.top(), !below);
    };
    check("in the middle", {40, 30, 60, 20}, true);
    check("in the corner", {99, 98, 60, 20}, false);
    check("at the left end", {-5, 10, 60, 20}, true);

    FormFixture f;
    QWidget control(&f.owner);
    control.setObjectName(u"lblCallFrom"_s);
    f.owner.setGeometry(200, 150, 300, 200);
    control.setGeometry(20, 30, 50, 16);
    f.Form().PositionMe(&f.owner, u"lblCallFrom"_s);
    QVERIFY(f.Form().pos().x() == 220 && f.Form().pos().y() > 195 && f.Form().pos().y() < 240);
    // An owner without that control: the lookup stands at the window's own edge.
    f.Form().PositionMe(&f.owner, u"lblCallTx"_s);
    QCOMPARE(f.Form().pos().x(), f.owner.frameGeometry().x());
    // A user who has made the window larger keeps it so for the next call.
    f.Open(u"W1QXM"_s);
    f.Form().resize(500, 300);
    f.Open(u"K1QPE"_s);
    QCOMPARE(f.Form().size(), QSize(500, 300));
  }
};

OMNI_TEST(TestLookupWindow)
#include "test_lookup_window.moc"
