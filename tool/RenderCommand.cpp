#include <QBuffer>
#include <algorithm>

#include "tool/Commands.h"
#include "tool/Sheet.h"

namespace fs = std::filesystem;

namespace puzzle {

namespace {

constexpr std::string_view kFormats = "png|svg|pdf";
enum Format { kPng, kSvg, kPdf };

/// The format that is asked for, else the one that the picture's name ends in, else PNG.
int formatFor(const Arguments& arguments, const std::string& picture) {
  const std::string ending = fs::path(picture).extension().string();
  int byName = kPng;
  if (ending == ".svg" || ending == ".SVG") byName = kSvg;
  if (ending == ".pdf" || ending == ".PDF") byName = kPdf;
  return arguments.choice("format", kFormats, byName);
}

/// The files named, and the puzzles in the folders named, sorted by name.
std::vector<std::string> filesIn(const std::vector<std::string>& places) {
  std::vector<std::string> files;
  for (const std::string& place : places) {
    if (!fs::is_directory(place)) {
      files.push_back(place);
      continue;
    }
    const auto first = static_cast<std::ptrdiff_t>(files.size());
    for (const auto& entry : fs::directory_iterator(place))
      if (entry.path().extension() == ".qzl") files.push_back(entry.path().string());
    std::ranges::sort(files.begin() + first, files.end());
  }
  if (files.empty()) throw Refusal("There is no puzzle in this folder.");
  return files;
}

/// A puzzle with the solution that is to be seen, or none.
Input readShown(const std::string& file, const Arguments& arguments, Environment& environment) {
  Input input = readInput(file, environment);
  const solver::Limits limits = limitsFrom(arguments, environment, kNodesToShow);
  readLetters(input, limits);
  const bool shape = arguments.has("shape");
  if (shape)
    input.solution.clear();
  else if (input.solution.empty() && arguments.has("solution"))
    input.solution = solutionOf(input, supplyFor(input, arguments), limits);
  return input;
}

TextureAtlas texturesOf(int tile, Environment& environment) {
  TextureAtlas textures(0, 0);
  textures.load(environment.installation / "tiles" / "tiles.jpg", tile);
  return textures;
}

QByteArray onePng(const Input& input, int tile, bool whole, Environment& environment) {
  const QImage image = texturedPicture(input, texturesOf(tile, environment), whole);
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) throw Refusal("The picture cannot be made.");
  return png;
}

/// Everything but one puzzle in textures as a PNG.
QByteArray sheetOf(std::vector<Input> puzzles, int format, const Arguments& arguments,
                   Environment& environment) {
  constexpr int kSharp = 64;  // pixels of a cell where the cell's size is in millimetres
  constexpr double kLine = 2.5;
  const TextDrawing text;
  const bool single = puzzles.size() == 1 && format != kPdf && !arguments.has("sheet");
  const int tile = format == kPng ? static_cast<int>(arguments.number("tile", 30, 1, 512)) : kSharp;
  const long long usual = puzzles.size() == 1 ? 15 : 7;
  const double cell =
      format == kPng ? tile : 10.0 * static_cast<double>(arguments.number("cell", usual, 1, 100));
  SheetStyle style;
  style.outlines = arguments.has("outlines");
  style.captions = !single && !arguments.has("no-titles");
  TextureAtlas textures(0, 0);
  if (!style.outlines) textures = texturesOf(tile, environment);
  style.textures = &textures;
  const Sheet sheet(std::move(puzzles), style, cell, format == kPng ? 1 : kLine);
  if (format == kPdf)
    return sheetPdf(sheet, static_cast<Paper>(arguments.choice("paper", kPapers, 0)));
  const int most = std::min(6, sheet.count());
  const int columns = single ? 1 : static_cast<int>(arguments.number("columns", most, 1, 1000));
  return format == kSvg ? sheetSvg(sheet, columns) : sheetPng(sheet, columns);
}

}  // namespace

int renderCommand(const Arguments& arguments, Environment& environment) {
  const std::string& picture = arguments.positional.back();
  const int format = formatFor(arguments, picture);
  std::vector<Input> puzzles;
  for (const std::string& file :
       filesIn({arguments.positional.begin(), arguments.positional.end() - 1}))
    puzzles.push_back(readShown(file, arguments, environment));
  const bool sheet = format == kPdf || arguments.has("sheet");
  if (puzzles.size() > 1 && !sheet)
    throw UsageError("Several puzzles are rendered with --sheet, or as a PDF.");
  const bool plain = format == kPng && !sheet && !arguments.has("outlines");
  const QByteArray bytes =
      plain ? onePng(puzzles.front(), static_cast<int>(arguments.number("tile", 30, 1, 512)),
                     arguments.has("whole"), environment)
            : sheetOf(std::move(puzzles), format, arguments, environment);
  writeAll(picture, bytes.toStdString(), environment);
  return kDone;
}

}  // namespace puzzle
