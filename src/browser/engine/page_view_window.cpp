// SPDX-License-Identifier: GPL-3.0-or-later
#include "browser/engine/page_view_window.h"

#include <QAction>
#include <QChildEvent>
#include <QCloseEvent>
#include <QCursor>
#include <QDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <chrono>

#include "browser/engine/web_page.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// From loading the window to showing it, as given; the browser's processes start meanwhile.
constexpr auto kTick = 500ms;
constexpr QSize kSize(920, 760);
constexpr double kOfMonitor = 0.9;
constexpr QSize kShape(4, 3);  // of the picture that is taken
constexpr int kLine = 2;       // pixels
const QColor kLineColour(255, 64, 64);

// The largest part of an area that has the shape of a picture, in its middle.
QRect FrameIn(const QRect& area) {
  QRect frame(QPoint(), kShape.scaled(area.size(), Qt::KeepAspectRatio));
  frame.moveCenter(area.center());
  return frame & area;
}

// The setting about the clipboard says nothing about a page's own copy command, which needs but one click of the user
// anywhere in the page. In every frame, before the page's first script runs.
QWebEngineScript NoCopyCommand() {
  QWebEngineScript script;
  script.setName(u"NoCopyCommand"_s);
  script.setInjectionPoint(QWebEngineScript::DocumentCreation);
  script.setWorldId(QWebEngineScript::MainWorld);
  script.setRunsOnSubFrames(true);
  script.setSourceCode(
      u"Object.defineProperty(Document.prototype, 'execCommand', {value: () => false, writable: false, configurable: false});"_s);
  return script;
}

QToolButton* BarButton(const QString& name, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

}  // namespace

frmStView::frmStView(QWebEngineProfile* profile)
    : picCap(new QWidget(this)),
      lblCopy(BarButton(u"lblCopy"_s, picCap)),
      lblSave(BarButton(u"lblSave"_s, picCap)),
      lblPaste(BarButton(u"lblPaste"_s, picCap)),
      Browser(new QWebEngineView(this)),
      page_(new WebPage(profile, Browser)),
      message_(new QLabel(this)) {
  setObjectName(u"frmStView"_s);
  picCap->setObjectName(u"picCap"_s);
  Browser->setObjectName(u"Browser"_s);
  Browser->setPage(page_);
  Browser->setContextMenuPolicy(Qt::NoContextMenu);
  page_->settings()->setAttribute(QWebEngineSettings::JavascriptCanAccessClipboard, false);
  page_->settings()->setAttribute(QWebEngineSettings::JavascriptCanPaste, false);
  page_->scripts().insert(NoCopyCommand());
  Browser->setAcceptDrops(false);  // a page would read the file that is dropped on it
  page_->settings()->setAttribute(QWebEngineSettings::ShowScrollBars, false);  // they would be in the picture
  MakeLayout();
  MakeKeys();
  Timer1.setSingleShot(true);
  Timer1.setInterval(kTick);
  connect(&Timer1, &QTimer::timeout, this, &frmStView::ShowPage);
  connect(lblCopy, &QToolButton::clicked, this, [this]() { Take(PageViewAction::Copy); });
  connect(lblSave, &QToolButton::clicked, this, [this]() { Take(PageViewAction::Save); });
  connect(lblPaste, &QToolButton::clicked, this, [this]() { Take(PageViewAction::Paste); });
  connect(page_, &WebPage::Notice, this, &frmStView::ShowNotice);
  connect(page_, &QWebEnginePage::loadStarted, message_, &QWidget::hide);
  connect(page_, &QWebEnginePage::renderProcessTerminated, this,
          [this]() { ShowNotice(tr("The page has stopped. F5 shows it again.")); });
}

void frmStView::MakeLayout() {
  auto* bar = new QHBoxLayout(picCap);
  bar->setContentsMargins(6, 4, 6, 4);
  bar->setSpacing(6);
  for (QToolButton* button : {lblCopy, lblSave, lblPaste}) bar->addWidget(button);
  bar->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(picCap);
  column->addWidget(Browser, 1);
  column->addWidget(message_);
  // The words of a page are shown as plain text, even if they look like tags.
  message_->setTextFormat(Qt::PlainText);
  message_->setWordWrap(true);
  message_->setMargin(6);
  message_->hide();
  // The lines lie over the page and are no part of it, so that they are not in the picture either.
  const std::array names = {u"Line1"_s, u"Line2"_s, u"Line3"_s, u"Line4"_s};
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    lines_[i] = new QWidget(this);
    lines_[i]->setObjectName(names[i]);
    lines_[i]->setAttribute(Qt::WA_TransparentForMouseEvents);
    lines_[i]->setAutoFillBackground(true);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, kLineColour);
    lines_[i]->setPalette(colours);
  }
  Browser->installEventFilter(this);
}

