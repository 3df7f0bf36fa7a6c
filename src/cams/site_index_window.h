// SPDX-License-Identifier: GPL-3.0-or-later
// Form19: all sites with their pages and the light of their cam. A cell's menu opens it; a press on a site adds it to
// the empty cell from which the window was opened, or shows the site's pictures.
#pragma once

#include <QPoint>
#include <optional>

#include "cams/cam_grid.h"
#include "cams/cam_round.h"
#include "ui/base_window.h"

// What the window was opened for, and where it was when it was closed last. Values: pages and cells may change
// meanwhile.
struct SiteIndexPlace {
  std::optional<QPoint> corner;  // of the window's frame
  int scrolled = 0;              // pixels
};

class Form19 : public BaseWindow {
  Q_OBJECT

 public:
  Form19(const Program& program, CamRound& round, const SiteIndexPlace& place, QWidget* owner);

  void ShowTexts() override;
  // Where the window is, for its next opening.
  SiteIndexPlace Place() const;

 Q_SIGNALS:
  // A site was pressed: its index in the table of the page on the screen. The window has closed.
  void SiteChosen(int site, const QString& call);

 protected:
  void PlaceWindow() override;
  void showEvent(QShowEvent* event) override;

 private:
  const Program& program_;
  SiteIndexPlace place_;
  CamGrid grid_;
};
