#include "tests/machine/Step.h"

#include <array>
#include <ostream>

namespace machine {

namespace {

constexpr std::array kKinds{"Move",  "Glide",  "Slip",    "Tell",     "Press",   "Release",
                            "Click", "Again",  "Placing", "Tick",     "Rest",    "Key",
                            "Leave", "Return", "Resize",  "Minimize", "Restore", "Close",
                            "Item",  "Button", "Puzzle",  "Answer",   "Name",    "Look"};
constexpr std::array kPlaces{"Here",      "BoardPiece", "TrayPiece", "BoardFit", "TrayFit",
                             "BoardArea", "TrayArea",   "Window",    "Desk"};
static_assert(kKinds.size() == Step::Look + 1 && kPlaces.size() == Spot::Desk + 1);

bool goesSomewhere(Step::Kind kind) {
  return kind == Step::Move || kind == Step::Glide || kind == Step::Slip;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Step& step) {
  out << "{" << kKinds.at(step.kind);
  const Spot& spot = step.spot;
  if (goesSomewhere(step.kind) || step.number || step.hurried)
    out << ", {" << kPlaces.at(spot.where) << ", " << spot.x << ", " << spot.y << "}";
  if (step.number || step.hurried) out << ", " << step.number;
  if (step.hurried) out << ", true";
  return out << "}";
}

std::ostream& operator<<(std::ostream& out, const Scenario& scenario) {
  out << "{" << (scenario.editor ? "true" : "false") << ", " << scenario.size << ", "
      << scenario.puzzle << ", {\n";
  for (const Step& step : scenario.steps) out << "    " << step << ",\n";
  return out << "}}";
}

}  // namespace machine
