#pragma once

#include <QDir>

#include "tour/Hands.h"

/// Walks through the program with the real pointer and takes pictures on the way, as PNG files.
class Tour {
 public:
  Tour(Robot& robot, Wiring& program, const QDir& pictures)
      : robot_(robot), program_(program), hands_(robot, program), pictures_(pictures) {}

  /// The Rocket puzzle from the splash window to the solved dialog, as whole screens.
  void rocket();
  /// Each window in the states that a player meets, without its frame.
  void windows();

 private:
  void screen(const char* name);
  void window(Form& form, const char* name);
  void toPlayWindow(const std::function<void()>& atTheChooser);
  void solveRocket(const std::function<void()>& midway);
  void chooser();
  void editor();
  void help();

  Robot& robot_;
  Wiring& program_;
  Hands hands_;
  const QDir& pictures_;
};
