#include "platform/FormWindow.h"

#include <QCloseEvent>
#include <QDialog>
#include <QMainWindow>

#include "platform/Density.h"
#include "platform/Form.h"

namespace {

/// The form decides, and hides the window itself.
void leaveToForm(Form& form, QCloseEvent* event) {
  event->ignore();
  form.Unload();
}

class SizableWindow : public QMainWindow {
 public:
  explicit SizableWindow(Form& form) : form_(form) {}

 protected:
  void closeEvent(QCloseEvent* event) override { leaveToForm(form_, event); }
  QMenu* createPopupMenu() override { return nullptr; }

 private:
  Form& form_;
};

}  // namespace

class FormDialog : public QDialog {
 public:
  FormDialog(Form& form, QWidget* parent)
      : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
        form_(form) {}

  void reject() override { FormWindow::escape(form_); }

 protected:
  void closeEvent(QCloseEvent* event) override { leaveToForm(form_, event); }

 private:
  Form& form_;
};

QMainWindow* FormWindow::newSizable(Form& form) {
  return new SizableWindow(form);
}

QWidget* FormWindow::newDialog(Form& form, QWidget* parent) {
  return new FormDialog(form, parent);
}

FormWindow::FormWindow(Form& form, QWidget* window, QWidget* client)
    : QObject(window), form_(form), ratio_(window->devicePixelRatioF()) {
  window->installEventFilter(this);
  if (client != window) client->installEventFilter(this);
}

void FormWindow::escape(Form& form) {
  form.Form_Escape();
}

bool FormWindow::eventFilter(QObject* object, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (!widget || Form::Unloaded(widget)) return false;
  if (mayChangeDensity(*event)) checkRatio();
  switch (event->type()) {
    case QEvent::WindowActivate:
      form_.queueActivation();
      break;
    case QEvent::WindowBlocked:
      form_.setBlocked(true);
      break;
    case QEvent::WindowUnblocked:
      form_.setBlocked(false);
      break;
    case QEvent::Resize:
      if (widget == form_.Client()) form_.sized();
      break;
    default:
      break;
  }
  return false;
}

void FormWindow::checkRatio() {
  const double now = form_.Window()->devicePixelRatioF();
  if (now == ratio_) return;
  ratio_ = now;
  QMetaObject::invokeMethod(
      this, [this] { form_.sized(); }, Qt::QueuedConnection);
}
