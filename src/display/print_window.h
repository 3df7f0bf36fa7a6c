// SPDX-License-Identifier: GPL-3.0-or-later
// Form21, the print window: shows a picture on its page, lets its size be chosen, and prints it. The menus of all
// pictures open it; Windows makes it.
#pragma once

#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QSlider>
#include <memory>

#include "core/program.h"
#include "display/print_job.h"
#include "display/print_preview.h"
#include "platform/picture/picture_tool.h"
#include "platform/settings_store.h"
#include "platform/wanted.h"
#include "ui/base_window.h"
#include "ui/dialogs.h"

// The window of one print. There is one; another picture comes into the open one.
class Form21 : public BaseWindow {
  Q_OBJECT

 public:
  // What it works with; all outlive it.
  struct Dependencies {
    const Program& program;
    PictureTool& tool;
    Background& background;  // writes the settings
    SettingsStore& store;
    Dialogs& dialogs;
    PrintJobs& jobs;
  };
  // The picture to print.
  struct Picture {
    QByteArray bytes;
    QString name;  // of its station and time; names the print and is read aloud
  };

  Form21(const Dependencies& dependencies, QWidget* opener);

  void Open(const Picture& picture);
  // It shows itself what becomes of this job.
  bool Tells(int job) const { return job == job_; }
  // What is said of an end; empty where nothing has to be said.
  static QString TextOf(PrintEnd end, const QString& file);
  void ShowTexts() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeLayout();
  void TakePicture(const PictureAnswer& answer);
  void TurnPage();
  void ShowSize();
  void ShowState(const QString& text);
  void Print();
  void JobEnded(int job, PrintEnd end, const QString& file);
  QSizeF PrintCm() const;
  bool IsReady() const { return !size_.isEmpty() && page_.isValid(); }

  Dependencies deps_;
  Picture picture_;
  QSize size_;                  // of the picture in pixels; empty: it has not been decoded
  PrintJobs::Printer printer_;  // for the next print; null: not known yet, or given to a job
  QPageLayout page_;            // of the printer chosen last; invalid: not known yet
  QString printerName_;         // chosen last; empty: the system's choice
  PrintPreview* preview_;
  QLabel* caption_;
  QSlider* Slider1;
  QLabel* lblSize;
  QLabel* state_;
  QPushButton* cmdPrint;
  QPushButton* cancel_;
  Wanted wanted_;  // the picture asked for last
  PrintEnd end_ = PrintEnd::Printed;
  QString file_;
  enum class State { Idle, Loading, Printing, Ended, NoPrinter } shownState_ = State::Idle;
  int job_ = 0;  // the one started last
};
