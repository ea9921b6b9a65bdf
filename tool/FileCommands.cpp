#include <QBuffer>
#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>
#include <random>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "drawing/BoardPicture.h"
#include "tool/Commands.h"
#include "tool/Generator.h"
#include "tool/Input.h"

// The commands that turn files into files.
namespace puzzle {

namespace {

constexpr double kMostPixels = 1 << 26;             // 256 MiB
constexpr std::uint64_t kNodesToShow = 50'000'000;  // some seconds

std::mt19937_64 generatorFrom(const Arguments& arguments, Environment& environment) {
  const auto fresh = static_cast<long long>(std::random_device{}());
  const long long seed = arguments.number("seed", fresh, 0, std::numeric_limits<long long>::max());
  if (!arguments.has("seed")) environment.err << "seed " << seed << "\n";
  return std::mt19937_64(static_cast<std::uint64_t>(seed));
}

/// The shape and solution moved into the smallest box, with `ring` empty cells around it.
void trim(Input& input, int ring) {
  const std::vector<solver::Cell> cells = input.shape.cells();
  const int left = std::ranges::min(cells, {}, &solver::Cell::x).x - ring;
  const int top = std::ranges::min(cells, {}, &solver::Cell::y).y - ring;
  const solver::Shape trimmed = input.shape.trimmed();
  input.shape = solver::Shape(trimmed.width() + 2 * ring, trimmed.height() + 2 * ring);
  for (const solver::Cell cell : trimmed.cells()) input.shape.set({cell.x + ring, cell.y + ring});
  for (solver::Placement& placement : input.solution) {
    placement.x -= left;
    placement.y -= top;
  }
}

/// Lettered drawings become solutions when all of their cells are lettered.
void readLetters(Input& input, const solver::Limits& limits) {
  if (input.solution.empty() && !input.types.empty() &&
      static_cast<int>(input.types.size()) == input.shape.area())
    input.solution = solutionOf(input, solver::PieceSet::ofEach(input.shape.area()), limits);
}

/// Before any of it is held in memory. `ring` is the number of empty cells on each side.
void refuseLargePicture(const solver::Shape& shape, int ring, int tile) {
  const auto cells = static_cast<double>(shape.width() + 2 * ring) * (shape.height() + 2 * ring);
  const double pixels = cells * tile * tile;
  if (pixels <= kMostPixels) return;
  throw Refusal("The picture would have " + std::to_string(static_cast<int>(pixels / 1e6)) +
                " million pixels; the largest tile that will do is --tile=" +
                std::to_string(static_cast<int>(std::sqrt(kMostPixels / cells))) + ".");
}

std::string json(const Input& input) {
  std::string text = "{\"width\": " + std::to_string(input.shape.width()) +
                     ", \"height\": " + std::to_string(input.shape.height()) +
                     ", \"cells\": " + std::to_string(input.shape.area()) + ", \"pieces\": [";
  const char* separator = "";
  for (const solver::Placement& placement : input.solution) {
    text += separator + ("{\"letter\": \"" + std::string(1, pentominoLetter(placement.type))) +
            "\", \"x\": " + std::to_string(placement.x) +
            ", \"y\": " + std::to_string(placement.y) +
            ", \"rotations\": " + std::to_string(placement.rotations) +
            ", \"flips\": " + std::to_string(placement.flips) + "}";
    separator = ", ";
  }
  return text + "]}\n";
}

/// Each letter on a background of its own out of the terminal's 256 colours.
std::string coloured(const std::string& text) {
  constexpr std::array<int, PENTO::kTypes> kColours{33, 160, 214, 28, 90,  226,
                                                    45, 130, 231, 70, 205, 245};
  std::string result;
  for (const char c : text) {
    const int type = pentominoType(c);
    if (type < 0)
      result += c == '\n' ? "\n" : std::string(2, c == '.' ? ' ' : c);
    else
      result += "\033[48;5;" + std::to_string(kColours[static_cast<std::size_t>(type)]) +
                ";38;5;16m" + c + " \033[0m";
  }
  return result;
}

/// The picture without its edges: a view, valid as long as the picture.
QImage inside(const QImage& image, int edge) {
  const int bytesPerPixel = image.depth() / 8;
  return {image.constScanLine(edge) + std::ptrdiff_t{edge} * bytesPerPixel,
          image.width() - 2 * edge, image.height() - 2 * edge, image.bytesPerLine(),
          image.format()};
}

}  // namespace

int makeCommand(const Arguments& arguments, Environment& environment) {
  const Input input = readInput(arguments.positional[0], environment);
  const int pieces = input.shape.area() / PENTO::kCells;
  if (pieces > PuzzleFormat::kMostPieces)
    throw Refusal("The shape takes " + std::to_string(pieces) + " pieces; a puzzle has at most " +
                  std::to_string(PuzzleFormat::kMostPieces) + ".");
  solver::TypeOrder order = solver::kAwkwardFirst;
  if (arguments.has("seed")) {
    std::mt19937_64 random = generatorFrom(arguments, environment);
    order = randomOrder(random);
  }
  const solver::Solution solution =
      solutionOf(input, supplyFor(input, arguments), limitsFrom(arguments, environment), order);
  writeAll(arguments.positional[1],
           makePuzzleFile(
               solution, arguments.has("locked") ? PuzzleFormat::kLocked : PuzzleFormat::kUnlocked),
           environment);
  return kDone;
}

int showCommand(const Arguments& arguments, Environment& environment) {
  Input input = readInput(arguments.positional[0], environment);
  readLetters(input, limitsFrom(arguments, environment, kNodesToShow));
  if (arguments.has("shape")) input.solution.clear();
  if (arguments.has("json")) {
    environment.out << json(input);
    return kDone;
  }
  trim(input, 0);
  if (!input.solution.empty())
    environment.out << "pieces: " << pieceLetters(piecesOf(input.solution)) << "\n\n";
  const std::string text = picture(input.shape, input.solution);
  environment.out << (arguments.has("color") ? coloured(text) : text);
  return kDone;
}

int renderCommand(const Arguments& arguments, Environment& environment) {
  Input input = readInput(arguments.positional[0], environment);
  const auto tile = static_cast<int>(arguments.number("tile", 30, 1, 512));
  const bool whole = arguments.has("whole");
  refuseLargePicture(whole ? input.shape : input.shape.trimmed(), whole ? 0 : 1, tile);
  const solver::Limits limits = limitsFrom(arguments, environment, kNodesToShow);
  readLetters(input, limits);
  if (arguments.has("solution"))
    input.solution = solutionOf(input, supplyFor(input, arguments), limits);
  if (arguments.has("shape")) input.solution.clear();
  if (!whole) trim(input, 1);  // the ring gives the edge its outline and is cut off again
  TextureAtlas textures(0, 0);
  textures.load(environment.installation / "tiles" / "tiles.jpg", tile);
  const QImage board = boardPicture(boardWith(input.shape, input.solution), textures);
  const QImage image = whole ? board : inside(board, tile);
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) throw Refusal("The picture cannot be made.");
  writeAll(arguments.positional[1], png.toStdString(), environment);
  return kDone;
}

