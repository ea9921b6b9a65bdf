#pragma once

#include <QPixmap>
#include <QString>

/// A picture of the program's for a screen of that many device pixels per logical one: the file
/// itself up to 1, beyond it "NAME@2x.EXT" beside it, whose logical size is the same.
///
/// Errors: a null pixmap where there is no such file.
QPixmap densePicture(const QString& file, double ratio);
/// The same for the densest of all screens.
QPixmap densePicture(const QString& file);
