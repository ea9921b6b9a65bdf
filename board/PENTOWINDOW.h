#pragma once

#include <QLineEdit>
#include <QPointer>
#include <functional>
#include <optional>

#include "board/Hand.h"
#include "board/Pace.h"
#include "board/PieceCursor.h"
#include "board/PropertyBag.h"
#include "board/RefusalMark.h"
#include "board/SurfacePlace.h"
#include "drawing/Composition.h"
#include "drawing/TextureAtlas.h"
#include "model/basTiles.h"
#include "pictures/HotSpots.h"
#include "platform/DenseCursor.h"
#include "platform/PictureBox.h"
#include "platform/PointerSurface.h"
#include "services/basKelvoWinAPI.h"

/// The board control: shows one grid in texture tiles and lets the player pick pieces up, carry,
/// turn, mirror and lay them down. It reports to its owner by five events.
///
/// Units:     the owner places the control in twips; the drawing surface inside works in device
///            pixels. A floating piece's position is the pixel of its top-left corner on the
///            surface of the control that moved it last.
/// Order:     ReadProperties, then Grid, then TileSize from the owner's layout; then everything
///            else. What needs a grid throws std::logic_error without one.
/// Events:    an owner may close the control's window inside an event; the control then touches
///            nothing.
/// Ownership: the grid belongs to the owner and must outlive the control's window; a piece is
///            shared.
class PENTOWINDOW : public PointerSurface, public PuzzleTarget {
 public:
  explicit PENTOWINDOW(QWidget* parent);

  // --- geometry and painting ---
  /// Sets the tile's edge, reloads the atlas and sizes and centres the surface. Does not paint. 0
  /// is ignored. Errors: std::runtime_error when the texture file cannot be read.
  void TileSize(std::int16_t pixels);
  std::int16_t TileWidth() const { return static_cast<std::int16_t>(atlas_.tileWidth()); }
  /// Where a cell is shown: logical pixels from the control's corner.
  QRectF CellRectangle(const QPoint& cell) const;
  void PaintAll() override { pctFore_Paint(); }
  bool Redraw = false;  ///< full repaints are skipped while it is false

  // --- the grid ---
  PENTOGRID* Grid() const override { return grid_; }
  void Grid(PENTOGRID* grid);  ///< does not repaint
  /// Cells of the grid that are neither covered nor background. 0 means that the puzzle is solved.
  std::int16_t EmptyCount() const;
  void MoveLeft();
  void MoveRight();
  void MoveUp();
  void MoveDown();

  // --- the floating piece ---
  PentoRef FloatingPento() const { return FloatingPento_; }
  bool Floating() const { return fFloating_; }  ///< a left press lays down instead of picking up
  /// Lets P float here, in place of one that floats already. Paints nothing.
  void FloatingPento(const PentoRef& P);
  void ShowFloatingPento();  ///< paints nothing; the next flush shows the piece
  void HideFloatingPento();  ///< erases it at once; it floats on, unseen
  void RemoveFloatingPento() override;
  bool fEasyMode = false;  ///< turning and mirroring ask first

  // --- for keys and fingers ---
  /// The cell that a left press would use: the one under the hand, or where the corner of the
  /// floating piece would lie; of the grid's cells the nearest.
  QPoint CellOfHand() const;
  /// The nearest cell that the hand, with the floating piece, can be put to.
  QPoint NearestCellForHand(const QPoint& cell) const;
  void HandToCell(const QPoint& cell);
  void PressAtHand(Button button = kLeft);  ///< a press where the hand is
  void TurnQuarters(int quarters);  ///< turns the floating piece clockwise; easy mode asks once
  /// Lays the floating piece down with its corner in a cell. False where it does not fit.
  bool LayDownAt(const QPoint& cell);
  /// A point of the desktop, logical pixels, is on the floating piece, or between its arms.
  bool FloatsAt(const QPointF& global) const;
  /// The middle of the floating piece on the desktop, logical pixels.
  QPointF FloatingMiddle() const;
  /// Lays the floating piece, as it lay, where it was picked up, else at the nearest free place of
  /// the tray. A piece that was never picked up is thrown away where there is no tray.
  void TakeBack(PENTOWINDOW* tray);

