// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/picture_info.h"

#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

namespace {

constexpr double kUsualDpi = 96;  // of a picture whose file tells none
constexpr int kMostTexts = 200;   // lines of comments and creators that are shown
constexpr qsizetype kLongestLine = 2000;
constexpr double kCmPerInch = 2.54;

QString Grouped(qint64 number, QLocale locale) {
  locale.setNumberOptions(locale.numberOptions() & ~QLocale::OmitGroupSeparator);
  return locale.toString(number);
}

// The facts of a picture by their first word; the comments and creators as finished lines.
struct Facts {
  QHash<QByteArray, QByteArray> values;
  QStringList texts;

  explicit Facts(const QByteArray& lines) {
    for (qsizetype from = 0; from < lines.size() && texts.size() < kMostTexts;) {
      qsizetype end = lines.indexOf('\n', from);
      if (end < 0) end = lines.size();
      const QByteArray line = lines.sliced(from, end - from);
      const qsizetype blank = line.indexOf(' ');
      const QByteArray word = line.left(blank);
      const QByteArray value = line.mid(blank + 1);
      if (word == "comment" || word == "creator") {
        texts.append(QString::fromLatin1(word.toUpper()) + u" = "_s + QString::fromUtf8(value).left(kLongestLine));
      } else {
        values.insert(word, value);
      }
      from = end + 1;
    }
  }
};

QStringList PrintSizeLines(QSize size, const QByteArray& dpi, const QLocale& locale) {
  const double across = dpi.isEmpty() ? kUsualDpi : dpi.split(' ').value(0).toDouble();
  const double down = dpi.isEmpty() ? kUsualDpi : dpi.split(' ').value(1).toDouble();
  if (size.isEmpty() || across <= 0 || down <= 0) return {};
  const auto line = [&](double factor, const QString& unit) {
    return u"Print size = %1 x %2 %3"_s.arg(locale.toString(size.width() / across * factor, 'f', 2),
                                            locale.toString(size.height() / down * factor, 'f', 2), unit);
  };
  return {line(kCmPerInch, u"cm"_s), line(1, u"in"_s)};
}

// Pictures of the page and the viewer are marked as JT65 by their tag; those of a history say their mode like all
// others.
QString ModeLine(const SourcePicture& picture) {
  const bool marked = picture.source.window == PictureSource::Window::Page;
  if (marked && picture.mode.section(u' ', 0, 0) == "JT65"_L1) return u"Mode = JT65"_s;
  return u"Mode = normal "_s + picture.mode;
}

}  // namespace

QString PictureInfoText(const SourceFile& file, QSize size, const QByteArray& facts, const QLocale& locale) {
  const Facts known(facts);
  const QFileInfo info(file.path);
  QStringList lines{u"File name = "_s + info.fileName(), u"File path = "_s + info.path(), ModeLine(file.picture)};
  lines += u"File size = %1 bytes"_s.arg(Grouped(file.bytes.size(), locale));
  lines += PrintSizeLines(size, known.values.value("dpi"), locale);
  if (const QByteArray depth = known.values.value("depth"); !depth.isEmpty()) {
    lines += u"Color depth = %1 (%1 BitsPerPixel)"_s.arg(QString::fromLatin1(depth));
  }
  if (const QByteArray colors = known.values.value("colors"); !colors.isEmpty()) {
    lines += u"Number of unique colors = "_s + Grouped(colors.toLongLong(), locale);
  }
  lines += u"File date/time = "_s + file.SentTime();
  lines += known.texts;
  return lines.join("\r\n"_L1) + "\r\n"_L1;
}
