#include <iomanip>
#include <ostream>

#include "model/PuzzleFormat.h"
#include "tool/Commands.h"
#include "tool/Input.h"
#include "tool/Rating.h"

namespace puzzle {

int rateCommand(const Arguments& arguments, Environment& environment) {
  const auto mostNodes =
      static_cast<std::uint64_t>(arguments.number("limit", 5'000'000, 1, kNoLimit));
  int result = kDone;
  environment.out << "| puzzle | rating | level | pieces | solutions | laid | forced | dead end |\n"
                     "|---|---|---|---|---|---|---|---|\n";
  for (const std::string& file : arguments.positional) {
    Input input = readInput(file, environment);
    input.solution.clear();
    trim(input, 0);
    const solver::PieceSet supply = supplyFor(input, arguments);
    if (const std::string reason = objection(input, supply); !reason.empty())
      throw Refusal(file + ": " + reason);
    if (input.shape.area() > PuzzleFormat::kMostPieces * PENTO::kCells)
      throw Refusal(file + ": A puzzle of more than " + std::to_string(PuzzleFormat::kMostPieces) +
                    " pieces is not rated.");
    const Rating rating = rate(input.shape, supply, mostNodes);
    if (rating.solutions == 0) result = kNo;
    environment.out << "| " << input.name << " | ";
    if (rating.complete && rating.solutions > 0)
      environment.out << std::fixed << std::setprecision(1) << rating.value() << " | "
                      << wordsOf(kLevels).at(static_cast<std::size_t>(levelOf(rating))) << " | "
                      << rating.pieces << " | " << rating.solutions << " | " << rating.laid << " | "
                      << rating.forced << " | " << rating.deadEnd << " |\n";
    else
      environment.out << (rating.complete ? "none" : "?") << " | ? | " << rating.pieces << " | "
                      << (rating.complete ? "" : "≥ ") << rating.solutions << " | ? | ? | ? |\n";
    environment.out << std::flush;
  }
  return result;
}

}  // namespace puzzle
