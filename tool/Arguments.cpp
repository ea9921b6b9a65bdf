#include "tool/Arguments.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "tool/CommandLine.h"

namespace puzzle {

namespace {

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

const OptionSpec& optionNamed(const Command& command, std::string_view name,
                              std::string_view word) {
  const auto found = std::ranges::find(command.options, name, &OptionSpec::name);
  if (found == command.options.end())
    throw UsageError(std::string(command.name) + " has no option " + std::string(word) + ".");
  return *found;
}

/// Takes the option at words[i], and the next word where that is its value.
void readOption(const Command& command, const std::vector<std::string>& words, std::size_t& i,
                Arguments& arguments) {
  const std::string word = words[i].substr(0, words[i].find('='));
  const OptionSpec& option =
      optionNamed(command, word.starts_with("--") ? word.substr(2) : std::string(), word);
  std::string& value = arguments.options[std::string(option.name)];
  const bool joined = word.size() != words[i].size();
  if (option.value.empty() && joined) throw UsageError(word + " takes no value.");
  if (option.value.empty()) return;
  if (joined)
    value = words[i].substr(word.size() + 1);
  else if (++i < words.size())
    value = words[i];
  else
    throw UsageError(word + " wants a value.");
}

}  // namespace

std::string dashed(std::string_view name) {
  return std::string("--").append(name);
}

std::vector<std::string> wordsOf(std::string_view alternatives) {
  std::vector<std::string> words;
  for (std::size_t from = 0, to = 0; to != std::string_view::npos; from = to + 1) {
    to = alternatives.find('|', from);
    words.emplace_back(alternatives.substr(from, to - from));
  }
  return words;
}

bool Arguments::has(std::string_view option) const {
  asked_.emplace(option);
  return options.contains(option);
}

std::string Arguments::text(std::string_view option, std::string_view otherwise) const {
  return has(option) ? options.find(option)->second : std::string(otherwise);
}

long long Arguments::number(std::string_view option, long long otherwise, long long least,
                            long long most) const {
  if (!has(option)) return otherwise;
  const std::string value = text(option);
  long long result = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), result);
  if (error != std::errc{} || end != value.data() + value.size() || result < least || result > most)
    throw UsageError(dashed(option) + " wants a whole number from " + std::to_string(least) +
                     (most == kNoLimit ? "." : " to " + std::to_string(most) + "."));
  return result;
}

int Arguments::choice(std::string_view option, std::string_view words, int otherwise) const {
  if (!has(option)) return otherwise;
  const std::vector<std::string> known = wordsOf(words);
  const auto found = std::ranges::find(known, lowerCase(text(option)), lowerCase);
  if (found == known.end())
    throw UsageError(dashed(option) + " wants one of " + std::string(words) + ".");
  return static_cast<int>(found - known.begin());
}

std::vector<std::string> Arguments::unasked() const {
  std::vector<std::string> names;
  for (const auto& [name, value] : options)
    if (!asked_.contains(name)) names.push_back(name);
  return names;
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
    } else if (word == "--help" || word == "-h") {
      arguments.options["help"];
      return arguments;
    } else {
      readOption(command, words, i, arguments);
    }
  }
  if (arguments.positional.size() < command.fewest || arguments.positional.size() > command.most)
    throw UsageError(std::string(command.name) +
                     " wants the arguments: " + std::string(command.arguments));
  return arguments;
}

}  // namespace puzzle
