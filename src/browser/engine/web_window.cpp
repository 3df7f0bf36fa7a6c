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
#include "browser/engine/web_words.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(1000, 760);

}  // namespace

WebWindow::WebWindow(const QString& title, QWebEngineProfile* profile, const WebWords& words)
    : title_(title),
      words_(words),
      view_(new QWebEngineView(this)),
      page_(new WebPage(profile, words, view_)),
      lock_(new QLabel(this)),
      address_(new QLineEdit(this)),
      message_(new QLabel(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(u"Omni-Perch  "_s + title);
  setAccessibleName(windowTitle());
  resize(kSize);
  view_->setPage(page_);
  view_->setAccessibleName(words_.page.toString());
  view_->setContextMenuPolicy(Qt::CustomContextMenu);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* bar = new QHBoxLayout;
  MakeBar(bar);
  column->addLayout(bar);
  column->addWidget(view_, 1);
  column->addWidget(message_);
  message_->setAccessibleDescription(words_.message.toString());
  // A page's words are words, whatever they look like.
  message_->setTextFormat(Qt::PlainText);
  message_->setWordWrap(true);
  message_->setMargin(4);
  message_->hide();

  connect(page_, &WebPage::Told, this, &WebWindow::Tell);
  connect(page_, &WebPage::Distrusted, this, &WebWindow::OnDistrusted);
  connect(page_, &QWebEnginePage::urlChanged, this, &WebWindow::ShowAddress);
  connect(page_, &QWebEnginePage::loadStarted, this, &WebWindow::OnLoadStarted);
  connect(page_, &QWebEnginePage::renderProcessTerminated, this, &WebWindow::OnProcessEnded);
  connect(view_, &QWidget::customContextMenuRequested, this, &WebWindow::ShowMenu);
  for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
    connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
  view_->setFocus();
}

void WebWindow::MakeBar(QBoxLayout* bar) {
  const auto addButton = [this, bar](QWebEnginePage::WebAction which, const QString& name, QStyle::StandardPixmap icon,
                                     QKeySequence::StandardKey keys) {
    QAction* action = page_->action(which);
    action->setText(name);
    action->setIcon(style()->standardIcon(icon));
    action->setShortcuts(keys);
    addAction(action);
    auto* button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(name);
    bar->addWidget(button);
  };
  bar->setContentsMargins(2, 2, 2, 2);
  addButton(QWebEnginePage::Back, words_.back.toString(), QStyle::SP_ArrowBack, QKeySequence::Back);
  addButton(QWebEnginePage::Reload, words_.reload.toString(), QStyle::SP_BrowserReload, QKeySequence::Refresh);
  lock_->setMargin(4);
  lock_->setAccessibleDescription(words_.connection.toString());
  bar->addWidget(lock_);
  // To be read before a password is typed: the user types it for whoever stands here.
  address_->setReadOnly(true);
  address_->setAccessibleName(words_.address.toString());
  bar->addWidget(address_, 1);
}

bool WebWindow::Shows(const QString& host) const {
  // One that has only begun to load is that site's already.
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
  const bool safe = url.scheme() == "https"_L1;
  const bool refused = safe && url.host() == distrusted_;
  const QStringView state = refused ? words_.notTrusted : (safe ? words_.encrypted : words_.notEncrypted);
  lock_->setText(state.toString());
  // To be heard, too, before a password is typed.
  lock_->setAccessibleName(lock_->text());
  // The password of user:password@host is nobody's to read over a shoulder.
  address_->setText(url.toDisplayString(QUrl::RemoveUserInfo));
  address_->setCursorPosition(0);
}

// The desktop's own menu would offer to save pages and to show their source.
void WebWindow::ShowMenu(const QPoint& at) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const std::initializer_list<std::pair<QWebEnginePage::WebAction, QStringView>> entries = {
      {QWebEnginePage::Back, words_.back},   {QWebEnginePage::Reload, words_.reload},
      {QWebEnginePage::Cut, words_.cut},     {QWebEnginePage::Copy, words_.copy},
      {QWebEnginePage::Paste, words_.paste}, {QWebEnginePage::SelectAll, words_.selectAll}};
  for (const auto& [which, text] : entries) {
    QAction* action = page_->action(which);
    action->setText(text.toString());
    menu->addAction(action);
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
  Tell(words_.stopped.toString());
}

void WebWindow::Tell(const QString& text) {
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
