// SPDX-License-Identifier: GPL-3.0-or-later
// Turns pages into text as the program does it, for html_bench.sh: omni-perch-bench-html DECODER TEXTS FILE... hands
// every file to the decoder's process for texts, one after the other, and writes the texts to the file TEXTS. Prints
// "html=" and the milliseconds from the start of that process to the last text. The start of this program does not
// count: in use, the program that starts the decoder's process runs already when a page comes.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QString>
#include <QStringList>
#include <cstdio>
#include <optional>

#include "platform/picture/page_text_tool.h"

namespace {

// By plain system calls: it is not the reading that is to be measured.
std::optional<QByteArray> Read(const QString& path) {
  const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
  struct stat about {};
  if (file < 0 || fstat(file, &about) != 0) return std::nullopt;
  QByteArray bytes(static_cast<qsizetype>(about.st_size), Qt::Uninitialized);
  const ssize_t count = read(file, bytes.data(), static_cast<size_t>(bytes.size()));
  close(file);
  if (count != bytes.size()) return std::nullopt;
  return bytes;
}

// One page after the other, as lookups come.
class Round : public QObject {
 public:
  Round(const QString& decoder, const QString& texts, const QStringList& pages)
      : tool_(decoder), texts_(texts), pages_(pages) {}

  void Begin() {
    took_.start();
    if (texts_.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
      ReadNext();
    } else {
      End("cannot write the texts");
    }
  }

 private:
  void ReadNext() {
    if (pages_.isEmpty()) {
      std::printf("html=%.2f\n", static_cast<double>(took_.nsecsElapsed()) / 1e6);
      End(nullptr);
      return;
    }
    const std::optional<QByteArray> page = Read(pages_.takeFirst());
    if (!page) {
      End("cannot read a page");
      return;
    }
    tool_.Read(*page, this, [this](const std::optional<QString>& text) { Take(text); });
  }

  void Take(const std::optional<QString>& text) {
    if (text) {
      texts_.write(text->toUtf8());
      ReadNext();
    } else {
      End("a page had no text");
    }
  }

  static void End(const char* fault) {
    if (fault != nullptr) std::fprintf(stderr, "%s\n", fault);
    // Queued, as the loop may not have begun yet.
    QMetaObject::invokeMethod(
        qApp, [fault]() { QCoreApplication::exit(fault == nullptr ? 0 : 1); }, Qt::QueuedConnection);
  }

  PageTextTool tool_;
  QFile texts_;
  QStringList pages_;
  QElapsedTimer took_;
};

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() < 4) return 2;
  Round round(arguments[1], arguments[2], arguments.mid(3));
  round.Begin();
  return QCoreApplication::exec();
}
