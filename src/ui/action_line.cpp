// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/action_line.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

ActionLine::ActionLine(const QString& name, const QStringList& buttons, QWidget* parent)
    : QFrame(parent), text_(new QLabel(this)) {
  setObjectName(name);
  setFrameShape(QFrame::StyledPanel);
  text_->setObjectName(name + u"Text"_s);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  auto* row = new QHBoxLayout(this);
  row->addWidget(text_, 1);
  for (const QString& button : buttons) {
    auto* made = new QPushButton(this);
    made->setObjectName(button);
    connect(made, &QPushButton::clicked, this,
            [this, index = static_cast<int>(buttons_.size())]() { Q_EMIT Pressed(index); });
    row->addWidget(made);
    buttons_ += made;
  }
  hide();
}

void ActionLine::SetLine(const QString& text, const QStringList& captions) {
  text_->setText(text);
  for (qsizetype i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->setText(captions.value(i));
    buttons_[i]->setAccessibleName(captions.value(i));
    buttons_[i]->setAccessibleDescription(text);
  }
  setVisible(!text.isEmpty());
}
