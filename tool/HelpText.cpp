#include <algorithm>
#include <cctype>
#include <sstream>

#include "folders/Installation.h"
#include "model/PuzzleFormat.h"
#include "tool/CommandLine.h"

// What is made from the table of commands for people: the help and the manual page.
namespace puzzle {

namespace {

constexpr std::string_view kGeneral =
    "A file named - is standard input or output. Options may stand anywhere behind the command; "
    "--\nends them. No more than 1 MiB of a file is read.";
constexpr std::string_view kUser =
    "The game's chooser shows on its tab Other, under their files' names, the puzzles that lie in "
    "your folder User";
constexpr std::string_view kExitCodes[] = {
    "0  done", "1  the answer is no: no solution, a file refused", "2  wrong use",
    "3  there are more solutions than can be counted within 1 GiB, or in 128 bits"};
constexpr std::size_t kLineLength = 78;

std::string shown(const OptionSpec& option) {
  std::string result = dashed(option.name);
  if (!option.value.empty()) result.append("=").append(option.value);
  return result;
}

std::string shownAlone(const OptionSpec& option) {
  std::string result;
  for (const std::string& name : wordsOf(option.name))
    result += (result.empty() ? "" : ", ") + name;
  if (!option.value.empty()) result.append(" ").append(option.value);
  return result;
}

/// A dash that troff does not turn into a hyphen; each sentence on a line of its own.
std::string troff(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '-') result += '\\';
    result += c;
    if (c == ' ' && result.ends_with(". ") && !result.ends_with(".. ")) result.back() = '\n';
  }
  return result;
}

/// What a command does, as sentences of their own.
std::string paragraph(const Command& command) {
  std::string text = std::string(command.summary) + ". " + std::string(command.text);
  text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
  return text;
}

/// The text in lines that are not too long, each but the first behind `indent` blanks.
std::string wrapped(std::string_view text, std::size_t indent) {
  std::string result;
  std::size_t column = indent;
  std::istringstream in{std::string(text)};
  for (std::string word; in >> word; column += word.size()) {
    if (column > indent && column + 1 + word.size() > kLineLength) {
      result += "\n" + std::string(indent, ' ');
      column = indent;
    } else if (column > indent) {
      result += " ";
      ++column;
    }
    result += word;
  }
  return result + "\n";
}

/// A name and what it means, in two columns.
std::string entry(const std::string& name, std::string_view text, std::size_t column) {
  const std::size_t gap = name.size() + 4 < column ? column - name.size() - 2 : 2;
  return "  " + name + std::string(gap, ' ') + wrapped(text, column);
}

std::string placeOfUser(const std::filesystem::path& installation) {
  const std::filesystem::path user = Installation::expectedUser(installation);
  return user.empty() ? "" : ", " + user.string();
}

}  // namespace

std::string helpText(const std::filesystem::path& installation) {
  constexpr std::size_t column = 22;
  std::string help = "Usage: " + std::string(kProgram) + " COMMAND [OPTIONS] ARGUMENTS\n" +
                     std::string(kProgram) + " " + std::string(kPurpose) + ".\n\nCommands:\n";
  for (const Command& command : commands())
    help += entry(std::string(command.name), command.summary, column);
  help += "\nInstead of a command:\n";
  for (const OptionSpec& option : standAlone())
    help += entry(shownAlone(option), option.text, column);
  help += "\n" + wrapped(kGeneral, 0) +
          wrapped(std::string(kUser) + placeOfUser(installation) + ".", 0) + "\nExit codes:\n";
  for (const std::string_view line : kExitCodes) help.append("  ").append(line).append("\n");
  return help;
}

std::string helpText(const Command& command) {
  std::string help = "Usage: " + std::string(kProgram) + " " + std::string(command.name) +
                     (command.options.empty() ? " " : " [OPTIONS] ") +
                     std::string(command.arguments) + "\n" + wrapped(paragraph(command), 0);
  if (!command.options.empty()) help += "\nOptions:\n";
  for (const OptionSpec& option : command.options) help += entry(shown(option), option.text, 24);
  return help;
}

std::string manualPage() {
  std::ostringstream out;
  out << ".TH QUINZOLITH\\-PUZZLE 1 " << QUINZOLITH_RELEASED << " \"Quinzolith "
      << PuzzleFormat::kThisVersion.text() << "\"\n.SH NAME\n"
      << troff(kProgram) << " \\- " << kPurpose << "\n.SH SYNOPSIS\n.B " << troff(kProgram)
      << "\n.I COMMAND\n[OPTIONS] ARGUMENTS\n.SH DESCRIPTION\n"
      << troff(kGeneral) << "\n.PP\n"
      << troff(kUser) << ", which 'quinzolith\\-puzzle help' names.\n.SH COMMANDS\n";
  for (const Command& command : commands()) {
    out << ".SS \"" << command.name << (command.options.empty() ? " " : " [OPTIONS] ")
        << troff(command.arguments) << "\"\n"
        << troff(paragraph(command)) << "\n";
    for (const OptionSpec& option : command.options)
      out << ".TP\n.B " << troff(shown(option)) << "\n" << troff(option.text) << "\n";
  }
  out << ".SH INSTEAD OF A COMMAND\n";
  for (const OptionSpec& option : standAlone())
    out << ".TP\n.B " << troff(shownAlone(option)) << "\n" << troff(option.text) << "\n";
  out << ".SH EXIT STATUS\n.nf\n";
  for (const std::string_view line : kExitCodes) out << line << "\n";
  out << ".fi\n.SH SEE ALSO\n.BR quinzolith (6)\n";
  return out.str();
}

}  // namespace puzzle
