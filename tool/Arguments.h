#pragma once

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace puzzle {

/// Wrong use of the command line; ends the program with kWrongUse.
struct UsageError : std::runtime_error {
  using runtime_error::runtime_error;
};

/// What an option is, as the table of commands tells it; the options given are in Arguments.
struct OptionSpec {
  std::string_view name;   ///< without the two dashes
  std::string_view value;  ///< what stands for its value in the help; empty for a switch. Words
                           ///< joined by "|" are all the values that there are.
  std::string_view text;
};

/// The options and arguments of one command, as they were given. It notes which options the command
/// asks for: one that is never asked for has no effect.
class Arguments {
 public:
  std::vector<std::string> positional;
  std::map<std::string, std::string, std::less<>> options;  ///< by name; a switch is empty

  bool has(std::string_view option) const;
  std::string text(std::string_view option, std::string_view otherwise = {}) const;
  /// Errors: UsageError unless the value is a whole number from `least` to `most`.
  long long number(std::string_view option, long long otherwise, long long least,
                   long long most) const;
  /// The value's place among the option's words, `otherwise` without the option.
  /// Errors: UsageError for another word; the case of its letters does not matter.
  int choice(std::string_view option, std::string_view words, int otherwise) const;
  /// What was given and not asked for.
  std::vector<std::string> unasked() const;

 private:
  mutable std::set<std::string, std::less<>> asked_;
};

/// "--name".
std::string dashed(std::string_view name);
/// The words of "A|B|C".
std::vector<std::string> wordsOf(std::string_view alternatives);

struct Command;
/// Tells options and arguments apart: --name, --name=VALUE or --name VALUE, and -- before arguments
/// that begin with a dash. -h is --help, after which nothing counts.
/// Errors: UsageError for an unknown option, a missing or needless value, a wrong number of
///         arguments.
Arguments parse(const Command& command, const std::vector<std::string>& words);

}  // namespace puzzle
