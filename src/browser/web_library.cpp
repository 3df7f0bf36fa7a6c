// SPDX-License-Identifier: GPL-3.0-or-later
#include "browser/web_library.h"

#include <QDir>
#include <QLibrary>

#include "browser/web_port.h"

using namespace Qt::StringLiterals;

namespace {

// The windows of the loaded library, connected with the program's cookies.
class LoadedWindows : public BrowserWindows, private WebPort {
 public:
  LoadedWindows(OmniWebMake make, const QString& profileFolder, CookieStore& cookies)
      : cookies_(cookies), pages_(make(profileFolder, *this)) {
    connect(&cookies_, &CookieStore::Changed, this, &LoadedWindows::OnChanged);
  }
  // While they are destroyed, the pages hand their last cookies to the store. Its signal must not reach pages that are
  // half gone.
  ~LoadedWindows() override {
    cookies_.disconnect(this);
    pages_.reset();
  }

  void OpenPage(const QString& title, const QUrl& url) override { pages_->OpenPage(title, url); }

  void Forget(const QUrl& url) override {
    pages_->CloseSite(url);
    const QList<QUrl> visited = cookies_.VisitedFrom(url);
    cookies_.RemoveOf(url);
    pages_->ClearStorage(url);
    for (const QUrl& origin : visited) pages_->ClearStorage(origin);
  }

  void CloseAll() override { pages_->CloseAll(); }
  void OpenView(const QUrl& address, const PageViewTexts& texts) override { pages_->OpenView(address, texts); }
  void SetViewTexts(const PageViewTexts& texts) override { pages_->SetViewTexts(texts); }

 private:
  void OnChanged() { pages_->SyncCookies(); }
  QList<QNetworkCookie> Cookies() const override { return cookies_.All(); }
  void TakeCookies(const QList<CookieChange>& changes) override { cookies_.Apply(changes); }
  void PageClosed(const QString& title) override { Q_EMIT Closed(title); }
  void PageVisits(const QUrl& site, const QUrl& url) override { cookies_.NoteVisit(site, url); }
  void TakePicture(PageViewAction action, const QImage& picture, QWidget* window) override {
    Q_EMIT PictureTaken(action, picture, window);
  }

  CookieStore& cookies_;
  std::unique_ptr<WebPages> pages_;
};

}  // namespace

WebLibrary::WebLibrary(QString libraryFolder, QString profileFolder, CookieStore& cookies)
    : libraryFolder_(std::move(libraryFolder)), profileFolder_(std::move(profileFolder)), cookies_(cookies) {}

WebLibrary::~WebLibrary() = default;

BrowserWindows* WebLibrary::Windows() {
  if (windows_) return windows_.get();
  QLibrary library(libraryFolder_ + u"/libomni_web.so"_s);
  // A browser leaves threads behind that run its code until the process ends.
  library.setLoadHints(QLibrary::PreventUnloadHint);
  if (const auto make = reinterpret_cast<OmniWebMake>(library.resolve(kOmniWebMake)))
    windows_ = std::make_unique<LoadedWindows>(make, profileFolder_, cookies_);
  return windows_.get();
}

void WebLibrary::Forget(const QUrl& url) {
  if (windows_) {
    windows_->Forget(url);
    return;
  }
  cookies_.RemoveOf(url);
  // The storage of pages is in the engine's own files. While the engine is not loaded, all of it is removed: no sign-in
  // depends on it.
  if (!profileFolder_.isEmpty()) QDir(profileFolder_).removeRecursively();
}
