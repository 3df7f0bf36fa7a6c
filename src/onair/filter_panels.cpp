// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/filter_panels.h"

FilterPanels::FilterPanels(OnAirSession& session, const Program& program, QWidget* bar, QWidget* window)
    : session_(session),
      program_(program),
      picBand_(CheckPanel::BandNames(), session.ckBand().Count(), bar, window),
      picMode_(CheckPanel::ModeNames(), session.ckMode().Count(), bar, window) {
  connect(&session, &OnAirSession::FilterChanged, this, &FilterPanels::ShowFilter);
  connect(&picBand_, &CheckPanel::Closed, &session, &OnAirSession::SetBands);
  connect(&picMode_, &CheckPanel::Closed, &session, &OnAirSession::SetModes);
}

void FilterPanels::ShowTexts() {
  const QString close = program_.language[TextLine::kCloseWord].trimmed();
  const QString& code = program_.config.OnAirCode;
  picBand_.SetTexts(BuiltInText(code, OnAirText::kBandPanel), OnAirSession::BandCaptions(), close);
  picMode_.SetTexts(BuiltInText(code, OnAirText::kModePanel), OnAirSession::ModeCaptions(), close);
  ShowFilter();
}

void FilterPanels::ShowFilter() {
  picBand_.SetBoxes(session_.ckBand());
  picMode_.SetBoxes(session_.ckMode());
  picBand_.SetSummary(session_.BandSummary());
  picMode_.SetSummary(session_.ModeSummary());
}

void FilterPanels::Close() {
  picBand_.Close();
  picMode_.Close();
}