  // --- stored properties ---
  QImage BlockTexture() const { return atlas_.picture(); }
  void BlockTexture(const QImage& picture);
  QImage BackTexture() const { return composition_.background(); }
  void BackTexture(const QImage& picture);  ///< pixels of the picture are device pixels
  std::int16_t BorderStyle() const { return static_cast<std::int16_t>(pctFore_->BorderStyle()); }
  void BorderStyle(std::int16_t style) { pctFore_->BorderStyle(style); }
  bool Pickup() const { return Pickup_; }
  void Pickup(bool takesOff) { Pickup_ = takesOff; }
  bool DisplayHint() const { return DisplayHint_; }
  void DisplayHint(bool hint) { DisplayHint_ = hint; }
  /// Reads what the owner's layout stores and starts the control.
  void ReadProperties(const PropertyBag& bag);
  void WriteProperties(PropertyBag& bag) const;
  void InitProperties();  ///< a control just put on a layout, with nothing stored

  // --- events ---
  /// P was pressed; the control goes on with what P is after the event.
  std::function<void(PentoRef& P)> Float;
  std::function<void()> Drop;       ///< the floating piece has been laid down here
  std::function<void()> Capture;    ///< the pointer came over the control
  std::function<void()> Uncapture;  ///< the pointer is outside, at every tick
  std::function<void()> DropError;  ///< the grid refused the floating piece

 protected:
  void pointerMove(const QPointF& position) override;  // over the margin round the surface
  void pointerDown(Button, const QPointF&) override {}
  void pointerDoubleClick(Button, const QPointF&) override {}
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;  // of the key box

 private:
  enum class CursorShape { Default, Hand, Clear };
  struct FloatingPicture {
    const PENTO* piece;
    int rotations, flips;
    QPoint corner;  // pixels
    bool operator==(const FloatingPicture&) const = default;
  };
  static constexpr int kBorderStep = 2;  // device pixels from the surface's corner to its picture

  // geometry
  void centreSurface(const QSizeF& surface);
  void UserControl_Resize();
  void noticeSize();
  PENTOGRID& assignedGrid() const;
  QPointF surfacePoint(const QPoint& pixel) const;

  // painting
  void pctFore_Paint();
  void FlushDirty();
  void InvalidateFloating();
  void redrawFloating();
  DirtyRectangle floatingBox() const;
  bool showsPiece() const;

  // the floating piece
  Hand& hand() const;
  QPoint floatingPlace() const;
  QPoint cellOfFloating(const QPointF& corner) const;
  FloatingPicture floatingPicture(const QPoint& corner) const;
  bool showsStalePicture() const;
  void showOffSurface();
  void floats(bool piece);
  QPointF grabPoint(int tile) const;
  void grabCentre(int tile);
  bool RecenterGrab();  // true when it redrew

  // handling
  void pctFore_MouseMove(double x, double y);
  void pctFore_MouseDown(Button button, double x, double y);
  void pctFore_DblClick();
  void txtKey_Change();
  void hover(double x, double y);
  void followMissedPress();
  void pickUp(double x, double y);
  void layDown(double x, double y);
  bool turn();
  void mirrorThroughKeyBox();
  bool easyModeAllows(const char* question);
  void showRefusal();
  void placeCursor(double x, double y);
  void showCursor(CursorShape shape);
  bool windowIsActive() const;

  // tracking
  void TrackCursor();
  void followMove();
  void followMissedMove();
  void followOutside(const basKelvoWinAPI::POINT& p);
  bool nothingToSee() const;
  bool heldByPointer() const;
  Pace::Rest mayRest() const;
  void raise(const std::function<void()>& event) {
    if (event) event();
  }

  PictureBox* pctFore_;
  QLineEdit* txtKey_;
  RefusalMark* refusal_;
  Pace pace_;
  TextureAtlas atlas_;
  Composition composition_;

  PENTOGRID* grid_ = nullptr;
  bool fGridSet_ = false;
  bool fResizing_ = false;
  QSize handledSize_{-1, -1};
  DirtyRectangle dirty_;
  SurfacePlace place_;
  std::optional<FloatingPicture> drawn_;  // what the surface shows of a floating piece

  PentoRef FloatingPento_;
  bool fFloating_ = false;
  bool fFloatVisible_ = false;
  bool fCaptured_ = false;
  bool fKeepGrab_ = false;
  std::int16_t GrabX_ = 0;
  std::int16_t GrabY_ = 0;
  std::int16_t LastButton_ = 0;
  basKelvoWinAPI::POINT LastCursor_{0, 0};
  CursorShape cursor_ = CursorShape::Default;
  PieceCursor pieceCursor_;
  mutable QPointer<Hand> hand_;
  DenseCursor imgHand_{"hand.png", pictures::kHand};
  DenseCursor imgClear_{"clear.png", {}};
  bool Pickup_ = false;
  bool DisplayHint_ = false;
};
