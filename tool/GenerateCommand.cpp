#include <limits>
#include <ostream>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "tool/Commands.h"
#include "tool/Generator.h"
#include "tool/Input.h"
#include "tool/Interrupt.h"
#include "tool/Sheet.h"

namespace fs = std::filesystem;

namespace puzzle {

namespace {

/// Which puzzles of a run are to be made: all, or the K-th of N shares.
struct Share {
  std::uint64_t first = 0, step = 1;
};

Share shareFrom(const Arguments& arguments) {
  if (!arguments.has("part")) return {};
  if (!arguments.has("seed"))
    throw UsageError("--part wants a --seed, by which all parts belong to one run.");
  const std::string part = arguments.text("part");
  const std::size_t slash = part.find('/');
  if (slash == std::string::npos) throw UsageError("--part wants K/N, such as 2/8.");
  Arguments both;
  both.options = {{"part", part.substr(slash + 1)}};
  const long long parts = both.number("part", 1, 1, 1'000'000);
  both.options = {{"part", part.substr(0, slash)}};
  const long long number = both.number("part", 1, 1, parts);
  return {static_cast<std::uint64_t>(number - 1), static_cast<std::uint64_t>(parts)};
}

/// The numbers of pieces that the standard puzzles of a level have.
std::pair<int, int> piecesOfLevel(Level level) {
  switch (level) {
    case Level::Novice:
      return {3, 6};
    case Level::Easy:
      return {4, 6};
    case Level::Intermediate:
      return {6, 9};
    case Level::Expert:
      return {9, PuzzleFormat::kMostPieces};
  }
  return {};
}

Wanted wantedFrom(const Arguments& arguments) {
  Wanted wanted;
  wanted.width = static_cast<int>(arguments.number("width", kArea, 1, kArea));
  wanted.height = static_cast<int>(arguments.number("height", kArea, 1, kArea));
  const int mirrored = static_cast<int>(ShapeStyle::Mirror);
  wanted.style = static_cast<ShapeStyle>(
      arguments.choice("style", kStyles, arguments.has("symmetric") ? mirrored : 0));
  if (wanted.style == ShapeStyle::Glyph && arguments.has("glyph")) {
    const std::string glyph = arguments.text("glyph");
    if (glyph.size() != 1 || std::isalnum(static_cast<unsigned char>(glyph[0])) == 0)
      throw UsageError("--glyph wants one letter or digit.");
    wanted.glyph = glyph[0];
  }
  wanted.unique = arguments.has("unique");
  if (arguments.has("level"))
    wanted.level = static_cast<Level>(arguments.choice("level", kLevels, 0));
  return wanted;
}

/// The pieces of one puzzle: the number asked for, else a random one where a level or a glyph
/// leaves it open.
int piecesFor(const Wanted& wanted, const Arguments& arguments, std::mt19937_64& random) {
  const int most =
      std::min(PuzzleFormat::kMostPieces, wanted.width * wanted.height / PENTO::kCells);
  const int given = static_cast<int>(arguments.number("number", 0, 1, PuzzleFormat::kMostPieces));
  if (given > most || most == 0)
    throw UsageError("The box is too small for this number of pieces.");
  if (given > 0) return given;
  if (wanted.level) {
    const auto [least, highest] = piecesOfLevel(*wanted.level);
    return std::min(most, least + below(random, highest - least + 1));
  }
  return std::min(most, wanted.style == ShapeStyle::Glyph ? 4 + below(random, 9) : 6);
}

std::string drawingOf(const Generated& puzzle) {
  return "pieces: " + pieceLetters(piecesOf(puzzle.solution)) + "\n\n" +
         picture(puzzle.shape, puzzle.solution);
}

/// One puzzle of the seed. Where the number of pieces is open, every thousandth try takes another.
std::optional<Generated> make(std::uint64_t seed, const Arguments& arguments,
                              std::uint64_t& nodes) {
  constexpr std::uint64_t kTriesPerNumber = 1000;
  std::mt19937_64 random(seed);
  Wanted wanted = wantedFrom(arguments);
  const auto tries = static_cast<std::uint64_t>(arguments.number("tries", 10000, 1, kNoLimit));
  for (std::uint64_t done = 0; done < tries && nodes > 0; done += kTriesPerNumber) {
    wanted.pieces = piecesFor(wanted, arguments, random);
    const auto puzzle = generatePuzzle(wanted, random, std::min(tries - done, kTriesPerNumber),
                                       nodes, Interrupt::asked);
    if (puzzle || Interrupt::asked()) return puzzle;
  }
  return std::nullopt;
}

/// Writes many puzzles into a folder, each named by its seed; what is there already is kept.
int makeMany(std::uint64_t seed, const Arguments& arguments, Environment& environment) {
  if (arguments.positional.empty() || !fs::is_directory(arguments.positional[0]))
    throw UsageError("--puzzles wants a folder to write them into.");
  const auto count = static_cast<std::uint64_t>(arguments.number("puzzles", 1, 1, 1'000'000));
  const Share share = shareFrom(arguments);
  std::uint64_t made = 0, wanted = 0;
  for (std::uint64_t i = share.first; i < count && !Interrupt::asked(); i += share.step) {
    ++wanted;
    const fs::path file =
        fs::path(arguments.positional[0]) / ("puzzle-" + std::to_string(seed + i) + ".qzl");
    if (fs::exists(file)) {
      environment.err << file.string() << ": This file is there already and was kept.\n";
      continue;
    }
    std::uint64_t nodes = limitsFrom(arguments, environment).nodes;
    const std::optional<Generated> puzzle = make(seed + i, arguments, nodes);
    if (!puzzle) continue;
    writeAll(file.string(), makePuzzleFile(puzzle->solution, PuzzleFormat::kUnlocked), environment);
    ++made;
    environment.out << file.string() << "\n" << std::flush;
  }
  environment.err << plural(made, "new puzzle") << (Interrupt::asked() ? ", interrupted" : "")
                  << ".\n";
  return made == wanted && !Interrupt::asked() ? kDone : kNo;
}

int makeOne(std::uint64_t seed, const Arguments& arguments, Environment& environment) {
  const std::string file = arguments.positional.empty() ? "-" : arguments.positional[0];
  const bool isDrawing = file == "-" || file.ends_with(".txt");
  if (file != "-") refuseLocked(file);
  std::uint64_t nodes = limitsFrom(arguments, environment).nodes;
  const std::optional<Generated> puzzle = make(seed, arguments, nodes);
  if (!puzzle && nodes == 0) throw Refusal("No such puzzle was found within the limit.");
  if (!puzzle) throw Refusal("No such puzzle was found; --tries looks further.");
  writeAll(
      file,
      isDrawing ? drawingOf(*puzzle) : makePuzzleFile(puzzle->solution, PuzzleFormat::kUnlocked),
      environment);
  return kDone;
}

}  // namespace

int generateCommand(const Arguments& arguments, Environment& environment) {
  const std::uint64_t seed = seedFrom(arguments, environment);
  const Interrupt interrupt;
  std::optional<TextDrawing> text;
  if (wantedFrom(arguments).style == ShapeStyle::Glyph) text.emplace();
  return arguments.has("puzzles") ? makeMany(seed, arguments, environment)
                                  : makeOne(seed, arguments, environment);
}

}  // namespace puzzle
