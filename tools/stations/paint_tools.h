// SPDX-License-Identifier: GPL-3.0-or-later
// The brushes of the scene painters: seeded chance, noise, skies, ridges, water, trees, masts. All lengths are in
// pixels of the picture or in parts of its width and height, as told.
#pragma once

#include <QBrush>
#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

// Chance that is the same for the same seed.
class Rng {
 public:
  explicit Rng(quint32 seed) : generator_(seed) {}
  double Real(double low, double high) { return low + generator_.generateDouble() * (high - low); }
  int Int(int low, int high) {
    return low + static_cast<int>(generator_.generate() % static_cast<quint32>(high - low + 1));
  }
  bool Chance(double part) { return generator_.generateDouble() < part; }
  template <typename List>
  auto Pick(const List& list) {
    return list[static_cast<decltype(list.size())>(Int(0, static_cast<int>(list.size()) - 1))];
  }

 private:
  QRandomGenerator generator_;
};

// A picture in the making.
struct Canvas {
  Canvas(QSize size, quint32 seed);
  double X(double part) const { return part * w; }
  double Y(double part) const { return part * h; }

  QImage image;
  QPainter p;
  Rng rng;
  quint32 seed;
  double w;
  double h;
  double u;  // unit for line widths and small things: 1 in a picture 480 high
};

QColor Mix(const QColor& one, const QColor& other, double part);
QColor Alpha(const QColor& colour, double alpha);

// How many steps from 0 stay below a length.
int Steps(double length, double step);

// Smooth noise and its sum over octaves, 0 to 1.
double Noise(double x, double y, quint32 seed);
double Fbm(double x, double y, int octaves, quint32 seed);

// Vertical gradient over the whole picture or down to a part of its height.
void FillSky(Canvas& c, const QGradientStops& stops, double bottom = 1);
// Clouds between the top edge and bottom (part of the height), flatter towards it. cover: 0 clear to 1 overcast.
void Clouds(Canvas& c, const QColor& lit, const QColor& shade, double cover, double bottom);
void Stars(Canvas& c, int count, double bottom);
// Light that adds to what is there.
void Glow(Canvas& c, QPointF centre, double radius, const QColor& colour);
void SunDisc(Canvas& c, QPointF centre, double radius, const QColor& colour);

// A skyline from edge to edge, closed along the bottom. base and height: parts of the picture's height.
QPainterPath Ridge(Canvas& c, double base, double height, double roughness);
// A lit mountain side below a skyline, with snow down to snow (part of the ridge's height, 0 for none).
void RockRidge(Canvas& c, double base, double height, const QColor& rock, const QColor& haze, double snow);
// Mirrors what stands above top (part of the height) into waves below it.
void Water(Canvas& c, double top, const QColor& tint, double tintPart, double waves);
// Ground with blades, stones or waves of sand: noise along two colours, coarser to the front.
void Ground(Canvas& c, double top, const QColor& dark, const QColor& light, double stretch);

void Conifer(Canvas& c, QPointF foot, double height, const QColor& colour);
void LeafTree(Canvas& c, QPointF foot, double height, const QColor& leaf);
void TreeLine(Canvas& c, double base, double height, int count, const QColor& colour);

// A lattice mast, and a beam aerial seen from below at its top.
void LatticeMast(Canvas& c, QPointF foot, double height, double width, const QColor& colour);
void YagiBeam(Canvas& c, QPointF centre, double length, int elements, const QColor& colour);
void WireAerial(Canvas& c, QPointF left, QPointF right, double sag, const QColor& colour);

// A house with a roof and lit or dark windows; foot is the left bottom corner.
void House(Canvas& c, QPointF foot, double width, double height, const QColor& wall, const QColor& roof, bool lit);
void Birds(Canvas& c, int count, const QColor& colour);

// What a cheap camera adds.
void Grain(QImage& image, double strength, quint32 seed);
void Vignette(Canvas& c, double strength);
