#include "tests/machine/Table.h"

#include <algorithm>
#include <string_view>

namespace machine {

namespace {

constexpr int kBoardSize = 14;

std::set<Cell> mapped(const std::set<Cell>& cells, auto function) {
  std::set<Cell> result;
  for (const Cell& cell : cells) result.insert(function(cell));
  return result;
}

}  // namespace

int Card::width() const {
  int width = 0;
  for (const Cell& cell : cells) width = std::max(width, cell.column + 1);
  return width;
}

int Card::height() const {
  int height = 0;
  for (const Cell& cell : cells) height = std::max(height, cell.row + 1);
  return height;
}

void Card::turn() {
  const int high = height();
  cells = mapped(cells, [&](Cell cell) { return Cell{high - 1 - cell.row, cell.column}; });
}

void Card::mirror() {
  const int wide = width();
  cells = mapped(cells, [&](Cell cell) { return Cell{wide - 1 - cell.column, cell.row}; });
}

bool Card::operator==(const Card& other) const {
  const bool same = !object || !other.object || object == other.object;
  return same && type == other.type && cells == other.cells;
}

int Area::at(Cell cell) const {
  for (std::size_t i = 0; i < laid.size(); ++i) {
    const Cell corner = laid[i].corner;
    if (laid[i].card.cells.contains({cell.column - corner.column, cell.row - corner.row}))
      return static_cast<int>(i);
  }
  return -1;
}

bool Area::fits(const Card& card, Cell corner) const {
  return std::all_of(card.cells.begin(), card.cells.end(), [&](Cell cell) {
    const Cell there{corner.column + cell.column, corner.row + cell.row};
    return cells.contains(there) && at(there) < 0;
  });
}

void Area::shift(int columns, int rows) {
  Area shifted{cells, {}};
  for (const Laid& card : laid) {
    const Cell corner{card.corner.column + columns, card.corner.row + rows};
    for (const Cell& cell : card.card.cells)
      if (!cells.contains({corner.column + cell.column, corner.row + cell.row})) return;
    shifted.laid.push_back({card.card, corner});
  }
  *this = shifted;
}

void Table::take(Side from, Cell cell) {
  Area& area = areas.at(from);
  const int which = area.at(cell);
  if (which < 0) return;
  hand = area.laid.at(static_cast<std::size_t>(which)).card;
  area.laid.erase(area.laid.begin() + which);
}

void Table::lay(Side onto, Cell corner) {
  if (!hand || !areas.at(onto).fits(*hand, corner)) return;
  areas.at(onto).laid.push_back({*hand, corner});
  hand.reset();
}

Card cardOf(const PENTO& piece, bool which) {
  Card card{which ? &piece : nullptr, piece.PentoType(), {}};
  for (int i = 0; i < PENTO::kCells; ++i) card.cells.insert({piece.GridX(i), piece.GridY(i)});
  return card;
}

Area areaOf(const PENTOGRID& grid) {
  Area area;
  for (int column = 0; column < grid.Width(); ++column)
    for (int row = 0; row < grid.Height(); ++row)
      if (!grid.IsBackground(column, row)) area.cells.insert({column, row});
  for (const auto& [id, piece] : grid.PentoCollection())
    area.laid.push_back({cardOf(*piece), {piece->X(), piece->Y()}});
  return area;
}

namespace {

// Where the numbers of a puzzle file stand, and how many bytes they have.
constexpr std::size_t kCellsAt = 39, kCountAt = 431, kPiecesAt = 435, kRecord = 10;
constexpr std::string_view kSignature = "Quinzolith/Kelvo Software/";

int numberAt(const std::string& bytes, std::size_t at) {
  const auto low = static_cast<unsigned char>(bytes.at(at));
  const auto high = static_cast<unsigned char>(bytes.at(at + 1));
  return static_cast<std::int16_t>(high << 8 | low);
}

Laid pieceAt(const std::string& bytes, std::size_t at) {
  PENTO piece;
  piece.PentoType(static_cast<std::int16_t>(numberAt(bytes, at)));
  for (int turns = numberAt(bytes, at + 6); turns > 0; --turns) piece.Rotate();
  if (numberAt(bytes, at + 8)) piece.Flip();
  return {cardOf(piece, false), {numberAt(bytes, at + 2), numberAt(bytes, at + 4)}};
}

}  // namespace

std::optional<Area> areaIn(const std::string& bytes) {
  if (!bytes.starts_with(kSignature) || bytes.size() < kPiecesAt) return {};
  Area area;
  for (int column = 0; column < kBoardSize; ++column)
    for (int row = 0; row < kBoardSize; ++row)
      if (numberAt(bytes, kCellsAt + 2 * static_cast<std::size_t>(kBoardSize * column + row)) == 0)
        area.cells.insert({column, row});
  const auto pieces = static_cast<std::size_t>(numberAt(bytes, kCountAt));
  if (bytes.size() < kPiecesAt + kRecord * pieces) return {};
  for (std::size_t i = 0; i < pieces; ++i)
    area.laid.push_back(pieceAt(bytes, kPiecesAt + kRecord * i));
  return area;
}

namespace {

std::string text(const Card& card) {
  std::string result(1, pentominoLetter(card.type));
  for (const Cell& cell : card.cells)
    result += " " + std::to_string(cell.column) + std::to_string(cell.row);
  return result;
}

}  // namespace

std::string text(const Table& table) {
  std::string result;
  for (Side side : {kBoard, kTray}) {
    result += side == kBoard ? "board:" : " tray:";
    for (const Laid& laid : table.areas.at(side).laid)
      result += " [" + text(laid.card) + " at " + std::to_string(laid.corner.column) + "," +
                std::to_string(laid.corner.row) + "]";
  }
  return result + " hand: " + (table.hand ? text(*table.hand) : "empty");
}

}  // namespace machine
