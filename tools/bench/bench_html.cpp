// SPDX-License-Identifier: GPL-3.0-or-later
// Pages to text, as a whole process that html_bench.sh times against other programs: omni-perch-bench-html FILE...
// reads every file once and prints the number of characters of all texts; with --print before the files, the texts
// themselves.
#include <QFile>
#include <QStringList>
#include <cstdio>

#include "platform/html_text.h"

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  bool isPrinting = false;
  qsizetype characters = 0;
  for (int i = 1; i < argc; ++i) {
    const QString name = QFile::decodeName(argv[i]);
    if (name == "--print"_L1) {
      isPrinting = true;
      continue;
    }
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
      std::fprintf(stderr, "cannot read %s\n", argv[i]);
      return 1;
    }
    const QString text = HTMLDecode(QString::fromUtf8(file.readAll()));
    characters += text.size();
    if (isPrinting) {
      const QByteArray bytes = text.toUtf8();
      std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    }
  }
  if (!isPrinting) std::printf("characters=%lld\n", static_cast<long long>(characters));
  return 0;
}
