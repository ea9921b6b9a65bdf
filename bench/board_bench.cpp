// Painting, loading and laying out, each beside the usual or the least way to do it, in one run.
// Usage: quinzolith-bench-board
#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>
#include <cstring>
#include <fstream>

#include "bench/Stopwatch.h"
#include "bench/Table.h"
#include "board/PENTOWINDOW.h"
#include "board/TextureFile.h"
#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "platform/DensePicture.h"
#include "platform/Program.h"

namespace {

constexpr int kSide = 14;

constexpr int kPieces = PENTO::kTypes;
constexpr int kMostPieces = 15;  // of any puzzle in the catalogue

/// A board as in the middle of a game: a ring, a shape, each piece once or more somewhere on it.
PENTOGRID playedBoard(int pieces = kPieces) {
  PENTOGRID grid;
  grid.SetGridSize(kSide, kSide);
  for (int x = 0; x < kSide; ++x)
    for (int y = 0; y < kSide; ++y)
      if (x == 0 || y == 0 || x == kSide - 1 || y == kSide - 1) grid.SetGridBackground(x, y);
  for (int i = 0; i < pieces; ++i) {
    auto piece = std::make_shared<PENTO>();
    piece->PentoType(static_cast<std::int16_t>(i % PENTO::kTypes));
    for (int at = 0; !grid.AddPento(piece, 1 + at % 12, 1 + at / 12);) ++at;
  }
  return grid;
}

struct Painter {
  Painter(int tile, int pieces) : grid(playedBoard(pieces)), atlas(101, 85) {
    atlas.load(textureFile(24), tile);
    composition.background(densePicture("background.png", 1));
    surface.resize(kSide * tile, kSide * tile);
    scene = {&grid, &atlas, nullptr};
  }
  PENTOGRID grid;
  TextureAtlas atlas;
  Composition composition;
  Surface surface;
  Composition::Scene scene;
};

/// One memcpy of as many bytes as a picture of that size has.
class Copying {
 public:
  Copying(int width, int height)
      : from_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4, 'x'),
        to_(from_.size()) {}

  void operator()(int i) {
    from_[static_cast<std::size_t>(i) % from_.size()] = static_cast<char>(i);
    std::memcpy(to_.data(), from_.data(), from_.size());
    asm volatile("" : : "r"(to_.data()) : "memory");
  }

 private:
  std::vector<char> from_, to_;
};

std::string microseconds(double nanoseconds) {
  return Table::number(nanoseconds / 1e3, "us");
}

void row(const std::string& what, const Stopwatch::Times& times, const Table::Aim& aim) {
  Table::row(what, microseconds(times.ours), microseconds(times.other), times.ours / times.other,
             aim);
}

/// The same picture as the toolkit's user would draw it: an image a cell, a line a border.
void drawUsually(const Painter& p, const QImage& atlas, const QImage& back,
                 const DirtyRectangle& area, QImage& buffer, QImage& onto) {
  const int s = p.atlas.tileWidth();
  QPainter painter(&buffer);
  painter.translate(-area.left, -area.top);
  for (int x = area.left / back.width() * back.width(); x < area.right; x += back.width())
    for (int y = area.top / back.height() * back.height(); y < area.bottom; y += back.height())
      painter.drawImage(x, y, back);
  painter.setPen(Qt::white);
  for (int c = area.left / s; c <= (area.right - 1) / s && c < kSide; ++c) {
    for (int r = area.top / s; r <= (area.bottom - 1) / s && r < kSide; ++r) {
      if (p.grid.IsBackground(c, r)) continue;
      const int t = p.grid.IsEmpty(c, r) ? 12 : p.grid.PentoAt(c, r)->PentoType();
      painter.drawImage(QPoint(c * s, r * s), atlas, QRect(t % 4 * s, t / 4 * s, s, s));
      const auto other = [&](int nc, int nr) {
        return p.grid.PentoID(nc, nr) != p.grid.PentoID(c, r);
      };
      const int x = c * s, y = r * s, e = s - 1;
      if (r > 0 && other(c, r - 1)) painter.drawLine(x, y, x + e, y);
      if (c > 0 && other(c - 1, r)) painter.drawLine(x, y, x, y + e);
      if (r < kSide - 1 && other(c, r + 1)) painter.drawLine(x, y + e, x + e, y + e);
      if (c < kSide - 1 && other(c + 1, r)) painter.drawLine(x + e, y, x + e, y + e);
    }
  }
  if (const PENTO* piece = p.scene.floating) {
    const int t = piece->PentoType();
    for (int i = 0; i < PENTO::kCells; ++i)
      painter.drawImage(QPoint(piece->X() + s * piece->GridX(i), piece->Y() + s * piece->GridY(i)),
                        atlas, QRect(t % 4 * s, t / 4 * s, s, s));
  }
  painter.end();
  QPainter(&onto).drawImage(QPoint(area.left, area.top), buffer,
                            QRect(0, 0, area.right - area.left, area.bottom - area.top));
}

