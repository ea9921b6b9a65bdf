#include "play/HintSearch.h"

#include <algorithm>

namespace {

solver::Cell cellOf(const PENTO& piece, int i) {
  return {piece.X() + piece.GridX(i), piece.Y() + piece.GridY(i)};
}

PENTO pieceOf(const solver::Placement& placement) {
  PENTO piece;
  piece.PentoType(static_cast<std::int16_t>(placement.type));
  for (int i = 0; i < placement.rotations; ++i) piece.Rotate();
  for (int i = 0; i < placement.flips; ++i) piece.Flip();
  piece.SetPosition(static_cast<std::int16_t>(placement.x), static_cast<std::int16_t>(placement.y));
  return piece;
}

}  // namespace

HintSearch::HintSearch(const PENTOGRID& board, const std::vector<PentoRef>& loose)
    : free_(board.Width(), board.Height()) {
  for (int x = 0; x < board.Width(); ++x)
    for (int y = 0; y < board.Height(); ++y)
      if (board.IsEmpty(x, y)) free_.set({x, y});
  for (const PentoRef& piece : loose) loose_.push_back(piece->PentoType());
  for (const auto& [id, piece] : board.PentoCollection()) laid_.push_back({*piece});
  tried_ = laid_.size();
  ask();
}

bool HintSearch::goOn(std::uint64_t nodes) {
  return search_->goOn(nodes) && take(search_->answer().solution);
}

void HintSearch::ask() {
  solver::Problem problem{free_, solver::PieceSet::ofEach(0)};
  for (const int type : loose_) ++problem.supply[type];
  for (const Laid& laid : laid_) {
    if (laid.stays) continue;
    ++problem.supply[laid.piece.PentoType()];
    for (int i = 0; i < PENTO::kCells; ++i) problem.shape.set(cellOf(laid.piece, i));
  }
  search_.emplace(std::move(problem));
}

bool HintSearch::take(const std::optional<solver::Solution>& solution) {
  if (allows_) {
    laid_[tried_].stays = solution.has_value();
    return tryNext();
  }
  if (!solution) return takeUpAnother();
  if (tried_ == laid_.size()) return tellFitting(*solution);
  allows_ = true;
  return tryNext();
}

bool HintSearch::takeUpAnother() {
  if (tried_ == 0) return true;
  laid_[--tried_].stays = false;
  ask();
  return false;
}

bool HintSearch::tryNext() {
  if (++tried_ < laid_.size()) {
    laid_[tried_].stays = true;
    ask();
    return false;
  }
  answer_.finding = Finding::TakeUp;
  for (const Laid& laid : laid_)
    if (!laid.stays) answer_.pieces.push_back(laid.piece);
  return true;
}

bool HintSearch::tellFitting(const solver::Solution& solution) {
  for (const int type : loose_) {
    const auto place = std::ranges::find(solution, type, &solver::Placement::type);
    if (place == solution.end()) continue;
    answer_ = {Finding::Fits, {pieceOf(*place)}};
    break;
  }
  return true;
}
