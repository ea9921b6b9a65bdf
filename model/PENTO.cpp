#include "model/PENTO.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace {

struct BaseCell {
  std::int16_t x, y;
};

constexpr std::string_view kLetters = "YILWZPVFXNUT";

constexpr std::array<std::array<BaseCell, PENTO::kCells>, PENTO::kTypes> kBaseCells{{
    {{{0, 0}, {1, 0}, {2, 0}, {1, 1}, {3, 0}}},  // Y
    {{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}}},  // I
    {{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}}},  // L
    {{{0, 0}, {0, 1}, {1, 1}, {1, 2}, {2, 2}}},  // W
    {{{0, 0}, {0, 1}, {1, 1}, {2, 1}, {2, 2}}},  // Z
    {{{0, 0}, {0, 1}, {1, 0}, {1, 1}, {2, 1}}},  // P
    {{{0, 0}, {0, 1}, {0, 2}, {1, 2}, {2, 2}}},  // V
    {{{1, 0}, {1, 1}, {0, 1}, {2, 1}, {2, 2}}},  // F
    {{{1, 0}, {1, 1}, {0, 1}, {2, 1}, {1, 2}}},  // X
    {{{0, 0}, {1, 0}, {1, 1}, {2, 1}, {3, 1}}},  // N
    {{{0, 0}, {0, 1}, {1, 1}, {2, 1}, {2, 0}}},  // U
    {{{0, 0}, {1, 0}, {2, 0}, {1, 1}, {1, 2}}},  // T
}};

constexpr int kMirror = 5;    // any constant serves: Normalize brings the cells back to 0
constexpr int kFarAway = 10;  // beyond every coordinate that a turn can give

std::int16_t extent(const std::array<std::int16_t, PENTO::kSlots>& coordinates) {
  std::int16_t largest = 0;
  for (std::size_t i = 0; i < PENTO::kCells; ++i) largest = std::max(largest, coordinates[i]);
  return static_cast<std::int16_t>(1 + largest);
}

}  // namespace

std::int16_t PENTO::Width() const {
  return extent(CellX);
}
std::int16_t PENTO::Height() const {
  return extent(CellY);
}

void PENTO::SetPosition(std::int16_t X, std::int16_t Y) {
  PosX = X;
  PosY = Y;
}

void PENTO::PentoType(std::int16_t T) {
  CellCount = 0;
  PieceType = T;
  if (T < 0 || T >= kTypes) return;
  for (const BaseCell& cell : kBaseCells[static_cast<std::size_t>(T)]) AddCell(cell.x, cell.y);
}

void PENTO::Rotate() {
  for (std::size_t i = 0; i < static_cast<std::size_t>(CellCount); ++i) {
    const int oldX = CellX[i];
    CellX[i] = static_cast<std::int16_t>(kMirror - CellY[i]);
    CellY[i] = static_cast<std::int16_t>(oldX);
  }
  // Turning a mirrored shape once equals three turns of the plain one, mirrored afterwards.
  RotationCount = static_cast<std::int16_t>((RotationCount + (FlipCount == 0 ? 1 : 3)) % 4);
  Normalize();
}

void PENTO::Flip() {
  for (std::size_t i = 0; i < static_cast<std::size_t>(CellCount); ++i)
    CellX[i] = static_cast<std::int16_t>(kMirror - CellX[i]);
  FlipCount = static_cast<std::int16_t>((FlipCount + 1) % 2);
  Normalize();
}

void PENTO::AddCell(std::int16_t x, std::int16_t y) {
  CellX.at(static_cast<std::size_t>(CellCount)) = x;
  CellY.at(static_cast<std::size_t>(CellCount)) = y;
  ++CellCount;
}

void PENTO::Normalize() {
  int smallestX = kFarAway, smallestY = kFarAway;
  for (std::size_t i = 0; i < static_cast<std::size_t>(CellCount); ++i) {
    smallestX = std::min<int>(smallestX, CellX[i]);
    smallestY = std::min<int>(smallestY, CellY[i]);
  }
  for (std::size_t i = 0; i < static_cast<std::size_t>(CellCount); ++i) {
    CellX[i] = static_cast<std::int16_t>(CellX[i] - smallestX);
    CellY[i] = static_cast<std::int16_t>(CellY[i] - smallestY);
  }
}

char pentominoLetter(int type) {
  return type >= 0 && type < PENTO::kTypes ? kLetters[static_cast<std::size_t>(type)] : '?';
}

int pentominoType(char letter) {
  const auto upper = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  const std::size_t position = kLetters.find(upper);
  return position == std::string_view::npos ? -1 : static_cast<int>(position);
}
