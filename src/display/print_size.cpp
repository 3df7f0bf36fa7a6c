// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/print_size.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kCmPerInch = 2.54;
constexpr double kRounding = 0.005;  // the figures are shown in hundredths

// As the format "##.00" has it: two places behind the sign, and nothing in front of it below one.
QString Hundredths(double value, const QLocale& locale) {
  const QString text = locale.toString(value, 'f', 2);
  return value < 1 && text.startsWith(locale.zeroDigit()) ? text.sliced(1) : text;
}

QString InBrackets(const QSizeF& size, const QString& unit, QLocale locale) {
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  return u"  (%1 x %2 %3)"_s.arg(Hundredths(size.width(), locale), Hundredths(size.height(), locale), unit);
}

}  // namespace

QSizeF PrintedSize(int widthCm, QSize picture) {
  if (picture.isEmpty()) return {};
  return {static_cast<double>(widthCm), widthCm * static_cast<double>(picture.height()) / picture.width()};
}

QString PrintSizeText(const QSizeF& cm, const QLocale& locale) {
  // The second line has the unit of its figures.
  return InBrackets(cm, u"cm"_s, locale) + u'\n' + InBrackets(cm / kCmPerInch, u"in"_s, locale);
}

bool FitsOn(const QSizeF& cm, const QSizeF& room) {
  return cm.width() <= room.width() + kRounding && cm.height() <= room.height() + kRounding;
}

QRectF PlaceInMiddle(const QSizeF& picture, const QSizeF& room) {
  QRectF place(QPointF(), picture);
  place.moveCenter(QRectF(QPointF(), room).center());
  return place;
}