void frmStView::MakeKeys() {
  const auto does = [this](const QKeySequence& keys, auto what) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, what);
  };
  does(Qt::Key_Escape, [this]() { close(); });
  does(Qt::CTRL | Qt::Key_W, [this]() { close(); });
  // Ctrl+C and Ctrl+V are the page's.
  does(Qt::CTRL | Qt::SHIFT | Qt::Key_C, [this]() { lblCopy->click(); });
  does(Qt::CTRL | Qt::Key_S, [this]() { lblSave->click(); });
  does(Qt::CTRL | Qt::SHIFT | Qt::Key_V, [this]() { lblPaste->click(); });
  does(Qt::Key_F5, [this]() { page_->load(address_); });
  // Tab walks through the page first; this key leaves it.
  does(Qt::Key_F6, [this]() {
    if (picCap->isAncestorOf(focusWidget())) {
      Browser->setFocus();
    } else {
      lblCopy->setFocus();
    }
  });
}

void frmStView::Open(const QUrl& address, const PageViewTexts& texts) {
  address_ = address;
  SetTexts(texts);
  if (isVisible()) return ShowPage();
  const QScreen* monitor = QGuiApplication::screenAt(QCursor::pos());
  if (monitor == nullptr) monitor = QGuiApplication::primaryScreen();
  const QRect room = monitor->availableGeometry();
  resize(kSize.boundedTo((QSizeF(room.size()) * kOfMonitor).toSize()));
  QRect place(QPoint(), size());
  place.moveCenter(room.center());
  move(place.topLeft());
  Timer1.start();
}

void frmStView::ShowPage() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  Browser->setFocus();
  page_->load(address_);
}

void frmStView::SetTexts(const PageViewTexts& texts) {
  texts_ = texts;
  ShowTexts();
}

void frmStView::ShowTexts() {
  setWindowTitle(texts_.caption);
  setAccessibleName(texts_.caption);
  const auto name = [](QToolButton* button, const QString& text, const QString& tip, const QString& keys) {
    button->setText(text);
    button->setAccessibleName(text);
    button->setToolTip(u"%1 (%2)"_s.arg(tip.isEmpty() ? text : tip, keys));
  };
  name(lblCopy, texts_.lblCopy, {}, u"Ctrl+Shift+C"_s);
  name(lblSave, texts_.lblSave, texts_.saveTip, u"Ctrl+S"_s);
  name(lblPaste, texts_.lblPaste, texts_.pasteTip, u"Ctrl+Shift+V"_s);
  Browser->setAccessibleName(tr("Page"));
  message_->setAccessibleDescription(tr("Message"));
}

QImage frmStView::Capture() {
  return Browser->grab(FrameIn(Browser->rect())).toImage();
}

void frmStView::Take(PageViewAction action) {
  const QImage picture = Capture();
  if (!picture.isNull()) Q_EMIT PictureTaken(action, picture);
}

void frmStView::PlaceLines() {
  const QRect frame = FrameIn(Browser->rect()).translated(Browser->pos());
  lines_[0]->setGeometry(frame.left(), frame.top(), kLine, frame.height());
  lines_[1]->setGeometry(frame.left(), frame.top(), frame.width(), kLine);
  lines_[2]->setGeometry(frame.right() + 1 - kLine, frame.top(), kLine, frame.height());
  lines_[3]->setGeometry(frame.left(), frame.bottom() + 1 - kLine, frame.width(), kLine);
  for (QWidget* line : lines_) line->raise();
}

void frmStView::ShowNotice(const QString& text) {
  constexpr qsizetype kMostText = 400;
  message_->setText(text.left(kMostText));
  message_->setAccessibleName(message_->text());
  message_->show();
}

bool frmStView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) PlaceLines();
  // The engine opens a dialog for a page's field of colours. It is rejected before it is seen.
  if (event->type() == QEvent::ChildPolished) {
    auto* dialog = qobject_cast<QDialog*>(static_cast<QChildEvent*>(event)->child());
    if (dialog != nullptr) {
      dialog->setAttribute(Qt::WA_DontShowOnScreen);
      QMetaObject::invokeMethod(dialog, &QDialog::reject, Qt::QueuedConnection);
    }
  }
  return QWidget::eventFilter(watched, event);
}

void frmStView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) ShowTexts();
}

void frmStView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  PlaceLines();
}

void frmStView::closeEvent(QCloseEvent* event) {
  Timer1.stop();
  event->accept();
  Q_EMIT Closed();
}
