#include "tests/machine/Step.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace machine {

namespace {

constexpr std::array kKinds{
    "Move",       "Glide",    "Slip",         "Tell",   "Press",  "Release", "Click",  "Again",
    "Placing",    "Tick",     "Rest",         "Key",    "Leave",  "Return",  "Resize", "Minimize",
    "Restore",    "Close",    "Item",         "Button", "Puzzle", "Answer",  "Name",   "FingerDown",
    "FingerMove", "FingerUp", "FingerBeside", "Glance", "Look"};
constexpr std::array kPlaces{"Here",      "BoardPiece", "TrayPiece", "BoardFit", "TrayFit",
                             "BoardArea", "TrayArea",   "Window",    "Desk"};
static_assert(kKinds.size() == Step::Look + 1 && kPlaces.size() == Spot::Desk + 1);

bool goesSomewhere(Step::Kind kind) {
  return kind == Step::Move || kind == Step::Glide || kind == Step::Slip ||
         kind == Step::FingerDown || kind == Step::FingerMove;
}

}  // namespace

std::string text(const Step& step) {
  std::ostringstream out;
  out << "{" << kKinds.at(step.kind);
  const Spot& spot = step.spot;
  if (goesSomewhere(step.kind) || step.number || step.hurried)
    out << ", {" << kPlaces.at(spot.where) << ", " << spot.x << ", " << spot.y << "}";
  if (step.number || step.hurried) out << ", " << step.number;
  if (step.hurried) out << ", true";
  out << "}";
  return out.str();
}

std::string text(const Scenario& scenario) {
  std::ostringstream out;
  out << "{" << (scenario.editor ? "true" : "false") << ", " << scenario.size << ", "
      << scenario.puzzle << ", {";
  for (const Step& step : scenario.steps) out << text(step) << ", ";
  out << "}},";
  return out.str();
}

namespace {

using Change = std::function<void(Step&)>;

const Change kPlainer[] = {
    [](Step& step) { step.hurried = false; },
    [](Step& step) { step.spot.x = step.spot.y = 0; },
    [](Step& step) { step.spot = {}; },
    [](Step& step) { step.number %= 3; },
    [](Step& step) { step.number = 0; },
    [](Step& step) {
      step = {Step::Move, step.spot, 0, false};
    },
};

}  // namespace

Scenario shrunk(Scenario failing, const std::function<bool(const Scenario&)>& fails) {
  const auto take = [&](const Scenario& other) {
    if (fails(other)) failing = other;
  };
  std::size_t before = 0;
  do {
    before = failing.steps.size();
    for (std::size_t length = before; length > 0; length /= 2)
      for (std::size_t end = failing.steps.size(); end > 0; end -= std::min(length, end)) {
        Scenario fewer = failing;
        const auto last = fewer.steps.begin() + static_cast<std::ptrdiff_t>(end);
        fewer.steps.erase(last - static_cast<std::ptrdiff_t>(std::min(length, end)), last);
        take(fewer);
      }
  } while (failing.steps.size() < before);
  for (std::size_t i = 0; i < failing.steps.size(); ++i)
    for (const Change& change : kPlainer) {
      Scenario other = failing;
      change(other.steps[i]);
      take(other);
    }
  return failing;
}

}  // namespace machine
