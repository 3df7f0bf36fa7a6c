// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/cell_tips.h"

CellTips::CellTips(CellGridView& view, HoverTip& hover, PictureTool& tool, QWidget* window)
    : QObject(window), view_(view), tool_(tool), window_(window), picToolTip_(new TipWindow(window)) {
  hover.BoxReason = [this](int slot) {
    const ThumbCell* cell = view_.CellAt(slot);
    return cell != nullptr ? cell->Shown().boxReason : QString();
  };
  connect(&view_, &CellGridView::Hovered, &hover, &HoverTip::Enter);
  connect(&view_, &CellGridView::HoverLeft, &hover, &HoverTip::Leave);
  connect(&view_, &CellGridView::FocusChanged, &hover, [&hover](int slot, bool in) { hover.Focus(in ? slot : -1); });
  connect(&view_, &CellGridView::CellPressed, &hover, &HoverTip::Close);
  connect(&view_, &CellGridView::SenderPressed, &hover, &HoverTip::Close);
  connect(&hover, &HoverTip::Show, this, &CellTips::ShowTip);
  connect(&hover, &HoverTip::Hide, picToolTip_, &TipWindow::hide);
  connect(&hover, &HoverTip::Built, this, [this](int slot, const QString& text) {
    if (ThumbCell* cell = view_.CellAt(slot)) cell->SetTipText(text);
  });
}

void CellTips::ShowTip(int slot, const QString& text, const QString& picturePath) {
  const ThumbCell* cell = view_.CellAt(slot);
  if (cell == nullptr) return;
  const QRect place(cell->mapTo(window_, QPoint(0, 0)), cell->size());
  picToolTip_->ShowTip(text, place, view_.FontPixels());
  const Wanted::Token token = tipPicture_.Ask();
  if (picturePath.isEmpty()) return;
  PictureOptions options;
  options.wanted = [token]() { return token.StillWanted(); };
  const auto viewed = [this, token](const PictureAnswer& answer) {
    // Another tip may have opened meanwhile.
    if (token.StillWanted() && answer.ok && !answer.frames.isEmpty())
      picToolTip_->ShowPicture(answer.frames.first().image);
  };
  tool_.View(picturePath, picToolTip_->PictureBox(), picToolTip_, viewed, options);
}
