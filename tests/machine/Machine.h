#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/machine/Installation.h"
#include "tests/machine/Mouse.h"
#include "tests/machine/Step.h"
#include "tests/machine/Table.h"
#include "wiring/Wiring.h"

namespace machine {

/// Plays a scenario, once, on the program's real windows, and beside it on a table: after each step
/// both must agree, and a person must see what lies there.
///
/// Order: one step at a time from the event loop, each when all that the one before has left to be
///        done is done. A step may wait in a dialog; the next ones come from the dialog's own loop.
/// Time:  the program's own ticks are swallowed, and made by steps; so a run can be repeated.
class Machine : private QObject {
 public:
  explicit Machine(Installation& installation);
  ~Machine() override;

  /// What went wrong, or an empty text.
  std::string run(const Scenario& scenario);
  int steps() const { return done_; }  ///< how many it has made

 private:
  /// One way in which a step may end.
  using Outcome = std::function<bool(const Table&)>;
  struct Question {
    int quarters = 0;  ///< by which to turn; 0 mirrors
    Side side = kBoard;
  };
  struct PickedUp {
    Side side = kBoard;
    Cell corner;
    Card card;
  };
  struct Finger {
    QPointF at, start;
    bool leads = false;    ///< the hand
    bool presses = false;  ///< as it is lifted
    bool lifts = false;    ///< the piece hangs above it
  };
  struct Drawn {
    Side side = kBoard;
    QPoint corner;  // of the piece, pixels of the picture
  };

  // The driver: Machine.cpp.
  bool eventFilter(QObject* object, QEvent* event) override;
  void schedule();
  void next();
  bool started();
  void makeSteps();
  void tearDown();
  void fail(const std::string& what);

  // What is there.
  Form* stage() const;  ///< the play window or the editor, whichever is open
  bool playing() const { return program_->main.Loaded(); }
  bool stageIsFree() const;  ///< no dialog is before it
  PENTOWINDOW* control(Side side) const;
  QWidget* front() const;
  std::optional<Side> sideUnderPointer() const;
  PentoRef carried() const;
  Table seen();

  // The steps: Machine_steps.cpp.
  void perform(const Step& step);
  void performPointer(const Step& step);
  void performWindow(const Step& step);
  std::optional<QPointF> place(const Spot& spot) const;
  std::optional<QPointF> onPiece(Side side, int which, int cell) const;
  std::optional<QPointF> whereItFits(Side side, int which) const;
  void glide(const QPointF& to);
  bool overButton() const;
  void press(Qt::MouseButton button, bool again);
  void tick(Side side);
  void leave();
  void comeBack();
  void resize(int size);

  // Windows and dialogs: Machine_windows.cpp.
  void close();
  void chooseItem(int which);
  void pushButton(int which);
  void choosePuzzle(int which);
  void answer(int which);
  void name(int which);

  // The keys, and what must come of them: Machine_keys.cpp.
  void key(int which);
  std::optional<Side> sideWithFocus() const;
  std::optional<Side> sideUnderHand() const { return sideUnder(mouse_->hand()); }
  bool handOnEdge() const;
  std::set<Cell> cellsOfHand(Side side) const;
  void expectTakenBack();
  void judgeArrow(Side from, const std::set<Cell>& cells, const Cell& by);
  std::vector<Cell> stopsOfTab(Side side) const;
  void judgeTab(std::optional<Side> from, std::set<Cell> cells, int direction);

  // Fingers, and where they lead the hand: Machine_fingers.cpp.
  void performFinger(const Step& step);
  void fingerDown(const QPointF& to);
  void fingerMove(const Spot& spot);
  void fingerUp();
  void fingersTap(int others);
  void pressForLong();
  std::optional<Side> sideUnder(const QPointF& place) const;
  QPointF below(Side side) const;
  QPointF middle(Side side) const;

  // What must come of them: Machine_claims.cpp.
  void expectPress(Side side, Qt::MouseButton button);
  void expectPickUp(Side side);
  void expectLayDown(Side side);
  void expectChange(int quarters, Side side);
  void expectEditorButton(int which);
  std::vector<Cell> cellsBelow(Side side) const;
  std::vector<Cell> cellsForCorner(Side side) const;
  Outcome exactly(const Table& table) const;
  Outcome unchanged() const { return exactly(table_); }
  Outcome loadedForPlay(const std::filesystem::path& file) const;
  void expectFiles();
  bool anyFileLoaded(const Table& table) const;
  void judge();
  void noticeOrigin(const Table& now);
  void judgePickUp();
  void judgeSolved(const Table& now);
  /// Else motions go to what was pressed, or to nobody after a dialog.
  bool boardsHear() const { return mouse_->held() ? heldOnBoard_ : !mouse_->lost(); }
  void look(bool ticked);
  void lookAt(Side side);
  void checkSaved(const std::filesystem::path& file, const std::string& bytes);

  Installation& installation_;
  std::unique_ptr<Wiring> program_;
  std::unique_ptr<Mouse> mouse_;
  QWidget desk_;  ///< another program's window
  std::deque<Step> steps_;
  QPointer<QTimer> timer_;
  bool ticking_ = false;
  Form* startedStage_ = nullptr;
  int waited_ = 0;
  std::string last_;  ///< step
  int laps_ = 0;
  int done_ = 0;
  int ending_ = 0;
  std::string trouble_;

  Form* stage_ = nullptr;  ///< to which the table belongs
  Table table_;
  bool easy_[2] = {false, false};
  std::vector<Outcome> outcomes_;
  bool heldOnBoard_ = false;
  std::optional<Question> question_;
  std::vector<PickedUp> pickedUp_;  ///< one of them
  std::optional<Drawn> drawn_;
  std::optional<Finger> finger_;
  std::optional<PickedUp> origin_;  ///< of the card in hand
};

}  // namespace machine
