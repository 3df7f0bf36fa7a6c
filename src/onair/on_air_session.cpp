// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_session.h"

#include "onair/bands.h"

using namespace Qt::StringLiterals;

OnAirSession::OnAirSession(const Dependencies& dependencies, OnAirWindow window, QObject* parent)
    : QObject(parent),
      program_(dependencies.program),
      store_(dependencies.store),
      background_(dependencies.background),
      window_(window),
      feed_(dependencies, window == OnAirWindow::List),
      ckBand_(kPeanutBand + 1),
      ckMode_(static_cast<int>(kModes.size()) + 1),
      places_(std::make_shared<OnAirPlaces>(dependencies.database.Reader())) {
  connect(&feed_, &OnAirFeed::ListChanged, this, &OnAirSession::Rebuild);
}

void OnAirSession::Open() {
  const bool list = window_ == OnAirWindow::List;
  ReadBoxes(ckBand_, list ? Setting::OnAirBandCheck : Setting::MapBandCheck, Setting::TxBand);
  ReadBoxes(ckMode_, list ? Setting::OnAirModeCheck : Setting::MapModeCheck, Setting::TxMode);
  view_.title = program_.language[TextLine::kOnAirText];
  Q_EMIT FilterChanged();
  feed_.Start();
}

void OnAirSession::ReadBoxes(CheckBoxes& boxes, Setting each, Setting single) {
  const StoredSettings settings(store_);
  for (int i = 0; i < boxes.Count(); ++i) boxes.Set(i, settings.Number(each, i) != 0);
  boxes.Settle();
  if (window_ == OnAirWindow::List) return;
  // The maps share one choice. The propagation map knows other things behind the bands that both have: what this window
  // did not store itself, and what is no box, means all.
  int choice = settings.Number(single);
  if (choice == boxes.Single()) return;
  if (choice < 0 || choice >= boxes.Count() || choice == kPeanutBand) choice = 0;
  if (choice != boxes.Single()) boxes.Choose(choice);
}

void OnAirSession::StoreBoxes(const CheckBoxes& boxes, Setting each, Setting single) {
  StoredSettings settings(store_);
  for (int i = 0; i < boxes.Count(); ++i) settings.SetNumber(each, i, boxes.IsChecked(i) ? 1 : 0);
  if (window_ == OnAirWindow::Map) settings.SetNumber(single, boxes.Single());
  store_.SaveLater(background_);
}

void OnAirSession::SetBands(const CheckBoxes& boxes) {
  ckBand_ = boxes;
  StoreBoxes(boxes, window_ == OnAirWindow::List ? Setting::OnAirBandCheck : Setting::MapBandCheck, Setting::TxBand);
  Q_EMIT FilterChanged();
  Rebuild();
}

void OnAirSession::SetModes(const CheckBoxes& boxes) {
  ckMode_ = boxes;
  StoreBoxes(boxes, window_ == OnAirWindow::List ? Setting::OnAirModeCheck : Setting::MapModeCheck, Setting::TxMode);
  Q_EMIT FilterChanged();
  Rebuild();
}

QStringList OnAirSession::BandCaptions() {
  QStringList captions;
  for (int i = 0; i <= kFeedBands; ++i) captions.append(BandCaption(i));
  return captions << u"PEANUT"_s;
}

QStringList OnAirSession::ModeCaptions() {
  QStringList captions;
  for (int i = 0; i <= static_cast<int>(kModes.size()); ++i) captions.append(ModeCaption(i));
  return captions;
}

QString OnAirSession::BandSummary() const {
  return ckBand_.IsChecked(0) ? u"All Bands"_s : ckBand_.Summary(BandCaptions());
}

QString OnAirSession::ModeSummary() const {
  return ckMode_.IsChecked(0) ? u"All Modes"_s : ckMode_.Summary(ModeCaptions());
}

void OnAirSession::SortBy(OnAirColumn head) {
  order_ = order_.Clicked(head);
  Rebuild();
}

void OnAirSession::Rebuild() {
  const auto make = [rows = feed_.List1(), ckBand = ckBand_, ckMode = ckMode_, lstBadCalls = program_.lstBadCalls,
                     order = order_, places = places_,
                     sight = OnAirSight{program_.AppDataDir, program_.config.MyLat, program_.config.MyLon,
                                        program_.language[TextLine::kMissingLocation], program_.ZeroGlyph}]() {
    QList<OnAirEntry> entries = EntriesOf(FilteredRows(rows, ckBand, ckMode, lstBadCalls), sight, *places);
    SortEntries(entries, order);
    return entries;
  };
  background_.Run<QList<OnAirEntry>>(this, make, [this, token = rebuild_.Ask()](const QList<OnAirEntry>& entries) {
    if (token.StillWanted()) Take(entries);
  });
}

void OnAirSession::Take(const QList<OnAirEntry>& entries) {
  const QString word = program_.language[TextLine::kOnAirText];
  const QString count = QString::number(entries.size());
  view_.entries = entries;
  view_.title = word + u"  ("_s + count + u')';
  view_.caption = word + u" ("_s + count + u')';
  QStringList left;
  if (feed_.LeftOut() > 0)
    left.append(tr("%n further station(s) are not shown.", nullptr, static_cast<int>(feed_.LeftOut())));
  if (feed_.IsCut()) left.append(tr("The end of a list that is too long was not read."));
  view_.leftOut = left.join(u' ');
  Q_EMIT Changed();
}
