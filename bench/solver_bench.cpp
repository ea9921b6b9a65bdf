#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>

#include "bench/Baseline.h"
#include "bench/NaiveProfiles.h"

// Measures the solver against the plain one in one run and prints tables; only the ratios mean
// something on a machine that has other things to do. Usage: quinzolith-bench-solver

namespace {

using namespace solver;

/// Processor time of this process: other programs' turns do not count.
double milliseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

struct Measured {
  Work work;
  double ms = 0;
};

/// The best of several runs.
template <class Run>
Measured best(int runs, Run&& run) {
  Measured result{{}, 1e300};
  for (int i = 0; i < runs; ++i) {
    const double start = milliseconds();
    result.work = run();
    result.ms = std::min(result.ms, milliseconds() - start);
  }
  return result;
}

void row(const char* name, const char* way, const Measured& measured, double baseline) {
  std::printf("| %-8s | %-22s | %9llu | %10llu | %9.2f | %6.1f |\n", name, way,
              static_cast<unsigned long long>(measured.work.solutions),
              static_cast<unsigned long long>(measured.work.nodes), measured.ms,
              baseline / measured.ms);
}

Shape holedSquare() {
  Shape shape = Shape::rectangle(8, 8);
  for (int x = 3; x < 5; ++x)
    for (int y = 3; y < 5; ++y) shape.set({x, y}, false);
  return shape;
}

/// Ten columns of six cells that rise by `rise` cells in `run` columns.
Shape rising(int rise, int run) {
  Shape shape(10, 6 + 9 * rise / run);
  for (int x = 0; x < 10; ++x)
    for (int y = 0; y < 6; ++y) shape.set({x, x * rise / run + y});
  return shape;
}

void benchAllSolutions(const char* name, const Shape& shape) {
  const Problem problem{shape};
  const Measured plain = best(3, [&] {
    return Baseline<Bits64>(shape, problem.supply, Baseline<Bits64>::Order::ShortSideFirst)
        .countAll();
  });
  row(name, "plain", plain, plain.ms);
  const auto strategy = [&](const char* way, Strategy which, const Deliver& deliver) {
    const Measured measured =
        best(15, [&] { return forEachSolution(problem, Counting::All, deliver, {}, which); });
    row(name, way, measured, plain.ms);
    if (measured.work.solutions != plain.work.solutions) std::puts("THE COUNTS DIFFER");
  };
  strategy("scan", Strategy::Scan, {});
  strategy("branch", Strategy::Branch, {});
  strategy("best, counted", Strategy::Best, {});
  strategy("meeting, counted", Strategy::Meet, {});
  std::size_t pieces = 0;
  strategy("best, each delivered", Strategy::Best, [&](const Solution& solution) {
    pieces += solution.size();
    return true;
  });
}

/// Counting without listing, beside a map over profiles as one would write it first.
void benchCount(const char* name, const Problem& problem, int runs) {
  const Measured naive = best(runs, [&] { return NaiveProfiles(problem).countAll(); });
  const Measured ours = best(runs, [&] { return countSolutions(problem, Counting::All); });
  std::printf("| %-22s | %24s | %10.2f | %8.2f | %6.1f |\n", name,
              decimal(ours.work.solutions).c_str(), naive.ms, ours.ms, naive.ms / ours.ms);
  if (naive.work.solutions != ours.work.solutions) std::puts("THE COUNTS DIFFER");
}

/// As many cells as 6 x 10 has: every second column begins one cell lower.
Shape raggedShape() {
  Shape shape(10, 7);
  for (int x = 0; x < 10; ++x)
    for (int y = 0; y < 6; ++y) shape.set({x, y + x % 2});
  return shape;
}

/// As many again: two parts, with a hole each.
Shape partedShape() {
  Shape shape(13, 6);
  for (int x = 0; x < 13; ++x)
    for (int y = 0; y < 6; ++y)
      if (x % 7 != 6 && !(x % 7 % 3 == 1 && (y == 1 || y == 3 || y == 4))) shape.set({x, y});
  return shape;
}

void benchCounts() {
  std::puts("\n| counted | solutions | naive map ms | ms | ratio |\n|---|---|---|---|---|");
  const auto any = [](const Shape& shape) {
    return Problem{shape, PieceSet::ofEach(shape.area() / PENTO::kCells)};
  };
  benchCount("5 x 10, any pieces", any(Shape::rectangle(10, 5)), 15);
  benchCount("6 x 10, any pieces", any(Shape::rectangle(10, 6)), 5);
  benchCount("7 x 10, any pieces", any(Shape::rectangle(10, 7)), 1);
  benchCount("5 x 25, any pieces", any(Shape::rectangle(25, 5)), 5);
  benchCount("ragged, any pieces", any(raggedShape()), 5);
  benchCount("two parts, any pieces", any(partedShape()), 5);
  Problem several{Shape::rectangle(10, 5), {}};
  for (const int type : {0, 2, 5, 6, 9, 11}) several.supply[type] = 2;
  benchCount("5 x 10, LLPPYYNNVVTT", several, 5);
  benchCount("5 x 8, two of each", {Shape::rectangle(8, 5), PieceSet::ofEach(2)}, 3);
}

int below(std::mt19937_64& random, int limit) {
  return static_cast<int>(random() % static_cast<std::uint64_t>(limit));
}

/// Random pieces laid down one beside the other, each where it touches most of 60 random tries.
Problem randomPuzzle(std::mt19937_64& random, int pieces) {
  Problem problem{Shape(12, 12), {}};
  const auto contacts = [&](const Placement& place) {
    int touching = 0;
    for (const Cell cell : cellsOf(place)) {
      if (cell.x >= 12 || cell.y >= 12 || problem.shape.contains(cell)) return -1;
      for (const Cell near : {Cell{cell.x - 1, cell.y}, Cell{cell.x + 1, cell.y},
                              Cell{cell.x, cell.y - 1}, Cell{cell.x, cell.y + 1}})
        touching += problem.shape.contains(near);
    }
    return touching;
  };
  while (problem.supply.total() < pieces) {
    Placement chosen;
    int most = problem.supply.total() == 0 ? -1 : 0;
    for (int tries = 0; tries < 60; ++tries) {
      const Orientation& piece =
          orientations()[static_cast<std::size_t>(below(random, kOrientations))];
      const Placement place = placementOf(piece, below(random, 12), below(random, 12));
      const int touching = contacts(place);
      if (touching > most) {
        most = touching;
        chosen = place;
      }
    }
    if (most < (problem.supply.total() == 0 ? 0 : 1)) continue;
    for (const Cell cell : cellsOf(chosen)) problem.shape.set(cell);
    ++problem.supply[chosen.type];
  }
  problem.shape = problem.shape.trimmed();
  return problem;
}

/// One piece replaced by another: mostly without a solution.
Problem spoiled(Problem problem, std::mt19937_64& random) {
  int from = below(random, PENTO::kTypes);
  while (problem.supply[from] == 0) from = (from + 1) % PENTO::kTypes;
  --problem.supply[from];
  ++problem.supply[(from + 1 + below(random, PENTO::kTypes - 1)) % PENTO::kTypes];
  return problem;
}

struct Series {
  std::vector<double> times;
  std::uint64_t nodes = 0;

