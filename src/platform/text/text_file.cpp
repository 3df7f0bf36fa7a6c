// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/text_file.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF");

const char* IcuName(CodePage page) {
  switch (page) {
    case CodePage::CentralEuropean1250:
      return "windows-1250";
    case CodePage::Cyrillic1251:
      return "windows-1251";
    case CodePage::Japanese932:
      return "Shift_JIS";
    case CodePage::Western1252:
      break;
  }
  return "windows-1252";
}

bool IsAscii(const QByteArray& bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

QString DecodeText(const QByteArray& bytes, CodePage fallback) {
  if (bytes.isValidUtf8()) {
    const QByteArrayView text =
        bytes.startsWith(kUtf8Mark) ? QByteArrayView(bytes).sliced(kUtf8Mark.size()) : QByteArrayView(bytes);
    // This flag keeps a mark: the one at the start has been cut off above, a second one is text.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return utf8.decode(text);
  }
  // The bytes that a Windows code page leaves undefined come out as the C1 control of the same number and go back the
  // same way, so that a list survives reading and writing whatever it holds.
  QStringDecoder decoder(IcuName(fallback));
  // A Qt without these code pages still reads the lines.
  return decoder.isValid() ? QString(decoder.decode(bytes)) : QString::fromLatin1(bytes);
}

QByteArray EncodeText(const QString& text) {
  QStringEncoder encoder(IcuName(CodePage::Western1252));
  if (encoder.isValid()) {
    QByteArray bytes = encoder.encode(text);
    // Western text whose bytes happen to be valid UTF-8 would be read back as something else.
    if (!encoder.hasError() && (IsAscii(bytes) || !bytes.isValidUtf8())) return bytes;
  }
  return kUtf8Mark.toByteArray() + text.toUtf8();
}

QStringList SplitLines(const QString& text) {
  QStringList lines;
  qsizetype start = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c != u'\n' && c != u'\r') continue;
    lines += text.sliced(start, i - start);
    if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    start = i + 1;
  }
  if (start < text.size()) lines += text.sliced(start);
  return lines;
}

std::optional<QByteArray> ReadFileBytes(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) return std::nullopt;
  return bytes;
}

std::optional<QString> ReadTextFile(const QString& path) {
  const std::optional<QByteArray> bytes = ReadFileBytes(path);
  if (!bytes) return std::nullopt;
  return DecodeText(*bytes);
}

bool WriteTextLines(const QString& path, const QStringList& lines) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  const QString text = lines.isEmpty() ? QString() : lines.join(u"\r\n"_s) + u"\r\n"_s;
  const QByteArray bytes = EncodeText(text);
  return file.write(bytes) == bytes.size() && file.flush() && file.commit();
}
