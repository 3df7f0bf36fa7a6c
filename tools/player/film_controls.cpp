// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_controls.h"

#include <QEvent>
#include <QHBoxLayout>

#include "film_time.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kVolumeWidth = 90;  // pixels
constexpr int kSign = 20;

QToolButton* SignButton(const QString& name, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setAutoRaise(true);
  button->setIconSize({kSign, kSign});
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

FilmSlider* Bar(const QString& name, QWidget* parent) {
  auto* bar = new FilmSlider(parent);
  bar->setObjectName(name);
  return bar;
}

}  // namespace

FilmControls::FilmControls(QWidget* parent)
    : QWidget(parent),
      imgBack(SignButton(u"imgBack"_s, this)),
      imgPausePlay(SignButton(u"imgPausePlay"_s, this)),
      imgForward(SignButton(u"imgForward"_s, this)),
      imgBar(Bar(u"imgBar"_s, this)),
      lblTime(new QLabel(this)),
      imgSpkr(SignButton(u"imgSpkr"_s, this)),
      picVol(Bar(u"picVol"_s, this)),
      imgFullScreen(SignButton(u"imgFullScreen"_s, this)) {
  setObjectName(u"picControls"_s);
  setAutoFillBackground(true);
  lblTime->setObjectName(u"lblTime"_s);
  picVol->setRange(0, 100);
  picVol->setSingleStep(5);
  picVol->setFixedWidth(kVolumeWidth);
  MakeLayout();
  connect(imgPausePlay, &QToolButton::clicked, this, &FilmControls::PauseWanted);
  connect(imgBack, &QToolButton::clicked, this, [this]() { Q_EMIT StepWanted(-1); });
  connect(imgForward, &QToolButton::clicked, this, [this]() { Q_EMIT StepWanted(1); });
  connect(imgBar, &FilmSlider::Wanted, this, [this](int at) { Q_EMIT PlaceWanted(std::chrono::milliseconds(at)); });
  connect(imgSpkr, &QToolButton::clicked, this, &FilmControls::MuteWanted);
  connect(picVol, &FilmSlider::Wanted, this, &FilmControls::VolumeWanted);
  connect(imgFullScreen, &QToolButton::clicked, this, &FilmControls::FullScreenWanted);
  ShowSigns();
}

void FilmControls::MakeLayout() {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 6, 8, 6);
  row->setSpacing(6);
  row->addWidget(imgBack);
  row->addWidget(imgPausePlay);
  row->addWidget(imgForward);
  row->addWidget(imgBar, 1);
  row->addWidget(lblTime);
  row->addWidget(imgSpkr);
  row->addWidget(picVol);
  row->addWidget(imgFullScreen);
}

void FilmControls::Name(QWidget* control, const QString& text, const QString& keys) {
  control->setAccessibleName(text);
  control->setToolTip(keys.isEmpty() ? text : u"%1 (%2)"_s.arg(text, keys));
}

void FilmControls::ShowTexts() {
  Name(imgBack, tr("Back"), u"J"_s);
  Name(imgForward, tr("Forward"), u"L"_s);
  Name(imgPausePlay, playing_ ? tr("Pause") : tr("Play"), tr("Space"));
  Name(imgBar, tr("Position in the film"), {});
  Name(imgSpkr, muted_ ? tr("Sound on") : tr("Sound off"), u"M"_s);
  Name(picVol, tr("Volume"), {});
  Name(imgFullScreen, full_ ? tr("Leave the full screen") : tr("Full screen"), u"F"_s);
  if (whySilent_.isEmpty()) return;
  for (QWidget* control : {static_cast<QWidget*>(imgSpkr), static_cast<QWidget*>(picVol)}) {
    control->setToolTip(whySilent_);
    control->setAccessibleDescription(whySilent_);
  }
}

void FilmControls::ShowSigns() {
  const QColor colour = palette().color(QPalette::Active, QPalette::ButtonText);
  const QColor grey = palette().color(QPalette::Disabled, QPalette::ButtonText);
  const auto show = [&](QToolButton* button, FilmSign sign) { button->setIcon(FilmIcon(sign, colour, grey)); };
  show(imgBack, FilmSign::Back);
  show(imgForward, FilmSign::Forward);
  show(imgPausePlay, playing_ ? FilmSign::imgPause : FilmSign::imgPlay);
  show(imgSpkr, muted_ || !whySilent_.isEmpty() ? FilmSign::Muted : FilmSign::Loud);
  show(imgFullScreen, full_ ? FilmSign::Window : FilmSign::FullScreen);
}

void FilmControls::ShowPlace(std::chrono::milliseconds position, std::chrono::milliseconds length) {
  imgBar->setEnabled(length > 0ms);
  imgBar->setRange(0, static_cast<int>(length.count()));
  imgBar->setSingleStep(static_cast<int>(length.count() / 50));
  imgBar->setPageStep(static_cast<int>(length.count() / 10));
  imgBset()->setAccessibleDescription(lblTime->text());
  imgBar->Show(static_cast<int>(position.count()));
  const QLocale locale;
  lblTime->setText(FilmTime(position, length, locale) + u" / "_s + FilmTime(length, length, locale));
  lblTime->setAccessibleName(lblTime->text());
}

void FilmControls::ShowPlaying(bool playing) {
  if (std::exchange(playing_, playing) == playing) return;
  ShowSigns();
  ShowTexts();
}

void FilmControls::ShowSound(bool muted, int percent, const QString& why) {
  muted_ = muted;
  whySilent_ = why;
  imgSpkr->setEnabled(why.isEmpty());
  picVol->setEnabled(why.isEmpty());
  picVol->Show(percent);
  ShowSigns();
  ShowTexts();
}

void FilmControls::ShowFullScreen(bool full) {
  full_ = full;
  ShowSigns();
  ShowTexts();
}

void FilmControls::ShowNothing() {
  setEnabled(false);
}

void FilmControls::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ShowSigns();
}
