// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/print_window.h"

#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>

#include "core/stored_settings.h"
#include "display/picture_save.h"
#include "display/print_size.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kPreviewBox(1000, 1000);  // pixels of the decoded preview
constexpr double kMmPerCm = 10;
constexpr int kMargin = 12;
// The given colours are the ground of the size: the light one where it fits. Letters have to be readable on either.
constexpr QColor kFits(128, 255, 128);
constexpr QColor kTooLarge(0, 64, 0);

}  // namespace

Form21::Form21(const Dependencies& dependencies, QWidget* opener)
    : BaseWindow(opener),
      deps_(dependencies),
      preview_(new PrintPreview(this)),
      caption_(new QLabel(this)),
      Slider1(new QSlider(Qt::Horizontal, this)),
      lblSize(new QLabel(this)),
      state_(new QLabel(this)),
      cmdPrint(new QPushButton(this)),
      cancel_(new QPushButton(this)) {
  setObjectName(u"Form21"_s);
  preview_->setObjectName(u"preview"_s);
  caption_->setObjectName(u"lblCaption"_s);
  Slider1->setObjectName(u"Slider1"_s);
  lblSize->setObjectName(u"lblSize"_s);
  state_->setObjectName(u"lblState"_s);
  cmdPrint->setObjectName(u"cmdPrint"_s);
  cancel_->setObjectName(u"cmdCancel"_s);
  Slider1->setRange(PrintWidths::kSmallest, PrintWidths::kLargest);
  Slider1->setTickPosition(QSlider::TicksBelow);
  Slider1->setValue(StoredSettings(deps_.store).Number(Setting::PrintSize));
  MakeLayout();
  SetDefaultButton(cmdPrint);
  connect(Slider1, &QSlider::valueChanged, this, &Form21::ShowSize);
  connect(cmdPrint, &QPushButton::clicked, this, &Form21::Print);
  connect(cancel_, &QPushButton::clicked, this, [this]() { deps_.jobs.Cancel(job_); });
  connect(&deps_.jobs, &PrintJobs::Ended, this, &Form21::JobEnded);
  deps_.jobs.FindPrinter(this, [this](const PrintJobs::Printer& printer) {
    printer_ = printer;
    page_ = printer->pageLayout();
    TurnPage();
  });
}

