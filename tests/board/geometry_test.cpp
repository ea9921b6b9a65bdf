// Sizes, repaints and the members that paint nothing.
#include <set>

#include "tests/board/BoardFixture.h"

namespace {

using Geometry = BoardFixture;

TEST_F(Geometry, TheTileGivesTheSurfaceItsOuterSizeInTheMiddle) {
  EXPECT_EQ(surface(board_).outerSize(), QSize(420, 420)) << "also after the first showing";
  EXPECT_EQ(surface(board_).pos(), QPoint(40, 50));
  board_.resize(510, 520);
  EXPECT_EQ(surface(board_).outerSize(), QSize(422, 422)) << "36 twips more on each axis";
  board_.TileSize(0);
  EXPECT_EQ(board_.TileWidth(), 30);
  EXPECT_EQ(surface(board_).outerSize(), QSize(422, 422));
  board_.TileSize(20);
  EXPECT_EQ(surface(board_).outerSize(), QSize(280, 280));
}

TEST_F(Geometry, NothingIsPaintedWhileRedrawIsOffNorByAssigningAGrid) {
  board_.PaintAll();
  const QImage before = shown(board_);
  lay(boardGrid_, 8, 4, 4);
  board_.Redraw = false;
  board_.PaintAll();
  EXPECT_EQ(shown(board_), before);
  board_.Redraw = true;
  EXPECT_EQ(shown(board_), before);
  board_.Grid(&boardGrid_);
  EXPECT_EQ(shown(board_), before);
  surface(board_).update();
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown(board_) != before; })) << "the next request does";
}

TEST_F(Geometry, WithoutAGridNothingIsPaintedAndNothingCounted) {
  board_.PaintAll();
  const QImage before = shown(board_);
  lay(boardGrid_, 8, 4, 4);
  board_.Grid(nullptr);
  board_.PaintAll();
  EXPECT_EQ(shown(board_), before);
  EXPECT_THROW(board_.EmptyCount(), std::logic_error);
}

TEST_F(Geometry, WithoutItsTextureFileABoardKeepsItsTexturesOrShowsPlainColours) {
  board_.TileSize(20);
  const QImage before = board_.BlockTexture();
  std::filesystem::remove(pictures_.file());
  EXPECT_THROW(board_.TileSize(25), std::runtime_error);
  EXPECT_THROW(board_.TileSize(20), std::runtime_error);
  EXPECT_EQ(board_.BlockTexture(), before);

  PENTOWINDOW fresh(&window_);
  fresh.Grid(&boardGrid_);
  EXPECT_THROW(fresh.TileSize(10), std::runtime_error);
  std::set<QRgb> colours;
  for (int texture = 0; texture <= 12; ++texture)
    colours.insert(fresh.BlockTexture().pixel(10 * (texture % 4), 10 * (texture / 4)));
  EXPECT_EQ(colours.size(), 13u) << "twelve pieces and the empty cell are told apart";
}

TEST_F(Geometry, PicturesAreStoredAndReadBack) {
  QImage back(16, 8, QImage::Format_RGB32), blocks(40, 40, QImage::Format_RGB32);
  back.fill(qRgb(10, 20, 30));
  blocks.fill(qRgb(40, 50, 60));
  board_.BackTexture(back);
  board_.BlockTexture(blocks);
  EXPECT_EQ(board_.TileWidth(), 30) << "a quarter of the atlas, which keeps its size";
  PropertyBag bag;
  board_.WriteProperties(bag);
  PENTOWINDOW fresh(&window_);
  fresh.ReadProperties(bag);
  EXPECT_EQ(fresh.BackTexture(), back);
  EXPECT_EQ(fresh.BlockTexture(), blocks);
}

TEST_F(Geometry, ShowingAPieceWaitsForTheNextFlushAndHidingErasesItAtOnce) {
  board_.PaintAll();
  const QImage bare = shown(board_);
  const PentoRef piece = makePiece(0);
  jump(cell(board_, 4, 4));
  board_.HideFloatingPento();
  board_.FloatingPento(piece);
  board_.ShowFloatingPento();
  EXPECT_EQ(shown(board_), bare);
  board_.PaintAll();
  EXPECT_NE(shown(board_), bare);
  board_.HideFloatingPento();
  EXPECT_EQ(shown(board_), bare);
}

}  // namespace
