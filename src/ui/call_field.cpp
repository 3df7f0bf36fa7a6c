// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/call_field.h"

#include <QValidator>

namespace {

// A validator may rewrite a text before textChanged is emitted, and keeps undo and the caret as they are.
class CallWriter : public QValidator {
 public:
  CallWriter(QChar zeroGlyph, QObject* parent) : QValidator(parent), zeroGlyph_(zeroGlyph) {}

  State validate(QString& input, int& caret) const override {
    Q_UNUSED(caret)
    // Character by character, because the upper case of a whole text may have another length.
    for (QChar& c : input) c = c == u'0' ? zeroGlyph_ : c.toUpper();
    return Acceptable;
  }

 private:
  QChar zeroGlyph_;
};

}  // namespace

CallField::CallField(const QString& name, QChar zeroGlyph, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setValidator(new CallWriter(zeroGlyph, this));
}

void CallField::SetRole(const QString& label) {
  setAccessibleName(RoleOf(label));
}

QString CallField::Call() const {
  return text().replace(u'Ø', u'0');
}

QString RoleOf(const QString& label) {
  QString role = label.trimmed();
  while (role.endsWith(u':') || role.endsWith(u'：')) role = role.chopped(1).trimmed();
  return role;
}
