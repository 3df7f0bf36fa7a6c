// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/picture_actions.h"

#include "ui/msg_box_timed.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr auto kNoticeTime = 8s;
}  // namespace

PictureActions::PictureActions(const Dependencies& dependencies)
    : QObject(dependencies.mainWindow),
      deps_(dependencies),
      files_({dependencies.services.tool, dependencies.services.background}),
      copy_({dependencies.services.tool, dependencies.services.background, dependencies.services.run.appDataDir}) {
  RegisterCommands();
}

void PictureActions::RegisterCommands() {
  Commands& commands = deps_.services.commands;
  const auto does = [this, &commands](Command command, void (PictureActions::*handler)(const MenuChoice&)) {
    commands.Register(command, this, [this, handler](const MenuChoice& choice) { (this->*handler)(choice); });
  };
  does(Command::CopyPicture, &PictureActions::CopyPicture);
  does(Command::CopyOperatorPicture, &PictureActions::CopyPicture);
}

void PictureActions::FindSourceFile(const MenuChoice& choice, const SourceFiles::Found& found) {
  const PictureSource& source = choice.subject.source;
  // What the viewer shows need not be its cell's picture any more.
  if (const auto* viewer = qobject_cast<const Form2*>(choice.owner.data())) {
    return files_.TakeBytes(viewer->Shown().Source(), viewer->Shown().Bytes(), this, found);
  }
  if (const auto* lookup = qobject_cast<const Form12*>(choice.owner.data())) {
    if (choice.command != Command::CopyOperatorPicture) return FindDesktopBmp(*lookup, found);
    SourcePicture picture;
    picture.file = lookup->PicturePath();
    picture.site = lookup->Call();
    return files_.FindSourceFile(picture, this, found);
  }
  if (const auto* history = qobject_cast<const Form15*>(choice.owner.data())) {
    if (source.slot >= 0 && source.slot < history->Pictures().Count()) {
      files_.FindSourceFile(history->Pictures().PictureOf(source.slot), this, found);
    }
    return;
  }
  if (source.window == PictureSource::Window::Page && deps_.logic.grid.HasSlot(source.slot)) {
    files_.FindSourceFile(deps_.logic.click.PictureOf(source.slot), this, found);
  }
}

void PictureActions::FindDesktopBmp(const Form12& window, const SourceFiles::Found& found) {
  SourcePicture picture;
  picture.file = deps_.services.run.appDataDir + u"/images/Desktop.bmp"_s;
  picture.site = window.Call();
  deps_.services.tool.Convert(window.PicturePath(), picture.file, this,
                              [this, picture, found](const PictureAnswer& answer) {
                                if (!answer.ok) return found(SourceFile{picture, {}, {}, {}, false});
                                files_.FindSourceFile(picture, this, found);
                              });
}

void PictureActions::Tell(const MenuChoice& choice, const QString& text) const {
  auto* owner = qobject_cast<QWidget*>(choice.owner.data());
  const bool seen = owner != nullptr && owner->isVisible();
  frmMsgBoxTimed::ShowMsg(seen ? owner : deps_.mainWindow, text, kNoticeTime);
}

void PictureActions::CopyPicture(const MenuChoice& choice) {
  FindSourceFile(choice, [this, choice](const SourceFile& file) {
    copy_.CopyPicture(file, [this, choice](CopyResult result) {
      if (result == CopyResult::NotDecoded) Tell(choice, tr("This picture cannot be copied: it cannot be decoded."));
    });
  });
}
