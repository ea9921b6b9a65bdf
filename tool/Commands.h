#pragma once

#include "tool/CommandLine.h"

/// What the commands do; the table in Commands.cpp says what each takes.
namespace puzzle {

inline constexpr std::string_view kStyles = "free|mirror|both|hole|glyph";
inline constexpr std::string_view kPapers = "A4|Letter";

int makeCommand(const Arguments& arguments, Environment& environment);
int showCommand(const Arguments& arguments, Environment& environment);
int renderCommand(const Arguments& arguments, Environment& environment);
int checkCommand(const Arguments& arguments, Environment& environment);
int solveCommand(const Arguments& arguments, Environment& environment);
int proveCommand(const Arguments& arguments, Environment& environment);
int rateCommand(const Arguments& arguments, Environment& environment);
int generateCommand(const Arguments& arguments, Environment& environment);

}  // namespace puzzle
