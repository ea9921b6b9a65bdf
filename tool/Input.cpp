#include "tool/Input.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <ostream>
#include <random>
#include <utility>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "files/Device.h"
#include "files/SafeFile.h"
#include "solver/Threads.h"

namespace fs = std::filesystem;

namespace puzzle {

namespace {

constexpr std::size_t kLargestInput = std::size_t{1} << 20;

/// What the stream holds, as far as the block in which it becomes too large.
std::string startOf(std::istream& in) {
  std::string bytes;
  std::array<char, 4096> block{};
  while (bytes.size() <= kLargestInput && in) {
    in.read(block.data(), block.size());
    bytes.append(block.data(), static_cast<std::size_t>(in.gcount()));
  }
  return bytes;
}

Input inputOf(const PuzzleFile& file) {
  Input input;
  input.shape = file.shape();
  input.solution = file.solution();
  input.supply = piecesOf(input.solution);
  return input;
}

Input inputOf(const Drawing& drawing) {
  Input input;
  input.shape = drawing.shape;
  input.types = drawing.types;
  input.title = drawing.title();
  input.perhapsTitle = drawing.perhapsTitle;
  const auto pieces = drawing.headers.find("pieces");
  if (pieces != drawing.headers.end()) input.supply = readPieces(pieces->second);
  return input;
}

Input readBytes(const std::string& bytes) {
  if (!isPuzzleFile(bytes)) return inputOf(readDrawing(bytes));
  const std::vector<std::string> problems = problemsOf(bytes);
  if (!problems.empty()) throw Refusal(problems.front());
  return inputOf(readPuzzleFile(bytes));
}

/// What to do about a title that was taken for letters of pieces.
std::string hint(const Input& input) {
  if (input.perhapsTitle.empty()) return {};
  return " If its first line is meant as a title, write \"title: " + input.perhapsTitle + "\".";
}

}  // namespace

std::string plural(solver::Count number, const std::string& noun) {
  return solver::decimal(number) + " " + noun + (number == 1 ? "" : "s");
}

std::string readAll(const std::string& file, Environment& environment) {
  std::ifstream opened;
  if (file != "-") {
    opened.open(file, std::ios::binary);
    if (!opened || fs::is_directory(file)) throw Refusal(file + ": The file cannot be read.");
  }
  const std::string bytes = startOf(file == "-" ? environment.in : opened);
  if (bytes.size() > kLargestInput)
    throw Refusal(file + ": Neither a drawing nor a puzzle is larger than 1 MiB.");
  return bytes;
}

void writeAll(const std::string& file, const std::string& bytes, Environment& environment) {
  if (file == "-") {
    environment.out << bytes;
    return;
  }
  try {
    if (!SafeFile::send(file, bytes)) SafeFile::write(file, bytes);
  } catch (const std::system_error& error) {
    throw Refusal(file + ": " + error.code().message() + ".");
  } catch (const std::exception& error) {
    throw Refusal(file + ": " + error.what());
  }
}

void refuseLocked(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  std::string start(PuzzleFormat::fileSize(0, 0, 0), '\0');
  in.read(start.data(), static_cast<std::streamsize>(start.size()));
  PuzzleFormat::Reader reader(start);
  if (!in || !reader.signature()) return;
  reader.version();
  if (reader.lockFlag() == PuzzleFormat::kLocked)
    throw Refusal(file + ": A locked puzzle is written over with --locked only.");
}

std::uint64_t seedFrom(const Arguments& arguments, Environment& environment) {
  const auto fresh = static_cast<long long>(std::random_device{}());
  const long long seed = arguments.number("seed", fresh, 0, kNoLimit);
  if (!arguments.has("seed")) environment.err << "seed " << seed << "\n";
  return static_cast<std::uint64_t>(seed);
}

Input readInput(const std::string& file, Environment& environment) {
  const std::string bytes = readAll(file, environment);
  try {
    Input input = readBytes(bytes);
    input.name = file == "-" ? file : fs::path(file).stem().string();
    return input;
  } catch (const std::runtime_error& error) {
    throw Refusal(file + ": " + error.what());
  }
}

std::string captionOf(const Input& input) {
  return input.title.empty() ? input.name : input.title;
}

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
  const std::map<solver::Cell, int> types = std::exchange(input.types, {});
  for (const auto& [cell, type] : types) input.types[{cell.x - left, cell.y - top}] = type;
}