/// "drag step, tile 30, 12 laid"
std::string named(const std::string& work, int tile, int pieces) {
  return work + ", tile " + std::to_string(tile) + ", " + std::to_string(pieces) + " laid";
}

void dragStep(int s, int pieces) {
  Painter p(s, pieces);
  PENTO piece;
  piece.PentoType(8);
  p.scene.floating = &piece;
  const auto area = [&](int i) {
    const auto x = static_cast<std::int16_t>(100 + i % 150);
    piece.SetPosition(x, 130);
    return DirtyRectangle{x - 1, 129, x + 3 * s, 130 + 3 * s};
  };
  const DirtyRectangle first = area(0);
  const int width = first.right - first.left, height = first.bottom - first.top;

  const auto ours = [&](int i) { p.composition.draw(p.scene, area(i), p.surface); };
  const QImage atlas = p.atlas.picture(),
               back = densePicture("background.png", 1).convertToFormat(QImage::Format_RGB32);
  QImage buffer(width, height, QImage::Format_RGB32);
  QImage onto(kSide * s, kSide * s, QImage::Format_RGB32);
  const auto usual = [&](int i) { drawUsually(p, atlas, back, area(i), buffer, onto); };

  p.composition.draw(p.scene, area(7), p.surface);
  drawUsually(p, atlas, back, area(7), buffer, onto);
  const DirtyRectangle seen = area(7);
  const QRect same(seen.left, seen.top, width, height);
  if (p.surface.view().copy(same) != onto.copy(same)) std::puts("The two pictures differ!");

  const Stopwatch::Times painter = Stopwatch::compare(300, ours, 60, usual);
  const std::string name = named("drag step", s, pieces);
  Table::row(name + ": faster than QPainter", microseconds(painter.ours),
             microseconds(painter.other), painter.other / painter.ours, Table::atLeast(3));
  row(name + ": in memcpys", Stopwatch::compare(600, ours, 2000, Copying(width, height)),
      Table::atMost(8));
}

void fullRepaint(int s, int pieces) {
  Painter p(s, pieces);
  const auto ours = [&](int) {
    p.composition.draw(p.scene, {0, 0, kSide * s, kSide * s}, p.surface);
  };
  row(named("full repaint", s, pieces) + ": in memcpys",
      Stopwatch::compare(30, ours, 60, Copying(kSide * s, kSide * s)), Table::atMost(4));
}

struct Bare : PuzzleTarget {
  PENTOGRID* Grid() const override { return &grid; }
  void RemoveFloatingPento() override {}
  void PaintAll() override {}
  mutable PENTOGRID grid;
};

void loading() {
  QTemporaryDir folder;
  const std::filesystem::path file = folder.filePath("twelve.qzl").toStdString();
  std::ofstream(file, std::ios::binary)
      << PuzzleFormat::write(playedBoard(), PuzzleFormat::kUnlocked);
  Bare board, tray;
  board.grid.SetGridSize(kSide, kSide);
  tray.grid.SetGridSize(9, 36);
  basTiles::targets = {&board, &tray, nullptr};
  const auto ours = [&](int) { basTiles::LoadPuzzle(file, false); };
  const auto reading = [&](int) {
    std::ifstream in(file, std::ios::binary);
    char bytes[1024];
    in.read(bytes, sizeof bytes);
  };
  row("LoadPuzzle, 12 pieces: in readings of the bytes",
      Stopwatch::compare(100, ours, 100, reading), Table::atMost(3));
  basTiles::targets = {};
}

void tileSize() {
  PENTOGRID grid = playedBoard();
  PENTOWINDOW board(nullptr);
  board.resize(900, 900);
  board.ReadProperties(PropertyBag());
  board.Grid(&grid);
  const auto ours = [&](int i) { board.TileSize(static_cast<std::int16_t>(30 + i % 2)); };
  const auto decoding = [](int) {
    QImage(QString::fromStdString(textureFile(24).string())).height();
  };
  row("a change of TileSize: in decodings of the JPEG", Stopwatch::compare(10, ours, 10, decoding),
      {});
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const Replacement installed(Program::programFolder, [] { return QUINZOLITH_TREE; });
  for (const int tile : {30, 60}) {
    dragStep(tile, kPieces);
    fullRepaint(tile, kPieces);
  }
  // As large as on screens of 1366 x 768, 1920 x 1080 and, at scale 2, 3840 x 2160.
  for (const int tile : {46, 67, 134}) {
    dragStep(tile, kMostPieces);
    fullRepaint(tile, kMostPieces);
  }
  loading();
  tileSize();
  return 0;
}
