#include "model/PENTOGRID.h"

#include <algorithm>
#include <stdexcept>

namespace {

auto entryOf(std::int32_t id) {
  return [id](const PlacedPentos::Entry& entry) { return entry.first == id; };
}

}  // namespace

void PENTOGRID::SetGridSize(std::int16_t Width, std::int16_t Height) {
  if (Width < 0 || Height < 0) throw std::length_error("A grid cannot have a negative size.");
  width_ = Width;
  height_ = Height;
  Cells.assign(static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height), kEmpty);
}

std::int32_t& PENTOGRID::cell(int X, int Y) {
  if (!contains(X, Y)) throw std::out_of_range("This cell lies outside the grid.");
  return Cells[index(X, Y)];
}

const std::int32_t& PENTOGRID::cell(int X, int Y) const {
  if (!contains(X, Y)) throw std::out_of_range("This cell lies outside the grid.");
  return Cells[index(X, Y)];
}

PentoRef PENTOGRID::PentoAt(int X, int Y) const {
  const std::int32_t id = cell(X, Y);
  if (id <= 0) return nullptr;
  const auto entry = std::find_if(Pentos.begin(), Pentos.end(), entryOf(id));
  return entry == Pentos.end() ? nullptr : entry->second;
}

bool PENTOGRID::fits(const PENTO& P, int X, int Y) const {
  // No cell lies left of or above the corner, so a corner outside needs no sum that could overflow.
  if (!contains(X, Y)) return false;
  for (int i = 0; i < PENTO::kCells; ++i) {
    const int x = X + P.GridX(i), y = Y + P.GridY(i);
    if (!contains(x, y) || Cells[index(x, y)] != kEmpty) return false;
  }
  return true;
}

bool PENTOGRID::AddPento(const PentoRef& P, int X, int Y) {
  if (!P || !fits(*P, X, Y)) return false;
  Pentos.entries_.emplace_back(NextID, P);
  for (int i = 0; i < PENTO::kCells; ++i) Cells[index(X + P->GridX(i), Y + P->GridY(i))] = NextID;
  ++NextID;
  P->SetPosition(static_cast<std::int16_t>(X), static_cast<std::int16_t>(Y));
  return true;
}

PentoRef PENTOGRID::RemovePento(int X, int Y) {
  const std::int32_t id = cell(X, Y);
  const auto entry = std::find_if(Pentos.entries_.begin(), Pentos.entries_.end(), entryOf(id));
  if (entry == Pentos.entries_.end()) throw std::out_of_range("No piece covers this cell.");
  PentoRef piece = entry->second;
  Pentos.entries_.erase(entry);

  int left = X, top = Y;
  for (int x = 0; x < width_; ++x) {
    for (int y = 0; y < height_; ++y) {
      if (Cells[index(x, y)] != id) continue;
      Cells[index(x, y)] = kEmpty;
      left = std::min(left, x);
      top = std::min(top, y);
    }
  }
  piece->SetPosition(static_cast<std::int16_t>(left), static_cast<std::int16_t>(top));
  return piece;
}

void PENTOGRID::Clear() {
  for (std::int32_t& value : Cells) value = std::min(value, kEmpty);
  Pentos.entries_.clear();
  NextID = 1;
}

PentoRef PENTOGRID::FirstPento() {
  IterIndex = 1;
  return Pentos.at(0);
}

PentoRef PENTOGRID::NextPento() {
  ++IterIndex;
  const auto position = static_cast<std::size_t>(IterIndex);
  return position <= Pentos.Count() ? Pentos.at(position - 1) : nullptr;
}

bool PENTOGRID::edgeIsEmpty(int dx, int dy) const {
  if (dx != 0) {
    const int edge = dx < 0 ? 1 : width_ - 2;
    for (int y = 1; y <= height_ - 2; ++y)
      if (!IsEmpty(edge, y)) return false;
  } else {
    const int edge = dy < 0 ? 1 : height_ - 2;
    for (int x = 1; x <= width_ - 2; ++x)
      if (!IsEmpty(x, edge)) return false;
  }
  return true;
}

void PENTOGRID::shift(int dx, int dy) {
  if (!edgeIsEmpty(dx, dy)) return;
  for (const auto& [id, piece] : Pentos)
    piece->SetPosition(static_cast<std::int16_t>(piece->X() + dx),
                       static_cast<std::int16_t>(piece->Y() + dy));

  const std::vector<std::int32_t> old = Cells;
  for (int x = 1; x <= width_ - 2; ++x) {
    for (int y = 1; y <= height_ - 2; ++y) {
      const int fromX = x - dx, fromY = y - dy;
      const bool inside = fromX >= 1 && fromX <= width_ - 2 && fromY >= 1 && fromY <= height_ - 2;
      Cells[index(x, y)] = inside ? old[index(fromX, fromY)] : kEmpty;
    }
  }
}
