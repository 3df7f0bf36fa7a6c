// SPDX-License-Identifier: GPL-3.0-or-later
#include "own_pictures.h"

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Stations without a site of their own. The call database knows not all of them, and of some it knows no place.
constexpr std::array kListeners{"G0QBE"_L1,  "PA3QWN"_L1, "SM6QZQ"_L1, "GM3QNG"_L1, "OH2QCS"_L1, "YO3QLA"_L1,
                                "CT1QNC"_L1, "K1QPE"_L1,  "KB4QTH"_L1, "VK5QGX"_L1, "PY2QIZ"_L1, "ZL1QHY"_L1};
constexpr std::size_t kAtOnce = 5;

QString Signal(std::size_t index) {
  return u"EP SNR %1dB 100%"_s.arg(8 + index * 7 % 15);
}

}  // namespace

OwnPictures::OwnPictures(const QString& socketDir, const Demo& demo) : demo_(demo), companion_(socketDir) {
  const QDateTime now = QDateTime::currentDateTimeUtc();
  QList<Reception> receptions;
  for (std::size_t i = 0; i < kListeners.size(); ++i) {
    const bool last = i % 3 != 0;
    receptions.append({kListeners.at(i).toString(), Signal(i), now.addSecs(last ? -90 : -2700)});
  }
  // What reporters also send: a call that is none, a suffix, a mark in the text, no date.
  receptions.append({u"N0CALL"_s, Signal(1), now.addSecs(-90)});
  receptions.append({u"dk7qxb/p"_s, u"<b>73</b> & tnx"_s, now.addSecs(-90)});
  receptions.append({u"I2QRH"_s, Signal(4), {}});
  for (const Station* station : demo.healthy) {
    if (station->HasReceived(demo.MyCall)) receptions.append({station->Call(), Signal(2), now.addSecs(-90)});
  }
  companion_.Report(receptions);
  connect(&companion_, &Companion::ProgramClosed, this, [] {
    std::printf("the program has closed its channel\n");
    std::fflush(stdout);
  });
  connect(&timer_, &QTimer::timeout, this, &OwnPictures::SendPicture);
}

void OwnPictures::SendPicture() {
  const QDateTime now = QDateTime::currentDateTimeUtc();
  QList<Reception> receptions;
  for (std::size_t i = 0; i < kAtOnce; ++i) {
    receptions.append({kListeners.at((sent_ + i * 3) % kListeners.size()).toString(), Signal(sent_ + i), now});
  }
  Station* station = demo_.healthy.at(sent_ * 5 % std::min<std::size_t>(demo_.healthy.size(), 34));
  station->NewPicture(now, demo_.MyCall);
  receptions.append({station->Call(), Signal(sent_), now});
  ++sent_;
  companion_.Report(receptions);
  companion_.Refresh();
  std::printf("own picture received at %s\n", qPrintable(station->Call()));
  std::fflush(stdout);
}
