#include "art/Colour.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pictures {
namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr Matrix kXyzFromRgb{{{0.4124564, 0.3575761, 0.1804375},
                              {0.2126729, 0.7151522, 0.0721750},
                              {0.0193339, 0.1191920, 0.9503041}}};
constexpr Matrix kRgbFromXyz{{{3.2404542, -1.5371385, -0.4985314},
                              {-0.9692660, 1.8760108, 0.0415560},
                              {0.0556434, -0.2040259, 1.0572252}}};
constexpr Triple kWhite{0.95047, 1.0, 1.08883};

constexpr std::array<Matrix, 3> kMissingCone{{
    {{{0.152286, 1.052583, -0.204868},
      {0.114503, 0.786281, 0.099216},
      {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968},
      {0.280085, 0.672501, 0.047413},
      {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779},
      {-0.078411, 0.930809, 0.147602},
      {0.004733, 0.691367, 0.303900}}},
}};

Triple times(const Matrix& m, const Triple& v) {
  Triple result{};
  for (std::size_t i = 0; i < 3; ++i) result[i] = m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2];
  return result;
}

double encode(double linear) {
  return linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}
double decode(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double labCurve(double t) {
  constexpr double d = 6.0 / 29;
  return t > d * d * d ? std::cbrt(t) : t / (3 * d * d) + 4.0 / 29;
}
double labCurveBack(double t) {
  constexpr double d = 6.0 / 29;
  return t > d ? t * t * t : 3 * d * d * (t - 4.0 / 29);
}

Triple toLinear(const Lab& colour) {
  const double fy = (colour.L + 16) / 116;
  const Triple xyz{kWhite[0] * labCurveBack(fy + colour.a / 500), kWhite[1] * labCurveBack(fy),
                   kWhite[2] * labCurveBack(fy - colour.b / 200)};
  return times(kRgbFromXyz, xyz);
}

Lab fromLinear(const Triple& linear) {
  const Triple xyz = times(kXyzFromRgb, linear);
  const double fx = labCurve(xyz[0] / kWhite[0]), fy = labCurve(xyz[1] / kWhite[1]),
               fz = labCurve(xyz[2] / kWhite[2]);
  return {116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz)};
}

double radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

double hueAngle(double a, double b) {
  if (a == 0 && b == 0) return 0;
  const double degrees = std::atan2(b, a) * 180 / std::numbers::pi;
  return degrees < 0 ? degrees + 360 : degrees;
}

}  // namespace

Lab operator+(const Lab& x, const Lab& y) {
  return {x.L + y.L, x.a + y.a, x.b + y.b};
}
Lab operator*(const Lab& x, double factor) {
  return {x.L * factor, x.a * factor, x.b * factor};
}

Lab lch(double lightness, double chroma, double hue) {
  return {lightness, chroma * std::cos(radians(hue)), chroma * std::sin(radians(hue))};
}

std::array<double, 3> toSrgb(const Lab& colour) {
  Triple parts = toLinear(colour);
  for (double& part : parts) part = std::clamp(encode(part), 0.0, 1.0);
  return parts;
}

QRgb toRgb(const Lab& colour) {
  const Triple parts = toSrgb(colour);
  const auto byte = [](double part) { return static_cast<int>(std::lround(part * 255)); };
  return qRgb(byte(parts[0]), byte(parts[1]), byte(parts[2]));
}

Lab toLab(QRgb colour) {
  return fromLinear({decode(qRed(colour) / 255.0), decode(qGreen(colour) / 255.0),
                     decode(qBlue(colour) / 255.0)});
}

bool showable(const Lab& colour) {
  const Triple linear = toLinear(colour);
  return std::all_of(linear.begin(), linear.end(),
                     [](double part) { return part >= -1e-4 && part <= 1 + 1e-4; });
}

double difference(const Lab& x, const Lab& y) {
  const double meanC = (std::hypot(x.a, x.b) + std::hypot(y.a, y.b)) / 2;
  const double c7 = std::pow(meanC, 7), k7 = std::pow(25.0, 7);
  const double G = 0.5 * (1 - std::sqrt(c7 / (c7 + k7)));
  const double a1 = (1 + G) * x.a, a2 = (1 + G) * y.a;
  const double C1 = std::hypot(a1, x.b), C2 = std::hypot(a2, y.b);
  const double h1 = hueAngle(a1, x.b), h2 = hueAngle(a2, y.b);
  double dh = C1 * C2 == 0 ? 0 : h2 - h1;
  if (dh > 180) dh -= 360;
  if (dh < -180) dh += 360;
  double meanH = C1 * C2 == 0 ? h1 + h2 : (h1 + h2) / 2;
  if (C1 * C2 != 0 && std::abs(h1 - h2) > 180) meanH += h1 + h2 < 360 ? 180 : -180;
  const double meanL = (x.L + y.L) / 2, meanCp = (C1 + C2) / 2;
  const double T = 1 - 0.17 * std::cos(radians(meanH - 30)) + 0.24 * std::cos(radians(2 * meanH)) +
                   0.32 * std::cos(radians(3 * meanH + 6)) -
                   0.20 * std::cos(radians(4 * meanH - 63));
  const double l2 = (meanL - 50) * (meanL - 50);
  const double SL = 1 + 0.015 * l2 / std::sqrt(20 + l2);
  const double SC = 1 + 0.045 * meanCp, SH = 1 + 0.015 * meanCp * T;
  const double cp7 = std::pow(meanCp, 7);
  const double turn = 30 * std::exp(-std::pow((meanH - 275) / 25, 2));
  const double RT = -2 * std::sqrt(cp7 / (cp7 + k7)) * std::sin(radians(2 * turn));
  const double dL = (y.L - x.L) / SL, dC = (C2 - C1) / SC;
  const double dH = 2 * std::sqrt(C1 * C2) * std::sin(radians(dh / 2)) / SH;
  return std::sqrt(dL * dL + dC * dC + dH * dH + RT * dC * dH);
}

const char* sightName(Sight sight) {
  constexpr std::array names{"plain", "protanopia", "deuteranopia", "tritanopia"};
  return names[static_cast<std::size_t>(sight)];
}

Lab seenBy(Sight sight, const Lab& colour) {
  if (sight == Sight::Plain) return colour;
  Triple linear = toLinear(colour);
  for (double& part : linear) part = std::clamp(part, 0.0, 1.0);
  linear = times(kMissingCone[static_cast<std::size_t>(sight) - 1], linear);
  for (double& part : linear) part = std::clamp(part, 0.0, 1.0);
  return fromLinear(linear);
}

}  // namespace pictures
