// SPDX-License-Identifier: GPL-3.0-or-later
#include "cams/cam_status_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

Form20::Form20(const Program& program, CamRound& round, QWidget* owner)
    : BaseWindow(owner), program_(program), round_(round), mnuRefresh_(u"mnuRefresh"_s, this), grid_(this) {
  setObjectName(u"Form20"_s);
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(2, 2, 2, 2);
  bar->addWidget(&mnuRefresh_);
  bar->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(bar);
  column->addWidget(&grid_, 1);
  grid_.setFocus();
  connect(&mnuRefresh_, &BarLabel::clicked, &round_, &CamRound::RefreshCams);
  connect(&grid_, &CamGrid::CellPressed, this, [this](const CamCell& cell) { Q_EMIT CamWanted(cell.call); });
  connect(&round_, &CamRound::LightChanged, this,
          [this](const QString& call, CamLight light) { grid_.Model().SetLight(call, light); });
  // At each poll's end, whether a round follows it or not: this is wanted.
  connect(&round_, &CamRound::LightsReset, this, [this]() { grid_.Model().SetAllLights(imgY); });
  connect(&round_, &CamRound::CaptionChanged, this, [this]() { setWindowTitle(round_.StatusTitle()); });
  connect(&round_, &CamRound::ListChanged, this, &Form20::Fill);
  Fill();
}

void Form20::Fill() {
  grid_.Model().Take(CamStatusCells(program_));
  grid_.setCurrentIndex(grid_.Model().index(0, 0));
}

void Form20::ShowTexts() {
  mnuRefresh_.SetCaption(program_.language[TextLine::kRefreshCams].trimmed());
  grid_.setAccessibleName(program_.language[TextLine::kCamsTip].trimmed());
  setWindowTitle(round_.StatusTitle());
}

void Form20::PlaceWindow() {
  layout()->activate();
  resize(grid_.WantedSize() + QSize(0, layout()->sizeHint().height() - grid_.sizeHint().height()));
  BaseWindow::PlaceWindow();
}

void Form20::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Refresh)) return round_.RefreshCams();
  BaseWindow::keyPressEvent(event);
}
