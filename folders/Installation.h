#pragma once

#include <filesystem>

#include "seams/Seam.h"

/// Where the game finds what it brings, and where the player's puzzles lie.
///
/// The program's own folder holds both where `puzzles` lies in it, it is no package's, and `User`
/// is there or can be made in it, this user's and nobody else's to write. Else it is a folder of
/// the player's own (PlayersFolder). Where that one cannot be made, the program's folder holds what
/// it brings, and the player's puzzles are nowhere, or what a read-only home still has.
struct Installation {
  std::filesystem::path folder;  ///< with puzzles/, tiles/ and the help file
  std::filesystem::path user;    ///< the player's puzzles; empty or not there: none

  /// Decides for a program whose executable lies, all links resolved, in `programFolder`, and makes
  /// what is missing. Puzzles of this user are copied to a new folder of theirs from the program's
  /// `User` and from `formerUser`.
  static Installation find(const std::filesystem::path& programFolder);

  /// Where find() has, or would make, the player's puzzles; makes nothing. Empty: nowhere.
  static std::filesystem::path expectedUser(const std::filesystem::path& programFolder);

  /// Where the Debian package up to 1.1.7 kept the puzzles of all users.
  static Seam<std::filesystem::path> formerUser;
};

/// Whether a folder belongs to the system's packages: below /usr, but not below /usr/local, which
/// is the administrator's own (Filesystem Hierarchy Standard).
bool isPackages(const std::filesystem::path& folder);
