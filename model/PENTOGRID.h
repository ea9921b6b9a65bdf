#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "model/PENTO.h"

/// The pieces of a grid in the order in which they were placed, each under the id it was given.
class PlacedPentos {
 public:
  using Entry = std::pair<std::int32_t, PentoRef>;  ///< id, piece

  std::size_t Count() const { return entries_.size(); }
  const PentoRef& at(std::size_t position) const { return entries_.at(position).second; }
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

 private:
  friend class PENTOGRID;
  std::vector<Entry> entries_;
};

/// A grid of cells and the pieces that lie on it. Placed pieces never overlap and never cover
/// background.
///
/// Shape:  Width x Height cells; (0, 0) is the top left, x the column, y the row.
/// Cells:  kEmpty (free), kBackground (no part of the playing area), or 1 and up: the id of the
///         covering piece. An id is not handed out twice between two Clears.
/// Errors: std::out_of_range for a cell outside the grid, except where noted.
class PENTOGRID {
 public:
  static constexpr std::int32_t kEmpty = 0;
  static constexpr std::int32_t kBackground = -1;

  /// The live collection, in placing order; callers look and do not change it.
  const PlacedPentos& PentoCollection() const { return Pentos; }

  /// Makes all cells anew, empty. Pieces in the collection and the next id stay as they are.
  /// Errors: std::length_error for a negative size.
  void SetGridSize(std::int16_t Width, std::int16_t Height);
  std::int16_t Width() const { return width_; }
  std::int16_t Height() const { return height_; }

  void SetGridEmpty(int X, int Y) { cell(X, Y) = kEmpty; }
  void SetGridBackground(int X, int Y) { cell(X, Y) = kBackground; }
  bool IsEmpty(int X, int Y) const { return cell(X, Y) == kEmpty; }
  bool IsBackground(int X, int Y) const { return cell(X, Y) == kBackground; }

  /// The raw cell value; 0 outside the grid.
  std::int32_t PentoID(int X, int Y) const { return contains(X, Y) ? Cells[index(X, Y)] : kEmpty; }

  /// The piece that covers the cell, or null.
  PentoRef PentoAt(int X, int Y) const;

  /// Lays P down with its top-left corner at (X, Y). False, with nothing changed, when one of its
  /// cells would leave the grid or is not empty. Accepts any coordinates.
  bool AddPento(const PentoRef& P, int X, int Y);

  /// Whether AddPento would put P there.
  bool fits(const PENTO& P, int X, int Y) const;

  /// Takes the piece that covers the cell off the grid and gives it the position at which it lay.
  /// Errors: std::out_of_range when no piece covers the cell.
  PentoRef RemovePento(int X, int Y);

  /// Takes every piece off; empty and background cells stay. The next id is 1 again.
  void Clear();

  /// A walk over the pieces in placing order. NextPento is null after the last one.
  /// Errors: std::out_of_range from FirstPento on a grid without pieces.
  PentoRef FirstPento();
  PentoRef NextPento();

  /// Shift everything inside the one-cell outer ring by one cell. Nothing happens when the line
  /// that would be pushed out is not all empty.
  void MoveLeft() { shift(-1, 0); }
  void MoveRight() { shift(1, 0); }
  void MoveUp() { shift(0, -1); }
  void MoveDown() { shift(0, 1); }

 private:
  bool contains(int X, int Y) const { return X >= 0 && X < width_ && Y >= 0 && Y < height_; }
  std::size_t index(int X, int Y) const {
    return static_cast<std::size_t>(X) * static_cast<std::size_t>(height_) +
           static_cast<std::size_t>(Y);
  }
  std::int32_t& cell(int X, int Y);
  const std::int32_t& cell(int X, int Y) const;
  bool edgeIsEmpty(int dx, int dy) const;
  void shift(int dx, int dy);

  PlacedPentos Pentos;
  std::int16_t IterIndex = 0;
  std::int16_t width_ = 0;
  std::int16_t height_ = 0;
  std::vector<std::int32_t> Cells;  // column by column
  std::int32_t NextID = 1;
};
