// SPDX-License-Identifier: GPL-3.0-or-later
// What the lookup window is made of besides the usual: a line of text that is cut where it does not fit, the login
// state that can be clicked, and the operator's picture as a button. Form12 makes them.
#pragma once

#include <QAbstractButton>
#include <QImage>
#include <QLineEdit>
#include <QSizeF>
#include <QToolButton>

// One line to be read: reached by Tab, selected and copied by pointer and keyboard. A text that is too long ends in
// dots until the field has the focus, and stands whole in the tip and for screen readers. An empty one is passed over.
class FieldLabel : public QLineEdit {
  Q_OBJECT

 public:
  FieldLabel(const QString& name, QWidget* parent);

  // role: what the field is, for screen readers.
  void SetField(const QString& text, const QString& role);
  // What stands in the window, with the dots.
  QString ShownText() const;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void ShowTip();
};

// Plain text, or a link where there is something to be done about it. A text that is a little too long is written in
// smaller letters, a longer one ends in dots; without a text it is hidden and keeps its room.
class StatusLink : public QToolButton {
  Q_OBJECT

 public:
  StatusLink(const QString& name, QWidget* parent);

  // action: what a click does; empty: nothing.
  void SetStatus(const QString& text, const QString& action);
  // What stands in the window, with the dots.
  QString ShownText() const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int Room() const;
  QFont ShownFont() const;

  bool isLink_ = false;
};

// A picture of the size that it is told; pressed by click or key, its menu opened by the right button or the menu key.
class PictureButton : public QAbstractButton {
  Q_OBJECT

 public:
  PictureButton(const QString& name, QWidget* parent);

  // A null picture hides the button.
  void SetPicture(const QImage& picture, QSize size);

 Q_SIGNALS:
  void MenuWanted(const QPoint& globalPoint, bool byKeyboard);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  QImage picture_;
};

// A key, drawn in the colour of the text.
QIcon KeySign(const QPalette& palette, double pixelRatio);
