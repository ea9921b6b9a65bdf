#pragma once

#include "tool/CommandLine.h"

/// What the commands do; the table in Commands.cpp says what each takes.
namespace puzzle {

int makeCommand(const Arguments& arguments, Environment& environment);
int showCommand(const Arguments& arguments, Environment& environment);
int renderCommand(const Arguments& arguments, Environment& environment);
int checkCommand(const Arguments& arguments, Environment& environment);
int solveCommand(const Arguments& arguments, Environment& environment);
int proveCommand(const Arguments& arguments, Environment& environment);
int generateCommand(const Arguments& arguments, Environment& environment);

}  // namespace puzzle
