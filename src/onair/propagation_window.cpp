// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/propagation_window.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "onair/bands.h"
#include "onair/propagation_map.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

frmMapPropagation::frmMapPropagation(const Dependencies& dependencies, QWidget* opener)
    : CallMapWindow({u"frmMapPropagation"_s, u"cmdMaps"_s, u"cboMaps"_s}, dependencies.program, dependencies.maps,
                    dependencies.menus, opener),
      session_(dependencies),
      picRx_(this) {
  lblPropagation_.setObjectName(u"lblPeriod"_s);
  lblPropagation_.setTextFormat(Qt::PlainText);
  lblPropagation_.setBuddy(&cboPropagation_);
  cboPropagation_.setObjectName(u"cboPropagation"_s);
  cboBand_.setObjectName(u"cboBand"_s);
  cboMode_.setObjectName(u"cboMode"_s);
  AddToBar(&lblPropagation_);
  for (QComboBox* list : {&cboPropagation_, &cboBand_, &cboMode_}) {
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    AddToBar(list);
  }
  ConnectParts();
}

void frmMapPropagation::ConnectParts() {
  connect(&cboPropagation_, &QComboBox::activated, this,
          [this](int) { session_.SetPeriod(PeriodMinutesOf(cboPropagation_.currentText())); });
  connect(&cboBand_, &QComboBox::activated, this, [this](int index) { session_.SetBand(index); });
  connect(&cboMode_, &QComboBox::activated, this, [this](int index) { session_.SetMode(index); });
  connect(&session_, &PropagationSession::Changed, this, [this]() {
    imgX_.clear();
    RedrawOverlay();
    PlaceInfo();
  });
  connect(&session_, &PropagationSession::Refreshed, this, [this]() {
    // The rows behind the same paths may be others.
    if (picRx_.isVisible()) ShowGrid(LabelOf(gridCall_));
    if (imgX_.isEmpty()) return;
    imgX_.clear();
    RedrawOverlay();
  });
  connect(&View(), &MapView::LabelPointed, this, &frmMapPropagation::PointAt);
  connect(&View(), &MapView::Panned, this, &frmMapPropagation::FollowPan);
  connect(&View(), &MapView::LabelClosed, this, &frmMapPropagation::HideLabel);
  connect(&View(), &MapView::NextPartnerWanted, this, &frmMapPropagation::GoToPartner);
}

void frmMapPropagation::Open() {
  if (BringToFront()) return;
  const int last = static_cast<int>(program_.lstMap.size()) - 1;
  SetMapIndex(last < 0 ? -1 : std::clamp(program_.config.MapIndex, 0, last));
  session_.Open();
  Redraw_Map();
}

void frmMapPropagation::ShowTexts() {
  FillLists();
  CallMapWindow::ShowTexts();
}

void frmMapPropagation::FillLists() {
  const LanguageTexts& language = program_.language;
  const auto word = [&language](int number) {
    if (number >= 15) return language[TextLine::kMinutesWord];
    return number == 1 ? language[TextLine::kHourWord] : language[TextLine::kHoursWord];
  };
  lblPropagation_.setText(language[TextLine::kPeriodLabel].trimmed());
  cboPropagation_.setAccessibleName(lblPropagation_.text());
  cboBand_.setAccessibleName(tr("Band"));
  cboMode_.setAccessibleName(tr("Mode"));
  cboPropagation_.clear();
  for (const int number : kPeriods) {
    cboPropagation_.addItem(QString::number(number) + u' ' + word(number).trimmed());
    const int last = cboPropagation_.count() - 1;
    if (PeriodMinutesOf(cboPropagation_.itemText(last)) == session_.Choice().PeriodMinutes) {
      cboPropagation_.setCurrentIndex(last);
    }
  }
  cboBand_.clear();
  for (int i = 0; i <= static_cast<int>(kBands.size()); ++i) cboBand_.addItem(BandCaption(i));
  cboBand_.setCurrentIndex(session_.Choice().band);
  cboMode_.clear();
  for (int i = 0; i <= static_cast<int>(kModes.size()); ++i) cboMode_.addItem(ModeCaption(i));
  cboMode_.setCurrentIndex(session_.Choice().mode);
}

MapDrawing frmMapPropagation::BuildDrawing(const MapSurface& surface) {
  const bool walking = !partner_.isEmpty();
  return BuildPropagationMap(
      program_, session_.Paths(),
      {imgX_, walking ? walked_ : QString(), partner_, session_.IsOutdated(), session_.LeftOut()}, surface);
}

// The labels are numbered as the stations of the paths.
QString frmMapPropagation::CallOf(const QString& labelName) const {
  const QString number = labelName.mid(labelName.indexOf(u'(') + 1).chopped(1);
  return session_.Paths().calls.value(number.toInt());
}

void frmMapPropagation::LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) {
  picRx_.hide();
  CallMapWindow::LabelPressed(name, at, byKeyboard);
}

void frmMapPropagation::PointAt(qsizetype label) {
  const qsizetype focused = View().FocusedLabel();
  const QString call = focused < 0 ? QString() : View().Labels().at(focused).id;
  if (!walked_.isEmpty() && call != walked_ && call != partner_) EndWalk();
  ShowGrid(label);
}

void frmMapPropagation::ShowGrid(qsizetype label) {
  if (label < 0) {
    picRx_.HideSoon();
    return;
  }
  gridCall_ = View().Labels().at(label).id;
  const QChar zero = program_.ZeroGlyph;
  QList<ReceivedRow> rows = session_.Received(gridCall_);
  for (ReceivedRow& row : rows) row.call = ShownCall(row.call, zero);
  picRx_.ShowBeside(View().LabelRect(label).translated(View().pos()), View().geometry() & rect(),
                    u"Received in last 12 hours ("_s + ShownCall(gridCall_, zero) + u"  )"_s, rows);
}

// The map has been moved under the open grid, by the keys or by a drag that began at the label.
void frmMapPropagation::FollowPan() {
  const qsizetype label = picRx_.isVisible() ? LabelOf(gridCall_) : -1;
  if (label >= 0) picRx_.Place(View().LabelRect(label).translated(View().pos()), View().geometry() & rect());
}

void frmMapPropagation::HideLabel(const QString& name) {
  imgX_.insert(CallOf(name));
  picRx_.hide();
  RedrawOverlay();
}

// A walk begins at the label that has the focus, and goes on as long as the focus stays where the walk has led it.
void frmMapPropagation::GoToPartner(qsizetype label, int step) {
  if (walked_.isEmpty()) walked_ = View().Labels().at(label).id;
  partner_ = NextPartner(session_.Paths(), walked_, partner_, step);
  RedrawOverlay();
  const qsizetype next = LabelOf(partner_);
  if (next >= 0) View().FocusLabel(next);
}

void frmMapPropagation::EndWalk() {
  walked_.clear();
  if (!std::exchange(partner_, QString()).isEmpty()) RedrawOverlay();
}

void frmMapPropagation::keyPressEvent(QKeyEvent* event) {
  if (picRx_.isVisible() && picRx_.TakeKey(event->key())) return;
  CallMapWindow::keyPressEvent(event);
}
