#include "tests/machine/Machine.h"

#include <QApplication>
#include <QDialog>
#include <QTimerEvent>
#include <algorithm>

#include "model/basTiles.h"
#include "platform/ChildAt.h"
#include "platform/PendingEvents.h"
#include "platform/Pointer.h"
#include "play/basStartup.h"

namespace machine {

namespace {

constexpr int kLaps = 2;  // of the event loop between two steps
constexpr int kMostLapsToStart = 100;
constexpr int kMostLapsToEnd = 20'000;
constexpr const char* kTimers[] = {"tmrHideFloat", "tmrLongPress"};

/// A rest is many steps, so that what each leaves to be done is done before the next.
std::vector<Step> expanded(const Step& step) {
  if (step.kind == Step::Glance) return {{Step::Tell, {}, 0, false}, step};
  if (step.kind != Step::Rest) return {step};
  const auto tick = [&](int side) { return Step{Step::Tick, {}, (side + step.number) % 2, false}; };
  return {{Step::Tell, {}, 0, false}, tick(0), tick(1), tick(0), tick(1),
          {Step::Look, {}, 0, false}};
}

}  // namespace

Machine::Machine(Installation& installation) : installation_(installation) {
  desk_.setProperty("machineDesk", true);
  qApp->installEventFilter(this);
}

Machine::~Machine() {
  qApp->removeEventFilter(this);
}

bool Machine::eventFilter(QObject* object, QEvent* event) {
  return event->type() == QEvent::Timer && !ticking_ &&
         std::ranges::count(kTimers, object->objectName()) > 0;
}

std::string Machine::run(const Scenario& scenario) {
  installation_.renew();
  program_ = std::make_unique<Wiring>();
  mouse_ = std::make_unique<Mouse>();
  PuzzleStore store = *basTiles::store;
  store.write = [this, write = store.write](const std::filesystem::path& file,
                                            const std::string& bytes, std::size_t longestTail) {
    write(file, bytes, longestTail);
    checkSaved(file, bytes);
  };
  const Replacement checkedStore(basTiles::store, store);
  if (!scenario.editor) steps_.push_back({Step::Puzzle, {}, scenario.puzzle, false});
  steps_.push_back({Step::Resize, {}, scenario.size, false});
  for (const Step& step : scenario.steps)
    for (const Step& part : expanded(step)) steps_.push_back(part);
  basStartup::Main([&] {
    if (scenario.editor)
      program_->edit.Show();
    else
      program_->main.Show();
  });
  schedule();
  QApplication::exec();
  delete timer_;
  desk_.hide();
  mouse_.reset();
  program_.reset();
  finishFirstLevelWork();
  return trouble_;
}

void Machine::schedule() {
  // A timer of its own each time: one whose step waits in a dialog would not fire there.
  timer_ = new QTimer(this);
  timer_->setSingleShot(true);
  timer_->start(0);
  QObject::connect(timer_, &QTimer::timeout, this, [this, timer = timer_.data()] {
    timer->deleteLater();
    next();
  });
}

void Machine::next() {
  if (++laps_ < kLaps) return schedule();
  laps_ = 0;
  if (ending_ == 0 && !started()) return schedule();
  if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
  if (trouble_.empty() && ending_ == 0) judge();
  schedule();
  if (!trouble_.empty() || steps_.empty() || Form::Count() == 0)
    tearDown();
  else
    makeSteps();
}

/// The first activation of the window has run, which loads a puzzle and opens the chooser.
bool Machine::started() {
  if (!stage() || stage() == startedStage_ || ++waited_ > kMostLapsToStart) {
    startedStage_ = stage();
    waited_ = 0;
    return true;
  }
  const bool open = playing() ? program_->open.Loaded() : program_->open.fEdit;
  if (open) startedStage_ = stage();
  return open;
}

void Machine::makeSteps() {
  bool hurried = true;
  while (hurried && !steps_.empty() && trouble_.empty()) {
    const Step step = steps_.front();
    steps_.pop_front();
    hurried = step.hurried && step.kind < Step::Key;  // a dialog may come of the others
    ++done_;
    last_ = machine::text(step);
    const int now = done_;
    perform(step);
    // If it has waited in a dialog, others have been made there and judged meanwhile.
    hurried = hurried && done_ == now && ending_ == 0;
    if (hurried) judge();
  }
}

/// Closes what is in front, until the program ends by itself.
void Machine::tearDown() {
  if (++ending_ > kMostLapsToEnd) {
    fail("the program does not end");
    QCoreApplication::exit(1);
  }
  mouse_->release();
  if (finger_ && stage()) fingerUp();
  program_->edit.fFileChanged = false;
  if (Form::Count() == 0) return;
  for (Form* form :
       std::initializer_list<Form*>{&program_->finished, &program_->open, &program_->splash}) {
    if (!form->Loaded()) continue;
    form->Unload();
    return;
  }
  if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
    dialog->reject();
  else if (Form* open = stage())
    open->Unload();
}

void Machine::fail(const std::string& what) {
  if (trouble_.empty()) trouble_ = what;
}

Form* Machine::stage() const {
  if (program_->main.Loaded()) return &program_->main;
  if (program_->edit.Loaded()) return &program_->edit;
  return nullptr;
}

bool Machine::stageIsFree() const {
  return stage() && stage()->Window()->isVisible() && !QApplication::activeModalWidget();
}

PENTOWINDOW* Machine::control(Side side) const {
  if (!playing()) return side == kBoard ? program_->edit.Grid.data() : nullptr;
  return side == kBoard ? program_->main.Grid : program_->main.PentoPanel;
}

QWidget* Machine::front() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return stage() ? stage()->Window() : nullptr;
}

/// The control whose picture gets a press.
std::optional<Side> Machine::sideUnderPointer() const {
  if (!stageIsFree() || mouse_->over() != stage()->Window()->windowHandle()) return {};
  QWidget* window = stage()->Window();
  const QWidget* child = childAt(*window, window->mapFromGlobal(mouse_->at()));
  for (Side side : {kBoard, kTray})
    if (control(side) && child && child->parentWidget() == control(side) &&
        child->objectName() == "pctFore")
      return side;
  return {};
}

PentoRef Machine::carried() const {
  for (Side side : {kBoard, kTray})
    if (control(side) && control(side)->Floating()) return control(side)->FloatingPento();
  return nullptr;
}

/// The table as the program has it.
Table Machine::seen() {
  Table table;
  for (Side side : {kBoard, kTray})
    if (control(side)) table.areas.at(side) = areaOf(*control(side)->Grid());
  const PentoRef piece = carried();
  if (piece) table.hand = cardOf(*piece);
  if (playing())
    for (Side side : {kBoard, kTray})
      if (control(side)->Floating() != (piece != nullptr) ||
          (piece && control(side)->FloatingPento() != piece))
        fail("board and tray do not carry the same piece");
  return table;
}

}  // namespace machine
