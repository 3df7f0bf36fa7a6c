// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/site_form.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <utility>

#include "station/callsign.h"
#include "ui/call_field.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kAddressLetters = 52;
constexpr int kCoordinateLetters = 20;

QLabel* NoteLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->hide();
  return label;
}

void Say(QLabel* note, QWidget* box, const QString& text) {
  note->setText(text);
  note->setVisible(!text.isEmpty());
  box->setAccessibleDescription(text);
}

}  // namespace

SiteForm::SiteForm(const Dependencies& dependencies, const QString& fetchName, bool hasKeepBox, QWidget* parent)
    : QWidget(parent),
      deps_(dependencies),
      fetch_(dependencies.lookUps, {}),
      callLabel_(new QLabel(this)),
      txtCall(new CleanField(u"txtCall"_s, {kLongestTitle, true}, this)),
      callNote_(NoteLabel(u"lblCallNote"_s, this)),
      url_(MakeAddressRow(u"txtUrl"_s)),
      cam_(MakeAddressRow(u"txtCamUrl"_s)),
      hasKeepBox_(hasKeepBox),
      ckKeep_(new QCheckBox(this)),
      group_(new FetchGroup(dependencies.lookUps.program, fetch_, dependencies.browser,
                            {fetchName, u"Label4"_s, u"lblMsg"_s}, this)) {
  ckKeep_->setObjectName(u"ckKeep"_s);
  ckKeep_->setVisible(hasKeepBox);
  MakeLayout();
  ConnectSignals();
  SetList(SiteTableKind::Dsstv);
}

SiteForm::AddressRow SiteForm::MakeAddressRow(const QString& name) {
  // In the cam's address "*" would divide the line of its record.
  const CleanField::Rule rule{kLongestAddress, name == "txtCamUrl"_L1};
  AddressRow row{new QLabel(this), new CleanField(name, rule, this), NoteLabel(name + u"Note"_s, this),
                 new AddressProbe(deps_.lookUps.program.page, deps_.lookUps.network, deps_.lookUps.tool, this)};
  row.label->setBuddy(row.box);
  row.box->setMinimumWidth(fontMetrics().averageCharWidth() * kAddressLetters);
  row.box->installEventFilter(this);
  connect(row.box, &CleanField::NoteChanged, this, &SiteForm::ShowNotes);
  connect(row.probe, &AddressProbe::Changed, this, &SiteForm::ShowNotes);
  // Queued: a look that begins ends the one before it, and is not under way yet when that is told.
  connect(row.probe, &AddressProbe::Changed, this, &SiteForm::LookNext, Qt::QueuedConnection);
  connect(row.box, &QLineEdit::textChanged, row.probe, &AddressProbe::End);
  connect(row.box, &QLineEdit::textChanged, this, [this]() {
    if (!filling_) Q_EMIT Edited();
  });
  return row;
}

void SiteForm::MakeLayout() {
  callLabel_->setBuddy(txtCall);
  for (CoordinateField* box : {group_->Lat(), group_->Lon()}) box->setMaxLength(kCoordinateLetters);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(callLabel_);
  rows->addWidget(txtCall);
  rows->addWidget(callNote_);
  rows->addWidget(url_.label);
  rows->addWidget(url_.box);
  rows->addWidget(url_.note);
  rows->addWidget(ckKeep_);
  rows->addWidget(cam_.label);
  rows->addWidget(cam_.box);
  rows->addWidget(cam_.note);
  rows->addWidget(group_);
}

void SiteForm::ConnectSignals() {
  connect(txtCall, &CleanField::NoteChanged, this, &SiteForm::ShowNotes);
  connect(txtCall, &QLineEdit::textChanged, this, [this](const QString& shown) {
    fetch_.SetCall(shown);
    if (!filling_) Q_EMIT Edited();
  });
  connect(url_.box, &QLineEdit::textChanged, this, &SiteForm::UrlEdited);
  connect(ckKeep_, &QCheckBox::toggled, this, [this]() {
    if (!filling_) Q_EMIT Edited();
  });
  connect(group_, &FetchGroup::PlaceChanged, this, &SiteForm::Edited);
}

// Otherwise the next check of the server's list would put the former address back.
void SiteForm::UrlEdited() {
  if (!filling_) ckKeep_->setChecked(true);
  ShowNotes();
}

bool SiteForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    for (AddressRow* row : {&url_, &cam_}) {
      if (watched == row->box) row->waits = true;
    }
    LookNext();
  }
  return QWidget::eventFilter(watched, event);
}

