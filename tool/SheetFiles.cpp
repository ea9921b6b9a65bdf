#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <cmath>

#include "tool/Sheet.h"

// A sheet as a file of one of the three formats.
namespace puzzle {

namespace {

constexpr QColor kGround(214, 210, 234);
constexpr double kMostPixels = 1 << 26;    // 256 MiB
constexpr int kTenthsOfMillimetres = 254;  // dots per inch
constexpr double kMargin = 100;            // around a page, in tenths of millimetres

int rowsFor(const Sheet& sheet, int columns) {
  return (sheet.count() + columns - 1) / columns;
}

}  // namespace

void refuseLargePicture(int width, int height, int ring, int tile) {
  const double cells = static_cast<double>(width + ring) * (height + ring);
  const double pixels = cells * tile * tile;
  if (pixels <= kMostPixels) return;
  throw Refusal("The picture would have " + std::to_string(static_cast<int>(pixels / 1e6)) +
                " million pixels; the largest tile that will do is --tile=" +
                std::to_string(static_cast<int>(std::sqrt(kMostPixels / cells))) + ".");
}

QByteArray sheetPng(const Sheet& sheet, int columns) {
  const int rows = rowsFor(sheet, columns);
  if (sheet.width(columns) * sheet.height(rows) > kMostPixels)
    throw Refusal("The sheet would have too many pixels; try a smaller --tile.");
  QImage image(static_cast<int>(std::ceil(sheet.width(columns))),
               static_cast<int>(std::ceil(sheet.height(rows))), QImage::Format_RGB32);
  image.fill(kGround);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  sheet.paint(painter, 0, columns, rows);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) throw Refusal("A picture so large cannot be made.");
  return bytes;
}

QByteArray sheetSvg(const Sheet& sheet, int columns) {
  const int rows = rowsFor(sheet, columns);
  const QSize size(static_cast<int>(std::ceil(sheet.width(columns))),
                   static_cast<int>(std::ceil(sheet.height(rows))));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(kTenthsOfMillimetres);
  generator.setSize(size);
  generator.setViewBox(QRect(QPoint(), size));
  generator.setTitle("Quinzolith");
  QPainter painter(&generator);
  sheet.paint(painter, 0, columns, rows);
  painter.end();
  return bytes;
}

QByteArray sheetPdf(const Sheet& sheet, Paper paper) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kTenthsOfMillimetres);
  writer.setPageSize(QPageSize(paper == Paper::A4 ? QPageSize::A4 : QPageSize::Letter));
  writer.setPageMargins(QMarginsF());
  writer.setTitle("Quinzolith");
  const double width = writer.width() - 2 * kMargin, height = writer.height() - 2 * kMargin;
  if (sheet.width(1) > width || sheet.height(1) > height)
    throw Refusal("With cells of this size a puzzle is larger than the paper.");
  const int columns = sheet.columnsIn(width), rows = sheet.rowsIn(height);
  QPainter painter(&writer);
  for (int first = 0; first < sheet.count(); first += columns * rows) {
    if (first > 0) writer.newPage();
    painter.save();
    painter.translate(kMargin + (width - sheet.width(columns)) / 2, kMargin);
    sheet.paint(painter, first, columns, rows);
    painter.restore();
  }
  painter.end();
  return bytes;
}

}  // namespace puzzle
