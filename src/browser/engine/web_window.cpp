// SPDX-License-Identifier: GPL-3.0-or-later
#include "browser/engine/web_window.h"

#include <QAccessible>
#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWebEngineView>

#include "browser/engine/web_page.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(1000, 760);

}  // namespace

WebWindow::WebWindow(const QString& title, QWebEngineProfile* profile)
    : title_(title),
      view_(new QWebEngineView(this)),
      page_(new WebPage(profile, view_)),
      back_(new QToolButton(this)),
      reload_(new QToolButton(this)),
      lock_(new QLabel(this)),
      address_(new QLineEdit(this)),
      message_(new QLabel(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(u"Omni-Perch  "_s + title);
  setAccessibleName(windowTitle());
  resize(kSize);
  view_->setPage(page_);
  view_->setContextMenuPolicy(Qt::CustomContextMenu);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* bar = new QHBoxLayout;
  MakeBar(bar);
  column->addLayout(bar);
  column->addWidget(view_, 1);
  column->addWidget(message_);
  // The words of a page are shown as plain text, even if they look like tags.
  message_->setTextFormat(Qt::PlainText);
  message_->setWordWrap(true);
  message_->setMargin(4);
  message_->hide();

  connect(page_, &WebPage::Notice, this, &WebWindow::ShowNotice);
  connect(page_, &WebPage::Visits, this, [this](const QUrl& url) { Q_EMIT Visits(asked_, url); });
  connect(page_, &WebPage::Distrusted, this, &WebWindow::OnDistrusted);
  connect(page_, &QWebEnginePage::urlChanged, this, &WebWindow::ShowAddress);
  connect(page_, &QWebEnginePage::loadStarted, this, &WebWindow::OnLoadStarted);
  connect(page_, &QWebEnginePage::renderProcessTerminated, this, &WebWindow::OnProcessEnded);
  connect(view_, &QWidget::customContextMenuRequested, this, &WebWindow::ShowMenu);
  for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
    connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
  ShowTexts();
  view_->setFocus();
}

void WebWindow::MakeBar(QBoxLayout* bar) {
  const auto addButton = [this, bar](QToolButton* button, QWebEnginePage::WebAction which, QStyle::StandardPixmap icon,
                                     QKeySequence::StandardKey keys) {
    QAction* action = page_->action(which);
    action->setIcon(style()->standardIcon(icon));
    action->setShortcuts(keys);
    addAction(action);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    bar->addWidget(button);
  };
  bar->setContentsMargins(2, 2, 2, 2);
  addButton(back_, QWebEnginePage::Back, QStyle::SP_ArrowBack, QKeySequence::Back);
  addButton(reload_, QWebEnginePage::Reload, QStyle::SP_BrowserReload, QKeySequence::Refresh);
  lock_->setMargin(4);
  bar->addWidget(lock_);
  // The user reads this before typing a password, which goes to whoever is named here.
  address_->setReadOnly(true);
  bar->addWidget(address_, 1);
}

void WebWindow::ShowTexts() {
  const std::initializer_list<std::pair<QWebEnginePage::WebAction, QString>> actions = {
      {QWebEnginePage::Back, tr("Back")},   {QWebEnginePage::Reload, tr("Reload")},
      {QWebEnginePage::Cut, tr("Cut")},     {QWebEnginePage::Copy, tr("Copy")},
      {QWebEnginePage::Paste, tr("Paste")}, {QWebEnginePage::SelectAll, tr("Select all")}};
  for (const auto& [which, text] : actions) page_->action(which)->setText(text);
  for (QToolButton* button : {back_, reload_}) button->setAccessibleName(button->defaultAction()->text());
  view_->setAccessibleName(tr("Page"));
  message_->setAccessibleDescription(tr("Message"));
  lock_->setAccessibleDescription(tr("Connection"));
  address_->setAccessibleName(tr("Address"));
  ShowAddress(shown_);
}

void WebWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) ShowTexts();
}

bool WebWindow::Shows(const QString& host) const {
  // A window that has only begun to load a page of the site counts too.
  for (const QUrl& url : {page_->url(), page_->requestedUrl(), asked_}) {
    const QString own = url.host();
    if (own == host || own.endsWith(u'.' + host)) return true;
  }
  return false;
}

void WebWindow::Load(const QUrl& url) {
  asked_ = url;
  ShowAddress(url);
  page_->load(url);
}

void WebWindow::ShowAddress(const QUrl& url) {
  shown_ = url;
  if (url.isEmpty()) return;
  const bool safe = url.scheme() == "https"_L1;
  const bool refused = safe && url.host() == distrusted_;
  lock_->setText(refused ? tr("Not trusted") : (safe ? tr("Encrypted") : tr("Not encrypted")));
  // For a screen reader, which is to say it before a password is typed.
  lock_->setAccessibleName(lock_->text());
  // A password in the address (user:password@host) is not shown.
  address_->setText(url.toDisplayString(QUrl::RemoveUserInfo));
  address_->setCursorPosition(0);
}

// The engine's own menu would offer to save pages and to show their source.
void WebWindow::ShowMenu(const QPoint& at) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const QWebEnginePage::WebAction entry :
       {QWebEnginePage::Back, QWebEnginePage::Reload, QWebEnginePage::Cut, QWebEnginePage::Copy, QWebEnginePage::Paste,
        QWebEnginePage::SelectAll}) {
    menu->addAction(page_->action(entry));
  }
  menu->popup(view_->mapToGlobal(at));
}

void WebWindow::OnDistrusted(const QString& host) {
  distrusted_ = host;
  ShowAddress(page_->requestedUrl());
}

void WebWindow::OnLoadStarted() {
  distrusted_.clear();
  message_->hide();
}

void WebWindow::OnProcessEnded() {
  ShowNotice(tr("The page has stopped. Reload shows it again."));
}

void WebWindow::ShowNotice(const QString& text) {
  constexpr qsizetype kMostText = 400;
  message_->setText(text.left(kMostText));
  message_->setAccessibleName(message_->text());
  message_->show();
  QAccessibleEvent alert(message_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void WebWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  Q_EMIT Closed(this);
}
