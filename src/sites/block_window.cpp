// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/block_window.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "sites/site_fields.h"
#include "ui/window_place.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int kRows = 5;
constexpr QSize kSize(253, 280);  // 3,800 by 4,200 twips
}  // namespace

Form18::Form18(Program& program, QWidget* mainWindow)
    : SetupWindow(mainWindow), program_(program), Label1(new QLabel(this)), cmdBlock(new QPushButton(this)) {
  setObjectName(u"Form18"_s);
  Label1->setObjectName(u"Label1"_s);
  cmdBlock->setObjectName(u"cmdBlock"_s);
  for (std::size_t i = 0; i < Text1.size(); ++i) {
    Text1[i] = new CleanField(u"Text1_%1"_s.arg(i), {kLongestCall, true}, this);
    Text1[i]->SetSpelling(CleanField::Spelling::Title, u'0');
    Text1[i]->setText(program.lstBlock.value(static_cast<qsizetype>(i)));
  }
  MakeLayout();
  SetDefaultButton(cmdBlock);
  connect(cmdBlock, &QPushButton::clicked, this, &Form18::Store);
  Text1[std::min(Text1.size() - 1, static_cast<std::size_t>(program.lstBlock.size()))]->setFocus();
}

void Form18::MakeLayout() {
  Label1->setTextFormat(Qt::PlainText);
  Label1->setWordWrap(true);
  auto* boxes = new QGridLayout;
  for (std::size_t i = 0; i < Text1.size(); ++i) {
    boxes->addWidget(Text1[i], static_cast<int>(i) % kRows, static_cast<int>(i) / kRows);
    if (i > 0) setTabOrder(Text1[i - 1], Text1[i]);
  }
  setTabOrder(Text1.back(), cmdBlock);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(Label1);
  rows->addLayout(boxes);
  rows->addStretch(1);
  rows->addWidget(cmdBlock);
}

void Form18::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  setWindowTitle(texts[TextLine::kSetupBlock].trimmed());
  setAccessibleName(windowTitle());
  Label1->setText(texts[TextLine::kBlockHint]);
  cmdBlock->setText(texts[TextLine::kBlockButton]);
  cmdBlock->setAccessibleName(cmdBlock->text());
  for (std::size_t i = 0; i < Text1.size(); ++i) {
    Text1[i]->setAccessibleName(tr("Blocked text %1").arg(i + 1));
    Text1[i]->setAccessibleDescription(Label1->text());
  }
}

void Form18::PlaceWindow() {
  resize(kSize.expandedTo(layout()->totalSizeHint()));
  const QWidget* opener = parentWidget() != nullptr ? parentWidget()->window() : nullptr;
  if (opener == nullptr) return SetupWindow::PlaceWindow();
  const QPoint corner = opener->frameGeometry().topLeft();
  move(KeptOnMonitor(QRect(corner, size() + FrameOf(this)), corner).topLeft());
}

void Form18::Store() {
  QStringList boxes;
  for (const CleanField* box : Text1) boxes.append(box->text());
  program_.lstBlock = BlockListOf(boxes);
  Q_EMIT ListChanged();
  close();
}
