#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <functional>

namespace pictures {

/// A picture of `width` x `height` design pixels, painted in those units on `scale` times as many
/// device pixels each way, antialiased. The ground may be transparent (the result then is
/// ARGB32_Premultiplied).
QImage painted(int width, int height, double scale, const QColor& ground,
               const std::function<void(QPainter&)>& paint);

/// Brings a picture to at most 256 colours (median cut, no dithering), Indexed8. The toolkit's own
/// conversion dithers or takes a fixed cube of colours, and an image library's tables change with
/// its version; the pictures that ship stay the same bit for bit.
QImage in256Colours(const QImage& picture);

}  // namespace pictures
