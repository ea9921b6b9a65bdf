#pragma once

#include "tool/CommandLine.h"

/// What the commands do; the table in Commands.cpp says what each takes.
namespace puzzle {

int makeCommand(const Given& given, Surroundings& surroundings);
int showCommand(const Given& given, Surroundings& surroundings);
int renderCommand(const Given& given, Surroundings& surroundings);
int checkCommand(const Given& given, Surroundings& surroundings);
int solveCommand(const Given& given, Surroundings& surroundings);
int proveCommand(const Given& given, Surroundings& surroundings);
int generateCommand(const Given& given, Surroundings& surroundings);

}  // namespace puzzle
