// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_menus.h"

WindowMenus::WindowMenus(Program& program, const Commands& commands, PageLogic& logic, MenuStrip& pic, PageView& picAll,
                         QWidget* window)
    : QObject(window),
      program_(program),
      commands_(commands),
      logic_(logic),
      pic_(pic),
      picAll_(picAll),
      window_(window),
      tables_(program, commands) {
  const auto opens = [this](BarLabel* label, MenuId menu) {
    connect(label, &BarLabel::clicked, this, [this, label, menu]() { OpenAtLabel(label, menu); });
  };
  opens(pic.lblPages, MenuId::Pages);
  opens(pic.lblFind, MenuId::Alphabet);
  opens(pic.lblOnAirNow, MenuId::OnAir);
  opens(pic.lblSetup, MenuId::Setup);
  opens(pic.lblMore, MenuId::More);
  connect(&picAll, &PageView::MenuWanted, this, &WindowMenus::OpenCellMenu);
}

bool WindowMenus::IsOpen() const {
  return menu_ != nullptr && menu_->isVisible();
}

void WindowMenus::CloseMenus() {
  if (menu_ != nullptr) menu_->close();
}

void WindowMenus::OpenAtLabel(BarLabel* label, MenuId menu) {
  openLabel_ = label;
  label->setDown(true);
  // With a click the pointer is on the label; with Return or Space it may be elsewhere.
  OpenMenu({.menu = menu,
            .subject = {},
            .owner = window_,
            .name = label->accessibleName(),
            .at = label->mapToGlobal(QPoint(0, label->height())),
            .byKeyboard = !label->underMouse()});
  if (!IsOpen()) Closing();
}

MenuSubject WindowMenus::SubjectOf(int slot) const {
  MenuSubject subject;
  if (!logic_.grid.HasSlot(slot)) return subject;
  const Cell& cell = logic_.grid.Cells().at(slot);
  subject.source = {PictureSource::Window::Page, slot};
  subject.site = program_.page.Field(slot, SlotCall);
  subject.caller = program_.page.Field(slot, Caller);
  subject.empty = cell.lblCall.isEmpty();
  subject.hasCam = cell.imgCam != CamLight::Hidden;
  subject.camOnly = cell.lblFrom == QLatin1StringView("Cam only");
  subject.weather = !program_.page.OnDsstvPage();
  return subject;
}

void WindowMenus::OpenCellMenu(int slot, QPoint globalPoint, bool byKeyboard) {
  if (!logic_.grid.HasSlot(slot)) return;
  program_.page.SelectedSlot = slot;
  const QString& caption = logic_.grid.Cells().at(slot).lblCall;
  MenuSubject subject = SubjectOf(slot);
  subject.senderPlace = picAll_.SenderPlace(slot);
  OpenMenu({.menu = MenuId::Picture,
            .subject = subject,
            .owner = window_,
            .name = caption.isEmpty() ? program_.language[TextLine::kEmptyCellName] : caption,
            .at = globalPoint,
            .byKeyboard = byKeyboard});
}

void WindowMenus::OpenMenu(const MenuRequest& request) {
  Q_EMIT AboutToOpen();
  // Each window has a menu of its own as a child, so that a screen reader finds the menu below its window.
  menu_ = request.owner->findChild<frmMenu*>(QStringLiteral("frmMenu"), Qt::FindDirectChildrenOnly);
  if (menu_ == nullptr) {
    menu_ = new frmMenu(request.owner);
    connect(menu_, &frmMenu::AboutToClose, this, &WindowMenus::Closing);
  }
  disconnect(menu_, &frmMenu::Chosen, this, nullptr);
  connect(menu_, &frmMenu::Chosen, this,
          [this, subject = request.subject, owner = QPointer<QObject>(request.owner)](const MenuEntry& entry) {
            commands_.Do({entry.command, entry.index, entry.text, subject, owner});
          });
  menu_->MakeMenu(request.menu == MenuId::More ? pic_.MoreEntries() : tables_.Menu(request.menu, request.subject),
                  [this, &request](MenuId menu) { return tables_.Menu(menu, request.subject); });
  menu_->setAccessibleName(request.name);
  menu_->OpenAt(request.at, request.byKeyboard ? frmMenu::Opener::Keyboard : frmMenu::Opener::Pointer);
}

void WindowMenus::Closing() {
  if (openLabel_ != nullptr) openLabel_->setDown(false);
  openLabel_ = nullptr;
}
