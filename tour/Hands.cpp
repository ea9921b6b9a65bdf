#include "tour/Hands.h"
#include "script/Script.h"

#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>

#include "model/basTiles.h"
#include "platform/Program.h"

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

/// A cell of the tray that a piece of this type covers.
QPoint cellOfType(const PENTOGRID& tray, int type) {
  for (const auto& [id, piece] : tray.PentoCollection())
    if (piece->PentoType() == type)
      return {piece->X() + piece->GridX(0), piece->Y() + piece->GridY(0)};
  throw Script::Error("The tray holds no piece of type " + std::to_string(type));
}

}  // namespace

PictureBox& Hands::surface(PENTOWINDOW& control) {
  return *dynamic_cast<PictureBox*>(control.findChild<QWidget*>("pctFore"));
}

QPointF Hands::titleBar(const QWidget& window) {
  const QRectF frame = window.frameGeometry();
  const double middle = (frame.top() + window.geometry().top()) / 2;
  return toDevice(window, {frame.center().x(), middle});
}

QPointF Hands::cell(PENTOWINDOW& board, double column, double row) {
  PictureBox& box = surface(board);
  const double s = board.TileWidth();
  const QPointF inside((column + 0.5) * s, (row + 0.5) * s);
  return toDevice(box, box.screenCorner()) +
         QPointF(PictureBox::kSunkenBorder, PictureBox::kSunkenBorder) + inside;
}

QPointF Hands::margin(PENTOWINDOW& control) {
  const QPointF left = control.mapToGlobal(QPointF(0, control.height() / 2.0));
  return (toDevice(control, left) + toDevice(surface(control), surface(control).screenCorner())) /
         2;
}

void Hands::clickOn(Form& window, const QString& name) {
  Script::waitFor("the control " + name.toStdString(), [&] {
    const QWidget* found = control(window, name);
    const bool listens = &window != &program_.finished || program_.finished.TakesInput();
    return found && found->isVisible() && found->isEnabled() && listens;
  });
  robot_.moveTo([&] { return centreOf(*control(window, name)); });
  robot_.click();
}

void Hands::choose(Form& window, const QString& menu, const QString& item) {
  const auto popup = [&] { return window.Window()->findChild<QMenu*>(menu); };
  robot_.moveTo([&] {
    auto* bar = window.Window()->findChild<QMenuBar*>();
    const QRect title = bar->actionGeometry(popup()->menuAction());
    return toDevice(*bar, bar->mapToGlobal(QRectF(title).center()));
  });
  robot_.click();
  Script::waitFor("the menu " + menu.toStdString(), [&] { return popup()->isVisible(); });
  robot_.moveTo([&] { return centreOf(*popup(), window.Window()->findChild<QAction*>(item)); });
  robot_.click();
}

void Hands::waitOpen(Form& window) {
  Script::waitFor("a window to open", [&] { return window.Loaded() && window.Window(); });
  QWidget& shown = *Script::onScreen([&] { return window.Window(); });
  robot_.waitSettled("a window to come to the front", shown,
                     [&] { return shown.isVisible() && shown.isActiveWindow(); });
}

void Hands::waitClosed(Form& window) {
  Script::waitFor("a window to close", [&] { return !window.Loaded(); });
}

void Hands::turnToTab(int tab) {
  const auto tabs = [this] { return program_.open.Window()->findChild<QTabWidget*>(); };
  robot_.moveTo([&] {
    QTabBar* bar = tabs()->tabBar();
    return toDevice(*bar, bar->mapToGlobal(QRectF(bar->tabRect(tab)).center()));
  });
  robot_.click();
  Script::waitFor("the tab", [&] { return tabs()->currentIndex() == tab; });
}

void Hands::pick(const Catalogue::Entry& puzzle, bool easy) {
  waitOpen(program_.open);
  turnToTab(puzzle.tab);
  QWidget& chooser = *Script::onScreen([this] { return program_.open.Window(); });
  const auto isEasy = [&] { return chooser.findChild<QAbstractButton*>("chkEasy")->isChecked(); };
  if (Script::onScreen(isEasy) != easy) clickOn(program_.open, "chkEasy");
  auto* list = chooser.findChild<QListView*>(QString("lvwPuzzles%1").arg(puzzle.tab));
  clickOnEntry(dynamic_cast<PuzzleList&>(*list), puzzle);
  clickOn(program_.open, "cmdOk");
  waitClosed(program_.open);
  waitOpen(program_.main);
}

