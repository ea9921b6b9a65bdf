#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

/// How the pixels of a picture meet those of a screen.
enum class Fit {
  Scaled,  ///< whoever draws it scales it down
  Exact,   ///< scaled down here: one pixel of the picture to one of the screen
  Tiled    ///< pixel for pixel as it is, though it may come out a little too large or too small
};

/// The picture ":/pictures/NAME" for a screen of that many device pixels to a logical one. The
/// density that its pixels are meant for is its devicePixelRatio().
///
/// Files:  "NAME.EXT" has the logical size; "NAME@1.5x.EXT" and "NAME@2x.EXT", as far as they ship,
///         are for denser screens.
/// Choice: the least dense file that need not be enlarged, else the densest; of pictures that are
///         tiled the file whose density is nearest.
/// Errors: a null picture where there is no such file.
QImage densePicture(const QString& name, double ratio, Fit fit = Fit::Scaled);
/// The same for the screen that shows a widget.
QImage densePicture(const QString& name, const QWidget& widget, Fit fit = Fit::Scaled);
/// The same for the densest of all screens: for a picture that is set once and scaled by its label.
QImage densePicture(const QString& name);
