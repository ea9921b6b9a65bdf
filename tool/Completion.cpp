#include <sstream>

#include "tool/CommandLine.h"

// What is made from the table of commands for shells: scripts that complete its words. File names
// are completed everywhere, since arguments are files and folders.
namespace puzzle {

namespace {

/// The text between single quotes; an apostrophe inside ends them for a moment.
std::string inQuotes(std::string_view text) {
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'')
      result += "'\\''";
    else
      result += c;
  }
  return result + "'";
}

bool isList(std::string_view value) {
  return value.find('|') != std::string_view::npos;
}

std::string joined(const std::vector<std::string>& words) {
  std::string result;
  for (const std::string& word : words) result += (result.empty() ? "" : " ") + word;
  return result;
}

std::string commandNames() {
  std::vector<std::string> names;
  for (const Command& command : commands()) names.emplace_back(command.name);
  return joined(names);
}

std::string aloneNames() {
  std::vector<std::string> names;
  for (const OptionSpec& option : standAlone())
    for (const std::string& name : wordsOf(option.name)) names.push_back(name);
  return joined(names);
}

std::string optionWords(const Command& command) {
  std::vector<std::string> words{"--help"};
  for (const OptionSpec& option : command.options)
    words.push_back(dashed(option.name) + (option.value.empty() ? "" : "="));
  return joined(words);
}

/// Lines of the cases "command:--option" whose values are known.
std::string bashValues() {
  std::string lines;
  for (const Command& command : commands())
    for (const OptionSpec& option : command.options)
      if (isList(option.value))
        lines += "    " + std::string(command.name) + ":" + dashed(option.name) + ") values='" +
                 joined(wordsOf(option.value)) + "' ;;\n";
  return lines;
}

std::string bash() {
  std::ostringstream out;
  out << "# Completion of " << kProgram << " for bash, made by " << kProgram << " --completion.\n"
      << "_quinzolith_puzzle() {\n"
      << "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
      << "  local command=${COMP_WORDS[1]} options= values=\n"
      << "  COMPREPLY=()\n"
      << "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
      << "    COMPREPLY=($(compgen -W '" << commandNames() << " " << aloneNames()
      << "' -- \"$current\"))\n    return\n  fi\n"
      << "  # bash gives an equals sign as a word of its own\n"
      << "  [ \"$current\" = = ] && current=\n"
      << "  [ \"$previous\" = = ] && previous=${COMP_WORDS[COMP_CWORD-2]}\n"
      << "  case \"$command\" in\n"
      << "    help) COMPREPLY=($(compgen -W '" << commandNames()
      << "' -- \"$current\")); return ;;\n"
      << "    --completion) COMPREPLY=($(compgen -W '" << joined(wordsOf(kShells))
      << "' -- \"$current\")); return ;;\n";
  for (const Command& command : commands())
    out << "    " << command.name << ") options='" << optionWords(command) << "' ;;\n";
  out << "  esac\n  case \"$command:$previous\" in\n"
      << bashValues() << "  esac\n"
      << "  if [ -n \"$values\" ]; then\n"
      << "    COMPREPLY=($(compgen -W \"$values\" -- \"$current\"))\n"
      << "  elif [[ $current == -* ]]; then\n"
      << "    COMPREPLY=($(compgen -W \"$options\" -- \"$current\"))\n"
      << "    [[ ${COMPREPLY[0]} == *= ]] && compopt -o nospace\n"
      << "  else\n"
      << "    compopt -o filenames\n"
      << "    COMPREPLY=($(compgen -f -- \"$current\"))\n"
      << "  fi\n}\n"
      << "complete -F _quinzolith_puzzle " << kProgram << "\n";
  return out.str();
}

/// The text with what zsh's argument specifications give a meaning made plain.
std::string zshPlain(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '[' || c == ']' || c == ':' || c == '\\') result += '\\';
    result += c;
  }
  return result;
}

std::string zshOption(const OptionSpec& option) {
  std::string spec =
      dashed(option.name) + (option.value.empty() ? "" : "=") + "[" + zshPlain(option.text) + "]";
  if (isList(option.value))
    spec += ":value:(" + joined(wordsOf(option.value)) + ")";
  else if (!option.value.empty())
    spec += ":" + zshPlain(option.value) + ":";
  return inQuotes(spec);
}

std::string zsh() {
  std::ostringstream out;
  out << "#compdef " << kProgram << "\n# Made by " << kProgram << " --completion.\n"
      << "_quinzolith_puzzle() {\n  if (( CURRENT == 2 )); then\n    local -a commands=(\n";
  for (const Command& command : commands())
    out << "      " << inQuotes(std::string(command.name) + ":" + zshPlain(command.summary))
        << "\n";
  out << "    )\n    _describe command commands\n    compadd -- " << aloneNames()
      << "\n    return\n  fi\n  case ${words[2]} in\n    help) compadd " << commandNames()
      << " ;;\n    --completion) compadd " << joined(wordsOf(kShells)) << " ;;\n";
  for (const Command& command : commands()) {
    out << "    " << command.name << ")\n      shift words; (( CURRENT-- ))\n      _arguments -S";
    for (const OptionSpec& option : command.options) out << " \\\n        " << zshOption(option);
    out << " \\\n        '(- *)--help[show help]' '*:file:_files' ;;\n";
  }
  out << "  esac\n}\n_quinzolith_puzzle \"$@\"\n";
  return out.str();
}

std::string fishOption(std::string_view condition, const OptionSpec& option) {
  std::string line = "complete -c " + std::string(kProgram) + " -n " + inQuotes(condition) +
                     " -l " + std::string(option.name) + " -d " + inQuotes(option.text);
  if (isList(option.value))
    line += " -x -a " + inQuotes(joined(wordsOf(option.value)));
  else if (!option.value.empty())
    line += " -x";
  return line + "\n";
}

std::string fish() {
  std::ostringstream out;
  const std::string program(kProgram);
  out << "# Completion of " << kProgram << " for fish, made by " << kProgram << " --completion.\n";
  const auto first = [&](std::string_view word, std::string_view text) {
    out << "complete -c " << program << " -n __fish_use_subcommand -f -a " << inQuotes(word)
        << " -d " << inQuotes(text) << "\n";
  };
  for (const Command& command : commands()) first(command.name, command.summary);
  for (const OptionSpec& option : standAlone())
    for (const std::string& name : wordsOf(option.name)) first(name, option.text);
  out << "complete -c " << program << " -n '__fish_seen_subcommand_from help' -f -a "
      << inQuotes(commandNames()) << "\n"
      << "complete -c " << program << " -n '__fish_seen_subcommand_from --completion' -f -a "
      << inQuotes(joined(wordsOf(kShells))) << "\n";
  for (const Command& command : commands()) {
    const std::string seen = "__fish_seen_subcommand_from " + std::string(command.name);
    out << fishOption(seen, {"help", "", "show help"});
    for (const OptionSpec& option : command.options) out << fishOption(seen, option);
  }
  return out.str();
}

}  // namespace

std::string completion(std::string_view shell) {
  return shell == "zsh" ? zsh() : shell == "fish" ? fish() : bash();
}

}  // namespace puzzle
