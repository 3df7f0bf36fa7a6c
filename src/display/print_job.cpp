// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/print_job.h"

#include <QFile>
#include <QPainter>
#include <QThread>
#include <utility>

#include "display/print_size.h"
#include "platform/whole_file.h"

namespace {

constexpr double kMmPerCm = 10;
constexpr qint64 kEndBytes = 64;  // hold the end of a file of pages

// The file says at its end where its table begins, as counted while it was written. A disk that was full in between
// makes that wrong; the writer itself does not tell.
bool IsWholePdf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(0, file.size() - kEndBytes))) return false;
  const QList<QByteArray> end = file.readAll().trimmed().split('\n');
  if (end.size() < 3 || end.last() != "%%EOF" || end.at(end.size() - 3) != "startxref") return false;
  return file.seek(end.at(end.size() - 2).toLongLong()) && file.read(4) == "xref";
}

// Runs on the thread of the prints. What does not fit on the page is cut off at its margins.
bool Paint(const QImage& image, int widthCm, QPrinter& printer) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QSizeF page = printer.pageLayout().paintRectPixels(printer.resolution()).size();
  const double dotsPerCm = page.width() / (printer.pageLayout().paintRect(QPageLayout::Millimeter).width() / kMmPerCm);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setClipRect(QRectF(QPointF(), page));
  painter.drawImage(PlaceInMiddle(PrintedSize(widthCm, image.size()) * dotsPerCm, page), image);
  return painter.end() && printer.printerState() != QPrinter::Error;
}

PrintEnd PaintFile(const QImage& image, int widthCm, QPrinter& printer, const std::atomic<bool>& cancelled) {
  const QString path = printer.outputFileName();
  const QString part = PartPath(path);
  printer.setOutputFileName(part);
  PrintEnd end = Paint(image, widthCm, printer) && IsWholePdf(part) ? PrintEnd::Printed : PrintEnd::NotWritten;
  if (cancelled) end = PrintEnd::Cancelled;
  if (end == PrintEnd::Printed && !PutInPlace(part, path)) end = PrintEnd::NotWritten;
  if (end != PrintEnd::Printed) QFile::remove(part);
  return end;
}

}  // namespace

PrintJobs::PrintJobs(PictureTool& tool, QObject* parent) : QObject(parent), tool_(tool) {}

void PrintJobs::FindPrinter(QObject* context, PrinterFound found) {
  asker_ = context;
  found_ = std::move(found);
  if (asking_) return;
  asking_ = true;
  const auto printer = std::make_shared<Printer>();
  QThread* thread = QThread::create([printer]() { *printer = std::make_shared<QPrinter>(QPrinter::HighResolution); });
  connect(thread, &QThread::finished, thread, &QObject::deleteLater);
  connect(thread, &QThread::finished, this, [this, printer]() {
    asking_ = false;
    const PrinterFound answer = std::exchange(found_, {});
    if (asker_ != nullptr) answer(*printer);
  });
  thread->start();
}

int PrintJobs::Print(const Sheet& sheet) {
  const int job = ++last_;
  const auto cancelled = std::make_shared<std::atomic<bool>>(false);
  cancelled_.insert(job, cancelled);
  PictureOptions options;
  options.wanted = [cancelled]() { return !*cancelled; };
  tool_.Whole(
      sheet.picture, this,
      [this, job, sheet, cancelled](const PictureAnswer& answer) { Decoded(job, sheet, cancelled, answer); }, options);
  return job;
}

void PrintJobs::Decoded(int job, const Sheet& sheet, const Flag& cancelled, const PictureAnswer& answer) {
  const QString file = sheet.printer->outputFileName();
  if (*cancelled) return End(job, PrintEnd::Cancelled, file);
  if (!answer.ok || answer.frames.isEmpty()) return End(job, PrintEnd::NotDecoded, file);
  painting_.Run<PrintEnd>(
      this,
      [image = answer.frames.first().image, sheet, cancelled, file]() {
        if (*cancelled) return PrintEnd::Cancelled;
        if (!file.isEmpty()) return PaintFile(image, sheet.widthCm, *sheet.printer, *cancelled);
        return Paint(image, sheet.widthCm, *sheet.printer) ? PrintEnd::Printed : PrintEnd::NotPrinted;
      },
      [this, job, file](PrintEnd end) { End(job, end, file); });
}

void PrintJobs::Cancel(int job) {
  if (const Flag flag = cancelled_.value(job)) *flag = true;
}

void PrintJobs::End(int job, PrintEnd end, const QString& file) {
  cancelled_.remove(job);
  Q_EMIT Ended(job, end, file);
}
