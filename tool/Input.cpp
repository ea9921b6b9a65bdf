#include "tool/Input.h"

#include <algorithm>
#include <fstream>
#include <ostream>

#include "drafts/Drawing.h"
#include "drafts/PuzzleFile.h"
#include "files/Device.h"
#include "files/SafeFile.h"

namespace fs = std::filesystem;

namespace puzzle {

namespace {

constexpr std::size_t kLargestInput = std::size_t{1} << 20;

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

}  // namespace

std::string readAll(const std::string& file, Environment& environment) {
  std::ifstream opened;
  if (file != "-") {
    opened.open(file, std::ios::binary);
    if (!opened || fs::is_directory(file)) throw Refusal(file + ": The file cannot be read.");
  }
  std::istream& in = file == "-" ? environment.in : opened;
  std::string bytes(kLargestInput + 1, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
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

solver::PieceSet supplyFor(const Input& input, const Arguments& arguments) {
  const int pieces = input.shape.area() / PENTO::kCells;
  const bool repeats = arguments.has("repeats");
  solver::PieceSet supply = solver::PieceSet::ofEach(
      repeats ? 1 : std::max(1, (pieces + PENTO::kTypes - 1) / PENTO::kTypes));
  if (input.supply) supply = *input.supply;
  if (arguments.has("pieces")) supply = readPieces(arguments.text("pieces"));
  if (repeats)
    for (int& count : supply.count) count = count == 0 ? 0 : std::max({count, pieces, 1});
  return supply;
}

std::string objection(const solver::Shape& shape, const solver::PieceSet& supply) {
  const int area = shape.area();
  if (area % PENTO::kCells != 0)
    return "The shape has " + std::to_string(area) + " cells, which is no multiple of 5.";
  if (area / PENTO::kCells > supply.total())
    return "The shape takes " + std::to_string(area / PENTO::kCells) + " pieces, and there are " +
           std::to_string(supply.total()) + ".";
  return {};
}

solver::Limits limitsFrom(const Arguments& arguments, Environment& environment,
                          std::uint64_t otherwise) {
  solver::Limits limits;
  limits.nodes = otherwise;
  if (arguments.has("limit"))
    limits.nodes = static_cast<std::uint64_t>(
        arguments.number("limit", 1, 1, std::numeric_limits<long long>::max()));
  if (!arguments.has("quiet")) {
    limits.reportEvery = std::uint64_t{1} << 27;  // some seconds
    limits.progress = [&err = environment.err](const solver::Work& work) {
      err << "... " << work.nodes << " nodes, " << solver::decimal(work.solutions)
          << " solutions so far\n";
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
  if (const std::string reason = objection(input.shape, supply); !reason.empty())
    throw Refusal(reason);
  const solver::Answer answer = solve(input, supply, limits, order);
  if (answer.solution) return *answer.solution;
  const std::string pieces = pieceLetters(supply);
  if (!answer.work.complete)
    throw Refusal("No tiling by " + pieces + " was found within the limit (--limit).");
  throw Refusal("The shape cannot be tiled by the pieces " + pieces + " (proved with " +
                std::to_string(answer.work.nodes) + " nodes).");
}

}  // namespace puzzle
