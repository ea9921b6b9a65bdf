// A machine plays: random steps on the real windows, and beside them on a table.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <QApplication>
#include <iostream>

#include "tests/machine/Machine.h"

namespace machine {

namespace {

rc::Gen<Step::Kind> kinds(bool editor) {
  return rc::gen::weightedElement<Step::Kind>(
      {{12, Step::Move},      {4, Step::Glide},
       {8, Step::Slip},       {2, Step::Tell},
       {8, Step::Press},      {3, Step::Release},
       {16, Step::Click},     {2, Step::Again},
       {2, Step::Placing},    {6, Step::Tick},
       {14, Step::Rest},      {14, Step::Key},
       {1, Step::Leave},      {2, Step::Return},
       {1, Step::Resize},     {1, Step::Minimize},
       {2, Step::Restore},    {1, Step::Close},
       {1, Step::Item},       {editor ? 12 : 3, Step::Button},
       {3, Step::Puzzle},     {4, Step::Answer},
       {2, Step::Name},       {6, Step::Glance},
       {6, Step::FingerDown}, {10, Step::FingerMove},
       {4, Step::FingerUp},   {4, Step::FingerBeside}});
}

rc::Gen<Spot> spots() {
  using namespace rc;
  const auto where = gen::weightedElement<Spot::Where>({{2, Spot::Here},
                                                        {2, Spot::BoardPiece},
                                                        {3, Spot::TrayPiece},
                                                        {3, Spot::BoardFit},
                                                        {1, Spot::TrayFit},
                                                        {3, Spot::BoardArea},
                                                        {2, Spot::TrayArea},
                                                        {1, Spot::Window},
                                                        {1, Spot::Desk}});
  return gen::build<Spot>(gen::set(&Spot::where, where), gen::set(&Spot::x, gen::inRange(0, 100)),
                          gen::set(&Spot::y, gen::inRange(0, 100)));
}

rc::Gen<Step> steps(bool editor) {
  using namespace rc;
  return gen::build<Step>(
      gen::set(&Step::kind, kinds(editor)), gen::set(&Step::spot, spots()),
      gen::set(&Step::number, gen::inRange(0, 64)),
      gen::set(&Step::hurried, gen::map(gen::inRange(0, 8), [](int n) { return n == 7; })));
}

/// Shrunk by means of our own, since each try takes as long as opening the windows; and for the
/// same reason the runs are long.
rc::Gen<Scenario> scenarios(bool editor) {
  using namespace rc;
  return gen::noShrink(gen::build<Scenario>(
      gen::set(&Scenario::editor, gen::just(editor)),
      gen::set(&Scenario::size, gen::resize(kNominalSize, gen::inRange(0, 4))),
      gen::set(&Scenario::puzzle, gen::resize(kNominalSize, gen::inRange(0, 16))),
      gen::set(&Scenario::steps, gen::scale(4, gen::container<std::vector<Step>>(
                                                   gen::resize(kNominalSize, steps(editor)))))));
}

/// The offscreen platform complains of what it lacks.
void quietly(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (!message.startsWith("This plugin does not")) std::cerr << qPrintable(message) << std::endl;
}

class Machines {
 public:
  Machines() { qInstallMessageHandler(quietly); }
  std::string play(const Scenario& scenario) {
    Machine machine(installation_);
    const std::string trouble = machine.run(scenario);
    ++runs_;
    steps_ += machine.steps();
    return trouble;
  }
  /// What has gone wrong, when, and in which steps it can be seen.
  std::string report(const Scenario& failed, const std::string& trouble) {
    std::ostringstream text;
    text << "Found in run " << runs_ << ", after " << steps_ << " steps: " << trouble << std::endl;
    const Scenario least = shrunk(failed, [this](const Scenario& s) { return !play(s).empty(); });
    text << "Shrunk to " << least.steps.size() << " steps: " << play(least) << std::endl
         << machine::text(least);
    return text.str();
  }
  ~Machines() { std::cerr << steps_ << " steps in " << runs_ << " runs" << std::endl; }

