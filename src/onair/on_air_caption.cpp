// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_caption.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr int kMinutes = 5;
}  // namespace

OnAirCaption::OnAirCaption(const Program& program, std::function<bool()> isListOpen, QObject* parent)
    : QObject(parent), program_(program), isListOpen_(std::move(isListOpen)) {
  Timer13.setInterval(60s);
  connect(&Timer13, &QTimer::timeout, this, &OnAirCaption::Timer13Tick);
  Timer13.start();
}

// The timer was meant to refresh the count beside lblOnAirNow. It starts no request, so that the label stays as it is;
// what is left of it is the "0" in the text that it shares with cmdOnAir, where users know it.
void OnAirCaption::Timer13Tick() {
  if (++ticks_ % kMinutes != 0 || isListOpen_()) return;
  overwritten_ = true;
  Q_EMIT Changed();
}

QString OnAirCaption::Text() const {
  return overwritten_ ? u"0"_s : program_.language[TextLine::kOnAirText];
}
