#include <cstdio>
// jpeglib.h needs the standard library's FILE
#include <jpeglib.h>

#include <QFile>
#include <memory>
#include <stdexcept>
#include <vector>

#include "art/PictureList.h"

namespace pictures {
namespace {

/// Qt's own writer halves the chroma's resolution, which bleeds between neighbouring textures.
bool writeJpeg(const QImage& picture, const std::filesystem::path& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                             std::fclose);
  if (!file) return false;
  jpeg_error_mgr errors;
  jpeg_compress_struct jpeg;
  jpeg.err = jpeg_std_error(&errors);
  jpeg_create_compress(&jpeg);
  jpeg_stdio_dest(&jpeg, file.get());
  const QImage rows = picture.convertToFormat(QImage::Format_RGB888);
  jpeg.image_width = static_cast<JDIMENSION>(rows.width());
  jpeg.image_height = static_cast<JDIMENSION>(rows.height());
  jpeg.input_components = 3;
  jpeg.in_color_space = JCS_RGB;
  jpeg_set_defaults(&jpeg);
  jpeg_set_quality(&jpeg, 97, TRUE);
  jpeg.comp_info[0].h_samp_factor = jpeg.comp_info[0].v_samp_factor = 1;
  jpeg_start_compress(&jpeg, TRUE);
  for (int y = 0; y < rows.height(); ++y) {
    auto* row = const_cast<JSAMPROW>(rows.constScanLine(y));
    jpeg_write_scanlines(&jpeg, &row, 1);
  }
  jpeg_finish_compress(&jpeg);
  jpeg_destroy_compress(&jpeg);
  return std::ferror(file.get()) == 0;
}

}  // namespace

void writePicture(const QImage& picture, const std::filesystem::path& file) {
  std::filesystem::create_directories(file.parent_path());
  const bool written = file.extension() == ".jpg"
                           ? writeJpeg(picture, file)
                           : picture.save(QString::fromStdString(file.string()));
  if (!written) throw std::runtime_error("Cannot write " + file.string());
}

void writeText(const QByteArray& text, const std::filesystem::path& path) {
  QFile file(QString::fromStdString(path.string()));
  if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
    throw std::runtime_error("Cannot write " + path.string());
}

}  // namespace pictures
