#pragma once

#include <QRgb>
#include <array>

/// Colours as people see them: CIELAB (D65, 2 degree observer), the CIEDE2000 distance, and what is
/// left of a colour for somebody who lacks one kind of cone.
namespace pictures {

/// L from 0 (black) to 100 (white); a from green to red, b from blue to yellow.
struct Lab {
  double L = 0, a = 0, b = 0;
};

Lab operator+(const Lab& x, const Lab& y);
Lab operator*(const Lab& x, double factor);

/// From lightness, chroma and hue angle in degrees.
Lab lch(double lightness, double chroma, double hue);

/// sRGB parts from 0 to 1 (the transfer curve applied), clipped where the colour has no sRGB value.
std::array<double, 3> toSrgb(const Lab& colour);
QRgb toRgb(const Lab& colour);
Lab toLab(QRgb colour);
/// Whether sRGB can show the colour without clipping.
bool showable(const Lab& colour);

/// CIEDE2000 with all three weights 1 (Sharma, Wu, Dalal 2005).
double difference(const Lab& x, const Lab& y);

enum class Sight { Plain, Protanopia, Deuteranopia, Tritanopia };
inline constexpr std::array<Sight, 4> kSights{Sight::Plain, Sight::Protanopia, Sight::Deuteranopia,
                                              Sight::Tritanopia};
const char* sightName(Sight sight);

/// The colour as it looks to such eyes: Machado, Oliveira, Fernandes 2009, severity 1, applied to
/// linear sRGB.
Lab seenBy(Sight sight, const Lab& colour);

}  // namespace pictures
