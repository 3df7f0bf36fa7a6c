// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/label_layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

constexpr double kMarkReach = 5;  // a mark's disc and its rim
constexpr double kGap = 6;        // from the middle of a mark to a label beside it
constexpr int kFirstRing = 22;    // from the mark to a label that is led to it
constexpr int kRingStep = 16;
constexpr int kLastRing = 262;  // a longer line is hard to follow
constexpr int kDirections = 24;
constexpr double kLeaderWidth = 1;
constexpr QColor kLeaderColour(70, 70, 70);
constexpr int kCellsAcross = 2048;  // of a grid at most, however large the picture

// Where the middle of a label beside its mark lies, in halves of its size: above and below, at the sides, then slid
// along.
constexpr std::array<QPointF, 20> kSides = {QPointF(0, -1),   QPointF(0, 1),     QPointF(1, 0),     QPointF(-1, 0),
                                            QPointF(0.5, -1), QPointF(-0.5, -1), QPointF(0.5, 1),   QPointF(-0.5, 1),
                                            QPointF(1, -1),   QPointF(-1, -1),   QPointF(1, 1),     QPointF(-1, 1),
                                            QPointF(1, -0.5), QPointF(1, 0.5),   QPointF(-1, -0.5), QPointF(-1, 0.5),
                                            QPointF(0.9, -1), QPointF(-0.9, -1), QPointF(0.9, 1),   QPointF(-0.9, 1)};

// Which parts of the picture are taken: one bit for a cell of two by two pixels, sixty-four of them a word, so that a
// place is tested in some twenty steps.
class TakenCells {
 public:
  explicit TakenCells(const QSize& picture)
      : cell_(std::max(2.0, std::max(picture.width(), picture.height()) / double(kCellsAcross))),
        columns_(static_cast<int>(std::ceil(picture.width() / cell_))),
        rows_(static_cast<int>(std::ceil(picture.height() / cell_))),
        words_((columns_ + 63) / 64),
        bits_(static_cast<std::size_t>(words_) * static_cast<std::size_t>(rows_)) {}

  void Take(const QRectF& place) {
    Visit(place, [](quint64& word, quint64 mask) {
      word |= mask;
      return true;
    });
  }
  bool IsFree(const QRectF& place) {
    return Visit(place, [](const quint64& word, quint64 mask) { return (word & mask) == 0; });
  }
  // The same for the square of one pixel around a point: of a leader line a hundred of them are tested.
  bool IsFreeAt(const QPointF& point) const {
    const auto firstCell = [this](double at) { return static_cast<int>((at - 0.5) * perPixel_); };
    const auto lastCell = [this](double at) { return static_cast<int>((at + 0.5) * perPixel_ - 1e-9); };
    const int right = std::min(lastCell(point.x()), columns_ - 1);
    const int bottom = std::min(lastCell(point.y()), rows_ - 1);
    for (int row = std::max(0, firstCell(point.y())); row <= bottom; ++row) {
      for (int column = std::max(0, firstCell(point.x())); column <= right; ++column) {
        const auto word =
            static_cast<std::size_t>(row) * static_cast<std::size_t>(words_) + static_cast<std::size_t>(column / 64);
        if (((bits_[word] >> (column % 64)) & 1) != 0) return false;
      }
    }
    return true;
  }
  double Cell() const { return cell_; }

 private:
  // Ends with the first word that answers false.
  template <typename Word>
  bool Visit(const QRectF& place, Word word) {
    const int left = std::clamp(static_cast<int>(place.left() / cell_), 0, columns_);
    const int right = std::clamp(static_cast<int>(std::ceil(place.right() / cell_)), 0, columns_);
    const int top = std::clamp(static_cast<int>(place.top() / cell_), 0, rows_);
    const int bottom = std::clamp(static_cast<int>(std::ceil(place.bottom() / cell_)), 0, rows_);
    for (int row = top; row < bottom; ++row) {
      for (int column = left; column < right;) {
        const int bit = column % 64;
        const int count = std::min(64 - bit, right - column);
        const quint64 mask = (~quint64(0) >> (64 - count)) << bit;
        const auto at =
            static_cast<std::size_t>(row) * static_cast<std::size_t>(words_) + static_cast<std::size_t>(column / 64);
        if (!word(bits_[at], mask)) return false;
        column += count;
      }
    }
    return true;
  }

  double cell_;
  double perPixel_ = 1 / cell_;
  int columns_;
  int rows_;
  int words_;  // of a row
  std::vector<quint64> bits_;
};

QRectF Around(const QPointF& point, double reach) {
  return {point - QPointF(reach, reach), QSizeF(2 * reach, 2 * reach)};
}

// All that a label covers: its text, its frame and the frame's width.
QRectF Covered(const MapOverlay::Label& label) {
  const double rim = label.box.isEmpty() ? 0 : label.boxWidth / 2;
  return label.place.united(label.box).adjusted(-rim, -rim, rim, rim);
}

void MoveTo(MapOverlay::Label& label, const QPointF& topLeft) {
  const QPointF by = topLeft - Covered(label).topLeft();
  label.place.translate(by);
  if (!label.box.isEmpty()) label.box.translate(by);
}

