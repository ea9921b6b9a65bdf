#pragma once

#include <array>
#include <cstdint>
#include <memory>

/// One pentomino: a piece type, its five cells, where it lies and how it is turned.
///
/// Shape:  five cells relative to the top-left corner of the piece's own bounding box.
/// Units:  cells while the piece lies on a grid; device pixels of a drawing surface while it floats
///         (only the position changes its meaning). x grows to the right, y grows downward.
/// Normal form: after a valid type is assigned and after every Rotate and Flip, the smallest x and
///         the smallest y are 0.
/// Orientation: on a piece whose type was assigned while both counters were 0, the cells are the
///         type's base cells turned RotationCount times and then mirrored FlipCount times, cell for
///         cell in the same slots. Writing a counter from outside breaks that promise.
///
/// Pieces are shared by reference: the same piece floats in two board controls at once.
class PENTO {
 public:
  static constexpr int kTypes = 12;  ///< Y I L W Z P V F X N U T
  static constexpr int kCells = 5;   ///< cells of every valid type
  static constexpr int kSlots = 6;   ///< cell slots; the last one is never used

  std::int16_t RotationCount = 0;  ///< clockwise quarter turns, 0 to 3
  std::int16_t FlipCount = 0;      ///< 1 when mirrored, else 0

  /// A flag for the owner; no operation of the piece reads or changes it.
  bool Visible() const { return visible_; }
  void Visible(bool visible) { visible_ = visible; }

  /// Coordinates of cell `I`. Errors: std::out_of_range unless 0 <= I <= 5.
  std::int16_t GridX(int I) const { return CellX.at(static_cast<std::size_t>(I)); }
  std::int16_t GridY(int I) const { return CellY.at(static_cast<std::size_t>(I)); }

  /// Extent in cells: 1 + the largest coordinate among slots 0 to 4.
  std::int16_t Width() const;
  std::int16_t Height() const;

  std::int16_t X() const { return PosX; }
  std::int16_t Y() const { return PosY; }
  void SetPosition(std::int16_t X, std::int16_t Y);

  std::int16_t PentoType() const { return PieceType; }
  /// Gives the piece the base cells of type `T`. Counters and position stay. A number that is no
  /// type is stored, and the piece then has no cells in use.
  void PentoType(std::int16_t T);

  void Rotate();  ///< a clockwise quarter turn; the top-left corner stays where it is
  void Flip();    ///< a left-right mirroring; the top-left corner stays where it is

  /// Sets the counter and moves no cell.
  void SetRotationCount(std::int16_t R) { RotationCount = R; }

 private:
  void AddCell(std::int16_t x, std::int16_t y);
  void Normalize();

  std::int16_t PieceType = 0;
  std::array<std::int16_t, kSlots> CellX{};
  std::array<std::int16_t, kSlots> CellY{};
  std::int16_t PosX = 0;
  std::int16_t PosY = 0;
  std::int16_t CellCount = 0;
  bool visible_ = false;
};

using PentoRef = std::shared_ptr<PENTO>;

/// The usual letter of a piece type ('Y' for 0 ... 'T' for 11), '?' for any other number.
char pentominoLetter(int type);
/// The piece type of a letter of either case, -1 for a letter that names no pentomino.
int pentominoType(char letter);
