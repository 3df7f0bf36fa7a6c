// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/lookup_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSaveFile>
#include <QVBoxLayout>

#include "callbook/place_page.h"
#include "ui/call_field.h"
#include "ui/window_place.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kClient(350, 200);
constexpr double kUnit = 2.5;            // pixels a unit in which the picture's size is given
constexpr QSizeF kLargestUnits(57, 43);  // the highest picture, see PictureUnits
constexpr int kGap = 4;
constexpr double kCallFont = 1.25;  // times the font of the other lines

QSize PixelsOf(const QSizeF& units) {
  return (units * kUnit).toSize();
}

}  // namespace

Form12::Form12(const Dependencies& dependencies, QWidget* owner)
    : BaseWindow(owner),
      deps_(dependencies),
      session_(dependencies),
      lblCall(new FieldLabel(u"lblCall"_s, this)),
      lblName(new FieldLabel(u"lblName"_s, this)),
      lblAdd1(new FieldLabel(u"lblAdd1"_s, this)),
      lblAdd2(new FieldLabel(u"lblAdd2"_s, this)),
      lblCtry(new FieldLabel(u"lblCtry"_s, this)),
      lblDxAz(new FieldLabel(u"lblDxAz"_s, this)),
      Image1(new PictureButton(u"Image1"_s, this)),
      service_(new ServiceChooser(ServiceSpelling::Lookup, {u"cmdUpdate"_s, u"lblStatus"_s}, this)),
      lblMaps(new BarLabel(u"lblMaps"_s, this)),
      signIn_(dependencies.browser, session_.SignIn(), this) {
  setObjectName(u"Form12"_s);
  SetDefaultButton(service_->FetchButton());
  MakeLayout();
  ConnectSignals();
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
  status->addWidget(service_->Status(), 1);
  status->addWidget(lblMaps);

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(8, 6, 8, 6);
  rows->setSpacing(kGap);
  rows->addWidget(lblCall);
  rows->addLayout(middle, 1);
  rows->addLayout(status);
  rows->addWidget(service_);

  QList<QWidget*> chain{lblCall, lblName, lblAdd1, lblAdd2, lblCtry, lblDxAz};
  chain += service_->TabChain();
  chain += {lblMaps, Image1};
  for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void Form12::ConnectSignals() {
  connect(&session_, &LookupSession::Changed, this, &Form12::ShowView);
  connect(&session_, &LookupSession::FrontWanted, this, &Form12::raise);
  // The desktop's own beep, whose pitch and length the user has chosen.
  connect(&session_, &LookupSession::Beep, this, &QApplication::beep);
  connect(&session_, &LookupSession::LookupStatusChanged, this, &Form12::LookupStatusChanged);
  connect(&session_, &LookupSession::Stored, this, &Form12::Stored);
  connect(service_, &ServiceChooser::Chosen, &session_, &LookupSession::ChooseService);
  connect(service_, &ServiceChooser::FetchWanted, &session_, &LookupSession::Update);
  connect(service_, &ServiceChooser::KeyPressed, &signIn_, &SignInPage::SignInOrOut);
  connect(service_, &ServiceChooser::StatusPressed, this, &Form12::StatusClicked);
  connect(lblMaps, &BarLabel::clicked, this, &Form12::OpenMapsMenu);
  connect(Image1, &PictureButton::clicked, this, &Form12::OpenPicture);
  connect(Image1, &PictureButton::MenuWanted, this, &Form12::OpenPictureMenu);
  const auto does = [this](Command command, auto handler) {
    deps_.commands.Register(command, this, [this, handler](const MenuChoice& choice) { handler(*this, choice); });
  };
  does(Command::ShowCallOnMap, [](Form12& form, const MenuChoice& choice) { form.MnuMapsClick(choice.index); });
  does(Command::SignInOrOut, [](Form12& form, const MenuChoice&) { form.signIn_.SignInOrOut(); });
}

void Form12::Open(const QString& lookupCall, const QRect& besideGlobal) {
  deps_.menus.CloseMenus();
  if (picture_) picture_->close();
  beside_ = besideGlobal;
  service_->SetService(deps_.program.config.CallbookIndex);
  session_.SetPictureBox(PixelsOf(kLargestUnits) * devicePixelRatioF());
  session_.StartLookup(lookupCall);
  if (isVisible()) PositionMe(besideGlobal);
  service_->FetchButton()->setFocus();
  show();
  raise();
  activateWindow();
}

void Form12::PositionMe(const QRect& besideGlobal) {
  layout()->activate();
  // Large fonts and long words need more than the usual size.
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

void Form12::ShowTexts() {
  const LanguageTexts& texts = deps_.program.language;
  // An open menu still has its entries in the former language.
  deps_.menus.CloseMenus();
  service_->ShowTexts(texts[TextLine::kSelectDatabase]);
  lblMaps->SetCaption(texts[TextLine::kMapsWord]);
  session_.ShowTexts();
}

void Form12::ShowView() {
  const LookupView& view = session_.View();
  const LanguageTexts& texts = deps_.program.language;
  const auto role = [&texts](TextLine line) { return RoleOf(texts[line]); };
  setWindowTitle(view.title);
  setAccessibleName(view.title);
  lblCall->SetField(view.call, role(TextLine::kCallLabel));
  lblName->SetField(view.name, role(TextLine::kNameLabel));
  lblAdd1->SetField(view.add1, role(TextLine::kAddressLabel));
  lblAdd2->SetField(view.add2, role(TextLine::kCityLabel));
  lblCtry->SetField(view.ctry, role(TextLine::kCountryLabel));
  lblDxAz->SetField(view.dxAz, tr("Distance and direction"));
  service_->SetFetchCaption(view.updateCaption);
  service_->SetLogin(view.status, session_.SignIn().Offer());
  Image1->SetPicture(view.picture, PixelsOf(view.pictureUnits));
  Image1->setAccessibleName(Form13::PictureName(session_.Call()));
  if (view.busy) {
    setCursor(Qt::BusyCursor);
  } else {
    unsetCursor();
  }
  DescribeView();
}

// Screen readers do not announce a label that has changed. So the texts of the window become the description of the
// fetch button and of the chooser: a screen reader reads that of the focused control when the window opens and whenever
// it changes.
void Form12::DescribeView() {
  QStringList shown;
  for (const FieldLabel* label : {lblCall, lblName, lblAdd1, lblAdd2, lblCtry, lblDxAz}) shown += label->text();
  shown += session_.View().status.trimmed();
  shown.removeAll(QString());
  service_->Describe(shown.join(", "_L1));
}

MenuRequest Form12::Request(MenuId menu, const QString& name, const QPoint& at) {
  MenuRequest request;
  request.menu = menu;
  request.subject.caller = session_.Call();
  request.owner = this;
  request.name = name;
  request.at = at;
  return request;
}

void Form12::OpenMapsMenu() {
  const TargetLocation target = session_.Target();
  MenuRequest request =
      Request(MenuId::LookupMaps, lblMaps->text(), lblMaps->mapToGlobal(QPoint(0, lblMaps->height())));
  request.subject.placed = target.TargetLat != 0 || target.TargetLon != 0;
  request.byKeyboard = !lblMaps->underMouse();
  deps_.menus.OpenMenu(request);
}

void Form12::OpenPictureMenu(const QPoint& at, bool byKeyboard) {
  MenuRequest request = Request(MenuId::LookupPicture, Image1->accessibleName(), at);
  request.byKeyboard = byKeyboard;
  deps_.menus.OpenMenu(request);
}

void Form12::OpenPicture() {
  const QPoint over = Image1->underMouse() ? QCursor::pos() : Image1->mapToGlobal(Image1->rect().center());
  if (!picture_) {
    picture_ = new Form13(deps_.tool, this);
    // A closed window is deleted later, and must not be shown again meanwhile.
    connect(picture_, &BaseWindow::Closed, this, [this]() { picture_.clear(); });
  }
  picture_->ShowPicture(session_.PicturePath(), session_.Call(), over);
}

void Form12::MnuMapsClick(int index) {
  const TargetLocation target = session_.Target();
  if (target.TargetLat == 0 && target.TargetLon == 0) return;
  if (index == 0) {
    Q_EMIT MapWanted(session_.Call(), target.TargetLat, target.TargetLon);
    return;
  }
  // Both other entries open the same page; SatelliteViewUrl decides between coordinates and address.
  Q_EMIT PageViewWanted(SatelliteViewUrl(deps_.hosts, target, session_.Call()));
  close();
}

void Form12::StatusClicked() {
  const SignInOffer offer = session_.SignIn().Offer();
  if (offer.kind != SignInOffer::Kind::SignOut) return signIn_.SignInOrOut();
  const StatusLink* status = service_->Status();
  MenuRequest request = Request(MenuId::SignIn, status->text(), status->mapToGlobal(QPoint(0, status->height())));
  request.subject.offer = offer.text;
  request.byKeyboard = !status->underMouse();
  deps_.menus.OpenMenu(request);
}

void Form12::closeEvent(QCloseEvent* event) {
  deps_.menus.CloseMenus();
  if (picture_) picture_->close();
  session_.EndLookup();
  BaseWindow::closeEvent(event);
}

void Form12::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_F5:
      session_.Update();
      break;
    default:
      BaseWindow::keyPressEvent(event);
  }
}

void Form12::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // Only now is it certain on which monitor, and at which scale, the window is.
  session_.SetPictureBox(PixelsOf(kLargestUnits) * devicePixelRatioF());
}
