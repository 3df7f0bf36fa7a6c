// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QToolButton>

#include "browser/web_library.h"
#include "core/translations.h"
#include "platform/net/url_reader.h"
#include "sign_in_site.h"
#include "test_folder.h"
#include "ui/language_change.h"

namespace {

// A browser starts slowly on a busy machine.
constexpr int kPatienceMs = 20'000;

// The visible windows of the browser, found by the title that a user reads.
QList<QWidget*> WindowsTitled(const QString& title) {
  QList<QWidget*> found;
  const QWidgetList all = QApplication::topLevelWidgets();
  for (QWidget* window : all)
    if (window->isVisible() && window->windowTitle() == title) found += window;
  return found;
}

template <typename Part>
Part* PartNamed(const QWidget* window, const QString& name) {
  const QList<Part*> parts = window->findChildren<Part*>();
  for (Part* part : parts)
    if (part->accessibleName() == name) return part;
  return nullptr;
}

// The names of all parts of a window, in the order in which a screen reader walks over them.
QStringList NamesBelow(QAccessibleInterface* part) {
  QStringList names;
  for (int i = 0; part && i < part->childCount(); ++i) {
    QAccessibleInterface* child = part->child(i);
    if (!child) continue;
    names += child->text(QAccessible::Name);
    names += NamesBelow(child);
  }
  return names;
}

}  // namespace

class TestBrowserWindows : public QObject {
  Q_OBJECT

  void Start() {
    store_ = std::make_unique<CookieStore>(folder_->path());
    library_ = std::make_unique<WebLibrary>(QStringLiteral(PROGRAM_DIR), folder_->filePath(u"browser"_s), *store_);
  }
  void Restart() {
    library_.reset();
    Start();
  }

  // Opens a page in a window of its name, and waits until the site has been asked for the page that it leads to.
  void OpenAndWaitFor(SignInSite& site, const char* path, const char* next) {
    site.asked.clear();
    library_->Windows()->OpenPage(QString::fromLatin1(path), site.Url(QString::fromLatin1(path)));
    QTRY_COMPARE_WITH_TIMEOUT(site.asked.value(next), 1, kPatienceMs);
  }

  // The window that shows the page; null where none or more than one has come up.
  QWidget* Opened(const SignInSite& site, const QString& path) {
    library_->Windows()->OpenPage(u"Calls"_s, site.Url(path));
    const QList<QWidget*> windows = WindowsTitled(u"Omni-Perch  Calls"_s);
    return windows.size() == 1 ? windows.first() : nullptr;
  }

  QByteArray CookiesOfRead(SignInSite& site) {
    UrlNetwork network;
    network.SetCookies(*store_);
    UrlReader reader(network);
    const QSignalSpy done(&reader, &UrlReader::Done);
    reader.Start(u"page"_s, site.Url(u"/home"_s));
    return QTest::qWaitFor([&done]() { return done.count() == 1; }, kPatienceMs) ? site.cookies.value("/home")
                                                                                 : QByteArray("no answer");
  }

  std::unique_ptr<TestFolder> folder_;
  std::unique_ptr<CookieStore> store_;
  std::unique_ptr<WebLibrary> library_;

 private Q_SLOTS:
  void init() {
    folder_ = std::make_unique<TestFolder>();
    Start();
  }
  void cleanup() {
    library_.reset();
    store_.reset();
    // The browser's threads finish their files after the windows have gone.
    QTRY_VERIFY_WITH_TIMEOUT(folder_->remove(), kPatienceMs);
  }

  void NoLibrary() {
    const QTemporaryDir empty;
    store_->Add(QNetworkCookie("a", "1"), u"127.0.0.1"_s);
    WebLibrary library(empty.path(), folder_->filePath(u"browser"_s), *store_);
    QCOMPARE(library.Windows(), nullptr);
    library.Forget(QUrl(u"http://127.0.0.1/"_s));
    QVERIFY(store_->All().isEmpty());
    QVERIFY(!QFileInfo::exists(folder_->filePath(u"browser"_s)));
  }

