// SPDX-License-Identifier: GPL-3.0-or-later
// Prints pictures beside the event loop: decodes one in full resolution, paints it onto the printer's page, and puts a
// printed file in place only when it is whole. Form21 starts the jobs; they live on when it is closed.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QPrinter>
#include <atomic>
#include <functional>
#include <memory>

#include "platform/background.h"
#include "platform/picture/picture_tool.h"

// How a print ended.
enum class PrintEnd {
  Printed,     // handed to the printer, or written to the file
  Cancelled,   // nothing was printed, no file is there
  NotDecoded,  // the bytes are no picture that can be decoded
  NotPrinted,  // the printer does not take it
  NotWritten   // the file could not be written whole; none is there
};

// The prints under way, in the order of their start.
class PrintJobs : public QObject {
  Q_OBJECT

 public:
  // A printer whose system has been asked for its page; one thread has it at a time.
  using Printer = std::shared_ptr<QPrinter>;
  using PrinterFound = std::function<void(const Printer&)>;
  // One picture on one page.
  struct Sheet {
    QByteArray picture;  // bytes of the file
    int widthCm = 0;     // of the print
    Printer printer;     // belongs to the job from now on; its page is as the user has chosen it
  };

  explicit PrintJobs(PictureTool& tool, QObject* parent = nullptr);
  // On the way out it waits for the page that is being painted; those behind it are given up.

  // The printer that the system has chosen. A print server that is gone takes minutes to say nothing, so it is asked on
  // a thread that neither a print nor the program's end waits for. found is called later, unless context is gone by
  // then; of several who wait, the one who asked last is answered.
  void FindPrinter(QObject* context, PrinterFound found);
  // Begins a print; the answer names it in Ended and Cancel.
  int Print(const Sheet& sheet);
  // Ended says whether it was in time: a page that has gone to the printer comes.
  void Cancel(int job);

 Q_SIGNALS:
  // file: where a print to a file went; empty for a printer.
  void Ended(int job, PrintEnd end, const QString& file);

 private:
  using Flag = std::shared_ptr<std::atomic<bool>>;
  void Decoded(int job, const Sheet& sheet, const Flag& cancelled, const PictureAnswer& answer);
  void End(int job, PrintEnd end, const QString& file);

  PictureTool& tool_;
  QPointer<QObject> asker_;  // who waits for the printer
  PrinterFound found_;
  bool asking_ = false;         // for the printer
  QHash<int, Flag> cancelled_;  // of the jobs under way
  int last_ = 0;
  Background painting_;
};
