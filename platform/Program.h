#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "seams/Seam.h"

/// What the running program is: its title and version, where it is installed, and the state
/// and the clock that all of it shares.
namespace Program {

/// "Quinzolith", the caption of every message box.
inline constexpr const char* kTitle = "Quinzolith";
/// Its maker, as in the settings store and the installed tree.
inline constexpr const char* kMaker = "Kelvo Software";

/// The three numbers joined by ".", for example 1.1.7.
std::string versionText();

/// The folder of the (resolved) executable, and of its companions.
extern Seam<std::function<std::filesystem::path()>> programFolder;

/// The folder with puzzles/, tiles/ and the help file: the program's, until the start finds
/// another.
std::filesystem::path installationFolder();
/// Names what was found for the program in its folder; for one in another folder it says nothing.
void setInstallationFolder(const std::filesystem::path& folder);

/// The program-files folder, two levels above the program's folder.
std::filesystem::path programFilesFolder();

/// The compiled help file; set at start.
extern std::filesystem::path HelpFile;
/// The user's puzzle folder; set at start.
extern std::filesystem::path UserPath;

/// Bits per pixel of the screen, measured by the splash window at each of its loads. Below 16 the
/// windows use their 256-colour pictures. 24 until the first measurement.
extern int ColorDepth;
/// The depth from which no palette is needed, and the depth at which there is one.
inline constexpr int kDeepColour = 16;
inline constexpr int kPaletteDepth = 8;

/// Seconds since midnight, local time, with fractions.
extern Seam<std::function<double()>> Timer;

}  // namespace Program
