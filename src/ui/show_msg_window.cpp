// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/show_msg_window.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmShowMsg::frmShowMsg(int guiMode, QWidget* over)
    : QWidget(over, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus), over_(over), lblMsg_(this) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setObjectName(u"frmShowMsg"_s);
  setWindowTitle(u"Omni-Perch  Message"_s);
  lblMsg_.setObjectName(u"lblMsg"_s);
  lblMsg_.setAlignment(Qt::AlignCenter);
  lblMsg_.setTextFormat(Qt::PlainText);
  lblMsg_.setMargin(10);
  QFont font = lblMsg_.font();
  font.setPointSizeF(12 + 3.0 * guiMode);
  font.setBold(true);
  lblMsg_.setFont(font);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&lblMsg_);
}

void frmShowMsg::ShowMsg(const QString& text, const QColor& colour) {
  QPalette colours = palette();
  colours.setColor(QPalette::Window, colour);
  colours.setColor(QPalette::WindowText, qGray(colour.rgb()) > 110 ? Qt::black : Qt::white);
  setPalette(colours);
  setAutoFillBackground(true);
  lblMsg_.setPalette(colours);
  lblMsg_.setText(text);
  lblMsg_.setAccessibleName(text.trimmed());
  setAccessibleName(text.trimmed());
  adjustSize();
  move(over_->mapToGlobal(over_->rect().center()) - rect().center());
  show();
  raise();
}