  // A page's sign-in serves the page reads, also after a restart of the program, and ends everywhere.
  void SignInServesPageReads() {
    SignInSite site;
    SignInSite stranger(u"127.0.0.2"_s);
    QVERIFY(!library_->IsLoaded());
    BrowserWindows* windows = library_->Windows();
    QVERIFY(windows);
    QSignalSpy closed(windows, &BrowserWindows::Closed);
    QWidget* shown = Opened(site, u"/login"_s);
    QVERIFY(shown);
    QTRY_COMPARE_WITH_TIMEOUT(site.asked[QByteArray("/home")], 1, kPatienceMs);
    auto* address = PartNamed<QLineEdit>(shown, u"Address"_s);
    QVERIFY(address && address->isReadOnly());
    QTRY_COMPARE_WITH_TIMEOUT(address->text(), site.Url(u"/home"_s).toString(), kPatienceMs);
    const auto* lock = PartNamed<QLabel>(shown, u"Not encrypted"_s);
    QVERIFY(lock && lock->isVisible());
    QCOMPARE(lock->text() + u' ' + lock->accessibleDescription(), u"Not encrypted Connection"_s);

    QCOMPARE(Opened(stranger, u"/login"_s), shown);
    QTest::keyClick(shown, Qt::Key_Escape);
    QTRY_COMPARE_WITH_TIMEOUT(closed.count(), 1, kPatienceMs);
    QCOMPARE(closed.first().value(0).toString(), u"Calls"_s);
    // What the pages had set is in the store when the window has gone.
    QCOMPARE(store_->CookiesFor(site.Url(u"/home"_s)).size(), 2);
    QCOMPARE(folder_->Mode(u"cookies"_s), 0600);
    QCOMPARE(folder_->Mode(u"browser"_s), 0700);
    QCOMPARE(CookiesOfRead(site), QByteArray("remember=me; session=abc"));
    CookiesOfRead(stranger);
    QCOMPARE(stranger.asked.value("/login"), 0);
    QCOMPARE(stranger.cookies.value("/home"), QByteArray());

    Restart();
    QCOMPARE(CookiesOfRead(site), QByteArray("remember=me; session=abc"));
    OpenAndWaitFor(site, "/home", "/home");
    QCOMPARE(site.cookies.value("/home"), QByteArray("remember=me; session=abc"));

    library_->Windows()->Forget(site.Url(u"/login"_s));
    QVERIFY(WindowsTitled(u"Omni-Perch  /home"_s).isEmpty());
    QCOMPARE(CookiesOfRead(site), QByteArray());
    OpenAndWaitFor(site, "/home", "/home");
    QCOMPARE(site.cookies.value("/home"), QByteArray());
    Restart();
    QCOMPARE(CookiesOfRead(site), QByteArray());
  }

  // A user may sign out in a run in which no browser window has been open yet.
  void SignsOutWithoutTheBrowser() {
    SignInSite site;
    OpenAndWaitFor(site, "/login", "/home");
    library_->Windows()->CloseAll();
    Restart();
    QVERIFY(!CookiesOfRead(site).isEmpty());
    library_->Forget(site.Url(u"/login"_s));
    QVERIFY(!library_->IsLoaded());
    QCOMPARE(CookiesOfRead(site), QByteArray());
    QVERIFY(!QFileInfo::exists(folder_->filePath(u"browser"_s)));
    // The same when the engine has just been given the cookies.
    store_->Add(QNetworkCookie("session", "abc"), u"127.0.0.1"_s);
    library_->Windows()->Forget(site.Url(u"/login"_s));
    OpenAndWaitFor(site, "/home", "/home");
    library_->Windows()->CloseAll();
    QCOMPARE(site.cookies.value("/home"), QByteArray());
    QVERIFY(store_->All().isEmpty());
  }

