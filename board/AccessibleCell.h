#pragma once

#include <QAccessible>
#include <QPoint>
#include <QPointer>
#include <QWidget>

class PENTOWINDOW;

/// A cell of an AccessibleBoard, which owns it.
class AccessibleCell : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  AccessibleCell(QAccessibleInterface& table, PENTOWINDOW& board, const QPoint& place);

  /// True once the cell's words are others than when they were read last.
  bool changed() const;
  const QPoint& cell() const { return place_; }

  bool isValid() const override { return widget_ != nullptr; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return table_.window(); }
  QAccessibleInterface* parent() const override { return &table_; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text which) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::Cell; }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  bool isSelected() const override { return false; }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return place_.x(); }
  int rowIndex() const override { return place_.y(); }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return &table_; }

 private:
  QAccessibleInterface& table_;
  PENTOWINDOW& board_;
  QPointer<QWidget> widget_;  ///< the board, while it lives
  QPoint place_;
  mutable QString read_;
};
