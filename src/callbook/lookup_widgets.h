// SPDX-License-Identifier: GPL-3.0-or-later
// Controls of the lookup window: a text field that is cut where it does not fit, the login state that can be clicked,
// and the operator's picture as a button. Form12 and ServiceChooser make them.
#pragma once

#include <QAbstractButton>
#include <QImage>
#include <QLineEdit>
#include <QSizeF>
#include <QToolButton>

// One line of read-only text, reached by Tab, selected and copied by pointer and keyboard. A text that is too long ends
// in dots until the field has the focus, and is whole in the tip and for screen readers. Tab passes over an empty
// field.
class FieldLabel : public QLineEdit {
  Q_OBJECT

 public:
  FieldLabel(const QString& name, QWidget* parent);

  // role: what the field is, for screen readers.
  void SetField(const QString& text, const QString& role);
  // The text as it is painted, with the dots.
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

// The login state: plain text, or a link if a click does something. A text that is a little too long is written in
// smaller letters, a longer one ends in dots; without a text the control is hidden but keeps its place.
class StatusLink : public QToolButton {
  Q_OBJECT

 public:
  StatusLink(const QString& name, QWidget* parent);

  // action: what a click does, in words; empty: the text is no link.
  void SetStatus(const QString& text, const QString& action);
  // The text as it is painted, with the dots.
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

// A picture that is a button: pressed by click or key, its menu opened by the right button or the menu key.
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

// The icon of a key (for signing in), drawn in the colour of the text.
QIcon KeySign(const QPalette& palette, double pixelRatio);
