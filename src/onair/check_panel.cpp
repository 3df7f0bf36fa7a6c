// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/check_panel.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kButton(120, 21);
constexpr int kPanelWidth = 125;
constexpr int kRowHeight = 17;
constexpr int kRowsBeside = 5;         // pixels that the rows do not take
constexpr QStringView kArrow = u" ▾";  // behind the summary

}  // namespace

CheckPanel::Names CheckPanel::BandNames() {
  return {u"picBand"_s, u"cmdBand"_s, u"ckBand"_s, u"imgBandClose"_s};
}

CheckPanel::Names CheckPanel::ModeNames() {
  return {u"picMode"_s, u"cmdMode"_s, u"ckMode"_s, u"imgModeClose"_s};
}

CheckPanel::CheckPanel(const Names& names, int boxes, QWidget* bar, QWidget* window)
    : QFrame(window), button_(new BarLabel(names.button, bar)), title_(this), close_(this), boxes_(boxes) {
  setObjectName(names.panel);
  setFrameShape(QFrame::Box);
  setAutoFillBackground(true);
  button_->setMinimumSize(kButton);
  title_.setObjectName(names.panel + u" title"_s);
  title_.setTextFormat(Qt::PlainText);
  close_.setObjectName(names.close);
  close_.setAutoRaise(true);
  close_.setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(4, 1, 2, kRowsBeside - 1);
  grid->setSpacing(0);
  grid->addWidget(&title_, 0, 0);
  grid->addWidget(&close_, 0, 1);
  for (int i = 0; i < boxes; ++i) {
    auto* check = new QCheckBox(this);
    check->setObjectName(u"%1(%2)"_s.arg(names.box).arg(i));
    check->setMinimumHeight(kRowHeight);
    check->installEventFilter(this);
    grid->addWidget(check, i + 1, 0, 1, 2);
    connect(check, &QCheckBox::clicked, this, [this, i]() {
      boxes_.Click(i);
      ShowBoxes();
    });
    checks_.append(check);
  }
  setMinimumWidth(kPanelWidth);
  hide();

  connect(button_, &QToolButton::clicked, this, [this]() { isVisible() ? Close() : Open(); });
  connect(&close_, &QToolButton::clicked, this, &CheckPanel::Close);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    // The window that is left as a whole keeps its panel open.
    if (now != nullptr && now != button_ && now != this && !isAncestorOf(now)) Close();
  });
}

void CheckPanel::SetTexts(const QString& title, const QStringList& captions, const QString& close) {
  title_.setText(title);
  setAccessibleName(title);
  close_.setAccessibleName(close);
  close_.setToolTip(close);
  for (qsizetype i = 0; i < checks_.size(); ++i) checks_[i]->setText(captions.value(i));
  ShowCaption();
}

void CheckPanel::SetSummary(const QString& summary) {
  summary_ = summary;
  ShowCaption();
}

void CheckPanel::ShowCaption() {
  const QFontMetrics letters = button_->fontMetrics();
  // The given width fits letters of 7 pixels; wider letters make the button wider.
  const int room = std::max(kButton.width(), letters.averageCharWidth() * 16) - letters.horizontalAdvance(u"  ▾"_s) - 8;
  const auto fits = [&](const QString& text) { return letters.horizontalAdvance(text) <= room; };
  const QString shown = CutSummary(summary_, fits);
  button_->SetCaption(shown + kArrow.toString());
  button_->setAccessibleName(title_.text() + u": "_s + summary_);
  button_->setToolTip(shown == summary_ ? title_.text() : title_.text() + u": "_s + summary_);
}

void CheckPanel::SetBoxes(const CheckBoxes& boxes) {
  // What the user is ticking counts more than what is in force.
  if (isVisible()) return;
  boxes_ = boxes;
  ShowBoxes();
}

void CheckPanel::ShowBoxes() {
  for (qsizetype i = 0; i < checks_.size(); ++i) checks_[i]->setChecked(boxes_.IsChecked(static_cast<int>(i)));
}

void CheckPanel::Open() {
  QWidget* over = parentWidget();
  adjustSize();
  const QPoint below = button_->mapTo(over, QPoint(0, button_->height()));
  move(std::clamp(below.x(), 0, std::max(0, over->width() - width())),
       std::clamp(below.y(), 0, std::max(0, over->height() - height())));
  show();
  raise();
  checks_.first()->setFocus(Qt::PopupFocusReason);
}

void CheckPanel::Close() {
  if (!isVisible()) return;
  const bool hadFocus = isAncestorOf(QApplication::focusWidget());
  hide();
  if (hadFocus) button_->setFocus();
  Q_EMIT Closed(boxes_);
}

// Up and down go from box to box.
bool CheckPanel::StepByKey(int key) {
  if (key != Qt::Key_Up && key != Qt::Key_Down) return false;
  const qsizetype count = checks_.size();
  const qsizetype now = checks_.indexOf(qobject_cast<QCheckBox*>(focusWidget()));
  checks_[(now + (key == Qt::Key_Down ? 1 : count - 1)) % count]->setFocus(Qt::OtherFocusReason);
  return true;
}

bool CheckPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (StepByKey(key)) return true;
    // Of the window, Return would press a button that has the focus: here it is done choosing.
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      Close();
      return true;
    }
  }
  return QFrame::eventFilter(watched, event);
}

void CheckPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return Close();
  QFrame::keyPressEvent(event);
}
