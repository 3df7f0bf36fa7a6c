// SPDX-License-Identifier: GPL-3.0-or-later
#include "cams/site_index_window.h"

#include <QScrollBar>
#include <QVBoxLayout>
#include <utility>

#include "ui/window_place.h"

using namespace Qt::StringLiterals;

Form19::Form19(const Program& program, CamRound& round, const SiteIndexPlace& place, QWidget* owner)
    : BaseWindow(owner), program_(program), place_(place), grid_(this) {
  setObjectName(u"Form19"_s);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(&grid_);
  grid_.Model().Take(SiteIndexCells(program));
  grid_.setCurrentIndex(grid_.Model().index(0, 0));
  connect(&grid_, &CamGrid::CellPressed, this, [this](const CamCell& cell) {
    close();
    Q_EMIT SiteChosen(cell.site, cell.call);
  });
  connect(&round, &CamRound::LightChanged, this,
          [this](const QString& call, CamLight light) { grid_.Model().SetLight(call, light); });
}

void Form19::ShowTexts() {
  const QString text = QString(program_.language[TextLine::kIndexTitle]).replace(u'*', u'=');
  setWindowTitle(u"Omni-Perch       "_s + text);
  grid_.setAccessibleName(program_.language[TextLine::kPopupIndex].trimmed());
}

SiteIndexPlace Form19::Place() const {
  return {frameGeometry().topLeft(), grid_.verticalScrollBar()->value()};
}

void Form19::PlaceWindow() {
  resize(grid_.WantedSize());
  BaseWindow::PlaceWindow();
  if (place_.corner) move(KeptOnMonitor(QRect(*place_.corner, size() + FrameOf(this)), *place_.corner).topLeft());
}

// Only now is it known how far the grid can be scrolled.
void Form19::showEvent(QShowEvent* event) {
  BaseWindow::showEvent(event);
  if (place_.scrolled == 0) return;
  grid_.doItemsLayout();
  grid_.verticalScrollBar()->setValue(std::exchange(place_.scrolled, 0));
  // The keys go on from what is seen.
  grid_.setCurrentIndex(grid_.indexAt(QPoint(1, grid_.verticalScrollBar()->singleStep())));
}