 private:
  Installation installation_;
  long runs_ = 0;
  long steps_ = 0;
};

void playAll(bool editor) {
  Machines machines;
  EXPECT_TRUE(rc::check([&] {
    const Scenario scenario = *scenarios(editor);
    const std::string trouble = machines.play(scenario);
    if (!trouble.empty()) RC_FAIL(machines.report(scenario, trouble));
  }));
}

TEST(Machine, PlaysPuzzles) {
  playAll(false);
}

/// What a machine has found once, as it was printed.
std::vector<Scenario> kept() {
  using enum Step::Kind;
  using enum Spot::Where;
  return {
      // A piece turned at rest was drawn elsewhere than it would have been laid.
      {false, 0, 2, {{Move, {TrayPiece, 0, 0}}, {Press}, {Press, {Desk, 0, 0}, 16}, {Rest}}},
      // A new piece mirrored before the pointer had moved stood in the corner of the board.
      {true, 0, 0, {{Glide, {Desk, 0, 0}}, {Button}, {Key}, {Rest}}},
      // A piece that another one replaced under a pointer at rest stayed drawn.
      {true, 0, 0, {{Button, {Here, 0, 0}, 26}, {Glide, {BoardFit, 0, 0}}, {Button}, {Rest}}},
      {true, 1, 0, {{Button, {BoardArea, 0, 0}, 52}, {Move, {BoardArea, 0, 8}}, {Rest}}},
      // Turned on the board under another window, the piece was laid into the tray by its old
      // middle.
      {false,
       0,
       10,
       {{Move, {TrayPiece, 11, 96}},
        {Click},
        {Click, {Here, 0, 0}, 1},
        {Move, {BoardArea, 24, 65}},
        {Leave},
        {Click, {Here, 0, 0}, 1},
        {Move, {TrayPiece, 0, 0}},
        {Click}}},
      // Over the board after a drag that began on the menu bar, it was not seen until the next
      // move.
      {true,
       3,
       14,
       {{Move, {Window, 0, 0}}, {Button}, {Again}, {Move, {BoardArea, 13, 9}}, {Release}, {Rest}}},
      {true,
       1,
       7,
       {{Move, {Window, 13, 68}},
        {Move, {Here, 94, 14}},
        {Button},
        {Again},
        {Move, {Here, 98, 75}},
        {Press},
        {Rest}}},
      {false,
       3,
       2,
       {{Move, {BoardArea, 31, 20}},
        {Press},
        {Move, {TrayPiece, 0, 0}},
        {Item, {Here, 0, 0}, 4},
        {Button},
        {Move, {BoardArea, 16, 15}},
        {Rest}}},
      {true,
       0,
       2,
       {{Button},
        {Move, {Window, 6, 2}},
        {Click, {Here, 0, 0}, 0, true},
        {Move, {BoardArea, 23, 75}, 0, true},
        {Press, {Here, 0, 0}, 1}}},
      // Minimized and restored with a button held, the window showed the piece where it had been.
      {true,
       0,
       2,
       {{Button},
        {Move, {BoardFit, 0, 0}},
        {Press},
        {Button},
        {Item},
        {Answer, {Here, 0, 0}, 1},
        {Press},
        {Close},
        {Move, {BoardFit, 0, 0}},
        {Minimize},
        {Move, {BoardPiece, 0, 0}},
        {Restore},
        {Rest}}},
      // Picked up by the first press after the window came back and carried out of it at once, the
      // piece stayed drawn where it had lain.
      {false,
       0,
       0,
       {{Move, {TrayPiece, 0, 0}},
        {Click},
        {Move, {TrayArea, 11, 83}},
        {Slip, {Here, 33, 29}},
        {Resize, {Here, 0, 0}, 2},
        {Leave},
        {Click},
        {Return},
        {Press, {Here, 0, 0}, 0, true},
        {Move, {Desk, 0, 0}},
        {Rest}}},
      // Led to the board by a key and pressed in the tray, where the pointer still was, the piece
      // was not seen there.
      {false,
       2,
       7,
       {{Placing, {Here, 0, 0}, 2},
        {Move, {TrayPiece, 0, 0}},
        {Press},
        {Key, {Here, 0, 0}, 7},
        {Click, {Here, 0, 0}, 2},
        {Glance}}},
      // Two fingers mirrored the piece under a third one, above which it was then laid but not
      // seen.
      {true,
       0,
       13,
       {{Button}, {FingerDown, {BoardFit, 0, 0}}, {FingerBeside, {Here, 0, 0}, 1}, {Rest}}},
      // Left by a finger and turned by a double-click elsewhere, it was seen there at the next tick
      // only.
      {false,
       0,
       10,
       {{Key, {Here, 0, 0}, 4},
        {Placing, {Here, 0, 0}, 2},
        {Click},
        {FingerDown, {TrayPiece, 0, 0}},
        {Click},
        {Again},
        {Glance}}},
      // After a resize the piece hung by the old tiles' grab point.
      {false, 0, 0, {{Slip, {TrayPiece, 0, 0}}, {Press}, {Resize, {BoardArea, 0, 0}, 3}, {Rest}}},
  };
}

TEST(Machine, PlaysWhatItHasFoundBefore) {
  Machines machines;
  for (const Scenario& scenario : kept())
    EXPECT_EQ(machines.play(scenario), "") << machine::text(scenario);
}

TEST(Machine, MakesPuzzles) {
  playAll(true);
}

}  // namespace

}  // namespace machine
