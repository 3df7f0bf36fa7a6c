// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/info_window.h"

#include <QVBoxLayout>

#include "display/picture_info.h"
#include "ui/window_place.h"

using namespace Qt::StringLiterals;

frmInfo::frmInfo(const Dependencies& services, QWidget* mainWindow)
    : BaseWindow(mainWindow, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint),
      services_(services),
      text_(new QPlainTextEdit(this)) {
  setObjectName(u"frmInfo"_s);
  text_->setObjectName(u"txtInfo"_s);
  text_->setReadOnly(true);
  text_->setTabChangesFocus(true);
  text_->setFrameShape(QFrame::NoFrame);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->addWidget(text_);
}

void frmInfo::ShowPictureInfo(const SourceFile& file, const QWidget* owner) {
  file_ = file;
  owner_ = owner->frameGeometry();
  ShowInfo({}, {});
  if (isVisible()) PlaceWindow();
  show();
  raise();
  activateWindow();
  const Wanted::Token token = wanted_.Ask();
  PictureOptions options;
  options.host = file.picture.host;
  options.wanted = [token]() { return token.StillWanted(); };
  services_.tool.ReadFacts(
      file.bytes, this,
      [this, token](const PictureAnswer& answer) {
        if (token.StillWanted()) ShowInfo(answer.size, answer.facts);
      },
      options);
}

void frmInfo::ShowInfo(QSize size, const QByteArray& facts) {
  text_->setPlainText(PictureInfoText(file_, size, facts, QLocale()).remove(u'\r'));
}

void frmInfo::ShowTexts() {
  const QString title = services_.program.language[TextLine::kPopupInfo].trimmed();
  setWindowTitle(u"Omni-Perch  "_s + title);
  setAccessibleName(windowTitle());
  text_->setAccessibleName(title);
}

void frmInfo::PlaceWindow() {
  if (owner_.isEmpty()) return BaseWindow::PlaceWindow();
  resize((owner_.size() - FrameOf(this)).boundedTo(MonitorAt(owner_.center()).size() - FrameOf(this)));
  QRect frame(QPoint(), size() + FrameOf(this));
  frame.moveCenter(owner_.center());
  move(KeptOnMonitor(frame, owner_.center()).topLeft());
}
