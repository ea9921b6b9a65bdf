#pragma once

#include <QListWidget>
#include <QTabWidget>
#include <vector>

/// A tab control of a fixed size whose pages place their controls by the design: positions count
/// from the tab control's own corner. Its captions fit because their padding is small.
class PuzzleTabs : public QTabWidget {
 public:
  explicit PuzzleTabs(QWidget* parent);

  /// Places a control of a page, twips from the tab control's corner, now and after each new
  /// layout.
  void place(QWidget* control, double left, double top, double width, double height);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  struct Placed {
    QWidget* control;
    QRectF twips;
  };
  void placeAll();

  std::vector<Placed> placed_;
};

/// A list of puzzles as pictures of 32 x 32 with their titles below.
QListWidget* newPuzzleList(QWidget* parent, const QString& name);

/// The picture of a puzzle's icon key, its mask colour RGB(192, 192, 192) made transparent.
QIcon puzzleIcon(const QString& key);
