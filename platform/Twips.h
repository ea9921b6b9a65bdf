#pragma once

#include <QRect>
#include <QRectF>
#include <QWidget>

/// Lengths on the screen. Windows are designed in twips (1/1440 inch), the toolkit lays out in its
/// own (logical) pixels, and boards are drawn in device pixels, of which a dense screen has more to
/// an inch. In a window of large text a twip is longer (LargeText).
namespace Twips {

/// Twips per logical pixel of the widget's screen: 15 at 96 dots per inch.
double perPixel(const QWidget& widget);

/// Twips per device pixel: 15 at 96 dots per inch, 7.5 on a doubled screen.
double perDevicePixelX(const QWidget& widget);
double perDevicePixelY(const QWidget& widget);

/// A design position as the logical pixels of the widget's parent.
QRect toPixels(const QRectF& twips, const QWidget& widget);
QSize toPixels(const QSizeF& twips, const QWidget& widget);

/// Gives the widget a design position (left, top, width, height in twips).
void place(QWidget& widget, double left, double top, double width, double height);

}  // namespace Twips
