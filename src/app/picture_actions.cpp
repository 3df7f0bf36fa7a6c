// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/picture_actions.h"

#include <QFileInfo>
#include <QPointer>

#include "display/picture_bytes.h"
#include "display/save_all_line.h"
#include "platform/desktop_places.h"
#include "platform/whole_file.h"
#include "ui/msg_box_timed.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr auto kNoticeTime = 8s;
constexpr auto kDoneTime = 3s;
}  // namespace

PictureActions::PictureActions(const Dependencies& dependencies)
    : QObject(dependencies.mainWindow),
      deps_(dependencies),
      files_({dependencies.services.tool, dependencies.services.background}),
      copy_({dependencies.services.tool, dependencies.services.background, dependencies.services.run.appDataDir}),
      drag_(files_, writer_, this) {
  RegisterCommands();
  connect(&saveAll_, &SaveAll::Ended, this, &PictureActions::SaveAllEnded);
  Windows& windows = deps_.windows;
  connect(&windows, &Windows::MapCopyWanted, this, &PictureActions::CopyImage);
  connect(&windows, &Windows::MapSaveWanted, this,
          [this](const QImage& seen, QWidget* window) { SaveImageAs(seen, window->windowTitle(), window); });
  connect(&windows, &Windows::HistoryDragWanted, this, &PictureActions::Drag);
  connect(&windows, &Windows::HistorySaveWanted, this, &PictureActions::SaveAllPictures);
}

void PictureActions::RegisterCommands() {
  Commands& commands = deps_.services.commands;
  const auto does = [this, &commands](Command command, void (PictureActions::*handler)(const MenuChoice&)) {
    commands.Register(command, this, [this, handler](const MenuChoice& choice) { (this->*handler)(choice); });
  };
  does(Command::CopyPicture, &PictureActions::CopyPicture);
  does(Command::SaveToDesktop, &PictureActions::SaveToDesktop);
  does(Command::SavePictureAs, &PictureActions::SaveAs);
  does(Command::MailPicture, &PictureActions::MailPicture);
  does(Command::ShowPictureInfo, &PictureActions::ShowInfo);
  does(Command::CopyOperatorPicture, &PictureActions::MnuPicClick);
  does(Command::SaveOperatorPictureToDesktop, &PictureActions::MnuPicClick);
  does(Command::SaveOperatorPictureAs, &PictureActions::MnuPicClick);
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
                                if (answer.notStored) return TellSaved(deps_.mainWindow, {picture.file, false});
                                if (!answer.ok) return found(SourceFile{picture, {}, {}, {}, false});
                                files_.FindSourceFile(picture, this, found);
                              });
}

QWidget* PictureActions::WindowOf(const MenuChoice& choice) const {
  auto* owner = qobject_cast<QWidget*>(choice.owner.data());
  return owner != nullptr && owner->isVisible() ? owner : deps_.mainWindow;
}

void PictureActions::Tell(const MenuChoice& choice, const QString& text) const {
  TellWindow(WindowOf(choice), text);
}

void PictureActions::TellWindow(QWidget* window, const QString& text) {
  frmMsgBoxTimed::ShowMsg(window, text, kNoticeTime);
}

void PictureActions::TellSaved(QWidget* window, const SavedCopy& copy) {
  if (copy.saved) {
    frmMsgBoxTimed::ShowDone(window, tr("Saved as %1").arg(copy.path), kDoneTime);
  } else {
    TellWindow(window, tr("This file could not be written: %1").arg(copy.path));
  }
}

void PictureActions::CopyThen(const MenuChoice& choice, const std::function<void()>& then) {
  // Of two copies the one that was chosen last holds, however long the look at either file takes.
  const Wanted::Token token = copyWanted_.Ask();
  FindSourceFile(choice, [this, choice, then, token](const SourceFile& file) {
    if (!token.StillWanted()) return;
    const auto copied = [this, choice, then](CopyResult result) {
      if (result == CopyResult::NotDecoded) Tell(choice, tr("This picture cannot be copied: it cannot be decoded."));
      if (result == CopyResult::Copied) then();
    };
    deps_.windows.Paste().WhenFree(this, [this, file, copied]() { copy_.CopyPicture(file, copied); });
  });
}

void PictureActions::MnuPicClick(const MenuChoice& choice) {
  if (choice.index == 0) CopyPicture(choice);
  if (choice.index == 1) SaveToDesktop(choice);
  if (choice.index == 3) SaveAs(choice);
}

void PictureActions::CopyPicture(const MenuChoice& choice) {
  CopyThen(choice, []() {});
}

