// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_window.h"

#include <QAudioDevice>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMediaDevices>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "film_codecs.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kTick = 100ms;  // of Timer6
constexpr auto kLate = 500ms;  // after this the window shows, though no picture is there
constexpr auto kStall = 5s;    // after this the film counts as one that does not begin
constexpr auto kRest = 3s;
constexpr auto kLeastStep = 1s;  // back and forward go by a tenth of the film, within these limits
constexpr auto kLargestStep = 10s;
constexpr auto kLastPicture = 50ms;  // before the end
constexpr int kVolumeStep = 5;
constexpr double kOfScreen = 0.9;
constexpr int kLeastWidth = 480;     // pixels
constexpr QSize kUnknown(640, 360);  // of the picture part, as long as nothing has been decoded

}  // namespace

frmWmp::frmWmp(const QString& title, const QString& ending)
    : title_(title),
      ending_(ending),
      WMP(new FilmCanvas(this)),
      noteRow_(new QWidget(this)),
      lblNote_(new QLabel(noteRow_)),
      cmdOther_(new QPushButton(noteRow_)),
      picControls(new FilmControls(this)) {
  setObjectName(u"frmWmp"_s);
  WMP->setObjectName(u"WMP"_s);
  lblNote_->setObjectName(u"lblNote"_s);
  cmdOther_->setObjectName(u"cmdOther"_s);
  lblNote_->setWordWrap(true);
  lblNote_->setTextFormat(Qt::PlainText);
  MakeLayout();
  ConnectControls();
  Timer6.setInterval(kTick);
  connect(&Timer6, &QTimer::timeout, this, &frmWmp::ShowState);
  const auto once = [this](QTimer& timer, std::chrono::milliseconds after, auto what) {
    timer.setSingleShot(true);
    timer.setInterval(after);
    connect(&timer, &QTimer::timeout, this, what);
  };
  once(lateTimer_, kLate, [this]() { ShowSized(kUnknown); });
  once(stallTimer_, kStall, [this]() {
    waiting_ = true;
    ShowNote();
  });
  once(restTimer_, kRest, [this]() { picControls->setVisible(!isFullScreen() || picControls->underMouse()); });
  WMP->setMouseTracking(true);
  ShowTexts();
}