// One layout, from the empty picture to the last label.
class Layout {
 public:
  Layout(MapOverlay& overlay, const QSize& picture)
      : overlay_(overlay), picture_(QPointF(0, 0), QSizeF(picture)), covered_(picture), texts_(picture) {}

  LabelCounts Run() {
    std::vector<MapOverlay::Label*> rest = Order();
    LabelCounts counts;
    const auto place = [&rest](const auto& placed) {
      return static_cast<qsizetype>(
          std::erase_if(rest, [&placed](MapOverlay::Label* label) { return placed(*label); }));
    };
    counts.beside = place([this](MapOverlay::Label& label) { return PlaceBeside(label); });
    counts.led = place([this](MapOverlay::Label& label) { return PlaceWithLeader(label, false); });
    counts.led += place([this](MapOverlay::Label& label) { return PlaceWithLeader(label, true); });
    counts.dots = place([this](MapOverlay::Label& label) {
      label.dot = true;
      label.place = Around(*label.anchor, kMarkReach) & picture_;
      label.box = QRectF();
      return true;
    });
    return counts;
  }

 private:
  // Takes what is there before the first label, and brings the labels into their order.
  std::vector<MapOverlay::Label*> Order() {
    std::vector<MapOverlay::Label*> order;
    for (MapOverlay::Label& label : overlay_.labels) {
      if (label.anchor) {
        label.dot = false;
        covered_.Take(Around(*label.anchor, kMarkReach));
        order.push_back(&label);
      } else {
        Take(Covered(label));
      }
    }
    std::sort(order.begin(), order.end(), [](const MapOverlay::Label* a, const MapOverlay::Label* b) {
      if (a->id != b->id) return a->id < b->id;
      const QPointF& left = *a->anchor;
      const QPointF& right = *b->anchor;
      return left.x() != right.x() ? left.x() < right.x() : left.y() < right.y();
    });
    return order;
  }

  void Take(const QRectF& place) {
    covered_.Take(place);
    texts_.Take(place);
  }

  bool IsFree(const QRectF& place) { return picture_.contains(place) && covered_.IsFree(place); }

  bool PlaceBeside(MapOverlay::Label& label) {
    const QSizeF size = Covered(label).size();
    const double x = size.width() / 2;
    const double y = size.height() / 2;
    for (const QPointF& side : kSides) {
      // As near as the mark allows in one direction, slid along it in the other.
      const QPointF middle(side.x() * (std::abs(side.x()) == 1 ? x + kGap : x),
                           side.y() * (std::abs(side.x()) == 1 ? y : y + kGap));
      const QRectF place(*label.anchor + middle - QPointF(x, y), size);
      if (!IsFree(place)) continue;
      Take(place);
      MoveTo(label, place.topLeft());
      return true;
    }
    return false;
  }

  bool PlaceWithLeader(MapOverlay::Label& label, bool underTexts) {
    const QSizeF size = Covered(label).size();
    for (int ring = kFirstRing; ring <= kLastRing; ring += kRingStep) {
      for (int i = 0; i < kDirections; ++i) {
        const QPointF& direction = directions_[static_cast<std::size_t>(i)];
        const QPointF reach(direction.x() * size.width() / 2, direction.y() * size.height() / 2);
        const QPointF middle = *label.anchor + direction * ring + reach;
        const QRectF place(middle - QPointF(size.width() / 2, size.height() / 2), size);
        if (!IsFree(place)) continue;
        const QPointF end(std::clamp(label.anchor->x(), place.left(), place.right()),
                          std::clamp(label.anchor->y(), place.top(), place.bottom()));
        if (!DrawLeader(*label.anchor, end, underTexts)) continue;
        Take(place);
        MoveTo(label, place.topLeft());
        return true;
      }
    }
    return false;
  }

  // False where it would run under another label, as if it were that one's, unless it may.
  bool DrawLeader(const QPointF& from, const QPointF& to, bool underTexts) {
    const QPointF way = to - from;
    const double length = std::hypot(way.x(), way.y());
    const int steps = static_cast<int>(length / texts_.Cell());
    const QPointF step = way / (steps + 1);
    for (int i = 0; i <= steps && !underTexts; ++i) {
      if (!texts_.IsFreeAt(from + step * (i + 0.5))) return false;
    }
    for (int i = 0; i <= steps; ++i) covered_.Take(Around(from + step * (i + 0.5), 0.5));
    overlay_.lines.append({from + way * (kMarkReach / length), to, kLeaderColour, kLeaderWidth});
    return true;
  }

  // From the top, to both sides in turn.
  static std::array<QPointF, kDirections> Directions() {
    std::array<QPointF, kDirections> all;
    for (int i = 0; i < kDirections; ++i) {
      const double angle = (i % 2 == 0 ? 1 : -1) * ((i + 1) / 2) * 2 * std::numbers::pi / kDirections;
      all[static_cast<std::size_t>(i)] = QPointF(std::sin(angle), -std::cos(angle));
    }
    return all;
  }

  MapOverlay& overlay_;
  QRectF picture_;
  TakenCells covered_;  // labels, marks and leader lines: no label goes there
  TakenCells texts_;    // labels: no leader line goes there
  const std::array<QPointF, kDirections> directions_ = Directions();
};

}  // namespace

LabelCounts LayOutLabels(MapOverlay& overlay, const QSize& picture) {
  return Layout(overlay, picture).Run();
}
