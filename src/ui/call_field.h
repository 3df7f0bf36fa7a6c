// SPDX-License-Identifier: GPL-3.0-or-later
// The text box in which a callsign is typed. The windows that add and edit sites, the editor of the call database and
// the own location use it.
#pragma once

#include <QLineEdit>

// "*" and line ends, which divide the lines of the lists, are left out; letters become upper case and zeros the
// ZeroGlyph as they are typed, pasted or set; the caret stays where it was.
class CallField : public QLineEdit {
  Q_OBJECT

 public:
  CallField(const QString& name, QChar zeroGlyph, QWidget* parent);

  // Names the box for screen readers by its label's text, whose colon is left out.
  void SetRole(const QString& label);
  // The text with plain zeros, as it is stored.
  QString Call() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const QChar zeroGlyph_;
};

// True if a key types letters; with Ctrl it is a command.
bool TypesText(const QKeyEvent& key);

// The accessible name of a box from the text of its label.
QString RoleOf(const QString& label);