void frmWmp::MakeLayout() {
  auto* note = new QHBoxLayout(noteRow_);
  note->setContentsMargins(12, 8, 12, 8);
  note->setSpacing(12);
  note->addWidget(lblNote_, 1);
  note->addWidget(cmdOther_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(WMP, 1);
  column->addWidget(noteRow_);
  column->addWidget(picControls);
  noteRow_->hide();
}

void frmWmp::ConnectControls() {
  connect(picControls, &FilmControls::PauseWanted, this, &frmWmp::TogglePause);
  connect(picControls, &FilmControls::StepWanted, this, &frmWmp::Step);
  connect(picControls, &FilmControls::PlaceWanted, this, &frmWmp::SeekTo);
  connect(picControls, &FilmControls::FullScreenWanted, this, &frmWmp::ToggleFullScreen);
  connect(picControls, &FilmControls::MuteWanted, this, [this]() {
    if (audio_) audio_->setMuted(!audio_->isMuted());
    ShowSound();
  });
  connect(picControls, &FilmControls::VolumeWanted, this, [this](int percent) {
    if (!audio_) return;
    // What is heard as half as loud is much less than half of the amplitude.
    const float heard = static_cast<float>(percent) / 100;
    audio_->setVolume(QAudio::convertVolume(heard, QAudio::LogarithmicVolumeScale, QAudio::LinearVolumeScale));
    ShowSound();
  });
  connect(WMP, &FilmCanvas::DoubleClicked, this, &frmWmp::ToggleFullScreen);
  connect(cmdOther_, &QPushButton::clicked, this, &frmWmp::OtherPlayerWanted);
}

void frmWmp::startup(const QString& path) {
  sink_ = std::make_unique<QVideoSink>();
  player_ = std::make_unique<QMediaPlayer>();
  player_->setVideoSink(sink_.get());
  if (!QMediaDevices::defaultAudioOutput().isNull()) {
    audio_ = std::make_unique<QAudioOutput>();
    player_->setAudioOutput(audio_.get());
  }
  ConnectPlayer();
  lateTimer_.start();
  stallTimer_.start();
  player_->setSource(QUrl::fromLocalFile(path));
  player_->play();
  // Fonts are read while the first picture is being decoded in threads of its own.
  layout()->activate();
  picControls->grab();
}

void frmWmp::ConnectPlayer() {
  connect(sink_.get(), &QVideoSink::videoFrameChanged, this, &frmWmp::TakeFrame);
  connect(player_.get(), &QMediaPlayer::playbackStateChanged, this, &frmWmp::ShowState);
  connect(player_.get(), &QMediaPlayer::hasAudioChanged, this, &frmWmp::TakeSound);
  connect(player_.get(), &QMediaPlayer::durationChanged, this, &frmWmp::ShowState);
  connect(player_.get(), &QMediaPlayer::errorOccurred, this, [this](QMediaPlayer::Error error) {
    if (error != QMediaPlayer::NoError) ShowFault({FilmFault::Kind::Unplayable, {}});
  });
}

void frmWmp::TakeFrame(const QVideoFrame& frame) {
  if (!frame.isValid() || fault_.kind != FilmFault::Kind::None) return;
  const bool first = !WMP->HasFrame();
  WMP->ShowFrame(frame);
  if (!first) return;
  stallTimer_.stop();
  if (std::exchange(waiting_, false)) ShowNote();
  ShowSized(frame.size());
}

void frmWmp::ShowSized(QSize film) {
  lateTimer_.stop();
  layout()->activate();
  const int below = picControls->sizeHint().height() + (noteRow_->isHidden() ? 0 : noteRow_->sizeHint().height());
  const QSize most = (QSizeF(screen()->availableSize()) * kOfScreen).toSize() - QSize(0, below);
  QSize picture = film;
  // A film as small as a stamp would leave no room for the strip.
  if (picture.width() < kLeastWidth) picture = QSizeF(picture).scaled(kLeastWidth, 1e6, Qt::KeepAspectRatio).toSize();
  if (picture.width() > most.width() || picture.height() > most.height()) picture.scale(most, Qt::KeepAspectRatio);
  if (!isFullScreen()) resize(picture.expandedTo({kLeastWidth, WMP->minimumHeight()}) + QSize(0, below));
  if (isVisible()) return;
  QRect place(QPoint(), size());
  place.moveCenter(screen()->availableGeometry().center());
  move(place.topLeft());
  Timer6.start();
  show();
  raise();
  activateWindow();
  WMP->setFocus();
}

void frmWmp::ShowFault(const FilmFault& fault) {
  fault_ = fault;
  stallTimer_.stop();
  Timer6.stop();
  if (player_) player_->stop();
  picControls->ShowPlaying(false);
  picControls->ShowNothing();
  ShowNote();
  ShowSized(WMP->HasFrame() ? WMP->size() : kUnknown);
  if (cmdOther_->isVisible()) cmdOther_->setFocus();
}

void frmWmp::ShowNote() {
  QString text;
  switch (fault_.kind) {
    case FilmFault::Kind::None:
      if (waiting_) text = tr("The film does not begin.");
      break;
    case FilmFault::Kind::NoFile:
      text = tr("This film cannot be played: its file is gone, or too large.");
      break;
    case FilmFault::Kind::NoSandbox:
      text = tr("Films are not played: this system has no sandbox for the player (no seccomp filters).");
      break;
    case FilmFault::Kind::NoPackages:
      text = tr("Films of this kind cannot be played. What is missing: %1").arg(fault_.packages.join(", "_L1));
      break;
    case FilmFault::Kind::Unplayable:
      text = HasCommonDecoders()
                 ? tr("This film cannot be played: it is damaged, or no film.")
                 : tr("This film cannot be played. What may be missing: %1").arg(u"gstreamer1.0-libav"_s);
      break;
  }
  const bool wasFault = fault_.kind != FilmFault::Kind::None;
  lblNote_->setText(text);
  lblNote_->setAccessibleName(text);
  // A broken film may stall its demultiplexer, which then reports no error.
  cmdOther_->setVisible((wasFault || waiting_) && !ending_.isEmpty());
  noteRow_->setVisible(!text.isEmpty());
  WMP->setAccessibleDescription(text);
}

void frmWmp::ShowTexts() {
  setWindowTitle(u"Omni-Perch  "_s + (title_.isEmpty() ? tr("Film") : title_));
  setAccessibleName(windowTitle());
  WMP->setAccessibleName(tr("Film"));
  cmdOther_->setText(tr("Open with the desktop's player"));
  cmdOther_->setAccessibleName(cmdOther_->text());
  ShowNote();
  picControls->ShowTexts();
  ShowSound();
  ShowState();
}

void frmWmp::TakeSound() {
  ShowSound();
}

void frmWmp::ShowSound() {
  QString why;
  if (!audio_) why = tr("There is no sound: this system has no device for it.");
  if (player_ && WMP->HasFrame() && !player_->hasAudio()) why = tr("This film has no sound.");
  const float volume = audio_ ? audio_->volume() : 0;
  const float heard = QAudio::convertVolume(volume, QAudio::LinearVolumeScale, QAudio::LogarithmicVolumeScale);
  picControls->ShowSound(audio_ && audio_->isMuted(), qRound(heard * 100), why);
}

std::chrono::milliseconds frmWmp::Length() const {
  return std::chrono::milliseconds(player_ ? player_->duration() : 0);
}

void frmWmp::ShowState() {
  if (fault_.kind != FilmFault::Kind::None) return;
  if (player_ && wanted_ >= 0ms) player_->setPosition(std::exchange(wanted_, -1ms).count());
  const std::chrono::milliseconds position(player_ ? player_->position() : 0);
  picControls->ShowPlace(std::min(position, std::max(Length(), position)), Length());
  picControls->ShowPlaying(player_ && player_->playbackState() == QMediaPlayer::PlayingState);
}

void frmWmp::TogglePause() {
  if (!player_ || fault_.kind != FilmFault::Kind::None) return;
  if (player_->playbackState() == QMediaPlayer::PlayingState) {
    player_->pause();
  } else {
    player_->play();
  }
}

void frmWmp::Step(int by) {
  if (!player_) return;
  const std::chrono::milliseconds step = std::clamp<std::chrono::milliseconds>(Length() / 10, kLeastStep, kLargestStep);
  SeekTo(std::chrono::milliseconds(player_->position()) + by * step);
}

// The next tick seeks: a pointer that is dragged asks for more places than a film can be decoded at.
void frmWmp::SeekTo(std::chrono::milliseconds position) {
  if (fault_.kind != FilmFault::Kind::None) return;
  // At the very end there is no picture any more.
  wanted_ = std::clamp(position, 0ms, std::max(0ms, Length() - kLastPicture));
}

void frmWmp::ToggleFullScreen() {
  setWindowState(windowState() ^ Qt::WindowFullScreen);
  picControls->ShowFullScreen(isFullScreen());
  WakeControls();
}

void frmWmp::WakeControls() {
  picControls->show();
  restTimer_.stop();
  if (isFullScreen()) restTimer_.start();
}

bool frmWmp::eventFilter(QObject* watched, QEvent* event) {
  const bool awake = event->type() == QEvent::MouseMove || event->type() == QEvent::KeyPress;
  if (awake && isFullScreen()) WakeControls();
  return QWidget::eventFilter(watched, event);
}

void frmWmp::closeEvent(QCloseEvent* event) {
  Timer6.stop();
  event->accept();
  Q_EMIT Closed();
}

bool frmWmp::SoundKey(int key) {
  if (!audio_) return false;
  const float heard =
      QAudio::convertVolume(audio_->volume(), QAudio::LinearVolumeScale, QAudio::LogarithmicVolumeScale);
  const int percent = qRound(heard * 100);
  switch (key) {
    case Qt::Key_M:
      Q_EMIT picControls->MuteWanted();
      return true;
    case Qt::Key_Up:
      Q_EMIT picControls->VolumeWanted(std::min(100, percent + kVolumeStep));
      return true;
    case Qt::Key_Down:
      Q_EMIT picControls->VolumeWanted(std::max(0, percent - kVolumeStep));
      return true;
    default:
      return false;
  }
}

void frmWmp::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      if (isFullScreen()) return ToggleFullScreen();
      close();
      return;
    case Qt::Key_Space:
    case Qt::Key_K:
    case Qt::Key_MediaTogglePlayPause:
      return TogglePause();
    case Qt::Key_J:
    case Qt::Key_Left:
      return Step(-1);
    case Qt::Key_L:
    case Qt::Key_Right:
      return Step(1);
    case Qt::Key_Home:
      return SeekTo(0ms);
    case Qt::Key_End:
      return SeekTo(Length());
    case Qt::Key_F:
    case Qt::Key_F11:
      return ToggleFullScreen();
    default:
      if (!SoundKey(event->key())) QWidget::keyPressEvent(event);
  }
}
