// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures as amateurs send them, painted by code: a scene, the texts upon it, a file type, and the text that the
// receiving program leaves at the file's end. Stations ask for them; tests make single ones. Safe on any thread.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

// File types of pictures.
enum class PictureType { Any, Jpeg, Jp2, J2kCodestream, Png, Gif, AnimatedGif, Bmp, Mp4 };

// What follows behind the picture in its file.
enum class TailStyle {
  Full,   // three NULs, then 60 characters: caller * mode and signal * date and time
  Stars,  // the same, with a counter and "***" before the caller
  Short,  // three NULs, then the text without blanks behind it
  None
};

// What a picture is to be; whatever is left open follows from the seed.
struct PictureRecipe {
  quint32 seed = 1;
  PictureType type = PictureType::Any;  // Any: by seed
  QSize size{};                         // empty: by seed
  QString scene{};                      // one of SceneNames(); empty: by seed
  QString caller{};                     // empty: by seed
  QString mode{};                       // "EP", "EPH" (EP by hybrid), "FT8", ...; empty: by seed
  int snr = 0;                          // dB; 0: by seed
  TailStyle tail = TailStyle::Full;
  QDateTime sent{};  // UTC, told in the tail; invalid: now
};

QStringList SceneNames();
// Only the painting: scene and texts.
QImage PaintPicture(const PictureRecipe& recipe);
// The whole file, tail included.
QByteArray MakePicture(const PictureRecipe& recipe);
// Only the tail, as MakePicture puts it behind the picture.
QByteArray MakeTail(const PictureRecipe& recipe);
