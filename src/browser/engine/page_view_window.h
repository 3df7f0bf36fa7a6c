// SPDX-License-Identifier: GPL-3.0-or-later
// frmStView: shows a page about a station's place under three buttons, and takes a picture of the part of it that four
// lines frame. web_pages makes the only one.
#pragma once

#include <QImage>
#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <QWebEngineView>
#include <QWidget>
#include <array>

#include "browser/page_view.h"

class WebPage;

// The window.
class frmStView : public QWidget {
  Q_OBJECT

 public:
  explicit frmStView(QWebEngineProfile* profile);

  // Goes to the monitor of the pointer, shows itself and loads the page; an open window stays where it is.
  void Open(const QUrl& address, const PageViewTexts& texts);
  void SetTexts(const PageViewTexts& texts);
  // The part of the page within the frame, in the pixels of the screen.
  QImage Capture();

 Q_SIGNALS:
  void PictureTaken(PageViewAction action, const QImage& picture);
  void Closed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void MakeLayout();
  void MakeKeys();
  void ShowTexts();
  void ShowPage();
  void ShowNotice(const QString& text);
  void PlaceLines();
  void Take(PageViewAction action);

  QUrl address_;
  PageViewTexts texts_;
  QTimer Timer1;
  QWidget* picCap;
  QToolButton* lblCopy;
  QToolButton* lblSave;
  QToolButton* lblPaste;
  QWebEngineView* Browser;
  WebPage* page_;
  QLabel* message_;
  std::array<QWidget*, 4> lines_;  // Line1 to Line4: left, top, right, bottom
};
