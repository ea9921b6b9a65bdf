#pragma once

#include <QImage>
#include <QPushButton>

/// A button with a picture in its middle, one pixel of the picture to one pixel of the screen.
///
/// Focus: by the Tab key only; a click leaves it where it was, so that keys typed while a piece
///        floats go on reaching the board.
class PictureButton : public QPushButton {
 public:
  /// `hint` is the tooltip; `name` says what the button is to those who cannot see the picture.
  PictureButton(QWidget* parent, const QString& picture, const QString& name, const QString& hint);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;  // Enter is a click, as the space bar is

 private:
  const QImage& pictureFor(double ratio);

  QString name_;
  QImage picture_;  // device pixels
  double ratio_ = 0;
};