void PictureActions::MailPicture(const MenuChoice& choice) {
  CopyThen(choice, [this, choice]() {
    SendMail({}, {}, {}, {}, {}, this, [this, choice](bool opened) {
      if (!opened) Tell(choice, tr("There is no program for mail. The picture is on the clipboard."));
    });
  });
}

void PictureActions::SaveToDesktop(const MenuChoice& choice) {
  FindSourceFile(choice, [this, choice](const SourceFile& file) {
    if (file.Vanished()) return;
    FindDesktopFolder(this, [this, choice, file](const QString& folder) {
      writer_.Run<SavedCopy>(
          this, [file, folder]() { return SaveNumbered(folder, file.Extension(), file.bytes); },
          [this, choice](const SavedCopy& copy) { TellSaved(WindowOf(choice), copy); });
    });
  });
}

void PictureActions::SaveAs(const MenuChoice& choice) {
  FindSourceFile(choice, [this, choice](const SourceFile& file) {
    if (!file.Vanished()) SaveFileAs(file, SuggestedName(file), WindowOf(choice));
  });
}

void PictureActions::SaveFileAs(const SourceFile& file, const QString& name, QWidget* window) {
  const QString extension = file.Extension();
  Program& program = deps_.services.program;
  const QPointer<PictureActions> self = this;
  const QPointer<QWidget> owner = window;
  const QString path = deps_.services.dialogs.AskSaveFile(window, program.SaveDir, name + u'.' + extension,
                                                          u"%1 files (*.%1)"_s.arg(extension));
  // The program may have been closed while the dialog was open.
  if (self == nullptr || path.isEmpty()) return;
  program.SaveDir = QFileInfo(path).path();
  writer_.Run<SavedCopy>(
      this, [path, bytes = file.bytes]() { return SaveOver(path, bytes); },
      [this, owner](const SavedCopy& copy) {
        if (!copy.saved) TellSaved(owner != nullptr ? owner.data() : deps_.mainWindow, copy);
      });
}

void PictureActions::CopyImage(const QImage& image, QWidget* window) {
  const auto copied = [owner = QPointer(window)](CopyResult result) {
    if (result == CopyResult::Copied && owner != nullptr) {
      frmMsgBoxTimed::ShowDone(owner, tr("The picture is on the clipboard."), kDoneTime);
    }
  };
  deps_.windows.Paste().WhenFree(this, [this, image, copied]() { copy_.CopyImage(image, copied); });
}

void PictureActions::SaveImageAs(const QImage& image, const QString& name, QWidget* window) {
  SourcePicture picture;
  picture.file = deps_.services.run.appDataDir + u"/images/Map.bmp"_s;
  writer_.Run<QByteArray>(
      this,
      [image, path = picture.file]() {
        QByteArray bmp = BmpOf(image);
        const QString part = PartPath(path);
        if (WriteWhole(part, bmp)) PutInPlace(part, path);
        return bmp;
      },
      [this, picture, name, owner = QPointer(window)](const QByteArray& bmp) {
        if (owner == nullptr) return;
        files_.TakeBytes(picture, bmp, this, [this, name, owner](const SourceFile& file) {
          if (owner != nullptr && !file.Vanished()) SaveFileAs(file, HarmlessName(name), owner);
        });
      });
}

void PictureActions::SaveAllPictures(const PictureList& list, QWidget* window) {
  if (saveAll_.Busy() || list.pictures.isEmpty()) return;
  Program& program = deps_.services.program;
  const QPointer<PictureActions> self = this;
  const QPointer<QWidget> owner = window;
  // Before the dialog: what the list says of a picture holds for the file of now.
  const QList<SaveAll::OpenPicture> pictures = SaveAll::OpenAll(list);
  const QString folder = deps_.services.dialogs.AskFolder(window, program.SaveDir);
  if (self == nullptr || folder.isEmpty()) return;
  program.SaveDir = folder;
  saveAllWindow_ = owner != nullptr ? owner.data() : deps_.mainWindow;
  saveAll_.Start(pictures, folder);
  if (saveAll_.Busy()) new SaveAllLine(saveAll_, saveAllWindow_);
}

void PictureActions::SaveAllEnded(const QString& failed) {
  QWidget* window = saveAllWindow_ != nullptr ? saveAllWindow_.data() : deps_.mainWindow;
  if (!failed.isEmpty()) return TellSaved(window, {failed, false});
  frmMsgBoxTimed::ShowDone(window, tr("%1 of %2 pictures have been saved").arg(saveAll_.Saved()).arg(saveAll_.Count()),
                           kDoneTime);
}

void PictureActions::ShowInfo(const MenuChoice& choice) {
  FindSourceFile(choice, [this, choice](const SourceFile& file) {
    if (!file.Vanished()) deps_.windows.ShowPictureInfo(file, WindowOf(choice));
  });
}
