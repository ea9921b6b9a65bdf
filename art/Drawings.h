#pragma once

#include <QImage>
#include <filesystem>
#include <string>

/// Each function makes one picture of the program, at `scale` device pixels per design pixel.
namespace pictures {

QImage atlas();  ///< the sixteen textures, 256 x 256

QImage background(double scale);               ///< behind the boards' cells, 128 x 128, seamless
QImage splash(double scale);                   ///< 166 x 230
QImage wayToGo(double scale);                  ///< 400 x 200
QImage pieceButton(int type, double scale);    ///< 73 x 48
QImage arrow(int quarterTurns, double scale);  ///< 32 x 32, clockwise from up
QImage trash(double scale);                    ///< 32 x 32
QImage optionIcon(const std::string& name, double scale);  ///< 32 x 32
QImage handCursor(double scale);                           ///< 32 x 32
QImage pointerCursor(double scale);                        ///< 32 x 32
QImage clearCursor(double scale);                          ///< 32 x 32
QImage programIcon(int edge);                              ///< edge x edge device pixels
QByteArray programIconSvg();

/// The icon of a catalogue entry: 32 x 32, its ground in the mask colour, RGB(192, 192, 192).
QImage puzzleIcon(const std::string& iconKey, const std::filesystem::path& puzzles, int scale);

QImage textureSheet();                                   ///< for the documentation
QImage iconSheet(const std::filesystem::path& puzzles);  ///< for the documentation

}  // namespace pictures
