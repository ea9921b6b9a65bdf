#include "board/AccessibleCell.h"

#include "board/BoardWords.h"
#include "board/PENTOWINDOW.h"

AccessibleCell::AccessibleCell(QAccessibleInterface& table, PENTOWINDOW& board, const QPoint& place)
    : table_(table), board_(board), widget_(&board), place_(place) {}

bool AccessibleCell::changed() const {
  return !read_.isNull() && read_ != BoardWords::cell(board_, place_);
}

QString AccessibleCell::text(QAccessible::Text which) const {
  if (which == QAccessible::Description) return BoardWords::place(place_);
  if (which != QAccessible::Name) return {};
  return read_ = BoardWords::cell(board_, place_);
}

QRect AccessibleCell::rect() const {
  return QRectF(board_.mapToGlobal(board_.CellRectangle(place_).topLeft()),
                board_.CellRectangle(place_).size())
      .toRect();
}

QAccessible::State AccessibleCell::state() const {
  QAccessible::State state = table_.state();
  state.focusable = state.focused = false;
  state.readOnly = true;
  return state;
}

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
  if (type != QAccessible::TableCellInterface) return nullptr;
  return static_cast<QAccessibleTableCellInterface*>(this);
}