void readLetters(Input& input, const solver::Limits& limits) {
  if (input.solution.empty() && !input.types.empty() &&
      static_cast<int>(input.types.size()) == input.shape.area())
    input.solution = solutionOf(input, solver::PieceSet::ofEach(input.shape.area()), limits);
}

solver::PieceSet supplyFor(const Input& input, const Arguments& arguments) {
  const int pieces = std::max(1, input.shape.area() / PENTO::kCells);
  std::optional<solver::PieceSet> named = input.supply;
  if (arguments.has("pieces")) named = readPieces(arguments.text("pieces"));
  if (arguments.has("repeats")) {
    solver::PieceSet any = named.value_or(solver::PieceSet::ofEach(1));
    for (int& count : any.count) count = count > 0 ? std::max(count, pieces) : 0;
    return any;
  }
  return named.value_or(solver::PieceSet::ofEach((pieces + PENTO::kTypes - 1) / PENTO::kTypes));
}

std::string objection(const Input& input, const solver::PieceSet& supply) {
  const int area = input.shape.area(), pieces = area / PENTO::kCells;
  if (area % PENTO::kCells != 0)
    return "The shape has " + std::to_string(area) + " cells, which is no multiple of 5." +
           hint(input);
  if (pieces > supply.total())
    return "The shape takes " + plural(static_cast<solver::Count>(pieces), "piece") +
           ", but there " + (supply.total() == 1 ? "is " : "are ") +
           std::to_string(supply.total()) + ".";
  return {};
}

solver::Limits limitsFrom(const Arguments& arguments, Environment& environment,
                          std::uint64_t otherwise) {
  solver::Limits limits;
  limits.threads = solver::threadsOfThisMachine();
  limits.nodes = otherwise;
  if (arguments.has("limit"))
    limits.nodes = static_cast<std::uint64_t>(
        arguments.number("limit", 1, 1, std::numeric_limits<long long>::max()));
  if (!arguments.has("quiet")) {
    limits.reportEvery = std::uint64_t{1} << 27;  // some seconds
    limits.progress = [&err = environment.err](const solver::Work& work) {
      err << "... " << plural(work.nodes, "node") << ", " << plural(work.solutions, "solution")
          << " so far\n";
    };
  }
  return limits;
}

solver::Answer solve(const Input& input, const solver::PieceSet& supply,
                     const solver::Limits& limits, const solver::TypeOrder& order) {
  solver::Answer answer = solver::findSolution({input.shape, supply, input.types}, limits, order);
  if (answer.solution && !input.types.empty()) std::ranges::sort(*answer.solution);
  return answer;
}

solver::Solution solutionOf(const Input& input, const solver::PieceSet& supply,
                            const solver::Limits& limits, const solver::TypeOrder& order) {
  if (!input.solution.empty()) return input.solution;
  if (const std::string reason = objection(input, supply); !reason.empty()) throw Refusal(reason);
  const solver::Answer answer = solve(input, supply, limits, order);
  if (answer.solution) return *answer.solution;
  const std::string pieces = pieceNames(supply);
  if (!answer.work.complete)
    throw Refusal("No tiling by " + pieces + " was found within the limit (--limit).");
  throw Refusal("The shape cannot be tiled by the pieces " + pieces + " (proved with " +
                plural(answer.work.nodes, "node") + ")." + hint(input));
}

}  // namespace puzzle