void Hands::clickOnEntry(PuzzleList& list, const Catalogue::Entry& puzzle) {
  const QString title = QString::fromUtf8(puzzle.title.data(), qsizetype(puzzle.title.size()));
  robot_.moveTo([&] {
    const QModelIndex first = list.model()->index(0, 0);
    const QModelIndex entry =
        list.model()->match(first, Qt::DisplayRole, title, 1, Qt::MatchExactly).value(0);
    list.scrollTo(entry);
    const QRectF place = list.visualRect(entry);
    return toDevice(list, list.viewport()->mapToGlobal(place.center()));
  });
  robot_.click();
  Script::waitFor("the entry to be chosen",
                  [&] { return list.selected() && list.selected()->title == title; });
}

std::vector<PuzzleFormat::PieceRecord> Hands::solution(const std::filesystem::path& file) {
  constexpr int side = PuzzleFormat::kBoardSize;
  const std::string bytes =
      basTiles::store->read(file, PuzzleFormat::fileSize(side, side, PuzzleFormat::kMostPieces));
  return PuzzleFormat::read(bytes).pieces;
}

void Hands::orient(const PuzzleFormat::PieceRecord& record) {
  const auto piece = [this] { return program_.main.PentoPanel->FloatingPento(); };
  const auto flips = [&] { return int{piece()->FlipCount}; };
  const auto turns = [&] { return int{piece()->RotationCount}; };
  if (Script::onScreen(flips) != record.flips) {
    if (mirrorings_++ % 2 == 0)
      robot_.click(kMiddleButton);
    else
      robot_.key("m");
    Script::waitFor("the piece to be mirrored", [&] { return flips() == record.flips; });
  }
  for (int old = 0; (old = Script::onScreen(turns)) != record.rotations;) {
    robot_.click(kRightButton);
    Script::waitFor("the piece to turn", [&] { return turns() != old; });
  }
}

void Hands::takeFromTray(const PuzzleFormat::PieceRecord& record, Carrying carrying) {
  robot_.moveTo([&] {
    PENTOWINDOW& tray = *program_.main.PentoPanel;
    const QPoint at = cellOfType(*tray.Grid(), record.type);
    return cell(tray, at.x(), at.y());
  });
  robot_.press(1);
  if (carrying == Carrying::ClickByClick) robot_.release(1);
  Script::waitFor("the piece to float",
                  [this] { return program_.main.PentoPanel->FloatingPento() != nullptr; });
  orient(record);
}

/// Where the pointer must be for the piece in the air to lie at a cell of the board.
QPointF Hands::overBoard(int column, int row) const {
  PENTOWINDOW& board = *program_.main.Grid;
  const PentoRef piece = board.FloatingPento();
  return cell(board, column + (piece->Width() - 1) / 2.0, row + (piece->Height() - 1) / 2.0);
}

/// Asks the board, not the piece, whose place both controls set in coordinates of their own. A
/// dialog that has just closed may still be what the display server has under the pointer.
bool Hands::floatsAt(int column, int row) const {
  PENTOWINDOW& board = *program_.main.Grid;
  return board.FloatingPento() && board.CellOfHand() == QPoint(column, row) &&
         QApplication::widgetAt(QCursor::pos()) == &surface(board);
}

void Hands::dropInVain(PENTOWINDOW& control, const std::function<QPointF()>& place) {
  bool refused = false;
  const auto usual = Script::onScreen([&] {
    auto before = control.DropError;
    control.DropError = [&refused, before] {
      refused = true;
      if (before) before();
    };
    return before;
  });
  robot_.moveTo(place);
  robot_.clickAlone();
  Script::waitFor("the drop to be refused", [&] { return refused; });
  Script::onScreen([&] { control.DropError = usual; });
}

/// The board may still hold the piece as it was turned in the tray, so that one move may not be
/// enough.
void Hands::carryTo(int column, int row) {
  constexpr int patience = 200;
  int moves = 0;
  do {
    const QPointF aside(moves % 2, 0);  // a move to where the pointer is would be none
    robot_.moveTo([&] { return overBoard(column, row) + aside; });
  } while (!Script::onScreen([&] { return floatsAt(column, row); }) && ++moves < patience);
  Script::waitFor("the piece to arrive", [&] { return floatsAt(column, row); });
}

void Hands::solve(const std::vector<PuzzleFormat::PieceRecord>& pieces, Carrying carrying,
                  const std::function<void(std::size_t)>& between) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const int empty = Script::onScreen([&] { return int{program_.main.Grid->EmptyCount()}; });
    takeFromTray(pieces[i], carrying);
    if (between) between(i);
    carryTo(pieces[i].x, pieces[i].y);
    if (carrying == Carrying::ButtonHeld) robot_.release(1);
    robot_.clickAlone();
    Script::waitFor("the piece to lie on the board",
                    [&] { return program_.main.Grid->EmptyCount() == empty - PENTO::kCells; });
  }
}
