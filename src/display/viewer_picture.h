// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that a viewer shows, and how it comes: its bytes are read and kept, glanced at in the size of the window,
// and then decoded in full resolution, all beside the event loop. Form2 owns one, the comparison two.
#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSize>
#include <QString>

#include "core/program.h"
#include "display/picture_scales.h"
#include "display/picture_source.h"
#include "platform/background.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// What is said of a picture: site, sender, mode, time, and its size where it is known; none of them empty.
QStringList DetailsOf(const Program& program, const SourcePicture& picture, QSize size);

// One picture at a time. What it shows stays until another has been decoded.
class ViewerPicture : public QObject {
  Q_OBJECT

 public:
  // What it works with; all outlive it.
  struct Dependencies {
    PictureTool& tool;
    Background& background;  // reads the file, makes halved copies
  };

  explicit ViewerPicture(const Dependencies& services, QObject* parent = nullptr);

  // Begins to load a picture; one that is being loaded is given up. box: pixels of the first decode.
  void Load(const SourcePicture& source, QSize box);
  void GiveUp() { wanted_.Withdraw(); }

  // Of the picture that is shown; empty before the first.
  const SourcePicture& Source() const { return shown_.source; }
  const QByteArray& Bytes() const { return shown_.bytes; }
  const QString& Type() const { return shown_.type; }
  QSize Size() const { return shown_.size; }
  const PictureScales& Scales() const { return shown_.scales; }
  const QList<PictureFrame>& Frames() const { return shown_.frames; }
  // False while it waits for the full resolution.
  bool IsWhole() const { return shown_.whole; }

 Q_SIGNALS:
  // The file has been read, and is not a film by its type.
  void TypeKnown(const QString& type);
  // The size that the picture claims, before it is decoded; not emitted where it is shown already.
  void SizeKnown(const SourcePicture& source, QSize size);
  // Another picture is shown, perhaps reduced.
  void Shown();
  // The same picture in full resolution.
  void Sharpened();
  void IsFilm(const SourcePicture& source);
  // The file is gone or cannot be decoded; noSandbox: nothing can be, on this system.
  void Failed(const SourcePicture& source, bool noSandbox);

 private:
  // What is known of one picture.
  struct Picture {
    SourcePicture source;
    QByteArray bytes;
    QString type;
    QSize size;
    PictureScales scales;
    QList<PictureFrame> frames;
    bool whole = false;
  };

  void Read(const Picture& picture, QSize box, const Wanted::Token& token);
  void AskSize(const Picture& picture, const Wanted::Token& token);
  void Glanced(const Picture& picture, const PictureAnswer& answer, const Wanted::Token& token);
  void AskWhole(const Wanted::Token& token);
  void TakeWhole(const PictureAnswer& answer, const Wanted::Token& token);
  PictureOptions OptionsOf(const SourcePicture& source, const Wanted::Token& token) const;

  Dependencies services_;
  Picture shown_;
  Wanted wanted_;         // the picture asked for last
  bool awaited_ = false;  // and neither shown yet nor given up
};
