#include <algorithm>
#include <ostream>
#include <random>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "tool/Commands.h"
#include "tool/Generator.h"
#include "tool/Input.h"

// The commands that turn files into files.
namespace puzzle {

namespace {

/// The file's name in a folder: the puzzle's caption, by which the chooser will show it.
std::string fileNameOf(const Input& input) {
  std::string name = captionOf(input);
  std::ranges::replace(name, '/', '-');
  name.erase(0, name.find_first_not_of(". "));  // a hidden file is no puzzle
  if (name.empty() || name == "-") throw Refusal("The drawing has no title to name the puzzle by.");
  return name + ".qzl";
}

std::string puzzleFileIn(const std::string& place, const Input& input) {
  return std::filesystem::is_directory(place)
             ? (std::filesystem::path(place) / fileNameOf(input)).string()
             : place;
}

/// Numbers and single letters, in which nothing needs escaping; so no library is called for.
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
  Input input = readInput(arguments.positional[0], environment);
  // Naming pieces or a seed asks for a new solution, not for the file's own.
  if (arguments.has("pieces") || arguments.has("repeats") || arguments.has("seed"))
    input.solution.clear();
  const int pieces = input.shape.area() / PENTO::kCells;
  if (pieces > PuzzleFormat::kMostPieces)
    throw Refusal("The shape takes " + std::to_string(pieces) + " pieces; a puzzle has at most " +
                  std::to_string(PuzzleFormat::kMostPieces) + ".");
  const std::string file = puzzleFileIn(arguments.positional[1], input);
  if (!arguments.has("locked")) refuseLocked(file);
  solver::TypeOrder order = solver::kAwkwardFirst;
  if (arguments.has("seed")) {
    std::mt19937_64 random(seedFrom(arguments, environment));
    order = randomOrder(random);
  }
  const solver::Solution solution =
      solutionOf(input, supplyFor(input, arguments), limitsFrom(arguments, environment), order);
  const char lock = arguments.has("locked") ? PuzzleFormat::kLocked : PuzzleFormat::kUnlocked;
  writeAll(file, makePuzzleFile(solution, lock), environment);
  if (file != arguments.positional[1]) environment.err << file << "\n";
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

}  // namespace puzzle
