#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/PENTOGRID.h"

namespace machine {

/// Cells count from the left and from the top.
struct Cell {
  int column = 0;
  int row = 0;
  auto operator<=>(const Cell&) const = default;
  Cell operator+(const Cell& by) const { return {column + by.column, row + by.row}; }
  Cell operator-(const Cell& by) const { return {column - by.column, row - by.row}; }
};

/// A pentomino as five squares of cardboard: the cells it covers when its corner lies on (0, 0).
struct Card {
  const PENTO* object = nullptr;  ///< which it is; null: any of that type
  int type = 0;
  std::set<Cell> cells;

  int width() const;
  int height() const;
  void turn();    ///< a quarter, clockwise
  void mirror();  ///< left becomes right
  bool operator==(const Card& other) const;
};

/// A card that lies somewhere.
struct Laid {
  Card card;
  Cell corner;
  bool operator==(const Laid&) const = default;
};

/// One area on which cards lie: cells that are free to take them, and the cards in the order in
/// which they were laid.
struct Area {
  std::set<Cell> cells;
  std::vector<Laid> laid;

  bool fits(const Card& card, Cell corner) const;
  int at(Cell cell) const;  ///< the card that covers the cell, or -1
  std::size_t freeCells() const { return cells.size() - 5 * laid.size(); }
  void shift(int columns, int rows);  ///< all cards together, if none would leave
  bool operator==(const Area&) const = default;
};

enum Side { kBoard, kTray };

/// The game as it is on a table: a board, a tray, and a hand that holds one card at most. Every
/// card is in exactly one of the three, and no two share a cell.
struct Table {
  std::array<Area, 2> areas;
  std::optional<Card> hand;

  void take(Side from, Cell cell);   ///< does nothing where no card lies
  void lay(Side onto, Cell corner);  ///< does nothing where it does not fit
  bool operator==(const Table&) const = default;
};

/// What the program shows: a grid's cards and cells, and a card for a piece.
Card cardOf(const PENTO& piece, bool which = true);
Area areaOf(const PENTOGRID& grid);

/// The puzzle that a file's first bytes hold, or nothing if they are no puzzle.
std::optional<Area> areaIn(const std::string& bytes);

std::string text(const Table& table);

}  // namespace machine
