// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/lookup_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QCursor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSaveFile>
#include <QVBoxLayout>

#include "ui/window_place.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kClient(350, 200);
constexpr double kUnit = 2.5;            // pixels of a unit of the picture's size
constexpr QSizeF kLargestUnits(57, 43);  // with the band between the two shapes
constexpr QSize kWholePicture(16000, 16000);
constexpr int kGap = 4;
constexpr double kCallFont = 1.25;  // of the font of the other lines

QSize PixelsOf(const QSizeF& units) {
  return (units * kUnit).toSize();
}

}  // namespace

Form12::Form12(const Parts& parts, QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      parts_(parts),
      session_(parts),
      lblCall(new FieldLabel(u"lblCall"_s, this)),
      lblName(new FieldLabel(u"lblName"_s, this)),
      lblAdd1(new FieldLabel(u"lblAdd1"_s, this)),
      lblAdd2(new FieldLabel(u"lblAdd2"_s, this)),
      lblCtry(new FieldLabel(u"lblCtry"_s, this)),
      lblDxAz(new FieldLabel(u"lblDxAz"_s, this)),
      lblStatus(new StatusLink(u"lblStatus"_s, this)),
      Image1(new PictureButton(u"Image1"_s, this)),
      cboDB(new QComboBox(this)),
      cmdSignIn(new QToolButton(this)),
      cmdUpdate(new QPushButton(this)),
      lblMaps(new BarLabel(u"lblMaps"_s, this)),
      menu_(this),
      picture_(parts.tool, this) {
  setObjectName(u"Form12"_s);
  cboDB->setObjectName(u"cboDB"_s);
  cmdSignIn->setObjectName(u"cmdSignIn"_s);
  cmdUpdate->setObjectName(u"cmdUpdate"_s);
  for (int i = 1; i <= kCallbookServices; ++i) cboDB->addItem(FindCallbookService(i)->comboName);
  MakeLayout();
  ConnectParts();
}

void Form12::MakeLayout() {
  QFont callFont = font();
  callFont.setPointSizeF(callFont.pointSizeF() * kCallFont);
  callFont.setBold(true);
  lblCall->setFont(callFont);
  QFont nameFont = font();
  nameFont.setBold(true);
  lblName->setFont(nameFont);

  auto* texts = new QVBoxLayout;
  texts->setSpacing(2);
  for (FieldLabel* label : {lblName, lblAdd1, lblAdd2, lblCtry, lblDxAz}) texts->addWidget(label);
  texts->addStretch(1);
  auto* middle = new QHBoxLayout;
  middle->addLayout(texts, 1);
  middle->addWidget(Image1, 0, Qt::AlignTop);
  auto* status = new QHBoxLayout;
  status->addWidget(lblStatus, 1);
  status->addWidget(lblMaps);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(cboDB);
  bottom->addWidget(cmdSignIn);
  bottom->addStretch(1);
  bottom->addWidget(cmdUpdate);

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(8, 6, 8, 6);
  rows->setSpacing(kGap);
  rows->addWidget(lblCall);
  rows->addLayout(middle, 1);
  rows->addLayout(status);
  rows->addLayout(bottom);

  setTabOrder(cmdUpdate, cboDB);
  setTabOrder(cboDB, cmdSignIn);
  setTabOrder(cmdSignIn, lblStatus);
  setTabOrder(lblStatus, lblMaps);
  setTabOrder(lblMaps, Image1);
}

void Form12::ConnectParts() {
  connect(&session_, &LookupSession::Changed, this, &Form12::ShowView);
  connect(&session_, &LookupSession::FrontWanted, this, &Form12::raise);
  // The desktop's own: how high and how long it sounds is the user's choice.
  connect(&session_, &LookupSession::Beep, this, &QApplication::beep);
  connect(&session_, &LookupSession::Stored, this, &Form12::Stored);
  // Told of the user's choices only; setting the row while a call is opened is none.
  connect(cboDB, &QComboBox::activated, &session_, &LookupSession::ChooseService);
  connect(cmdUpdate, &QPushButton::clicked, &session_, &LookupSession::Update);
  connect(cmdSignIn, &QToolButton::clicked, this, &Form12::SignInOrOut);
  connect(lblStatus, &StatusLink::clicked, this, &Form12::StatusClicked);
  connect(lblMaps, &BarLabel::clicked, this, &Form12::OpenMapsMenu);
  connect(Image1, &PictureButton::clicked, this, &Form12::OpenPicture);
  connect(Image1, &PictureButton::MenuWanted, this, &Form12::OpenPictureMenu);
  connect(&menu_, &frmMenu::Chosen, this, [this](const MenuEntry& entry) { Chosen(entry.index); });
}

void Form12::Open(const QString& lookupCall, const QRect& besideGlobal) {
  menu_.close();
  picture_.Dismiss();
  parts_.program.LookupCall = lookupCall;
  ShowTexts();
  session_.SetPictureBox(PixelsOf(kLargestUnits) * devicePixelRatioF());
  session_.StartLookup();
  PositionMe(besideGlobal);
  cmdUpdate->setFocus();
  show();
  raise();
  activateWindow();
}

void Form12::PositionMe(const QRect& besideGlobal) {
  layout()->activate();
  // Larger fonts and longer words get the room that they need.
  if (!isVisible()) resize(kClient.expandedTo(layout()->minimumSize()));
  move(PlaceBeside(size() + FrameOf(this), besideGlobal));
}

void Form12::PositionMe(const QWidget* caller, const QString& controlName) {
  const auto* control = caller->findChild<QWidget*>(controlName);
  if (control == nullptr) return PositionMe(caller->frameGeometry());
  PositionMe(QRect(control->mapToGlobal(QPoint(0, 0)), control->size()));
}

void Form12::CentrePointer() {
  QCursor::setPos(frameGeometry().center());
}

// What depends on the language and the chosen service.
void Form12::ShowTexts() {
  const LanguageTexts& texts = parts_.program.language;
  cboDB->setAccessibleName(texts[TextLine::kSelectDatabase]);
  cboDB->setToolTip(texts[TextLine::kSelectDatabase]);
  cboDB->setCurrentIndex(parts_.program.config.CallbookIndex - 1);
  lblMaps->SetCaption(texts[TextLine::kMapsWord]);
  cmdSignIn->setIcon(KeySign(palette(), devicePixelRatioF()));
}

void Form12::ShowView() {
  const LookupView& view = session_.View();
  const LanguageTexts& texts = parts_.program.language;
  const auto role = [&texts](TextLine line) { return texts[line].trimmed(); };
  setWindowTitle(view.title);
  setAccessibleName(view.title);
  lblCall->SetField(view.call, role(TextLine::kCallLabel));
  lblName->SetField(view.name, role(TextLine::kNameLabel));
  lblAdd1->SetField(view.add1, role(TextLine::kAddressLabel));
  lblAdd2->SetField(view.add2, role(TextLine::kCityLabel));
  lblCtry->SetField(view.ctry, role(TextLine::kCountryLabel));
  lblDxAz->SetField(view.dxAz, tr("Distance and direction"));
  cmdUpdate->setText(QString(view.updateCaption).replace(u'&', "&&"_L1));
  cmdUpdate->setAccessibleName(view.updateCaption);
  Image1->SetPicture(view.picture, PixelsOf(view.pictureUnits));
  Image1->setAccessibleName(tr("Picture of %1").arg(session_.Call()));
  if (view.busy) {
    setCursor(Qt::BusyCursor);
  } else {
    unsetCursor();
  }
  ShowSignIn();
  TellView();
}

// Nobody hears a label that has changed. What the window shows is therefore the description of the two controls by
// which it is read: of the one in focus a screen reader says it when the window opens and whenever it is another.
void Form12::TellView() {
  QStringList told;
  for (const FieldLabel* label : {lblCall, lblName, lblAdd1, lblAdd2, lblCtry, lblDxAz}) told += label->FullText();
  told += session_.View().status.trimmed();
  told.removeAll(QString());
  const QString text = told.join(", "_L1);
  for (QWidget* control : std::initializer_list<QWidget*>{cmdUpdate, cboDB}) {
    if (control->accessibleDescription() != text) control->setAccessibleDescription(text);
  }
}

void Form12::ShowSignIn() {
  const SignInOffer offer = session_.Offer();
  const bool can = offer.kind != SignInOffer::Kind::None;
  lblStatus->SetStatus(session_.View().status, can ? offer.text : QString());
  cmdSignIn->setEnabled(can);
  cmdSignIn->setAccessibleName(offer.text);
  cmdSignIn->setToolTip(offer.text);
}

void Form12::OpenMenu(int number, const QList<MenuEntry>& entries, const QString& name, const QPoint& at,
                      bool byKeyboard) {
  openMenu_ = number;
  menu_.MakeMenu(entries);
  menu_.setAccessibleName(name);
  menu_.OpenAt(at, byKeyboard ? frmMenu::Opener::Keyboard : frmMenu::Opener::Pointer);
}

void Form12::OpenMapsMenu() {
  const TargetLocation target = session_.Target();
  const bool hasPosition = target.TargetLat != 0 || target.TargetLon != 0;
  OpenMenu(kLookupMapsMenu, LookupMapEntries(parts_.program, session_.Call(), hasPosition), lblMaps->text(),
           lblMaps->mapToGlobal(QPoint(0, lblMaps->height())), !lblMaps->underMouse());
}

void Form12::OpenPictureMenu(const QPoint& at, bool byKeyboard) {
  OpenMenu(kLookupPictureMenu, LookupPictureEntries(parts_.program), Image1->accessibleName(), at, byKeyboard);
}

void Form12::OpenPicture() {
  const QPoint over = Image1->underMouse() ? QCursor::pos() : Image1->mapToGlobal(Image1->rect().center());
  picture_.ShowPicture(session_.PicturePath(), Image1->accessibleName(), over);
}

void Form12::Chosen(int index) {
  switch (openMenu_) {
    case kLookupMapsMenu:
      MnuMapsClick(index);
      break;
    case kLookupPictureMenu:
      MnuPicClick(index);
      break;
    case kSignInMenu:
      SignInOrOut();
      break;
    default:
      break;
  }
}

void Form12::MnuMapsClick(int index) {
  const TargetLocation target = session_.Target();
  if (target.TargetLat == 0 && target.TargetLon == 0) return;
  if (index == 0) {
    parts_.program.TargetLat = target.TargetLat;
    parts_.program.TargetLon = target.TargetLon;
    Q_EMIT MapWanted(session_.Call());
    return;
  }
  // By coordinates or by address: both entries open the same, the place decides.
  parts_.program.PageViewUrl = SatelliteViewUrl(parts_.hosts, target, session_.Call());
  Q_EMIT PageViewWanted();
  close();
}

void Form12::MnuPicClick(int index) {
  if (index == 0) CopyPicture();
  if (index == 3) SavePicture();
}

void Form12::WithWholePicture(const std::function<void(const QImage&)>& then) {
  parts_.tool.View(session_.PicturePath(), kWholePicture, this, [then](const PictureAnswer& answer) {
    if (answer.ok && !answer.frames.isEmpty()) then(answer.frames.first().image);
  });
}

void Form12::CopyPicture() {
  WithWholePicture([](const QImage& picture) {
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setImage(picture);
  });
}

void Form12::SavePicture() {
  // The dialog lists bitmaps by its filter; a name of "*.bmp" in its field would be taken for one to save under.
  const QString path =
      parts_.dialogs.AskSaveFile(this, parts_.program.SaveDir, session_.Call() + u".bmp"_s, u"bmp files (*.bmp)"_s);
  if (path.isEmpty()) return;
  WithWholePicture([this, path](const QImage& picture) {
    const auto write = [path, picture]() {
      QSaveFile file(path);
      return file.open(QIODevice::WriteOnly) && picture.save(&file, "BMP") && file.commit();
    };
    parts_.background.Run<bool>(this, write, [](bool) {});
  });
}

void Form12::StatusClicked() {
  const SignInOffer offer = session_.Offer();
  if (offer.kind != SignInOffer::Kind::SignOut) return SignInOrOut();
  MenuEntry entry;
  entry.text = offer.text;
  OpenMenu(kSignInMenu, {entry}, lblStatus->text(), lblStatus->mapToGlobal(QPoint(0, lblStatus->height())),
           !lblStatus->underMouse());
}

void Form12::SignInOrOut() {
  switch (session_.Offer().kind) {
    case SignInOffer::Kind::SignIn:
      SignIn();
      break;
    case SignInOffer::Kind::SignOut:
      SignOut();
      break;
    case SignInOffer::Kind::None:
      break;
  }
}

void Form12::SignIn() {
  BrowserWindows* browser = parts_.browser();
  if (browser == nullptr) {
    parts_.dialogs.Inform(this, tr("The window for web pages could not be opened."), true);
    return;
  }
  connect(browser, &BrowserWindows::Closed, this, &Form12::BrowserClosed, Qt::UniqueConnection);
  signInTitle_ = parts_.program.config.CallbookName;
  session_.AwaitSignIn();
  browser->OpenPage(signInTitle_, session_.SignInUrl());
}

void Form12::BrowserClosed(const QString& title) {
  if (title == signInTitle_) session_.SignInClosed();
}

void Form12::SignOut() {
  // The browser keeps cookies of its own: they go first, so that none of them comes back.
  parts_.forget(session_.SignInUrl());
  session_.SignOut();
}

void Form12::closeEvent(QCloseEvent* event) {
  menu_.close();
  picture_.Dismiss();
  session_.EndLookup();
  QWidget::closeEvent(event);
  Q_EMIT Closed();
}

void Form12::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      close();
      break;
    case Qt::Key_F5:
      session_.Update();
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // Not all desktops let it press a button.
      if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) button->click();
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void Form12::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // A monitor of another scale may have become known only now.
  session_.SetPictureBox(PixelsOf(kLargestUnits) * devicePixelRatioF());
}
