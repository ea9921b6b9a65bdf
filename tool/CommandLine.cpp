#include "tool/CommandLine.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <ostream>
#include <sstream>

#include "model/PuzzleFormat.h"

namespace puzzle {

namespace {

constexpr std::string_view kProgram = "quinzolith-puzzle";
constexpr std::string_view kPurpose = "makes, shows, checks and solves pentomino puzzles";
constexpr std::string_view kGeneral =
    "COMMAND --help tells its options. --help, --version and --man stand alone. The file name -\n"
    "is standard input or output. -- ends the options. No more than 1 MiB of a file is read.";
constexpr std::string_view kExitCodes[] = {
    "0  done", "1  the answer is no: no solution, a file refused", "2  wrong use",
    "3  there are more solutions than can be counted within 1 GiB, or in 128 bits"};

std::string dashed(std::string_view name) {
  return std::string("--").append(name);
}

std::string shown(const Option& option) {
  std::string result = dashed(option.name);
  if (!option.value.empty()) result.append("=").append(option.value);
  return result;
}

const Option& optionNamed(const Command& command, std::string_view name) {
  const auto found = std::ranges::find(command.options, name, &Option::name);
  if (found == command.options.end())
    throw UsageError(std::string(command.name) + " has no option " + dashed(name) + ".");
  return *found;
}

const Command& commandNamed(std::string_view name) {
  const auto found = std::ranges::find(commands(), name, &Command::name);
  if (found == commands().end()) throw UsageError("There is no command " + std::string(name) + ".");
  return *found;
}

/// A dash that troff does not turn into a hyphen; each sentence on a line of its own.
std::string troff(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '-') result += '\\';
    result += c;
    if (c == ' ' && result.ends_with(". ")) result.back() = '\n';
  }
  return result;
}

/// What a command does, as sentences of their own.
std::string paragraph(const Command& command) {
  std::string text = std::string(command.summary) + ". " + std::string(command.text);
  text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
  return text;
}

int dispatch(const std::vector<std::string>& words, Environment& environment) {
  const std::string first = words.empty() ? "" : words.front();
  if (first.empty()) throw UsageError("No command is arguments.");
  if (first == "--help") environment.out << helpText();
  if (first == "--version")
    environment.out << kProgram << " " << PuzzleFormat::kThisVersion.text() << "\n";
  if (first == "--man") environment.out << manualPage();
  if (first == "--help" || first == "--version" || first == "--man") return kDone;
  const Command& command = commandNamed(first);
  const Arguments arguments = parse(command, {words.begin() + 1, words.end()});
  if (arguments.has("help")) {
    environment.out << helpText(command);
    return kDone;
  }
  return command.run(arguments, environment);
}

}  // namespace

std::string Arguments::text(std::string_view option, std::string_view otherwise) const {
  const auto found = options.find(option);
  return found == options.end() ? std::string(otherwise) : found->second;
}

long long Arguments::number(std::string_view option, long long otherwise, long long least,
                            long long most) const {
  if (!has(option)) return otherwise;
  const std::string value = text(option);
  long long result = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), result);
  if (error != std::errc{} || end != value.data() + value.size() || result < least || result > most)
    throw UsageError(dashed(option) + " wants a whole number from " + std::to_string(least) +
                     " to " + std::to_string(most) + ".");
  return result;
}

Arguments parse(const Command& command, const std::vector<std::string>& words) {
  Arguments arguments;
  bool optionsEnded = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (optionsEnded || word == "-" || !word.starts_with("-")) {
      arguments.positional.push_back(word);
    } else if (word == "--") {
      optionsEnded = true;
    } else if (word == "--help") {
      arguments.options["help"];
      return arguments;
    } else {
      const std::size_t equals = word.find('=');
      const std::string name = word.starts_with("--") ? word.substr(2, equals - 2) : word;
      const Option& option = optionNamed(command, name);
      if (option.value.empty() && equals != std::string::npos)
        throw UsageError(dashed(name) + " takes no value.");
      if (!option.value.empty() && equals == std::string::npos && ++i == words.size())
        throw UsageError(dashed(name) + " wants a value.");
      const bool apart = !option.value.empty() && equals == std::string::npos;
      arguments.options[name] = apart                         ? words[i]
                                : equals == std::string::npos ? ""
                                                              : word.substr(equals + 1);
    }
  }
  if (arguments.positional.size() < command.fewest || arguments.positional.size() > command.most)
    throw UsageError(std::string(command.name) +
                     " wants the arguments: " + std::string(command.arguments));
  return arguments;
}

std::string helpText() {
  std::ostringstream out;
  out << "Usage: " << kProgram << " COMMAND [OPTIONS] ARGUMENTS\n"
      << kProgram << " " << kPurpose << ".\n\nCommands:\n";
  for (const Command& command : commands())
    out << "  " << command.name << std::string(10 - command.name.size(), ' ') << command.summary
        << "\n";
  out << "\n" << kGeneral << "\n\nExit codes:\n";
  for (const std::string_view line : kExitCodes) out << "  " << line << "\n";
  return out.str();
}

std::string helpText(const Command& command) {
  std::ostringstream out;
  out << "Usage: " << kProgram << " " << command.name << " [OPTIONS] " << command.arguments << "\n"
      << command.summary << ". " << command.text << "\n";
  if (!command.options.empty()) out << "\nOptions:\n";
  for (const Option& option : command.options) {
    const std::string name = shown(option);
    out << "  " << name << std::string(name.size() < 22 ? 22 - name.size() : 1, ' ') << option.text
        << "\n";
  }
  return out.str();
}

std::string manualPage() {
  std::ostringstream out;
  out << ".TH QUINZOLITH\\-PUZZLE 1 " << QUINZOLITH_RELEASED << " \"Quinzolith "
      << PuzzleFormat::kThisVersion.text() << "\"\n.SH NAME\n"
      << troff(kProgram) << " \\- " << kPurpose << "\n.SH SYNOPSIS\n.B " << troff(kProgram)
      << "\n.I COMMAND\n[OPTIONS] ARGUMENTS\n.SH DESCRIPTION\n"
      << troff(kGeneral) << "\n.SH COMMANDS\n";
  for (const Command& command : commands()) {
    out << ".SS \"" << command.name << " [OPTIONS] " << troff(command.arguments) << "\"\n"
        << troff(paragraph(command)) << "\n";
    for (const Option& option : command.options)
      out << ".TP\n.B " << troff(shown(option)) << "\n" << troff(option.text) << "\n";
  }
  out << ".SH EXIT STATUS\n.nf\n";
  for (const std::string_view line : kExitCodes) out << line << "\n";
  out << ".fi\n.SH SEE ALSO\n.BR quinzolith (6)\n";
  return out.str();
}

int run(const std::vector<std::string>& words, Environment& environment) {
  try {
    const int result = dispatch(words, environment);
    if (!environment.out.flush()) throw Refusal("The output cannot be written.");
    return result;
  } catch (const UsageError& error) {
    environment.err << kProgram << ": " << error.what() << "\nTry " << kProgram << " --help.\n";
    return kWrongUse;
  } catch (const std::exception& error) {
    environment.err << kProgram << ": " << error.what() << "\n";
    return kNo;
  }
}

}  // namespace puzzle
