// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/coordinate_field.h"

#include <QKeyEvent>
#include <QRegularExpression>
#include <QValidator>

#include "platform/text/numbers.h"
#include "ui/call_field.h"

using namespace Qt::StringLiterals;

namespace {

// Accepts the minus sign (U+2212) that pages and maps use, and drops blanks of a pasted text.
class CoordinateWriter : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& input, int& caret) const override {
    static const QRegularExpression shape(u"^[-0-9.,]*\\*?$"_s);
    QString plain = input;
    plain.replace(u'−', u'-').remove(u' ');
    if (!shape.match(plain).hasMatch()) return Invalid;
    caret = std::max(0, caret - static_cast<int>(input.size() - plain.size()));
    input = plain;
    return Acceptable;
  }
};

}  // namespace

CoordinateField::CoordinateField(const QString& name, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setInputMethodHints(Qt::ImhPreferNumbers);
  setValidator(new CoordinateWriter(this));
}

void CoordinateField::SetRole(const QString& label) {
  setAccessibleName(RoleOf(label));
}

void CoordinateField::SetCoordinate(double degrees, bool derived) {
  setText(NumberText(degrees) + (derived ? u"*"_s : QString()));
}

void CoordinateField::TypeCoordinate(double degrees, bool derived) {
  selectAll();
  insert(NumberText(degrees) + (derived ? u"*"_s : QString()));
}

double CoordinateField::Degrees() const {
  return Val(Stored());
}

QString CoordinateField::Stored() const {
  return text().replace(u',', u'.');
}

void CoordinateField::keyPressEvent(QKeyEvent* event) {
  // Only the program may write the mark.
  if (event->text() == "*"_L1) return;
  QLineEdit::keyPressEvent(event);
}

CoordinateNote::CoordinateNote(const QString& name, CoordinateField* lat, CoordinateField* lon, QWidget* parent)
    : QLabel(parent) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  hide();
  const auto show = [this, lat, lon]() { setVisible(lat->IsDerived() || lon->IsDerived()); };
  connect(lat, &QLineEdit::textChanged, this, show);
  connect(lon, &QLineEdit::textChanged, this, show);
}
