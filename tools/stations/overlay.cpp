// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlay.h"

#include <QFontMetricsF>
#include <QLocale>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const std::array kFamilies{u"DejaVu Sans"_s,        u"DejaVu Sans"_s,      u"DejaVu Serif"_s,   u"URW Gothic"_s,
                           u"URW Bookman"_s,        u"Nimbus Sans"_s,      u"Z003"_s,           u"C059"_s,
                           u"Nimbus Sans Narrow"_s, u"DejaVu Sans Mono"_s, u"Liberation Sans"_s};
const std::array kGreetings{u"CQ DSSTV"_s, u"CQ CQ CQ"_s,  u"CQ DIGITAL SSTV"_s, u"CQ EasyPal"_s,
                            u"CQ 80m"_s,   u"CQ DX 20m"_s, u"Good morning"_s,    u"Calling CQ"_s};
const std::array kNames{u"Tom"_s,  u"Anna"_s, u"Piet"_s, u"Marco"_s, u"Eva"_s,
                        u"Hans"_s, u"Luis"_s, u"Jan"_s,  u"Bob"_s,   u"Kurt"_s};
const std::array kPlaces{u"Hilltop"_s,      u"Lakeside"_s,  u"Old Mill"_s, u"North Bay"_s,
                         u"Green Valley"_s, u"Sandhaven"_s, u"Mosswood"_s, u"Portside"_s};
const std::array kRemarks{u"TNX for the nice picture"_s,      u"Solid copy, 100%"_s,     u"QSB on the band today"_s,
                          u"Greetings to all on frequency"_s, u"100 W and a dipole"_s,   u"73 and good DX"_s,
                          u"First snow this year"_s,          u"Hope you all are well"_s};

QColor Bright(Rng& rng) {
  const std::array colours{QColor(255, 240, 60), QColor(255, 255, 255), QColor(255, 80, 60),  QColor(110, 255, 120),
                           QColor(90, 220, 255), QColor(255, 170, 40),  QColor(255, 150, 220)};
  return rng.Pick(colours);
}

QFont Face(Rng& rng, double pixels, bool bold = true) {
  QFont font(rng.Pick(kFamilies));
  font.setPixelSize(std::max(6, static_cast<int>(pixels)));
  font.setBold(bold);
  font.setItalic(rng.Chance(0.2));
  return font;
}

