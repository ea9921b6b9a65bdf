#pragma once

#include <QObject>

class Form;
class QMainWindow;

/// The ear of a form at its window: tells the form when the window becomes active, is blocked by a
/// dialog, changes its size or comes to a screen of another ratio. Lives as long as the window.
class FormWindow : public QObject {
 public:
  /// `client` holds the controls; its size is the one that counts.
  FormWindow(Form& form, QWidget* window, QWidget* client);

  /// Windows that leave closing, and a dialog's Esc key, to their form.
  static QMainWindow* newSizable(Form& form);
  static QWidget* newDialog(Form& form, QWidget* parent);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  friend class FormDialog;
  static void escape(Form& form);
  void checkRatio();

  Form& form_;
  double ratio_;
};
