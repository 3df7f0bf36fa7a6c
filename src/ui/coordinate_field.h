// SPDX-License-Identifier: GPL-3.0-or-later
// The text box for a latitude or a longitude, and the note about coordinates that do not come from the callbook
// service. The windows that add and edit sites, the editor of the call database and the own location use them.
#pragma once

#include <QLabel>
#include <QLineEdit>

// A box for decimal degrees. Takes digits, "-", "." and ","; a comma counts as a point. A "*" at the end, which only
// the program writes, marks a coordinate that does not come from the service.
class CoordinateField : public QLineEdit {
  Q_OBJECT

 public:
  CoordinateField(const QString& name, QWidget* parent);

  // Names the box for screen readers by its label's text, whose colon is left out.
  void SetRole(const QString& label);
  // Writes degrees, north and east positive; 0 as "0". derived: adds the "*".
  void SetCoordinate(double degrees, bool derived = false);
  // The same as if the user had typed it: Ctrl+Z brings the former text back.
  void TypeCoordinate(double degrees, bool derived = false);
  // The number that the text begins with, in degrees; 0 without one.
  double Degrees() const;
  // The text with points for commas, as the call database stores it.
  QString Stored() const;
  bool IsDerived() const { return text().endsWith(u'*'); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

// The note, visible while one of the two boxes holds a marked coordinate. The window sets its text.
class CoordinateNote : public QLabel {
  Q_OBJECT

 public:
  CoordinateNote(const QString& name, CoordinateField* lat, CoordinateField* lon, QWidget* parent);
};