  // The login leads through a host of its own, whose cookie would sign the user in again.
  void SignOutReachesWhereTheLoginWent() {
    SignInSite site;
    SignInSite gate(u"127.0.0.2"_s);
    SignInSite other(u"127.0.0.3"_s);
    site.redirects["/in"] = "Location: " + gate.Url(u"/gate"_s).toEncoded() + "\r\n";
    gate.redirects["/gate"] = "Set-Cookie: gate=1\r\nLocation: " + other.Url(u"/check"_s).toEncoded() + "\r\n";
    other.redirects["/check"] = "Set-Cookie: other=1\r\nLocation: " + site.Url(u"/back"_s).toEncoded() + "\r\n";
    site.pages["/back"] = "<title>in</title><script>localStorage.setItem('a', 1)</script>";
    for (const bool isLoaded : {false, true}) {
      // A page of the third host is opened for its own sake: its sign-in is not this one's to end.
      OpenAndWaitFor(other, "/home", "/home");
      OpenAndWaitFor(site, "/in", "/back");
      library_->Windows()->CloseAll();
      QCOMPARE(store_->CookiesFor(gate.Url(u"/"_s)).size() + store_->CookiesFor(other.Url(u"/"_s)).size(), 2);
      if (!isLoaded) Restart();
      if (isLoaded) library_->Windows()->Forget(site.Url(u"/login"_s));
      if (!isLoaded) library_->Forget(site.Url(u"/login"_s));
      QCOMPARE(store_->CookiesFor(gate.Url(u"/"_s)).size(), 0);
      QCOMPARE(store_->CookiesFor(other.Url(u"/"_s)).size(), 1);
    }
  }

  // What a screen reader sees: the page's own parts below the window.
  void PagesAreThereForScreenReaders() {
    SignInSite site;
    site.pages["/form"] =
        "<title>Sign in</title><h1>Members</h1><form><label for=p>Password</label><input id=p type=password>"
        "<button>Enter</button></form>";
    QAccessible::setActive(true);
    QWidget* window = Opened(site, u"/form"_s);
    QVERIFY(window);
    const QStringList wanted = {u"Sign in"_s, u"Members"_s, u"Password"_s, u"Enter"_s};
    QStringList names;
    const auto areAllThere = [&]() {
      names = NamesBelow(QAccessible::queryAccessibleInterface(window));
      return std::all_of(wanted.begin(), wanted.end(), [&names](const QString& name) { return names.contains(name); });
    };
    const bool areThere = QTest::qWaitFor(areAllThere, kPatienceMs);
    QAccessible::setActive(false);
    QVERIFY2(areThere, qPrintable(names.join(u'|')));
  }

  // A page tells what it finds in its storage by the path that it asks for next.
  void StorageLastsUntilForgotten() {
    SignInSite site;
    site.pages["/store"] = "<script>localStorage.setItem('who', 'me'); location = '/stored'</script>";
    site.pages["/look"] = "<script>location = '/who/' + localStorage.getItem('who')</script>";
    OpenAndWaitFor(site, "/store", "/stored");
    OpenAndWaitFor(site, "/look", "/who/me");
    library_->Windows()->Forget(site.Url(u"/"_s));
    OpenAndWaitFor(site, "/look", "/who/null");
  }

  void PagesMayNot_data() {
    QTest::addColumn<QByteArray>("page");
    const auto row = [](const char* name, const char* page) { QTest::newRow(name) << QByteArray(page); };
    row("open a file", "location = 'file:///etc/hostname'; setTimeout(() => location = '/after', 50)");
    row("open a window", "window.open('/window'); location = '/after'");
    row("frame a file",
        "document.write('<iframe src=file:///etc/hostname></iframe>'); setTimeout(() => location = '/after', 50)");
    row("hold up the program", "alert('a'); if (!confirm('b') && prompt('c') === null) location = '/after'");
    row("ask where the user is",
        "navigator.geolocation.getCurrentPosition(() => location = '/window', () => location = '/after')");
  }
  // Each page is refused, and goes on all the same.
  void PagesMayNot() {
    QFETCH(QByteArray, page);
    SignInSite site;
    site.pages["/try"] = "<body><script>" + page + "</script>";
    OpenAndWaitFor(site, "/try", "/after");
    QCOMPARE(site.asked.value("/window"), 0);
    QCOMPARE(WindowsTitled(u"Omni-Perch  /try"_s).size(), 1);
    QVERIFY(!QApplication::activeModalWidget());
  }

