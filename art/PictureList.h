#pragma once

#include <QImage>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace pictures {

/// A file that the generator makes, and how.
struct PictureFile {
  std::filesystem::path file;  ///< relative to the source tree
  std::function<QImage()> make;
};

/// All pictures of the program and of its documentation, the SVG icon apart. `source` is the root
/// of the source tree; the puzzles' drawings are read from its folder puzzles/.
std::vector<PictureFile> allPictures(const std::filesystem::path& source);

/// Writes a picture in the format that its file name asks for: .png; .bmp, which must be Indexed8;
/// .jpg at quality 97 with full chroma.
/// Errors: std::runtime_error when the file cannot be written.
void writePicture(const QImage& picture, const std::filesystem::path& file);
/// Writes bytes as they are. Errors: as above.
void writeText(const QByteArray& text, const std::filesystem::path& file);

}  // namespace pictures
