#include "platform/LargeText.h"

#include <QApplication>
#include <QVariant>
#include <algorithm>

namespace LargeText {

namespace {

constexpr double kUsual = 11;  // points
constexpr double kPointsPerInch = 72;
constexpr const char* kProperty = "largeText";

double desktopFontPoints(const QWidget& window) {
  const QFont font = QApplication::font();
  return font.pointSizeF() > 0 ? font.pointSizeF()
                               : font.pixelSize() * kPointsPerInch / window.logicalDpiY();
}

}  // namespace

double wanted(const QWidget& window) {
  return std::max(1.0, desktopFontPoints(window) / kUsual);
}

double factor(const QWidget& widget) {
  const QVariant decided = widget.window()->property(kProperty);
  return decided.isValid() ? decided.toDouble() : 1;
}

void decide(QWidget& window, const QSize& designed, const QSize& room) {
  const double fitting = std::min(static_cast<double>(room.width()) / designed.width(),
                                  static_cast<double>(room.height()) / designed.height());
  window.setProperty(kProperty, std::max(1.0, std::min(wanted(window), fitting)));
}

}  // namespace LargeText
