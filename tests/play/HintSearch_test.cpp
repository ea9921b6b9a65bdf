#include "play/HintSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

#include "catalogue/Catalogue.h"
#include "model/PuzzleFormat.h"
#include "tests/files/FileBytes.h"
#include "tests/model/Pieces.h"

namespace {

/// A puzzle as a player has it: some pieces lie, the others are loose.
struct Position {
  PENTOGRID board = ringedGrid(PuzzleFormat::kBoardSize, PuzzleFormat::kBoardSize);
  std::vector<PentoRef> loose;
};

bool lay(PENTOGRID& board, const PENTO& piece) {
  return board.AddPento(std::make_shared<PENTO>(piece), piece.X(), piece.Y());
}

/// The number of solutions up to one, by the scan and not by the race that is tested.
bool allowsSolution(const PENTOGRID& board, const std::vector<int>& loose) {
  solver::Problem problem{{board.Width(), board.Height()}, solver::PieceSet::ofEach(0)};
  for (int x = 0; x < board.Width(); ++x)
    for (int y = 0; y < board.Height(); ++y) problem.shape.set({x, y}, board.IsEmpty(x, y));
  for (const int type : loose) ++problem.supply[type];
  solver::Limits one;
  one.solutions = 1;
  return solver::countSolutions(problem, solver::Counting::All, one, solver::Strategy::Scan)
             .solutions > 0;
}

std::vector<int> typesOf(const std::vector<PentoRef>& pieces) {
  std::vector<int> types;
  for (const PentoRef& piece : pieces) types.push_back(piece->PentoType());
  return types;
}

/// Whether a solution is left when these pieces are taken up, all but one of them.
bool allowsWithout(const Position& position, const std::vector<PENTO>& gone, std::size_t spared) {
  PENTOGRID board = position.board;
  std::vector<int> loose = typesOf(position.loose);
  for (std::size_t i = 0; i < gone.size(); ++i) {
    if (i == spared) continue;
    const PENTO& piece = gone[i];
    const int x = piece.X() + piece.GridX(0), y = piece.Y() + piece.GridY(0);
    EXPECT_EQ(board.PentoAt(x, y)->PentoType(), piece.PentoType());
    board.RemovePento(x, y);
    loose.push_back(piece.PentoType());
  }
  return allowsSolution(board, loose);
}

class StandardPuzzle : public testing::TestWithParam<Catalogue::Entry> {
 protected:
  static constexpr int kEach = 10;
  static constexpr std::uint64_t kSlice = 500;  // nodes
  static constexpr std::uint64_t kMost = 2'000'000;

  StandardPuzzle() {
    const auto file = std::filesystem::path(QUINZOLITH_SOURCE_DIR) / "puzzles" /
                      (std::string(GetParam().key) + ".qzl");
    for (const PuzzleFormat::PieceRecord& record : PuzzleFormat::read(bytesOf(file)).pieces) {
      solution_.push_back(*makePiece(record.type, record.rotations, record.flips));
      solution_.back().SetPosition(record.x, record.y);
    }
  }

  Position empty() const {
    Position position;
    PENTOGRID covered = position.board;
    for (const PENTO& piece : solution_) EXPECT_TRUE(lay(covered, piece));
    for (int x = 0; x < covered.Width(); ++x)
      for (int y = 0; y < covered.Height(); ++y)
        if (covered.PentoID(x, y) < 1) position.board.SetGridBackground(x, y);
    return position;
  }

  int random(std::size_t below) { return static_cast<int>(engine_() % below); }

  /// Lays from none to all but one of the pieces, as they lie in a solution.
  Position onTheWay() {
    Position position = empty();
    std::ranges::shuffle(solution_, engine_);
    const int laid = random(solution_.size());
    for (std::size_t i = 0; i < solution_.size(); ++i)
      if (static_cast<int>(i) < laid)
        lay(position.board, solution_[i]);
      else
        position.loose.push_back(std::make_shared<PENTO>(solution_[i]));
    return position;
  }

  /// Lays pieces anywhere, none, one or more of them after some that lie well, until no solution
  /// is left.
  Position hopeless() {
    for (;;) {
      Position position = onTheWay();
      while (!position.loose.empty()) {
        if (!layAnywhere(position)) break;
        if (!allowsSolution(position.board, typesOf(position.loose))) return position;
      }
    }
  }

  bool layAnywhere(Position& position) {
    const PentoRef piece = position.loose.back();
    for (int attempt = 0; attempt < 1000; ++attempt) {
      if (random(2) == 0) piece->Rotate();
      if (random(2) == 0) piece->Flip();
      if (!position.board.AddPento(piece, random(14), random(14))) continue;
      position.loose.pop_back();
      return true;
    }
    return false;
  }

  /// Within as many nodes as a machine of today does in a small part of a second.
  static HintSearch::Answer answerOf(const Position& position) {
    HintSearch search(position.board, position.loose);
    for (std::uint64_t nodes = 0; !search.goOn(kSlice); nodes += kSlice)
      if (nodes > kMost) ADD_FAILURE() << "That takes too long.";
    return search.answer();
  }

  std::vector<PENTO> solution_;
  std::mt19937 engine_{5};
};

TEST_P(StandardPuzzle, APieceIsToldWhereASolutionIsLeft) {
  for (int i = 0; i < kEach; ++i) {
    const Position position = onTheWay();
    const HintSearch::Answer answer = answerOf(position);
    ASSERT_EQ(answer.finding, HintSearch::Finding::Fits);
    ASSERT_EQ(answer.pieces.size(), 1u);
    ASSERT_EQ(answer.pieces[0].PentoType(), position.loose[0]->PentoType());
    PENTOGRID board = position.board;
    ASSERT_TRUE(lay(board, answer.pieces[0]));
    std::vector<int> loose = typesOf(position.loose);
    loose.erase(loose.begin());
    EXPECT_TRUE(allowsSolution(board, loose));
  }
}

TEST_P(StandardPuzzle, NoneOfThePiecesThatMustGoCanBeSpared) {
  for (int i = 0; i < kEach; ++i) {
    const Position position = hopeless();
    const HintSearch::Answer answer = answerOf(position);
    ASSERT_EQ(answer.finding, HintSearch::Finding::TakeUp);
    ASSERT_FALSE(answer.pieces.empty());
    EXPECT_TRUE(allowsWithout(position, answer.pieces, answer.pieces.size()));
    for (std::size_t spared = 0; spared < answer.pieces.size(); ++spared)
      EXPECT_FALSE(allowsWithout(position, answer.pieces, spared));
  }
}

INSTANTIATE_TEST_SUITE_P(All, StandardPuzzle,
                         testing::ValuesIn(Catalogue::entries().begin(),
                                           Catalogue::entries().end()));

TEST(HintSearch, KnowsNothingOfAShapeThatThePiecesNeverFill) {
  PENTOGRID board;
  board.SetGridSize(10, 1);
  HintSearch search(board, {makePiece(1), makePiece(2)});
  while (!search.goOn(1)) continue;
  EXPECT_EQ(search.answer().finding, HintSearch::Finding::NotKnown);
}

}  // namespace
