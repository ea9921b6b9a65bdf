#pragma once

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
