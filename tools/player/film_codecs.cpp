// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_codecs.h"

#include <QLibrary>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// One piece that plays a part in a film, and the package that brings it.
struct Piece {
  const char* element;
  const char* package;
  const char* ending;  // of the films that need it; empty: all
};

constexpr const char* kBase = "gstreamer1.0-plugins-base";
constexpr const char* kGood = "gstreamer1.0-plugins-good";
constexpr const char* kBad = "gstreamer1.0-plugins-bad";

constexpr std::array kPieces = {
    Piece{"playbin", kBase, ""},    Piece{"uridecodebin", kBase, ""},  Piece{"videoconvert", kBase, ""},
    Piece{"videoscale", kBase, ""}, Piece{"audioconvert", kBase, ""},  Piece{"audioresample", kBase, ""},
    Piece{"volume", kBase, ""},     Piece{"autoaudiosink", kGood, ""}, Piece{"avidemux", kGood, "avi"},
    Piece{"qtdemux", kGood, "mp4"}, Piece{"mpegpsdemux", kBad, "mpg"}, Piece{"tsdemux", kBad, "mpg"},
};

// The few functions of GStreamer that are asked here. It is loaded at run time: the player needs no package of it to be
// built, and starts without it.
class Registry {
 public:
  Registry() : library_(u"gstreamer-1.0"_s, 0) {
    using Init = int (*)(int*, char***, void*);
    const auto init = reinterpret_cast<Init>(library_.resolve("gst_init_check"));
    find_ = reinterpret_cast<Find>(library_.resolve("gst_element_factory_find"));
    unref_ = reinterpret_cast<Unref>(library_.resolve("gst_object_unref"));
    isThere_ = init != nullptr && find_ != nullptr && unref_ != nullptr && init(nullptr, nullptr, nullptr) != 0;
  }

  bool IsThere() const { return isThere_; }
  bool Has(const char* element) const {
    if (!isThere_) return false;
    void* factory = find_(element);
    if (factory == nullptr) return false;
    unref_(factory);
    return true;
  }

 private:
  using Find = void* (*)(const char*);
  using Unref = void (*)(void*);

  QLibrary library_;
  Find find_ = nullptr;
  Unref unref_ = nullptr;
  bool isThere_ = false;
};

}  // namespace

QStringList MissingPackages(const QString& ending) {
  const Registry registry;
  if (!registry.IsThere()) return {u"libgstreamer1.0-0"_s};
  QStringList packages;
  for (const Piece& piece : kPieces) {
    const auto needed = QLatin1StringView(piece.ending);
    if ((needed.isEmpty() || ending == needed) && !registry.Has(piece.element))
      packages.append(QString::fromLatin1(piece.package));
  }
  packages.removeDuplicates();
  return packages;
}

bool HasCommonDecoders() {
  return Registry().Has("avdec_h264");
}
