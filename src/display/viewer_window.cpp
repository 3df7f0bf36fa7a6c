// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/viewer_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QKeyEvent>
#include <QWindow>

#include "page/still_pictures.h"
#include "ui/window_place.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QSize kLeast(160, 90);   // of the client area, for pictures of a line
constexpr auto kLongWait = 250ms;  // after this the window says that it waits
constexpr int kInfoMargin = 8;

// A file that a former version left beside the program.
void RemoveBigPicture(const QString& programDir) {
  if (!programDir.isEmpty()) QFile::remove(programDir + u"/Big.jpg"_s);
}

}  // namespace

Form2::Form2(const Dependencies& services, QWidget* mainWindow)
    : BaseWindow(mainWindow),
      program_(services.program),
      menus_(services.menus),
      picture_(services.picture),
      zoom_(this),
      AniGIF(new PictureCanvas(zoom_, services.drawing, this)),
      lblInfo(new QLabel(AniGIF)) {
  setObjectName(u"Form2"_s);
  AniGIF->setObjectName(u"AniGIF"_s);
  AniGIF->setAccessibleName(tr("Picture"));  // until a picture is shown
  lblInfo->setObjectName(u"lblInfo"_s);
  lblInfo->setAutoFillBackground(true);
  lblInfo->setMargin(kInfoMargin);
  lblInfo->setTextFormat(Qt::PlainText);
  lblInfo->hide();
  TakeMonitor();
  waitTimer_.setSingleShot(true);
  waitTimer_.setInterval(kLongWait);
  connect(&waitTimer_, &QTimer::timeout, this, &Form2::TellWaiting);
  connect(&picture_, &ViewerPicture::TypeKnown, this, [this](const QString& type) { typeKnown_ = !type.isEmpty(); });
  connect(&picture_, &ViewerPicture::SizeKnown, this, &Form2::OpenAhead);
  connect(&picture_, &ViewerPicture::Shown, this, &Form2::TakePicture);
  connect(&picture_, &ViewerPicture::Sharpened, this,
          [this]() { AniGIF->SetPicture(picture_.Frames(), picture_.Scales(), true); });
  connect(&picture_, &ViewerPicture::IsFilm, this, &Form2::TakeFilm);
  connect(&picture_, &ViewerPicture::Failed, this, &Form2::TakeFailure);
  connect(AniGIF, &PictureCanvas::Clicked, this, &Form2::CloseByClick);
  connect(AniGIF, &PictureCanvas::MenuWanted, this, &Form2::OpenMenu);
}

void Form2::Open(const PictureList& pictures) {
  if (!pictures.Holds(pictures.at)) return;
  list_ = pictures;
  stepping_ = false;
  SetTopMost(true);
  TakeMonitor();
  Load(list_.pictures.at(list_.at));
}

void Form2::TakeMonitor() {
  const QRect workArea = MonitorAt(QCursor::pos());
  MonLeft = workArea.left();
  MonTop = workArea.top();
  MonW = workArea.width();
  MonH = workArea.height();
}

void Form2::Step(int by) {
  if (list_.renew) {
    PictureList now = list_.renew();
    now.at = now.pictures.indexOf(list_.pictures.value(list_.at));
    // Another page or another site's history is there by now: this picture has no neighbours any more.
    if (now.at < 0) return;
    list_ = std::move(now);
  }
  if (!list_.Holds(list_.at + by)) return;
  list_.at += by;
  stepping_ = true;
  Load(list_.pictures.at(list_.at));
}

QSize Form2::PictureBox() const {
  const QSize client = FitWindow({}, Monitor(), FrameOf(this), kLeast).size() - FrameOf(this);
  return (QSizeF(client) * devicePixelRatioF()).toSize();
}

void Form2::Load(const SourcePicture& picture) {
  typeKnown_ = false;
  openedAhead_ = false;
  waitTimer_.start();
  picture_.Load(picture, PictureBox());
}

void Form2::TellWaiting() {
  if (!typeKnown_ && !isVisible()) return waitTimer_.start();  // it may be a film, for which no window opens
  note_ = Note::Waiting;
  ShowWindow();
}

// A window system takes as long to open a window as a decoder takes for a small picture: they do it at the same time.
void Form2::OpenAhead(const SourcePicture& picture, QSize size) {
  if (isVisible()) return;
  source_ = picture;
  size_ = size;
  ShowWindow();
  openedAhead_ = true;
  waitTimer_.start();
}

void Form2::TakePicture() {
  note_ = Note::None;
  source_ = picture_.Source();
  size_ = picture_.Size();
  zoom_.SetPicture(QSizeF(size_) / devicePixelRatioF());
  AniGIF->SetPicture(picture_.Frames(), picture_.Scales(), false);
  ShowWindow();
}

