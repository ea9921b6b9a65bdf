#include "board/AccessibleBoard.h"

#include "board/AccessibleCell.h"
#include "board/BoardWords.h"
#include "board/PENTOWINDOW.h"
#include "board/Status.h"

namespace {

QAccessibleInterface* make(const QString&, QObject* object) {
  auto* board = dynamic_cast<PENTOWINDOW*>(object);
  if (board) return new AccessibleBoard(*board);
  auto* status = dynamic_cast<Status*>(object);
  return status ? new QAccessibleWidget(status, QAccessible::Notification) : nullptr;
}

}  // namespace

void AccessibleBoard::provideFor(QWidget& made) {
  QAccessible::installFactory(make);
  if (!QAccessible::isActive()) return;
  QAccessibleInterface* kept = QAccessible::queryAccessibleInterface(&made);
  if (kept->role() == QAccessible::Client)  // a plain widget's
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(kept));
}

void AccessibleBoard::tellChanges(PENTOWINDOW& board) {
  auto* table = static_cast<AccessibleBoard*>(QAccessible::queryAccessibleInterface(&board));
  for (const QAccessible::Id id : std::as_const(table->cells_)) {
    auto* cell = static_cast<AccessibleCell*>(QAccessible::accessibleInterface(id));
    if (!cell->changed()) continue;
    QAccessibleEvent changed(cell, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
  }
}

AccessibleBoard::AccessibleBoard(PENTOWINDOW& board)
    : QAccessibleWidget(&board, QAccessible::Table), board_(board) {}

AccessibleBoard::~AccessibleBoard() {
  for (const QAccessible::Id id : std::as_const(cells_)) QAccessible::deleteAccessibleInterface(id);
}

QString AccessibleBoard::text(QAccessible::Text which) const {
  if (which == QAccessible::Description && board_.Grid()) return BoardWords::summary(board_);
  return QAccessibleWidget::text(which);
}

int AccessibleBoard::rowCount() const {
  return board_.Grid() ? board_.Grid()->Height() : 0;
}

int AccessibleBoard::columnCount() const {
  return board_.Grid() ? board_.Grid()->Width() : 0;
}

bool AccessibleBoard::contains(int row, int column) const {
  return row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
}

QAccessibleInterface* AccessibleBoard::cellAt(int row, int column) const {
  if (!contains(row, column)) return nullptr;
  QAccessible::Id& id = cells_[row << 16 | column];
  if (id == 0)
    id = QAccessible::registerAccessibleInterface(
        new AccessibleCell(*const_cast<AccessibleBoard*>(this), board_, {column, row}));
  return QAccessible::accessibleInterface(id);
}

QString AccessibleBoard::rowDescription(int row) const {
  return contains(row, 0) ? BoardWords::row(board_, row) : QString();
}

QString AccessibleBoard::columnDescription(int column) const {
  return contains(0, column) ? QString::number(column + 1) : QString();
}

int AccessibleBoard::childCount() const {
  return rowCount() * columnCount() + 1;
}

QAccessibleInterface* AccessibleBoard::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  if (index == childCount() - 1) return QAccessible::queryAccessibleInterface(board_.focusProxy());
  return cellAt(index / columnCount(), index % columnCount());
}

int AccessibleBoard::indexOfChild(const QAccessibleInterface* child) const {
  if (child && child->object() == board_.focusProxy()) return childCount() - 1;
  const auto* cell = dynamic_cast<const AccessibleCell*>(child);
  return cell ? cell->rowIndex() * columnCount() + cell->columnIndex() : -1;
}

QAccessibleInterface* AccessibleBoard::childAt(int x, int y) const {
  for (int row = 0; row < rowCount(); ++row)
    for (int column = 0; column < columnCount(); ++column)
      if (board_.CellRectangle({column, row}).contains(board_.mapFromGlobal(QPointF(x, y))))
        return cellAt(row, column);
  return nullptr;
}

void* AccessibleBoard::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}
