// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/record_boxes.h"

#include <QGridLayout>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int kCallLetters = 20;      // longer texts are no calls
constexpr int kNicknameLetters = 40;  // a nickname stands in tips and captions
constexpr int kBoxLetters = 30;
constexpr int kNarrowLetters = 10;

constexpr std::array<QLatin1StringView, kBoxes> kNames = {"txtName"_L1, "txtAdd1"_L1, "txtAdd2"_L1,  "txtCtry"_L1,
                                                          "txtLat"_L1,  "txtLon"_L1,  "txtClass"_L1, "txtYearBorn"_L1};
constexpr std::array<TextLine, kBoxes + 2> kLabels = {
    TextLine::kCallLabel,    TextLine::kNameLabel,      TextLine::kAddressLabel,    TextLine::kCityLabel,
    TextLine::kCountryLabel, TextLine::kRecordLatitude, TextLine::kRecordLongitude, TextLine::kClassLabel,
    TextLine::kBornLabel,    TextLine::kNicknameLabel};

// Where a label stands in the grid; its box is to the right of it. The picture is beside the first rows.
struct Place {
  int row;
  int column;
  int columns;  // of the box
};
constexpr std::array<Place, kBoxes + 2> kPlaces = {Place{0, 0, 3}, Place{1, 0, 3}, Place{2, 0, 3}, Place{3, 0, 3},
                                                   Place{4, 0, 3}, Place{5, 0, 1}, Place{5, 2, 1}, Place{6, 0, 1},
                                                   Place{6, 2, 1}, Place{7, 0, 3}};
constexpr int kCornerRows = 5;
constexpr int kNoteRow = 8;

constexpr bool IsCoordinate(std::size_t box) {
  return box == static_cast<std::size_t>(Box::Lat) || box == static_cast<std::size_t>(Box::Lon);
}

QLineEdit* MakeBox(std::size_t i, QWidget* parent) {
  const QString name = kNames[i];
  if (IsCoordinate(i)) return new CoordinateField(name, parent);
  auto* box = new QLineEdit(parent);
  box->setObjectName(name);
  return box;
}

}  // namespace

RecordBoxes::RecordBoxes(QChar zeroGlyph, QWidget* corner, QWidget* parent)
    : QWidget(parent), txtCall(new CallField(u"txtCall"_s, zeroGlyph, this)), boxes_{}, labels_{} {
  for (std::size_t i = 0; i < kBoxes; ++i) {
    boxes_[i] = MakeBox(i, this);
    // One more for the mark of a derived place.
    boxes_[i]->setMaxLength(kBoxWidths[i] + (IsCoordinate(i) ? 1 : 0));
    connect(boxes_[i], &QLineEdit::textEdited, this,
            [this, box = static_cast<Box>(i)](const QString& text) { Q_EMIT BoxTyped(box, text); });
  }
  txtNickName = new QLineEdit(this);
  txtNickName->setObjectName(u"txtNickName"_s);
  txtNickName->setMaxLength(kNicknameLetters);
  // What would break a row of the list of nicknames: it stands between "*" and the end of the line or a comma, and
  // quotes are taken off.
  txtNickName->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[^*,\"\\r\\n]*"_s), txtNickName));
  auto* lat = static_cast<CoordinateField*>(boxes_[static_cast<std::size_t>(Box::Lat)]);
  auto* lon = static_cast<CoordinateField*>(boxes_[static_cast<std::size_t>(Box::Lon)]);
  label4_ = new CoordinateNote(u"Label4"_s, lat, lon, this);
  txtCall->setMaxLength(kCallLetters);
  MakeLayout(corner);
  connect(txtCall, &QLineEdit::textEdited, this, &RecordBoxes::CallTyped);
  connect(txtNickName, &QLineEdit::textEdited, this, &RecordBoxes::NicknameTyped);
}

void RecordBoxes::MakeLayout(QWidget* corner) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(u"lblBox%1"_s.arg(i));
    QLineEdit* box = i == 0 ? txtCall : i == labels_.size() - 1 ? txtNickName : boxes_[i - 1];
    label->setBuddy(box);
    labels_[i] = label;
    const Place& place = kPlaces[i];
    grid->addWidget(label, place.row, place.column);
    grid->addWidget(box, place.row, place.column + 1, 1, place.columns);
    box->setMinimumWidth(fontMetrics().averageCharWidth() * (place.columns == 1 ? kNarrowLetters : kBoxLetters));
  }
  grid->addWidget(corner, 0, 4, kCornerRows, 1, Qt::AlignCenter);
  grid->addWidget(label4_, kNoteRow, 1, 1, 4);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
}

QList<QWidget*> RecordBoxes::TabChain() const {
  QList<QWidget*> chain{txtCall};
  for (QLineEdit* box : boxes_) chain += box;
  return chain << txtNickName;
}

void RecordBoxes::ShowTexts(const LanguageTexts& texts) {
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    labels_[i]->setText(texts[kLabels[i]]);
    labels_[i]->buddy()->setAccessibleName(RoleOf(labels_[i]->text()));
  }
}

void RecordBoxes::Fill(const DatabaseEditor& editor) {
  // Not setText of the same text, which would move the caret of the box that is being typed into.
  if (txtCall->Call() != editor.Call()) txtCall->setText(editor.Call());
  for (std::size_t i = 0; i < kBoxes; ++i) {
    if (boxes_[i]->text() != editor.Boxes()[i]) boxes_[i]->setText(editor.Boxes()[i]);
  }
  SetNickname(editor.Nickname());
}

void RecordBoxes::SetNickname(const QString& nickname) {
  if (txtNickName->text() != nickname) txtNickName->setText(nickname);
}
