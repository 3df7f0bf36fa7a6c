// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/picture_transfer.h"

#include "station/callsign.h"

using namespace Qt::StringLiterals;

PictureTransfer::PictureTransfer(Services& services, Windows& windows, PictureActions& pictures, QWidget* mainWindow)
    : QObject(mainWindow), services_(services), windows_(windows), pictures_(pictures) {
  const auto does = [this](Command command, void (PictureTransfer::*handler)(const MenuChoice&)) {
    services_.commands.Register(command, this, [this, handler](const MenuChoice& choice) { (this->*handler)(choice); });
  };
  does(Command::PasteToEasyPal, &PictureTransfer::PasteToEasyPal);
  does(Command::PasteOperatorPicture, &PictureTransfer::PasteOperatorPicture);
  does(Command::PrintPicture, &PictureTransfer::Print);
  does(Command::PrintOperatorPicture, &PictureTransfer::Print);
}

void PictureTransfer::PasteToEasyPal(const MenuChoice& choice) {
  pictures_.FindSourceFile(choice, [this, choice](const SourceFile& file) { Paste(file, choice); });
}

// EasyPal takes the picture from the clipboard; Ham.bmp is given for whoever reads it there.
void PictureTransfer::PasteOperatorPicture(const MenuChoice& choice) {
  const auto* window = qobject_cast<const Form12*>(choice.owner.data());
  if (window == nullptr) return;
  MenuChoice whole = choice;
  whole.command = Command::CopyOperatorPicture;  // the picture itself, not Desktop.bmp
  pictures_.FindSourceFile(whole, [this, whole](const SourceFile& file) {
    if (file.Vanished()) return;
    const auto paste = [this, whole, file](const PictureAnswer& answer) {
      if (answer.ok || answer.notStored) Paste(file, whole);
    };
    services_.tool.Convert(file.path, services_.run.appDataDir + u"/Ham.bmp"_s, this, paste);
  });
}

void PictureTransfer::Paste(const SourceFile& file, const MenuChoice& choice) {
  if (file.Vanished()) return;
  const auto copy = [this, file, choice](const std::function<void(bool)>& done) {
    pictures_.Clipboard().CopyPicture(file, [this, choice, done](CopyResult result) {
      if (result == CopyResult::NotDecoded) {
        pictures_.Tell(choice, tr("This picture cannot be pasted: it cannot be decoded."));
      }
      done(result == CopyResult::Copied);
    });
  };
  windows_.Paste().PasteToEasyPal({file.animated, file.bytes.size()}, copy,
                                  qobject_cast<QWidget*>(choice.owner.data()));
}

void PictureTransfer::PasteImage(const QImage& image, QWidget* over) {
  if (image.isNull()) return;
  const auto copy = [this, image](const std::function<void(bool)>& done) {
    pictures_.Clipboard().CopyImage(image, [done](CopyResult result) { done(result == CopyResult::Copied); });
  };
  windows_.Paste().PasteToEasyPal({}, copy, over);
}

void PictureTransfer::Print(const MenuChoice& choice) {
  pictures_.FindSourceFile(choice, [this](const SourceFile& file) {
    if (file.Vanished()) return;
    const QString call = ShownCall(file.Call(), services_.program.ZeroGlyph);
    windows_.ShowPrint({file.bytes, (call + u' ' + MakeFileStamp(file.SentTime())).trimmed()});
  });
}
