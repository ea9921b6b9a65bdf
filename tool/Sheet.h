#pragma once

#include <QByteArray>
#include <QGuiApplication>
#include <QImage>
#include <array>
#include <memory>

#include "drawing/TextureAtlas.h"
#include "tool/Input.h"

/// Pictures of puzzles: one for the screen, sheets of many, drawings and pages for the printer.
namespace puzzle {

/// Qt draws text within an application only: this is one without windows, for as long as it lives,
/// unless there is one already.
class TextDrawing {
 public:
  TextDrawing();
  ~TextDrawing();
  TextDrawing(TextDrawing&&) = delete;

 private:
  QtMessageHandler usual_;  ///< Qt's remarks on desktop and environment are nothing to the maker
  std::string program_ = "quinzolith-puzzle", option_ = "-platform", platform_ = "offscreen";
  std::array<char*, 4> words_;  ///< the application takes out what it has read
  int count_ = 3;
  std::unique_ptr<QGuiApplication> application_;
};

/// What a sheet shows and how.
struct SheetStyle {
  bool outlines = false;              ///< lines to cut along instead of the game's textures
  bool captions = true;               ///< as far as a font is installed
  const TextureAtlas* textures = {};  ///< none where outlines are drawn
};

/// Puzzles in boxes of one size, row by row, each in the middle of its box above its caption.
class Sheet {
 public:
  /// `cell` is the edge of a cell, `line` the width of an outline, in units of the painter.
  Sheet(std::vector<Input> puzzles, const SheetStyle& style, double cell, double line);

  int count() const { return static_cast<int>(puzzles_.size()); }
  /// The room that a number of boxes takes in a row, and in a column, with the gaps around them.
  double width(int columns) const { return gap_ + columns * (boxWidth_ + gap_); }
  double height(int rows) const { return gap_ + rows * (boxHeight_ + captionHeight_ + gap_); }
  /// How many boxes fit, at least one.
  int columnsIn(double width) const;
  int rowsIn(double height) const;

  /// Paints at most `rows` rows from the puzzle numbered `first`, from the painter's origin.
  void paint(QPainter& painter, int first, int columns, int rows) const;

 private:
  void paintPuzzle(QPainter& painter, const Input& puzzle, const QPointF& corner) const;
  void paintCaption(QPainter& painter, const Input& puzzle, const QPointF& corner) const;

  std::vector<Input> puzzles_;
  SheetStyle style_;
  double cell_, line_;
  double boxWidth_ = 0, boxHeight_ = 0, gap_, captionHeight_;
};

/// Errors: Refusal of a picture of more than 67 million pixels, before any of it is held in memory.
/// `ring` cells beside width and height are drawn and cut off.
void refuseLargePicture(int width, int height, int ring, int tile);

/// The shape or solution in the game's textures, as large as its box; background is transparent.
/// With `whole` the whole board.
QImage texturedPicture(Input puzzle, const TextureAtlas& textures, bool whole = false);

enum class Paper { A4, Letter };

/// A PNG, where a cell has as many pixels as the sheet's cells have units.
QByteArray sheetPng(const Sheet& sheet, int columns);
/// An SVG and a PDF, of tenths of a millimetre; the PDF has as many pages as the puzzles take.
/// Errors: Refusal when a puzzle is larger than the paper.
QByteArray sheetSvg(const Sheet& sheet, int columns);
QByteArray sheetPdf(const Sheet& sheet, Paper paper);

}  // namespace puzzle