void Form2::TakeFilm(const SourcePicture& picture) {
  waitTimer_.stop();
  Q_EMIT FilmFound(picture);
  if (stepping_) {
    note_ = Note::Film;
    source_ = picture;
    size_ = QSize();
    zoom_.SetPicture(imgMp4().size());
    AniGIF->SetPicture({PictureFrame{imgMp4()}}, PictureScales(imgMp4()), false);
    ShowWindow();
    return;
  }
  if (isVisible()) {
    note_ = Note::None;
    ShowTexts();
  } else {
    close();
  }
  Q_EMIT FilmWanted(picture);
}

void Form2::TakeFailure(const SourcePicture& picture, bool noSandbox) {
  note_ = noSandbox ? Note::NoSandbox : Note::Gone;
  source_ = picture;
  size_ = QSize();
  AniGIF->Clear();
  ShowWindow();
}

void Form2::ShowWindow() {
  waitTimer_.stop();
  const bool first = !isVisible();
  if (!first) {
    ShowTexts();
    PlaceWindow();
  }
  if (first) {
    create();
    SetTopMost(true);
    opened_.start();
  }
  show();
  raise();
  activateWindow();
  AniGIF->setFocus();
}

// A flag of the widget would hide the window and make it anew. Without X11 no window can be put above others.
void Form2::SetTopMost(bool topMost) {
  if (windowHandle() == nullptr || QGuiApplication::platformName() != "xcb"_L1) return;
  windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topMost);
}

void Form2::PlaceWindow() {
  // While the picture is awaited, the window stays as it is.
  if (isVisible() && (note_ == Note::Waiting || openedAhead_)) return;
  const QSize frame = FrameOf(this);
  const QRect place = FitWindow(size_, Monitor(), frame, kLeast);
  resize(place.size() - frame);
  AniGIF->setGeometry(rect());
  move(place.topLeft());
}

void Form2::resizeEvent(QResizeEvent* event) {
  BaseWindow::resizeEvent(event);
  AniGIF->setGeometry(rect());
}

QString Form2::NoteText() const {
  switch (note_) {
    case Note::None:
      return {};
    case Note::Film:
      return tr("A film: Return plays it.");
    case Note::Waiting:
      return tr("The picture is being decoded …");
    case Note::Gone:
      return tr("This picture cannot be shown: its file is gone, or damaged.");
    case Note::NoSandbox:
      return tr("Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)");
  }
  return {};
}

QString Form2::Details() const {
  return DetailsOf(program_, source_, size_).join(u"   "_s);
}

void Form2::ShowTexts() {
  const QString details = Details();
  const QString name = details.isEmpty() ? tr("Picture") : details;
  setWindowTitle(u"Omni-Perch  "_s + name);
  setAccessibleName(windowTitle());
  AniGIF->setAccessibleName(name);
  AniGIF->setAccessibleDescription(NoteText());
  AniGIF->SetNote(NoteText());
  lblInfo->setText(DetailsOf(program_, source_, size_).join(u'\n'));
  lblInfo->setAccessibleName(lblInfo->text());
  lblInfo->adjustSize();
}

void Form2::CloseByClick() {
  // The second click of a double-click that has opened the window must not close it.
  if (opened_.hasExpired(QApplication::doubleClickInterval())) close();
}

void Form2::OpenMenu(QPoint at, bool byKeyboard) {
  MenuSubject subject;
  subject.source = source_.source;
  subject.site = source_.site;
  subject.weather = source_.weather;
  subject.caller = source_.sender;
  subject.senderPlace = frameGeometry();
  subject.empty = size_.isEmpty();
  menus_.OpenMenu({.menu = MenuId::Viewer,
                   .subject = subject,
                   .owner = this,
                   .name = AniGIF->accessibleName(),
                   .at = at,
                   .byKeyboard = byKeyboard});
}

void Form2::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (note_ == Note::Film) Q_EMIT FilmWanted(source_);
      close();
      return;
    case Qt::Key_PageUp:
      return Step(-1);
    case Qt::Key_PageDown:
      return Step(1);
    case Qt::Key_I:
      lblInfo->setVisible(!lblInfo->isVisible());
      return;
    default:
      if (!AniGIF->ZoomByKey(event)) BaseWindow::keyPressEvent(event);
  }
}

void Form2::closeEvent(QCloseEvent* event) {
  waitTimer_.stop();
  picture_.GiveUp();
  RemoveBigPicture(program_.ProgramDir);
  BaseWindow::closeEvent(event);
}