  void add(const Measured& measured) {
    times.push_back(measured.ms);
    nodes += measured.work.nodes;
  }
  double total() const {
    double sum = 0;
    for (const double time : times) sum += time;
    return sum;
  }
  void print(const char* kind, int pieces, const char* way, const Series& plain) {
    std::ranges::sort(times);
    std::printf("| %-10s | %2d | %3zu | %-18s | %11llu | %8.3f | %9.2f | %10.1f | %6.1f |\n", kind,
                pieces, times.size(), way, static_cast<unsigned long long>(nodes),
                times[times.size() / 2], times.back(), total(), plain.total() / total());
  }
};

void benchFirst(const char* kind, const std::vector<Problem>& problems) {
  using Plain = Baseline<Bits128>;
  Series ours, columns, rows, better;
  for (const Problem& problem : problems) {
    Work work;
    ours.add(best(3, [&] {
      const Answer answer = findSolution(problem);
      work = answer.work;
      return answer.work;
    }));
    const auto plain = [&](Series& series, Plain::Order order) {
      Plain solver(problem.shape, problem.supply, order);  // its tables are not measured, ours are
      const Measured measured = best(1, [&] { return solver.findFirst(); });
      series.add(measured);
      if (measured.work.solutions != work.solutions) std::puts("THE ANSWERS DIFFER");
      return measured;
    };
    const Measured byColumns = plain(columns, Plain::Order::ShortSideFirst);
    const Measured byRows = plain(rows, Plain::Order::LongSideFirst);
    better.add(byColumns.ms < byRows.ms ? byColumns : byRows);
  }
  const int pieces = problems.front().supply.total();
  const Series reference = better;
  better.print(kind, pieces, "plain, better side", reference);
  columns.print(kind, pieces, "plain, short side", reference);
  rows.print(kind, pieces, "plain, long side", reference);
  ours.print(kind, pieces, "solver", reference);
}

/// Shapes that cannot be tiled, proved so by our solver; the plain one must agree.
std::vector<Problem> unsolvable(std::mt19937_64& random, int pieces, std::size_t count) {
  std::vector<Problem> problems;
  while (problems.size() < count) {
    const Problem problem = spoiled(randomPuzzle(random, pieces), random);
    if (!findSolution(problem).solution) problems.push_back(problem);
  }
  return problems;
}

}  // namespace

int main() {
  const double start = milliseconds();
  countSolutions({Shape::rectangle(10, 6)}, Counting::All);
  std::printf("First count of 6 x 10 in this process, tables included: %.2f ms\n\n",
              milliseconds() - start);
  std::puts("| shape | way | solutions | nodes | ms | ratio |\n|---|---|---|---|---|---|");
  benchAllSolutions("6 x 10", Shape::rectangle(10, 6));
  benchAllSolutions("5 x 12", Shape::rectangle(12, 5));
  benchAllSolutions("4 x 15", Shape::rectangle(15, 4));
  benchAllSolutions("3 x 20", Shape::rectangle(20, 3));
  benchAllSolutions("8 x 8", holedSquare());
  benchAllSolutions("2 in 3", rising(2, 3));
  benchAllSolutions("3 in 5", rising(3, 5));
  benchCounts();

  std::puts(
      "\n| answer | pieces | shapes | way | nodes | median ms | worst ms | total ms | ratio |");
  std::puts("|---|---|---|---|---|---|---|---|---|");
  std::mt19937_64 random(20240607);
  for (const int pieces : {6, 9, 12, 15}) {
    std::vector<Problem> solvable(pieces == 15 ? 400 : 100);
    for (Problem& problem : solvable) problem = randomPuzzle(random, pieces);
    benchFirst("first", solvable);
  }
  for (const int pieces : {6, 9, 12, 15})
    benchFirst("none", unsolvable(random, pieces, pieces == 15 ? 400 : 100));
}
