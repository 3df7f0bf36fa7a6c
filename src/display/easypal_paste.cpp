// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/easypal_paste.h"

#include "ui/msg_box_timed.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr qint64 kMuch = 25'000;   // bytes of an animated picture, above which the user is asked
constexpr auto kAfterKey = 500ms;  // EasyPal takes the picture meanwhile
constexpr auto kTellingTime = 10s;
}  // namespace

EasyPalPaste::EasyPalPaste(const Dependencies& dependencies, QWidget* mainWindow)
    : QObject(mainWindow), deps_(dependencies), mainWindow_(mainWindow) {
  afterKey_.setSingleShot(true);
  afterKey_.setInterval(kAfterKey);
  connect(&afterKey_, &QTimer::timeout, this, [this]() {
    Free();
    if (deps_.program.config.AutoRefreshOn == 1) Q_EMIT RefreshTimerWanted();
  });
}

void EasyPalPaste::PasteToEasyPal(const Picture& picture, const Copy& copy, QWidget* over) {
  if (busy_) return;
  busy_ = true;
  over_ = over;
  // The program may end, and this object with it, while the question is on the screen.
  const QPointer<EasyPalPaste> self(this);
  const bool allowed = AllowsSize(picture);
  if (self == nullptr) return;
  if (!allowed) return Free();
  copy([self](bool copied) {
    if (self == nullptr) return;
    // A picture that has vanished or cannot be decoded leaves nothing to paste.
    if (!copied) return self->Free();
    self->SendKey();
  });
}

void EasyPalPaste::PasteClipboard(QWidget* over) {
  if (busy_) return;
  busy_ = true;
  over_ = over;
  SendKey();
}

void EasyPalPaste::WhenFree(QObject* context, const std::function<void()>& then) {
  if (!busy_) return then();
  connect(this, &EasyPalPaste::Freed, context, then, Qt::SingleShotConnection);
}

void EasyPalPaste::Free() {
  busy_ = false;
  Q_EMIT Freed();
}

bool EasyPalPaste::AllowsSize(const Picture& picture) {
  if (!picture.animated || picture.bytes <= kMuch) return true;
  const LanguageTexts& texts = deps_.program.language;
  QString question = texts[TextLine::kPasteQuestion1] + u'\n' + texts[TextLine::kPasteQuestion2];
  question.replace("???"_L1, LanguageLocale(deps_.program.config.LanguageName).toString(picture.bytes));
  return deps_.dialogs.AskSecond(over_, question, texts[TextLine::kNoWord].trimmed(),
                                 texts[TextLine::kYesWord].trimmed());
}

void EasyPalPaste::SendKey() {
  deps_.easyPal.SendF7(u"EasyPal"_s, this, [this](KeyEnd end) { KeyEnded(end); });
}

// Without EasyPal nothing is said: that a station has not got it is no fault.
void EasyPalPaste::KeyEnded(KeyEnd end) {
  afterKey_.start();
  switch (end) {
    case KeyEnd::Sent:
    case KeyEnd::NoWindow:
    case KeyEnd::Gone:
      break;
    case KeyEnd::NoFocus:
      Tell(tr("EasyPal did not come to the front. The picture is on the clipboard: press F7 in EasyPal."));
      break;
    case KeyEnd::NoDisplay:
    case KeyEnd::Impossible:
    case KeyEnd::NoAnswer:
      Tell(tr("The picture is on the clipboard. Press F7 in EasyPal to paste it."));
      break;
  }
}

void EasyPalPaste::Tell(const QString& text) {
  QWidget* window = over_ != nullptr && over_->isVisible() ? over_.data() : mainWindow_;
  frmMsgBoxTimed::ShowMsg(window, text, kTellingTime);
}
