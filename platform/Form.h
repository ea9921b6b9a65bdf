#pragma once

#include <QColor>
#include <QEventLoop>
#include <QPointer>
#include <QSizeF>
#include <QString>
#include <QWidget>

/// A window of the program. The Form is a plain object that lives for the whole run and keeps its
/// fields; its on-screen window and controls exist from loading to unloading.
///
/// Loading:   the first showing builds the window and its controls and raises Form_Load, then lays
///            it out with Form_Resize.
/// Activity:  Form_Activate is raised from a posted event each time the window becomes active, but
///            not while it still runs. A form that activates early gets it before its first paint,
///            too.
/// Unloading: raises Form_Unload, which may refuse. The window is hidden and no longer counted at
///            once; its widgets are deleted when the event loop is back at its first level, since
///            the close may come from a dialog inside one of the window's own handlers.
/// Ending:    when no form is open any more, and none has been opened by the time the event loop is
///            back at its first level, the program ends with code 0.
/// Units:     twips; all sizes are those of the client area (the menu bar comes on top of it).
class Form {
 public:
  enum class Border { Sizable, FixedDialog };
  enum class Activation { Posted, BeforePaint };

  struct Design {
    QString title;
    Border border = Border::Sizable;
    QSizeF client;            ///< twips
    QColor back = Qt::white;  ///< colour of the client area
    Activation activation = Activation::Posted;
    bool maximized = false;  ///< opens maximized
  };

  explicit Form(Design design);
  virtual ~Form();
  Form(Form&&) = delete;

  void Load();  ///< builds the window if there is none; does not show it
  void Show();  ///< loads if needed, and shows without waiting
  /// As Show, blocks the opener (or, without one, all windows), and returns once it is closed.
  void ShowModal(Form* opener = nullptr);
  bool Unload();   ///< false when the form refused; harmless when not loaded
  void Refresh();  ///< repaints the window at once

  bool Loaded() const { return window_ != nullptr; }
  QWidget* Window() const { return window_; }  ///< null unless loaded
  QWidget* Client() const { return client_; }  ///< the parent of the controls; null unless loaded
  double ClientWidth() const;                  ///< twips
  double ClientHeight() const;                 ///< twips
  bool Minimized() const;

  /// How many forms are open.
  static int Count();
  /// True once the form whose window holds the widget has unloaded: do not touch it any more.
  static bool Unloaded(const QWidget* widget);
  /// True while a dialog keeps input from the form's window that holds the widget.
  static bool Blocked(const QWidget* widget);
  /// The font of controls whose size is fixed: a sans of 8.25 points, larger in a window of large
  /// text.
  static QFont ControlFont(const QWidget& control, double points = 8.25);
  class QMenuBar* MenuBar();  ///< of a sizable form

 protected:
  virtual void BuildControls() = 0;  ///< creates the controls below Client(), in tab order
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Resize() {}
  virtual void Form_Unload(bool& Cancel) { (void)Cancel; }
  /// Esc in a dialog; does nothing unless a form says otherwise.
  virtual void Form_Escape() {}

 private:
  friend class FormWindow;
  void loadBelow(QWidget* parent);
  void buildWindow(QWidget* parent);
  void present();
  void retire();
  void queueActivation();
  void becameActive();
  void sized();
  void setBlocked(bool blocked);

  Design design_;
  QPointer<QWidget> window_;
  QPointer<QWidget> client_;
  QEventLoop* modalLoop_ = nullptr;
  bool unloading_ = false;
  bool laidOut_ = false;
  bool activationQueued_ = false;
  bool activating_ = false;
};

/// The window that the user is working in, as the display system or the program itself knows it:
/// the active window, or, where no window manager runs, the topmost form that no dialog blocks.
QWidget* activeWindow();

/// The form shown last among those that no dialog blocks, or null.
QWidget* topmostForm();
