#include <chrono>
#include <iomanip>
#include <ostream>
#include <utility>

#include "drafts/Drawing.h"
#include "tool/Commands.h"
#include "tool/Input.h"
#include "tool/Interrupt.h"

// The commands that ask the solver.
namespace puzzle {

namespace {

constexpr std::uint64_t kOften = std::uint64_t{1} << 14;  // nodes: some milliseconds at most

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
  Stopwatch(Stopwatch&&) = delete;

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

/// Ends the search from its report of progress, which is the only place that it calls us at.
struct Interrupted {
  solver::Work work;
};

solver::Work countInterruptibly(const solver::Problem& problem, solver::Counting counting,
                                const solver::Deliver& deliver, solver::Limits limits) {
  limits.progress = [usual = limits.progress, every = std::exchange(limits.reportEvery, kOften),
                     reported = std::uint64_t{0}](const solver::Work& work) mutable {
    if (Interrupt::asked()) throw Interrupted{work};
    if (!usual || work.nodes - reported < every) return;
    reported = work.nodes;
    usual(work);
  };
  try {
    return solver::forEachSolution(problem, counting, deliver, limits);
  } catch (Interrupted& interrupted) {
    interrupted.work.complete = false;
    return interrupted.work;
  }
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
  const Interrupt interrupt;
  const solver::Work work = countInterruptibly(positionOf(input, supply), counting, deliver,
                                               limitsFrom(arguments, environment));
  environment.out << (work.complete ? "" : "at least ") << plural(work.solutions, "solution")
                  << ", " << plural(work.nodes, "node") << "\n";
  if (work.tooLarge) environment.err << kTooMuch;
  if (work.tooLarge) return kTooLarge;
  if (!work.complete) environment.err << (Interrupt::asked() ? "Interrupted.\n" : kLimitReached);
  return work.solutions > 0 ? kDone : kNo;
}

/// The pieces of the table: "5 FILNP", or "5 of 12 FILNPTUVWXYZ" where some are left over.
std::string piecesColumn(const Input& input, const solver::PieceSet& supply) {
  const int used = input.shape.area() / PENTO::kCells, total = supply.total();
  return std::to_string(used) + (used == total ? " " : " of " + std::to_string(total) + " ") +
         pieceNames(supply);
}

}  // namespace

int solveCommand(const Arguments& arguments, Environment& environment) {
  const bool all = arguments.has("count") || arguments.has("all");
  if (arguments.has("up-to-symmetry") && !all)
    throw UsageError("--up-to-symmetry goes with --count or --all.");
  Input input = readInput(arguments.positional[0], environment);
  input.solution.clear();  // it is to be found, not read
  trim(input, 0);
  const solver::PieceSet supply = supplyFor(input, arguments);
  if (const std::string reason = objection(input, supply); !reason.empty()) throw Refusal(reason);
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
    const solver::PieceSet supply = supplyFor(input, arguments);
    if (const std::string reason = objection(input, supply); !reason.empty())
      throw Refusal(file + ": " + reason);
    const solver::Work work =
        solver::countSolutions({input.shape, supply}, solver::Counting::UpToSymmetry,
                               limitsFrom(arguments, environment), solver::Strategy::Scan);
    if (!work.complete) environment.err << input.name << ": " << kLimitReached;
    const char* atLeast = work.complete ? "" : "≥ ";
    environment.out << "| " << input.name << " | " << piecesColumn(input, supply) << " | "
                    << atLeast << solver::decimal(work.solutions) << " | " << atLeast << work.nodes
                    << " |\n"
                    << std::flush;
    if (work.solutions == 0) result = kNo;
    if (!environment.out) break;
  }
  return result;
}

}  // namespace puzzle