// Letters with an outline and a shadow; shrunk to fit width. at: where the text's middle (horizontally) and baseline
// are.
void Letters(Canvas& c, QPointF at, QFont font, const QString& text, const QColor& colour, double width) {
  const double wide = QFontMetricsF(font).horizontalAdvance(text);
  if (wide > width) font.setPixelSize(std::max(6, static_cast<int>(font.pixelSize() * width / wide)));
  const double pixels = font.pixelSize();
  QPainterPath path;
  path.addText(at - QPointF(QFontMetricsF(font).horizontalAdvance(text) / 2, 0), font, text);
  c.p.setPen(Qt::NoPen);
  c.p.fillPath(path.translated(pixels * 0.06, pixels * 0.07), QColor(0, 0, 0, 150));
  const bool dark = colour.lightness() < 90;
  c.p.strokePath(path, QPen(dark ? QColor(255, 255, 255) : QColor(10, 10, 20), std::max(1.6, pixels * 0.11),
                            Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QLinearGradient fill(0, at.y() - pixels * 0.75, 0, at.y());
  fill.setColorAt(0, colour.lighter(125));
  fill.setColorAt(1, c.rng.Chance(0.5) ? colour : colour.darker(150));
  c.p.fillPath(path, fill);
}

void Box(Canvas& c, const QRectF& area, const QStringList& lines, const QColor& back, const QColor& ink) {
  c.p.setPen(QPen(ink, 1.6 * c.u));
  c.p.setBrush(back);
  c.p.drawRoundedRect(area, 7 * c.u, 7 * c.u);
  QFont font(u"DejaVu Sans"_s);
  font.setBold(true);
  const double step = area.height() / (static_cast<double>(lines.size()) + 0.4);
  font.setPixelSize(std::max(5, static_cast<int>(step * 0.66)));
  for (const QString& line : lines) {
    const double wide = QFontMetricsF(font).horizontalAdvance(line);
    if (wide > area.width() * 0.92)
      font.setPixelSize(std::max(5, static_cast<int>(font.pixelSize() * area.width() * 0.92 / wide)));
  }
  c.p.setFont(font);
  c.p.setPen(ink);
  for (qsizetype i = 0; i < lines.size(); ++i) {
    c.p.drawText(QRectF(area.left(), area.top() + step * (static_cast<double>(i) + 0.2), area.width(), step),
                 Qt::AlignCenter, lines.at(i));
  }
}

QString DateOf(Canvas& c, const QDateTime& sent) {
  const std::array forms{u"dd MMM yyyy"_s, u"yyyy-MM-dd HH:mm"_s, u"dd.MM.yyyy"_s, u"HH:mm 'UTC'"_s};
  return QLocale::c().toString(sent, c.rng.Pick(forms));
}

QStringList Report(Canvas& c, const OverlayWords& words) {
  return {words.partner + u" de "_s + words.caller,
          u"SNR %1dB  %2%"_s.arg(std::abs(words.snr) + 6).arg(c.rng.Int(93, 100)), c.rng.Pick(kRemarks)};
}

QString NameAndPlace(Canvas& c) {
  return u"Op "_s + c.rng.Pick(kNames) + u"   QTH "_s + c.rng.Pick(kPlaces);
}

void CallToAll(Canvas& c, const OverlayWords& words) {
  Letters(c, {c.w / 2, c.Y(0.17)}, Face(c.rng, c.Y(0.1)), c.rng.Pick(kGreetings), Bright(c.rng), c.w * 0.86);
  Letters(c, {c.w / 2, c.Y(0.95)}, Face(c.rng, c.Y(0.19)), words.caller, Bright(c.rng), c.w * 0.92);
  if (c.rng.Chance(0.5))
    Letters(c, {c.w / 2, c.Y(0.26)}, Face(c.rng, c.Y(0.05), false), NameAndPlace(c), Qt::white, c.w * 0.8);
}

void ReportInBox(Canvas& c, const OverlayWords& words) {
  Letters(c, {c.X(0.3), c.Y(0.17)}, Face(c.rng, c.Y(0.15)), words.caller, Bright(c.rng), c.w * 0.55);
  const std::array backs{QColor(0, 0, 80, 190), QColor(255, 255, 220, 225), QColor(70, 0, 0, 190),
                         QColor(0, 50, 20, 190)};
  const QColor back = c.rng.Pick(backs);
  Box(c, {c.X(0.05), c.Y(0.72), c.X(0.62), c.Y(0.24)}, Report(c, words), back,
      back.lightness() > 128 ? QColor(20, 20, 60) : QColor(255, 255, 160));
  if (c.rng.Chance(0.7)) Letters(c, {c.X(0.84), c.Y(0.93)}, Face(c.rng, c.Y(0.18)), u"73"_s, Bright(c.rng), c.w * 0.3);
}

void Footer(Canvas& c, const OverlayWords& words) {
  const QColor band = QColor::fromHsv(c.rng.Int(0, 359), 190, 90, 205);
  c.p.fillRect(QRectF(0, c.Y(0.85), c.w, c.Y(0.15)), band);
  c.p.fillRect(QRectF(0, c.Y(0.845), c.w, std::max(1.0, c.Y(0.008))), QColor(255, 230, 120));
  Letters(c, {c.X(0.24), c.Y(0.965)}, Face(c.rng, c.Y(0.12)), words.caller, Bright(c.rng), c.w * 0.42);
  QFont small(u"DejaVu Sans"_s);
  small.setPixelSize(std::max(6, static_cast<int>(c.Y(0.042))));
  c.p.setFont(small);
  c.p.setPen(Qt::white);
  c.p.drawText(QRectF(c.X(0.48), c.Y(0.86), c.X(0.5), c.Y(0.07)), Qt::AlignRight | Qt::AlignVCenter, NameAndPlace(c));
  c.p.drawText(QRectF(c.X(0.48), c.Y(0.92), c.X(0.5), c.Y(0.07)), Qt::AlignRight | Qt::AlignVCenter,
               DateOf(c, words.sent));
}

void OnTheSide(Canvas& c, const OverlayWords& words) {
  c.p.save();
  c.p.translate(c.X(0.115), c.Y(0.97));
  c.p.rotate(-90);
  Letters(c, {c.h * 0.47, 0}, Face(c.rng, std::min(c.Y(0.15), c.X(0.12))), words.caller, Bright(c.rng), c.h * 0.9);
  c.p.restore();
  Letters(c, {c.X(0.6), c.Y(0.13)}, Face(c.rng, c.Y(0.085)), words.partner + u" de "_s + words.caller, Bright(c.rng),
          c.w * 0.7);
  Letters(c, {c.X(0.6), c.Y(0.95)}, Face(c.rng, c.Y(0.055), false), c.rng.Pick(kRemarks), Qt::white, c.w * 0.7);
}

void ReplyWithInset(Canvas& c, const OverlayWords& words, const std::function<QImage(QSize)>& inset) {
  const QRectF place(c.X(0.63), c.Y(0.05), c.X(0.33), c.X(0.33) * 0.75);
  const QImage small = inset(place.size().toSize());
  c.p.setPen(Qt::NoPen);
  c.p.fillRect(place.adjusted(-4 * c.u, -4 * c.u, 4 * c.u, 4 * c.u), Qt::white);
  c.p.drawImage(place.topLeft(), small);
  Letters(c, {c.X(0.31), c.Y(0.16)}, Face(c.rng, c.Y(0.13)), words.partner, Bright(c.rng), c.w * 0.54);
  Letters(c, {c.X(0.31), c.Y(0.27)}, Face(c.rng, c.Y(0.075)), u"UR PIC  SNR %1dB"_s.arg(std::abs(words.snr) + 8),
          Bright(c.rng), c.w * 0.54);
  Letters(c, {c.w / 2, c.Y(0.94)}, Face(c.rng, c.Y(0.16)), u"de "_s + words.caller, Bright(c.rng), c.w * 0.9);
}

void Plain(Canvas& c, const OverlayWords& words) {
  const bool left = c.rng.Chance(0.5);
  Letters(c, {left ? c.X(0.27) : c.X(0.73), c.Y(c.rng.Chance(0.5) ? 0.15 : 0.93)}, Face(c.rng, c.Y(0.13)), words.caller,
          Bright(c.rng), c.w * 0.5);
  if (c.rng.Chance(0.6))
    Letters(c, {left ? c.X(0.8) : c.X(0.2), c.Y(0.9)}, Face(c.rng, c.Y(0.05), false), DateOf(c, words.sent), Qt::white,
            c.w * 0.36);
}

}  // namespace

void PaintOverlay(Canvas& c, const OverlayWords& words, const std::function<QImage(QSize)>& inset) {
  switch (c.rng.Int(0, 6)) {
    case 0:
    case 1:
      CallToAll(c, words);
      break;
    case 2:
      ReportInBox(c, words);
      break;
    case 3:
      Footer(c, words);
      break;
    case 4:
      OnTheSide(c, words);
      break;
    case 5:
      ReplyWithInset(c, words, inset);
      break;
    default:
      Plain(c, words);
  }
}