void Form21::MakeLayout() {
  lblSize->setTextFormat(Qt::PlainText);
  lblSize->setMargin(kMargin / 2);
  lblSize->setAutoFillBackground(true);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  auto* size = new QHBoxLayout;
  size->addWidget(caption_);
  size->addWidget(Slider1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(state_, 1);
  buttons->addWidget(cancel_);
  buttons->addWidget(cmdPrint);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  rows->setSpacing(kMargin);
  rows->addWidget(preview_, 1);
  rows->addLayout(size);
  rows->addWidget(lblSize);
  rows->addLayout(buttons);
}

void Form21::Open(const Picture& picture) {
  picture_ = picture;
  size_ = {};
  preview_->SetPicture({});
  shownState_ = State::Loading;
  ShowTexts();
  show();
  raise();
  activateWindow();
  Slider1->setFocus();
  const Wanted::Token token = wanted_.Ask();
  PictureOptions options;
  options.wanted = [token]() { return token.StillWanted(); };
  deps_.tool.Glance(
      picture.bytes, kPreviewBox, this,
      [this, token](const PictureAnswer& answer) {
        if (token.StillWanted()) TakePicture(answer);
      },
      options);
}

void Form21::TakePicture(const PictureAnswer& answer) {
  const bool decoded = answer.ok && !answer.frames.isEmpty();
  shownState_ = decoded ? State::Idle : State::Ended;
  end_ = PrintEnd::NotDecoded;
  if (decoded) {
    size_ = answer.size;
    preview_->SetPicture(answer.frames.first().image);
  }
  TurnPage();
}

// A picture that is wider than high goes across the page.
void Form21::TurnPage() {
  if (!size_.isEmpty()) {
    page_.setOrientation(size_.width() > size_.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
  }
  ShowTexts();
}

QSizeF Form21::PrintCm() const {
  return PrintedSize(Slider1->value(), size_);
}

void Form21::ShowSize() {
  const QSizeF cm = PrintCm();
  preview_->SetPage(page_, cm);
  const bool fits = FitsOn(cm, page_.paintRect(QPageLayout::Millimeter).size() / kMmPerCm);
  QPalette colours = palette();
  QString text;
  if (IsReady()) {
    text = PrintSizeText(cm, LanguageLocale(deps_.program.config.LanguageName)) + u"\n  "_s +
           (fits ? tr("Fits on the page") : tr("Larger than the page"));
    colours.setColor(QPalette::Window, fits ? kFits : kTooLarge);
    colours.setColor(QPalette::WindowText, fits ? Qt::black : Qt::white);
  }
  lblSize->setPalette(colours);
  lblSize->setText(text);
  lblSize->setAccessibleName(text.simplified());
  // A screen reader follows the slider, not a label that changes.
  Slider1->setAccessibleDescription(text.simplified());
}

void Form21::ShowTexts() {
  const LanguageTexts& texts = deps_.program.language;
  setWindowTitle(u"Omni-Perch  "_s + texts[TextLine::kPopupPrint].trimmed());
  setAccessibleName(windowTitle());
  const QString caption = texts[TextLine::kPrintSize].trimmed();
  caption_->setText(caption);
  Slider1->setAccessibleName(caption + u" (cm)"_s);
  cmdPrint->setText(texts[TextLine::kPopupPrint].trimmed());
  cancel_->setText(tr("Cancel the print"));
  preview_->setAccessibleName(tr("Preview of the page") + (picture_.name.isEmpty() ? QString() : u": "_s) +
                              picture_.name);
  ShowSize();
  switch (shownState_) {
    case State::Idle:
      return ShowState(page_.isValid() ? QString() : tr("Waiting for the printer ..."));
    case State::Loading:
      return ShowState(tr("The picture is being read ..."));
    case State::Printing:
      return ShowState(tr("Printing ..."));
    case State::NoPrinter:
      return ShowState(tr("There is no printer."));
    case State::Ended:
      return ShowState(TextOf(end_, file_));
  }
}

void Form21::ShowState(const QString& text) {
  const bool printing = shownState_ == State::Printing;
  state_->setText(text);
  state_->setAccessibleName(text);
  cmdPrint->setAccessibleDescription(text);
  cmdPrint->setEnabled(IsReady() && !printing);
  // The focus stays in the row when the button that has it goes.
  if (!printing && cancel_->hasFocus()) cmdPrint->setFocus();
  cancel_->setVisible(printing);
}

QString Form21::TextOf(PrintEnd end, const QString& file) {
  switch (end) {
    case PrintEnd::Printed:
      return file.isEmpty() ? tr("The picture has gone to the printer.")
                            : tr("Written: %1").arg(QDir::toNativeSeparators(file));
    case PrintEnd::Cancelled:
      return tr("The print was cancelled.");
    case PrintEnd::NotDecoded:
      return tr("This picture cannot be printed: it cannot be decoded.");
    case PrintEnd::NotPrinted:
      return tr("The printer does not take the picture.");
    case PrintEnd::NotWritten:
      break;
  }
  return tr("This file could not be written: %1").arg(QDir::toNativeSeparators(file));
}

void Form21::Print() {
  // The dialog turns the event loop: the window may be gone afterwards, or have another picture.
  const QPointer<Form21> self(this);
  // A printer belongs to its job, and to make another one asks the print server. So does the dialog, however.
  if (printer_ == nullptr) printer_ = std::make_shared<QPrinter>(QPrinter::HighResolution);
  const PrintJobs::Printer printer = printer_;
  const QByteArray bytes = picture_.bytes;
  if (!printerName_.isEmpty()) printer->setPrinterName(printerName_);
  printer->setPageLayout(page_);
  // The dialog makes the name of a file out of it, and captions of pictures hold whatever their senders like.
  printer->setDocName(HarmlessName(picture_.name));
  const bool accepted = deps_.dialogs.PrintDialog(this, *printer);
  if (self == nullptr || !accepted) return;
  printer_.reset();
  page_ = printer->pageLayout();
  printerName_ = printer->printerName();
  shownState_ = State::NoPrinter;
  if (!printer->outputFileName().isEmpty() || !printerName_.isEmpty()) {
    shownState_ = State::Printing;
    job_ = deps_.jobs.Print({bytes, Slider1->value(), printer});
  }
  ShowTexts();
}

void Form21::JobEnded(int job, PrintEnd end, const QString& file) {
  if (job != job_) return;
  shownState_ = State::Ended;
  end_ = end;
  file_ = file;
  ShowTexts();
}

void Form21::closeEvent(QCloseEvent* event) {
  wanted_.Withdraw();
  StoredSettings(deps_.store).SetNumber(Setting::PrintSize, Slider1->value());
  deps_.store.SaveLater(deps_.background);
  BaseWindow::closeEvent(event);
}
