// SPDX-License-Identifier: GPL-3.0-or-later
// The text of frmInfo: what is told of a picture's file, in the order and words in which users know it. The window asks
// for it when the decoder has read the file's facts.
#pragma once

#include <QByteArray>
#include <QLocale>
#include <QSize>
#include <QString>

#include "display/source_file.h"

// size: pixels, empty where they are not known. facts: as PictureTool::ReadFacts gives them; may be empty. The lines
// end in CR LF; more comments than anybody reads are left out.
QString PictureInfoText(const SourceFile& file, QSize size, const QByteArray& facts, const QLocale& locale);