  void TellsWhatAPageSays() {
    SignInSite site;
    site.pages["/try"] = "<body><script>alert('<b>Hello</b>\\n there')</script>";
    const QWidget* window = Opened(site, u"/try"_s);
    QVERIFY(window);
    const auto said = [window]() { return PartNamed<QLabel>(window, u"<b>Hello</b> there"_s); };
    QTRY_VERIFY_WITH_TIMEOUT(said(), kPatienceMs);
    QVERIFY(said()->isVisible() && said()->textFormat() == Qt::PlainText);
    QCOMPARE(said()->accessibleDescription(), u"Message"_s);
  }

  void AddressesThatAreNotOfTheWeb() {
    for (const QString& url : {u"file:///etc/hostname"_s, u"javascript:alert(1)"_s, u"http://"_s, QString()}) {
      library_->Windows()->OpenPage(u"Calls"_s, QUrl(url));
      QVERIFY2(WindowsTitled(u"Omni-Perch  Calls"_s).isEmpty(), qPrintable(url));
    }
  }

  // The words come from the program's translations, of which the library knows nothing; an open window follows them.
  void SpeaksTheLanguage() {
    SignInSite site;
    Translations translations;
    const QWidget* window = Opened(site, u"/home"_s);
    QVERIFY(window);
    auto* lock = window->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    QTRY_VERIFY_WITH_TIMEOUT(!lock->text().isEmpty(), kPatienceMs);
    const auto spoken = [&](const QString& language) {
      translations.Take(language);
      SendLanguageChange();
      QStringList words{lock->text(), window->findChild<QLineEdit*>()->accessibleName()};
      for (const auto* button : window->findChildren<QToolButton*>(Qt::FindDirectChildrenOnly)) {
        words += button->accessibleName();
        if (!button->toolTip().startsWith(words.last())) words += u"another tip: "_s + button->toolTip();
      }
      return words;
    };
    QCOMPARE(spoken(u"German"_s), (QStringList{u"Nicht verschlüsselt"_s, u"Adresse"_s, u"Zurück"_s, u"Neu laden"_s}));
    QCOMPARE(spoken(u"Klingon"_s), (QStringList{u"Not encrypted"_s, u"Address"_s, u"Back"_s, u"Reload"_s}));
  }

  // The picture is of the page within the frame, without the lines; the page's cookies stay out of the store.
  void TakesAPictureOfAPage() {
    SignInSite site;
    site.pages["/place"] =
        "<script>document.cookie = 'seen=1'; window.open('/window'); navigator.clipboard.writeText('x')"
        ".catch(() => location = '/after')</script><body style='background: #1e3c5a'>";
    site.pages["/after"] = "<body style='background: #1e3c5a; margin: 0; height: 3000px'>";
    BrowserWindows* windows = library_->Windows();
    QImage picture;
    QList<PageViewAction> actions;
    const QWidget* taker = nullptr;
    connect(windows, &BrowserWindows::PictureTaken, this,
            [&](PageViewAction action, const QImage& taken, const QWidget* window) {
              picture = taken;
              actions = {action};
              taker = window;
            });
    PageViewTexts texts{u"View of ZZ1AA"_s, u"Copy"_s, u"Save"_s, u"Paste"_s, u"Save image"_s, u"Paste it"_s};
    windows->OpenView(QUrl(u"file:///etc/hostname"_s), texts);
    windows->OpenView(site.Url(u"/place"_s), texts);
    QTRY_COMPARE_WITH_TIMEOUT(site.asked.value("/after"), 1, kPatienceMs);
    QCOMPARE(site.asked.value("/window"), 0);
    const QList<QWidget*> shown = WindowsTitled(u"View of ZZ1AA"_s);
    QCOMPARE(shown.size(), 1);
    const auto takes = [&]() {
      PartNamed<QToolButton>(shown.first(), u"Save"_s)->click();
      return picture.pixelColor(picture.rect().center()) == QColor(0x1e, 0x3c, 0x5a);
    };
    QTRY_VERIFY_WITH_TIMEOUT(takes(), kPatienceMs);
    QCOMPARE(actions, QList{PageViewAction::Save});
    QCOMPARE(taker, shown.first());
    QVERIFY(picture.width() > 400 && std::abs(picture.width() * 3 - picture.height() * 4) < 8);
    for (const QPoint& corner : {QPoint(0, 0), QPoint(picture.width() - 1, picture.height() - 1)})
      QCOMPARE(picture.pixelColor(corner), QColor(0x1e, 0x3c, 0x5a));
    QVERIFY(store_->All().isEmpty());

    // Another place is shown in the same window.
    texts.caption = u"View of ZZ2BB"_s;
    windows->OpenView(site.Url(u"/home"_s), texts);
    QTRY_COMPARE_WITH_TIMEOUT(site.asked.value("/home"), 1, kPatienceMs);
    QCOMPARE(WindowsTitled(u"View of ZZ2BB"_s), shown);
    QTest::keyClick(shown.first(), Qt::Key_Escape);
    QTRY_VERIFY(WindowsTitled(u"View of ZZ2BB"_s).isEmpty());
  }

