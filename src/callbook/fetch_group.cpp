// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/fetch_group.h"

#include <QApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "platform/text/numbers.h"
#include "ui/call_field.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kFieldLetters = 14;

QLabel* PlainLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

FetchGroup::FetchGroup(Program& program, CoordinateFetch& fetch, const SignInBrowser& browser, const Names& names,
                       QWidget* parent)
    : QGroupBox(parent),
      program_(program),
      fetch_(fetch),
      signIn_(browser, fetch.SignIn(), parent),
      service_(new ServiceChooser(ServiceSpelling::Setup, {names.fetch, u"lblStatus"_s}, this)),
      latLabel_(PlainLabel(u"lblLat"_s, this)),
      lonLabel_(PlainLabel(u"lblLon"_s, this)),
      txtLat(new CoordinateField(u"txtLat"_s, this)),
      txtLon(new CoordinateField(u"txtLon"_s, this)),
      hint_(PlainLabel(u"lblCoordinateHint"_s, this)),
      note_(new CoordinateNote(names.note, txtLat, txtLon, this)),
      message_(PlainLabel(names.message, this)) {
  setObjectName(u"Frame1"_s);
  MakeLayout();
  service_->SetService(program.config.CallbookIndex);
  connect(service_, &ServiceChooser::FetchWanted, this, &FetchGroup::Fetch);
  connect(&fetch_, &CoordinateFetch::FetchWanted, this, &FetchGroup::Fetch);
  connect(service_, &ServiceChooser::Chosen, this, [this](int listIndex) {
    BeginFetch();
    fetch_.ChooseService(listIndex);
  });
  connect(service_, &ServiceChooser::KeyPressed, &signIn_, &SignInPage::SignInOrOut);
  connect(&fetch_, &CoordinateFetch::Changed, this, &FetchGroup::ShowView);
  connect(&fetch_, &CoordinateFetch::Found, this, &FetchGroup::TakeStation);
  // The desktop's own beep, whose pitch and length the user has chosen.
  connect(&fetch_, &CoordinateFetch::Beep, this, &QApplication::beep);
  for (const CoordinateField* field : {txtLat, txtLon}) {
    connect(field, &QLineEdit::textEdited, this, [this]() { typed_ = typed_ || !filling_; });
    connect(field, &QLineEdit::textChanged, this, [this]() {
      if (!filling_) Q_EMIT PlaceChanged();
    });
  }
}

void FetchGroup::MakeLayout() {
  for (CoordinateField* field : {txtLat, txtLon}) {
    field->setMinimumWidth(fontMetrics().averageCharWidth() * kFieldLetters);
  }
  latLabel_->setBuddy(txtLat);
  lonLabel_->setBuddy(txtLon);
  // Room for the login state below the caption, so that the window does not jump when it comes.
  service_->FetchButton()->setMinimumHeight(2 * fontMetrics().height() + fontMetrics().height() / 2);
  // The caption of the fetch button has the login state.
  service_->Status()->hide();
  message_->hide();

  auto* boxes = new QFormLayout;
  boxes->addRow(latLabel_, txtLat);
  boxes->addRow(lonLabel_, txtLon);
  auto* place = new QHBoxLayout;
  place->addLayout(boxes);
  place->addWidget(hint_, 1, Qt::AlignTop);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(service_);
  rows->addWidget(message_);
  rows->addLayout(place);
  rows->addWidget(note_);
}

QList<QWidget*> FetchGroup::TabChain() const {
  QList<QWidget*> chain = service_->TabChain();
  chain.removeLast();
  return chain << txtLat << txtLon;
}

void FetchGroup::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  setTitle(texts[TextLine::kSelectDatabase].trimmed());
  service_->ShowTexts(texts[TextLine::kSelectDatabase].trimmed());
  latLabel_->setText(texts[TextLine::kLatitudeLabel]);
  lonLabel_->setText(texts[TextLine::kLongitudeLabel]);
  txtLat->SetRole(latLabel_->text());
  txtLon->SetRole(lonLabel_->text());
  hint_->setText(texts[TextLine::kCoordinateHint1]);  // both lines of the hint
  fetch_.ShowTexts();
}

void FetchGroup::SetPlace(double lat, double lon) {
  {
    const QScopedValueRollback<bool> filling(filling_, true);
    txtLat->SetCoordinate(lat);
    txtLon->SetCoordinate(lon);
  }
  typed_ = false;
  kept_.clear();
  ShowView();
}

void FetchGroup::BeginFetch() {
  typed_ = false;
  kept_.clear();
}

void FetchGroup::Fetch() {
  BeginFetch();
  fetch_.Fetch();
}

// An answer never overwrites what has been typed since it was asked for.
void FetchGroup::TakeStation(const FoundStation& station) {
  if (typed_) {
    kept_ = tr("%1 has %2, %3. What you have typed stays.")
                .arg(program_.config.CallbookName, NumberText(station.lat), NumberText(station.lon));
    return ShowView();
  }
  {
    const QScopedValueRollback<bool> filling(filling_, true);
    txtLat->TypeCoordinate(station.lat);
    txtLon->TypeCoordinate(station.lon);
  }
  Q_EMIT PlaceChanged();
}

void FetchGroup::ShowView() {
  const FetchView& view = fetch_.View();
  service_->SetFetchCaption(view.caption);
  service_->FetchButton()->setEnabled(view.enabled);
  service_->SetLogin({}, fetch_.SignIn().Offer());
  note_->setText(fetch_.DerivedNote());
  const QString message = !kept_.isEmpty() ? kept_ : view.caption.contains(view.message) ? QString() : view.message;
  message_->setText(message);
  message_->setVisible(!message.isEmpty());
  service_->Describe(message);
  if (view.busy) {
    window()->setCursor(Qt::BusyCursor);
  } else {
    window()->unsetCursor();
  }
}
