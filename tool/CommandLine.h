#pragma once

#include <filesystem>
#include <iosfwd>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "drafts/Refusal.h"

/// The command line of quinzolith-puzzle: one table of commands, from which parsing, help and the
/// manual page come.
namespace puzzle {

/// The exit codes.
enum Exit { kDone = 0, kNo = 1, kWrongUse = 2, kTooLarge = 3 };

/// Wrong use of the command line; ends the program with kWrongUse.
struct UsageError : std::runtime_error {
  using runtime_error::runtime_error;
};

/// What a command works on: results go to `out`, talk to `err`, and "-" names `in` or `out`.
struct Environment {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  std::filesystem::path installation;  ///< the folder that holds tiles/tiles.jpg
};

struct Option {
  std::string_view name;   ///< without the two dashes
  std::string_view value;  ///< what stands for its value in the help; empty for a switch
  std::string_view text;
};

/// The options and arguments that were given to a command.
class Arguments {
 public:
  std::vector<std::string> positional;
  std::map<std::string, std::string, std::less<>> options;

  bool has(std::string_view option) const { return options.find(option) != options.end(); }
  std::string text(std::string_view option, std::string_view otherwise = {}) const;
  /// Errors: UsageError unless the value is a whole number from `least` to `most`.
  long long number(std::string_view option, long long otherwise, long long least,
                   long long most) const;
};

struct Command {
  std::string_view name, arguments, summary, text;
  std::size_t fewest, most;  ///< number of arguments
  std::vector<Option> options;
  int (*run)(const Arguments&, Environment&);
};

/// All commands, in the order of the help.
const std::vector<Command>& commands();

/// The options and arguments of one command.
/// Errors: UsageError for an unknown option, a missing or needless value, a wrong number of
/// arguments.
Arguments parse(const Command& command, const std::vector<std::string>& words);

std::string helpText();
std::string helpText(const Command& command);
/// The manual page in troff.
std::string manualPage();

/// Runs the program on the words behind its name and returns its exit code.
int run(const std::vector<std::string>& words, Environment& environment);

}  // namespace puzzle
