#include <QBuffer>
#include <algorithm>
#include <ostream>
#include <random>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "drawing/BoardPicture.h"
#include "tool/Commands.h"
#include "tool/Generator.h"
#include "tool/Subject.h"

// The commands that turn files into files.
namespace puzzle {

namespace {

std::mt19937_64 generatorFrom(const Given& given, Surroundings& surroundings) {
  const auto fresh = static_cast<long long>(std::random_device{}());
  const long long seed = given.number("seed", fresh, 0, std::numeric_limits<long long>::max());
  if (!given.has("seed")) surroundings.err << "seed " << seed << "\n";
  return std::mt19937_64(static_cast<std::uint64_t>(seed));
}

/// The shape and solution moved into the smallest box, with `ring` empty cells around it.
void trim(Subject& subject, int ring) {
  const std::vector<solver::Cell> cells = subject.shape.cells();
  const int left = std::ranges::min(cells, {}, &solver::Cell::x).x - ring;
  const int top = std::ranges::min(cells, {}, &solver::Cell::y).y - ring;
  const solver::Shape trimmed = subject.shape.trimmed();
  subject.shape = solver::Shape(trimmed.width() + 2 * ring, trimmed.height() + 2 * ring);
  for (const solver::Cell cell : trimmed.cells()) subject.shape.set({cell.x + ring, cell.y + ring});
  for (solver::Placement& placement : subject.solution) {
    placement.x -= left;
    placement.y -= top;
  }
}

/// Lettered drawings become solutions when all of their cells are lettered.
void readLetters(Subject& subject) {
  if (subject.solution.empty() && !subject.types.empty() &&
      static_cast<int>(subject.types.size()) == subject.shape.area())
    subject.solution = solutionOf(subject, solver::PieceSet::ofEach(subject.shape.area()), {});
}

std::string json(const Subject& subject) {
  std::string text = "{\"width\": " + std::to_string(subject.shape.width()) +
                     ", \"height\": " + std::to_string(subject.shape.height()) +
                     ", \"cells\": " + std::to_string(subject.shape.area()) + ", \"pieces\": [";
  const char* separator = "";
  for (const solver::Placement& placement : subject.solution) {
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

int makeCommand(const Given& given, Surroundings& surroundings) {
  const Subject subject = readSubject(given.arguments[0], surroundings);
  const int pieces = subject.shape.area() / PENTO::kCells;
  if (pieces > PuzzleFormat::kMostPieces)
    throw Refusal("The shape takes " + std::to_string(pieces) + " pieces; a puzzle has at most " +
                  std::to_string(PuzzleFormat::kMostPieces) + ".");
  solver::TypeOrder order = solver::kAwkwardFirst;
  if (given.has("seed")) {
    std::mt19937_64 random = generatorFrom(given, surroundings);
    order = randomOrder(random);
  }
  const solver::Solution solution =
      solutionOf(subject, supplyFor(subject, given), limitsFrom(given, surroundings), order);
  writeAll(given.arguments[1],
           makePuzzleFile(solution,
                          given.has("locked") ? PuzzleFormat::kLocked : PuzzleFormat::kUnlocked),
           surroundings);
  return kDone;
}

int showCommand(const Given& given, Surroundings& surroundings) {
  Subject subject = readSubject(given.arguments[0], surroundings);
  readLetters(subject);
  if (given.has("shape")) subject.solution.clear();
  if (given.has("json")) {
    surroundings.out << json(subject);
    return kDone;
  }
  trim(subject, 0);
  if (!subject.solution.empty())
    surroundings.out << "pieces: " << pieceLetters(piecesOf(subject.solution)) << "\n\n";
  const std::string text = picture(subject.shape, subject.solution);
  surroundings.out << (given.has("color") ? coloured(text) : text);
  return kDone;
}

int renderCommand(const Given& given, Surroundings& surroundings) {
  Subject subject = readSubject(given.arguments[0], surroundings);
  const auto tile = static_cast<int>(given.number("tile", 30, 1, 512));
  readLetters(subject);
  if (given.has("solution")) subject.solution = solutionOf(subject, supplyFor(subject, given), {});
  if (given.has("shape")) subject.solution.clear();
  const bool whole = given.has("whole");
  if (!whole) trim(subject, 1);  // the ring gives the edge its outline and is cut off again
  TextureAtlas textures(0, 0);
  textures.load(surroundings.installation / "tiles" / "tiles.jpg", tile);
  QImage image = boardPicture(boardWith(subject.shape, subject.solution), textures);
  if (!whole) image = image.copy(tile, tile, image.width() - 2 * tile, image.height() - 2 * tile);
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) throw Refusal("The picture cannot be made.");
  writeAll(given.arguments[1], png.toStdString(), surroundings);
  return kDone;
}

int checkCommand(const Given& given, Surroundings& surroundings) {
  int result = kDone;
  for (const std::string& file : given.arguments) {
    std::vector<std::string> problems;
    try {
      problems = problemsOf(readAll(file, surroundings));
      for (std::string& problem : problems) problem = file + ": " + problem;
    } catch (const Refusal& refusal) {
      problems = {refusal.what()};
    }
    for (const std::string& problem : problems) surroundings.out << problem << "\n";
    if (!problems.empty()) result = kNo;
  }
  return result;
}

int generateCommand(const Given& given, Surroundings& surroundings) {
  Wanted wanted;
  wanted.pieces = static_cast<int>(given.number("number", 6, 1, PuzzleFormat::kMostPieces));
  wanted.width = static_cast<int>(given.number("width", kArea, 1, kArea));
  wanted.height = static_cast<int>(given.number("height", kArea, 1, kArea));
  wanted.symmetric = given.has("symmetric");
  wanted.unique = given.has("unique");
  if (wanted.pieces * PENTO::kCells > wanted.width * wanted.height)
    throw UsageError("So many pieces do not fit into this box.");
  std::mt19937_64 random = generatorFrom(given, surroundings);
  const auto tries = static_cast<std::uint64_t>(
      given.number("tries", 10000, 1, std::numeric_limits<long long>::max()));
  const std::optional<Generated> puzzle = generatePuzzle(wanted, random, tries);
  if (!puzzle) throw Refusal("No such puzzle was found.");
  if (!given.arguments.empty()) {
    writeAll(given.arguments[0], makePuzzleFile(puzzle->solution, PuzzleFormat::kUnlocked),
             surroundings);
    return kDone;
  }
  surroundings.out << "pieces: " << pieceLetters(piecesOf(puzzle->solution)) << "\n\n"
                   << picture(puzzle->shape, puzzle->solution);
  return kDone;
}

}  // namespace puzzle
