// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/rx_ok_panels.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "onair/rx_ok_map.h"

using namespace Qt::StringLiterals;

namespace {

// A label of given colours, on a light and on a dark desktop.
void Colour(QLabel& label, const QColor& back) {
  QPalette colours = label.palette();
  colours.setColor(QPalette::Window, back);
  colours.setColor(QPalette::WindowText, qGray(back.rgb()) < 128 ? Qt::white : Qt::black);
  label.setPalette(colours);
  label.setAutoFillBackground(true);
}

}  // namespace

RxOkLegend::RxOkLegend(QWidget* parent)
    : QFrame(parent), lblLast_(this), lblPrevious_(this), lblGreenLine_(this), lblBlueLine_(this) {
  setObjectName(u"picLegend"_s);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(3, 3, 3, 3);
  column->setSpacing(2);
  const auto add = [column](QLabel& label, const QString& name, const QColor& back) {
    label.setObjectName(name);
    label.setTextFormat(Qt::PlainText);
    label.setMargin(2);
    Colour(label, back);
    column->addWidget(&label);
  };
  add(lblLast_, u"lblLast"_s, kRxLastImage);
  add(lblPrevious_, u"lblPrevious"_s, kRxPreviousImage);
  add(lblGreenLine_, u"lblGreenLine"_s, kRxNoSite);
  add(lblBlueLine_, u"lblBlueLine"_s, kRxHasSite);
}

void RxOkLegend::SetTexts(const LanguageTexts& language) {
  lblLast_.setText(language[TextLine::kRxLegendLast].trimmed());
  lblPrevious_.setText(language[TextLine::kRxLegendPrevious].trimmed());
  lblGreenLine_.setText(language[TextLine::kRxLegendGreen].trimmed());
  lblBlueLine_.setText(language[TextLine::kRxLegendBlue].trimmed());
  layout()->activate();
  resize(sizeHint());
}

RxOkLookupPanel::RxOkLookupPanel(QWidget* parent)
    : QFrame(parent), Label1_(this), Label2_(this), cmdCloseLookUp_(u"cmdCloseLookUp"_s, this) {
  setObjectName(u"picLookUp"_s);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  Label1_.setObjectName(u"Label1"_s);
  Label2_.setObjectName(u"Label2"_s);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(8, 6, 8, 6);
  for (QLabel* label : {&Label1_, &Label2_}) label->setTextFormat(Qt::PlainText);
  grid->addWidget(&Label1_, 0, 0);
  grid->addWidget(&Label2_, 1, 0);
  grid->addWidget(&cmdCloseLookUp_, 0, 1, 2, 1, Qt::AlignCenter);
  connect(&cmdCloseLookUp_, &QToolButton::clicked, this, &RxOkLookupPanel::CloseLookUp);
  hide();
}

void RxOkLookupPanel::SetTexts(const LanguageTexts& language, const QString& callbookName) {
  asking_ = language[TextLine::kMapLookingUp].trimmed();
  Label2_.setText(QString(language[TextLine::kRxLookup]).replace("???"_L1, callbookName).trimmed());
  cmdCloseLookUp_.SetCaption(language[TextLine::kCloseWord].trimmed());
  TakeTexts();
}

void RxOkLookupPanel::TakeTexts() {
  Label1_.setText(state_ == RxOkLookups::State::Failed ? u"Connection failed"_s : asking_);
  layout()->activate();
  resize(sizeHint());
  Q_EMIT Resized();
}

void RxOkLookupPanel::Show(RxOkLookups::State state) {
  state_ = state;
  TakeTexts();
  setVisible(state != RxOkLookups::State::Idle && !closed_);
}

void RxOkLookupPanel::CloseLookUp() {
  closed_ = true;
  hide();
}
