#pragma once

#include <QAccessibleWidget>
#include <QHash>

class PENTOWINDOW;

/// A board control for screen readers and the like: a table, whose cells say what lies there and
/// whether the carried piece would lie there, too. Behind the cells, row by row, comes the box that
/// takes the keys.
///
/// A client keeps the names that it has read until it hears of a change; whoever changes what a
/// board says calls `tellChanges`.
class AccessibleBoard : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  /// Lets the toolkit make one for a board control, or what a Status needs, once a client asks. To
  /// be called as the last part of their making: newer toolkits ask earlier and keep what they get.
  static void provideFor(QWidget& made);
  /// Tells of cells whose words are others than when they were read last.
  static void tellChanges(PENTOWINDOW& board);

  explicit AccessibleBoard(PENTOWINDOW& board);

  QString text(QAccessible::Text which) const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  int columnCount() const override;
  int rowCount() const override;
  QAccessibleInterface* cellAt(int row, int column) const override;
  QString rowDescription(int row) const override;
  QString columnDescription(int column) const override;

  // A board has no headers, and nothing is selected in it.
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  int selectedCellCount() const override { return 0; }
  QList<QAccessibleInterface*> selectedCells() const override { return {}; }
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override { return 0; }
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override { return {}; }
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int) const override { return false; }
  bool selectRow(int) override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

 private:
  ~AccessibleBoard() override;
  bool contains(int row, int column) const;

  PENTOWINDOW& board_;
  mutable QHash<int, QAccessible::Id> cells_;  ///< those asked for so far, by row and column
};
