#include <chrono>
#include <iomanip>
#include <ostream>

#include "drafts/Drawing.h"
#include "tool/Commands.h"
#include "tool/Input.h"

// The commands that ask the solver.
namespace puzzle {

namespace {

constexpr const char* kLimitReached = "The limit was reached.\n";
constexpr const char* kTooMuch =
    "There are more: counting all takes more than 1 GiB, or 128 bits.\n";

/// Tells on `err` how long something took, when it ends.
class Stopwatch {
 public:
  explicit Stopwatch(std::ostream& err) : err_(err) {}
  ~Stopwatch() {
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start_;
    err_ << std::fixed << std::setprecision(3) << taken.count() << " s\n";
  }
  Stopwatch(const Stopwatch&) = delete;
  Stopwatch& operator=(const Stopwatch&) = delete;

 private:
  std::ostream& err_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// Letters are kept, unless all cells have one: then they are a solution, and others are sought
/// too.
solver::Problem positionOf(const Input& input, const solver::PieceSet& supply) {
  solver::Problem problem{input.shape, supply};
  if (static_cast<int>(input.types.size()) != input.shape.area()) problem.kept = input.types;
  return problem;
}

int solveAll(const Input& input, const solver::PieceSet& supply, const Arguments& arguments,
             Environment& environment) {
  const solver::Counting counting =
      arguments.has("up-to-symmetry") ? solver::Counting::UpToSymmetry : solver::Counting::All;
  solver::Deliver deliver;
  if (arguments.has("all"))
    deliver = [&](const solver::Solution& solution) {
      environment.out << picture(input.shape, solution) << "\n" << std::flush;
      return environment.out.good();
    };
  const solver::Work work = solver::forEachSolution(positionOf(input, supply), counting, deliver,
                                                    limitsFrom(arguments, environment));
  environment.out << (work.complete ? "" : "at least ") << solver::decimal(work.solutions)
                  << " solutions, " << work.nodes << " nodes\n";
  if (work.tooLarge) environment.err << kTooMuch;
  if (work.tooLarge) return kTooLarge;
  if (!work.complete) environment.err << kLimitReached;
  return work.solutions > 0 ? kDone : kNo;
}

}  // namespace

int solveCommand(const Arguments& arguments, Environment& environment) {
  const bool all = arguments.has("count") || arguments.has("all");
  if (arguments.has("up-to-symmetry") && !all)
    throw UsageError("--up-to-symmetry goes with --count or --all.");
  Input input = readInput(arguments.positional[0], environment);
  input.solution.clear();  // it is to be found, not read
  const solver::PieceSet supply = supplyFor(input, arguments);
  if (const std::string reason = objection(input.shape, supply); !reason.empty())
    throw Refusal(reason);
  const Stopwatch stopwatch(environment.err);
  if (all) return solveAll(input, supply, arguments, environment);
  const solver::Solution solution = solutionOf(input, supply, limitsFrom(arguments, environment));
  environment.out << "pieces: " << pieceLetters(piecesOf(solution)) << "\n\n"
                  << picture(input.shape, solution);
  return kDone;
}

int proveCommand(const Arguments& arguments, Environment& environment) {
  int result = kDone;
  environment.out << "| puzzle | pieces | solutions | nodes |\n|---|---|---|---|\n";
  for (const std::string& file : arguments.positional) {
    const Input input = readInput(file, environment);
    const solver::Limits limits = limitsFrom(arguments, environment);
    const solver::PieceSet supply =
        input.supply ? *input.supply
                     : piecesOf(solutionOf(input, supplyFor(input, arguments), limits));
    const solver::Work work = solver::countSolutions(
        {input.shape, supply}, solver::Counting::UpToSymmetry, limits, solver::Strategy::Scan);
    if (!work.complete) environment.err << input.name << ": " << kLimitReached;
    const char* atLeast = work.complete ? "" : "≥ ";
    environment.out << "| " << input.name << " | " << supply.total() << " " << pieceLetters(supply)
                    << " | " << atLeast << solver::decimal(work.solutions) << " | " << atLeast
                    << work.nodes << " |\n"
                    << std::flush;
    if (work.solutions == 0) result = kNo;
    if (!environment.out) break;
  }
  return result;
}

}  // namespace puzzle
