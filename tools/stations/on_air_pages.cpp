// SPDX-License-Identifier: GPL-3.0-or-later
#include "on_air_pages.h"

#include <QStringList>

#include "operators.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMany = 5000;

// As both sources have it: what a caller wrote, odd as it may be.
const QStringList kOddReplies{u"VE3/EI7QOD/P-EP  14.233 holiday &amp; QRP_now"_s,
                              u"K1QPE/M-JT65 14.076 mobile_1"_s,
                              u"N0CALL-EP  14.233 nobody_1"_s,
                              u"ABC-EP  14.233 too short_1"_s,
                              u"EA3QTL-EP  VRadio, over the internet_2"_s,
                              u"G4QVF-EP  PEANUT room 3_2"_s,
                              u"SM6QZQ-SSB 1296.500 four digits_2"_s,
                              u"F4QYC-EP  no frequency at all_3"_s,
                              u"OZ1QYP-FSQ 7.104 &lt;b&gt;bold&lt;/b&gt; 5*9*9_3"_s,
                              u"LA8QBR-EP&nbsp; 14.233 &#169; 2026_4"_s};
const QStringList kOddLines{u"DK7QXB/P_EP_14233_portable * tent"_s, u"PA3QWN_EPH__no frequency"_s,
                            u"ON5QXO_EP_PEANUT_room 1"_s,           u"OK1QEU_SSTV_3733_Martin 1 <b>not bold</b>"_s,
                            u"Callsign_EP_14233_a heading"_s,       u"HB9QHX_EP"_s};

bool IsOnAir(qsizetype index, const QDateTime& now) {
  return (index * 7 + now.time().minute() / 5) % 9 != 0;
}

// Nobody has these calls.
QString MadeUpCall(int index) {
  const auto letter = [index](int step) { return QChar(static_cast<char16_t>(u'A' + index / step % 26)); };
  return u"Q%1%2%3%4"_s.arg(index % 10).arg(letter(1)).arg(letter(26)).arg(letter(676));
}

template <typename Line>
QStringList Stations(OnAirForm form, const QDateTime& now, int offset, const Line& line) {
  QStringList lines;
  if (form == OnAirForm::Empty) return lines;
  const auto tuned = [](qsizetype index) { return kTuned.at(static_cast<std::size_t>(index) % kTuned.size()); };
  if (form == OnAirForm::Many) {
    for (int i = 0; i < kMany; ++i) lines << line(MadeUpCall(i * 2 + offset), tuned(i));
    return lines;
  }
  const std::vector<Operator>& people = Operators();
  for (std::size_t i = static_cast<std::size_t>(offset); i < people.size(); i += 2) {
    const auto index = static_cast<qsizetype>(i);
    if (IsOnAir(index, now)) lines << line(people[i].call.toString(), tuned(index / 2));
  }
  return lines;
}

}  // namespace

QByteArray OnAirErrorPage() {
  return "<html><head><title>500</title></head><body><h1>Internal Server Error</h1>\n<p>Please come "
         "back.</p></body></html>\n";
}

QByteArray OnAirReply(OnAirForm form, const QDateTime& now) {
  if (form == OnAirForm::ErrorPage) return OnAirErrorPage();
  QStringList lines = Stations(form, now, 0, [](const QString& call, const Tuned& tuned) {
    const QString megaHertz = QString::number(tuned.kiloHertz / 1000.0, 'f', 3);
    return u"%1-%2 %3 calling CQ_%4"_s.arg(call, tuned.mode.toString().leftJustified(3), megaHertz, call.right(3));
  });
  if (form == OnAirForm::Plain || form == OnAirForm::Html) lines += kOddReplies;
  if (form == OnAirForm::Html) {
    return ("<html><body><h3>Stations on the air</h3>\n<p>"_L1 + lines.join("<br>\n"_L1) +
            "</p>\n<p>That was all.</p></body></html>\n"_L1)
        .toLatin1();
  }
  return ("Stations on the air\n"_L1 + lines.join(u'\n') + (lines.isEmpty() ? ""_L1 : "\n"_L1)).toLatin1();
}

QByteArray OnAirTextFile(OnAirForm form, const QDateTime& now) {
  if (form == OnAirForm::ErrorPage) return OnAirErrorPage();
  QStringList lines = Stations(form, now, 1, [](const QString& call, const Tuned& tuned) {
    return u"%1_%2_%3_since %4"_s.arg(call, tuned.mode, QString::number(tuned.kiloHertz), call.right(2));
  });
  if (form == OnAirForm::Plain || form == OnAirForm::Html) lines += kOddLines;
  const auto heading = form == OnAirForm::Html ? "<pre>On air now"_L1 : "On air now"_L1;
  return (heading + "\r\n"_L1 + lines.join("\r\n"_L1) + (lines.isEmpty() ? ""_L1 : "\r\n"_L1)).toLatin1();
}
