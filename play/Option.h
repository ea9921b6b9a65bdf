#pragma once

#include <QAbstractButton>
#include <QLabel>

#include "pictures/HotSpots.h"
#include "platform/DenseCursor.h"

/// A way on that a window offers: a picture of 32 x 32 with a label below it. A click on either
/// chooses it; the picture takes the focus by Tab, shows it, and answers Enter and the space bar.
class Option : public QAbstractButton {
 public:
  /// `name` names the picture's file and the controls: "eMail" gives option-email.png, imgEMail
  /// and lblEMail.
  Option(QWidget* parent, const QString& name, const QString& caption, const QString& hint);

  /// Design positions in twips. The label is given its own place, or centred under the picture.
  void placePicture(double left, double top);
  void placeLabel(double left, double top, double width, double height);
  void centreLabel(double top);

  /// What it says below its picture, and in its tooltip. The label keeps its place.
  void say(const QString& caption, const QString& hint);
  void showOption(bool shown);
  QLabel* label() const { return label_; }

  static constexpr int kSize = 32;  ///< logical pixels, as designed

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent*) override {}  // its first click has chosen already
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void setPointers();

  QPixmap picture_;
  DenseCursor pointer_{"pointer.png", pictures::kPointer};
  QLabel* label_;
  bool labelPressed_ = false;
};