  // A click of the user, which a page may turn into a copy or a dialog of colours, and a file that is dropped on it.
  void PageGetsNothingOfTheDesktop() {
    SignInSite site;
    site.pages["/tricks"] =
        "<input id=colour type=color><body style='height: 100vh'><script>"
        "document.oncopy = e => { e.clipboardData.setData('text/plain', 'of the page'); e.preventDefault() };"
        "document.onclick = () => { document.execCommand('copy'); colour.click();"
        "setTimeout(() => location = '/later', 300) }</script>";
    QGuiApplication::clipboard()->setText(u"of the user"_s);
    const PageViewTexts texts{u"View"_s, u"Copy"_s, u"Save"_s, u"Paste"_s, u"Save image"_s, u"Paste it"_s};
    library_->Windows()->OpenView(site.Url(u"/tricks"_s), texts);
    QTRY_COMPARE_WITH_TIMEOUT(WindowsTitled(u"View"_s).size(), 1, kPatienceMs);
    const auto* view = WindowsTitled(u"View"_s).first()->findChild<QWidget*>(u"Browser"_s);
    QTRY_VERIFY_WITH_TIMEOUT(view->focusProxy() != nullptr, kPatienceMs);
    bool dialogSeen = false;
    const auto clickedOn = [&]() {
      for (const QWidget* top : QApplication::topLevelWidgets())
        dialogSeen |= qobject_cast<const QColorDialog*>(top) != nullptr && top->isVisible() &&
                      !top->testAttribute(Qt::WA_DontShowOnScreen);
      if (site.asked.value("/tricks") == 1 && !dialogSeen)
        QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {}, view->rect().center());
      return site.asked.value("/later") > 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(clickedOn(), kPatienceMs);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"of the user"_s);
    QVERIFY(!dialogSeen);
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(folder_->path())});
    QDragEnterEvent drag(view->rect().center(), Qt::CopyAction, &file, Qt::LeftButton, {});
    QApplication::sendEvent(view->focusProxy(), &drag);
    QVERIFY(!drag.isAccepted());
  }

  void WindowsCloseByKeyAndTogether() {
    SignInSite site;
    BrowserWindows* windows = library_->Windows();
    QSignalSpy closed(windows, &BrowserWindows::Closed);
    for (const QString& title : {u"A"_s, u"B"_s, u"C"_s}) windows->OpenPage(title, site.Url(u"/home"_s));
    QWidget* first = WindowsTitled(u"Omni-Perch  A"_s).value(0);
    QVERIFY(first);
    for (const char* button : {"Back", "Reload"}) {
      auto* tool = PartNamed<QToolButton>(first, QString::fromLatin1(button));
      QVERIFY2(tool && tool->focusPolicy() != Qt::NoFocus, button);
    }
    windows->OpenPage(u"A"_s, site.Url(u"/home"_s));
    QTRY_VERIFY_WITH_TIMEOUT(first->isActiveWindow(), kPatienceMs);
    QTest::keyClick(first, Qt::Key_W, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(closed.count(), 1, kPatienceMs);
    windows->CloseAll();
    QCOMPARE(closed.count(), 3);
    QVERIFY(WindowsTitled(u"Omni-Perch  B"_s).isEmpty());
    // A window that was closed can be opened anew.
    windows->OpenPage(u"A"_s, site.Url(u"/home"_s));
    QCOMPARE(WindowsTitled(u"Omni-Perch  A"_s).size(), 1);
  }
};

OMNI_TEST(TestBrowserWindows)

#include "test_browser_windows.moc"
