#include <QBuffer>
#include <algorithm>
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
void readLetters(Input& input) {
  if (input.solution.empty() && !input.types.empty() &&
      static_cast<int>(input.types.size()) == input.shape.area())
    input.solution = solutionOf(input, solver::PieceSet::ofEach(input.shape.area()), {});
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
  readLetters(input);
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
  readLetters(input);
  if (arguments.has("solution"))
    input.solution = solutionOf(input, supplyFor(input, arguments), {});
  if (arguments.has("shape")) input.solution.clear();
  const bool whole = arguments.has("whole");
  if (!whole) trim(input, 1);  // the ring gives the edge its outline and is cut off again
  TextureAtlas textures(0, 0);
  textures.load(environment.installation / "tiles" / "tiles.jpg", tile);
  QImage image = boardPicture(boardWith(input.shape, input.solution), textures);
  if (!whole) image = image.copy(tile, tile, image.width() - 2 * tile, image.height() - 2 * tile);
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
  const std::optional<Generated> puzzle = generatePuzzle(wanted, random, tries);
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
