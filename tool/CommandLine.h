#pragma once

#include <filesystem>
#include <iosfwd>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "drafts/Refusal.h"
#include "tool/Arguments.h"

/// The command line of quinzolith-puzzle: one table of commands, from which parsing, help, the
/// manual page and the shells' completions come. That is why it is our own: a library for command
/// lines (Qt's QCommandLineParser, say) knows no commands with options of their own, writes neither
/// a manual page nor completions, and cannot tell which options a command never asked for.
namespace puzzle {

inline constexpr std::string_view kProgram = "quinzolith-puzzle";
inline constexpr std::string_view kPurpose = "makes, shows, checks, solves and rates puzzles";
inline constexpr long long kNoLimit = std::numeric_limits<long long>::max();

/// The exit codes.
enum Exit { kDone = 0, kNo = 1, kWrongUse = 2, kTooLarge = 3 };

/// What a command works in: results go to `out`, talk to `err`, and "-" names `in` or `out`.
struct Environment {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  std::filesystem::path installation;  ///< the folder that holds tiles/tiles.jpg
};

struct Command {
  std::string_view name, arguments, summary, text;
  std::size_t fewest, most;  ///< number of arguments
  std::vector<OptionSpec> options;
  int (*run)(const Arguments&, Environment&);
};

/// All commands, in the order of the help.
const std::vector<Command>& commands();

/// What stands alone in a command's place, without the dashes: help, version and so on. The value
/// of an option is that of the next word.
const std::vector<OptionSpec>& standAlone();

/// The help. `installation` is the folder of the programs.
std::string helpText(const std::filesystem::path& installation);
std::string helpText(const Command& command);
/// The manual page in troff.
std::string manualPage();

/// A script for one of the shells in kShells that completes commands, options and file names.
std::string completion(std::string_view shell);
inline constexpr std::string_view kShells = "bash|zsh|fish";

/// Runs the program on the words behind its name and returns its exit code.
int run(const std::vector<std::string>& words, Environment& environment);

}  // namespace puzzle
