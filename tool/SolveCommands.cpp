#include <chrono>
#include <iomanip>
#include <ostream>

#include "drafts/Drawing.h"
#include "tool/Commands.h"
#include "tool/Subject.h"

// The commands that ask the solver.
namespace puzzle {

namespace {

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

int solveAll(const Subject& subject, const solver::PieceSet& supply, const Given& given,
             Surroundings& surroundings) {
  if (!subject.types.empty() && static_cast<int>(subject.types.size()) != subject.shape.area())
    throw Refusal("A drawing that mixes letters and '#' is solved, not counted.");
  const solver::Counting counting =
      given.has("up-to-symmetry") ? solver::Counting::UpToSymmetry : solver::Counting::All;
  solver::Deliver deliver;
  if (given.has("all"))
    deliver = [&](const solver::Solution& solution) {
      surroundings.out << picture(subject.shape, solution) << "\n";
      return true;
    };
  const solver::Work work = solver::forEachSolution({subject.shape, supply}, counting, deliver,
                                                    limitsFrom(given, surroundings));
  surroundings.out << (work.complete ? "" : "at least ") << work.solutions << " solutions, "
                   << work.nodes << " nodes\n";
  if (!work.complete) surroundings.err << "The limit was reached.\n";
  return work.solutions > 0 ? kDone : kNo;
}

}  // namespace

int solveCommand(const Given& given, Surroundings& surroundings) {
  Subject subject = readSubject(given.arguments[0], surroundings);
  subject.solution.clear();  // it is to be found, not read
  const solver::PieceSet supply = supplyFor(subject, given);
  if (const std::string reason = objection(subject.shape, supply); !reason.empty())
    throw Refusal(reason);
  const Stopwatch stopwatch(surroundings.err);
  if (given.has("count") || given.has("all")) return solveAll(subject, supply, given, surroundings);
  const solver::Solution solution = solutionOf(subject, supply, limitsFrom(given, surroundings));
  surroundings.out << "pieces: " << pieceLetters(piecesOf(solution)) << "\n\n"
                   << picture(subject.shape, solution);
  return kDone;
}

int proveCommand(const Given& given, Surroundings& surroundings) {
  int result = kDone;
  surroundings.out << "| puzzle | pieces | solutions | nodes |\n|---|---|---|---|\n";
  for (const std::string& file : given.arguments) {
    const Subject subject = readSubject(file, surroundings);
    const solver::PieceSet supply =
        subject.supply ? *subject.supply
                       : piecesOf(solutionOf(subject, supplyFor(subject, given), {}));
    const solver::Work work =
        solver::countSolutions({subject.shape, supply}, solver::Counting::UpToSymmetry,
                               limitsFrom(given, surroundings), solver::Strategy::Scan);
    const char* atLeast = work.complete ? "" : "≥ ";
    surroundings.out << "| " << subject.name << " | " << supply.total() << " "
                     << pieceLetters(supply) << " | " << atLeast << work.solutions << " | "
                     << atLeast << work.nodes << " |\n"
                     << std::flush;
    if (work.solutions == 0) result = kNo;
  }
  return result;
}

}  // namespace puzzle