// One look at a time: a cam's address is often at the server of the pictures.
void SiteForm::LookNext() {
  for (AddressRow* row : {&url_, &cam_}) {
    const bool isBusy =
        url_.probe->Found() == AddressProbe::Finding::Looking || cam_.probe->Found() == AddressProbe::Finding::Looking;
    if (isBusy) return;
    if (std::exchange(row->waits, false)) row->probe->Look(row->box->text().trimmed());
  }
}

void SiteForm::SetList(SiteTableKind list) {
  list_ = list;
  const bool isDsstv = list == SiteTableKind::Dsstv;
  const QScopedValueRollback<bool> filling(filling_, true);
  txtCall->SetSpelling(isDsstv ? CleanField::Spelling::Call : CleanField::Spelling::Title,
                       deps_.lookUps.program.ZeroGlyph);
  for (QWidget* part :
       {static_cast<QWidget*>(cam_.box), static_cast<QWidget*>(cam_.label), static_cast<QWidget*>(ckKeep_)}) {
    part->setEnabled(isDsstv);
  }
  // A WX site has no place; a new one whose title is a call gets one in the database.
  group_->setEnabled(isDsstv || !hasKeepBox_);
  ShowTexts();
}

void SiteForm::SetFields(const SiteFields& fields) {
  EndLooking();
  const QScopedValueRollback<bool> filling(filling_, true);
  txtCall->setText(fields.call);
  url_.box->setText(fields.url);
  cam_.box->setText(fields.camUrl);
  for (QLineEdit* box :
       {static_cast<QLineEdit*>(txtCall), static_cast<QLineEdit*>(url_.box), static_cast<QLineEdit*>(cam_.box)}) {
    box->setCursorPosition(0);
  }
  ckKeep_->setChecked(fields.keep);
  group_->SetPlace(fields.lat, fields.lon);
  ShowNotes();
}

SiteFields SiteForm::Fields() const {
  const QString call = list_ == SiteTableKind::Wx ? txtCall->text() : txtCall->text().replace(u'Ø', u'0');
  return {call.trimmed(),           url_.box->text().trimmed(), group_->Lat()->Degrees(),
          group_->Lon()->Degrees(), cam_.box->text().trimmed(), ckKeep_->isChecked()};
}

void SiteForm::EndLooking() {
  fetch_.End();
  for (AddressRow* row : {&url_, &cam_}) row->waits = false;
  url_.probe->End();
  cam_.probe->End();
}

QList<QWidget*> SiteForm::TabChain() const {
  return QList<QWidget*>{txtCall, url_.box, ckKeep_, cam_.box} + group_->TabChain();
}

void SiteForm::ShowTexts() {
  const LanguageTexts& texts = deps_.lookUps.program.language;
  callLabel_->setText(texts[list_ == SiteTableKind::Dsstv ? TextLine::kAddCall : TextLine::kAddTitle]);
  url_.label->setText(texts[TextLine::kAddUrl]);
  cam_.label->setText(texts[TextLine::kAddCamUrl]);
  txtCall->SetRole(callLabel_->text());
  url_.box->SetRole(url_.label->text());
  cam_.box->SetRole(cam_.label->text());
  ckKeep_->setText(tr("Keep, whatever the server's list says"));
  ckKeep_->setAccessibleName(ckKeep_->text());
  group_->ShowTexts();
  ShowNotes();
}

void SiteForm::ShowNotes() {
  Say(callNote_, txtCall, txtCall->Note());
  Say(url_.note, url_.box, NoteOf(url_, true));
  Say(cam_.note, cam_.box, NoteOf(cam_, false));
}

QString SiteForm::NoteOf(const AddressRow& row, bool isPicture) const {
  QStringList words;
  if (const QString lost = row.box->Note(); !lost.isEmpty()) words.append(lost);
  const QString url = row.box->text().trimmed();
  switch (row.probe->Found()) {
    case AddressProbe::Finding::Nothing:
      break;
    case AddressProbe::Finding::Looking:
      words.append(tr("Looking at the address ..."));
      break;
    case AddressProbe::Finding::Picture:
      words.append(tr("Picture found, %1x%2.").arg(row.probe->Size().width()).arg(row.probe->Size().height()));
      break;
    case AddressProbe::Finding::NoPicture:
      words.append(tr("It answers, but with no picture."));
      break;
    case AddressProbe::Finding::NoAnswer:
      words.append(tr("Nobody answers at this address."));
      break;
    case AddressProbe::Finding::NoWebAddress:
      words.append(tr("This is no address of the web (http or https)."));
      break;
  }
  const bool isCamOnly = url.contains("cam only"_L1, Qt::CaseInsensitive);
  if (isPicture && list_ == SiteTableKind::Dsstv && !url.isEmpty() && !isCamOnly && !IsPolled(url))
    words.append(tr("It is polled only if it ends in image1."));
  return words.join(u' ');
}
