#include "tour/Hands.h"
#include "tour/Script.h"

#include <QMenuBar>

#include "model/basTiles.h"
#include "platform/PictureBox.h"

namespace {

constexpr int kMiddleButton = 2;
constexpr int kRightButton = 3;

QWidget* control(const Form& window, const QString& name) {
  return window.Loaded() ? window.Window()->findChild<QWidget*>(name) : nullptr;
}

QPointF toDevice(const QWidget& widget, const QPointF& logical) {
  return logical * widget.devicePixelRatioF();
}

QPointF centreOf(const QWidget& widget) {
  return toDevice(widget, widget.mapToGlobal(QRectF(widget.rect()).center()));
}

QPointF centreOf(const QMenu& menu, QAction* item) {
  return toDevice(menu, menu.mapToGlobal(QRectF(menu.actionGeometry(item)).center()));
}

PictureBox& surface(PENTOWINDOW& board) {
  return *dynamic_cast<PictureBox*>(board.findChild<QWidget*>("pctFore"));
}

/// A cell of the tray that a piece of this type covers.
QPoint cellOfType(const PENTOGRID& tray, int type) {
  for (const auto& [id, piece] : tray.PentoCollection())
    if (piece->PentoType() == type)
      return {piece->X() + piece->GridX(0), piece->Y() + piece->GridY(0)};
  throw Script::Error("The tray holds no piece of type " + std::to_string(type));
}

}  // namespace

QPointF Hands::cell(PENTOWINDOW& board, double column, double row) {
  PictureBox& box = surface(board);
  const double s = board.TileWidth();
  const QPointF inside((column + 0.5) * s, (row + 0.5) * s);
  return toDevice(box, box.screenCorner()) +
         QPointF(PictureBox::kSunkenBorder, PictureBox::kSunkenBorder) + inside;
}

void Hands::clickOn(Form& window, const QString& name) {
  Script::waitFor("the control " + name.toStdString(), [&] {
    const QWidget* found = control(window, name);
    return found && found->isVisible() && found->isEnabled();
  });
  robot_.moveTo(Script::onScreen([&] { return centreOf(*control(window, name)); }));
  robot_.click();
}

void Hands::choose(Form& window, const QString& menu, const QString& item) {
  const auto popup = [&] { return window.Window()->findChild<QMenu*>(menu); };
  robot_.moveTo(Script::onScreen([&] {
    auto* bar = window.Window()->findChild<QMenuBar*>();
    const QRect title = bar->actionGeometry(popup()->menuAction());
    return toDevice(*bar, bar->mapToGlobal(QRectF(title).center()));
  }));
  robot_.click();
  Script::waitFor("the menu " + menu.toStdString(), [&] { return popup()->isVisible(); });
  robot_.moveTo(Script::onScreen(
      [&] { return centreOf(*popup(), window.Window()->findChild<QAction*>(item)); }));
  robot_.click();
}

void Hands::waitOpen(Form& window) {
  Script::waitFor("a window to open", [&] {
    return window.Loaded() && window.Window()->isVisible() && window.Window()->isActiveWindow();
  });
}

void Hands::waitClosed(Form& window) {
  Script::waitFor("a window to close", [&] { return !window.Loaded(); });
}

std::vector<PuzzleFormat::PieceRecord> Hands::solution(const std::filesystem::path& file) {
  constexpr int side = 14;
  const std::string bytes =
      basTiles::store.read(file, PuzzleFormat::fileSize(side, side, PuzzleFormat::kMostPieces));
  PuzzleFormat::Reader reader(bytes);
  reader.text(PuzzleFormat::fileSize(side, side, 0) - 4);
  std::vector<PuzzleFormat::PieceRecord> pieces(static_cast<std::size_t>(reader.int32()));
  for (auto& piece : pieces) piece = reader.piece();
  return pieces;
}

void Hands::orient(const PuzzleFormat::PieceRecord& record) {
  const auto piece = [this] { return program_.main.PentoPanel->FloatingPento(); };
  const auto flips = [&] { return int{piece()->FlipCount}; };
  const auto turns = [&] { return int{piece()->RotationCount}; };
  if (Script::onScreen(flips) != record.flips) {
    robot_.click(kMiddleButton);
    Script::waitFor("the piece to be mirrored", [&] { return flips() == record.flips; });
  }
  for (int old = 0; (old = Script::onScreen(turns)) != record.rotations;) {
    robot_.click(kRightButton);
    Script::waitFor("the piece to turn", [&] { return turns() != old; });
  }
}

void Hands::takeFromTray(const PuzzleFormat::PieceRecord& record, Carrying carrying) {
  robot_.moveTo(Script::onScreen([&] {
    PENTOWINDOW& tray = *program_.main.PentoPanel;
    const QPoint at = cellOfType(*tray.Grid(), record.type);
    return cell(tray, at.x(), at.y());
  }));
  robot_.press(1);
  if (carrying == Carrying::ClickByClick) robot_.release(1);
  Script::waitFor("the piece to float",
                  [this] { return program_.main.PentoPanel->FloatingPento() != nullptr; });
  orient(record);
}

QPointF Hands::overBoard(int column, int row) {
  return Script::onScreen([&] {
    PENTOWINDOW& board = *program_.main.Grid;
    const PentoRef piece = board.FloatingPento();
    return cell(board, column + (piece->Width() - 1) / 2.0, row + (piece->Height() - 1) / 2.0);
  });
}

/// True when the piece floats within half a tile of its place.
bool Hands::arrived(const PuzzleFormat::PieceRecord& record) {
  const PENTOWINDOW& board = *program_.main.Grid;
  const PentoRef piece = board.FloatingPento();
  const int s = board.TileWidth();
  return piece && std::abs(piece->X() - record.x * s) <= s / 2 &&
         std::abs(piece->Y() - record.y * s) <= s / 2;
}

void Hands::solve(const std::vector<PuzzleFormat::PieceRecord>& pieces, Carrying carrying,
                  const std::function<void(std::size_t)>& between) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const int empty = Script::onScreen([&] { return int{program_.main.Grid->EmptyCount()}; });
    takeFromTray(pieces[i], carrying);
    const QPointF target = overBoard(pieces[i].x, pieces[i].y);
    if (between) between(i);
    robot_.moveTo(target);
    Script::waitFor("the piece to arrive", [&] { return Hands::arrived(pieces[i]); });
    if (carrying == Carrying::ButtonHeld) robot_.release(1);
    robot_.click();
    Script::waitFor("the piece to lie on the board",
                    [&] { return program_.main.Grid->EmptyCount() == empty - PENTO::kCells; });
  }
}
