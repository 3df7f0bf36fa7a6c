// SPDX-License-Identifier: GPL-3.0-or-later
// The key of a picture's request, by which its answer finds page, slot and site again. Whoever asks for a picture
// writes a key; the intake reads it.
#pragma once

#include <QString>
#include <optional>

// As a text "<page*100+slot>-<site>", or "<page*100+slot>" for the walk over the WX page.
struct PictureKey {
  static constexpr int kNoSite = -1;

  int page = 0;
  int slot = 0;        // 0-based
  int site = kNoSite;  // index into Sites, on the WX page into WxSites

  QString Text() const;
  // Nothing if the text is no key.
  static std::optional<PictureKey> Read(const QString& text);
};
