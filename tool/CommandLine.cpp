#include "tool/CommandLine.h"

#include <algorithm>
#include <ostream>

#include "model/PuzzleFormat.h"

namespace puzzle {

namespace {

const Command& commandNamed(std::string_view name) {
  const auto found = std::ranges::find(commands(), name, &Command::name);
  if (found == commands().end()) throw UsageError("There is no command " + std::string(name) + ".");
  return *found;
}

int runCommand(const Command& command, const std::vector<std::string>& words,
               Environment& environment) {
  const Arguments arguments = parse(command, {words.begin() + 1, words.end()});
  if (arguments.has("help")) {
    environment.out << helpText(command);
    return kDone;
  }
  const int result = command.run(arguments, environment);
  for (const std::string& name : arguments.unasked())
    environment.err << kProgram << ": " << dashed(name) << " has no effect here.\n";
  return result;
}

void tellCompletion(const std::vector<std::string>& words, Environment& environment) {
  Arguments shell;
  shell.options["completion"] = words.size() > 1 ? words[1] : "";
  shell.choice("completion", kShells, 0);
  environment.out << completion(words[1]);
}

/// What -h, --version and their like print. False for a command.
bool tellAlone(const std::vector<std::string>& words, Environment& environment) {
  const std::string& first = words.front();
  const bool help = first == "--help" || first == "-h" || first == "help";
  if (help && words.size() > 1)
    environment.out << helpText(commandNamed(words[1]));
  else if (help)
    environment.out << helpText(environment.installation);
  else if (first == "--version" || first == "-V")
    environment.out << kProgram << " " << PuzzleFormat::kThisVersion.text() << "\n";
  else if (first == "--man")
    environment.out << manualPage();
  else if (first == "--completion")
    tellCompletion(words, environment);
  else
    return false;
  return true;
}

/// Runs what the words say; `help` becomes what a mistaken user should try.
int dispatch(const std::vector<std::string>& words, Environment& environment, std::string& help) {
  if (words.empty()) throw UsageError("No command is given.");
  if (tellAlone(words, environment)) return kDone;
  if (words.front().starts_with("-")) throw UsageError("There is no option " + words.front() + ".");
  const Command& command = commandNamed(words.front());
  help = std::string(command.name) + " --help";
  return runCommand(command, words, environment);
}

}  // namespace

int run(const std::vector<std::string>& words, Environment& environment) {
  std::string help = "--help";
  try {
    const int result = dispatch(words, environment, help);
    if (!environment.out.flush()) throw Refusal("The output cannot be written.");
    return result;
  } catch (const UsageError& error) {
    environment.err << kProgram << ": " << error.what() << "\nTry " << kProgram << " " << help
                    << ".\n";
    return kWrongUse;
  } catch (const std::exception& error) {
    environment.err << kProgram << ": " << error.what() << "\n";
    return kNo;
  }
}

}  // namespace puzzle
