// SPDX-License-Identifier: GPL-3.0-or-later
// The page of a printer as it will come out: the sheet, what the printer can reach of it, and the picture in its
// printed size. Part of Form21.
#pragma once

#include <QImage>
#include <QPageLayout>
#include <QWidget>

// The widget of one page.
class PrintPreview : public QWidget {
  Q_OBJECT

 public:
  explicit PrintPreview(QWidget* parent);

  // A null image leaves the sheet empty.
  void SetPicture(const QImage& picture);
  // cm: size of the picture on the paper.
  void SetPage(const QPageLayout& page, const QSizeF& cm);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage picture_;
  QPageLayout page_;
  QSizeF cm_;
};
