// SPDX-License-Identifier: GPL-3.0-or-later
// The print of a picture to a PDF file: omni-perch-bench-print PICTURE FOLDER [ROUNDS]. One line a round, "print=
// event=" in ms: from the start of the print to the file in its place in FOLDER, and the longest handling of one event
// meanwhile.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <cstdio>

#include "display/print_job.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidthCm = 20;

// Measures each event that the loop handles.
class MeasuredApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    QElapsedTimer timer;
    timer.start();
    ++depth_;
    const bool done = QApplication::notify(receiver, event);
    if (--depth_ == 0) longest = std::max(longest, timer.nsecsElapsed());
    return done;
  }

  qint64 longest = 0;  // nanoseconds

 private:
  int depth_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  MeasuredApplication app(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  QFile file(arguments.value(1));
  const QDir folder(arguments.value(2));
  if (arguments.size() < 3 || !file.open(QIODevice::ReadOnly)) {
    std::fprintf(stderr, "usage: omni-perch-bench-print PICTURE FOLDER [ROUNDS]\n");
    return 2;
  }
  const QByteArray picture = file.readAll();
  PictureTool tool(QCoreApplication::applicationDirPath() + u"/omni-perch-decoder"_s, folder.path());
  tool.WarmUp();
  PrintJobs jobs(tool);
  // The first round only warms up.
  for (int round = 0; round <= std::max(1, arguments.value(3).toInt()); ++round) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setOutputFileName(folder.filePath(u"print.pdf"_s));
    QFile::remove(printer->outputFileName());
    QEventLoop loop;
    QElapsedTimer timer;
    PrintEnd result = PrintEnd::Cancelled;
    QObject::connect(&jobs, &PrintJobs::Ended, &loop, [&](int /*job*/, PrintEnd end) {
      result = end;
      loop.quit();
    });
    QMetaObject::invokeMethod(
        &loop,
        [&]() {
          app.longest = 0;
          timer.start();
          jobs.Print({picture, kWidthCm, printer});
        },
        Qt::QueuedConnection);
    loop.exec();
    if (result != PrintEnd::Printed) return 1;
    if (round == 0) continue;
    std::printf("print=%.1f event=%.1f\n", static_cast<double>(timer.nsecsElapsed()) / 1e6,
                static_cast<double>(app.longest) / 1e6);
  }
  return 0;
}
