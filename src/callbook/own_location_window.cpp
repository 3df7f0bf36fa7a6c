// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/own_location_window.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "station/callsign.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kCallLetters = 20;  // longer texts are no calls
constexpr FetchRules kRules{
    .usesSitePlace = true, .keepsPicture = true, .failureInCaption = true, .callookPause = 500ms};

QLabel* PlainLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

Form11::Form11(const Dependencies& dependencies, QWidget* mainWindow)
    : SetupWindow(mainWindow),
      program_(dependencies.program),
      fetch_(dependencies, kRules),
      location_(dependencies.program, dependencies.database),
      intro_(PlainLabel(u"lblIntro"_s, this)),
      callLabel_(PlainLabel(u"lblCallLabel"_s, this)),
      txtCall(new CallField(u"txtCall"_s, dependencies.program.ZeroGlyph, this)),
      lblWrongCall_(PlainLabel(u"lblWrongCall"_s, this)),
      place_(new FetchGroup(dependencies.program, fetch_, dependencies.browser,
                            {u"cmdGetLatLon"_s, u"Label4"_s, u"lblMsg"_s}, this)),
      lblGrid(PlainLabel(u"lblGrid"_s, this)),
      lblDx(PlainLabel(u"lblDx"_s, this)),
      optMiKm{new QRadioButton(this), new QRadioButton(this)},
      lblLocalDB(PlainLabel(u"lblLocalDB"_s, this)),
      failure_(new SaveLine(this)),
      cmdClose(new QPushButton(this)) {
  setObjectName(u"Form11"_s);
  optMiKm[0]->setObjectName(u"optMiKm0"_s);
  optMiKm[1]->setObjectName(u"optMiKm1"_s);
  cmdClose->setObjectName(u"cmdClose"_s);
  MakeLayout();
  txtCall->setMaxLength(kCallLetters);
  txtCall->setText(program_.config.MyCall);
  place_->SetPlace(program_.config.MyLat, program_.config.MyLon);
  fetch_.SetCall(txtCall->text());
  optMiKm[program_.config.DistUnit == 1 ? 1 : 0]->setChecked(true);
  connect(txtCall, &QLineEdit::textChanged, this, &Form11::TakeCall);
  connect(place_, &FetchGroup::PlaceChanged, this, &Form11::TakePlace);
  connect(optMiKm[1], &QRadioButton::toggled, this, [this](bool miles) { location_.SetUnit(miles); });
  connect(cmdClose, &QPushButton::clicked, this, &Form11::close);
  connect(failure_, &SaveLine::RetryWanted, this, &Form11::close);
  connect(failure_, &SaveLine::DiscardWanted, this, [this]() {
    closing_ = Closing::Done;
    close();
  });
  SetDefaultButton(cmdClose);
  txtCall->setFocus();
}

void Form11::MakeLayout() {
  intro_->setWordWrap(true);
  lblWrongCall_->setWordWrap(true);
  callLabel_->setBuddy(txtCall);
  auto* call = new QHBoxLayout;
  call->addWidget(callLabel_);
  call->addWidget(txtCall);
  call->addWidget(lblWrongCall_, 1);
  auto* unit = new QHBoxLayout;
  unit->addWidget(lblDx);
  for (QRadioButton* button : optMiKm) unit->addWidget(button);
  unit->addStretch(1);
  unit->addWidget(lblGrid);
  auto* last = new QHBoxLayout;
  last->addWidget(lblLocalDB, 1);
  last->addWidget(cmdClose);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(intro_);
  rows->addLayout(call);
  rows->addWidget(place_);
  rows->addLayout(unit);
  rows->addWidget(failure_);
  rows->addStretch(1);
  rows->addLayout(last);
  QList<QWidget*> chain{txtCall};
  chain += place_->TabChain();
  chain += {optMiKm[0], optMiKm[1], cmdClose};
  for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void Form11::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  setWindowTitle(texts[TextLine::kSetupLocation].trimmed());
  setAccessibleName(windowTitle());
  const Config& config = program_.config;
  intro_->setText(config.MyCall.isEmpty() ? texts[TextLine::kCallMissing].trimmed()
                                          : tr("Without your position no distance can be told, and no map shows you."));
  intro_->setVisible(config.MyCall.isEmpty() || (config.MyLat == 0 && config.MyLon == 0));
  callLabel_->setText(texts[TextLine::kCallLabel]);
  txtCall->SetRole(callLabel_->text());
  lblWrongCall_->setText(tr("Not a callsign; your own callsign stays as it is."));
  place_->ShowTexts();
  lblDx->setText(texts[TextLine::kDistanceLabel]);
  optMiKm[0]->setText(texts[TextLine::kKilometersWord].trimmed());
  optMiKm[1]->setText(texts[TextLine::kMilesWord].trimmed());
  for (QRadioButton* button : optMiKm) {
    button->setAccessibleName(lblDx->text().trimmed() + u' ' + button->text());
  }
  const int records = location_.RecordCount();
  lblLocalDB->setText(QString(texts[TextLine::kLocalRecords]).replace("xxx"_L1, QString::number(records)));
  cmdClose->setText(texts[TextLine::kCloseWord].trimmed());
  cmdClose->setAccessibleName(cmdClose->text());
  failure_->ShowTexts();
  ShowGrid();
  TakeCall();
}

void Form11::TakeCall() {
  fetch_.SetCall(txtCall->text());
  // Keeps its place, so that nothing jumps while a call is typed.
  QSizePolicy policy = lblWrongCall_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  lblWrongCall_->setSizePolicy(policy);
  const bool wrong = OwnLocation::IsWrongCall(txtCall->text());
  lblWrongCall_->setVisible(wrong);
  txtCall->setAccessibleDescription(wrong ? lblWrongCall_->text() : QString());
}

void Form11::TakePlace() {
  location_.SetPlace(place_->Lat()->Degrees(), place_->Lon()->Degrees());
  ShowGrid();
}

void Form11::ShowGrid() {
  lblGrid->setText(location_.GridText());
}

// The window stays until all is on the disk, and if a file cannot be written, it stays with what was typed.
void Form11::closeEvent(QCloseEvent* event) {
  if (closing_ == Closing::Done) {
    fetch_.End();
    return SetupWindow::closeEvent(event);
  }
  event->ignore();
  if (closing_ == Closing::No) Save();
}

void Form11::ProgramEnds() {
  if (closing_ == Closing::No) location_.SaveAtEnd(txtCall->text(), place_->Lat()->Stored(), place_->Lon()->Stored());
  closing_ = Closing::Done;
}

void Form11::Save() {
  closing_ = Closing::Saving;
  failure_->SetFailure({});
  location_.Save(txtCall->text(), place_->Lat()->Stored(), place_->Lon()->Stored(), [this](const QString& failedPath) {
    // The program has taken the state over meanwhile, and ends.
    if (closing_ == Closing::Done) return;
    closing_ = failedPath.isEmpty() ? Closing::Done : Closing::No;
    Q_EMIT LocationSaved();
    if (failedPath.isEmpty()) {
      // Queued: without a call the answer comes within the event that began the closing.
      QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    } else {
      failure_->SetFailure(failedPath);
    }
  });
}
