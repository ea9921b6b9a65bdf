#include "platform/Form.h"

#include <QApplication>
#include <QLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <algorithm>
#include <vector>

#include "platform/FormWindow.h"
#include "platform/LargeText.h"
#include "platform/LightPalette.h"
#include "platform/PendingEvents.h"
#include "platform/PictureBox.h"
#include "platform/Screen.h"
#include "platform/Twips.h"

namespace {

constexpr const char* kUnloadedMark = "formUnloaded";
constexpr const char* kBlockedMark = "formBlocked";

/// The open forms, the one shown last at the end.
std::vector<Form*>& openForms() {
  static std::vector<Form*> forms;
  return forms;
}

void endWhenNoneIsOpen() {
  if (Form::Count() == 0) QCoreApplication::exit(0);
}

}  // namespace

Form::Form(Design design) : design_(std::move(design)) {}

Form::~Form() {
  std::erase(openForms(), this);
  delete window_;
}

QFont Form::ControlFont(const QWidget& control, double points) {
  QFont font;
  font.setFamilies({"Arial", "Liberation Sans", "DejaVu Sans", "Sans Serif"});
  font.setPointSizeF(points * LargeText::factor(control));
  return font;
}

int Form::Count() {
  return static_cast<int>(openForms().size());
}

bool Form::Unloaded(const QWidget* widget) {
  return !widget || widget->window()->property(kUnloadedMark).toBool();
}

bool Form::Blocked(const QWidget* widget) {
  return widget->window()->property(kBlockedMark).toBool();
}

double Form::ClientWidth() const {
  return client_->width() * Twips::perPixel(*client_);
}
double Form::ClientHeight() const {
  return client_->height() * Twips::perPixel(*client_);
}
bool Form::Minimized() const {
  return window_ && window_->isMinimized();
}

QMenuBar* Form::MenuBar() {
  return qobject_cast<QMainWindow*>(window_.data())->menuBar();
}

namespace {

/// What window managers commonly put round a window, title included; logical pixels.
constexpr QSize kFrame(12, 36);

/// F10 opens the first menu; arrow keys lead to the others.
void openMenuByKey(QMainWindow& window) {
  auto* f10 = new QShortcut(QKeySequence(Qt::Key_F10), &window);
  QObject::connect(f10, &QShortcut::activated, &window, [bar = window.menuBar()] {
    bar->setFocus(Qt::MenuBarFocusReason);
    for (QAction* menu : bar->actions())
      if (menu->isVisible()) return bar->setActiveAction(menu);
  });
}

}  // namespace

void Form::buildWindow(QWidget* parent) {
  if (design_.border == Border::FixedDialog) {
    window_ = FormWindow::newDialog(*this, parent);
    client_ = window_;
  } else {
    QMainWindow* window = FormWindow::newSizable(*this);
    window_ = window;
    client_ = new QWidget(window);
    window->setCentralWidget(client_);
    window->menuBar()->setNativeMenuBar(false);
    openMenuByKey(*window);
  }
  LargeText::decide(*window_, Twips::toPixels(design_.client, *window_),
                    window_->screen()->availableSize() - kFrame);
  window_->setWindowTitle(design_.title);
  window_->setPalette(lightPalette(design_.back));
  client_->setAutoFillBackground(true);
  new FormWindow(*this, window_, client_);
}

void Form::Load() {
  loadBelow(nullptr);
}

void Form::loadBelow(QWidget* parent) {
  if (Loaded()) return;
  buildWindow(parent);
  BuildControls();
  Form_Load();
}

namespace {

void fitWindow(QWidget& window, QWidget& client, const QSizeF& twips, bool fixed) {
  QSize size = Twips::toPixels(twips, window);
  if (&window != &client)
    size.rheight() += static_cast<QMainWindow&>(window).menuBar()->sizeHint().height();
  if (fixed)
    window.setFixedSize(size);
  else
    window.resize(size.boundedTo(window.screen()->availableSize() - kFrame));
}

}  // namespace

void Form::present() {
  if (std::find(openForms().begin(), openForms().end(), this) == openForms().end())
    openForms().push_back(this);
  const bool first = !laidOut_;
  if (first) {
    fitWindow(*window_, *client_, design_.client, design_.border == Border::FixedDialog);
    window_->ensurePolished();
    if (QLayout* layout = window_->layout()) layout->activate();  // gives the client its size
  }
  laidOut_ = true;
  Form_Resize();
  if (!Loaded()) return;
  if (design_.activation == Activation::BeforePaint) Form_Activate();
  if (!Loaded()) return;
  if (first && design_.maximized)
    window_->showMaximized();
  else
    window_->show();
  window_->raise();
  window_->activateWindow();
  if (!Screen::hasWindowManager()) queueActivation();
}

void Form::Show() {
  Load();
  if (Loaded()) present();
}

void Form::ShowModal(Form* opener) {
  if (modalLoop_) return;
  loadBelow(opener ? opener->Window() : nullptr);
  if (!Loaded()) return;
  window_->setWindowModality(opener && opener->Loaded() ? Qt::WindowModal : Qt::ApplicationModal);
  present();
  if (!Loaded()) return;
  const NestedLoop nested;
  QEventLoop loop;
  modalLoop_ = &loop;
  loop.exec();
  modalLoop_ = nullptr;
  if (opener && opener->Loaded()) opener->Window()->activateWindow();
}

bool Form::Unload() {
  if (!Loaded() || unloading_) return true;
  unloading_ = true;
  bool Cancel = false;
  Form_Unload(Cancel);
  unloading_ = false;
  if (!Cancel) retire();
  return !Cancel;
}

void Form::retire() {
  std::erase(openForms(), this);
  const QPointer<QWidget> gone = window_;
  gone->setProperty(kUnloadedMark, true);
  window_ = nullptr;
  client_ = nullptr;
  laidOut_ = false;
  activationQueued_ = false;
  gone->hide();
  if (modalLoop_) modalLoop_->quit();
  atFirstLevel([gone] { delete gone; });
  if (Count() == 0) atFirstLevel(endWhenNoneIsOpen);
}

void Form::Refresh() {
  if (Loaded()) window_->repaint();
}

void Form::queueActivation() {
  if (activationQueued_ || !Loaded()) return;
  activationQueued_ = true;
  QMetaObject::invokeMethod(
      window_, [this] { becameActive(); }, Qt::QueuedConnection);
}

void Form::becameActive() {
  if (!Loaded()) return;
  activationQueued_ = false;
  if (activating_) return;
  const QScopedValueRollback running(activating_, true);
  Form_Activate();
}

void Form::sized() {
  if (Loaded() && laidOut_) Form_Resize();
}

void Form::setBlocked(bool blocked) {
  window_->setProperty(kBlockedMark, blocked);
  for (QWidget* child : window_->findChildren<QWidget*>())
    if (auto* box = dynamic_cast<PictureBox*>(child)) box->setBlocked(blocked);
}

QWidget* activeWindow() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  return Screen::hasWindowManager() ? nullptr : topmostForm();
}

QWidget* topmostForm() {
  for (auto form = openForms().rbegin(); form != openForms().rend(); ++form) {
    QWidget* window = (*form)->Window();
    if (window && window->isVisible() && !Form::Blocked(window)) return window;
  }
  return nullptr;
}
