// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_view.h"

#include "page/thumb_layout.h"

using namespace Qt::StringLiterals;

PageView::PageView(Program& program, ThumbGrid& grid, QWidget* parent)
    : CellGridView(program.language, parent), program_(program), grid_(grid) {
  setObjectName(u"picAll"_s);
  connect(&grid_, &ThumbGrid::GridMade, this, &PageView::MakeCells);
  connect(&grid_, &ThumbGrid::CellChanged, this, &PageView::UpdateCell);
}

void PageView::Arrange(int menuBarHeight, QSize nominal, double fontPoints) {
  setAccessibleName(program_.language[TextLine::kPageGridName]);
  GridMeasures measures;
  measures.units = PageUnits(program_.config.ThumbLayout, menuBarHeight);
  measures.fontPixels = FontPixelsOf(fontPoints);
  if (!measures.units.isEmpty()) {
    measures.nominalScale =
        std::min(nominal.width() / measures.units.width(), nominal.height() / measures.units.height());
  }
  SetMeasures(measures);
}

void PageView::TakeLanguage() {
  setAccessibleName(program_.language[TextLine::kPageGridName]);
  CellGridView::TakeLanguage();
}

int PageView::Columns() const {
  return LayoutOf(program_.config.ThumbLayout).columns;
}

CellWords PageView::WordsOf(int slot) const {
  return {{}, program_.page.Field(slot, ModeText), program_.page.Field(slot, SentTime)};
}