int checkCommand(const Arguments& arguments, Environment& environment) {
  int result = kDone;
  for (const std::string& file : arguments.positional) {
    std::vector<std::string> problems;
    try {
      problems = problemsOf(readAll(file, environment));
      for (std::string& problem : problems) problem = file + ": " + problem;
    } catch (const Refusal& refusal) {
      problems = {refusal.what()};
    }
    for (const std::string& problem : problems) environment.out << problem << "\n";
    if (!environment.out) break;
    if (!problems.empty()) result = kNo;
  }
  return result;
}

int generateCommand(const Arguments& arguments, Environment& environment) {
  Wanted wanted;
  wanted.pieces = static_cast<int>(arguments.number("number", 6, 1, PuzzleFormat::kMostPieces));
  wanted.width = static_cast<int>(arguments.number("width", kArea, 1, kArea));
  wanted.height = static_cast<int>(arguments.number("height", kArea, 1, kArea));
  wanted.symmetric = arguments.has("symmetric");
  wanted.unique = arguments.has("unique");
  if (wanted.pieces * PENTO::kCells > wanted.width * wanted.height)
    throw UsageError("So many pieces do not fit into this box.");
  std::mt19937_64 random = generatorFrom(arguments, environment);
  const auto tries = static_cast<std::uint64_t>(
      arguments.number("tries", 10000, 1, std::numeric_limits<long long>::max()));
  std::uint64_t nodes = limitsFrom(arguments, environment).nodes;
  const std::optional<Generated> puzzle = generatePuzzle(wanted, random, tries, nodes);
  if (!puzzle && nodes == 0) throw Refusal("No such puzzle was found within the limit.");
  if (!puzzle) throw Refusal("No such puzzle was found.");
  if (!arguments.positional.empty()) {
    writeAll(arguments.positional[0], makePuzzleFile(puzzle->solution, PuzzleFormat::kUnlocked),
             environment);
    return kDone;
  }
  environment.out << "pieces: " << pieceLetters(piecesOf(puzzle->solution)) << "\n\n"
                  << picture(puzzle->shape, puzzle->solution);
  return kDone;
}

}  // namespace puzzle
