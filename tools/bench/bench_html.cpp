// SPDX-License-Identifier: GPL-3.0-or-later
// Pages to text, as a whole process that html_bench.sh times against other programs: omni-perch-bench-html FILE...
// reads every file once and prints the number of characters of all texts; with --print before the files, the texts
// themselves.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QString>
#include <cstdio>
#include <optional>

#include "platform/html/html_text.h"

namespace {

// By the plain system calls: what is measured is not the reading.
std::optional<QByteArray> Read(const char* path) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  struct stat about {};
  if (file < 0 || fstat(file, &about) != 0) return std::nullopt;
  QByteArray bytes(static_cast<qsizetype>(about.st_size), Qt::Uninitialized);
  const ssize_t count = read(file, bytes.data(), static_cast<size_t>(bytes.size()));
  close(file);
  if (count != bytes.size()) return std::nullopt;
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  bool isPrinting = false;
  qsizetype characters = 0;
  for (int i = 1; i < argc; ++i) {
    if (QByteArrayView(argv[i]) == "--print") {
      isPrinting = true;
      continue;
    }
    const std::optional<QByteArray> page = Read(argv[i]);
    if (!page) {
      std::fprintf(stderr, "cannot read %s\n", argv[i]);
      return 1;
    }
    const QString text = HTMLDecode(QString::fromUtf8(*page));
    characters += text.size();
    if (isPrinting) {
      const QByteArray bytes = text.toUtf8();
      std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    }
  }
  if (!isPrinting) std::printf("characters=%lld\n", static_cast<long long>(characters));
  return 0;
}
